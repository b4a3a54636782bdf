#!/usr/bin/env python3
"""A whole person's road through the real program, each in a process, an X server
and a home of its own. A name as argument plays only that journey."""

import concurrent.futures
import re
import signal
import sys
import threading
import time

from stage import JourneyError, Stage, coefficients_of, equations_of, pause, run, wait_for


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
    pause(1.8)
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


def clicks_while_busy(stage):
    """Two clicks that a busy program finds waiting at the end of a file end it once."""
    stage.start()
    file = small_file(stage, "Une.Equ", ["H2+O2=H2O/2,1,2"])
    stage.open_file(file)
    stage.answer(1, ["9", "1", "1"])
    pause(1.8)
    stage.window("Equation n°1")
    stage.program.send_signal(signal.SIGSTOP)
    # The pointer still stands on the button.
    run("xdotool", "click", "--repeat", 2, "--delay", 100, 1, env=stage.env)
    stage.program.send_signal(signal.SIGCONT)
    stage.window("Stoikal", "$")
    wait_for("the mark", lambda: "Note :" in stage.text("Resultat.txt"))
    stage.picture("mark")
    stage.key("Tab", "space")
    stage.gone("Stoikal$")
    stage.window("Stoikal v")
    stage.key("alt+f", "q")
    expect("the end without a fault", stage.wait_end() == 0)
    journal = stage.text("Resultat.txt")
    expect("one mark, of 0 points", re.findall(r"Note : (.+?)/20", journal) == ["00.00"])
    expect("no answer after the solution", journal.count("N°1") == 2)
    expect("one record", re.fullmatch(r"#Une\.Equ\r\nDUPONT©0©\d+(\.\d+)?\r\n", stage.text("HighScore.txt")))


def pupil_by_keyboard(stage):
    """A pupil's run without the mouse: Enter presses the buttons, and each window has
    the keyboard when it comes. He types a wrong key, answers once wrong, looks at the
    best scores and returns home."""
    stage.start_only(tip=True)
    stage.in_front("Astuce du jour")
    stage.key("Return")
    stage.in_front("Stoikal v")
    file = small_file(stage, "Deux.Equ", ["H2+O2=H2O/2,1,2", "N2+H2=NH3/1,3,2"])
    stage.key("alt+f", "o")
    stage.in_front("Qui êtes-vous")
    stage.fill(["DUPONT", "Paul", "3B"])
    stage.key("Return", "Tab", "KP_Enter")
    stage.in_front("Ouvrir un fichier")
    stage.type(str(file))
    stage.key("Return")

    stage.in_front("Equation n°1")
    stage.fill(["2", "1", "2"])
    stage.key("Return", "Tab", "Return")
    stage.in_front("Equation n°2")
    stage.flash_over()
    # The atoms go and come again, larger, the stopwatch comes; he goes on typing.
    for keys in (["v"], ["v"], ["Down", "Right", "Down", "Down", "Return"], ["Up", "Up", "Up", "Up", "Return"]):
        stage.window("Stoikal v")
        stage.key("alt+i", *keys)
        stage.in_front("Equation n°2")
    stage.shown("Chronomètre")
    # Nothing of the equation before comes back.
    stage.key("ctrl+z")
    stage.type("1")
    stage.type("a")
    stage.in_front("Erreur sur saisie.")
    stage.key("Return")
    stage.in_front("Equation n°2")
    stage.type("2")
    stage.key("Tab", "Tab", "Tab", "KP_Enter")
    wait_for("the wrong answer", lambda: "12 N2 +  H2 --->  NH3 : FAUX - Score : 3\r\n" in stage.text("Resultat.txt"))
    stage.flash_over()
    stage.fill(["1", "3", "2"])
    stage.key("Tab", "Return")

    stage.in_front("Stoikal", end=True)
    # 2 equations of 5 points, 2 lost: 8 of 10, that is 16 out of 20.
    wait_for("the mark", lambda: "Note : 16.00/20" in stage.text("Resultat.txt"))
    note = stage.window("Stoikal", "$")
    height = stage.geometry(note)[3]
    stage.key("shift+Tab", "space")
    wait_for("the best scores", lambda: stage.geometry(note)[3] > height)
    stage.key("Tab", "Tab", "KP_Enter")
    stage.in_front("Stoikal v")
    # Who he is, is known.
    stage.key("alt+f", "o")
    stage.in_front("Ouvrir un fichier")
    stage.key("Escape")
    stage.in_front("Stoikal v")
    stage.key("alt+f", "q")
    expect("the end without a fault", stage.wait_end() == 0)


