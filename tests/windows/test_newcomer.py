"""What a newcomer does and hears on Windows: the path of README's French part step by step, then the guide,
the list of functions and the key help, in the real window. The steps are read from README's own text.
   VOXTAB_NEWCOMER=FILE writes down the whole way; without it, it must be the one of the project

What is heard is what the window tells: the events of its live region, with the stand-in of a reader beside
it that lets control names be heard. What a reader reads by itself, titles, boxes, and the line when the
focus comes to it or an arrow key moves the cursor, is taken from the window and noted as such."""
import os
import pathlib
import re
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent / "guide"))

from hearing import SILENCE, line_of_cursor, messages  # noqa: E402
from pilot import Helper, Program, expect, release_keys, same, wait  # noqa: E402
from shared import check, failures  # noqa: E402
from test_steps import heard as quoted_texts, sentences, steps_of  # noqa: E402
from texts import ROOT, read  # noqa: E402

BUILD, PLACE = sys.argv[1:3]
TRANSCRIPT = ROOT / "newcomer-windows.txt"
HEADING = """\
Ce qu'un nouveau venu fait et entend sous Windows

Le premier parcours de README.md, le guide, la liste des fonctions et l'aide mémoire des touches, dans la
vraie fenêtre, sous Wine 8. Écrit par tests/windows/test_newcomer.py.
À chaque pas : les touches ; « dit », les messages que la fenêtre donne au lecteur d'écran, chacun une fois ;
« titre » et « boîte », ce qu'un lecteur lit de lui-même quand la fenêtre ou une boîte vient devant ; « ligne »,
la ligne du curseur à la fin du pas, que le lecteur lit quand une flèche ou le retour dans la feuille y mène.
"""
record = []


class Newcomer:
    """One newcomer, with the program that the steps start and end."""

    def __init__(self):
        build = pathlib.Path(BUILD)
        self.helpers = Helper(build / "probe.exe"), Helper(build / "listener.exe")
        same(self.helpers[1].next("the listener", 60), {"ready": True}, "the listener")
        self.program = Program(build, PLACE, "programme", self.helpers)
        self.title = None
        self.said, self.boxes = [], []

    def end(self):
        release_keys()
        self.program.kill()
        for helper in self.helpers:
            helper.end()

    # --- Looking -----------------------------------------------------------------------------------

    def plain(self, words):
        """The user's folder is another one on each machine."""
        return re.sub(r"C:\\users\\[^\\]+\\", r"C:\\Users\\moi\\", words)

    def note(self, step, keys, *wanted):
        """Writes a step down, once all of it is heard; each text wanted is heard once: told by the window,
        or read by the reader as the line that the focus comes to, or as the new title."""
        self.said += messages(self.program)
        title = self.program.title()
        lines = [f"{step} {keys}".strip()]
        if title != self.title and title is not None:
            lines.append(f"    titre : {self.plain(title)}")
        lines += [f"    boîte : {words}" for words in self.boxes]
        lines += [f"    dit : {self.plain(words)}" for words in self.said]
        line = line_of_cursor(self.program)
        if line is not None:
            lines.append(f"    ligne : {line}".rstrip())
        record.extend(lines)
        print("\n".join(lines), flush=True)
        read_by_itself = [line] if self.boxes or "Haut" in keys or "Bas" in keys else []
        for words in wanted:
            times = (self.said + [one for one in read_by_itself if one not in self.said]).count(words)
            check(times == 1, f"{step} {keys}: {words!r} is heard {times} times in {self.said}, {read_by_itself}")
        check(len(self.said) == len(set(self.said)), f"{step} {keys}: something is heard twice in {self.said}")
        self.title, self.said, self.boxes = title, [], []

    # --- Acting ------------------------------------------------------------------------------------

    def key(self, name, asks=False):
        p = self.program
        if name == "./run":
            p.start()
        elif name == "Alt+Q":
            p.key(name)
            p.wait_end()
            wait(lambda: p.title() is None, "the end of the window")
        else:
            before = self.state()
            p.key(name)
            if asks:
                box = wait(p.box, "the box")
                wait(lambda: [c for c in p.box()["children"] if c["class"] == "Edit" and c["focus"]], "its line")
                words = [c["text"] for c in box["children"] if c["class"] == "Static" and c["text"]]
                # A dialog of the system has its own title; its words are in the system's language.
                self.boxes.append(f"{box['title']} ; {words[0]}" if box["title"] == "VOXTAB" else box["title"])
            else:
                self.moved(before, name)

    def state(self):
        p = self.program
        return p.title(), p.sheet(), p.selection(), p.message()

    def moved(self, before, name):
        """A key that changes nothing that can be seen is over with the silence after it."""
        end = time.monotonic() + SILENCE
        while time.monotonic() < end and self.state() == before:
            time.sleep(0.02)

    def type(self, words):
        before = self.program.sheet()
        self.program.type(words)
        self.program.wait_sheet(before + words)

    def answer(self, words):
        """Types an answer where the focus is, and Enter. Windows selects the name that its dialog proposes,
        which Wine doesn't."""
        p = self.program
        p.key("Ctrl+A")
        p.type(words)
        wait(lambda: [c for c in p.box()["children"] if c["class"] == "Edit" and c["focus"] and c["text"] == words],
             "the answer in its line")
        p.key("Entrée")
        p.wait_no_box()

    def do(self, step):
        """One step of README; the texts that it says are heard."""
        wanted = []
        parts = sentences(step)
        for number, (verb, what) in enumerate(parts):
            following = parts[number + 1][0] if number + 1 < len(parts) else ""
            if verb == "Tapez":
                self.type(what)
            elif verb == "Répondez":
                self.answer(what)
            elif verb == "Faites":
                self.key(what, asks=following == "Répondez")
            else:
                wanted = quoted_texts(what)
        return wanted


