"""What a newcomer does and hears: the path of README's French part step by step, then the guide, the
list of functions and the key help, in the real window, in French, with a real screen reader. The steps
are read from README's own text.   VOXTAB_NEWCOMER=FILE writes down the whole way, VOXTAB_START=COMMAND
starts the program by a command of its own such as ./run instead of the one under test."""
import os
import pathlib
import re
import shlex
import sys

os.environ.update(LC_ALL="fr_FR.UTF-8", LANGUAGE="fr")    # before the accessibility library reads it
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "guide"))

from pilot import Atspi, Program, has, role, same, wait, walk  # noqa: E402
from reader import Reader  # noqa: E402
from shared import check, failures  # noqa: E402
from test_steps import heard as quoted_texts, sentences, steps_of  # noqa: E402
from texts import ROOT, read  # noqa: E402

BINARY, PLACE = sys.argv[1:3]
START = shlex.split(os.environ.get("VOXTAB_START", ""))
HEADING = """\
Ce qu'un nouveau venu fait et entend

Le premier parcours de README.md, le guide, la liste des fonctions et l'aide mémoire des touches, dans la
vraie fenêtre, en français, avec le lecteur d'écran Orca 43. Écrit par tests/window/test_newcomer.py.
À chaque pas : les touches, puis une ligne par parole entendue, puis la ligne braille à la fin du pas.
L'écho des touches et des caractères tapés n'est pas noté. Dans la ligne braille, $l ferme une zone de texte.
"""
KEY_NAMES = ("alt gauche", "alt droite", "contrôle gauche", "maj gauche", "maj droite", "entrée",
             "échap", "tabulation", "haut", "bas", "gauche", "droite", "espace", "virgule", 
             "point-virgule", "point", "plus", "égal à", "parenthèse ouvrante", "parenthèse fermante")
record = []


def is_echo(words):
    """The name of a key or one character."""
    return len(words) <= 1 or words in KEY_NAMES or re.fullmatch(r"F\d+", words)


class Hearing:
    """What one step makes the reader say."""

    def __init__(self, reader):
        self.reader = reader
        self.speech, self.braille = [], []

    def take(self, heard):
        self.speech += [words for words in heard.speech if not is_echo(words)]
        self.braille += heard.braille

    def settle(self, *wanted):
        """Waits until all these words have been said, and for what comes with them."""
        def enough(h):
            said = self.speech + h.speech
            return all(count(said, words) for words in wanted)
        self.take(self.reader.wait_for(enough, str(wanted)) if wanted else self.reader.heard())


def plain(words):
    return words.strip().rstrip(".")


def count(speech, words):
    """How often the words are heard; the name of a new sheet comes as the end of the new title."""
    return sum(plain(said) in (plain(words), "VOXTAB " + plain(words)) for said in speech)


def note(step, keys, hearing):
    """Writes a step down; nothing may be said twice."""
    lines = [f"{step} {keys}".strip()] + [f"    {words}" for words in hearing.speech]
    if hearing.braille:
        lines.append(f"    braille : {hearing.braille[-1].strip()}")
    record.extend(lines)
    print("\n".join(lines), flush=True)
    said = [plain(words) for words in hearing.speech]
    check(len(said) == len(set(said)), f"{step} {keys}: something is heard twice in {said}")


class Newcomer:
    """One newcomer: the program started and ended by the steps, and its reader."""

    def __init__(self):
        self.reader = Reader(PLACE)
        if START:
            (pathlib.Path(PLACE) / "programme").mkdir()     # the program stays where it is installed
        self.program = Program(BINARY, PLACE)
        self.program.command = START

    def do(self, step):
        """One step: each key is finished before the next one, as a listener does."""
        hearing = Hearing(self.reader)
        parts = sentences(step)
        for number, (verb, what) in enumerate(parts):
            following = parts[number + 1][0] if number + 1 < len(parts) else ""
            if verb == "Tapez":
                self.program.type(what)
            elif verb == "Répondez":
                self.answer(what)
            elif verb == "Faites":
                self.key(what, asks=following == "Répondez")
            else:
                self.hear(hearing, quoted_texts(what))
            hearing.settle()
        return hearing

    def key(self, name, asks):
        if name == "./run":
            self.program.start()
        elif name == "Alt+Q":
            self.program.key(name)
            same(self.program.wait_end(), 0, "exit status")
        else:
            self.program.key(name)
            if asks:
                self.program.wait_dialog()

    def answer(self, words):
        """Types an answer where the focus is, and Enter, as the text tells it."""
        self.program.type(words)
        dialog = self.program.dialog()
        if role(dialog) == "file chooser":
            wait(lambda: accepts(dialog), "the button that accepts the name")
        self.program.key("Entrée")
        self.program.wait_text()

    def hear(self, hearing, texts):
        hearing.settle(*texts)
        for text in texts:
            same(count(hearing.speech, text), 1, f"times that {text!r} is heard in {hearing.speech}")
            # What is said while the focus comes back to the text is spoken; braille has the line.
            check("Feuille texte" in map(plain, hearing.speech) or
                  any(text.strip() in line for line in hearing.braille),
                  f"{text!r} isn't in braille: {hearing.braille}")


