"""What was typed and not saved comes back on Windows: after TerminateProcess at random moments, and after the
end of the session, which asks only where nothing could be written. KILLS says how often it is ended,
SEED begins other chances."""
import os
import random
import sys
import threading
import time

from disk import there
from pilot import TXT, Helper, expect, run, same, wait
from recovery import BEHIND, Typist, asked_about, lines_of, overtaken, question, recovered

BUILD, PLACE = sys.argv[1:3]
LONGEST = 4.0    # seconds from a start to its end
KILLS = int(os.environ.get("KILLS", "6"))
LOGOFF, CLOSE_PROGRAM = -0x80000000, 1    # why the session ends: the user goes, an installer needs the file


def has_recovered(p, texts):
    wait(lambda: sorted(text for _, text in recovered(p.folder)) == sorted(texts), f"the files of {texts}")


def asked(p, count, *arguments):
    """Starts the program, which asks about so many sheets."""
    p.launch(*arguments)
    p.wait_box(question(count))


def terminate(p):
    same(p.probe.ask("terminate"), True, "the end of the process")
    p.wait_end()


def comes_back(p):
    """Oui opens the sheets as they were, each at its place; a save and a quit leave no file."""
    named = p.folder / "un.VXT"
    named.write_bytes(b"A=1\r\n")
    p.start(there(named))
    p.key("Fin")
    p.type("+2")
    p.key("Ctrl+N")
    wait(lambda: p.title() == "VOXTAB SANSTITRE.VXT", "the title")
    p.type("C=3¶B=4")
    p.wait_sheet("C=3\nB=4")
    p.key("Haut")
    has_recovered(p, ["A=1+2", "C=3\r\nB=4"])
    wait(lambda: [head["curseur"] for head, _ in recovered(p.folder) if not head["nom"]] == ["3 0"],
         "the cursor in the recovery file")
    terminate(p)
    asked(p, 2)
    same([c["text"] for c in p.box()["children"] if c["class"] == "Button"], ["&Oui", "&Non"], "buttons")
    p.key("Alt+O")
    p.ready()
    p.wait_sheet("C=3\nB=4")
    same(p.title(), "VOXTAB SANSTITRE.VXT", "title")
    same(p.selection(), (3, 3), "cursor")
    p.wait_message("C=3")
    p.key("Maj+F6")
    p.wait_sheet("A=1+2")
    same(p.title(), f"VOXTAB {there(named)}", "title")
    same(named.read_bytes(), b"A=1\r\n", "the file")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    has_recovered(p, ["C=3\r\nB=4"])
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    p.wait_end()
    has_recovered(p, [])


def set_aside(p):
    """Non moves the sheet to the folder reprise, from where it can be opened."""
    p.start(text="A=3")
    has_recovered(p, ["A=3"])
    terminate(p)
    asked(p, 1)
    p.key("Alt+N")
    p.ready()
    p.wait_sheet("")
    has_recovered(p, [])
    moved = list((p.folder / "reprise").iterdir())
    same(len(moved), 1, "sheets set aside")
    p.key("Alt+Q")
    p.wait_end()
    p.start(there(moved[0]))
    p.wait_sheet("A=3")


class Ended(Typist):
    """A typist whose program is ended."""

    def __init__(self, p):
        super().__init__(p, random.Random(int(os.environ.get("SEED", "20260101"))), self.see)
        self.sheet = p.folder / "feuille.VXT"
        self.sheet.write_bytes(b"1+1\r\n")
        self.killer = Helper(p.build / "probe.exe")
        self.due, self.lost = 0, []

    def running(self):
        return self.p.process.poll() is None

    def see(self, condition, what):
        """Waits for it, unless the program is gone."""
        return wait(lambda: not self.running() or condition(), what) and self.running()

    def other_sheet(self):
        title = self.p.title()
        self.p.key("F6")
        self.see(lambda: self.p.title() not in (title, None), "the other sheet")

    def until_killed(self):
        """The moment of the end."""
        ended = []

        def end():
            ended.append(time.monotonic())
            ended.append(self.killer.ask("terminate"))

        timer = threading.Timer(self.chance.uniform(0.2, LONGEST), end)
        timer.start()
        while self.running():
            self.act()
        timer.join()
        self.p.wait_end()
        same(ended[1:], [True], "the end of the process")
        return ended[0]

    def answer(self, left):
        """Takes back what is asked about. An end right after a save leaves a file that the save has overtaken:
        it goes, or is told when it has another text."""
        if overtaken(left, self.sheet):
            return
        words = wait(self.p.words_of_box, "the question")[0]
        if asked_about([words], len(left)):
            self.p.key("Alt+O")
            words = wait(lambda: self.after(words), "what follows the question")
        if "plus ancienne" in words:
            self.p.key("Entrée")

    def after(self, words):
        """What another box than that says, or the title of the window."""
        now = (self.p.words_of_box() or [words])[0]
        return now if now != words else self.p.title()

    def offered(self):
        """Starts the program and takes back what it offers: all lines that the user has then."""
        p = self.p
        p.launch(there(self.sheet))
        left = recovered(p.folder)
        self.answer(left)
        p.ready()
        lines = lines_of(self.sheet.read_bytes().decode("cp1252")) | lines_of(p.sheet())
        if any(not head["nom"] for head, _ in left):
            self.other_sheet()
            lines |= lines_of(p.sheet())
        else:
            p.key("Ctrl+N")
            wait(lambda: p.title() == "VOXTAB SANSTITRE.VXT", "the second sheet")
        return lines

    def look(self, number, moment, lines):
        """What was typed long enough before is there."""
        ages = {mark: moment - typed for typed, mark in self.typed}
        missing = {mark: age for mark, age in ages.items() if mark not in lines}
        self.lag = max([self.lag, *missing.values()])
        self.due += sum(age > BEHIND for age in ages.values())
        self.lost += [f"{mark}, {age:.2f} s before the end {number}" for mark, age in missing.items() if age > BEHIND]
        self.typed = [one for one in self.typed if one[1] in lines]


