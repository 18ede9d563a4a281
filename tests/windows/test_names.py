"""What each control of each view and box is called, as a reader finds it by its accessible object and by the
window's own text. No word of the toolkit's is among them. The names of the sheet and of the list of colours are
given through the system's store of names, which Wine doesn't hand on: test_readers hears that of the sheet."""
import re
import sys

from pilot import DEGREE, LIST, TXT, expect, run, wait, wait_same

BUILD, PLACE = sys.argv[1:3]
# Names that the toolkit and the system give when nobody else does, and English words of buttons.
FOREIGN = {"panel", "statictext", "text", "textctrl", "frame", "dialog", "button", "radiobutton", "listbox", "groupbox",
           "staticbox", "statusbar", "status bar", "list", "check", "window", "wxwindownr", "control", "message",
           "cancel", "yes", "no", "close", "open", "save", "help", "apply", "edit", "client"}
ALL_VIEWS = ["Barre d'état", "Flottant Degré", "feuille 1", "heure", "date"]
STORED = ""    # a name that is in the system's store
GRIP = ""      # the corner of a box has none


def names(p):
    """The names of what can be seen, in the order of the windows; none of them may be foreign."""
    rows = p.probe.ask("tree")
    for row in rows:
        for words in ("name", "text", "description", "help"):
            said = row.get(words, "").replace("&", "").strip().lower()
            expect(said not in FOREIGN, f"{words} of {row} is a word of the toolkit's")
    found = [re.sub(r"^\d\d:\d\d$", "heure", row["name"].strip()) for row in rows]
    return [re.sub(r"^\d\d/\d\d/\d{4}$", "date", name) for name in found]


def reaches(p, expected, what):
    """Waits until exactly these names are there."""
    wait_same(lambda: names(p), expected, what)


def views(p):
    title = "VOXTAB SANSTITRE.VXT"
    p.start()
    p.key("Ctrl+G")
    p.wait_message("colonne 1 ligne 1")
    line = ["Message :", "colonne 1 ligne 1"]
    buttons = ["Modif. texte", "Quitter"]
    reaches(p, [title, STORED, *ALL_VIEWS, *buttons, *line], "the sheet")
    p.key("F8")
    wait(lambda: p.focus() == DEGREE, "the options")
    reaches(p, [title, *ALL_VIEWS, "Unité d'angle", "degré", "Radian", "grade", "Retour à la feuille", "Quitter", *line],
            "the angle")
    p.key("Échap")
    wait(lambda: p.focus() == TXT, "the sheet")
    p.choose("O", 9)
    wait(lambda: p.focus() == LIST, "the colours")
    reaches(p, [title, *ALL_VIEWS, "OK", "Annuler", STORED, *line], "the colours")
    p.key("Échap")
    wait(lambda: p.focus() == TXT, "the sheet")
    p.key("Alt+F1")
    wait(lambda: p.sheet().startswith("+ (a+b)"), "the list of functions")
    first = p.sheet().split("\n")[0]
    reaches(p, [title, STORED, *ALL_VIEWS, "Calculatrice", "Quitter", line[0], first], "the list of functions")
    p.key("Échap")


def boxes(p):
    """The program's own boxes; dialogs of the system have words of the system's language."""
    p.start(text="1")
    p.key("F3")
    p.wait_box("Recherche")
    reaches(p, ["VOXTAB", "Recherche", "Recherche", "OK", "Annuler", GRIP], "the entry box")
    p.key("Échap")
    p.wait_no_box()
    p.key("Ctrl+F5")
    p.wait_box("Nombre de décimal")
    p.type("101")
    p.key("Entrée")
    words = "nombre de décimal maximum est de 100"
    p.wait_box(words)
    reaches(p, ["VOXTAB", words, "OK"], "the message")
    p.key("Entrée")
    p.wait_box("Nombre de décimal")
    p.key("Échap")
    p.wait_no_box()
    p.key("Alt+Q")
    words = "enregistrer sur SANSTITRE.VXT ?"
    p.wait_box(words)
    reaches(p, ["VOXTAB", words, "Oui", "Non", "Annuler"], "the question")
    p.key("Échap")
    p.wait_no_box()


run([views, boxes], BUILD, PLACE)
