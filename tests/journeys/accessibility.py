#!/usr/bin/python3
"""The program as a screen reader finds it: in a session bus of its own, over AT-SPI.
Every visible control of its windows has a name and a role that tells what it is,
and labels that show a value say it in their names."""

import os
import pathlib
import subprocess
import sys
import time

from stage import JourneyError, Stage, wait_for

# Roles that a person meets with the keyboard or hears as a text of its own.
CONTROLS = {"push button", "check box", "radio button", "toggle button", "text", "entry", "password text", "combo box",
            "list", "slider", "spin button", "menu item", "check menu item", "menu", "page tab", "progress bar", "label",
            "table", "tree", "tree table", "editbar", "terminal", "document frame", "document web", "document text"}
# What carries others, or is drawn beside a control that says it all.
CARRIERS = {"frame", "dialog", "filler", "panel", "scroll pane", "split pane", "viewport", "layered pane", "window",
            "menu bar", "separator", "scroll bar", "internal frame", "desktop frame", "group", "grouping", "alert", "list item",
            "tool bar", "title bar", "tool tip", "image", "table cell", "tree item", "page tab list", "paragraph", "heading",
            "icon", "table column header", "static", "canvas", "drawing area", "popup menu", "status bar", "unknown", "link",
            "info bar"}


def restart_in_a_session():
    """AT-SPI needs a bus: the script runs itself once more inside one."""
    if os.environ.get("STOIKAL_IN_SESSION") != "1":
        os.environ["STOIKAL_IN_SESSION"] = "1"
        os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, os.path.abspath(__file__), *sys.argv[1:]])


class Reader:
    """What a screen reader sees of the program."""

    def __init__(self, stage):
        import pyatspi
        self.api = pyatspi
        self.stage = stage
        self.faults = []
        self.seen = {}
        self.application = None

    def find_application(self):
        def look():
            for application in self.api.Registry.getDesktop(0):
                if application is not None and application.get_process_id() == self.stage.program.pid:
                    return application
            return None
        self.application = wait_for("the program on the bus", look, 20)

    def windows(self):
        return [window for window in self.application if window is not None]

    def is_shown(self, item):
        states = item.getState()
        return states.contains(self.api.STATE_SHOWING) and states.contains(self.api.STATE_VISIBLE)

    def walk(self, item, path=()):
        """Every shown item below, each with its way down to it."""
        for child in item:
            if child is None or not self.is_shown(child):
                continue
            yield child, path
            # The cells of a list or a text are told by what holds them.
            if child.getRoleName() not in ("list", "table", "tree", "tree table", "menu", "document frame"):
                yield from self.walk(child, (*path, child.name or child.getRoleName()))

    def check(self, place, root=None):
        """All that is shown now, or what stands below `root`."""
        time.sleep(0.4)
        count = 0
        for window in ([root] if root else self.windows()):
            if not root and not self.is_shown(window):
                continue
            if not (window.name or "").strip():
                self.faults.append(f"{place}: a window without a title")
            for item, path in self.walk(window):
                role = item.getRoleName()
                count += 1
                where = f"{place}: {' / '.join(path[-2:])}: {role}"
                # A label without a text has nothing to say yet.
                if role == "label" and not item.name:
                    continue
                if role in CONTROLS:
                    if not (item.name or "").strip():
                        self.faults.append(f"{where} at {self.extents(item)} has no name")
                    elif item.name.strip().startswith(("txt", "cmd", "lbl", "opt", "chk", "frm", "Mnu_")):
                        self.faults.append(f"{where} is called {item.name!r}, which is no French")
                    self.check_action(item, where)
                elif role not in CARRIERS:
                    self.faults.append(f"{where} is a role that no reader knows")
                elif item.getState().contains(self.api.STATE_FOCUSABLE) and role in ("unknown", "filler") and not item.name:
                    self.faults.append(f"{where} at {self.extents(item)} takes the keyboard and does not tell what it is")
        self.seen[place] = count

    def check_action(self, item, where):
        """A button or a box that can be used says what can be done with it."""
        if item.getRoleName() in ("push button", "check box", "radio button"):
            if item.getState().contains(self.api.STATE_ENABLED) and item.queryAction().nActions == 0:
                self.faults.append(f"{where} {item.name!r} offers no action")

    def extents(self, item):
        box = item.queryComponent().getExtents(self.api.DESKTOP_COORDS)
        return f"{box.x},{box.y} {box.width}x{box.height}"

    def find(self, test, what):
        def look():
            for window in self.windows():
                for item, _ in self.walk(window):
                    if test(item):
                        return item
            return None
        return wait_for(what, look)

    def expect_value(self, part):
        """Some shown item says this value in its name or its text."""
        self.find(lambda item: part in (item.name or "") or part in (item.description or ""), f"the value {part!r}")


