"""Drives the real program with key events and looks at it through the accessibility bus. Every wait
has a time limit and ends as soon as what is waited for is there."""
import os
import pathlib
import shutil
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = 10.0    # seconds that a wait may last
PAUSE = 0.02    # seconds between two looks

COMPLAINTS = ("CRITICAL", "ssert", "ERROR: AddressSanitizer", "runtime error:")

# Names of keys as the tests write them, and as the display knows them.
KEYS = {"Ctrl": "Control_L", "Maj": "Shift_L", "Alt": "Alt_L", "AltGr": "ISO_Level3_Shift",
        "Entrée": "Return", "Échap": "Escape", "Gauche": "Left", "Droite": "Right", "Haut": "Up",
        "Bas": "Down", "Début": "Home", "Fin": "End", "PagePréc": "Prior", "PageSuiv": "Next",
        "Suppr": "Delete", "Arrière": "BackSpace", "Tab": "Tab", "Espace": "space",
        "Inser": "Insert"}


class Failed(AssertionError):
    """What was expected did not come."""


def wait(condition, what, limit=LIMIT):
    """Waits until `condition` gives something true, and returns it."""
    end = time.monotonic() + limit
    last = None
    while time.monotonic() < end:
        pump()
        try:
            value = condition()
            if value:
                return value
            last = value
        except GLib.Error as error:     # an object that has just gone
            last = error
        time.sleep(PAUSE)
    raise Failed(f"waited {limit} s for {what}; last seen: {last!r}")


def pump():
    """Lets the accessibility library take in what has arrived."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass


def children(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield child


def walk(node):
    """The node and all below it."""
    yield node
    for child in children(node):
        yield from walk(child)


def has(node, state):
    return node.get_state_set().contains(state)


def showing(node):
    return has(node, Atspi.StateType.SHOWING)


def role(node):
    return node.get_role_name()


def text_of(node):
    return Atspi.Text.get_text(node, 0, -1)


class Program:
    """One run of the program in a folder of its own."""

    def __init__(self, binary, place, name="programme"):
        self.folder = pathlib.Path(place) / name
        self.fresh = not self.folder.exists()
        self.folder.mkdir(parents=True, exist_ok=True)
        self.binary = self.folder / "voxtab"
        if self.fresh:
            shutil.copy(binary, self.binary)
            shutil.copytree(pathlib.Path(binary).parent / "data", self.folder / "data")
        self.process = None
        self.app = None
        self.log = self.folder / "sortie.txt"

    def start(self, *arguments, environment=None):
        env = dict(os.environ, **(environment or {}))
        with open(self.log, "a", encoding="utf-8") as log:
            self.process = subprocess.Popen([self.binary, *arguments], stdout=log, stderr=log,
                                            env=env, cwd=self.folder)
        self.app = wait(self.find_app, "the program on the accessibility bus")
        wait(self.window, "the window")
        wait(self.text, "the text")
        wait(self.focused, "the focus in a control")
        return self

    def find_app(self):
        for app in children(Atspi.get_desktop(0)):
            if app.get_process_id() == self.process.pid and app.get_child_count() > 0:
                return app
        return None

    # --- Looking ---------------------------------------------------------------------------------

    def window(self):
        for node in children(self.app):
            if role(node) == "frame":
                return node
        return None

    def dialog(self):
        """The box or dialog that is open, or None."""
        for node in children(self.app):
            if role(node) in ("dialog", "alert", "file chooser", "font chooser") and showing(node):
                return node
        return None

    def find(self, wanted_role, name=None, top=None):
        for node in walk(top or self.window()):
            if role(node) == wanted_role and (name is None or node.get_name() == name):
                return node
        return None

    def text(self):
        return self.find("text", "Feuille")

    def sheet(self):
        return text_of(self.text())

    def caret(self):
        return Atspi.Text.get_caret_offset(self.text())

    def title(self):
        return self.window().get_name()

    def panel(self, number):
        """The text of a panel of the status bar, from 1."""
        bar = self.find("status bar")
        return text_of(bar.get_child_at_index(number - 1))

    def focused(self, top=None):
        for node in walk(top or self.window()):
            if has(node, Atspi.StateType.FOCUSED):
                return node
        return None

    def message(self):
        """What stands in the message line."""
        return text_of(self.find("panel", "Message").get_child_at_index(0))

    def errors(self):
        """What the toolkit has complained about, but for what it says of itself when it shows a
        window with a menu bar for the first time."""
        lines = self.log.read_text(encoding="utf-8").splitlines()
        return [line for line in lines if any(word in line for word in COMPLAINTS) and
                "gtk_distribute_natural_allocation" not in line]

    # --- Acting ----------------------------------------------------------------------------------

    def key(self, combination):
        """Presses a combination such as "Ctrl+F5" and releases it, the last key first."""
        parts = combination.split("+")
        names = [KEYS.get(part, part.lower() if len(part) == 1 else part) for part in parts]
        if len(names) > 1:
            downs = [word for name in names for word in ("keydown", name)]
            ups = [word for name in reversed(names) for word in ("keyup", name)]
        else:
            downs, ups = ["key", names[0]], []
        subprocess.run(["xdotool", *downs, *ups], check=True)

    def type(self, text):
        """Types a text; "¶" is the Enter key."""
        for i, line in enumerate(text.split("¶")):
            if i:
                self.key("Entrée")
            if line:
                subprocess.run(["xdotool", "type", "--delay", "5", line], check=True)

    def wait_sheet(self, expected):
        try:
            wait(lambda: self.sheet() == expected, "the sheet")
        except Failed:
            raise Failed(f"the sheet is {self.sheet()!r}, expected {expected!r}") from None

    def wait_message(self, expected):
        try:
            wait(lambda: self.message() == expected, "the message")
        except Failed:
            raise Failed(f"the message is {self.message()!r}, expected {expected!r}") from None

    def wait_dialog(self):
        return wait(self.dialog, "a box or dialog")

    def wait_no_dialog(self):
        wait(lambda: self.dialog() is None, "the end of the box")
        wait(lambda: (f := self.focused()) is not None and f.get_name() == "Feuille",
             "the focus back in the text")

    def wait_end(self):
        """The exit status of the program, once it has ended."""
        try:
            return self.process.wait(LIMIT)
        except subprocess.TimeoutExpired:
            raise Failed("the program is still running") from None

    def kill(self):
        if self.process is not None and self.process.poll() is None:
            self.process.kill()
            self.process.wait()


def run(cases, binary, place):
    """Runs each case with a program of its own, tells how it went, and ends with status 1 if one
    failed. A case is a procedure that takes a Program, not started yet."""
    failed = 0
    for case in cases:
        program = Program(binary, place, case.__name__)
        try:
            case(program)
            expect(program.errors() == [], f"the toolkit complains: {program.errors()}")
            print(f"ok      {case.__name__}")
        except Exception as error:    # whatever it is, the other cases run
            failed += 1
            print(f"FAILED  {case.__name__}: {type(error).__name__}: {error}")
        finally:
            release_keys()
            program.kill()
    print(f"{len(cases)} cases, {failed} failed")
    raise SystemExit(1 if failed else 0)


def release_keys():
    """No modifier of a case that broke off stays down for the next one."""
    subprocess.run(["xdotool", "keyup", "Control_L", "keyup", "Shift_L", "keyup", "Alt_L"],
                   check=False)


def expect(condition, what):
    if not condition:
        raise Failed(what)


def same(seen, expected, what):
    if seen != expected:
        raise Failed(f"{what}: {seen!r}, expected {expected!r}")
