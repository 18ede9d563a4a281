"""What a blind user hears when a table in the clipboard becomes lines of the sheet, and when the sheet is written as
a page: the question once with what was found, and one message each. Its data go out as they came in."""
import sys

from hearing import run_parts
from pilot import expect, name_line, same, wait

QUESTION = ("Presse-papiers, ou réponse vide pour un fichier : 3 lignes, 2 colonnes, virgule décimale : colonnes 1 x, 2 y")
WHICH = "1 STATXY, ligne 2. Numéro, puis virgule ou point"
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
    same(dialog.get_name(), "Exporter la page", "the dialog's name, which a reader says")
    name_line(p, dialog)
    h.answer(str(page))
    p.key("Entrée")
    p.wait_message("page exportée : devoir.html")
    same(p.sheet(), before, "the sheet")
    expect(page.read_text(encoding="utf-8").startswith("<!DOCTYPE html>"), "a page")


def ask_which(p, h):
    """The command has no key: its menu, its letter."""
    p.key("Alt+T")
    wait(p.open_menu, "the menu Outils")
    h.reader.heard()
    h.hear_box("d", WHICH, row="Outils")


def data_out(p, h):
    """The menu's command asks once what goes out, then where; one message tells what was written."""
    before = p.sheet()
    file = p.folder / "mesures.csv"
    ask_which(p, h)
    h.hear_back("Échap", "! x, y", row="Exporter les données")
    ask_which(p, h)
    p.wait_entry(WHICH, "1 virgule")
    p.key("Entrée")
    dialog = p.wait_dialog("file chooser")
    wait(lambda: name_line(p, dialog), "the line for its name")
    h.answer(str(file))
    h.hear_back("Entrée", "! x, y", "données exportées : mesures.csv, lignes : 3, colonnes : 2", row="Exporter les données")
    same(p.sheet(), before, "the sheet")
    same(file.read_text(encoding="utf-8-sig"), "x;y\n1,5;2\n2;3\n4;5\n", "the file")


run_parts(*sys.argv[1:3], (imported, exported, data_out))
