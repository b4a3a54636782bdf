#!/usr/bin/env python3
"""The plug pulled: every file that the program writes, on a file system of its own in
an image, which is stopped as a power cut stops it: what has not reached the image by
then never will. What was told to be written is there afterwards, whole; what was just
being written is there whole or not at all. A name as argument plays only that file.

Only an account that may mount can play this; elsewhere it says so and ends well."""

import concurrent.futures
import fcntl
import os
import pathlib
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import time

from power_cuts import CASES, ENVIRONMENT, PATIENCE, WRITER, Case, Fault, may_play

PULLS = 6  # of each case: half of them right behind a write that was told
STEPS = 4  # writes before a pull at most
STOP_WITHOUT_FLUSH = struct.pack("I", 2)
EXT4_IOC_SHUTDOWN = 0x8004587D


def run(*words):
    return subprocess.run(words, capture_output=True, text=True, check=False)


class Disk:
    """A file system in an image, that can lose its power."""

    def __init__(self, folder):
        self.image = folder / "image"
        self.mounted_at = folder / "disk"
        self.mounted_at.mkdir()
        with open(self.image, "wb") as image:
            image.truncate(24 << 20)
        self.device = None
        self.order("mkfs.ext4", "-q", "-F", str(self.image))
        # One device for all mounts: a new one might be there before the old one has let go.
        self.device = self.order("losetup", "--find", "--show", str(self.image)).strip()
        self.mount()

    @staticmethod
    def order(*words):
        done = run(*words)
        if done.returncode != 0:
            raise OSError(done.stderr.strip())
        return done.stdout

    def mount(self):
        # The journal of the file system waits for its longest, as on a quiet machine.
        self.order("mount", "-o", "commit=300", self.device, str(self.mounted_at))

    def unmount(self):
        return run("umount", str(self.mounted_at)).returncode == 0

    def remove(self):
        self.unmount()
        if self.device:
            run("losetup", "--detach", self.device)

    def pull(self):
        folder = os.open(self.mounted_at, os.O_RDONLY)
        fcntl.ioctl(folder, EXT4_IOC_SHUTDOWN, STOP_WITHOUT_FLUSH)
        os.close(folder)

    def come_back(self):
        end = time.monotonic() + PATIENCE
        while not self.unmount():
            if time.monotonic() > end:
                raise OSError("the disk of the test cannot be unmounted")
            time.sleep(0.02)
        self.mount()


def start(case, folder):
    program = subprocess.Popen([str(WRITER), "step", case.kind, str(folder), case.text], env=ENVIRONMENT,
                               stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, **case.account)
    program.stdout.readline()
    return program


def go_on(program):
    program.stdin.write(b"\n")
    program.stdin.flush()


def states_of(case):
    """What stands there before the first write, after it, after the second, ..."""
    steps = 1 if case.kind == "seeds" else STEPS + 1
    with tempfile.TemporaryDirectory(prefix="stoikal-plug-") as folder:
        case.prepare(folder)
        states = [case.look(folder)]
        program = start(case, folder)
        for _ in range(steps):
            go_on(program)
            if program.stdout.readline() != b"done\n":
                raise Fault("does not write where nothing hinders it")
            states.append(case.look(folder))
        program.kill()
        program.communicate()
        return states


def pull_once(case, states, disk, seed):
    """Pulls the plug after some writes: right behind one, or in the midst of the next."""
    chance = random.Random(f"{case.title} {seed}")
    is_behind = seed % 2 == 0
    steps = 1 if case.kind == "seeds" else chance.randint(1, STEPS)
    folder = disk.mounted_at / f"{seed}"
    folder.mkdir()
    case.prepare(folder)
    os.sync()
    program = start(case, folder)
    told = 0
    try:
        for _ in range(steps if is_behind else steps - 1):
            go_on(program)
            if program.stdout.readline() != b"done\n":
                raise Fault("does not write on the disk of the test")
            told += 1
        if not is_behind:
            go_on(program)
            time.sleep(chance.random() * 0.006)
        disk.pull()
    finally:
        program.kill()
        program.communicate(timeout=PATIENCE)
    disk.come_back()
    state = case.look(folder)
    right = [states[told]] if is_behind else [states[told], states[told + 1]]
    # A file to append to may have been made, empty, before its first line.
    if not is_behind and told == 0 and case.old is None and state == b"":
        return
    if state not in right:
        when = f"behind write {told}" if is_behind else f"in the midst of write {told + 1}"
        raise Fault(f"plug pulled {when} (pull {seed}): {str(state)[-200:]}")


def play(case, disk):
    faults = []
    try:
        states = states_of(case)
    except Fault as fault:
        return [str(fault)]
    for seed in range(PULLS):
        try:
            pull_once(case, states, disk, seed)
        except Fault as fault:
            faults.append(str(fault))
        shutil.rmtree(disk.mounted_at / f"{seed}", ignore_errors=True)
    return faults


def see_mounts_alone():
    """Starts this test again where no other program sees its mounts: one that takes
    them along into mounts of its own would keep a disk alive that has lost its power."""
    if "STOIKAL_OWN_MOUNTS" in os.environ or run("unshare", "--mount", "true").returncode != 0:
        return
    os.environ["STOIKAL_OWN_MOUNTS"] = "1"
    os.execvp("unshare", ["unshare", "--mount", sys.executable, *sys.argv])


def main():
    see_mounts_alone()
    wanted = [case for case in CASES if may_play(case[0]) and (not sys.argv[1:] or case[0] in sys.argv[1:])]
    place = pathlib.Path(tempfile.mkdtemp(prefix="stoikal-plug-"))
    place.chmod(0o755)  # Another account gets through to its folder.
    disks = []
    try:
        try:
            for number in range(os.cpu_count() or 2):
                (place / str(number)).mkdir()
                disks.append(Disk(place / str(number)))
        except OSError as error:
            print(f"left out: no file system can be mounted here ({error})")
            return 0
        free = list(disks)
        lock = threading.Lock()
        failed = 0

        def one(words):
            case = Case(*words)
            with lock:
                disk = free.pop()
            try:
                return case.title, play(case, disk)
            finally:
                with lock:
                    free.append(disk)

        with concurrent.futures.ThreadPoolExecutor(len(disks)) as pool:
            for title, faults in pool.map(one, wanted):
                print(f"{'FAIL ' if faults else 'OK   '} {title}: the plug pulled {PULLS} times", flush=True)
                for fault in faults[:10]:
                    print(f"      {fault}", flush=True)
                failed += len(faults)
        print(f"the plug pulled {PULLS * len(wanted)} times, {failed} failed")
        return 1 if failed else 0
    finally:
        for disk in disks:
            disk.remove()
        shutil.rmtree(place, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