def path(newcomer):
    """README's path."""
    record.append("\nLE PREMIER PARCOURS\n")
    steps = steps_of(read("README.md"))
    same(len(steps), 20, "steps in README.md")
    for number, step in enumerate(steps, 1):
        newcomer.note(f"{number}.", step, *newcomer.do(step))
    quit_unsaved(newcomer)


def quit_unsaved(newcomer):
    """Quits without saving what was typed."""
    p = newcomer.program
    p.key("Alt+Q")
    if wait(lambda: p.box() or p.title() is None, "the question or the end") is not True:
        p.key("Alt+N")
    p.wait_end()
    wait(lambda: p.title() is None, "the end of the window")
    messages(p)
    newcomer.said = []


def begin(newcomer, title, *typed):
    """A program with a small sheet, and a heading in the record."""
    record.append(f"\n{title}\n")
    newcomer.program.start(text="¶".join(typed))
    newcomer.note("", "On ouvre Voxtab, et l'on tape " + " Entrée ".join(typed))


def press(newcomer, key, *wanted):
    newcomer.key(key)
    newcomer.note("", key, *wanted)


def search(newcomer, words, found):
    """F3, the words, Enter: the line found is heard once."""
    newcomer.key("F3", asks=True)
    newcomer.answer(words)
    newcomer.note("", f"F3, {words}, Entrée", found)


def guide(newcomer):
    """The guide by README's keys, its first lines one by one, a chapter, and back to the sheet's line."""
    begin(newcomer, "LE GUIDE", "A=2", "A+1", "A+2")
    press(newcomer, "Haut", "A+1")
    p = newcomer.program
    for key in ("F10", "Gauche", "Gauche", "Bas", "Bas", "Entrée"):
        p.key(key)
    lines = read("data/aide.txt")
    wait(lambda: p.sheet().startswith(lines[0]), "the guide")
    newcomer.note("", "F10, Gauche, Gauche, Bas, Bas, Entrée", lines[0])
    for line in lines[1:20]:
        press(newcomer, "Bas", *([line] if line else []))
    search(newcomer, "chapitre 8", next(line for line in lines if line.startswith("CHAPITRE 8 ")))
    press(newcomer, "Échap", "A+1")
    quit_unsaved(newcomer)


def functions(newcomer):
    """The list of functions, one looked for and heard."""
    begin(newcomer, "LA LISTE DES FONCTIONS", "2+3")
    lines = read("data/fonction.txt")
    press(newcomer, "Alt+F1", lines[0])
    for line in lines[1:4]:
        press(newcomer, "Bas", line)
    search(newcomer, "racine cubique", next(line for line in lines if "racine cubique" in line))
    press(newcomer, "Échap", "2+3")
    quit_unsaved(newcomer)


def key_help(newcomer):
    """Ten keys say what they do; the sheet is as it was."""
    begin(newcomer, "L'AIDE MÉMOIRE DES TOUCHES", "2+3")
    press(newcomer, "F1", "Aide Mémoire des touches")
    for key, words in (("Alt+C", "calcul de la feuille"), ("Ctrl+R", "Resultat de la ligne"),
                       ("Ctrl+S", "enregistrer un fichier"), ("Ctrl+O", "ouvrir un fichier"),
                       ("Ctrl+N", "nouveau fichier"), ("F3", "recherche depuis le début du texte"),
                       ("F5", "Entier"), ("F8", "Unité d'angle"), ("K", "aucune fonction"),
                       ("Alt+Q", "quitter la calculatrice")):
        newcomer.program.key(key)
        newcomer.note("", key, words)
    press(newcomer, "F1", "2+3")
    newcomer.program.wait_sheet("2+3")
    quit_unsaved(newcomer)


def main():
    newcomer = Newcomer()
    try:
        for part in (path, guide, functions, key_help):
            part(newcomer)
    finally:
        newcomer.end()
    text = HEADING + "\n".join(record) + "\n"
    if os.environ.get("VOXTAB_NEWCOMER"):
        pathlib.Path(os.environ["VOXTAB_NEWCOMER"]).write_text(text, encoding="utf-8")
    else:
        expect(TRANSCRIPT.read_text(encoding="utf-8") == text,
               "docs/newcomer-windows.txt is another way: VOXTAB_NEWCOMER=$PWD/docs/newcomer-windows.txt writes it")
    raise SystemExit(1 if failures else 0)


main()
