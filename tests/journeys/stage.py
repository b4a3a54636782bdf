"""A desk for the real program: an X server of its own, a window manager, a fresh
home, real keys and clicks, pictures of the screen."""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
# The build whose program is played: the optimised one, or the one under sanitizers.
PROGRAM = ROOT / "build" / os.environ.get("STOIKAL_BUILD", "release") / "stoikal"
# Words in front of the program's name, and how many times slower it is for them.
UNDER = os.environ.get("STOIKAL_UNDER", "").split()
SLOWNESS = float(os.environ.get("STOIKAL_SLOWNESS", "1"))


class JourneyError(Exception):
    pass


def run(*words, env=None, check=True):
    done = subprocess.run([str(word) for word in words], env=env, capture_output=True, text=True, check=False)
    if check and done.returncode != 0:
        raise JourneyError(f"{' '.join(map(str, words))}: {done.stderr.strip() or done.stdout.strip()}")
    return done.stdout


def pause(seconds):
    """What the program has to do meanwhile takes so long."""
    time.sleep(seconds * SLOWNESS)


def wait_for(what, look, seconds=15.0):
    """The first true answer of `look`, asked every 50 ms."""
    end = time.monotonic() + seconds * SLOWNESS
    while time.monotonic() < end:
        found = look()
        if found:
            return found
        time.sleep(0.05)
    raise JourneyError(f"waited in vain for {what}")


def coefficients_of(line):
    """The coefficients that an equation line gives, in order."""
    return line.split("/")[1].split("#")[0].split(",")


def equations_of(path):
    text = path.read_bytes().decode("cp1252")
    return [line.replace(" ", "") for line in text.splitlines() if line and not line.lstrip(" ").startswith("'")]


