#!/usr/bin/env python3
"""Prints what the tests reach of src/, a folder a line, from gcovr's summary.

The windows of a folder stand on a line of their own. All else is logic, and fails
below the limit.
"""
import collections
import json
import pathlib
import sys

LIMIT_PERCENT = 95


class Count:
    def __init__(self) -> None:
        self.reached = 0
        self.lines = 0

    def add(self, reached: int, lines: int) -> None:
        self.reached += reached
        self.lines += lines

    def passes(self) -> bool:
        return self.lines > 0 and self.reached * 100 >= self.lines * LIMIT_PERCENT

    def row(self, name: str) -> str:
        # Cut, not rounded: 94.99 must not read as 95.0.
        tenths = self.reached * 1000 // self.lines if self.lines else 0
        return f"{name:<26} {self.reached:>6} of {self.lines:>6} lines  {tenths // 10:>3}.{tenths % 10} %"


def main() -> int:
    files = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))["files"]
    folders: dict[str, Count] = collections.defaultdict(Count)
    logic, windows = Count(), Count()
    low = []
    for file in files:
        parts = pathlib.PurePosixPath(file["filename"]).parts
        is_window = "windows" in parts
        name = parts[1] + ("/windows" if is_window else "")
        reached, lines = file["line_covered"], file["line_total"]
        folders[name].add(reached, lines)
        (windows if is_window else logic).add(reached, lines)
        if not is_window and reached * 100 < lines * LIMIT_PERCENT:
            low.append(f"  {file['filename']}: {reached} of {lines}")
    for name in sorted(folders):
        is_low = "windows" not in name and not folders[name].passes()
        print(folders[name].row(name) + ("  low" if is_low else ""))
    print()
    print(windows.row("windows, all"))
    print(logic.row("logic, all"))
    if low:
        print(f"Logic files below {LIMIT_PERCENT} % (the lines missed: build/coverage/report.txt):")
        print("\n".join(low))
    if not logic.passes():
        print(f"FAIL: the tests reach less than {LIMIT_PERCENT} % of the lines of the logic.")
        return 1
    print(f"OK: the tests reach at least {LIMIT_PERCENT} % of the lines of the logic.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
