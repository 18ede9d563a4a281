"""Working in the text without seeing it: search and replace, words, tab stops, bookmarks, lines, the
clipboard, and what a keyboard may type."""
import subprocess
import sys

from pilot import Atspi, busy, expect, run, same, wait, wait_same

BINARY, PLACE = sys.argv[1:3]
SHEET = "alpha=1¶beta alpha¶GAMMA¶alpha 4"
LINES = SHEET.split("¶")


def a_sheet(p):
    p.start()
    p.type(SHEET)
    p.wait_sheet("\n".join(LINES))


def line_of_cursor(p):
    return p.sheet()[:p.caret()].count("\n") + 1


def place(p):
    """Line and column of the cursor, from 1."""
    before = p.sheet()[:p.caret()]
    return before.count("\n") + 1, len(before) - before.rfind("\n")


def search(p):
    """From the start, on, back, from the cursor, backwards; what isn't there."""
    a_sheet(p)
    p.key("F3")
    p.entry("Recherche", "", "alpha")
    p.wait_text()
    p.wait_message("alpha=1")
    same(place(p), (1, 2), "cursor, one character inside what was found")
    for key, line, message in (("Ctrl+F3", 2, "beta alpha"), ("Ctrl+F3", 4, "alpha 4"),
                               ("Ctrl+F3", 4, "introuvable"), ("Maj+F3", 2, "beta alpha")):
        p.key(key)
        p.wait_message(message)
        same(line_of_cursor(p), line, f"line after {key}")
    p.key("Alt+R")
    p.entry("Recherche", "ALPHA", "gamma")
    p.wait_text()
    p.wait_message("GAMMA")
    same(line_of_cursor(p), 3, "line")
    p.key("Ctrl+E")
    p.entry("Recherche", "GAMMA", "beta")
    p.wait_text()
    p.wait_message("beta alpha")
    p.key("F3")
    p.entry("Recherche", "BETA", "zzz")
    p.wait_text()
    p.wait_message("introuvable")
    p.key("F3")
    p.wait_entry("Recherche", "ZZZ")
    p.key("Échap")
    p.wait_text()
    same(p.sheet(), "\n".join(LINES), "sheet")


def replace_on_the_line(p):
    a_sheet(p)
    p.key("Ctrl+Début")
    p.key("Ctrl+L")
    p.entry("Recherche", "", "alpha")
    p.entry("Remplace", "", "xy")
    p.wait_text()
    p.wait_sheet("\n".join(["alpha=1", *LINES[1:]]).replace("alpha=1", "xy=1", 1))
    p.wait_message("xy=1")
    p.key("Bas")
    p.key("Ctrl+J")                    # the same again, without its questions
    p.wait_sheet("xy=1\nbeta xy\nGAMMA\nalpha 4")
    p.wait_message("beta xy")


def replace_in_the_text(p):
    a_sheet(p)
    p.key("Ctrl+Début")
    p.key("Alt+M")
    p.entry("Recherche", "", "alpha")
    p.entry("Remplace", "", "d")
    p.wait_text()
    p.wait_sheet("d=1\nbeta d\nGAMMA\nd 4")
    p.wait_message("3 remplacement")
    p.menu("E", "Remplacement sur le texte : Alt M")
    p.entry("Recherche", "ALPHA", "nulle part")
    p.entry("Remplace", "d", "z")
    p.wait_text()
    p.wait_message("introuvable")
    same(p.sheet(), "d=1\nbeta d\nGAMMA\nd 4", "sheet")


def words(p):
    p.start()
    p.type("un+deux trois")
    p.key("Alt+Gauche")
    p.wait_message("trois")
    p.key("Alt+Gauche")
    p.wait_message("deux")
    same(place(p), (1, 4), "cursor")
    p.key("Alt+Gauche")
    p.wait_message("un")
    p.key("Alt+Droite")
    p.wait_message("deux")
    p.key("Ctrl+T")
    p.wait_sheet("un+trois")
    p.wait_message("deux enlevé")


def tab_stops(p):
    p.start()
    p.type("123456789012345678901234567890123456789")
    p.key("Ctrl+Début")
    for key, message, column in (("F9", "10", 10), ("F9", "20", 20), ("Maj+F9", "10", 10),
                                 ("Maj+F9", "1", 1)):
        p.key(key)
        p.wait_message(message)
        same(place(p), (1, column), f"cursor after {key}")


def bookmark_and_lines(p):
    a_sheet(p)
    p.key("Ctrl+Début")
    p.key("Bas")
    p.key("Fin")
    here = place(p)
    p.key("Ctrl+F1")
    p.wait_message("Pose d'un repère")
    p.key("Ctrl+Fin")
    p.key("Ctrl+G")
    p.wait_message("colonne 8 ligne 4")
    p.key("Maj+F1")
    p.wait_message("beta alpha")
    same(place(p), here, "cursor")
    p.key("Ctrl+Y")
    p.entry("Numéro de ligne", " 4", "3")
    p.wait_text()
    p.wait_message("GAMMA")


