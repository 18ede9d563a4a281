"""The real window is killed at many random moments while it types, calculates, switches between two sheets
and saves: each next start offers what was typed up to two seconds before.
   run VOXTAB ../kill/killed_window.py [--kills N] [--seed S]"""
import argparse
import os
import pathlib
import random
import signal
import sys
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "window"))

from pilot import Program, same, wait, words_of  # noqa: E402
from recovery import BEHIND, Typist, asked_about, lines_of, overtaken, question, recovered  # noqa: E402

LONGEST = 4.0    # seconds from a start to the kill
SEEN = 20.0      # seconds after which a line that was typed must be seen


class Killed(Typist):
    """A typist whose program is killed."""

    def __init__(self, program, chance):
        super().__init__(program, chance, lambda condition, what: wait(condition, what, SEEN))

    def type_until_killed(self):
        """The result: the moment of the kill."""
        killed = []

        def kill():
            killed.append(time.monotonic())
            os.kill(self.p.process.pid, signal.SIGKILL)

        timer = threading.Timer(self.chance.uniform(0.2, LONGEST), kill)
        timer.start()
        try:
            while self.p.running():
                self.act()
        except Exception:                      # what the program left unanswered when it was killed
            if not killed:
                timer.cancel()
                raise
        timer.join()
        self.p.process.wait()
        self.p.screen.release_all()
        return killed[0]


def words_of_box(p):
    box = p.dialog()
    return words_of(box) if box is not None else []


def answer(p, left, sheet):
    """Takes back what is asked about; the count of sheets. An end right after a save leaves a file that the
    save has overtaken: it goes, or is told when it has another text."""
    if overtaken(left, sheet):
        return 0
    words = wait(lambda: words_of_box(p), "the question")
    asked = asked_about(words, len(left))
    if asked:
        p.wait_box(question(asked))
        p.key("Alt+O")
        wait(lambda: words_of_box(p) != words, "the end of the question")
        words = wait(lambda: words_of_box(p) or (p.window() and p.focus_name() == "Feuille" and ["sheet"]), "the sheet")
    if any("plus ancienne" in part for part in words):
        p.key("Entrée")
    return asked


def offered(p, sheet):
    """Starts the program and takes back what it offers: all lines that the user has then."""
    p.launch()
    asked = answer(p, recovered(p.folder), sheet)
    p.wait_text()
    lines = lines_of(sheet.read_bytes().decode("cp1252"))
    shown = set()
    while p.title() not in shown:
        shown.add(p.title())
        lines |= lines_of(p.sheet())
        p.key("F6")
    same(len(shown), max(asked, 1), "sheets that are open")
    return lines


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("binary")
    parser.add_argument("place")
    parser.add_argument("--kills", type=int, default=6)
    parser.add_argument("--seed", type=int, default=20260101)
    asked = parser.parse_args()
    p = Program(asked.binary, asked.place, "killed")
    sheet = p.folder / "feuille.VXT"
    sheet.write_bytes(b"1+1\r\n")
    typist = Killed(p, random.Random(asked.seed))
    p.start(sheet)
    p.key("Ctrl+N")
    lost = offers = 0
    for number in range(1, asked.kills + 1):
        moment = typist.type_until_killed()
        due = [mark for typed, mark in typist.typed if typed < moment - BEHIND]
        lines = offered(p, sheet)
        missing = [mark for mark in due if mark not in lines]
        late = [typed for typed, mark in typist.typed if mark not in lines]
        if late:
            typist.lag = max(typist.lag, moment - min(late))
        typist.typed = [one for one in typist.typed if one[1] in lines]
        offers += len(due)
        if missing:
            lost += 1
            print(f"FAILED  kill {number}: not offered: {missing}", flush=True)
        if "SANSTITRE" not in p.title() and len(lines) > 60:     # two sheets again, and short ones
            p.key("Ctrl+S")
        if p.panel(2) == "feuille 1" and number % 2:
            p.key("Ctrl+N")
            if p.dialog() is not None:
                p.key("Entrée")
                p.wait_text()
    same(p.errors(), [], "complaints of the toolkit")
    p.kill()
    print(f"{asked.kills} kills, {typist.marks} lines typed, {offers} due and looked for, {lost} kills with a "
          f"loss; the last file at most {typist.lag:.2f} s behind")
    raise SystemExit(1 if lost or not offers else 0)


main()
