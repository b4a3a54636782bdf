#!/usr/bin/env python3
"""A whole person's road through the real program, each in a process, an X server
and a home of its own. A name as argument plays only that journey."""

import re
import signal
import sys
import time

from stage import JourneyError, Stage, coefficients_of, equations_of, wait_for


def expect(what, truth):
    if not truth:
        raise JourneyError(f"not so: {what}")


def small_file(stage, name, lines):
    stage.folder.mkdir(parents=True, exist_ok=True)
    path = stage.folder / name
    path.write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))
    return path


def whole_run(stage):
    """A pupil plays Serie.Equ to its end, once wrong, and finds his mark in the
    journal and in the table of the ten best."""
    stage.start()
    file = stage.folder / "Serie.Equ"
    stage.open_file(file)
    lines = equations_of(file)
    for number, line in enumerate(lines, 1):
        right = coefficients_of(line)
        if number == 2:
            stage.answer(number, ["9"] + ["1"] * (len(right) - 1))
        stage.answer(number, right)
    stage.window("Stoikal")
    # 10 equations of 5 points, 2 lost: 48 of 50, that is 19.2 out of 20.
    journal = wait_for("the mark", lambda: "Note : 19.20/20" in stage.text("Resultat.txt") and stage.text("Resultat.txt"))
    expect("one wrong answer in the journal", journal.count(" : FAUX - Score : 3\r\n") == 1)
    expect("each equation answered right", journal.count(" : CORRECT - Score : ") == len(lines))
    scores = wait_for("the high scores", lambda: (stage.folder / "HighScore.txt").exists() and stage.text("HighScore.txt"))
    expect("the pupil's record", re.search(r"^#Serie\.Equ\r\nDUPONT©19\.2©\d+(\.\d+)?\r\n$", scores))
    stage.key("Tab", "Tab", "space")
    expect("the end without a fault", stage.wait_end() == 0)


def solution_shown(stage):
    """The first answer is wrong at a score of 0: the solution is shown, the next
    validation moves on without points. All by keyboard."""
    stage.start()
    file = small_file(stage, "Deux.Equ", ["'Deux équations", "N2+H2=NH3/1,3,2", "C+O2=CO2/1,1,1"])
    stage.open_file(file)
    stage.window("Equation n°1")
    stage.type("2")
    stage.key("Tab", "Tab", "Tab", "space")
    time.sleep(1.8)
    window = stage.window("Equation n°1")
    stage.click(window, stage.width(window) // 2, 68)
    stage.answer(2, ["1", "1", "1"])
    stage.window("Stoikal")
    journal = wait_for("the mark", lambda: "Note :" in stage.text("Resultat.txt") and stage.text("Resultat.txt"))
    expect("the wrong answer, then the solution", "2 N2 +  H2 --->  NH3 : FAUX - Score : 0\r\n" in journal
           and "1 N2 + 3 H2 ---> 2 NH3 : CORRECT - Score : 0\r\n" in journal)
    expect("5 points of 10", "Note : 10.00/20" in journal)
    stage.key("Tab", "Tab", "space")
    expect("the end without a fault", stage.wait_end() == 0)


def damaged_line(stage):
    """A line that cannot be read ends the program with a box that names it; what
    was earned before stands in the journal."""
    stage.start()
    file = small_file(stage, "Abime.Equ", ["C+O2=CO2/1,1,1", "pas une équation"])
    stage.open_file(file)
    stage.answer(1, ["1", "1", "1"])
    stage.window("Stoikal")
    stage.picture("fault")
    stage.key("Return")
    expect("exit code 1", stage.wait_end() == 1)
    journal = stage.text("Resultat.txt")
    expect("the answer before the fault", "1 C + 1 O2 ---> 1 CO2 : CORRECT - Score : 5\r\n" in journal)
    expect("no mark", "Note :" not in journal)


def killed_in_a_run(stage):
    """A program that is killed in the middle of a run leaves every answer given."""
    stage.start()
    file = small_file(stage, "Deux.Equ", ["C+O2=CO2/1,1,1", "N2+H2=NH3/1,3,2"])
    stage.open_file(file)
    stage.answer(1, ["1", "1", "1"])
    stage.window("Equation n°2")
    stage.program.send_signal(signal.SIGKILL)
    stage.wait_end()
    expect("the answer given", "1 C + 1 O2 ---> 1 CO2 : CORRECT - Score : 5\r\n" in stage.text("Resultat.txt"))


def network_class(stage):
    """From a network folder the results go to the deposit folder, asked for once."""
    share = stage.home / "share"
    (share / "Dépôt").mkdir(parents=True)
    stage.env["STOIKAL_NETWORK_ROOT"] = str(share)
    stage.start_only()
    stage.window("Stoikal - R")
    stage.picture("deposit")
    stage.key("Tab", "space")
    stage.window("Stoikal v")
    wait_for("the journal", lambda: list((share / "Dépôt").glob("EQU_dupont_*.txt")))
    expect("the common password's file", (share / "Dépôt" / "MotDePasse.txt").read_bytes() == b"")
    time.sleep(1.8)
    stage.window("Stoikal v")
    stage.key("alt+f", "q")
    expect("the end without a fault", stage.wait_end() == 0)


JOURNEYS = [whole_run, solution_shown, damaged_line, killed_in_a_run, network_class]


def main():
    wanted = sys.argv[1:]
    failed = 0
    for journey in JOURNEYS:
        if wanted and journey.__name__ not in wanted:
            continue
        began = time.monotonic()
        try:
            with Stage() as stage:
                journey(stage)
            print(f"OK    {journey.__name__} ({time.monotonic() - began:.1f} s)", flush=True)
        except JourneyError as error:
            failed += 1
            print(f"FAIL  {journey.__name__}: {error}", flush=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