def killed(p):
    """Ended at random moments while it types, calculates, switches and saves."""
    typist = Ended(p)
    typist.offered()
    for number in range(1, KILLS + 1):
        moment = typist.until_killed()
        typist.look(number, moment, typist.offered())
    typist.killer.end()
    print(f"        {KILLS} ends, {typist.marks} lines typed, {typist.due} due and looked for; the last file at "
          f"most {typist.lag:.2f} s behind", flush=True)
    same(typist.lost, [], "lines that were not offered")
    expect(typist.due > 0, "nothing was due: no end came late enough")


def session_ends(p):
    """The system asks whether the session may end, and ends it: no question comes, and the next start offers
    the sheet."""
    p.start(text="A=3")
    for reason in (LOGOFF, CLOSE_PROGRAM, 0):
        same(p.probe.ask("query_end", reason), True, "the answer to the system")
        same(p.box(), None, "a box")
        same([text for _, text in recovered(p.folder)], ["A=3"], "recovery files")
        p.probe.ask("end_session", reason)
        p.wait_end()
        same([text for _, text in recovered(p.folder)], ["A=3"], "recovery files")
        asked(p, 1)
        p.key("Alt+O")
        p.ready()
        p.wait_sheet("A=3")


def session_ends_without_asking_first(p):
    """The end alone writes what was typed that very moment; also while a box waits for its answer."""
    p.start(text="A=3+4")
    p.probe.ask("end_session")
    p.wait_end()
    same([text for _, text in recovered(p.folder)], ["A=3+4"], "recovery files")
    asked(p, 1)
    p.key("Alt+O")
    p.ready()
    p.type("7")
    p.wait_sheet("A=3+47")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    same(p.probe.ask("query_end"), True, "the answer to the system")
    p.probe.ask("end_session")
    p.wait_end()
    same([text for _, text in recovered(p.folder)], ["A=3+47"], "recovery files")
    asked(p, 1)


def session_goes_on(p):
    """Another program kept the session: typing goes on, and nothing is lost."""
    p.start(text="A=3")
    same(p.probe.ask("query_end"), True, "the answer to the system")
    p.probe.ask("session_goes_on")
    p.type("+4¶B=5")
    p.wait_sheet("A=3+4\nB=5")
    p.key("Alt+C")
    p.hear("B=5 = 5")
    same(p.focus(), TXT, "focus")
    has_recovered(p, ["A=3+4 = 7\r\nB=5 = 5"])
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Échap")
    p.wait_no_box()
    terminate(p)
    asked(p, 1)


def session_asks_when_it_must(p):
    """Where no recovery file can be written the sheet's question is asked. Annuler keeps the program, Oui saves
    and lets the session end."""
    (p.folder / "secours").write_bytes(b"no folder")
    named = p.folder / "un.VXT"
    named.write_bytes(b"A=1\r\n")
    p.start(there(named))
    p.key("Fin")
    p.type("+2")
    p.wait_sheet("A=1+2")
    for key, may_end, text in (("Échap", False, b"A=1\r\n"), ("Alt+A", False, b"A=1\r\n"),
                               ("Alt+O", True, b"A=1+2\r\n")):
        system, answers = Helper(p.build / "probe.exe"), []
        waiting = threading.Thread(target=lambda: answers.append(system.ask("query_end")))
        waiting.start()
        p.wait_box("enregistrer sur un.VXT ?")
        same(answers, [], "an answer before the user's")
        p.key(key)
        waiting.join()
        system.end()
        same(answers, [may_end], "the answer to the system")
        same(named.read_bytes(), text, "the file")
        if not may_end:
            p.wait_no_box()
            same(p.sheet(), "A=1+2", "the sheet")
    p.probe.ask("end_session")
    p.wait_end()


run([comes_back, set_aside, killed, session_ends, session_ends_without_asking_first, session_goes_on,
     session_asks_when_it_must], BUILD, PLACE)
