#!/usr/bin/env python3
"""Every file that the program writes, cut short: killed at each system call of the
write, on a disk that is full from each of them on, on one that has room for so many
bytes only, and written by two programs at once. The file is afterwards the old one
or the new one, whole; who failed says so; no update is lost. A name as argument
plays only that file."""

import concurrent.futures
import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
WRITER = ROOT / "build" / os.environ.get("STOIKAL_BUILD", "sanitized") / "tests" / "faults" / "file_writer"
# The leak check would need the place that strace takes.
ENVIRONMENT = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "ASAN_OPTIONS": "detect_leaks=0"}
PATIENCE = 30  # seconds

# The calls that change something; what lies between two of them leaves one state.
CHANGING = ["openat", "write", "pwrite64", "writev", "rename", "renameat", "renameat2", "link", "linkat", "unlink",
            "unlinkat", "ftruncate", "fallocate", "fsync", "fdatasync", "fchmod", "chmod", "mkdir", "mkdirat", "rmdir", "flock",
            "copy_file_range", "sendfile"]
NOT_FOR_LACK_OF_ROOM = {"flock", "unlink", "unlinkat", "rmdir"}

LINES = "".join(f"Ligne {number} é\r\n" for number in range(40)).encode("cp1252")
SETTINGS = b"[Options]\r\nPassWord=vieux\r\n[autre]\r\nx=1\r\n"
SCORES = "#Serie.Equ\r\nDUPONT©19.2©60\r\n".encode("cp1252")
EQUATIONS = b"'T\xeate\r\nH2+O2=H2O/2,1,2\r\n"
SHIPPED = {"Combustions.Equ": EQUATIONS * 50, "Serie.Equ": EQUATIONS, "TipOfDayEqChm.txt": LINES}

# The kind of write, the file that it changes, what stands in it before (nothing: it
# is not there yet).
CASES = [
    ("settings", "settings.ini", SETTINGS), ("settings", "settings.ini", None),
    ("journal", "Resultat.txt", LINES), ("journal", "Resultat.txt", None),
    ("high_scores", "HighScore.txt", SCORES), ("high_scores", "HighScore.txt", None),
    ("shared_scores", "HighScore.txt", SCORES),
    ("password", "MotDePasse.txt", b"vieux\r\n"), ("password", "MotDePasse.txt", None),
    ("equations", "Serie.Equ", EQUATIONS), ("equations", "Serie.Equ", None),
    ("found", "Serie.Equ", EQUATIONS), ("found", "Serie.Equ", None),
    ("balanced", "Serie.Equ", EQUATIONS),
    ("work_file", "FileTemp.txt", SETTINGS), ("work_file", "FileTemp.txt", None),
    ("text", "TipOfDayEqChm.txt", LINES), ("text", "TipOfDayEqChm.txt", None),
    ("seeds", "documents/Stoikal", None),
]
APPENDED = {"journal", "found", "balanced"}
# Written by an account that may write another's file and not replace it: a folder in
# which each takes away and renames its own files alone. Only the superuser plays it.
OTHERS = {"shared_scores"}
OTHER_ACCOUNT = {"user": 65534, "group": 65534, "extra_groups": []}


def may_play(kind):
    return kind not in OTHERS or os.geteuid() == 0


class Fault(Exception):
    pass


