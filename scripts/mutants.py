#!/usr/bin/env python3
"""Plants one small fault at a time and looks whether a test fails.

The sources are not touched: all of it happens in build/mutants, a copy of the
project that is compiled without sanitizers. A fault is tried at the test programs
of its own folder first, then at all others into which it is linked.
"""
import argparse
import collections
import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from mutant_planting import Mutant, mutants_of

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build/mutants"
BUILD = COPY / "build/mutants"
VERDICTS = ROOT / "build/mutants-verdicts.json"
EQUIVALENT = ROOT / "tests/mutants/equivalent.txt"
LIMIT_PERCENT = 95
MEMORY_LIMIT = 4 << 30
CAUGHT, SURVIVES, REFUSED, EQUAL = "caught", "NOT CAUGHT", "does not compile", "changes nothing"


class Broken(Exception):
    """The run itself cannot go on: what is tried must pass without a fault."""


# -- what can be planted


def is_logic(path: pathlib.PurePath) -> bool:
    return "windows" not in path.parts and path.name != "main.cpp"


def sources(wanted: str | None) -> list[pathlib.Path]:
    """All logic of src/, or what a folder or a file holds."""
    if wanted is None:
        return [path for path in sorted((ROOT / "src").rglob("*.cpp")) if is_logic(path.relative_to(ROOT))]
    for place in (ROOT / wanted, ROOT / "src" / wanted):
        if place.is_file():
            return [place]
        if place.is_dir():
            # A folder is its logic; its windows are a folder of their own.
            return sorted([*place.glob("*.cpp"), *place.glob("*.h")])
    raise Broken(f"there is no {wanted} in src/")


def planted(paths: list[pathlib.Path], with_texts: bool, with_data: bool) -> list[Mutant]:
    found = []
    for path in paths:
        found += mutants_of(str(path.relative_to(ROOT)), path.read_text(encoding="utf-8"), with_texts)
    return [mutant for mutant in found if with_data or mutant.rule != "data"]


def equivalent_mutants(text: str) -> list[dict[str, str]]:
    """The faults known to change nothing: blocks of "file:", "was:", "then:" and "because:"."""
    blocks = []
    for block in text.split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        entry = dict(line.split(": ", 1) for line in lines)
        if set(entry) != {"file", "was", "then", "because"}:
            raise Broken(f"{EQUIVALENT}: a block needs file, was, then and because:\n{block}")
        blocks.append(entry)
    return blocks


def key_of(entry: dict[str, str]) -> tuple[str, str, str]:
    return entry["file"], entry["was"], entry["then"]


# -- the copy of the project


def bring_up_to_date() -> tuple[str, str]:
    """Makes the copy equal to the project; returns a mark of its sources and one of all."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT, capture_output=True, check=True)
    names = [name for name in listed.stdout.decode().split("\0") if name and (ROOT / name).is_file()]
    sources_mark, whole_mark = hashlib.sha1(), hashlib.sha1()
    for name in names:
        bytes_ = (ROOT / name).read_bytes()
        whole_mark.update(name.encode() + b"\0" + bytes_)
        if name.startswith("src/"):
            sources_mark.update(name.encode() + b"\0" + bytes_)
        target = COPY / name
        if not target.is_file() or target.read_bytes() != bytes_:
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, target)
    wanted = set(names)
    for folder in ("src", "tests", "cmake"):
        for old in [path for path in (COPY / folder).rglob("*") if path.is_file()]:
            if str(old.relative_to(COPY)) not in wanted:
                old.unlink()
    return sources_mark.hexdigest(), whole_mark.hexdigest()


def put(path: pathlib.Path, text: str) -> None:
    """What stands there already is not compiled anew."""
    if path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def build_environment() -> dict[str, str]:
    # What is compiled a second time, with the fault taken back, comes from the cache.
    return {**os.environ, "CCACHE_SLOPPINESS": "pch_defines,time_macros"}


def build(targets: list[str]) -> subprocess.CompletedProcess:
    return subprocess.run(["cmake", "--build", str(BUILD), "--target", *targets], cwd=COPY, env=build_environment(),
                          capture_output=True, text=True, errors="replace")


def configure() -> None:
    if (BUILD / "build.ninja").exists():
        return
    done = subprocess.run(["cmake", "--preset", "mutants"], cwd=COPY, env=build_environment(), capture_output=True, text=True)
    if done.returncode != 0:
        raise Broken(done.stdout + done.stderr)


# -- the test programs


class Box:
    """Where test programs run: what a fault deletes or fills is not the machine's."""

    FOLDER = COPY / "box"
    # All that is there can be read only, but for an empty folder in memory.
    WALL = """
        mount -t tmpfs -o size=1g,mode=1777 tmpfs "$TMPDIR"
        for place in $(findmnt -rno TARGET -t ext4,xfs,btrfs,overlay); do mount -o remount,bind,ro "$place"; done
        exec "$@"
    """

    def __init__(self) -> None:
        self.output = ""
        self.can_wall = os.geteuid() == 0 and subprocess.run(["unshare", "-m", "true"], capture_output=True).returncode == 0

    def run(self, program: pathlib.Path, seconds: float) -> bool:
        """Whether the program passes within the time."""
        shutil.rmtree(self.FOLDER, ignore_errors=True)
        self.FOLDER.mkdir(parents=True)
        command = [str(program), "--gtest_brief=1", "--gtest_fail_fast"]
        if self.can_wall:
            command = ["unshare", "-m", "bash", "-c", self.WALL, "bash", *command]
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8",
                       "TMPDIR": str(self.FOLDER), "HOME": str(self.FOLDER)}
        process = subprocess.Popen(command, cwd=BUILD, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True,
                                   preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT)))
        try:
            self.output = process.communicate(timeout=seconds)[0].decode(errors="replace")
            return process.returncode == 0 and "[  PASSED  ]" in self.output
        except subprocess.TimeoutExpired:
            self.output = "takes too long"
            return False
        finally:
            # With what it started: that may go on without it, or for ever.
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()


