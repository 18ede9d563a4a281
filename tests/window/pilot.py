"""Drives the real program with key events and looks at it through the accessibility bus. No test knows
how long anything takes: after each key the program is asked whether it has dealt with it, what comes
later still is waited for, and only a program that hangs reaches the limit."""
import functools
import os
import pathlib
import shutil
import subprocess
import time
import traceback

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from screen import Screen  # noqa: E402
from shared import LIMIT, Failed, cpu_seconds, expect, same, until_same  # noqa: E402

SKIPPED = 77    # exit status of a test with a case left out

PAUSE = 0.02    # seconds between two looks

COMPLAINTS = ("CRITICAL", "WARNING", "ssert", "ERROR: AddressSanitizer", "LeakSanitizer", "runtime error:",
              "terminate called")
# What the desktop's libraries say of surroundings that a test doesn't have.
# The toolkit lays the window out once before it has its size, its print dialog asks for tabs that are not
# there, and its file dialog goes on reading a folder after it has closed, and completes a name before it
# has the list of a folder.
# The bridge to the reader drops an array that it hasn't got when Orca asks a cell of a list for its headers.
HARMLESS = ("dconf-WARNING", "atk-bridge", "AT-SPI", "GVFS", "Unable to load", "theme",
            "gtk_distribute_natural_allocation", "gtk_tree_model_get_iter_first",
            "gtk_notebook_get_tab_label", "system bus",
            "g_ptr_array_unref: assertion 'array' failed",
            "'GTK_IS_TREE_VIEW (tree_view)' failed", "'GTK_IS_TREE_SELECTION (selection)' failed")
BOXES = ("dialog", "alert", "file chooser", "font chooser", "color chooser")

Atspi.set_timeout(int(LIMIT * 1000), int(LIMIT * 1000))


class LeftOut(Exception):
    """The machine doesn't permit what the case needs. The test then ends as skipped, not as passed."""


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


wait_same = functools.partial(until_same, wait)   # waits until `look` gives what is expected


def busy(pid, seconds=1.0):
    """Waits until the process has calculated for that long."""
    start = cpu_seconds(pid)
    wait(lambda: cpu_seconds(pid) > start + seconds, "the calculation")


looked_at = []    # the program whose parts are asked for


