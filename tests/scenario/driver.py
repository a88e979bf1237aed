"""A virtual screen with the program on it, and an operator's hands.

Everything is done with keys and mouse through xdotool; what the program has done is read from its files with
SQLite, and with the probe library also from its controls. Nothing sleeps for a fixed time: every step waits for
what it is to bring about.
"""
import argparse
import fcntl
import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
from pathlib import Path


class Screen:
    """An X server of its own with a window manager."""

    def __init__(self, size="1280x720"):
        read, write = os.pipe()
        # Two servers that look for a free number at the same moment can take the same one.
        with open(Path(tempfile.gettempdir()) / f"sorvik-xvfb-{os.getuid()}.lock", "w") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            # Without -noreset a server begins anew when its only guest leaves, and throws out who just comes in.
            self.server = subprocess.Popen(
                ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-nolisten", "tcp", "-noreset"],
                pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            os.close(write)
            with os.fdopen(read) as pipe:
                self.name = ":" + pipe.readline().strip()
        self.env = dict(os.environ, DISPLAY=self.name)
        self.manager = subprocess.Popen(["openbox"], env=self.env, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        # A window that comes before its manager is never made the active one.
        try:
            wait_for("the window manager", lambda: subprocess.run(
                ["xdotool", "get_num_desktops"], env=self.env, capture_output=True).returncode == 0, 60)
        except AssertionError:
            self.close()
            raise

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def wait_for(what, condition, seconds=20):
    """The first true value of the condition."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.02)
    raise AssertionError(f"waited {seconds} s in vain for {what}")


class Sorvik:
    def __init__(self, folder, screen, out, probe=None, environment=None):
        self.folder, self.screen, self.out = Path(folder), screen, Path(out)
        self.out.mkdir(parents=True, exist_ok=True)
        self.probe = Path(tempfile.mkdtemp()) if probe else None
        env = dict(screen.env, QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8", XDG_RUNTIME_DIR=str(self.out))
        env.pop("WAYLAND_DISPLAY", None)
        env["PULSE_SERVER"] = "unix:/dev/null"  # a machine's own sound card is none of a scenario's business
        env.update(environment or {})
        if probe:
            env.update(LD_PRELOAD=str(probe), SORVIK_PROBE=str(self.probe))
        self.log = open(self.out / "program.log", "w")
        self.process = subprocess.Popen([str(self.folder / "Sorvik")], env=env, stdout=self.log, stderr=self.log)
        self.window("TestSignal:")

    # ---- hands ----------------------------------------------------------------------------------------

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.screen.env, capture_output=True, text=True)

    def type(self, text):
        self.xdotool("type", "--delay", "4", text)

    def key(self, *keys):
        self.xdotool("key", "--delay", "4", *keys)

    def press(self, x, y, button=1):
        """A mouse button on a place of the active window."""
        self.xdotool("getactivewindow", "mousemove", "--window", "%1", str(x), str(y), "click", str(button))

    def window(self, title, seconds=20):
        """Waits for a window whose title holds the text, and for it to be the active one."""
        def active():
            name = self.xdotool("getactivewindow", "getwindowname").stdout
            return title in name
        try:
            wait_for(f'the window "{title}"', active, seconds)
        except AssertionError:
            self.picture("inte_framme")
            raise

    def open_window(self, keys, title):
        """Keys that bring a window up; again while nothing has come. A program that is still busy with a log it
        opens lets go of a menu."""
        for _ in range(5):
            self.key(*keys)
            try:
                return wait_for(f'the window "{title}"', lambda: self.has_window(title), 4)
            except AssertionError:
                self.key("Escape", "Escape")
        self.window(title)

    def has_window(self, title):
        return self.xdotool("search", "--onlyvisible", "--name", title).stdout.strip() != ""

    def close_window(self, title):
        """Closes a window by its frame."""
        window = self.xdotool("search", "--onlyvisible", "--name", title).stdout.split()[0]
        subprocess.run(["xdotool", "key", "--window", window, "alt+F4"], env=self.screen.env)
        wait_for(f'"{title}" to go', lambda: not self.has_window(title))

    # ---- eyes -----------------------------------------------------------------------------------------

    def picture(self, name):
        time.sleep(0.25)  # for the picture alone: let the last paint reach the screen
        subprocess.run(["import", "-window", "root", str(self.out / (name + ".png"))], env=self.screen.env)

    def controls(self):
        """{(window, control): (visible, enabled, focus, text, place)} by way of the probe; the place on the screen
        is (left, top, width, height)."""
        answer = self.probe / "answer"
        (self.probe / "ask").touch()
        wait_for("the probe", answer.exists)
        found = {}
        for line in answer.read_text(encoding="utf-8").rstrip("\n").split("\n"):
            window, name, visible, enabled, focus, place, text = line.split("\t", 6)
            found[window, name] = (visible == "visible", enabled == "on", focus == "focus", text,
                                   tuple(map(int, place.split())))
        answer.unlink()
        return found

    def text(self, control, window="frTest"):
        return self.controls()[window, control][3]

    def shows(self, control, text, window="frTest", seconds=20):
        """Waits for a control to show a text. Without the probe nobody can tell."""
        if not self.probe:
            return
        found = []

        def right():
            found.append(self.controls().get((window, control), (0, 0, 0, None))[3])
            return found[-1] == text
        try:
            wait_for(control, right, seconds)
        except AssertionError:
            raise AssertionError(f"{control} shows {found[-1]!r}, expected {text!r}") from None

    def focused(self, control, window="frTest"):
        return self.controls().get((window, control), (0, 0, False, ""))[2]

    # ---- work -----------------------------------------------------------------------------------------

    def fill_in_station(self, call, locator, date):
        self.key("alt+i", "Return")
        self.window("Station / Test Inst.")
        for value in (call, locator, date):
            self.key("ctrl+a")
            self.type(value)
            self.key("Tab")
        self.key("Return")
        settings = self.folder / "Data" / "SVD.Dat"
        wait_for("the station data", lambda: rows(settings, "SELECT OpSignal, OpTestLokator, OpTestDatum FROM SVDINI")
                 == [(call.upper(), locator.upper(), date)])
        self.dismiss_date_message()
        self.picture("frTestInst")
        self.key("Escape")
        self.window("TestSignal:")

    def accept_message(self, title, text):
        self.window(title)
        self.shows("qt_msgbox_label", text, "MsgBox")
        self.key("Return")
        wait_for("the message to go", lambda: not self.has_window(f"^{title}$"))
        self.window("TestSignal:")

    def dismiss_date_message(self):
        """The message that today is not the contest's day comes on most days."""
        end = time.monotonic() + 1
        while time.monotonic() < end:
            if self.has_window("Fel Datum!"):
                self.window("Fel Datum!")
                self.key("Return")
                wait_for("the message to go", lambda: not self.has_window("Fel Datum!"))
                return
            time.sleep(0.05)

    def new_log(self, contest, name):
        """Chooses a contest by its number and makes a log; gives the log's path."""
        self.key("alt+a", "Return")
        self.window("Val av Test")
        self.key(*["Down"] * contest) if contest else None
        self.picture("frTestVal")
        self.key("Return")
        self.window("Ny Logg")
        self.type(name)
        self.key("Return")
        self.window("Station / Test Inst.")
        log = self.folder / "Data" / "Loggar" / name
        assert rows(log, "SELECT Aktuellt_Test FROM INFO") == [(contest,)]
        self.key("Escape")
        self.window("TestSignal:")
        return log

    def exit(self):
        self.key("alt+a", "Up", "Return")
        self.window("Sorvik")
        wait_for("the question", lambda: self.has_window("^Sorvik$"))
        self.picture("avsluta")
        self.key("alt+j")
        return self.process.wait(timeout=20)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.log.close()
        if self.probe:
            shutil.rmtree(self.probe, ignore_errors=True)


def rows(file, question):
    """Rows of a database file, read from outside."""
    connection = sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=10)
    try:
        return connection.execute(question).fetchall()
    finally:
        connection.close()


def expect(what, found, right):
    if found != right:
        raise AssertionError(f"{what}: {found!r}, expected {right!r}")


def contacts(log):
    return rows(log, "SELECT count(*) FROM TESTQSO")[0][0]


def perform(prepare, play, environment=None):
    """The frame of a scenario that is a script of its own: reads the command line, starts the program on a screen,
    ends it, and leaves a picture of where it failed. Gives the process's status.

    prepare(folder) gets the program folder before the program starts; play(program, probe) says what was seen;
    environment holds variables for the program."""
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True, type=Path)
    parser.add_argument("--out", required=True, type=Path)
    parser.add_argument("--probe", type=Path)
    parser.add_argument("--size", default="1920x1080")
    arguments = parser.parse_args()
    screen, program, status = Screen(arguments.size), None, 1
    try:
        prepare(arguments.program)
        program = Sorvik(arguments.program, screen, arguments.out, arguments.probe, environment)
        result = play(program, arguments.probe)
        ended = program.exit()
        if ended != 0:
            raise AssertionError(f"the program ended with status {ended}")
        print(result)
        status = 0
    except AssertionError as failure:
        print(failure, file=sys.stderr)
        if program:
            program.picture("failure")
    finally:
        if program:
            program.kill()
        screen.close()
    return status