class Programs:
    """The test programs, what is linked into each, and how long each takes."""

    LEFT_OUT = {"monkey_test"}  # it looks for crashes, at random

    def __init__(self, box: Box) -> None:
        self.box = box
        self.libraries: dict[str, set[str]] = {}
        self.seconds: dict[str, float] = {}
        for line in (BUILD / "build.ninja").read_text(encoding="utf-8").splitlines():
            words = line.split()
            if len(words) > 2 and words[0] == "build" and words[2].startswith("CXX_EXECUTABLE_LINKER"):
                name = words[1].rstrip(":")
                if name.startswith("tests/") and name.endswith("_test") and pathlib.Path(name).name not in self.LEFT_OUT:
                    self.libraries[name] = {word for word in words if word.startswith("src/lib")}
        self.library_of = {}
        for command in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8")):
            path = pathlib.Path(command["file"])
            target = re.search(r" -o src/CMakeFiles/(\w+)\.dir/", command["command"])
            if target and path.is_relative_to(COPY / "src"):
                self.library_of[str(path.relative_to(COPY))] = f"src/lib{target[1]}.a"

    def of(self, path: str) -> list[str]:
        """Those into which a source goes: its own folder's first, then the quick ones."""
        folder = pathlib.PurePath(path).parts[1]
        if path.endswith(".h"):
            wanted = {library for source, library in self.library_of.items() if source.startswith(f"src/{folder}/")}
        else:
            wanted = {self.library_of[path]}
        programs = [name for name, libraries in self.libraries.items() if libraries & wanted]

        def order(name: str) -> tuple[bool, bool, float, str]:
            return (not name.startswith(f"tests/{folder}/"), not name.startswith(f"tests/{folder}_"),
                    self.seconds.get(name, 0), name)

        if not programs:
            raise Broken(f"no test program holds {path}")
        return sorted(programs, key=order)

    def measure(self, name: str) -> None:
        """Once without a fault: it must pass, and its time is the measure."""
        if (done := build([name])).returncode != 0:
            raise Broken(done.stdout[-3000:])
        began = time.monotonic()
        if not self.box.run(BUILD / name, 400):
            raise Broken(f"{name} fails without any fault:\n{self.box.output[-3000:]}")
        self.seconds[name] = time.monotonic() - began

    def passes(self, name: str) -> bool:
        return self.box.run(BUILD / name, 10 + 5 * self.seconds[name])


# -- the run


class Run:
    def __init__(self, programs: Programs, equal: set[tuple[str, str, str]]) -> None:
        self.programs = programs
        self.equal = equal

    def judge(self, mutant: Mutant) -> tuple[str, str]:
        """What becomes of a fault, and which program caught it."""
        if (mutant.path, mutant.was_line, mutant.then_line) in self.equal:
            return EQUAL, ""
        names = self.programs.of(mutant.path)
        path = COPY / mutant.path
        source = path.read_text(encoding="utf-8")
        try:
            for name in names:
                if name not in self.programs.seconds:
                    put(path, source)
                    self.programs.measure(name)
                put(path, mutant.planted(source))
                if build([name]).returncode != 0:
                    return REFUSED, ""
                if not self.programs.passes(name):
                    return CAUGHT, pathlib.PurePath(name).name
            return SURVIVES, ""
        finally:
            put(path, source)