def pump():
    """Lets the accessibility library take in what has arrived, and forget the rest: a look is a look at
    the program itself, not at what the library remembers of it."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass
    for app in looked_at:
        app.clear_cache()


def children(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield child


def walk(node):
    """The node and all below it; the menus only for one who begins there."""
    yield node
    for child in children(node):
        if child.get_role() != Atspi.Role.MENU_BAR:
            yield from walk(child)


def has(node, state):
    return node.get_state_set().contains(state)


def showing(node):
    return has(node, Atspi.StateType.SHOWING)


def role(node):
    return node.get_role_name()


def text_of(node):
    return Atspi.Text.get_text(node, 0, -1)


def words_of(dialog):
    """The words that stand in a box."""
    return [text_of(n) for n in walk(dialog) if role(n) == "label" and text_of(n)]


def buttons_of(top):
    """The captions of the buttons that can be seen, from left to right."""
    return [n.get_name() for n in walk(top) if role(n) == "push button" and showing(n)]


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
        self.command = None          # what starts it, when it isn't started by itself
        self.screen = Screen()
        self.process = None
        self.app = None
        self.main = None             # the window of the display
        self.nodes = {}              # what lives as long as the program
        self.log = self.folder / "sortie.txt"

    def start(self, *arguments, environment=None):
        self.launch(*arguments, environment=environment)
        self.wait_text()
        return self

    def launch(self, *arguments, environment=None):
        """Starts the program, and waits until it shows a window or a box."""
        env = dict(os.environ, **(environment or {}))
        with open(self.log, "a", encoding="utf-8") as log:
            command = self.command or [self.binary]
            self.process = subprocess.Popen([*command, *map(str, arguments)], stdout=log,
                                            stderr=log, env=env, cwd=self.folder)
        self.nodes = {}
        self.app = wait(self.find_app, "the program on the accessibility bus")
        looked_at[:] = [self.app]
        self.main = wait(self.active_window, "the program's window at the keyboard")
        return self

    def find_app(self):
        if self.process.poll() is not None:
            raise Failed(f"the program has ended: {self.log.read_text(encoding='utf-8')[-800:]}")
        for app in children(Atspi.get_desktop(0)):
            if app.get_process_id() == self.process.pid and app.get_child_count() > 0:
                return app
        return None

    # --- Looking ---------------------------------------------------------------------------------

    def running(self):
        return self.process.poll() is None

    def active_window(self):
        """The window of this program that has the keyboard, or None."""
        if not self.running():
            raise Failed(f"the program has ended with status {self.process.returncode}")
        window, pid = self.screen.active()
        return window if pid == self.process.pid else None

    def window(self):
        for node in children(self.app):
            if role(node) == "frame":
                return node
        return None

    def dialog(self):
        """The box or dialog that is in front, or None."""
        found = None
        for node in children(self.app):
            if role(node) in BOXES and showing(node):
                found = node if found is None or has(node, Atspi.StateType.ACTIVE) else found
        return found

    def find(self, wanted_role, name=None, top=None):
        for node in walk(top or self.window()):
            if role(node) == wanted_role and (name is None or node.get_name() == name):
                return node
        return None

    def kept(self, wanted_role, name=None):
        """A part of the window that stays, looked for once."""
        key = (wanted_role, name)
        if key not in self.nodes:
            self.nodes[key] = wait(lambda: self.find(wanted_role, name), f"{wanted_role} {name}")
        return self.nodes[key]

    def text(self):
        return self.kept("text", "Feuille")

    def sheet(self):
        return text_of(self.text())

    def caret(self):
        return Atspi.Text.get_caret_offset(self.text())

    def selection(self):
        """The selected part of the sheet, "" when there is none."""
        if Atspi.Text.get_n_selections(self.text()) == 0:
            return ""
        part = Atspi.Text.get_selection(self.text(), 0)
        return Atspi.Text.get_text(self.text(), part.start_offset, part.end_offset)

    def title(self):
        return self.window().get_name()

    def panel(self, number):
        """The text of a panel of the status bar, from 1."""
        return text_of(self.kept("status bar").get_child_at_index(number - 1))

    def focused(self, top=None):
        for node in walk(top or self.window()):
            if has(node, Atspi.StateType.FOCUSED):
                return node
        return None

    def tab_to(self, reached, top=None):
        """Goes on with Tab until the focus stands where `reached` is true of it, each step seen before
        the next key."""
        for _ in range(12):
            node = wait(lambda: self.focused(top), "a focus")
            if reached(node):
                return node
            self.key("Tab")
            wait(lambda: (f := self.focused(top)) is not None and f != node, "the next control")
        raise Failed(f"twelve times Tab, and the focus is at {role(node)} {node.get_name()!r}")

    def focus_name(self):
        node = self.focused()
        return node.get_name() if node is not None else None

    def message(self):
        """What stands in the message line."""
        if "message" not in self.nodes:      # the panel's name holds the message as well
            self.nodes["message"] = wait(lambda: next(
                (n for n in walk(self.window()) if role(n) == "panel" and
                 n.get_name().startswith("Message : ")), None), "the message line")
        return text_of(self.nodes["message"].get_child_at_index(0))

    def buttons(self):
        return buttons_of(self.window())

    def errors(self):
        """What the toolkit has complained about."""
        lines = self.log.read_text(encoding="utf-8", errors="replace").splitlines()
        return [line for line in lines if any(word in line for word in COMPLAINTS) and
                not any(word in line for word in HARMLESS)]

    # --- Acting ----------------------------------------------------------------------------------

    def answered(self):
        """Waits until the program has dealt with all keys. A program that ends doesn't answer."""
        self.screen.answered(self.main, lambda: self.running() and self.screen.exists(self.main),
                             LIMIT)
        pump()

    def key(self, combination, times=1):
        """Presses a combination such as "Ctrl+F5" and releases it, the last key first."""
        wait(self.active_window, f"the keyboard, before {combination}")
        for _ in range(times):
            self.screen.chord(combination.split("+"))
        self.answered()

    def type(self, text):
        """Types a text; "¶" is the Enter key."""
        wait(self.active_window, f"the keyboard, before {text!r}")
        self.screen.type(text)
        self.answered()

    def menu(self, letter, *path):
        """Opens a menu by its access key and chooses the item that has this caption."""
        self.key(f"Alt+{letter}")
        menu = wait(self.open_menu, f"the menu {letter}")
        for caption in path:
            names = [item.get_name() for item in children(menu) if role(item) != "separator"]
            if caption not in names:
                raise Failed(f"no {caption!r} in {names}")
            for _ in names:
                if self.chosen(menu) == caption:
                    break
                before = self.chosen(menu)
                self.key("Bas")
                wait(lambda: self.chosen(menu) != before, "the next item")
            same(self.chosen(menu), caption, "item of the menu")
        self.key("Entrée")

    def open_menu(self):
        for menu in children(self.menu_bar()):
            if has(menu, Atspi.StateType.SELECTED) and self.chosen(menu) is not None:
                return menu
        return None

    def menu_named(self, name):
        return next(menu for menu in children(self.menu_bar()) if menu.get_name() == name)

    def menu_bar(self):
        if "bar" not in self.nodes:
            self.nodes["bar"] = wait(lambda: next((n for n in walk_all(self.window())
                                                   if role(n) == "menu bar"), None), "the menu bar")
        return self.nodes["bar"]

    @staticmethod
    def chosen(menu):
        for item in children(menu):
            if has(item, Atspi.StateType.SELECTED) or has(item, Atspi.StateType.FOCUSED):
                return item.get_name()
        return None

    def wait_text(self):
        """The window is in front and the focus is in the text."""
        wait(lambda: self.dialog() is None, "the end of the box")
        wait(self.window, "the window")
        self.main = wait(self.active_window, "the program's window at the keyboard")
        wait_same(self.focus_name, "Feuille", "the focus")

    def wait_sheet(self, expected):
        wait_same(self.sheet, expected, "the sheet")

    def wait_message(self, expected):
        wait_same(self.message, expected, "the message")

    def wait_dialog(self, wanted=None):
        """The box or dialog that is open and has the focus; `wanted` is its role."""
        def ready():
            d = self.dialog()
            good = (d is not None and has(d, Atspi.StateType.ACTIVE) and self.active_window() and
                    self.focused(d) is not None and (wanted is None or role(d) == wanted))
            return d if good else None
        return wait(ready, f"a box or dialog ({wanted})")

    def wait_box(self, words):
        """The box that says these words."""
        seen = None

        def found():
            nonlocal seen
            d = self.dialog()
            seen = words_of(d) if d is not None else None
            return d if seen and words in seen and has(d, Atspi.StateType.ACTIVE) else None
        try:
            d = wait(found, "a box")
        except Failed:
            raise Failed(f"no box says {words!r}; last seen: {seen!r}") from None
        wait(self.active_window, "the keyboard in the box")
        return d

    def wait_entry(self, prompt, proposed):
        """The entry box with this prompt; its line has the focus and proposes that."""
        wait_same(lambda: (d := self.dialog()) and (f := self.focused(d)) and
                  (f.get_name(), text_of(f)), (prompt, proposed), "entry box")
        wait(self.active_window, "the keyboard in the box")

    def entry(self, prompt, proposed, answer):
        """Answers an entry box."""
        self.wait_entry(prompt, proposed)
        if answer:
            self.type(answer)
        else:
            self.key("Suppr")
        self.key("Entrée")

    def close_box(self, words, key="Entrée"):
        """Acknowledges the box that says these words, and waits until it has gone."""
        box = self.wait_box(words)
        self.key(key)
        wait(lambda: gone(box), "the end of the box")

    def wait_no_dialog(self):
        self.wait_text()

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