def show_teacher(stage, *keys):
    """A protected entry, with the password and Enter."""
    stage.in_front("Stoikal v")
    stage.key(*keys)
    stage.in_front("Mot de passe")
    stage.type("sesame")
    stage.key("Tab", "KP_Enter")


def teacher_by_keyboard(stage):
    """A teacher's evening without the mouse: he sets the password, writes a file with
    the coefficients of the engine, looks at its preview, gathers equations, reads the
    results, deletes a file and ends."""
    stage.start()
    stage.in_front("Stoikal v")
    stage.key("alt+question", "m")
    stage.in_front("Changer le mot de passe")
    stage.key("Tab")
    stage.type("sesame")
    stage.key("Tab", "Return")

    show_teacher(stage, "alt+f", "c")
    stage.in_front("Stoikal - Editeur")
    stage.type("Soir")
    stage.key("Tab", "Tab", "Tab")  # the kind of file and the tabs
    stage.fill(["H2", "O2", "", "H2O", "", ""])
    stage.key("Tab", "Return")  # inserts an equation and begins with its first formula
    stage.fill(["N2", "H2", "", "NH3", "", ""])
    stage.key("Tab", "Tab", "Tab", "Tab", "space")
    stage.shown("Prévisualisation")
    stage.in_front("Stoikal - Editeur")
    stage.key("Tab", "KP_Enter")
    stage.in_front("Création fichier")
    stage.key("Return")
    stage.in_front("Stoikal v")
    written = stage.text("Soir.Equ")
    expect("the coefficients of the engine", "H2+O2=H2O/2,1,2" in written and "N2+H2=NH3/1,3,2" in written)

    show_teacher(stage, "alt+i", "Right", "Down", "Return")
    stage.in_front("Stoikal v")
    stage.fill(["N2", "", "", "NH3", "", ""])
    stage.key("Tab", "Tab", "Tab", "Tab", "space", "shift+Tab", "shift+Tab", "shift+Tab", "Return")
    stage.in_front("Créer un fichier")
    stage.type(str(stage.folder / "Trouve.Equ"))
    stage.key("Return")
    stage.in_front("Ouvrir un fichier")
    stage.key("Escape")
    expect("the equation found", "N2+H2=NH3/1,3,2" in stage.text("Trouve.Equ"))
    stage.in_front("Stoikal v")
    stage.key("alt+i", "Right", "Down", "Return")

    show_teacher(stage, "alt+f", "v")
    stage.in_front("Réponses des élèves")
    stage.key("Tab", "Tab", "Tab", "Return")

    show_teacher(stage, "alt+f", "Up", "Up", "Up", "Up", "Return")
    stage.in_front("Supprimer un fichier")
    stage.key("End", "space", "Tab", "Return")
    wait_for("the deletion", lambda: not (stage.folder / "Trouve.Equ").exists())
    expect("the other file", (stage.folder / "Soir.Equ").exists())

    stage.in_front("Stoikal v")
    stage.key("alt+f", "q")
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
    pause(1.8)
    stage.window("Stoikal v")
    stage.key("alt+f", "q")
    expect("the end without a fault", stage.wait_end() == 0)


def change_password(stage, old, new):
    """A teacher at this program sets another password."""
    stage.window("Stoikal v")
    stage.key("alt+question", "m")
    stage.window("Changer le mot de passe")
    stage.type(old)
    stage.key("Tab")
    stage.type(new)
    stage.key("Tab", "space")


