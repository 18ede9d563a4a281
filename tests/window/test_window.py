"""The window: what it shows at its start, its menus, its views, its keys."""
import os
import re
import subprocess
import sys

from pilot import (Atspi, children, expect, has, role, run, same, showing, text_of, wait, walk)

BINARY, PLACE, LIST_MENUS = sys.argv[1:4]


def buttons(p):
    """The buttons that can be seen, from left to right."""
    return [n.get_name() for n in walk(p.window()) if role(n) == "push button" and showing(n)]


def radios(p):
    return {n.get_name(): n for n in walk(p.window()) if role(n) == "radio button" and showing(n)}


def lines_of_list(p):
    table = p.find("table", "Couleurs")
    return [n.get_name() for n in walk(table) if role(n) == "table cell"]


def start(p):
    p.start()
    same(p.title(), "VOXTAB SANSTITRE.VXT", "title")
    same(p.sheet(), "", "sheet")
    same(p.panel(1), "Flottant Degré", "panel 1")
    same(p.panel(2), "feuille 1", "panel 2")
    expect(re.fullmatch(r"\d\d:\d\d", p.panel(3)), f"panel 3 is {p.panel(3)!r}")
    expect(re.fullmatch(r"\d\d/\d\d/\d{4}", p.panel(4)), f"panel 4 is {p.panel(4)!r}")
    same(buttons(p), ["Modif. texte", "Quitter"], "buttons")
    same(p.focused().get_name(), "Feuille", "focus")
    expect(has(p.text(), Atspi.StateType.EDITABLE), "the sheet can't be written")
    expect(showing(p.text()), "the sheet can't be seen")
    same(p.message(), "", "message")


def binding(item):
    """The shortcut of an item as the menu table tells it."""
    keys = Atspi.Action.get_key_binding(item, 0).split(";")[-1]
    keys = keys.replace("<Primary>", "Ctrl+").replace("<Control>", "Ctrl+").replace("<Shift>", "Maj+")
    parts = keys.split("+")
    return "+".join(parts[:-1] + [parts[-1].upper()]) if parts[-1] else ""


def menus(p):
    """Every menu, caption and shortcut, from the accessibility tree, against the table."""
    p.start()
    rows = subprocess.run([LIST_MENUS], check=True, capture_output=True, text=True).stdout
    table = [row.split("\t")[:4] for row in rows.splitlines()]
    bar = p.find("menu bar")
    names = list(dict.fromkeys(row[0].replace("&", "") for row in table))
    same([menu.get_name() for menu in children(bar)], names, "menus")
    state = {"mnuColonneMatrice": "affichage matrice ligne/colonne : en ligne",
             "mnuLigneStat": "résultat statistique restreint/complet : complet"}
    for menu in children(bar):
        items = [item for item in children(menu) if role(item) != "separator"]
        if menu.get_name() == "Fichier":
            same(items[0].get_name(), "1 SANSTITRE.VXT", "first item of the File menu")
            items = items[1:]
        wanted = [row for row in table if row[0].replace("&", "") == menu.get_name()]
        same([item.get_name() for item in items],
             [state.get(row[1], row[2].replace("&", "")) for row in wanted], "captions")
        same([binding(item) for item in items], [row[3] for row in wanted], "shortcuts")


def calculation(p):
    p.start()
    p.type("A=3¶B=A*2")
    p.wait_sheet("A=3\nB=A*2")
    p.key("Alt+C")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6")
    p.wait_message("B=A*2 = 6")
    same(p.caret(), len("A=3 = 3\nB=A*2 = 6"), "cursor")
    p.key("Haut")
    wait(lambda: p.caret() < 8, "the cursor in line 1")
    p.key("Fin")
    p.key("Ctrl+R")
    p.wait_message("= 3")
    p.key("Ctrl+Entrée")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nZ= 9")


def number_modes(p):
    p.start()
    p.type("10/4")
    p.key("F5")
    p.wait_sheet("10/4 = 2")
    same(p.panel(1), "Entier Degré", "panel 1")
    p.key("Ctrl+F7")
    wait(lambda: p.panel(1) == "Puissance 10 Degré", "panel 1")
    p.key("Maj+F7")
    wait(lambda: p.panel(1) == "Hexadécimal Degré", "panel 1")
    p.key("F7")
    p.wait_sheet("10/4 = 2.5")
    same(p.panel(1), "Flottant Degré", "panel 1")


def decimals(p):
    p.start()
    p.type("1/3")
    p.key("Ctrl+F5")
    box = p.wait_dialog()
    entry = wait(lambda: p.focused(box), "the focus in the box")
    same((entry.get_name(), text_of(entry)), ("Nombre de décimal", "2"), "entry box")
    p.type("101")
    p.key("Entrée")
    wait(lambda: any(role(n) == "label" and text_of(n) == "nombre de décimal maximum est de 100"
                     for n in walk(p.app)), "the box of the limit")
    p.key("Entrée")
    entry = wait(lambda: (d := p.dialog()) and p.focused(d), "the entry box again")
    p.type("4")
    p.key("Entrée")
    p.wait_no_dialog()
    p.wait_sheet("1/3 = 0.3333")