def walk_all(node):
    yield node
    for child in children(node):
        yield from walk_all(child)


def gone(node):
    """The node is no more, or can't be seen."""
    try:
        return not showing(node)
    except GLib.Error:
        return True


def name_line(p, dialog):
    """The line for a name that has the focus in the file dialog, or None."""
    f = p.focused(dialog)
    return f if f is not None and role(f) == "text" else None


def accepts(dialog):
    """The dialog has read the folder: until then it lets an Enter go by."""
    return any(n.get_name() in ("Open", "Save") and has(n, Atspi.StateType.SENSITIVE)
               for n in walk(dialog) if role(n) == "push button")


def name_file(p, path):
    """Gives a path to the file dialog that is open or about to open."""
    dialog = p.wait_dialog("file chooser")
    wait(lambda: name_line(p, dialog), "the line for the name")
    p.key("Ctrl+A")
    p.type(str(path))
    wait_same(lambda: text_of(name_line(p, dialog)), str(path), "the name in its line")
    wait(lambda: accepts(dialog), "the button that accepts the name")
    p.key("Entrée")
    wait(lambda: gone(dialog), "the end of the file dialog")


def run(cases, binary, place):
    """Runs each case with a program of its own, tells how it went, and ends with status 1 if one
    failed. A case is a procedure that takes a Program, not started yet."""
    wanted = os.environ.get("VOXTAB_CASES", "").split()
    cases = [case for case in cases if not wanted or case.__name__ in wanted]
    failed = left_out = 0
    for case in cases:
        began = time.monotonic()
        program = Program(binary, place, case.__name__)
        try:
            case(program)
            expect(program.errors() == [], f"the toolkit complains: {program.errors()}")
            print(f"ok      {case.__name__} ({time.monotonic() - began:.1f} s)", flush=True)
        except LeftOut as reason:
            left_out += 1
            print(f"LEFT OUT {case.__name__}: {reason}", flush=True)
        except Exception as error:    # whatever it is, the other cases run
            failed += 1
            print(f"FAILED  {case.__name__}: {type(error).__name__}: {error}", flush=True)
            traceback.print_exc()
        finally:
            program.screen.release_all()
            program.kill()
    print(f"{len(cases)} cases, {failed} failed, {left_out} left out")
    raise SystemExit(1 if failed or not cases else SKIPPED if left_out else 0)
