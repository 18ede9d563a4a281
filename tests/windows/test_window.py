"""The window on Windows: what it shows, what its keys do, what a screen reader hears."""
import json
import pathlib
import re
import subprocess
import sys

from pilot import (ANGLE, CALCULATOR, DEGREE, GRADE, LIST, MESSAGE, QUIT, RADIAN, READ_ONLY, REPLACE,
                   SELECTED, TXT, expect, run, same, wait)
from shared import cpu_seconds

BUILD, PLACE = sys.argv[1:3]


def data(name):
    """A text that the program shows as it is."""
    return (pathlib.Path(BUILD) / "data" / name).read_text(encoding="utf-8").removesuffix("\n")


def start(p):
    p.start()
    same(p.title(), "VOXTAB SANSTITRE.VXT", "title")
    same(p.sheet(), "", "sheet")
    panels = p.panels()
    same(panels[:2], ["Flottant Degré", "feuille 1"], "panels 1 and 2")
    expect(re.fullmatch(r"\d\d:\d\d", panels[2]), f"panel 3 is {panels[2]!r}")
    expect(re.fullmatch(r"\d\d/\d\d/\d{4}", panels[3]), f"panel 4 is {panels[3]!r}")
    same(p.state(TXT)["class"], "Edit", "class of the text")
    same(p.state(MESSAGE)["class"], "Static", "class of the message line")
    expect(not p.shown(CALCULATOR) and p.shown(REPLACE) and p.shown(QUIT), "the buttons")
    expect(not p.state(TXT)["style"] & READ_ONLY, "the sheet can't be written")
    for name in ("aide.txt", "fonction.txt", "travail"):
        expect((p.folder / name).exists(), f"{name} isn't there")


def calculation(p):
    p.start(text="A=3¶B=A*2")
    p.key("Alt+C")
    p.hear("B=A*2 = 6")
    same(p.sheet(), "A=3 = 3\nB=A*2 = 6", "sheet")
    same(p.message(), "B=A*2 = 6", "message")
    same(p.selection(), (18, 18), "cursor")
    p.key("Haut")
    p.key("Fin")
    wait(lambda: p.selection() == (7, 7), "the cursor in line 1")
    p.key("Ctrl+R")
    p.hear("= 3")
    p.key("Ctrl+Entrée")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nZ= 9")


def repeated_message(p):
    """The same words again are another event."""
    p.start(text="12")
    for _ in range(3):
        p.key("Ctrl+G")
    p.hear("colonne 3 ligne 1", " colonne 3 ligne 1  ", "colonne 3 ligne 1")


def messages_together(p):
    """What one command says in several messages is heard in several events, each with its own words. What the
    line of the pass says again is heard with the line alone."""
    p.start(text="1/0")
    p.key("Alt+C")
    p.hear("1/0 = division par 0")
    p.type("¶2+2")
    p.wait_sheet("1/0 = division par 0\n2+2")
    p.key("F5")
    p.hear("Entier", "1/0 = division par 0")


def equal_messages(p):
    """The same words, one key after the other, are two events, the second one padded."""
    p.start(text="A=3")
    p.clip("\u2264")
    p.key("Ctrl+V")
    p.key("Ctrl+V")
    words = "caractère refusé U+2264, ligne 1, colonne 1"
    p.hear(words, f" {words}  ")
    same(p.probe.ask("name", MESSAGE), f" {words}  ", "name of the message line")
    p.key("Ctrl+G")                # nothing more was said before it
    p.hear("colonne 4 ligne 1")


def told_to_the_system(p):
    """The message line is a live region, said after what is being said; names and roles are told."""
    done = subprocess.run(["wine", str(pathlib.Path(BUILD) / "properties.exe")], check=True,
                          capture_output=True, text=True)
    live_setting = "{C12BCD8E-2A8E-4950-8AE7-3625111D58EB}"
    polite, status_bar = 1, 23
    same([json.loads(line) for line in done.stdout.splitlines()],
         [{"window": "line", "whole": True, "property": live_setting, "value": polite},
          {"window": "bar", "whole": True, "property": "name", "value": "Écran"},
          {"window": "bar", "whole": True, "property": "role", "value": status_bar}], "told")
    p.start(text="12")
    p.key("Ctrl+G")
    p.hear("colonne 3 ligne 1")
    same(p.probe.ask("name", MESSAGE), "colonne 3 ligne 1", "name of the message line")


