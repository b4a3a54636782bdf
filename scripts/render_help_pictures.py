#!/usr/bin/env python3
"""Draws the pictures of the manual anew, from the program's own windows, into
data/help/manuel/images. Needs the build "sanitized" and convert (imagemagick)."""
import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
BUILD = ROOT / "build" / "sanitized"
TARGET = ROOT / "data" / "help" / "manuel" / "images"


def main() -> int:
    subprocess.run(["cmake", "--build", BUILD, "--target", "help_pictures", "program_files"], check=True)
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", STOIKAL_PICTURES=folder, ASAN_OPTIONS="detect_leaks=0")
        drawn = subprocess.run([BUILD / "tests" / "shell" / "help_pictures"], env=environment)
        TARGET.mkdir(parents=True, exist_ok=True)
        for picture in sorted(pathlib.Path(folder).glob("*.png")):
            # A thin line parts the picture from the page; few colours keep it small.
            subprocess.run(
                ["convert", picture, "-bordercolor", "#C3CAD6", "-border", "1", "-dither", "None", "-colors", "64",
                 "-strip", "-define", "png:exclude-chunks=date,time", f"PNG8:{TARGET / picture.name}"],
                check=True,
            )
            print(picture.name, (TARGET / picture.name).stat().st_size)
    return drawn.returncode


if __name__ == "__main__":
    sys.exit(main())
