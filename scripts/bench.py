#!/usr/bin/env python3
"""All benchmarks in one run: each figure beside its peer or limit, as a ratio, on
the screen and in docs/performance.md. Machines are shared and noisy: only the
ratios of one run mean something."""

import datetime
import json
import math
import os
import pathlib
import statistics
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
BENCH = ROOT / "build" / "bench" / "bench"
PEERS = ROOT / "build" / "bench" / "peers"
sys.path.insert(0, str(ROOT / "tests" / "journeys"))

import npm_peers  # noqa: E402

COUNTERS = ("longest_ms",)
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
MS, US = 1e6, 1e3


def measured(program):
    """Median times of a benchmark program's parts in nanoseconds, its counters as
    "name:counter"."""
    said = subprocess.run(
        [BENCH / program, "--benchmark_format=json", "--benchmark_repetitions=7", "--benchmark_report_aggregates_only=true"],
        capture_output=True, text=True, check=True, env=dict(os.environ, QT_QPA_PLATFORM="offscreen")).stdout
    found = {}
    for row in json.loads(said)["benchmarks"]:
        if row.get("aggregate_name") != "median":
            continue
        name = row["run_name"].removesuffix("/real_time")
        # What works in this one thread is measured by its own time, which others on
        # the machine disturb less.
        clock = "real_time" if name != row["run_name"] else "cpu_time"
        found[name] = row[clock] * NANOSECONDS[row["time_unit"]]
        found |= {f"{name}:{key}": row[key] for key in COUNTERS if key in row}
    return found