def undo(p):
    """Each way to take back reaches the program's own list, a command's work as one change."""
    p.start(text="A=3¶B=A*2")
    p.key("Alt+C")
    p.hear("B=A*2 = 6")
    for take_back in (lambda: p.key("Ctrl+Z"), lambda: p.key("Alt+Arrière"),
                      lambda: p.probe.ask("undo", TXT), lambda: p.probe.ask("undo_text", TXT)):
        take_back()
        p.hear("B=A*2")
        same(p.sheet(), "A=3\nB=A*2", "sheet")
        p.key("Ctrl+Maj+Z")
        p.hear("B=A*2 = 6")
        same(p.sheet(), "A=3 = 3\nB=A*2 = 6", "sheet")
    p.key("Ctrl+G")                # the keys have done nothing more
    p.hear("colonne 10 ligne 2")
    same(p.sheet(), "A=3 = 3\nB=A*2 = 6", "sheet")
    p.key("Ctrl+Maj+Z")
    p.hear("rien à rétablir")
    same(p.sheet(), "A=3 = 3\nB=A*2 = 6", "sheet")


def undo_of_the_control_menu(p):
    """The menu of the control takes back what the program has noted."""
    p.start(text="A=3")
    p.key("Alt+C")
    p.hear("A=3 = 3")
    p.type("¶x")
    p.wait_sheet("A=3 = 3\nx")
    p.key("Maj+F10")
    p.key("Bas")
    p.key("Entrée")
    p.wait_sheet("A=3 = 3\n")
    p.key("Ctrl+Z")
    p.wait_sheet("A=3 = 3")
    p.key("Ctrl+Z")
    p.wait_sheet("A=3")


def undo_without_keys(p):
    """What the mouse's menu pastes and cuts is taken back by itself, and what was there before stays."""
    p.start(text="A=3")
    p.clip("+4")
    for expected in ("A=3+4", "A=3+4+4"):
        p.probe.ask("paste", TXT)
        p.wait_sheet(expected)
    p.key("Ctrl+Z")
    p.wait_sheet("A=3+4")
    p.key("Ctrl+Z")
    p.wait_sheet("A=3")
    p.key("Ctrl+Maj+Z")
    p.wait_sheet("A=3+4")
    p.type("5")
    p.wait_sheet("A=3+45")
    p.key("Maj+Gauche")
    p.key("Maj+Gauche")
    wait(lambda: p.selection() == (4, 6), "two characters selected")
    p.probe.ask("cut", TXT)
    p.wait_sheet("A=3+")
    p.key("Ctrl+Z")
    p.wait_sheet("A=3+45")
    p.key("Ctrl+Z")
    p.wait_sheet("A=3+4")


def alt_released_first(p):
    """Alt that comes up before C calculates all the same, and opens no menu: what is typed next is typed."""
    p.start(text="2+3")
    p.key("Alt+C", alt_first=True)
    p.hear("2+3 = 5")
    p.type("9")
    p.wait_sheet("2+3 = 59")


def number_modes(p):
    p.start(text="10/4")
    p.key("F5")
    p.wait_sheet("10/4 = 2")
    same(p.panels()[0], "Entier Degré", "panel 1")
    p.key("Ctrl+F7")
    wait(lambda: p.panels()[0] == "Puissance 10 Degré", "panel 1")
    p.key("Maj+F7")
    wait(lambda: p.panels()[0] == "Hexadécimal Degré", "panel 1")
    p.key("F7")
    p.wait_sheet("10/4 = 2.5")
    wait(lambda: p.panels()[0] == "Flottant Degré", "panel 1")