def accepts(dialog):
    """The file dialog has read the folder: until then it lets an Enter go by."""
    return any(n.get_name() in ("Ouvrir", "Enregistrer") and has(n, Atspi.StateType.SENSITIVE)
               for n in walk(dialog) if role(n) == "push button")


def path(newcomer):
    """README's path."""
    record.append("\nLE PREMIER PARCOURS\n")
    steps = steps_of(read("README.md"))
    same(len(steps), 20, "steps in README.md")
    for number, step in enumerate(steps, 1):
        note(f"{number}.", step, newcomer.do(step))
    end(newcomer)


def press(newcomer, step, key, *wanted):
    """A key, and what it makes the reader say; each text wanted is heard once."""
    hearing = Hearing(newcomer.reader)
    newcomer.program.key(key)
    hearing.settle(*wanted)
    for words in wanted:
        same(count(hearing.speech, words), 1, f"times that {words!r} is heard in {hearing.speech}")
    note(step, key, hearing)
    return hearing


def answer_search(newcomer, words, found):
    """F3, the words, Enter: the line found is heard once."""
    press(newcomer, "", "F3", "Recherche texte")
    newcomer.program.wait_dialog()
    hearing = Hearing(newcomer.reader)
    newcomer.program.type(words)
    newcomer.program.key("Entrée")
    newcomer.program.wait_text()
    hearing.settle(found)
    same(count(hearing.speech, found), 1, f"times that {found!r} is heard in {hearing.speech}")
    note("", f"{words}, Entrée", hearing)


def begin(newcomer, title, *typed):
    """A program with a small sheet, and a heading in the record."""
    record.append(f"\n{title}\n")
    hearing = Hearing(newcomer.reader)
    newcomer.program.start()
    hearing.settle("Feuille texte")
    newcomer.program.type("¶".join(typed))
    hearing.settle()
    note("", "./run, et l'on tape " + " Entrée ".join(typed), hearing)


def end(newcomer):
    """Quits without saving what was typed."""
    newcomer.program.key("Alt+Q")
    if newcomer.program.running():
        newcomer.program.wait_dialog()
        newcomer.program.key("Alt+N")
    newcomer.program.wait_end()
    newcomer.reader.heard()


def guide(newcomer):
    """The guide by README's keys, its first lines one by one, a chapter, and back to the sheet's line."""
    begin(newcomer, "LE GUIDE", "A=2", "A+1", "A+2")
    press(newcomer, "", "Haut", "A+1")
    press(newcomer, "", "F10")
    press(newcomer, "", "Gauche")
    for _ in range(3):
        menu = newcomer.program.open_menu()
        if menu is not None and newcomer.program.chosen(menu) == "Guide":
            break
        press(newcomer, "", "Bas")
    lines = read("data/aide.txt")
    press(newcomer, "", "Entrée", lines[0])
    for line in lines[1:60]:
        press(newcomer, "", "Bas", *([line] if line else []))
    answer_search(newcomer, "chapitre 8", next(line for line in lines if line.startswith("CHAPITRE 8 ")))
    press(newcomer, "", "Échap", "A+1")
    end(newcomer)


def functions(newcomer):
    """The list of functions, one looked for and heard."""
    begin(newcomer, "LA LISTE DES FONCTIONS", "2+3")
    lines = read("data/fonction.txt")
    press(newcomer, "", "Alt+F1", lines[0])
    for line in lines[1:4]:
        press(newcomer, "", "Bas", line)
    answer_search(newcomer, "racine cubique", next(line for line in lines if "racine cubique" in line))
    press(newcomer, "", "Échap", "2+3")
    end(newcomer)


def key_help(newcomer):
    """Ten keys say what they do; the sheet is as it was."""
    begin(newcomer, "L'AIDE MÉMOIRE DES TOUCHES", "2+3")
    press(newcomer, "", "F1", "Aide Mémoire des touches")
    for key, words in (("Alt+C", "calcul de la feuille"), ("Ctrl+R", "Resultat de la ligne"),
                       ("Ctrl+S", "enregistrer un fichier"), ("Ctrl+O", "ouvrir un fichier"),
                       ("Ctrl+N", "nouveau fichier"), ("F3", "recherche depuis le début du texte"),
                       ("F5", "Entier"), ("F8", "Unité d'angle"), ("K", "aucune fonction"),
                       ("Alt+Q", "quitter la calculatrice")):
        press(newcomer, "", key, words)
    press(newcomer, "", "F1", "2+3")
    newcomer.program.wait_sheet("2+3")
    end(newcomer)


def write_record():
    if os.environ.get("VOXTAB_NEWCOMER"):
        pathlib.Path(os.environ["VOXTAB_NEWCOMER"]).write_text(
            (HEADING + "\n".join(record) + "\n").replace(os.environ["HOME"], "/home/moi"),
            encoding="utf-8")


def main():
    newcomer = Newcomer()
    try:
        for part in (path, guide, functions, key_help):
            part(newcomer)
        same(newcomer.program.errors(), [], "what the toolkit complains about")
    finally:
        newcomer.program.screen.release_all()
        newcomer.program.kill()
        newcomer.reader.end()
        write_record()
    raise SystemExit(1 if failures else 0)


main()