def process_times(stage):
    """Medians of the whole life of both start programs in nanoseconds, run in turn."""
    times = {"start_stoikal": [], "start_bare": []}
    for _ in range(15):
        for name, found in times.items():
            began = time.perf_counter()
            process = subprocess.Popen([BENCH / name], env=stage.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            # A wait with a time limit would poll, 50 ms apart at the worst.
            guard = threading.Timer(20, process.kill)
            guard.start()
            code = process.wait()
            guard.cancel()
            if code != 0:
                raise RuntimeError(f"{name} ended with {code}")
            found.append((time.perf_counter() - began) * 1e9)
    return {name: statistics.median(found) for name, found in times.items()}


def shown(nanoseconds):
    """A time with three digits and its unit."""
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


class Table:
    """Rows of a figure, what it stands beside, the ratio and its limit."""

    def __init__(self):
        self.rows = []

    def at_most(self, what, value, peer_name, peer, limit):
        ratio = value / peer
        self._add(what, value, peer_name, peer, ratio, f"at most {limit:g}", ratio <= limit)

    def at_least(self, what, value, peer_name, peer, limit):
        """The peer takes so many times as long at least."""
        ratio = peer / value
        self._add(what, value, peer_name, peer, ratio, f"at least {limit:g}", ratio >= limit)

    def within(self, what, value, limit):
        """A time below a limit of its own."""
        self.at_most(what, value, "limit", limit, 1)

    def _add(self, what, value, peer_name, peer, ratio, rule, holds):
        self.rows.append((what, shown(value), f"{peer_name}: {shown(peer)}", f"{ratio:.2f}", rule, "holds" if holds else "OVER"))

    def print(self):
        widths = [max(len(line[i]) for line in self.rows) for i in range(6)]
        for line in self.rows:
            print("  ".join(text.ljust(width) for text, width in zip(line, widths)).rstrip())

    def markdown(self):
        head = "| What | Time | Beside | Ratio | Must be | |\n|---|---|---|---|---|---|\n"
        return head + "".join("| " + " | ".join(line) + " |\n" for line in self.rows)

    def all_hold(self):
        return all(line[5] == "holds" for line in self.rows)


def start_and_run(table):
    from stage import Stage
    with Stage() as stage:
        stage.env["STOIKAL_PROGRAM_DIR"] = str(ROOT / "build" / "bench")
        start = process_times(stage)
    table.at_most("exec to first paint", start["start_stoikal"], "bare window", start["start_bare"], 1.5)
    digit = measured("digit_bench")
    table.at_least("one digit, 500 discs", digit["OneDigit"], "each disc painted", digit["PaintEachDisc"], 4)
    table.at_most("one digit, 500 discs", digit["OneDigit"], "bare copying", digit["CopyBarePictures"], 3)
    files = measured("files_bench")
    table.at_most("first pass, 100,000 lines", files["FirstPassOverFile"], "wc -l (process)", files["WcAsProcess"], 5)
    table.at_most("first pass, 100,000 lines", files["FirstPassOverFile"], "memchr in process", files["CountLineEnds"], 5)
    table.within("one setting read", files["ReadASetting"], 10 * US)


def balancing_and_search(table):
    """Returns what the peers of the npm registry cannot take."""
    balancing = measured("balancing_bench")
    equations = ("C3H8 burnt", "Al(OH)3 and an acid", "a redox of 6 ions")
    for place, what in enumerate(equations):
        table.within(f"balanced directly: {what}", balancing[f"BalanceDirectly/{place}"], 5 * US)
        table.at_most(f"balanced directly: {what}", balancing[f"BalanceDirectly/{place}"], "bare, from formulas to line",
                      balancing[f"BalanceBare/{place}"], 10)
    search = measured("search_bench")
    table.within("coefficients sought, window shown", search["SearchInShownWindow"], 3 * MS)
    table.at_most("2,000 files searched", search["SearchFolder"], "grep -rF (process)", search["GrepFolder"], 3)
    table.within("2,000 files searched: longest freeze", search["SearchFolder:longest_ms"] * MS, 50 * MS)
    if not npm_peers.installed(PEERS):
        return ["the balancers of the npm registry could not be installed: not measured"]
    refusals = []
    slowest = max(balancing[f"BalanceDirectly/{place}"] for place in range(len(equations)))
    for package, (times, failures) in npm_peers.measured(ROOT / "bench" / "peers" / "one_balancing.mjs", PEERS).items():
        refusals += [f"{package} on `{equation}`: {why}" for equation, why in failures.items()]
        if times:
            table.at_least("slowest of the three above", slowest, f"{package}, its fastest", min(times.values()) * US, 30)
    return refusals


def windows(table):
    chemistry = measured("chemistry_bench")
    table.within("periodic table laid out and painted, 1920x1080", chemistry["PeriodicTableLaidOutAndPainted"], 16 * MS)
    table.within("molar mass of 40 characters", chemistry["MolarMassOfFortyCharacters"], 2 * US)
    charts = measured("charts_bench")
    table.within("histogram and curves, 1920x1080", charts["BothPictures"], 10 * MS)
    table.at_most("histogram and curves, 1920x1080", charts["BothPictures"], "the same primitives, bare", charts["BarePainter"], 2)
    table.within("one step of the slider, painted", charts["OneSliderStep"], 16 * MS)
    editor = measured("editor_bench")
    for name, what in (("EditorMoves", "move"), ("EditorInsertsAtTheFront", "insertion at the front"), ("EditorDeletesTheFirst", "deletion of the first")):
        table.within(f"editor, 500 equations: {what}", max(editor[f"{name}/0"], editor[f"{name}/1"]), 50 * MS)


def particles(table):
    """Returns the growth of both ways by number of discs."""
    engine = measured("particles_bench")
    table.at_least("a tick of 1,000 discs", engine["EngineTick/1000"], "all pairs", engine["AllPairs/1000"], 8)
    drawing = measured("simulation_draw_bench")
    table.within("a tick of 1,000 discs, drawn", drawing["TickWithDrawing"], 20 * MS)
    table.at_most("a tick of 1,000 discs, drawn", drawing["TickWithDrawing"], "bare copying", drawing["CopyBarePictures"], 2)
    growth = {}
    for name in ("EngineTick", "AllPairs"):
        growth[name] = {int(key.split("/")[1]): value for key, value in engine.items() if key.startswith(name + "/") and key.split("/")[1].isdigit()}
    return growth


def growth_plot(growth):
    """An SVG of the time of a tick over the number of discs, both scales logarithmic."""
    width, height, left, bottom = 640, 400, 80, 50
    lines = {"EngineTick": ("#0b6e4f", "grid of cells"), "AllPairs": ("#b23a48", "all pairs")}

    def x(discs):
        return left + (math.log10(discs) - 2) / 2 * (width - left - 90)

    def y(nanoseconds):
        return height - bottom - (math.log10(nanoseconds) - 3) / 5 * (height - bottom - 20)

    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" font-family="sans-serif" font-size="12">',
             f'<rect width="{width}" height="{height}" fill="white"/>']
    for discs in (100, 1000, 10000):
        parts.append(f'<line x1="{x(discs):.0f}" y1="20" x2="{x(discs):.0f}" y2="{height - bottom}" stroke="#ddd"/>'
                     f'<text x="{x(discs):.0f}" y="{height - bottom + 18}" text-anchor="middle">{discs}</text>')
    for power in range(3, 9):
        parts.append(f'<line x1="{left}" y1="{y(10 ** power):.0f}" x2="{width - 90}" y2="{y(10 ** power):.0f}" stroke="#ddd"/>'
                     f'<text x="{left - 8}" y="{y(10 ** power) + 4:.0f}" text-anchor="end">{shown(10 ** power)}</text>')
    for name, (colour, label) in lines.items():
        points = sorted(growth[name].items())
        road = " ".join(f"{x(discs):.1f},{y(value):.1f}" for discs, value in points)
        parts.append(f'<polyline points="{road}" fill="none" stroke="{colour}" stroke-width="2"/>')
        parts += [f'<circle cx="{x(discs):.1f}" cy="{y(value):.1f}" r="4" fill="{colour}"/>' for discs, value in points]
        discs, value = points[-1]
        parts.append(f'<text x="{x(discs) + 8:.0f}" y="{y(value) + 4:.0f}" fill="{colour}">{label}</text>')
    parts.append(f'<text x="{(left + width - 90) / 2:.0f}" y="{height - 10}" text-anchor="middle">discs</text></svg>')
    return "\n".join(parts) + "\n"


def main():
    table = Table()
    start_and_run(table)
    refusals = balancing_and_search(table)
    windows(table)
    growth = particles(table)
    table.print()
    for line in refusals:
        print(line)
    (ROOT / "docs" / "pictures" / "growth.svg").write_text(growth_plot(growth), encoding="utf-8")
    (ROOT / "docs" / "performance.md").write_text(
        "# Figures\n\n"
        f"Measured on {datetime.date.today().isoformat()} with {os.cpu_count()} processors. `./dev bench` measures all of it again and writes this page.\n"
        "Each time is the median of seven and stands beside a peer or a limit; only the ratio within one run means something.\n\n"
        + table.markdown()
        + "\n## What the balancers of the npm registry cannot take\n\n"
        + "".join(f"- {line}\n" for line in refusals)
        + "\n## A tick of the particles over their number\n\n![Time of a tick over the number of discs](pictures/growth.svg)\n",
        encoding="utf-8")
    return 0 if table.all_hold() else 1


if __name__ == "__main__":
    sys.exit(main())
