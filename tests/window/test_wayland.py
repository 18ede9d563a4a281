"""The window on a Wayland desktop, where no program sees the state of the keyboard or places its windows:
typing, calculating, boxes, and Escape in a long calculation."""
import pathlib
import shutil
import subprocess
import sys

from pilot import Atspi, busy, expect, has, looked_at, role, same, showing, text_of, wait, walk

BINARY, PLACE = sys.argv[1], pathlib.Path(sys.argv[2])


def press(*words):
    """Keys and texts in the order of wtype's options, from a keyboard that comes and goes with them."""
    subprocess.run(["wtype", "-d", "20", *words], check=True)


windows = []    # of this test, to be ended with it


class Window:
    """The program as the accessibility bus shows it."""

    def __init__(self, name, *arguments):
        looked_at[:] = [Atspi.get_desktop(0)]
        folder = PLACE / name
        shutil.copytree(PLACE / "data", folder / "data")
        program = shutil.copy(BINARY, folder)
        self.log = open(PLACE / "log", "w+", encoding="utf-8")
        self.process = subprocess.Popen([program, *arguments], stdout=self.log, stderr=self.log)
        windows.append(self)
        self.sheet = wait(lambda: self.find("text", "Feuille"), "the sheet")
        wait(lambda: has(self.sheet, Atspi.StateType.FOCUSED), "the focus in the sheet")

    def app(self):
        expect(self.process.poll() is None, f"the program has ended: {self.said()}")
        desktop = Atspi.get_desktop(0)
        apps = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        return next((a for a in apps if a is not None and a.get_process_id() == self.process.pid), None)

    def find(self, wanted, name=None):
        app = self.app()
        return app and next((n for n in walk(app) if role(n) == wanted and showing(n) and
                             name in (None, n.get_name())), None)

    def text(self):
        return text_of(self.sheet)

    def end(self):
        """The end of the session, which asks nothing."""
        self.process.terminate()
        same(self.process.wait(60), 0, "exit status")

    def said(self):
        self.log.flush()
        return pathlib.Path(self.log.name).read_text(encoding="utf-8")


def wait_box(window, words):
    """The box that says these words, once it has the keyboard."""
    def there():
        box = window.find("alert") or window.find("dialog")
        return box and has(box, Atspi.StateType.ACTIVE) and \
            words in [text_of(n) for n in walk(box) if role(n) == "label"]
    wait(there, f"the box {words!r}")


def calculates():
    """Lines are typed and calculated."""
    w = Window("calculates")
    press("A=3", "-k", "Return", "B=A*2", "-M", "alt", "c", "-m", "alt")
    wait(lambda: w.text() == "A=3 = 3\nB=A*2 = 6", "the results")
    w.end()


def given_up():
    """Escape is seen by the program that calculates, and its box comes. (What answers it can't be
    pressed here: a button wants a keyboard that stays, and wtype's goes.)"""
    sheet = PLACE / "longue.VXT"
    sheet.write_bytes(b"A=3\r\nAIRX(0,1,1E12)\r\nSIN(X)\r\n2+2\r\n")
    w = Window("given_up", str(sheet))
    press("-M", "alt", "c", "-m", "alt")
    busy(w.process.pid)
    press("-k", "Escape")
    wait_box(w, "calcul interrompu")
    expect("ssert" not in w.said(), w.said())
    w.end()


# A keyboard that stays: a desktop without one gives the focus to no window.
with subprocess.Popen(["wtype", "-s", "3600000", "-k", "Escape"]) as keyboard:
    try:
        for case in (calculates, given_up):
            case()
            print("ok     ", case.__name__, flush=True)
    finally:
        keyboard.kill()
        for window in windows:
            window.process.kill()

