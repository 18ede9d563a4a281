"""What a blind user hears when a table in the clipboard becomes lines of the sheet, and when the sheet is written as
a page: the question once with what was found, and one message each."""
import sys

from hearing import run_parts
from pilot import expect, name_line, same

QUESTION = ("Presse-papiers, ou réponse vide pour un fichier : 3 lignes, 2 colonnes, virgule décimale : colonnes 1 x, 2 y")
LINES = "! x, y\nSTATXY\n1.5,2,4\n2,3,5\n"


def imported(p, h):
    """The table is cut out of the sheet, offered by the question, and comes back as lines."""
    p.type("x;y¶1,5;2¶2;3¶4;5")
    p.key("Ctrl+A")
    p.key("Ctrl+X")
    p.wait_sheet("")
    h.hear_box("Ctrl+I", QUESTION)
    p.wait_entry(QUESTION, "STATXY")
    h.hear_back("Entrée", "! x, y", "données importées, lignes 1 à 4")
    p.wait_sheet(LINES)
    same(p.caret(), 0, "the cursor")
    p.key("Ctrl+Z")
    p.wait_sheet("")
    h.hear_beside("Ctrl+Maj+Z", "! x, y")
    p.wait_sheet(LINES)


def exported(p, h):
    """The page is written where the dialog says, and the sheet stays."""
    h.hear("Alt+C", "! x, y")
    before = p.sheet()
    page = p.folder / "devoir.html"
    p.key("Ctrl+H")
    dialog = p.wait_dialog()
    name_line(p, dialog)
    h.answer(str(page))
    p.key("Entrée")
    p.wait_message("page exportée : devoir.html")
    same(p.sheet(), before, "the sheet")
    expect(page.read_text(encoding="utf-8").startswith("<!DOCTYPE html>"), "a page")


run_parts(*sys.argv[1:3], (imported, exported))