class Stage:
    one_server_at_a_time = threading.Lock()

    def __init__(self, size="1024x768", pictures=None, locale="C.UTF-8", patience=15):
        self.size = size
        self.patience = patience  # seconds to wait for what is to come
        self.pictures = pathlib.Path(pictures) if pictures else None
        self.locale = locale
        self.picture_number = 0
        self.processes = []
        self.program = None

    def __enter__(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="stoikal-journey-"))
        # Two servers that look for a free number at once may find the same one.
        with Stage.one_server_at_a_time:
            number = self._start_server()
        if not number:
            raise JourneyError("no X server")
        self.env = {
            "PATH": os.environ["PATH"], "HOME": str(self.home), "DISPLAY": f":{number}", "LC_ALL": self.locale,
            "STOIKAL_APPDATA_DIR": str(self.home / "app"), "STOIKAL_DOCUMENTS_DIR": str(self.home / "documents"),
            "STOIKAL_USER": "dupont", "QT_QPA_PLATFORM": "xcb",
            # What the desktop's libraries keep at the end is not ours to mend.
            "ASAN_OPTIONS": "detect_leaks=0",
        }
        self.processes.append(
            subprocess.Popen(["openbox"], env=self.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        wait_for("the window manager", lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in
                 run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK", env=self.env, check=False), self.patience)
        return self

    def _start_server(self):
        read_end, write_end = os.pipe()
        self.processes.append(
            subprocess.Popen(
                # Without -noreset the first look would start the server anew behind it, and the
                # window manager that is just coming would be thrown out.
                ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{self.size}x24", "-nolisten", "tcp",
                 "-noreset"],
                pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            return answer.readline().strip()

    def __exit__(self, kind, value, trace):
        if kind is not None and self.pictures is None:
            self.pictures = pathlib.Path(tempfile.mkdtemp(prefix="stoikal-failed-"))
            self.picture("failed")
            print(f"   screen and folders kept: {self.pictures}, {self.home}")
        if self.program and self.program.poll() is None:
            self.program.kill()
        for process in reversed(self.processes):
            process.send_signal(signal.SIGTERM)
            process.wait(5)
        if kind is None:
            shutil.rmtree(self.home, ignore_errors=True)

    # Files

    @property
    def folder(self):
        """Where the equation files, the journal and the high scores live."""
        return self.home / "documents" / "Tovik_MARLEN" / "Stoikal"

    def text(self, name):
        return (self.folder / name).read_bytes().decode("cp1252")

    @property
    def settings_file(self):
        return self.home / "app" / "Tovik_MARLEN" / "Stoikal" / f"ConfEQU_{self.env['STOIKAL_USER']}.ini"

    def settings(self, *lines):
        """The settings of the user as an earlier start left them, unless there are some."""
        path = self.settings_file
        if not path.exists():
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))

    # The program

    def start_only(self, tip=False):
        if not tip:
            self.settings("[Options]", "Show Tips at Startup=0")
        self.output = open(self.home / "output.log", "wb")
        self.program = subprocess.Popen([*UNDER, str(PROGRAM)], env=self.env, stdout=self.output, stderr=self.output)

    def start(self):
        self.start_only()
        self.window("Stoikal v")
        # The last step of the start leaves its mark in the settings.
        wait_for("the end of the start", lambda: b"Show info-bulles" in self.settings_file.read_bytes(), self.patience)
        wait_for("the end of the splash", lambda: not self._find("^Stoikal$"), self.patience + 5)
        self.picture("start")

    def wait_end(self):
        return self.program.wait(self.patience * SLOWNESS)

    # Windows, keys, mouse

    def _find(self, pattern):
        # A name is matched as an expression; the sign ° and accents stay as they are.
        found = run("xdotool", "search", "--onlyvisible", "--name", pattern, env=self.env, check=False).split()
        return found[-1] if found else None

    def window(self, title, end=""):
        """The window whose title begins so ("$": and ends so), with the keyboard."""
        pattern = "^" + re.escape(title).replace("\\ ", " ") + end
        found = wait_for(f"the window {title!r}", lambda: self._find(pattern), self.patience)
        run("xdotool", "windowactivate", "--sync", found, env=self.env, check=False)
        return found

    def in_front(self, title, end=False):
        """Waits until a window whose title begins so (with `end`: is so) has the keyboard by itself."""
        def look():
            name = run("xdotool", "getactivewindow", "getwindowname", env=self.env, check=False).strip()
            return name == title if end else name.startswith(title)
        wait_for(f"{title!r} in front", look, self.patience)

    def shown(self, title):
        """Waits until a window whose title begins so is there, with or without the keyboard."""
        wait_for(f"the window {title!r}", lambda: self._find("^" + title), self.patience)

    def gone(self, title):
        wait_for(f"the end of {title!r}", lambda: not self._find("^" + title))

    def geometry(self, window):
        """Left, top, width and height of the inside of a window on the screen."""
        said = run("xwininfo", "-id", window, env=self.env)
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return [int(re.search(name + r":\s+(-?\d+)", said)[1]) for name in names]

    def click(self, window, x, y):
        left, top, _, _ = self.geometry(window)
        run("xdotool", "mousemove", "--sync", left + x, top + y, "click", 1, env=self.env)
        pause(0.1)

    def width(self, window):
        return self.geometry(window)[2]

    def key(self, *keys):
        for key in keys:
            run("xdotool", "key", key, env=self.env)
            pause(0.06)

    def type(self, text):
        run("xdotool", "type", "--delay", "15", text, env=self.env)
        pause(0.1)

    def picture(self, name):
        if self.pictures is None:
            return
        self.pictures.mkdir(parents=True, exist_ok=True)
        self.picture_number += 1
        pause(0.15)
        run("import", "-window", "root", self.pictures / f"{self.picture_number:02d}_{name}.png", env=self.env)

    # What a pupil does

    def identify(self, name="DUPONT", first_name="Paul", form="3B"):
        self.window("Qui êtes-vous")
        self.type(name)
        self.key("Tab")
        self.type(first_name)
        self.key("Tab")
        self.type(form)
        self.picture("identity")
        self.key("alt+o")

    def choose_file(self, path):
        self.window("Ouvrir un fichier")
        self.picture("file")
        self.type(str(path))
        self.key("Return")

    def open_file(self, path, identify=True):
        self.window("Stoikal v")
        self.key("alt+f", "o")
        if identify:
            self.identify(identify if isinstance(identify, str) else "DUPONT")
        self.choose_file(path)

    def fill(self, texts):
        """Types texts into boxes, from the one with the keyboard on."""
        for place, text in enumerate(texts):
            if place:
                self.key("Tab")
            self.type(text)

    def flash_over(self):
        """The band has its usual colour again, and the first box the keyboard."""
        pause(2)

    def answer(self, number, coefficients, picture=None):
        """Types the coefficients of an equation and validates with the mouse."""
        window = self.window(f"Equation n°{number}")
        wait_for("the end of the flash", lambda: time.monotonic() > getattr(self, "quiet_from", 0))
        self.click(window, 20, 24)
        self.key("ctrl+a")
        for place, coefficient in enumerate(coefficients):
            if place:
                self.key("Tab")
            self.type(coefficient)
        if picture:
            self.picture(picture)
        self.click(window, self.width(window) // 2, 68)
        self.quiet_from = time.monotonic() + 1.7 * min(SLOWNESS, 3)