def network_pupil(share, number, all_here, is_changed, ended):
    """One program of the class: once all are here and the password was changed, the
    old one is refused and the new one holds; then its pupil answers one equation."""
    with Stage(patience=150) as stage:
        stage.env["STOIKAL_USER"] = f"eleve{number}"
        stage.env["STOIKAL_NETWORK_ROOT"] = str(share)
        stage.settings("[Options]", "Show Tips at Startup=0", "[Réseau]", "Dossier Dépôt=Dépôt")
        stage.start()
        all_here.wait(50)
        is_changed.wait(50)
        stage.key("alt+f", "v")
        stage.window("Mot de passe")
        stage.type("vieux")
        stage.key("Tab", "space")
        stage.window("Erreur sur mot de passe")
        stage.key("Return")
        stage.window("Mot de passe")
        stage.type("sesame")
        stage.key("Tab", "space")
        stage.window("Visualiser")
        stage.key("Escape")
        stage.open_file(share / f"Classe{number % 3}.Equ", identify=f"ELEVE{number}")
        window = stage.window("Equation n°1")
        # Empty boxes count as 1: the answer is right as it stands.
        stage.click(window, stage.width(window) // 2, 68)
        stage.window("Stoikal", "$")
        stage.key("Tab", "Tab", "space")
        ended[number] = stage.wait_end()


def network_class_of_thirty(stage):
    """Thirty programs run from one share at once: each journal is whole, each mark
    stands in the table, and a password changed meanwhile is changed for all."""
    share = stage.home / "share"
    deposit = share / "Dépôt"
    deposit.mkdir(parents=True)
    for number in range(3):
        (share / f"Classe{number}.Equ").write_bytes(b"C+O2=CO2/1,1,1\r\n")
    (deposit / "MotDePasse.txt").write_bytes(b"vieux\r\n")
    stage.env["STOIKAL_NETWORK_ROOT"] = str(share)
    stage.settings("[Options]", "Show Tips at Startup=0", "[Réseau]", "Dossier Dépôt=Dépôt")
    stage.start()

    pupils = range(30)
    all_here = threading.Barrier(len(pupils) + 1)
    is_changed = threading.Event()
    ended = {}
    faults = []

    def play(number):
        try:
            network_pupil(share, number, all_here, is_changed, ended)
        except Exception as error:  # told below, whatever it is
            faults.append(f"pupil {number}: {error!r}")
            all_here.abort()

    threads = [threading.Thread(target=play, args=(number,)) for number in pupils]
    for thread in threads:
        thread.start()
    try:
        all_here.wait(240)
        change_password(stage, "vieux", "sesame")
        wait_for("the new password", lambda: (deposit / "MotDePasse.txt").read_bytes() == b"sesame\r\n")
    except threading.BrokenBarrierError:
        faults.append("not all programs started")
    is_changed.set()
    for thread in threads:
        thread.join()
    expect(f"no fault of a pupil ({'; '.join(faults[:3])})", not faults)
    expect("thirty ends without a fault", ended == {number: 0 for number in pupils})

    for number in pupils:
        journals = list(deposit.glob(f"EQU_eleve{number}_*.txt"))
        expect(f"one journal of pupil {number}", len(journals) == 1)
        lines = journals[0].read_bytes().decode("cp1252").split("\r\n")
        expect(f"the whole journal of pupil {number}", lines[:3] == ["", "*" * 38, f"Nom élève :ELEVE{number}"]
               and lines[6] == f"Nom du fichier : Classe{number % 3}.Equ - 1 équations"
               and lines[9:11] == ["  N°1 : ", "1 C + 1 O2 ---> 1 CO2 : CORRECT - Score : 5"]
               and lines[11].startswith(" -------> Note : 20.00/20 - ") and lines[12:] == [""])
    table = (deposit / "HighScore.txt").read_bytes().decode("cp1252")
    expect("every mark in the table", sorted(re.findall(r"^ELEVE(\d+)©20©", table, re.M)) == sorted(map(str, pupils)))
    expect("ten marks a file", [len(part.split("\r\n")) for part in table.split("#")[1:]] == [12, 12, 12])
    expect("the password as the teacher set it", (deposit / "MotDePasse.txt").read_bytes() == b"sesame\r\n")


ATOMS = {"H": 1.008, "C": 12.011, "N": 14.007, "O": 15.999, "Al": 26.982, "S": 32.06, "Cl": 35.45, "Ca": 40.078, "Fe": 55.845}


def worked_reaction(line):
    """A line whose data are amounts of reactants, worked by hand's rules: the molar
    masses, then what stands open in the table, row by row."""
    sides, rest = line.split("/")
    coefficients, data = ([part.strip() for part in field.split(",")] for field in rest.split("#"))
    left, right = (side.split("+") for side in sides.split("="))
    names = [re.sub("<.*>", "", name) for name in left + right]
    gases = ["<g>" in name for name in left + right]
    n = [int(c) for c in coefficients]
    mass = [sum(ATOMS[symbol] * int(count or 1) for symbol, count in re.findall(r"([A-Z][a-z]?)(\d*)", name)) for name in names]
    given = [float(datum[1:]) for datum in data]
    reactants = range(len(left))
    xmax = min(given[i] / n[i] for i in reactants if given[i])
    start = [given[i] or n[i] * xmax for i in reactants]
    end = [start[i] - n[i] * xmax for i in reactants] + [n[i] * xmax for i in range(len(left), len(n))]
    amount = start + end[len(left):]
    show = "{:.4g}".format
    table = [show(amount[i] * mass[i]) for i in range(len(n))]
    table += [show(amount[i] * 22.4) for i in range(len(n)) if gases[i]]
    table += [show(start[i]) for i in reactants if not given[i]]
    table += [show(abs(round(x, 9))) for x in end]
    return [show(m) for m in mass], table


def progress_series(stage):
    """A pupil works a whole file of progress by keyboard, once wrong in the molar
    masses, and finds his mark."""
    stage.start()
    file = stage.folder / "Avancement_1_Premiers_pas.Avt"
    stage.window("Stoikal v")
    stage.key("alt+f", "Down", "Return")
    stage.identify()
    stage.choose_file(file)
    stage.window("Stoikal - Avancement")
    stage.key("Tab", "space")
    for number, line in enumerate(equations_of(file), 1):
        masses, table = worked_reaction(line)
        stage.window(f"Equation n°{number}")
        if number == 2:
            stage.fill(["1"] * len(masses))
            stage.key("Tab", "Tab", "space", *["shift+Tab"] * (len(masses) + 1))
        stage.fill(masses)
        stage.key("Tab", "Tab", "space")
        stage.fill(table)
        stage.picture("table")
        stage.key("Tab", "space")
        stage.picture("judged")
        stage.key("space")
    stage.window("Stoikal")
    # 8 reactions of 10 points, 2 lost: 78 of 80, that is 19.5 out of 20.
    journal = wait_for("the mark", lambda: "Note :" in stage.text("Resultat.txt") and stage.text("Resultat.txt"))
    expect("19.5 out of 20", "Note : 19.50/20" in journal)
    expect("no line per answer", "N°1" not in journal)
    stage.key("Tab", "Tab", "space")
    expect("the end without a fault", stage.wait_end() == 0)


# Most of a journey is waiting for what a person waits for, so that some go side by
# side; the class of thirty has the machine for itself.
SIDE_BY_SIDE = [whole_run, progress_series, teacher_by_keyboard, pupil_by_keyboard, solution_shown, clicks_while_busy,
                damaged_line, killed_in_a_run, network_class]
ALONE = [network_class_of_thirty]


def played(journey):
    """Plays a journey; the line that tells how it went, and whether it went well."""
    began = time.monotonic()
    try:
        with Stage() as stage:
            journey(stage)
    except JourneyError as error:
        return f"FAIL  {journey.__name__}: {error}", False
    return f"OK    {journey.__name__} ({time.monotonic() - began:.1f} s)", True


def main():
    wanted = sys.argv[1:]
    went_well = True
    for journeys, at_once in ((SIDE_BY_SIDE, 3), (ALONE, 1)):
        with concurrent.futures.ThreadPoolExecutor(at_once) as pool:
            for line, is_well in pool.map(played, [j for j in journeys if not wanted or j.__name__ in wanted]):
                print(line, flush=True)
                went_well = went_well and is_well
    return 0 if went_well else 1


if __name__ == "__main__":
    sys.exit(main())