class Case:
    def __init__(self, kind, name, before):
        self.kind, self.name, self.before = kind, name, before
        self.account = OTHER_ACCOUNT if kind in OTHERS else {}
        self.title = kind + ("" if before else " (new)")
        self.text = "C+O2=CO2/1,1,1" if kind in ("found", "balanced", "equations") else "NOUVEAU"
        with tempfile.TemporaryDirectory(prefix="stoikal-faults-") as folder:
            self.prepare(folder)
            self.old = self.look(folder)
            if self.run(folder).returncode != 0:
                raise Fault("does not write where nothing hinders it")
            self.new = self.look(folder)
        if self.old == self.new:
            raise Fault("writes nothing")

    def prepare(self, folder):
        folder = pathlib.Path(folder)
        if self.before is not None:
            (folder / self.name).write_bytes(self.before)
        (folder / "ships").mkdir()
        for name, content in SHIPPED.items():
            (folder / "ships" / name).write_bytes(content)
        if self.kind in OTHERS:
            folder.chmod(0o1777)
            (folder / self.name).chmod(0o666)

    def look(self, folder):
        """What stands there now: bytes, names and bytes, or nothing."""
        if self.kind in OTHERS:
            # A file that was being written over is what the next program makes of it.
            mended = subprocess.run([str(WRITER), "mend_scores", str(folder), ""], env=ENVIRONMENT, input=b"\n",
                                    capture_output=True, timeout=PATIENCE, check=False, **self.account)
            if mended.returncode != 0:
                raise Fault("cannot be mended: " + mended.stdout.decode(errors="replace"))
        place = pathlib.Path(folder) / self.name
        if place.is_dir():
            return {path.name: path.read_bytes() for path in place.iterdir()}
        return place.read_bytes() if place.exists() else None

    def run(self, folder, before=(), text=None, limit=None):
        def set_limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))

        # A file that grows over the limit gets the bytes up to it. The signal that goes
        # with it comes as to any program: that it does not end this one is its own affair.
        return subprocess.run([*before, str(WRITER), self.kind, str(folder), text or self.text], env=ENVIRONMENT,
                              input=b"\n", capture_output=True, timeout=PATIENCE, check=False,
                              preexec_fn=None if limit is None else set_limit, **self.account)

    def calls(self):
        """The changing calls of one whole write, in the folder and at its files: name,
        the how manieth of that name since the process began, and whether it can
        fail for lack of room."""
        with tempfile.TemporaryDirectory(prefix="stoikal-faults-") as folder:
            self.prepare(folder)
            record = pathlib.Path(folder) / "record"
            done = self.run(folder, ["strace", "-f", "-qq", "-y", "-o", str(record), "-e", "trace=read," + ",".join(CHANGING)])
            if done.returncode != 0:
                raise Fault("does not write under strace: " + done.stderr.decode(errors="replace"))
            counts, calls, is_writing = {}, [], False
            for line in record.read_text(errors="replace").splitlines():
                found = re.match(r"\d+ +(\w+)\((\w+)", line)
                if not found:
                    continue
                name, first = found.groups()
                counts[name] = counts.get(name, 0) + 1
                is_writing = is_writing or (name == "read" and first == "0")
                if not is_writing or folder not in line or name == "read" or "O_DIRECTORY" in line:
                    continue
                makes_nothing = name == "openat" and "O_CREAT" not in line
                # What has just reached the disk needs no second order.
                is_told_already = name == "fdatasync" and calls and calls[-1][0] == "fdatasync"
                calls.append((name, counts[name], not (name in NOT_FOR_LACK_OF_ROOM or makes_nothing or is_told_already)))
            return calls

    def inject(self, call, what):
        name, number, _ = call
        return ["strace", "-f", "-qq", "-o", "/dev/null", "-e", f"trace={name}", "-e", f"inject={name}:{what}:when={number}"]

    def expect_whole(self, state, what):
        # A file to append to may have been made, empty, before its first line.
        is_made = self.old is None and state == b"" and self.kind in APPENDED
        if state not in (self.old, self.new) and not is_made:
            raise Fault(f"{what}: neither the old nor the new file: {str(state)[-300:]}")

    def expect_next(self, folder, what):
        """What was left behind does not hinder the next program."""
        done = self.run(folder, text=self.text + "2" if self.kind != "seeds" else None)
        state = self.look(folder)
        if done.returncode != 0:
            raise Fault(f"{what}: the next program is refused: {done.stdout.decode(errors='replace')}")
        if self.kind == "seeds":
            if state != self.new:
                raise Fault(f"{what}: the next program leaves {sorted(state)}")
        elif (self.text + "2").encode() not in state:
            raise Fault(f"{what}: the next program's update is lost")

    def kill_at(self, call):
        what = f"killed at {call[0]} {call[1]}"
        with tempfile.TemporaryDirectory(prefix="stoikal-faults-") as folder:
            self.prepare(folder)
            done = self.run(folder, self.inject(call, "signal=SIGKILL"))
            if done.returncode == 0 or b"written" in done.stdout:
                raise Fault(f"{what}: was not killed")
            self.expect_whole(self.look(folder), what)
            self.expect_next(folder, what)

    def fail_at(self, call):
        what = f"no room at {call[0]} {call[1]}"
        with tempfile.TemporaryDirectory(prefix="stoikal-faults-") as folder:
            self.prepare(folder)
            done = self.run(folder, self.inject(call, "error=ENOSPC"))
            state = self.look(folder)
            self.expect_whole(state, what)
            if done.returncode not in (0, 1):
                raise Fault(f"{what}: ends with {done.returncode}: {done.stderr.decode(errors='replace')[-300:]}")
            # The journal keeps what it could not write and tries once more at its end.
            is_late = self.kind == "journal" and done.returncode == 1
            # A name that the disk has not promised to keep is told as a failure; it may stand there.
            is_late = is_late or (call[0] == "fsync" and done.returncode == 1)
            # So is a copy that could not be emptied, beside a file that is written.
            is_late = is_late or (self.kind in OTHERS and done.returncode == 1)
            if not is_late and (done.returncode == 0) != (state == self.new):
                raise Fault(f"{what}: says {done.stdout.decode(errors='replace')!r}, which is not so")
            if call[0] in ("fsync", "fdatasync") and done.returncode == 0:
                raise Fault(f"{what}: is not told")
            self.expect_next(folder, what)

    def fill_up(self, limit):
        what = f"room for {limit} bytes"
        with tempfile.TemporaryDirectory(prefix="stoikal-faults-") as folder:
            self.prepare(folder)
            done = self.run(folder, limit=limit)
            state = self.look(folder)
            if done.returncode != 1:
                raise Fault(f"{what}: is not told (exit code {done.returncode}): {done.stderr.decode(errors='replace')[-300:]}")
            if self.kind == "journal":
                # What the disk took stays: the journal goes on behind it.
                if not (state or b"").startswith(self.old or b"") or not self.new.startswith(state or b""):
                    raise Fault(f"{what}: lines are lost")
                return
            # A file made for nothing may stand there, empty, where lines were to be appended.
            if state != self.old and not (self.old is None and state == b"" and self.kind in APPENDED):
                raise Fault(f"{what}: the old file is not there any more: {str(state)[-300:]}")
            self.expect_next(folder, what)

    def limits(self):
        if self.kind == "seeds":
            return [0, len(EQUATIONS), len(EQUATIONS) * 25]
        first = len(self.old or b"") if self.kind in APPENDED else 0
        last = len(self.new) - 1
        return sorted({first, min(first + 1, last), (first + last) // 2, last})

    def jobs(self):
        calls = self.calls()
        if not calls:
            raise Fault("no call of the write was seen")
        for call in calls:
            yield self.kill_at, call
            if call[2]:
                yield self.fail_at, call
        for limit in self.limits():
            yield self.fill_up, limit


def two_at_once(case):
    """Two programs write 50 times each, or make the folder, at the same moment."""
    with tempfile.TemporaryDirectory(prefix="stoikal-faults-") as folder:
        case.prepare(folder)
        is_many = case.kind != "seeds"
        programs = []
        for text in ("premier ", "second "):
            programs.append(subprocess.Popen([str(WRITER), *(["many"] if is_many else []), case.kind, folder, text],
                                             env=ENVIRONMENT, stdin=subprocess.PIPE, stdout=subprocess.PIPE))
            programs[-1].stdout.readline()
        for program in programs:
            program.stdin.write(b"\n")
            program.stdin.flush()
        for program in programs:
            said = program.communicate(timeout=PATIENCE)[0]
            if program.returncode != 0:
                raise Fault("one of two at once: " + said.decode(errors="replace"))
        state = case.look(folder)
        if case.kind == "seeds":
            if state != case.new:
                raise Fault(f"two at once leave {sorted(state)}")
            return
        missing = [text + str(turn) for text in ("premier ", "second ") for turn in range(50)
                   if not re.search(re.escape((text + str(turn)).encode()) + rb"(?!\d)", state)]
        if missing:
            raise Fault(f"two at once: {len(missing)} updates are lost")
        if not state.startswith(case.before or b"") and case.kind in APPENDED:
            raise Fault("two at once: what stood before is lost")


def play(case):
    began = time.monotonic()
    faults, count = [], 0
    jobs = list(case.jobs())
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as pool:
        for done in [pool.submit(job, argument) for job, argument in jobs]:
            count += 1
            try:
                done.result()
            except Fault as fault:
                faults.append(str(fault))
    if case.kind in ("settings", "journal", "found", "seeds"):
        count += 1
        try:
            two_at_once(case)
        except Fault as fault:
            faults.append(str(fault))
    print(f"{'FAIL ' if faults else 'OK   '} {case.title}: {count} cuts ({time.monotonic() - began:.1f} s)", flush=True)
    for fault in faults[:10]:
        print(f"      {fault}", flush=True)
    return count, len(faults)


def main():
    if shutil.which("strace") is None:
        print("FAIL  strace is missing: ./dev setup")
        return 1
    wanted = sys.argv[1:]
    cuts = failed = 0
    for kind, name, before in CASES:
        if wanted and kind not in wanted:
            continue
        if not may_play(kind):
            print(f"left out: {kind}: only the superuser plays two accounts", flush=True)
            continue
        try:
            count, faults = play(Case(kind, name, before))
        except Fault as fault:
            print(f"FAIL  {kind}: {fault}", flush=True)
            count, faults = 1, 1
        cuts += count
        failed += faults
    print(f"{cuts} power cuts and full disks, {failed} failed")
    return 1 if failed or not cuts else 0


if __name__ == "__main__":
    sys.exit(main())
