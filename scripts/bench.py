#!/usr/bin/env python3
"""All benchmarks in one run: each figure beside its peer or limit, as a ratio.
Machines are shared and noisy: only the ratios of one run mean something."""

import json
import os
import pathlib
import statistics
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
BENCH = ROOT / "build" / "bench" / "bench"
sys.path.insert(0, str(ROOT / "tests" / "journeys"))

import npm_peers  # noqa: E402

COUNTERS = ("longest_ms",)


def measured(program):
    """Median times of a benchmark program's parts, in their own unit."""
    said = subprocess.run(
        [BENCH / program, "--benchmark_format=json", "--benchmark_repetitions=7", "--benchmark_report_aggregates_only=true"],
        capture_output=True, text=True, check=True).stdout
    rows = [row for row in json.loads(said)["benchmarks"] if row.get("aggregate_name") == "median"]
    return {
        row["run_name"].removesuffix("/real_time"): (row["real_time"], row["time_unit"])
        for row in rows
    } | {f"{row['run_name'].removesuffix('/real_time')}:{key}": (row[key], "") for row in rows for key in COUNTERS if key in row}


def process_times(stage):
    """Medians of the whole life of both start programs, run in turn."""
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
            found.append((time.perf_counter() - began) * 1000)
    return {name: statistics.median(found) for name, found in times.items()}


def main():
    rows = []

    def row(what, value, unit, peer_name, peer, limit, at_least=False):
        ratio = peer / value if at_least else value / peer
        holds = ratio >= limit if at_least else ratio <= limit
        rows.append((what, f"{value:.3g} {unit}", f"{peer_name}: {peer:.3g} {unit}", f"{ratio:.2f}",
                     f"{'at least' if at_least else 'at most'} {limit:g}", "holds" if holds else "OVER"))

    from stage import Stage
    with Stage() as stage:
        stage.env["STOIKAL_PROGRAM_DIR"] = str(ROOT / "build" / "bench")
        start = process_times(stage)
    row("exec to first paint", start["start_stoikal"], "ms", "bare window", start["start_bare"], 1.5)

    digit = measured("digit_bench")
    unit = digit["OneDigit"][1]
    row("one digit, 500 discs", digit["OneDigit"][0], unit, "each disc painted", digit["PaintEachDisc"][0], 4, at_least=True)
    row("one digit, 500 discs", digit["OneDigit"][0], unit, "bare copying", digit["CopyBarePictures"][0], 3)

    files = measured("files_bench")
    row("first pass, 100,000 lines", files["FirstPassOverFile"][0], "ms", "wc -l (process)", files["WcAsProcess"][0], 5)
    row("first pass, 100,000 lines", files["FirstPassOverFile"][0], "ms", "memchr in process", files["CountLineEnds"][0], 5)
    balancing = measured("balancing_bench")
    for place, what in enumerate(("C3H8 burnt", "Al(OH)3 and an acid", "a redox of 6 ions")):
        row(f"balanced directly: {what}", balancing[f"BalanceDirectly/{place}"][0], "ns", "limit", 5000, 1)
        row(f"balanced directly: {what}", balancing[f"BalanceDirectly/{place}"][0], "ns", "bare, from formulas to line",
            balancing[f"BalanceBare/{place}"][0], 10)
    search = measured("search_bench")
    row("coefficients sought, window shown", search["SearchInShownWindow"][0], "ms", "limit", 3, 1)
    row("2,000 files searched", search["SearchFolder"][0], "ms", "grep -rF (process)", search["GrepFolder"][0], 3)
    row("  its longest freeze", search["SearchFolder:longest_ms"][0], "ms", "limit", 50, 1)
    refusals = []
    if npm_peers.installed(ROOT / "build" / "bench" / "peers"):
        slowest = max(balancing[f"BalanceDirectly/{place}"][0] for place in range(3)) / 1000
        for package, (times, failures) in npm_peers.measured(ROOT / "bench" / "peers" / "one_balancing.mjs", ROOT / "build" / "bench" / "peers").items():
            refusals += [f"{package} on {equation}: {why}" for equation, why in failures.items()]
            if times:
                row("slowest of the above", slowest, "us", f"{package}, its fastest", min(times.values()), 30, at_least=True)
    else:
        refusals.append("the balancers of the npm registry could not be installed: not measured")

    row("one setting read", files["ReadASetting"][0], "us", "100,000 a second", 10, 1)

    widths = [max(len(line[i]) for line in rows) for i in range(6)]
    for line in rows:
        print("  ".join(text.ljust(width) for text, width in zip(line, widths)).rstrip())
    for line in refusals:
        print(line)
    return 1 if any(line[5] == "OVER" for line in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
