"""Times what is done with the longest sheets in the real window: start, opening, going from sheet to sheet,
calculating, undo, and single keys. Each step lasts until the next key has its answer, and with a screen reader
until the reader says the line that this key leads to. Counts as well what the program sends to the readers when
one line changes. Prints what is wanted beside the figures; exit status 3 when something is missed."""
import argparse
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from window import LIMIT, find_text, prepare, processor_time, quiet  # noqa: E402
from gi.repository import Atspi, Gio, GLib  # noqa: E402
from pilot import children, wait  # noqa: E402
from reader import Reader, SPEECH  # noqa: E402
from screen import Screen  # noqa: E402

MOVED = "object:text-caret-moved"
CHANGED = "object:text-changed:insert"
NAMES = ("un", "deux")
KEYS = 40           # single keys of each kind in a round
PAUSE = 0.05        # seconds between them

# Seconds that are wanted until the next key has its answer, and until a reader has said its line.
WANTED = {"start": (0.4, None), "start with a sheet": (0.5, 1.0), "calculation": (0.5, 1.0), "undo": (0.5, 1.0),
          "redo": (0.5, 1.0), "Ctrl+O": (0.5, 1.0), "F6": (0.5, 1.0), "recent sheet": (0.5, 1.0),
          "arrow key": (0.02, None), "letter key": (0.02, None)}
ONE_LINE = ("letter key", "calculation after a letter")    # what it sends doesn't grow with the sheet
SHORT = 1000        # lines of the sheet that they are compared with


class Watch:
    """Notes the events of a process that the accessibility bus brings."""

    def __init__(self):
        self.pid, self.seen = 0, []
        self.listener = Atspi.EventListener.new(self.note)
        for kind in (MOVED, CHANGED):
            self.listener.register(kind)
        GLib.timeout_add(1000, lambda: True)      # a wait that gets nothing looks at the clock

    def note(self, event):
        now = time.perf_counter()
        try:
            ours = event.source.get_process_id() == self.pid
        except GLib.Error:      # a run that has ended
            return
        if ours:
            self.seen.append((now, event.type))

    def forget(self):
        while GLib.MainContext.default().iteration(False):
            pass
        self.seen = []

    def until(self, kind):
        end = time.perf_counter() + LIMIT
        while True:
            for when, what in self.seen:
                if what == kind:
                    return when
            GLib.MainContext.default().iteration(True)
            if time.perf_counter() > end:
                raise SystemExit(f"waited {LIMIT} s for {kind}")


class Monitor:
    """Counts the messages that a process sends over the bus of the readers, and their bytes."""

    def __init__(self, place):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        ask = (None, None, Gio.DBusCallFlags.NONE, -1, None)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", *ask).unpack()[0]
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
                 Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.log, self.read, self.sender = pathlib.Path(place) / "bus.log", 0, None
        self.process = subprocess.Popen(["dbus-monitor", "--binary", "--address", address],
                                        stdout=open(self.log, "wb"))

    def follow(self, pid):
        def ask(method, arguments=None):
            return self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                      method, arguments, None, Gio.DBusCallFlags.NONE, -1, None).unpack()[0]
        self.sender = next(n for n in ask("ListNames") if n.startswith(":") and
                           ask("GetConnectionUnixProcessID", GLib.Variant("(s)", (n,))) == pid)

    def taken(self):
        """What the process has sent since the last time: number and bytes of each kind of message."""
        sent, flags = {}, Gio.DBusCapabilityFlags.NONE
        with open(self.log, "rb") as log:
            log.seek(self.read)
            raw = log.read()
        while len(raw) >= 16 and (size := Gio.DBusMessage.bytes_needed(raw[:16])) <= len(raw):
            message, raw = Gio.DBusMessage.new_from_blob(raw[:size], flags), raw[size:]
            self.read += size
            if message.get_sender() == self.sender:
                what = message.get_member() or "answer"
                count, so_far = sent.get(what, (0, 0))
                sent[what] = (count + 1, so_far + size)
        return sent


