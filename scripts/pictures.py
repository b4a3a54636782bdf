#!/usr/bin/env python3
"""Draws the pictures of the manual (data/help/manuel/images) and of the gallery
(docs/pictures) anew from the program's own windows: those that the pages name.
With --check nothing is written: the pictures that are no longer what the program
shows are listed. Needs the build "sanitized", convert and compare (imagemagick)."""

import argparse
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import typing

from check_pictures import DOCS, MANUAL, ROOT, names_in_docs, names_in_manual

BUILD = ROOT / "build" / "sanitized"
FONTS = """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir><dir>/usr/share/fonts/truetype/liberation</dir><cachedir>{cache}</cachedir>
  <alias><family>Arial</family><prefer><family>Liberation Sans</family></prefer></alias>
  <alias><family>sans-serif</family><prefer><family>DejaVu Sans</family></prefer></alias>
  <alias><family>monospace</family><prefer><family>DejaVu Sans Mono</family></prefer></alias>
  <match><edit name="family" mode="append_last"><string>DejaVu Sans</string></edit></match>
  <match target="font">
    <edit name="antialias"><bool>true</bool></edit><edit name="rgba"><const>none</const></edit>
    <edit name="hintstyle"><const>hintslight</const></edit>
  </match>
</fontconfig>
"""


class Pages(typing.NamedTuple):
    """Pages with pictures: where these lie, which the pages name, which of the two
    pictures of a window they show, and how it is made small."""

    pictures: pathlib.Path
    names: typing.Callable[[], set[str]]
    kind: str
    look: list[str]


# A thin line parts a picture without a frame from the page; few colours keep it small.
MANUAL_PAGES = Pages(MANUAL, names_in_manual, "plain", ["-bordercolor", "#C3CAD6", "-border", "1", "-dither", "None", "-colors", "64"])
DOCS_PAGES = Pages(DOCS, names_in_docs, "framed", ["-dither", "None", "-colors", "256"])
# A pixel is another one when it is off by so much; so many may be.
FUZZ = "8%"
PIXELS = 20


def draw(folder: pathlib.Path) -> None:
    """Lets the program draw all its windows into folders below this one."""
    (folder / "fonts.conf").write_text(FONTS.format(cache=folder / "cache"), encoding="utf-8")
    for kind in ("plain", "framed"):
        (folder / kind).mkdir()
    environment = dict(
        os.environ,
        ASAN_OPTIONS="detect_leaks=0",
        FONTCONFIG_FILE=str(folder / "fonts.conf"),
        LC_ALL="C.UTF-8",
        QT_QPA_PLATFORM="offscreen",
        QT_SCALE_FACTOR="1",
        STOIKAL_PICTURES=str(folder),
        TZ="UTC",
    )
    drawn = subprocess.run([BUILD / "tests" / "pictures" / "pictures"], env=environment, capture_output=True, text=True)
    if drawn.returncode != 0:
        sys.exit(drawn.stdout + drawn.stderr + "The windows could not be drawn.")


def prepared(source: pathlib.Path, target: pathlib.Path, look: list[str]) -> None:
    kept_out = ["-strip", "-define", "png:exclude-chunks=date,time", "-define", "png:compression-level=9"]
    subprocess.run(["convert", source, *look, *kept_out, f"PNG8:{target}"], check=True)


def differs(kept: pathlib.Path, fresh: pathlib.Path) -> str:
    """Why the kept picture is stale; empty when it is not."""
    if not kept.exists():
        return "is missing"
    run = subprocess.run(["compare", "-metric", "AE", "-fuzz", FUZZ, kept, fresh, "null:"], capture_output=True, text=True)
    if run.returncode > 1:
        return "has another size"
    count = int(float(run.stderr.split()[0]))
    return f"differs in {count} pixels" if count > PIXELS else ""


def build() -> None:
    targets = ["pictures", "program_files", "help_files"]
    subprocess.run(["cmake", "--build", BUILD, "--target", *targets], check=True, stdout=subprocess.DEVNULL)


def stale_pictures(folder: pathlib.Path, pages: Pages) -> dict[pathlib.Path, tuple[pathlib.Path, str]]:
    """Of the pictures that these pages name, those that are not what was drawn into
    the folder: where each is kept, the fresh one, and why."""
    stale = {}
    for picture in sorted(pages.names()):
        drawn, kept, fresh = folder / pages.kind / picture, pages.pictures / picture, folder / picture
        if not drawn.exists():
            sys.exit(f"{picture} is named by a page, but the program draws no such picture.")
        prepared(drawn, fresh, pages.look)
        if reason := differs(kept, fresh):
            stale[kept] = (fresh, reason)
    return stale


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="write nothing, list the stale pictures")
    only_check = parser.parse_args().check
    stale = {}
    # The manual first: the gallery shows a page of it.
    for pages in (MANUAL_PAGES, DOCS_PAGES):
        build()
        with tempfile.TemporaryDirectory() as name:
            draw(pathlib.Path(name))
            found = stale_pictures(pathlib.Path(name), pages)
            for kept, (fresh, _) in found.items() if not only_check else ():
                shutil.copyfile(fresh, kept)
        stale |= found
    for kept, (_, reason) in stale.items():
        print(f"{kept.relative_to(ROOT)} {reason}" if only_check else f"{kept.relative_to(ROOT)}: {kept.stat().st_size} bytes")
    if not stale:
        print("all pictures show the program as it is")
    elif only_check:
        print("these pictures are stale: ./dev pictures")
    return bool(stale) if only_check else 0


if __name__ == "__main__":
    sys.exit(main())
