"""What the listener gets of work that others read and of functions: the page, data in and out, the study, each from
its key; the boxes, the files, Escape, keys let go in another order, an empty sheet, a sheet without a function."""
import sys
import time

from disk import name_file, there, write
from hearing import line_of_cursor, messages
from pilot import TXT, expect, run, same, wait, wait_same
from stand_in import Reader

BUILD, PLACE = sys.argv[1:3]
CLIPBOARD = "Presse-papiers, ou réponse vide pour un fichier : 3 lignes, 2 colonnes, virgule décimale : colonnes 1 x, 2 y"
LINES = "! x, y\nSTATXY\n1.5,2,4\n2,3,5\n"
PARABOLA = "INCX(-2,1,5)¶X^2-1"
STUDY = "Étude de X^2-1, X de -2 à 2"
PAGE, DATA, IMPORT = "Exporter la page", "Exporter les données", "Importer des données"


def escape(p, line):
    """Escape leads out of a box or a dialog without a word: the reader reads the line itself."""
    p.key("Échap")
    p.wait_no_box()
    same(messages(p), [], "messages after Escape")
    wait_same(lambda: line_of_cursor(p), line, "the line of the cursor")


def export_data(p):
    """The command has no key: its menu, its letter."""
    p.key("Alt+T")
    p.key("D")


def asked(p, words, proposed):
    """The question, what it proposes, and nothing told beside it: a reader reads the box."""
    p.wait_box(words)
    same([c["text"] for c in p.box()["children"] if c["class"] == "Edit"], [proposed], "what is proposed")
    same(messages(p), [], "messages of the question")


def nothing_there(p):
    """An empty sheet, and one without a function or data: one sentence each, nothing opens."""
    p.start()
    p.key("Ctrl+H")
    p.hear("rien à exporter : la feuille est vide")
    p.type("2+3")
    p.wait_sheet("2+3")
    for press, words in ((lambda: p.key("Ctrl+U"), "aucune fonction dans la feuille"),
                         (lambda: p.key("Ctrl+F9", alt_first=True), " aucune fonction dans la feuille  "),
                         (lambda: export_data(p), "rien à exporter : la feuille n'a ni table, ni série, ni matrice")):
        press()
        p.hear(words)
        same((p.box(), p.sheet(), p.focus()), (None, "2+3", TXT), "box, sheet, focus")


def the_page(p):
    """The page goes where the dialog says, over another one after a question; the sheet stays."""
    p.start(text="2+3")
    p.key("Alt+C")
    p.hear("2+3 = 5")
    p.key("Ctrl+H", alt_first=True)
    wait(lambda: p.box() and p.box()["title"] == PAGE, "the dialog")
    escape(p, "2+3 = 5")
    p.key("Ctrl+H")
    name_file(p, PAGE, there(p.folder / "devoir"))
    p.hear("page exportée : devoir.html")
    page = (p.folder / "devoir.html").read_text(encoding="utf-8")
    expect(page.startswith("<!DOCTYPE html>") and "2+3" in page, "a page")
    (p.folder / "devoir.html").write_text("autre", encoding="utf-8")
    p.key("Ctrl+H")
    name_file(p, PAGE, there(p.folder / "devoir.html"))
    p.wait_box("devoir.html existe déjà, le remplacer ?")
    p.key("Alt+O")
    p.hear(" page exportée : devoir.html  ")
    same((p.folder / "devoir.html").read_text(encoding="utf-8"), page, "the page")
    same((p.sheet(), p.title()), ("2+3 = 5", "VOXTAB SANSTITRE.VXT"), "sheet and title")
    p.key("Ctrl+H")
    name_file(p, PAGE, there(p.folder / "feuille.VXT"))
    p.hear("rien n'est exporté : ce nom est celui d'une feuille ou du programme")
    expect(not (p.folder / "feuille.VXT").exists(), "a page over a sheet")


def no_place(p):
    """A folder that can't be written: told, and nothing is left there."""
    p.start(text="2+3")
    folder = p.folder / "ferme"
    folder.mkdir()
    folder.chmod(0o555)
    p.key("Ctrl+H")
    name_file(p, PAGE, there(folder / "devoir.html"))
    p.hear("rien n'est exporté : le fichier ne peut pas être écrit")
    same(list(folder.iterdir()), [], "files")
    same(p.sheet(), "2+3", "sheet")