def menus(stage, reader):
    """Every entry of the menu bar, open or not, has its French name."""
    bar = reader.find(lambda item: item.getRoleName() == "menu bar", "the menu bar")
    names = [menu.name for menu in bar]
    if len(names) != 5 or not all(names):
        reader.faults.append(f"the menu bar says {names}")
    entries = list(entries_below(bar))
    # 47 entries and 5 menus, 2 of them in the menu of the composition.
    if len(entries) < 45:
        reader.faults.append(f"only {len(entries)} entries of the menus can be read")
    for entry in entries:
        if not (entry.name or "").strip():
            reader.faults.append(f"a menu entry without a name ({entry.getRoleName()})")


def entries_below(item):
    for child in item:
        if child is None:
            continue
        if child.getRoleName() in ("menu item", "check menu item", "menu"):
            yield child
        yield from entries_below(child)


def main_windows(stage, reader):
    reader.check("main window")
    menus(stage, reader)


def tools(stage, reader):
    for place, downs, is_protected in (("frmTableauPeriodique", 2, False), ("frmExpert", 0, True), ("frmSearch", 1, True),
                                       ("frmCalMol", 3, True)):
        open_tool(stage, downs)
        if is_protected:
            stage.window("Mot de passe")
            reader.check("frmMotPasse")
            stage.key("Tab", "space")
        time.sleep(0.5)
        stage.picture(place)
        reader.check(place)
        open_tool(stage, downs)
        time.sleep(0.3)


def open_tool(stage, downs):
    """An entry of the tools' menu, by keyboard."""
    stage.window("Stoikal v")
    # From the last menu to its left: a maximised tool brings a menu of its own before the first.
    stage.key("alt+question", "Left", *["Down"] * downs)
    stage.picture("menu")
    stage.key("Return")


def preferences(stage, reader):
    stage.window("Stoikal v")
    stage.key("alt+i", "Up", "Return")
    time.sleep(0.5)
    stage.picture("preferences")
    reader.check("frmPref")
    stage.key("Escape")


def identity_and_run(stage, reader):
    file = stage.folder / "Deux.Equ"
    file.write_bytes(b"C+O2=CO2/1,1,1\r\nN2+H2=NH3/1,3,2\r\n")
    stage.window("Stoikal v")
    stage.key("alt+f", "o")
    stage.window("Qui êtes-vous")
    reader.check("frmName")
    stage.identify()
    stage.choose_file(file)
    stage.window("Equation n°1")
    stage.picture("run")
    reader.check("frmEquation")
    reader.expect_value("Score : 0")
    window = stage.window("Equation n°1")
    stage.click(window, stage.width(window) // 2, 68)
    # Five points, told in words beside the green flash.
    reader.expect_value("Score : 5")
    reader.expect_value("Bonne réponse")
    reader.check("frmEquation, answered")


def editor(stage, reader):
    stage.window("Stoikal v")
    stage.key("alt+f", "c")
    stage.window("Mot de passe")
    stage.key("Tab", "space")
    time.sleep(0.8)
    stage.picture("editor")
    reader.check("frmNewFile")
    stage.key("Escape")


PLACES = [main_windows, preferences, tools, editor, identity_and_run]


def main():
    restart_in_a_session()
    failed = 0
    wanted = [place for place in PLACES if not sys.argv[1:] or place.__name__ in sys.argv[1:]]
    with Stage(pictures=os.environ.get("STOIKAL_PICTURES")) as stage:
        for name in ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            if name in os.environ:
                stage.env[name] = os.environ[name]
        stage.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        stage.start()
        reader = Reader(stage)
        reader.find_application()
        for place in wanted:
            began = time.monotonic()
            reader.faults, reader.seen = [], {}
            try:
                place(stage, reader)
            except JourneyError as error:
                reader.faults.append(str(error))
            told = ", ".join(f"{name} {count}" for name, count in reader.seen.items())
            print(f"{'FAIL ' if reader.faults else 'OK   '} {place.__name__}: {told} ({time.monotonic() - began:.1f} s)",
                  flush=True)
            for fault in sorted(set(reader.faults)):
                failed += 1
                print(f"      {fault}", flush=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