def decimals(p):
    p.start(text="1/3")
    p.key("Ctrl+F5")
    p.wait_box("Nombre de décimal")
    entry = [c for c in p.box()["children"] if c["class"] == "Edit"]
    same([c["text"] for c in entry], ["2"], "what the entry box proposes")
    p.type("101")
    p.key("Entrée")
    p.wait_box("nombre de décimal maximum est de 100")
    p.key("Entrée")
    p.wait_box("Nombre de décimal")
    p.type("4")
    p.key("Entrée")
    p.wait_no_box()
    p.wait_sheet("1/3 = 0.3333")


def angle_view(p):
    p.start(text="SIN(100)")
    p.key("F8")
    wait(lambda: p.shown(DEGREE) and p.focus() == DEGREE, "the options")
    same([p.state(c)["text"] for c in (DEGREE, RADIAN, GRADE)], ["degré", "Radian", "grade"], "options")
    same(p.probe.ask("checked", DEGREE), SELECTED, "degré")
    expect(not p.shown(TXT) and p.shown(ANGLE) and p.shown(QUIT), "what is shown")
    p.key("Bas")
    p.key("Bas")
    wait(lambda: p.focus() == GRADE, "the option grade")
    p.key("Entrée")
    p.wait_sheet("SIN(100) = 1")
    wait(lambda: p.panels()[0] == "Flottant Grade", "panel 1")
    wait(lambda: p.focus() == TXT, "the focus back in the text")
    expect(not p.shown(ANGLE) and p.shown(REPLACE), "what is shown")


def focus_round(p, *controls):
    """Tab goes to each of these controls in turn and back to the first, Maj+Tab the other way."""
    same(p.focus(), controls[0], "the control that has the focus")
    for control in (*controls[1:], controls[0]):
        p.key("Tab")
        wait(lambda: p.focus() == control, f"the focus in {control}")
    for control in (*reversed(controls[1:]), controls[0]):
        p.key("Maj+Tab")
        wait(lambda: p.focus() == control, f"the focus in {control}, backwards")


def tab_order(p):
    """Tab and Maj+Tab reach every control of every view, in order, and never write a tab."""
    p.start(text="A=3")
    focus_round(p, TXT, REPLACE, QUIT)
    same(p.sheet(), "A=3", "sheet")
    p.key("F8")
    wait(lambda: p.focus() == DEGREE, "the options")
    focus_round(p, DEGREE, ANGLE, QUIT)
    p.key("Bas")
    wait(lambda: p.focus() == RADIAN, "the next option")
    focus_round(p, RADIAN, ANGLE, QUIT)
    p.key("Tab")
    p.key("Entrée")                # the button takes the unit and leads back
    wait(lambda: p.panels()[0] == "Flottant Radian", "panel 1")
    wait(lambda: p.focus() == TXT, "the focus back in the text")
    p.choose("O", 9)
    wait(lambda: p.focus() == LIST, "the list of colours")
    focus_round(p, LIST, CALCULATOR, QUIT)
    p.key("Maj+Tab")
    p.key("Espace")                # "Annuler"
    wait(lambda: p.focus() == TXT, "the focus back in the text")
    p.key("Alt+F1")
    p.wait_sheet(data("fonction.txt"))
    focus_round(p, TXT, CALCULATOR, QUIT)
    p.key("Tab")
    p.key("Espace")
    p.wait_sheet("A=3 = 3")
    wait(lambda: p.focus() == TXT, "the focus back in the text")


def colour_view(p):
    p.start()
    p.choose("O", 9)
    wait(lambda: p.shown(LIST) and p.focus() == LIST, "the list")
    lines = p.probe.ask("list", LIST)
    same((len(lines), lines[0], lines[16]),
         (17, "Choisissez une couleur des caractères", "Blanc pur"), "list")
    same((p.state(CALCULATOR)["text"], p.state(QUIT)["text"]), ("OK", "Annuler"), "buttons")
    for _ in range(7):
        p.key("Bas")
    wait(lambda: p.probe.ask("chosen", LIST) == 7, "line 7")
    p.key("Entrée")
    wait(lambda: p.probe.ask("list", LIST)[0] == "Choisissez une couleur d'arrière plan",
         "the second list")
    p.key("Échap")
    wait(lambda: p.shown(TXT) and p.focus() == TXT, "the sheet")
    expect(not p.shown(LIST), "the list is still shown")
    same(p.state(QUIT)["text"], "&Quitter", "button")


