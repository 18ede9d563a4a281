"""The screen reader of a test: Orca with a private home, whose log tells what it says and what stands
on the braille line. Run as a program, this file is Orca itself with a log that is written line by
line, so that what was said can be read at once."""
import builtins
import pathlib
import re
import subprocess
import sys
import time

ORCA = "/usr/bin/orca"
SPEECH = re.compile(r"SPEECH OUTPUT: '(.*)'\s*\{")
BRAILLE = re.compile(r"BRAILLE LINE:  '(.*)'")
QUIET = 0.35    # seconds without a word: what an event makes the reader say has been said


class Reader:
    """One run of Orca."""

    def __init__(self, place):
        self.log = pathlib.Path(place) / "orca.log"
        self.read = 0
        output = pathlib.Path(place) / "orca.out"
        with open(output, "w", encoding="utf-8") as out:
            self.process = subprocess.Popen([sys.executable, __file__, str(self.log)],
                                            stdout=out, stderr=out)
        if "Screen reader on." not in self.hear(lambda h: h.speech, 30).speech:
            raise RuntimeError("Orca says nothing: " + output.read_text(encoding="utf-8")[-2000:])

    def lines(self):
        if not self.log.exists():
            return []
        return self.log.read_text(encoding="utf-8", errors="replace").splitlines()

    def forget(self):
        """What was heard until now is of no interest."""
        self.settle()
        self.read = len(self.lines())

    def settle(self, limit=10.0):
        """Waits until the reader's log stays as it is."""
        end = time.monotonic() + limit
        size, since = -1, time.monotonic()
        while time.monotonic() < end:
            now = self.log.stat().st_size if self.log.exists() else 0
            if now != size:
                size, since = now, time.monotonic()
            elif time.monotonic() - since > QUIET:
                return
            time.sleep(0.02)

    def hear(self, enough, limit=10.0):
        """What is heard from now on, as soon as `enough` says so, and all that comes with it."""
        end = time.monotonic() + limit
        while time.monotonic() < end and not enough(Heard(self.lines()[self.read:])):
            time.sleep(0.02)
        self.settle()
        lines = self.lines()
        heard = Heard(lines[self.read:])
        self.read = len(lines)
        return heard

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


class Heard:
    """What a part of the log tells: words spoken, in order, and braille lines."""

    def __init__(self, lines):
        found = [match.group(1) for line in lines if (match := SPEECH.search(line))]
        self.speech = [words.strip() for words in found]
        self.braille = [match.group(1) for line in lines if (match := BRAILLE.search(line))]

    def count(self, words):
        return sum(1 for said in self.speech if said.rstrip(".") == words.strip().rstrip("."))


def run_orca(log):
    """Runs Orca in this process."""
    plain_open = builtins.open

    def open_by_line(file, *arguments, **named):
        if file == log:
            return plain_open(file, "w", buffering=1, encoding="utf-8", errors="replace")
        return plain_open(file, *arguments, **named)

    builtins.open = open_by_line
    sys.argv = [ORCA, "--debug-file=" + log, "--enable", "speech", "--enable", "braille"]
    orca = {"__name__": "orca_program", "__file__": ORCA}
    exec(compile(plain_open(ORCA, encoding="utf-8").read(), ORCA, "exec"), orca)
    # Another one of the same user, on another display, is no concern of this session.
    orca["otherOrcas"] = lambda: []
    sys.exit(orca["main"]())


if __name__ == "__main__":
    run_orca(sys.argv[1])