def data_in(p):
    """The clipboard's table after one question, taken back by one Ctrl+Z; then a file, and one that is no table."""
    p.start()
    p.clip("x;y\n1,5;2\n2;3\n4;5")
    p.key("Ctrl+I", alt_first=True)
    asked(p, CLIPBOARD, "STATXY")
    escape(p, "")
    same(p.sheet(), "", "sheet")
    p.key("Ctrl+I")
    asked(p, CLIPBOARD, "STATXY")
    p.key("Entrée")
    p.hear("données importées, lignes 1 à 4")
    same((p.sheet(), line_of_cursor(p)), (LINES, "! x, y"), "sheet and line")
    p.key("Ctrl+Z")
    p.hear("ligne vide")
    p.clip("2,5")                                          # a number that was copied for another use
    write(p.folder / "mesures.csv", "t;u\n0;1,5\n1;2,5\n")
    write(p.folder / "notes.csv", "12\nabs\n")
    for name, told in (("mesures.csv", None), ("notes.csv", 'rien n\'est importé : ligne 2, colonne 1 : "abs" n\'est pas un nombre')):
        p.key("Ctrl+I")
        name_file(p, IMPORT, there(p.folder / name))
        if told is None:
            asked(p, "2 lignes, 2 colonnes, virgule décimale : colonnes 1 t, 2 u", "STATXY")
            p.key("Entrée")
            told = "données importées, lignes 1 à 4"
        p.hear(told)
        p.wait_no_box()
    same(p.sheet(), "! t, u\nSTATXY\n0,1\n1.5,2.5\n", "sheet")


def data_out(p):
    """The question tells what there is; the file has the marks of the answer; a number that isn't there is refused."""
    p.start(text=PARABOLA)
    p.key("Alt+C")
    p.hear("X^2-1")
    words = "1 table de X, ligne 1. Numéro, puis virgule ou point"
    export_data(p)
    asked(p, words, "1 virgule")
    escape(p, "X^2-1")
    for answer, content in ((None, "X;f(X)\n-2;3\n-1;0\n0;-1\n1;0\n2;3\n"), ("1 point", "X,f(X)\n-2,3\n-1,0\n0,-1\n1,0\n2,3\n")):
        export_data(p)
        asked(p, words, "1 virgule")
        if answer is not None:
            p.type(answer)
        p.key("Entrée")
        name = f"table {answer}"
        name_file(p, DATA, there(p.folder / name))
        p.hear(f"données exportées : {name}.csv, lignes : 5, colonnes : 2")
        same((p.folder / f"{name}.csv").read_text(encoding="utf-8-sig"), content, "file")
    export_data(p)
    asked(p, words, "1 virgule")
    p.type("7")
    p.key("Entrée")
    p.hear("rien n'est exporté : tapez un numéro de 1 à 1, avec virgule ou point")


def study(p):
    """Announced once, read line by line, left by Escape, again and again: an Escape from before is no order to stop."""
    p.start(text=PARABOLA)
    for first_up in (False, True):
        p.key("Ctrl+U", alt_first=first_up)
        p.hear("lecture seule", STUDY)
        same(line_of_cursor(p), STUDY, "line")
        for line in ("Précision, sauf mention : X à 0.000001 près, f à 0.000001 près", "Domaine : définie partout"):
            p.key("Bas")
            wait_same(lambda: line_of_cursor(p), line, "the line of the cursor")
        same(messages(p), [], "messages of the arrows")
        p.key("Échap")
        p.hear("X^2-1")
        same(p.sheet(), PARABOLA.replace("¶", "\n"), "sheet")
    p.key("Ctrl+Début")
    p.key("Maj+Ctrl+Fin")
    p.type("DEFFONT=T-1")
    p.key("Ctrl+U")
    asked(p, "Intervalle : début, fin", "-10,10")
    escape(p, "DEFFONT=T-1")


def study_given_up(p):
    """Escape ends a study that takes long, once: it doesn't begin again."""
    p.start(text="AIRX(0,1,1E9)¶X^2¶" + PARABOLA)
    p.key("Ctrl+U")
    time.sleep(1)
    p.key("Échap")
    p.hear("étude interrompue")
    same(messages(p), [], "messages")
    same(p.sheet(), "AIRX(0,1,1E9)\nX^2\n" + PARABOLA.replace("¶", "\n"), "sheet")


def by_name(p):
    """A reader that hears no live region gets the same words as the name of the text."""
    p.start(text=PARABOLA)
    with Reader(p, BUILD):
        for key, words in (("Ctrl+U", ("lecture seule", STUDY)), ("Échap", ("X^2-1",))):
            p.key(key)
            for text in words:
                heard = p.listener.next(text)
                same((heard["event"], heard["id"], heard["name"].strip()), ("name", TXT, text), "heard")


run([nothing_there, the_page, no_place, data_in, data_out, study, study_given_up, by_name], BUILD, PLACE)
