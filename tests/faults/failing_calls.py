#!/usr/bin/env python3
"""Every call of the system that can fail, fails once in a run of the real program: to
open, read, write, flush, rename, make, remove or lock a file of its own, with each
error that the call may give. A visitor within the program plays a file, changes a
preference and the password, writes equations and a tip, and leaves. Whatever failed:
the visit went on, or ended by the box that says so; each file is whole, the old one or
the new one; what is not in its file was told; the next start leaves no litter.

    failing_calls.py [RUNS] [SEED]

plays so many runs (200): half of them with one call after the other failing, evenly
over all calls, the rest at random with several failures each. Before, it is seen what
happens on file systems that know no locks."""

import collections
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / os.environ.get("STOIKAL_BUILD", "sanitized")
LIBRARIES = [BUILD / "tests" / "faults" / name for name in ("libfailing_calls.so", "libvisitor.so")]
WRITER = BUILD / "tests" / "faults" / "file_writer"
PATIENCE = 60  # seconds
ONE_IN = 60  # calls that fail in a run at random

PLAYED = "'Deux équations\r\nH2+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n".encode("cp1252")
APPENDED_TO = b"'Suite\r\nN2+H2=NH3/1,3,2\r\n"
APPENDED = APPENDED_TO + b"\r\n'\r\nC+O2=CO2/1,1,1"
STARS = b"'" + b"*" * 65
HEAD = STARS + b"\r\r\n'       Equations chimiques pour le logiciel Stoikal\r\r\n" + STARS + b"\r\n"
WRITTEN = HEAD + b"H2+O2=H2O/2,1,2\r\n"
TIP = b"Une astuce de plus\r\n"
SETTINGS = b"[Options]\r\nShow Tips at Startup=0\r\nShow info-bulles at Startup=1\r\n[autre]\r\ntexte=ancien\r\n"
SCORES = "#Autre.Equ\r\nMARTIN©12,00©60,00\r\n#Visite.Equ\r\nMARTIN©12,00©60,00\r\n".encode("cp1252")
JOURNAL = "**************************************\r\nAncien résultat\r\n".encode("cp1252")
LITTER = re.compile(r"\.lock(\.own)?$|\.nouveau$|\.([a-z][0-9]){3}$")
JOURNAL_TOLD = ("Le fichier des résultats ne peut pas être complété", "Des résultats n'ont pas encore pu être écrits",
                "Le fichier des résultats ne peut pas être rouvert")
PASSWORD_NOT_SURE = "Le nouveau mot de passe est écrit et valable"


class Fault(Exception):
    pass