def select_all_and_clipboard(p):
    p.start()
    p.type("A=3¶B=4")
    p.key("Ctrl+A")
    wait_same(p.selection, "A=3\nB=4", "selection")
    p.key("Ctrl+X")
    p.wait_sheet("")
    p.key("Ctrl+V")
    p.wait_sheet("A=3\nB=4")
    p.key("Ctrl+V")
    p.wait_sheet("A=3\nB=4A=3\nB=4")


def point_at(p, offset, beside=0):
    """Puts the pointer on a sign of the sheet, or so many pixels to its right."""
    box = Atspi.Text.get_character_extents(p.text(), offset, Atspi.CoordType.SCREEN)
    p.screen.point(box.x + box.width // 2 + beside, box.y + box.height // 2)


def brought_by_the_mouse(p):
    """The middle button and a drop say how much they have brought, as a paste does."""
    p.start()
    p.type("A=12¶B=3")
    p.key("Ctrl+Début")
    p.key("Droite", 2)
    p.key("Maj+Droite", 2)
    wait_same(p.selection, "12", "selection")
    point_at(p, 7, beside=40)
    p.screen.button(2, True)
    p.screen.button(2, False)
    p.wait_sheet("A=12\nB=312")
    p.wait_message("2 caractères collés")
    p.key("F5")
    p.wait_message("B=312 = 312")
    p.key("Ctrl+Début")
    p.key("Droite", 2)
    p.key("Maj+Droite", 2)
    wait_same(p.selection, "12", "selection")
    point_at(p, 2)
    p.screen.button(1, True)
    for beside in range(0, 100, 10):
        point_at(p, 3, beside)
        p.answered()
    for beside in (0, 2, 4):   # the place under the pointer is asked for and told more than once before it is let go
        point_at(p, 0, beside)
        p.answered()
    p.screen.button(1, False)
    p.wait_message("2 caractères collés")
    # The display tells the places under the pointer when it likes: the text may land at any of them.
    before = "A=12 = 12\nB=312 = 312"
    wait(lambda: p.sheet() != before and sorted(p.sheet()) == sorted(before), "the text at another place")
    p.key("Ctrl+Z")
    p.wait_sheet(before)


def refused_characters(p):
    p.start()
    p.type("A=5−3¶2π")
    p.wait_sheet("A=5-3\n2PI")
    p.type("≤")
    p.wait_message("caractère refusé U+2264")
    same(p.sheet(), "A=5-3\n2PI", "sheet")


def keyboard(p, layout):
    subprocess.run(["setxkbmap", layout], check=True)
    p.screen.map = {}


def french_keyboard(p):
    """AltGr types the signs of a French keyboard, and with C it calculates."""
    p.start()
    keyboard(p, "fr")
    try:
        # The keys 2 to 0, and the two after them, as a French keyboard names them without AltGr.
        for key, sign in (("eacute", "~"), ("quotedbl", "#"), ("apostrophe", "{"), ("parenleft", "["),
                          ("minus", "|"), ("egrave", "`"), ("underscore", "\\"), ("ccedilla", "^"),
                          ("agrave", "@"), ("parenright", "]"), ("equal", "}"), ("e", "€")):
            before = p.sheet()
            p.key(f"AltGr+{key}")
            wait_same(p.sheet, before + sign, f"text after AltGr and {key}")
        p.key("Ctrl+A")
        p.type("7*6¶éèçàù²µ§£")
        p.wait_sheet("7*6\néèçàù²µ§£")
        p.key("AltGr+C")
        wait_same(lambda: p.sheet().split("\n")[0], "7*6 = 42", "the first line")
        p.key("AltGr+F1")
        wait_same(lambda: p.buttons()[0], "Calculatrice", "the button of the list of functions")
    finally:
        keyboard(p, "us")


def numbers_of_the_keypad(p):
    p.start()
    p.key("Num_Lock")
    for key in ("KP_Home", "KP_Multiply", "KP_Right"):    # 7 and 6, with the number lock
        p.key(key)
    p.wait_sheet("7*6")
    p.key("Num_Lock")
    p.key("Ctrl+KP_Enter")
    p.wait_sheet("7*6 = 42\nZ= 42")
    expect(p.dialog() is None, "a box is open")


def given_up(p):
    """A short press of Escape gives up a long calculation. It closes not the box that says so."""
    p.start()
    p.type("A=3¶AIRX(0,1,1E12)¶SIN(X)¶2+2")
    p.screen.chord(["Alt", "C"])
    busy(p.process.pid)
    p.screen.chord(["Échap"])
    box = p.wait_box("calcul interrompu")
    p.key("F1")
    same(p.wait_box("calcul interrompu"), box, "the box")
    p.close_box("calcul interrompu")
    p.wait_text()
    p.type("5")
    same(p.sheet().replace("5", "").split("\n")[0], "A=3 = 3", "first line")
    expect("5" in p.sheet(), f"nothing was typed in {p.sheet()!r}")


run([search, replace_on_the_line, given_up, replace_in_the_text, words, tab_stops, bookmark_and_lines,
     select_all_and_clipboard, brought_by_the_mouse, refused_characters, french_keyboard,
     numbers_of_the_keypad], BINARY, PLACE)