def functions_and_guide(p):
    p.start(text="A=3")
    p.key("Alt+F1")
    p.wait_sheet(data("fonction.txt"))
    expect(p.state(TXT)["style"] & READ_ONLY, "the list can be written")
    expect(p.shown(CALCULATOR) and not p.shown(REPLACE), "the buttons")
    p.key("X")
    p.key("Échap")
    p.wait_sheet("A=3")
    wait(lambda: not p.state(TXT)["style"] & READ_ONLY, "the sheet can be written")
    p.wait_message("A=3")
    p.choose("question", 1)
    p.wait_sheet(data("aide.txt"))
    p.key("Échap")
    p.wait_sheet("A=3")
    p.choose("question", 2)
    wait(lambda: p.sheet().startswith("VOXTAB Version"), "the about text")
    p.key("Échap")
    p.wait_sheet("A=3")


def key_help(p):
    p.start(text="A=3")
    p.key("F1")
    p.hear("Aide Mémoire des touches")
    p.wait_sheet("")
    for key, words in (("F7", "Flottant"), ("K", "aucune fonction"), ("K", " aucune fonction  "),
                       ("Alt+C", "calcul de la feuille"), ("Ctrl+S", "enregistrer un fichier"),
                       ("Ctrl+Entrée", "calcul de toutes les lignes en colonne"),
                       ("Ctrl+Maj+S", "enregistrer sous un autre nom"),
                       ("Alt+Gauche", "chaine à gauche"), ("Alt+M", "Remplacement sur le texte"),
                       ("Ctrl+A", "sélection tout"), ("Ctrl+P", "imprimer un fichier"),
                       ("Alt+Q", "quitter la calculatrice")):
        p.key(key)
        p.hear(words)
    same(p.panels()[0], "Flottant Degré", "panel 1")
    p.key("F1")
    p.wait_sheet("A=3")
    p.hear("A=3")


def search_and_replace(p):
    p.start(text="A=3¶B=A+1")
    p.key("F3")
    p.wait_box("Recherche")
    p.type("B=")
    p.key("Entrée")
    p.wait_no_box()
    same(p.selection(), (6, 6), "the cursor at the place found")
    p.key("Ctrl+G")                # the reader reads the line as the text gets the focus; nobody says it again
    p.hear("colonne 2 ligne 2")
    p.key("Maj+F3")
    p.key("Alt+M")
    wait(p.box, "the entry box")
    p.key("Échap")
    p.wait_no_box()


def bookmarks_words_and_lines(p):
    p.start(text="alpha beta¶gamma")
    p.key("Haut")
    p.key("Début")
    p.key("Alt+Droite")
    p.hear("beta")
    wait(lambda: p.selection()[0] == 6, "the cursor at the word")
    p.key("Ctrl+F1")
    p.hear("Pose d'un repère")
    p.key("Ctrl+Y")
    wait(p.box, "the entry box")
    p.type("2")
    p.key("Entrée")
    p.wait_no_box()
    wait(lambda: p.selection()[0] == 12, "the cursor at the start of line 2")
    p.key("Maj+F1")
    wait(lambda: p.selection()[0] == 6, "the cursor at the bookmark")
    p.key("Ctrl+T")
    p.wait_sheet("alpha \ngamma")
    p.key("Ctrl+A")
    wait(lambda: p.selection() == (0, 13), "the whole text selected")