class Visit:
    """One run of the program in folders of its own."""

    def __init__(self, is_first):
        self.is_first = is_first
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="stoikal-calls-"))
        self.home = self.folder / "home"
        self.equations = self.home / "documents" / "Tovik_MARLEN" / "Stoikal"
        self.settings = self.home / "app" / "Tovik_MARLEN" / "Stoikal" / "ConfEQU_dupont.ini"
        self.played = self.home / "eleve" / "Visite.Equ"
        # Beside the exercises, unless they are made only by this visit.
        self.appended = (self.home / "eleve" if is_first else self.equations) / "Suite.Equ"
        self.log = self.folder / "visit.log"
        self.calls = self.folder / "calls.log"
        self.code, self.said, self.lines, self.failed = None, "", [], []
        for path in (self.played, self.home / "app" / "x", self.home / "documents" / "x", self.home / "cache" / "x"):
            path.parent.mkdir(parents=True)
        self.played.write_bytes(PLAYED)
        if not is_first:
            self.settle()
        self.appended.write_bytes(APPENDED_TO)

    def settle(self):
        """As earlier visits left it."""
        self.settings.parent.mkdir(parents=True)
        self.settings.write_bytes(SETTINGS)
        self.equations.mkdir(parents=True)
        for folder in ("exercises", "tips"):
            for path in (BUILD / folder).iterdir():
                shutil.copy(path, self.equations)
        (self.equations / "HighScore.txt").write_bytes(SCORES)
        (self.equations / "Resultat.txt").write_bytes(JOURNAL)

    def play(self, **failing):
        environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.home), "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
            "XDG_CACHE_HOME": str(self.home / "cache"), "XDG_RUNTIME_DIR": str(self.folder),
            "STOIKAL_APPDATA_DIR": str(self.home / "app"), "STOIKAL_DOCUMENTS_DIR": str(self.home / "documents"),
            "STOIKAL_USER": "dupont", "LD_PRELOAD": ":".join(map(str, LIBRARIES)),
            "ASAN_OPTIONS": "detect_leaks=0:verify_asan_link_order=0", "STOIKAL_VISIT_LOG": str(self.log),
            "STOIKAL_VISIT_FILE": str(self.played), "STOIKAL_VISIT_APPEND": str(self.appended),
            "STOIKAL_FAIL_BELOW": ":".join(str(self.home / name) for name in ("app", "documents", "eleve", "cache/stoikal"))
            + f":{BUILD / 'exercises'}:{BUILD / 'tips'}",
            "STOIKAL_FAIL_LOG": str(self.calls),
        }
        environment.update({"STOIKAL_" + name: str(value) for name, value in failing.items()})
        try:
            done = subprocess.run([str(BUILD / "stoikal")], env=environment, capture_output=True, timeout=PATIENCE, check=False)
            self.code = done.returncode
            self.said = re.sub(r"This plugin does not support \w+\(\)\n", "", done.stderr.decode(errors="replace"))
        finally:
            self.lines = self.log.read_text(errors="replace").splitlines() if self.log.exists() else []
            self.failed = self.calls.read_text(errors="replace").splitlines() if self.calls.exists() else []

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    # What the visit told

    def was_told(self, *words):
        return any(line.startswith("box ") and word in line for line in self.lines for word in words)

    def has(self, line):
        return line in self.lines

    # What stands there afterwards

    @staticmethod
    def bytes_of(path):
        return path.read_bytes() if path.exists() else None

    def expect(self, what, truth):
        if not truth:
            raise Fault(what)

    def check(self):
        self.check_end()
        self.check_seeds()
        self.check_settings()
        self.check_journal()
        self.check_scores()
        self.check_equations()
        self.check_tips()
        self.check_words()

    def check_words(self):
        """What was begun was done, or a box said something."""
        if self.code == 1:
            return
        for entry, success in (("Mnu_Open(0)", "done note"), ("Mnu_Pref", "done preference"),
                               ("Mnu_Password", "done password"), ("Mnu_Create", "vient d'être créé"),
                               ("Mnu_Balance", "vient d'être copiée"), ("Mnu_MoreTip", "done tip")):
            begin = self.lines.index("step " + entry) + 1
            steps = [number for number in range(begin, len(self.lines)) if self.lines[number].startswith("step ")]
            words = self.lines[begin:steps[0]]
            self.expect(f"no word of {entry}, which was not done", any(success in line or line.startswith("box ")
                                                                       for line in words))

    def check_end(self):
        self.expect("a sanitizer: " + self.said[-1500:], "Sanitizer" not in self.said and "runtime error" not in self.said)
        last = self.lines[-1] if self.lines else ""
        if self.code == 1:
            self.expect("ended without the box of a fault: " + last, last.startswith("box Stoikal|Erreur d'exécution"))
        else:
            self.expect(f"ended with {self.code} after {last!r}: {self.said[-500:]}", self.code == 0)
            self.expect("ended before the visit was over", "step Mnu_End" in self.lines)
        for line in self.lines:
            self.expect(line, not line.startswith(("stuck", "unknown", "gave up", "not reached")))
        self.expect("the valid password was refused", not self.was_told("Ceci n'est pas le mot de passe")
                    or self.was_told(PASSWORD_NOT_SURE))

    def check_seeds(self):
        if not self.equations.exists():
            return self.expect("no folder of equations, and no word", self.code == 1)
        for folder in ("exercises", "tips"):
            for path in (BUILD / folder).iterdir():
                there = self.bytes_of(self.equations / path.name)
                is_whole = there == path.read_bytes() or (folder == "tips" and there == path.read_bytes() + TIP)
                self.expect(f"{path.name} is not whole", is_whole)

    def check_settings(self):
        bytes_there = self.bytes_of(self.settings)
        if bytes_there is None:
            text = ""
            self.expect("the settings are gone", self.is_first)
        else:
            text = bytes_there.decode("cp1252")
            self.expect("the settings are torn", all(re.fullmatch(r"(\[.+\]|[^=]+=.*|)\r\n", line) for line in
                                                     text.splitlines(keepends=True)))
        if not self.is_first:
            self.expect("old settings are lost", "texte=ancien\r\n" in text)
        self.expect("a password that was told to be stored is not there",
                    not self.has("done password") or "PassWord=clef\r\n" in text)
        self.expect("a preference that was told to be stored is not there",
                    not self.has("done preference") or "Show info-bulles at Startup=0\r\n" in text)
        words = [line for line in self.lines if "passe n'a pas été enregistré" in line or PASSWORD_NOT_SURE in line]
        self.expect("an old password that was told to be valid is not", not words or self.has("done password")
                    or PASSWORD_NOT_SURE in words[-1] or "PassWord=clef" not in text)
        self.expect("no word of a password that is not stored", self.code == 1 or self.has("done password")
                    or words or self.was_told("qui contient le mot de passe"))
        self.expect("no word of a preference that is not stored", self.code == 1 or self.has("done preference")
                    or self.was_told("Votre préférence n'a pas été enregistrée"))

    def check_journal(self):
        there = self.bytes_of(self.equations / "Resultat.txt") or b""
        old = b"" if self.is_first else JOURNAL
        self.expect("old results are lost", there.startswith(old))
        if not self.has("done note") or self.was_told(*JOURNAL_TOLD):
            return
        new = there[len(old):].decode("cp1252")
        self.expect(f"results are lost without a word: {new!r}",
                    new.count("CORRECT - Score") == 2 and new.count("Note : 20") == 1 and new.count("DUPONT") == 1)
        self.expect(f"a torn line of results: {new[-100:]!r}", new.endswith("\r\n"))

    def check_scores(self):
        there = (self.bytes_of(self.equations / "HighScore.txt") or b"").decode("cp1252")
        if not self.is_first:
            for line in SCORES.decode("cp1252").splitlines(keepends=True):
                self.expect("old records are lost", line in there)
        self.expect(f"torn records: {there!r}", re.fullmatch(r"(#[^\r\n]+\r\n|[^©\r\n]+©[0-9.,]+©[0-9.,]+\r\n)*", there))
        is_told = self.was_told("Erreur sur le chemin d'accés des fichiers")
        if self.has("done note") and not is_told:
            self.expect(f"a record is lost without a word: {there!r}", "DUPONT©20" in there)

    def check_equations(self):
        written = self.bytes_of(self.equations / "Nouveau.Equ")
        self.expect(f"the new file is torn: {written}", written in (None, WRITTEN))
        self.expect("the new file is not there", written or not self.was_told("vient d'être créé"))
        appended = self.bytes_of(self.appended)
        self.expect(f"the file that was added to is torn: {appended}", appended in (APPENDED_TO, APPENDED))
        self.expect("the balanced equation is not there", appended == APPENDED or not self.was_told("vient d'être copiée"))
        self.expect("the played file was changed", self.bytes_of(self.played) == PLAYED)

    def check_tips(self):
        there = self.bytes_of(self.equations / "TipOfDayEqChm.txt") or b""
        self.expect("the new tip is not there", not self.has("done tip") or there.endswith(TIP))

    def litter(self):
        """What lies in folders that are not the program's waits there for the next writing."""
        return [str(path.relative_to(self.home)) for path in self.home.rglob("*")
                if LITTER.search(path.name) and path.parent != self.played.parent]

    def check_next_start(self):
        """A clean start takes the litter away and is not hindered by it."""
        left = self.litter()
        if not left and self.code == 0:
            return
        hour_ago = time.time() - 3600
        for path in self.home.rglob("*"):
            os.utime(path, (hour_ago, hour_ago), follow_symlinks=False)
        self.log.unlink()
        self.play(VISIT_SHORT=1)
        self.expect(f"the next start ends with {self.code}: {self.lines} {self.said[-500:]}", self.code == 0)
        self.expect(f"litter stays: {self.litter()}", not self.litter())


