"""Drives VOXTAB.EXE under Wine with key events, looks at it through window messages (probe.exe) and
hears it as a screen reader does (listener.exe). Every wait has a time limit and ends as soon as what
is waited for is there."""
import functools
import json
import os
import pathlib
import queue
import shutil
import subprocess
import threading
import time

from shared import LIMIT, Failed, expect, same, until_same

PAUSE = 0.02    # seconds between two looks

# Identifiers of the controls, as scripts of a screen reader know them.
TXT, LIST, MESSAGE = 1010, 1011, 1012
DEGREE, RADIAN, GRADE, ANGLE, CALCULATOR, REPLACE, QUIT = 1003, 1004, 1005, 1006, 1007, 1008, 1009
READ_ONLY, SELECTED = 0x0800, 1     # ES_READONLY, BST_CHECKED

KEYS = {"Ctrl": "Control_L", "Maj": "Shift_L", "Alt": "Alt_L", "AltGr": "108",   # the key itself, whatever it is called
        "Entrée": "Return", "Échap": "Escape", "Gauche": "Left", "Droite": "Right", "Haut": "Up",
        "Bas": "Down", "Début": "Home", "Fin": "End", "Suppr": "Delete", "Arrière": "BackSpace",
        "Espace": "space"}


def wait(condition, what, limit=LIMIT):
    """Waits until `condition` gives something true, and returns it."""
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failed(f"waited {limit} s for {what}; last seen: {value!r}")
        time.sleep(PAUSE)


wait_same = functools.partial(until_same, wait)   # waits until `look` gives what is expected