def french_keyboard(p):
    """AltGr types the signs of a French keyboard. Ctrl and Alt with C calculate, as AltGr and C do on a
    real system; Wine gives AltGr no modifiers."""
    subprocess.run(["setxkbmap", "fr"], check=True)
    try:
        p.start()
        for key in ("exclam", "AltGr+parenright", "AltGr+quotedbl", "AltGr+apostrophe",
                    "AltGr+parenleft", "eacute", "agrave", "twosuperior"):
            p.key(key)
        p.wait_sheet("!]#{[éà²")
        p.key("Entrée")
        p.type("7*6")
        p.wait_sheet("!]#{[éà²\n7*6")
        p.key("Ctrl+Alt+C")
        p.wait_sheet("!]#{[éà²\n7*6 = 42")
    finally:
        subprocess.run(["setxkbmap", "us"], check=True)


def clipboard(p):
    p.start(text="A=3¶B=4")
    p.key("Ctrl+A")
    wait(lambda: p.selection() == (0, 8), "the whole text selected")
    p.key("Ctrl+X")
    p.wait_sheet("")
    p.key("Ctrl+V")
    p.wait_sheet("A=3\nB=4")
    p.key("Ctrl+V")
    p.wait_sheet("A=3\nB=4A=3\nB=4")


def pasted_characters(p):
    """What the code page lacks is replaced, or refused with its code."""
    p.start()
    p.clip("A=5\u22123\n2\u03c0")
    p.key("Ctrl+V")
    p.wait_sheet("A=5-3\n2PI")
    p.clip("\u2264")
    p.key("Ctrl+V")
    p.hear("9 caractères collés", "caractère refusé U+2264, ligne 1, colonne 1")
    same(p.sheet(), "A=5-3\n2PI", "sheet")


def faults(p):
    """The place of a fault, its entry in the guide and the way back; messages again; a function from the list."""
    p.start(text="A=3¶2+A*)¶12345678")
    fault = "2+A*) = attend fact: k, var, (: ')"
    p.key("Alt+C")
    p.hear(fault)
    p.key("F12")
    p.hear("ligne 2, colonne 5 : fin parenthèse")
    wait(lambda: p.selection() == (13, 13), "the cursor at the fault")
    p.key("Maj+F12")
    p.hear("lecture seule", "Message : attend fact: k, var, (: '-")
    p.key("Échap")
    p.hear(fault)
    wait(lambda: p.selection() == (13, 13), "the cursor at the fault again")
    p.key("Maj+F11")
    p.hear("pas de ligne en erreur plus haut")
    p.key("F11")
    p.hear("pas de ligne en erreur plus bas")
    p.key("Ctrl+D")
    p.hear(" pas de ligne en erreur plus bas  ")
    p.key("Ctrl+D")
    p.hear("pas de ligne en erreur plus haut")
    p.key("Alt+F1")
    p.hear("lecture seule", data("fonction.txt").split("\n")[0])
    for line in [one for one in data("fonction.txt").split("\n") if one.startswith("SQR")][:2]:
        p.key("s")
        p.hear(line)
    p.key("Entrée")
    p.wait_sheet("A=3 = 3\n2+A*SQRT() = attend fact: k, var, (: ')\n12345678")


def copied_result(p):
    """The bare number is said, spelt and copied; what was copied stays when the program has ended."""
    p.start(text="A=3¶1234567.5")
    p.key("Alt+C")
    p.hear("1234567.5 = 1234567.5")
    p.key("Maj+F2")
    p.hear("1, 2 3 4, 5 6 7 point 5")
    p.key("Ctrl+F2")
    p.hear("copié : 1234567.5")
    p.key("Ctrl+A")
    wait(lambda: p.selection()[0] == 0, "the whole text selected")
    p.key("Ctrl+F2")
    p.hear("2 résultats copiés")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    p.wait_end()
    p.start()
    p.key("Ctrl+V")
    p.wait_sheet("3\n1234567.5")