def count_calls(is_first):
    """How many calls can fail in a visit; without failures it goes well."""
    visit = Visit(is_first)
    try:
        visit.play(FAIL_AT=0)
        visit.check()
        for line in ("done note", "done preference", "done password", "done tip"):
            visit.expect(f"the visit lacks {line!r}: {visit.lines}", visit.has(line))
        visit.expect(f"the visit lacks files: {visit.lines}",
                     visit.was_told("vient d'être créé") and visit.was_told("vient d'être copiée"))
        visit.expect(f"litter without a failure: {visit.litter()}", not visit.litter())
        return len(visit.failed)
    finally:
        visit.remove()


def expect_update_of_two(always):
    """Two programs that change one file 50 times each, where the kernel's locks are not known."""
    with tempfile.TemporaryDirectory(prefix="stoikal-calls-") as folder:
        environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "LD_PRELOAD": str(LIBRARIES[0]),
                       "ASAN_OPTIONS": "detect_leaks=0:verify_asan_link_order=0", "STOIKAL_FAIL_ALWAYS": always}
        programs = [subprocess.Popen([str(WRITER), "many", "settings", folder, text], env=environment,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE) for text in ("premier ", "second ")]
        for program in programs:
            program.stdout.readline()
        said = [program.communicate(b"\n", timeout=PATIENCE)[0] for program in programs]
        text = (pathlib.Path(folder) / "settings.ini").read_bytes()
        missing = [word for word in ("premier", "second") for turn in range(50)
                   if f"New {word} {turn}={word} {turn}\r\n".encode() not in text]
        if missing or any(program.returncode for program in programs):
            raise Fault(f"two programs without {always}: {len(missing)} updates lost, {said}")
        left = [name for name in os.listdir(folder) if name != "settings.ini"]
        if left:
            raise Fault(f"two programs without {always} leave {left}")