class Run:
    """One run of the program in a folder with the sheets."""

    def __init__(self, folder, watch, reader=None):
        self.folder, self.watch = folder, watch
        self.reader, self.monitor, self.screen = reader, None, Screen()
        self.times = {}              # step: list of (answer, heard, processor time until the answer)
        self.sent = {}               # step: messages
        self.process = self.text = self.main = None

    def active(self):
        window, pid = self.screen.active()
        return window if pid == self.process.pid and (
            self.main is None or window.id == self.main.id) else None

    def wait_active(self):
        end = time.perf_counter() + LIMIT
        while (window := self.active()) is None:
            time.sleep(0.002)
            if time.perf_counter() > end:
                raise SystemExit("the window doesn't come to the keyboard")
        return window

    def press(self, *names):
        self.screen.chord(names)

    def answered(self):
        self.screen.answered(self.main, lambda: self.process.poll() is None, LIMIT)

    def key(self, name, kind):
        """Seconds at which a key has its answer, and at which the reader has said its line."""
        before = len(self.reader.lines()) if self.reader else 0
        self.watch.forget()
        self.press(name)
        answer = self.watch.until(kind)
        return answer, self.said(before, name) if self.reader and kind == MOVED else answer

    def said(self, before, name):
        """When the reader says something of its own after that line of its log."""
        end = time.perf_counter() + LIMIT
        while time.perf_counter() < end:
            words = [m.group(1) for line in self.reader.lines()[before:] if (m := SPEECH.search(line))]
            if any(w.strip() not in ("", name) for w in words):
                return time.perf_counter()
            time.sleep(0.002)
        raise SystemExit("the reader says nothing of the key")

    def spent(self):
        return processor_time(self.process.pid)

    def timed(self, step, act, prepare_it=None):
        """Does one step, then the next key at once."""
        if self.process:
            quiet(self.process.pid)
        if prepare_it:
            prepare_it()
            quiet(self.process.pid)
        if self.reader:
            self.reader.settle()
        spent = self.spent() if self.process else 0
        if self.monitor:
            self.monitor.taken()
        start = time.perf_counter()
        act()
        if self.main is None:
            self.first_window()
        self.wait_active()
        self.answered()
        empty = step == "start"
        answer, heard = self.key("1" if empty else "Bas", CHANGED if empty else MOVED)
        self.times.setdefault(step, []).append((answer - start, heard - start, self.spent() - spent))
        quiet(self.process.pid)
        if self.monitor:
            self.sent[step] = self.monitor.taken()

    def first_window(self):
        self.main = self.wait_active()
        self.watch.pid = self.process.pid

    def launch(self, *sheets):
        shutil.rmtree(self.folder / "secours", ignore_errors=True)
        log = open(self.folder / "sortie.txt", "a", encoding="utf-8")
        self.main = self.text = None
        self.process = subprocess.Popen([self.folder / "voxtab", *sheets], stdout=log, stderr=log,
                                        cwd=self.folder)

    def end(self):
        self.process.kill()
        self.process.wait()
        self.process = None

    def single_keys(self, step, names, kind):
        quiet(self.process.pid)
        if self.monitor:
            self.monitor.taken()
        for i in range(KEYS):
            spent, start = self.spent(), time.perf_counter()
            answer, heard = self.key(names[i % len(names)], kind)
            self.times.setdefault(step, []).append((answer - start, heard - start, self.spent() - spent))
            time.sleep(PAUSE)
        if self.monitor:
            self.sent[step] = self.monitor.taken()

    def shows(self, sheet):
        """Stops when another sheet is in the window."""
        self.answered()
        app = next(app for app in children(Atspi.get_desktop(0)) if app.get_process_id() == self.process.pid)
        app.clear_cache()
        frames = [frame.get_name() for frame in children(app)]
        if not any(name.endswith(sheet) for name in frames):
            raise SystemExit(f"{sheet} isn't in the window, {frames} is")

    def name_in_dialog(self, name):
        """Opens the dialog and types the name, all but Enter."""
        self.press("Ctrl", "o")
        wait(lambda: (w := self.screen.active())[1] == self.process.pid and w[0].id != self.main.id, "the dialog")
        self.screen.type(name)
        quiet(self.process.pid)
        time.sleep(0.3)

    def one_recent_sheet(self):
        """The program opens a sheet and is left: that sheet is in its File menu from now on."""
        self.launch("un.VXT")
        self.first_window()
        quiet(self.process.pid)
        self.press("Alt", "F4")
        self.process.wait(LIMIT)
        self.process = None

    def recent(self):
        """The line of the recent sheet in the File menu."""
        self.press("Alt", "f")
        quiet(self.process.pid)
        self.press("Bas")
        quiet(self.process.pid)

    def all_steps(self):
        self.one_recent_sheet()
        self.timed("start", self.launch)
        self.timed("recent sheet", lambda: self.press("Entrée"), self.recent)
        self.shows("un.VXT")
        self.end()
        self.timed("start with a sheet", lambda: self.launch("un.VXT"))
        self.shows("un.VXT")
        if self.monitor:
            self.monitor.follow(self.process.pid)
        self.single_keys("arrow key", ["Bas", "Bas", "Bas", "Haut"], MOVED)
        self.timed("calculation", lambda: self.press("Alt", "c"))
        self.timed("undo", lambda: self.press("Ctrl", "z"))
        self.timed("redo", lambda: self.press("Ctrl", "Maj", "z"))
        self.single_keys("letter key", ["1"], CHANGED)
        self.timed("calculation after a letter", lambda: self.press("Alt", "c"))
        self.timed("Ctrl+O", lambda: self.press("Entrée"), lambda: self.name_in_dialog("deux.VXT"))
        self.shows("deux.VXT")
        self.timed("F6", lambda: self.press("F6"))
        self.timed("F6", lambda: self.press("F6"))
        self.end()

    def rounds(self, count):
        """The steps so many times, and once before: the first round fills the caches."""
        self.all_steps()
        self.times = {}
        for _ in range(count):
            self.all_steps()


