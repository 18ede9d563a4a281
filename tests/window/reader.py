"""The screen reader of a test: Orca with a private home, whose log tells what it says and what stands
on the braille line. Run as a program, this file is Orca itself with a log that is written line by
line, so that what was said can be read at once."""
import builtins
import os
import pathlib
import re
import subprocess
import sys
import time

from shared import LIMIT

ORCA = "/usr/bin/orca"
SPEECH = re.compile(r"SPEECH OUTPUT: '(.*)'\s*\{")
LEFT = re.compile(r"OBJECT EVENT: window:deactivate \(0, 0, (.*)\)")
MARK = "### the reader is at rest "
BRAILLE = re.compile(r"BRAILLE LINE:  '(.*)'")


class Reader:
    """One run of Orca."""

    def __init__(self, place, name="orca", flash=None):
        """`flash`: milliseconds that a message stays on the braille line, when not as long as usual."""
        place = pathlib.Path(place)
        self.log = place / f"{name}.log"
        self.read = 0
        self.taken = []          # the whole lines of the log so far
        self.place = 0           # where the rest of it begins, in bytes
        self.marks = 0
        self.pipe = place / f"{name}.marks"
        os.mkfifo(self.pipe)
        self.output = place / f"{name}.out"
        with open(self.output, "w", encoding="utf-8") as out:
            self.process = subprocess.Popen([sys.executable, __file__, str(self.log), str(self.pipe),
                                             *([str(flash)] if flash else [])],
                                            stdout=out, stderr=out)
        self.to_marks = open(self.pipe, "w", encoding="utf-8")
        self.settle()
        if not self.heard().speech:     # it greets, in the language of its surroundings
            raise RuntimeError("Orca says nothing: " + self.last_output())

    def last_output(self):
        return self.output.read_text(encoding="utf-8", errors="replace")[-2000:]

    def lines(self):
        """The whole lines of the log; what was read of it isn't read again."""
        if self.log.exists():
            with open(self.log, "rb") as log:
                log.seek(self.place)
                added = log.read()
            added = added[:added.rfind(b"\n") + 1]
            self.place += len(added)
            self.taken += added.decode("utf-8", errors="replace").splitlines()
        return self.taken

    def settle(self):
        """Waits until the reader has nothing left to do: it writes a mark when all that had reached it
        is said. The result is the number of lines up to the mark."""
        self.marks += 1
        self.to_marks.write(f"{self.marks}\n")
        self.to_marks.flush()
        mark = MARK + str(self.marks)
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            before = len(self.taken)
            for number, line in enumerate(self.lines()[before:], before):
                if line == mark:
                    return number
            if self.process.poll() is not None:
                raise RuntimeError(f"Orca has ended with status {self.process.returncode}: {self.last_output()}")
            time.sleep(0.02)
        raise RuntimeError(f"Orca has not come to rest within {LIMIT} s")

    def heard(self):
        """What has been heard since the last time, when all of it is said."""
        last = self.settle()
        heard = Heard(self.lines()[self.read:last])
        self.read = last
        return heard

    def wait_for(self, enough, what):
        """Waits until `enough` is true of what has been heard since the last time; returns all of it."""
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            last = self.settle()
            heard = Heard(self.lines()[self.read:last])
            if enough(heard):
                self.read = last
                return heard
            time.sleep(0.02)
        raise RuntimeError(f"{what} was not heard; heard: {heard.speech}, braille {heard.braille}")

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


class Heard:
    """What a part of the log tells: words spoken, in order, braille lines, and windows that the window
    manager took the keyboard from."""

    def __init__(self, lines):
        found = [match.group(1) for line in lines if (match := SPEECH.search(line))]
        self.speech = [words.strip() for words in found]
        self.braille = [match.group(1) for line in lines if (match := BRAILLE.search(line))]
        self.left = [match.group(1) for line in lines if (match := LEFT.search(line))]

    def add(self, other):
        """What was heard afterwards belongs to it."""
        self.speech += other.speech
        self.braille += other.braille
        self.left += other.left

    def count(self, words):
        return sum(1 for said in self.speech if said.rstrip(".") == words.strip().rstrip("."))


def registry_process():
    """The process that tells programs who listens to them."""
    from gi.repository import Gio, GLib

    def ask(bus, name, path, method, arguments=None):
        return bus.call_sync(name, path, name, method, arguments, None, Gio.DBusCallFlags.NONE,
                             int(LIMIT * 1000), None).unpack()[0]
    address = ask(Gio.bus_get_sync(Gio.BusType.SESSION), "org.a11y.Bus", "/org/a11y/bus", "GetAddress")
    flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
             Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    return ask(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "GetConnectionUnixProcessID",
               GLib.Variant("(s)", ("org.a11y.atspi.Registry",)))


def answer_marks(pipe, write):
    """Each line that comes through the pipe is answered by a mark in the log, once nothing of more
    urgency is waiting: events that have arrived and what they make the reader say come first."""
    from gi.repository import GLib

    def asked(source, _condition):
        for number in os.read(source, 4096).decode().split():
            GLib.idle_add(lambda n=number: write(f"{MARK}{n}\n") and False, priority=GLib.PRIORITY_LOW)
        return True

    GLib.io_add_watch(os.open(pipe, os.O_RDWR | os.O_NONBLOCK), GLib.PRIORITY_LOW, GLib.IO_IN, asked)


def run_orca(log, pipe, flash=None):
    """Runs Orca in this process."""
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
    # Under load the program answers late: the reader waits rather than passing over what it asked for.
    Atspi.set_timeout(int(LIMIT * 1000), int(LIMIT * 1000))
    plain_open = builtins.open
    stream = plain_open(log, "w", buffering=1, encoding="utf-8", errors="replace")

    def open_log(file, *arguments, **named):
        return stream if file == log else plain_open(file, *arguments, **named)

    if flash:
        from orca import settings
        settings.brailleFlashTime = int(flash)
    builtins.open = open_log
    answer_marks(pipe, stream.write)
    sys.argv = [ORCA, "--debug-file=" + log, "--enable", "speech", "--enable", "braille"]
    orca = {"__name__": "orca_program", "__file__": ORCA}
    exec(compile(plain_open(ORCA, encoding="utf-8").read(), ORCA, "exec"), orca)
    # Another one of the same user, on another display, is no concern of this session.
    orca["otherOrcas"] = lambda: []
    sys.exit(orca["main"]())


if __name__ == "__main__":
    run_orca(*sys.argv[1:])