class Helper:
    """A program of ours that answers in lines of JSON."""

    def __init__(self, binary, *arguments, folder=None):
        self.process = subprocess.Popen(["wine", str(binary), *arguments], stdin=subprocess.PIPE, cwd=folder,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.lines = queue.Queue()
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(json.loads(line))

    def next(self, what, limit=LIMIT):
        try:
            return self.lines.get(timeout=limit)
        except queue.Empty:
            raise Failed(f"waited {limit} s for {what}") from None

    def ask(self, command, control=0):
        self.process.stdin.write(f"{command} {control}\n".encode())
        self.process.stdin.flush()
        return self.next(f"the answer to {command}")

    def end(self):
        self.process.kill()
        self.process.wait()


class Program:
    """One run of the program in a folder of its own."""

    def __init__(self, build, place, name, helpers):
        self.folder = pathlib.Path(place) / name
        self.folder.mkdir(parents=True)
        shutil.copy(build / "VOXTAB.EXE", self.folder)
        shutil.copytree(build / "data", self.folder / "data")
        self.build = build
        self.probe, self.listener = helpers
        self.process = None

    def launch(self, *arguments, environment=None):
        self.process = subprocess.Popen(["wine", str(self.folder / "VOXTAB.EXE"), *arguments],
                                        cwd=self.folder, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL, env={**os.environ, **(environment or {})})

    def start(self, *arguments, text=None, environment=None):
        self.launch(*arguments, environment=environment)
        return self.ready(text)

    def ready(self, text=None):
        """Waits until the user could type, and types a first text."""
        try:
            wait(self.title, "the window")
        except Failed as error:
            raise Failed(f"{error}; the program's end: {self.process.poll()}, its box: {self.box()!r}") from None
        wait(lambda: self.focus() == TXT, "the focus in the text")
        if text is not None:
            self.type(text)
            self.wait_sheet(text.replace("¶", "\n"))
        return self

    # --- Looking ---------------------------------------------------------------------------------

    def title(self):
        return self.probe.ask("title")

    def focus(self):
        state = self.probe.ask("focus")
        return state and state["id"]

    def state(self, control):
        return self.probe.ask("state", control)

    def shown(self, control):
        return self.state(control)["visible"]

    def sheet(self):
        return self.probe.ask("text", TXT).replace("\r\n", "\n")

    def selection(self):
        """Start and end, a line end counted as two."""
        return tuple(self.probe.ask("selection", TXT))

    def message(self):
        return self.probe.ask("text", MESSAGE)

    def panels(self):
        """The texts of the status bar."""
        children = self.probe.ask("children")
        bar = [i for i, child in enumerate(children) if child["id"] == 1001][0]
        return [child["text"] for child in children[bar + 1:bar + 5]]

    def box(self):
        return self.probe.ask("box")

    def words_of_box(self):
        """The words of the open box, without those of its buttons."""
        box = self.box()
        return box and [c["text"] for c in box["children"] if c["class"] == "Static" and c["text"]]

    # --- Acting ----------------------------------------------------------------------------------

    def key(self, combination, alt_first=False):
        """Presses a combination such as "Ctrl+F5" and releases it, the last key first."""
        names = [KEYS.get(part, part.lower() if len(part) == 1 else part)
                 for part in combination.split("+")]
        downs = [word for name in names for word in ("keydown", name)]
        order = names if alt_first else reversed(names)
        ups = [word for name in order for word in ("keyup", name)]
        subprocess.run(["xdotool", *downs, *ups], check=True)

    def type(self, text):
        """Types a text; "¶" is the Enter key."""
        for i, line in enumerate(text.split("¶")):
            if i:
                self.key("Entrée")
            if line:
                subprocess.run(["xdotool", "type", "--delay", "8", line], check=True)

    def clip(self, text):
        """Another program puts a text in the clipboard."""
        same(self.probe.ask("clip", json.dumps(text)), True, "the clipboard")

    def choose(self, menu, steps):
        """Opens a menu by its letter and takes the item that many steps below the first."""
        self.key("Alt+" + menu)
        for _ in range(steps):
            self.key("Bas")
        self.key("Entrée")

    def wait_sheet(self, expected):
        wait_same(self.sheet, expected, "the sheet")

    def wait_message(self, expected):
        wait_same(self.message, expected, "the message")

    def wait_box(self, words):
        try:
            wait(lambda: words in (self.words_of_box() or []), "the box")
        except Failed:
            raise Failed(f"the box is {self.box()!r}, expected {words!r}") from None

    def wait_no_box(self):
        wait(lambda: self.box() is None, "the end of the box")
        wait(lambda: self.focus() == TXT, "the focus back in the text")

    def wait_end(self):
        try:
            self.process.wait(LIMIT)
        except subprocess.TimeoutExpired:
            raise Failed("the program is still running") from None

    def slow_listener(self, milliseconds):
        """From now on the reader asks for the words of an event with that delay."""
        self.listener.process.stdin.write(f"slow {milliseconds}\n".encode())
        self.listener.process.stdin.flush()

    def hear(self, *expected):
        """What the listener hears next: exactly these texts, each once."""
        heard = [self.listener.next(f"the message {words!r}") for words in expected]
        same([event["name"] for event in heard], list(expected), "heard")
        same({(event["event"], event["id"]) for event in heard}, {("live", MESSAGE)},
             "the event and the control that speaks")

    def kill(self):
        if self.process is not None and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
            subprocess.run(["wine", "taskkill", "/f", "/im", "VOXTAB.EXE"], check=False,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait(lambda: self.title() is None, "the end of the window")
        while not self.listener.lines.empty():
            self.listener.lines.get()


def release_keys():
    """No modifier of a case that broke off stays down for the next one."""
    subprocess.run(["xdotool", "keyup", "Control_L", "keyup", "Shift_L", "keyup", "Alt_L"],
                   check=False)


def run(cases, build, place):
    """Runs each case with a program of its own, tells how it went, and ends with status 1 if one
    failed. With names in CASES only these run."""
    build = pathlib.Path(build)
    wanted = os.environ.get("CASES", "").split()
    cases = [case for case in cases if not wanted or case.__name__ in wanted]
    helpers = Helper(build / "probe.exe"), Helper(build / "listener.exe")
    same(helpers[1].next("the listener", 60), {"ready": True}, "the listener")
    failed = 0
    for case in cases:
        program = Program(build, place, case.__name__, helpers)
        try:
            case(program)
            print(f"ok      {case.__name__}", flush=True)
        except Exception as error:    # whatever it is, the other cases run
            failed += 1
            print(f"FAILED  {case.__name__}: {type(error).__name__}: {error}", flush=True)
        finally:
            release_keys()
            program.kill()
    for helper in helpers:
        helper.end()
    print(f"{len(cases)} cases, {failed} failed")
    raise SystemExit(1 if failed or not cases else 0)
