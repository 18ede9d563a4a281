"""Recovery files as docs/formats.md tells them, the question about them at the start, and who types until the
program is ended. Both systems' tests use it."""
import pathlib
import re
import time

BEHIND = 2.0   # seconds that a recovery file may be behind the sheet


def question(count):
    return f"La dernière fois, Voxtab s'est arrêté sans quitter. Reprendre {count} feuille(s) ?"


def overtaken(left, sheet):
    """Whether no question comes about these recovery files: the sheet's file has the text of each."""
    saved = sheet.read_bytes().decode("cp1252")
    return all(head["nom"] and text + "\r\n" == saved for head, text in left)


def asked_about(words, most):
    """The count of sheets in the question among these words, up to `most`; 0 when it isn't there."""
    return next((count for count in range(1, most + 1) if question(count) in words), 0)


def checksum(data):
    """FNV-1a of 64 bits."""
    value = 0xCBF29CE484222325
    for byte in data:
        value = (value ^ byte) * 0x100000001B3 & 0xFFFFFFFFFFFFFFFF
    return f"{value:016x}"


def parse(data):
    """The lines of the head by their words, and the text. Fails on a file that isn't whole."""
    head, text = data.split(b"\r\n\r\n", 1)
    lines, last = head.rsplit(b"\r\n", 1)
    fields = dict(line.partition(" ")[::2] for line in lines.decode("cp1252").split("\r\n"))
    length, name = re.fullmatch(r"(\d+) (.*)", fields["nom"]).groups()
    assert int(length) == len(name) and int(fields["octets"]) == len(text), fields
    assert last.decode() == "somme " + checksum(lines + b"\r\n" + text), fields
    return {**fields, "nom": name}, text.decode("cp1252")


def recovered(folder):
    """Head and text of each recovery file beside the program, in the order of their writing."""
    place = pathlib.Path(folder) / "secours"
    found = []
    for path in place.iterdir() if place.is_dir() else []:
        if path.name.startswith("."):
            continue
        try:
            found.append(parse(path.read_bytes()))
        except FileNotFoundError:      # it has just gone
            pass
    return sorted(found, key=lambda one: int(one[0]["numero"]))


def lines_of(text):
    """The lines of a sheet without their results."""
    return {line.split(" = ")[0] for line in text.replace("\r\n", "\n").split("\n")}


class Typist:
    """Types into two sheets until the program is ended, and notes what was typed when. `see` waits, the way of
    that system, and tells whether the program is still there."""

    def __init__(self, p, chance, see):
        self.p, self.chance, self.see = p, chance, see
        self.typed = []          # (moment, mark) of each line, once it stands in the sheet
        self.marks = 0
        self.lag = 0.0           # seconds that the slowest file was behind, as far as seen

    def line(self):
        """One line with a mark of its own, at the end of the sheet, after a line that an end has cut short."""
        self.marks += 1
        mark = f"{self.marks}*10"
        self.p.key("Ctrl+Fin")
        self.p.type("¶" + mark)
        if self.see(lambda: mark in lines_of(self.p.sheet()), f"{mark} in the sheet"):
            self.typed.append((time.monotonic(), mark))

    def other_sheet(self):
        self.p.key("F6")

    def act(self):
        what = self.chance.random()
        if what < 0.7:
            self.line()
        elif what < 0.8:
            self.p.key("Alt+C")
        elif what < 0.9:
            self.other_sheet()
        elif "SANSTITRE" not in (self.p.title() or "SANSTITRE"):
            self.p.key("Ctrl+S")
