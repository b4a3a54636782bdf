#!/usr/bin/env python3
"""A visit: the real program on an X server of its own, driven by real keys and
clicks through a whole run of a shipped file. Leaves numbered pictures, the
journal and the high scores in a folder (build/visit, or the one given)."""

import pathlib
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "journeys"))

from stage import Stage, coefficients_of, equations_of  # noqa: E402


def main():
    target = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "build" / "visit"
    size = sys.argv[2] if len(sys.argv) > 2 else "1024x768"
    shutil.rmtree(target, ignore_errors=True)
    with Stage(size=size, pictures=target) as stage:
        stage.start()
        file = stage.folder / "Serie.Equ"
        stage.open_file(file)
        for number, line in enumerate(equations_of(file), 1):
            right = coefficients_of(line)
            if number == 3:
                stage.answer(number, ["7"] + ["1"] * (len(right) - 1))
                stage.picture("wrong")
            stage.answer(number, right, picture=f"equation_{number}")
            if number == 1:
                stage.picture("right")
        stage.window("Stoikal")
        stage.picture("mark")
        # The box of the ten best stands behind the three buttons.
        stage.key("Tab", "Tab", "Tab", "space")
        stage.picture("ten_best")
        journal = stage.text("Resultat.txt")
        for name in ("Resultat.txt", "HighScore.txt"):
            shutil.copy(stage.folder / name, target / name)
        stage.key("shift+Tab", "space")
        code = stage.wait_end()
    mark = [line for line in journal.splitlines() if "Note :" in line]
    print(f"The visit went through {number} equations; the program ended with code {code}.")
    print(f"Mark in the journal:{mark[-1]}")
    print(f"Pictures, journal and high scores: {target}")
    return code


if __name__ == "__main__":
    sys.exit(main())
