#!/usr/bin/env python3
"""Draws docs/pictures/layers.svg from the targets of the build itself: who is
linked to whom, without what follows from another line. Needs graphviz."""

import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[1]
NOT_A_LAYER = {"stoikal_flags", "stoikal_watch", "logic_headers", "windows_headers"}


def edges_of(dot):
    names = dict(re.findall(r'"(node\d+)" \[ label = "([^"\\]+)', dot))
    ours = {key: name for key, name in names.items() if "::" not in name and "_resources_" not in name and name not in NOT_A_LAYER}
    return {(ours[a], ours[b]) for a, b in re.findall(r'"(node\d+)" -> "(node\d+)"', dot) if a in ours and b in ours}


def without_detours(edges):
    """Leaves out an edge when a longer way leads to the same place."""
    after = {}
    for a, b in edges:
        after.setdefault(a, set()).add(b)

    def reaches(a, b):
        return b in after.get(a, ()) or any(reaches(c, b) for c in after.get(a, ()))

    return {(a, b) for a, b in edges if not any(c != b and reaches(c, b) for c in after[a])}


def main():
    folder = ROOT / "build" / "layers"
    subprocess.run(["cmake", "--preset", "release", f"--graphviz={folder / 'all.dot'}"], cwd=ROOT, check=True, capture_output=True)
    edges = without_detours(edges_of((folder / "all.dot").read_text(encoding="utf-8")))
    names = sorted({name for edge in edges for name in edge})
    lines = ["digraph { rankdir=TB; bgcolor=white; nodesep=0.25; ranksep=0.45; splines=true;",
             'node [shape=box, style="rounded,filled", fontname="sans-serif", fontsize=11, color="#56657a"]; edge [color="#8a97a8", arrowsize=0.6];']
    for name in names:
        windows = name.endswith("_windows") or name in ("forms", "platform", "shell", "stoikal")
        lines.append(f'"{name}" [fillcolor="{"#e3ecfb" if windows else "#e6f4ea"}"];')
    lines += [f'"{a}" -> "{b}";' for a, b in sorted(edges)]
    picture = subprocess.run(["dot", "-Tsvg"], input="\n".join(lines) + "}\n", text=True, check=True, capture_output=True).stdout
    (ROOT / "docs" / "pictures" / "layers.svg").write_text(picture, encoding="utf-8")


if __name__ == "__main__":
    main()