def angle_view(p):
    p.start()
    p.type("SIN(100)")
    p.key("F8")
    options = wait(lambda: radios(p), "the options")
    same(list(options), ["degré", "Radian", "grade"], "options")
    wait(lambda: has(options["degré"], Atspi.StateType.FOCUSED), "the focus in the option")
    expect(has(options["degré"], Atspi.StateType.CHECKED), "degré isn't chosen")
    same(buttons(p), ["Retour à la feuille", "Quitter"], "buttons")
    expect(not showing(p.text()), "the sheet can be seen")
    p.key("Bas")
    p.key("Bas")
    wait(lambda: has(options["grade"], Atspi.StateType.CHECKED), "the option grade")
    p.key("Entrée")
    p.wait_sheet("SIN(100) = 1")
    same(p.panel(1), "Flottant Grade", "panel 1")
    wait(lambda: p.focused().get_name() == "Feuille", "the focus back in the text")
    same(buttons(p), ["Modif. texte", "Quitter"], "buttons")


def colour_view(p):
    p.start()
    p.key("Alt+O")
    for _ in range(9):
        p.key("Bas")
    p.key("Entrée")
    wait(lambda: showing(p.find("table", "Couleurs")), "the list")
    lines = lines_of_list(p)
    same((len(lines), lines[0], lines[16]),
         (17, "Choisissez une couleur des caractères", "Blanc pur"), "list")
    same(buttons(p), ["OK", "Annuler"], "buttons")
    for _ in range(7):
        p.key("Bas")
    p.key("Entrée")
    wait(lambda: lines_of_list(p)[0] == "Choisissez une couleur d'arrière plan", "the second list")
    p.key("Échap")
    wait(lambda: showing(p.text()), "the sheet")
    wait(lambda: p.focused().get_name() == "Feuille", "the focus back in the text")
    same(buttons(p), ["Modif. texte", "Quitter"], "buttons")


def functions_and_guide(p):
    p.start()
    p.type("A=3")
    p.key("Alt+F1")
    wait(lambda: p.sheet().startswith("PI "), "the list of functions")
    same(len(p.sheet().split("\n")), 41, "number of functions")
    expect(not has(p.text(), Atspi.StateType.EDITABLE), "the list can be written")
    same(buttons(p), ["Calculatrice", "Quitter"], "buttons")
    p.key("X")
    p.key("Échap")
    p.wait_sheet("A=3")
    expect(has(p.text(), Atspi.StateType.EDITABLE), "the sheet can't be written")
    p.wait_message("A=3")
    p.key("Alt+question")
    p.key("G")
    wait(lambda: p.sheet().startswith("VOXTAB, calculatrice"), "the guide")
    p.key("Échap")
    p.wait_sheet("A=3")


def key_help(p):
    p.start()
    p.type("A=3")
    p.key("F1")
    p.wait_message("Aide Mémoire des touches")
    p.wait_sheet("")
    for key, words in (("F7", "Flottant"), ("K", "aucune fonction"), ("Alt+C", "calcul de la feuille"),
                       ("Ctrl+S", "enregistrer un fichier"), ("Ctrl+Entrée",
                       "calcul de toutes les lignes en colonne"),
                       ("Ctrl+Maj+S", "enregistrer sous un autre nom")):
        p.key(key)
        p.wait_message(words)
    same(p.panel(1), "Flottant Degré", "panel 1")
    p.key("F1")
    p.wait_sheet("A=3")
    p.wait_message("A=3")


def refused_characters(p):
    p.start()
    p.type("A=5−3¶2π")
    p.wait_sheet("A=5-3\n2PI")
    p.type("≤")
    p.wait_message("caractère refusé U+2264")
    same(p.sheet(), "A=5-3\n2PI", "sheet")


def french_keyboard(p):
    """AltGr types the signs of a French keyboard, and with C it calculates."""
    p.start()
    subprocess.run(["setxkbmap", "fr"], check=True)
    try:
        p.type("!")
        for key in ("AltGr+parenright", "AltGr+quotedbl", "AltGr+apostrophe", "AltGr+eacute"):
            p.key(key)
        p.type("¶7*6")
        p.wait_sheet("!]#{~\n7*6")
        p.key("AltGr+C")
        p.wait_sheet("!]#{~\n7*6 = 42")
    finally:
        subprocess.run(["setxkbmap", "us"], check=True)


def clipboard(p):
    p.start()
    p.type("A=3¶B=4")
    p.key("Ctrl+A")
    p.key("Ctrl+X")
    p.wait_sheet("")
    p.key("Ctrl+V")
    p.wait_sheet("A=3\nB=4")
    p.key("Ctrl+V")
    p.wait_sheet("A=3\nB=4A=3\nB=4")


def no_display(p):
    """Without a display: one French sentence and status 1."""
    env = {name: value for name, value in os.environ.items()
           if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    done = subprocess.run([BINARY], env=env, capture_output=True, text=True, check=False)
    same(done.returncode, 1, "exit status")
    expect("aucun écran" in done.stderr, f"it says {done.stderr!r}")
    p.log.write_text("", encoding="utf-8")


run([start, menus, calculation, number_modes, decimals, angle_view, colour_view,
     functions_and_guide, key_help, refused_characters, french_keyboard, clipboard, no_display], BINARY, PLACE)