def check_file_systems_without_locks():
    """Where the kernel knows no lock another kind stands in; where none works, a start
    says so once, and all is written nevertheless."""
    for always, is_protected in (("flock", True), ("flock,lockf", True), ("flock,lockf,claim", False)):
        if is_protected:
            expect_update_of_two(always)
        visit = Visit(False)
        try:
            visit.play(FAIL_ALWAYS=always)
            visit.check()
            warnings = sum("ne permet pas de réserver un fichier" in line for line in visit.lines)
            visit.expect(f"{warnings} warnings without {always}", warnings == (0 if is_protected else 1))
            visit.expect(f"litter without {always}: {visit.litter()}", not visit.litter())
            visit.expect(f"not all is written without {always}: {visit.lines}",
                         all(visit.has("done " + what) for what in ("note", "preference", "password", "tip")))
        except Fault as fault:
            raise Fault(f"without {always}: {fault}") from fault
        finally:
            visit.remove()


def play_one(job):
    is_first, failing = job
    title = ("first visit, " if is_first else "later visit, ") + " ".join(f"{name}={value}" for name, value in failing.items())
    visit = Visit(is_first)
    trouble = None
    try:
        visit.play(**failing)
        failed = list(visit.failed)
        visit.check()
        visit.check_next_start()
    except subprocess.TimeoutExpired:
        failed, trouble = list(visit.failed), "hangs"
    except Fault as fault:
        trouble = str(fault)
    visit.remove()
    kinds = [line.split()[1] for line in failed]
    if trouble:
        return f"FAIL  {title}: {trouble}\n      failed: {failed[:6]}\n      log: {visit.lines[-12:]}", kinds
    return None, kinds


def jobs_for(runs, seed):
    chance = random.Random(seed)
    counts = {is_first: count_calls(is_first) for is_first in (False, True)}
    # The visits that come later are the many; each call fails once before any fails twice.
    calls = [(False, number) for number in range(1, counts[False] + 1)]
    calls += [(True, number) for number in range(1, counts[True] + 1)]
    print(f"{counts[False]} calls in a visit, {counts[True]} in the first one", flush=True)
    in_turn = min(len(calls), (runs + 1) // 2) if runs < 2 * len(calls) else len(calls)
    step = len(calls) / in_turn
    shift = chance.random() * step
    for number in range(in_turn):
        is_first, at = calls[int(number * step + shift) % len(calls)]
        yield is_first, {"FAIL_AT": at, "FAIL_SEED": chance.randrange(1, 10_000)}
    for _ in range(runs - in_turn):
        yield chance.random() < 0.3, {"FAIL_ONE_IN": ONE_IN, "FAIL_SEED": chance.randrange(1, 1_000_000)}


def main():
    runs = int(sys.argv[1]) if len(sys.argv) > 1 else 200
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    began = time.monotonic()
    try:
        jobs = list(jobs_for(runs, seed))
        check_file_systems_without_locks()
    except Fault as fault:
        print(f"FAIL  before any call failed: {fault}")
        return 1
    failures, kinds = 0, collections.Counter()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as pool:
        for trouble, failed in pool.map(play_one, jobs):
            kinds.update(failed)
            if trouble:
                failures += 1
                print(trouble, flush=True)
    told = ", ".join(f"{count} {kind}" for kind, count in sorted(kinds.items()))
    print(f"{len(jobs)} runs with failing calls ({told}), {failures} failed ({time.monotonic() - began:.0f} s, seed {seed})")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