def findings(p):
    """The check of the sheet goes from one finding to the next; a calculation warns of what is new."""
    product = "ligne 2, signe manquant : 2(A+1) est lu 2, la suite n'est pas calculée ; tapez 2*(A+1)"
    p.start(text="A=3¶2(A+1)¶3+(-2^2)")
    p.key("Ctrl+K")
    p.hear("2 constats, 1 faux probable", product)
    wait(lambda: p.selection() == (6, 6), "the cursor at the finding")
    p.key("F4")
    p.hear("ligne 3, à savoir, signe moins et puissance : 3+(-2^2) vaut -1, la puissance est calculée d'abord ; "
           "tapez 3+((-2)^2)")
    p.key("F4")
    p.hear("pas de constat plus bas")
    p.key("Maj+F4")
    p.hear(product)
    p.key("Alt+C")
    p.hear("2(A+1) = 2", "attention ligne 2")
    p.key("Alt+C")
    p.hear("2(A+1) = 2")
    p.wait_sheet("A=3 = 3\n2(A+1) = 2\n3+(-2^2) = -1")


def large_sheet(p):
    """A sheet beyond 64 KB is shown, calculated and written at its end."""
    lines = [f"{i}+1" for i in range(12000)]
    (p.folder / "grande.VXT").write_bytes("\r\n".join(lines).encode())
    p.start("grande.VXT")
    wait(lambda: len(p.sheet()) == len("\n".join(lines)), "the sheet")
    p.key("Ctrl+Fin")
    wait(lambda: p.selection()[0] > 65536, "the cursor at the end")
    p.type("0")
    p.key("Alt+C")
    p.hear(f"{lines[-1]}0 = {11999 + 10}")
    seen = p.sheet().split("\n")
    same((len(seen), seen[0], seen[-1]), (12000, "0+1 = 1", f"{lines[-1]}0 = {11999 + 10}"), "lines")
    same(p.selection()[0], sum(len(line) + 2 for line in seen) - 2, "cursor")


def fonts(p):
    """The font of the screen: told, asked about, and left as it is on Cancel."""
    p.start(text="A=3")
    p.choose("O", 10)
    p.wait_box("police Courier Taille 15")
    p.key("Entrée")
    p.wait_box("Voulez vous modifier la police de l'écran")
    p.key("Alt+O")
    wait(lambda: (box := p.box()) and any(c["class"] == "ComboBox" for c in box["children"]),
         "the font dialog")
    p.key("Échap")
    p.wait_box("Vous n'avez sélectionné aucune police.")
    p.key("Entrée")
    p.wait_no_box()
    same(p.sheet(), "A=3", "sheet")


def deep_formulas(p):
    """Brackets nested as deep as a formula is long, and a function that calls itself without end."""
    deep = "(" * 16382 + "1" + ")" * 16382
    (p.folder / "profonde.VXT").write_bytes((deep + "\r\nDEFFON=FON(X-1)\r\nA=5").encode())
    p.start("profonde.VXT")
    wait(lambda: p.sheet().endswith("A=5"), "the sheet")
    p.key("Alt+C")
    p.wait_box("28 28sur fon")
    p.key("Entrée")
    p.wait_no_box()
    wait(lambda: p.sheet().endswith("A=5 = 5"), "the result")
    same(p.sheet().split("\n")[0][-8:], ")))) = 1", "the end of the deep formula")


def given_up(p):
    """A short press of Escape gives up a long calculation, and closes not the box that says so."""
    p.start(text="A=3¶AIRX(0,1,1E12)¶SIN(X)¶2+2")
    p.key("Alt+C")
    start = cpu_seconds(p.process.pid)
    wait(lambda: cpu_seconds(p.process.pid) > start + 1, "the calculation")
    p.key("Échap")
    p.wait_box("calcul interrompu")
    p.key("Entrée")
    p.wait_no_box()
    p.type("5")
    wait(lambda: "5" in p.sheet(), "the typed digit")
    same([line[:4] for line in p.sheet().replace("5", "").split("\n")], ["A=3 ", "AIRX", "SIN(", "2+2"], "lines")


run([start, calculation, repeated_message, given_up, messages_together, equal_messages, told_to_the_system, undo,
     undo_of_the_control_menu, undo_without_keys, alt_released_first, number_modes, decimals, angle_view,
     tab_order, colour_view, functions_and_guide, key_help, search_and_replace,
     bookmarks_words_and_lines, french_keyboard, clipboard, pasted_characters, faults, copied_result, findings,
     large_sheet,
     fonts, deep_formulas], BUILD, PLACE)