def show(mutant: Mutant, verdict: str, by: str) -> None:
    told = f" ({by})" if by else ""
    print(f"{verdict:<16} {mutant.name}  {mutant.path}:{mutant.line}  {mutant.rule}{told}", flush=True)
    if verdict == SURVIVES:
        print(f"    was:  {mutant.was_line}\n    then: {mutant.then_line}", flush=True)


def closing(counts: collections.Counter) -> int:
    judged = counts[CAUGHT] + counts[SURVIVES]
    print(f"{counts[REFUSED]} do not compile, {counts[EQUAL]} are known to change nothing")
    # Cut, not rounded: 94.99 must not read as 95.0.
    tenths = counts[CAUGHT] * 1000 // judged if judged else 0
    print(f"{counts[CAUGHT]} of {judged} caught ({tenths // 10}.{tenths % 10} %)")
    return 0 if judged and counts[CAUGHT] * 100 >= LIMIT_PERCENT * judged else 1


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="./dev mutants", description=__doc__)
    parser.add_argument("folder", nargs="?", help="a folder of src/ (base, exercise/windows, ...) or a file: all of its faults")
    parser.add_argument("--sample", type=int, metavar="N", help="so many, drawn at random (60 where no folder is named)")
    parser.add_argument("--seed", type=int, default=1, help="of the drawing; the same sources and seed give the same faults")
    parser.add_argument("--only", metavar="NAME", nargs="+", help="these faults, by the names that a run prints")
    parser.add_argument("--texts", action="store_true", help="also change the texts that a user reads")
    parser.add_argument("--data", action="store_true", help="also change the numbers of tables")
    parser.add_argument("--minutes", type=float, help="begin no further fault after so long")
    parser.add_argument("--resume", action="store_true", help="what an earlier run caught in these sources is not tried again")
    parser.add_argument("--list", action="store_true", help="only name the faults")
    return parser.parse_args()


def chosen(options: argparse.Namespace) -> list[Mutant]:
    mutants = planted(sources(options.folder), options.texts, options.data)
    if options.only:
        return [mutant for mutant in mutants if mutant.name in options.only]
    if options.sample is not None or options.folder is None:
        random.Random(options.seed).shuffle(mutants)
    return mutants


def play(options: argparse.Namespace) -> int:
    mutants = chosen(options)
    wanted = options.sample or (60 if options.folder is None and not options.only else len(mutants))
    if options.list:
        for mutant in mutants[:wanted]:
            print(f"{mutant.name}  {mutant.path}:{mutant.line}  {mutant.rule}\n    was:  {mutant.was_line}\n    then: {mutant.then_line}")
        return 0
    sources_mark, whole_mark = bring_up_to_date()
    configure()
    box = Box()
    if not box.can_wall:
        print("The test programs run with your own rights: there is no wall about them here.")
    run = Run(Programs(box), {key_of(entry) for entry in equivalent_mutants(EQUIVALENT.read_text(encoding="utf-8"))})
    known = json.loads(VERDICTS.read_text(encoding="utf-8")) if options.resume and VERDICTS.exists() else {}
    if known.get("sources") != sources_mark:
        known = {"sources": sources_mark, "verdicts": {}}
    if known.get("whole") != whole_mark:
        known |= {"whole": whole_mark, "seconds": {}}
    verdicts, run.programs.seconds = known["verdicts"], known["seconds"]
    print(f"seed {options.seed}, {len(mutants)} faults to choose from", flush=True)
    counts, began, is_whole = collections.Counter(), time.monotonic(), True
    for mutant in mutants:
        if counts[CAUGHT] + counts[SURVIVES] >= wanted:
            break
        if verdicts.get(mutant.name, (SURVIVES, ""))[0] in (CAUGHT, REFUSED):
            verdict, by = verdicts[mutant.name]
        elif options.minutes and time.monotonic() - began > options.minutes * 60:
            is_whole = False
            break
        else:
            verdict, by = run.judge(mutant)
            verdicts[mutant.name] = (verdict, by)
            VERDICTS.write_text(json.dumps(known), encoding="utf-8")
        counts[verdict] += 1
        show(mutant, verdict, by)
    if not is_whole:
        print("The time is up: --resume goes on from here.")
    return closing(counts)


def main() -> int:
    try:
        return play(arguments())
    except Broken as fault:
        print(f"FAIL  {fault}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