def verdict(seconds, worked, wanted, where):
    """What there is to say of a figure: "" when it is as wanted."""
    if wanted is None or seconds <= wanted:
        return ""
    why = (f"the program worked {1000 * worked:.0f} of it, the rest is the time of the others" if worked < wanted
           else f"the program itself worked {1000 * worked:.0f}")
    return f"MISSED by {1000 * (seconds - wanted):.0f} {where}: {why}"


def table(alone, read):
    """Prints the medians beside what is wanted; true when all hold."""
    print(f"{'milliseconds':28}{'alone':>9}{'of it worked':>14}{'wanted':>9}{'with Orca':>12}{'line heard':>12}"
          f"{'wanted':>9}")
    held = True
    for step in alone:
        (answer, _, worked), (other, heard, other_worked) = (
            [statistics.median(column) for column in zip(*rows[step])] for rows in (alone, read))
        wanted, wanted_heard = WANTED.get(step, (None, None))
        words = [f"{1000 * f:.1f}" if f else "-" for f in (answer, worked, wanted, other, heard, wanted_heard)]
        print(f"{step:28}" + "".join(f"{w:>{n}}" for w, n in zip(words, (9, 14, 9, 12, 12, 9))))
        key = wanted if step.endswith(" key") else None      # one key is as quick beside a reader
        for missed in filter(None, (verdict(answer, worked, wanted, "alone"),
                                    verdict(other, other_worked, key, "with the reader"),
                                    verdict(heard, other_worked, wanted_heard, "until the reader says it"))):
            print(f"    {missed}")
            held = False
    return held


def growth(long, short):
    """What is sent to the readers when one line changes, in a long sheet and in a short one."""
    held = True
    for step in ONE_LINE:
        sent = [sum(size for _, size in counted[step].values()) for counted in (long, short)]
        grown = sent[0] > 2 * sent[1]
        held = held and not grown
        print(f"{step}: {sent[0]:,} bytes to the readers, {sent[1]:,} with {SHORT:,} lines; wanted: no growth: "
              f"{'MISSED' if grown else 'held'}")
    return held


def write_sheets(folder, lines):
    for rank, name in enumerate(NAMES):
        rest = lines[1 + 100 * rank:] + lines[1:1 + 100 * rank]      # no two of them alike
        (folder / f"{name}.VXT").write_bytes(b"\r\n".join([b"A=1" + b"0" * rank] + rest))


def main():
    options = argparse.ArgumentParser(description="Times steps with the longest sheets in the real window.")
    options.add_argument("voxtab")
    options.add_argument("place")
    options.add_argument("bare")
    options.add_argument("--rounds", type=int, default=5)
    asked = options.parse_args()
    folder, _ = prepare(asked.bare, asked.place)
    shutil.copy(asked.voxtab, folder)
    shutil.copytree(pathlib.Path(asked.voxtab).parent / "data", folder / "data")
    lines = (folder / "feuille.VXT").read_bytes().split(b"\r\n")
    write_sheets(folder, lines)
    watch = Watch()
    alone, counted, short = Run(folder, watch), Run(folder, watch), Run(folder, watch)
    alone.rounds(asked.rounds)
    counted.monitor = short.monitor = Monitor(asked.place)
    counted.all_steps()
    write_sheets(folder, lines[:SHORT])
    short.all_steps()
    write_sheets(folder, lines)
    read = Run(folder, watch, Reader(asked.place))
    read.rounds(asked.rounds)
    print(f"{len(lines):,} lines, medians of {asked.rounds} rounds, load {os.getloadavg()[0]:.1f}")
    held = [table(alone.times, read.times), growth(counted.sent, short.sent)]
    return 0 if all(held) else 3


if __name__ == "__main__":
    raise SystemExit(main())
