"""The window: what it shows at its start, its menus, its views, its number modes, its key help."""
import re
import subprocess
import sys

from pilot import (Atspi, children, expect, has, role, run, same, showing, wait, wait_same, walk)
from texts import FUNCTIONS, GUIDE

BINARY, PLACE, LIST_MENUS = sys.argv[1:4]

ABOUT = ("VOXTAB Version 2.02\nDécembre 2008\nL'équipe Voxtab\n"
         "Contact : voir le fichier lisezmoi.txt")


def menu_table():
    """Rows of the menu table: menu, name, caption, shortcut, words of the key help."""
    rows = subprocess.run([LIST_MENUS], check=True, capture_output=True, text=True).stdout
    return [row.split("\t") for row in rows.splitlines()]


def radios(p):
    return {n.get_name(): n for n in walk(p.window()) if role(n) == "radio button" and showing(n)}


def option_has(p, name, state):
    option = radios(p).get(name)
    return option is not None and has(option, state)


def start(p):
    p.start()
    wait_same(p.title, "VOXTAB SANSTITRE.VXT", "title")
    same(p.sheet(), "", "sheet")
    wait_same(lambda: p.panel(1), "Flottant Degré", "panel 1")
    wait_same(lambda: p.panel(2), "feuille 1", "panel 2")
    expect(re.fullmatch(r"\d\d:\d\d", p.panel(3)), f"panel 3 is {p.panel(3)!r}")
    expect(re.fullmatch(r"\d\d/\d\d/\d{4}", p.panel(4)), f"panel 4 is {p.panel(4)!r}")
    wait_same(p.buttons, ["Modif. texte", "Quitter"], "buttons")
    wait_same(p.focus_name, "Feuille", "focus")
    wait(lambda: has(p.text(), Atspi.StateType.EDITABLE), "the sheet can't be written")
    wait(lambda: showing(p.text()), "the sheet can't be seen")
    same(p.message(), "", "message")
    same(p.dialog(), None, "box")


def binding(item):
    """The shortcut of an item as the menu table tells it."""
    keys = Atspi.Action.get_key_binding(item, 0).split(";")[-1]
    keys = keys.replace("<Primary>", "Ctrl+").replace("<Control>", "Ctrl+").replace("<Shift>", "Maj+")
    parts = keys.split("+")
    return "+".join(parts[:-1] + [parts[-1].upper()]) if parts[-1] else ""


def menus(p):
    """Every menu, caption and shortcut, from the accessibility tree, against the table."""
    p.start()
    table = [row[:4] for row in menu_table()]
    expect(len(table) >= 50, f"only {len(table)} items in the table")
    names = list(dict.fromkeys(row[0].replace("&", "") for row in table))
    same([menu.get_name() for menu in children(p.menu_bar())], names, "menus")
    state = {"mnuColonneMatrice": "affichage matrice ligne/colonne : en ligne",
             "mnuLigneStat": "résultat statistique restreint/complet : complet",
             "mnuSonItem": "Son à la fin du calcul : non",
             "mnuAttentionItem": "Attention après le calcul : oui"}
    for menu in children(p.menu_bar()):
        items = [item for item in children(menu) if role(item) != "separator"]
        if menu.get_name() == "Fichier":
            same(items[0].get_name(), "1 SANSTITRE.VXT", "first item of the File menu")
            items = items[1:]
        wanted = [row for row in table if row[0].replace("&", "") == menu.get_name()]
        same([item.get_name() for item in items],
             [state.get(row[1], row[2].replace("&", "")) for row in wanted], "captions")
        same([binding(item) for item in items], [row[3] for row in wanted], "shortcuts")
        marks = [row[1] for item, row in zip(items, wanted) if role(item) == "check menu item"]
        same(marks, ["mnuDerniereFeuilleItem"] if menu.get_name() == "Options" else [], "check items")


def every_menu_by_keyboard(p):
    """F10 opens the first menu, and the arrows lead through every menu and every item; Escape leads back to
    the text."""
    p.start()
    p.key("F10")
    seen = []
    for menu in children(p.menu_bar()):
        wait(lambda m=menu: has(m, Atspi.StateType.SELECTED), f"the menu {menu.get_name()}")
        seen.append(menu.get_name())
        names = [n.get_name() for n in children(menu) if role(n) != "separator" and
                 has(n, Atspi.StateType.SENSITIVE)]
        for name in names:
            wait_same(lambda m=menu: p.chosen(m), name, "item")
            p.key("Bas")
        p.key("Droite")
    same(len(seen), 7, "menus")
    p.key("Échap")
    p.key("Échap")
    p.wait_text()


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


def an_error_in_a_line(p):
    """The error's words stand after the line and in the message line; the rest is left as it is."""
    p.start()
    p.type("A=3¶B=A/0¶C=4")
    p.key("Alt+C")
    p.wait_message("B=A/0 = division par 0")
    lines = p.sheet().split("\n")
    same(lines, ["A=3 = 3", "B=A/0 = division par 0", "C=4"], "lines")


def number_modes(p):
    p.start()
    p.type("10/4")
    for key, result, panel in (("F5", "10/4 = 2", "Entier Degré"),
                               ("Ctrl+F7", "10/4 = 2.5E00", "Puissance 10 Degré"),
                               ("Maj+F7", "10/4 = 2", "Hexadécimal Degré"),
                               ("F7", "10/4 = 2.5", "Flottant Degré")):
        p.key(key)
        p.wait_sheet(result)
        wait_same(lambda: p.panel(1), panel, "panel 1")


def decimals(p):
    p.start()
    p.type("1/3")
    p.key("Ctrl+F5")
    p.entry("Nombre de décimal", "2", "101")
    p.close_box("nombre de décimal maximum est de 100")
    p.entry("Nombre de décimal", "2", "4")
    p.wait_text()
    p.wait_sheet("1/3 = 0.3333")
    p.key("Ctrl+F5")
    p.wait_entry("Nombre de décimal", "4")
    p.key("Échap")
    p.wait_text()
    p.wait_sheet("1/3 = 0.3333")


def layouts(p):
    """The two items that tell their state in their caption, and the one with a check mark."""
    p.start()
    for caption, message in (("affichage matrice ligne/colonne : en ligne", "en colonne"),
                             ("affichage matrice ligne/colonne : en colonne", "en ligne"),
                             ("résultat statistique restreint/complet : complet", "affichage restreint"),
                             ("Résultat statistique restreint/complet : restreint", "affichage complet")):
        p.menu("O", caption)
        p.wait_text()
        p.wait_message(message)
    names = [n.get_name() for menu in children(p.menu_bar()) for n in children(menu)]
    expect("Résultat statistique restreint/complet : complet" in names, f"captions: {names}")
    mark = next(n for menu in children(p.menu_bar()) for n in children(menu)
                if role(n) == "check menu item")
    expect(not has(mark, Atspi.StateType.CHECKED), "the item has its mark already")
    p.menu("O", "Affichage dernière feuille au lancement")
    p.wait_text()
    wait(lambda: has(mark, Atspi.StateType.CHECKED), "the mark")


def angle_view(p):
    p.start()
    p.type("SIN(100)")
    p.key("F8")
    wait_same(lambda: list(radios(p)), ["degré", "Radian", "grade"], "options")
    options = radios(p)
    wait(lambda: has(options["degré"], Atspi.StateType.FOCUSED), "the focus in the option")
    wait(lambda: has(options["degré"], Atspi.StateType.CHECKED), "degré isn't chosen")
    wait_same(p.buttons, ["Retour à la feuille", "Quitter"], "buttons")
    wait(lambda: not showing(p.text()), "the sheet can be seen")
    p.key("Bas")
    p.key("Bas")
    wait(lambda: has(options["grade"], Atspi.StateType.CHECKED), "the option grade")
    p.key("Entrée")
    p.wait_sheet("SIN(100) = 1")
    wait_same(lambda: p.panel(1), "Flottant Grade", "panel 1")
    p.wait_text()
    wait_same(p.buttons, ["Modif. texte", "Quitter"], "buttons")
    p.key("F8")                       # and left by its button, reached with Tab
    wait(lambda: option_has(p, "grade", Atspi.StateType.FOCUSED), "the focus in the option")
    p.key("Haut")
    wait(lambda: option_has(p, "Radian", Atspi.StateType.CHECKED), "the option Radian")
    p.key("Tab")
    wait_same(p.focus_name, "Retour à la feuille", "focus")
    p.key("Espace")
    p.wait_text()
    wait_same(lambda: p.panel(1), "Flottant Radian", "panel 1")


def functions_guide_and_about(p):
    p.start()
    p.type("A=3")
    for open_it, text in ((lambda: p.key("Alt+F1"), FUNCTIONS),
                          (lambda: p.menu("question", "Guide"), GUIDE),
                          (lambda: p.menu("question", "A propos"), ABOUT)):
        open_it()
        p.wait_sheet(text)
        p.wait_text()
        p.wait_message(text.split("\n")[0])
        wait(lambda: not has(p.text(), Atspi.StateType.EDITABLE), "the text can be written")
        wait_same(p.buttons, ["Calculatrice", "Quitter"], "buttons")
        before = p.sheet()
        p.type("X")
        same(p.sheet(), before, "text")
        p.key("Échap")
        p.wait_sheet("A=3")
        p.wait_text()
        wait(lambda: has(p.text(), Atspi.StateType.EDITABLE), "the sheet can't be written")
        p.wait_message("A=3")
        wait_same(p.buttons, ["Modif. texte", "Quitter"], "buttons")


def about_words(p):
    p.start()
    p.menu("question", "A propos")
    p.wait_sheet(ABOUT)


def key_help(p):
    """Every item with a key tells what it does and does nothing; so do the keys of the text."""
    p.start()
    p.type("A=3")
    p.key("F1")
    p.wait_message("Aide Mémoire des touches")
    p.wait_sheet("")
    keys = [(row[3], row[4]) for row in menu_table() if row[3] and row[4]]
    expect(len(keys) >= 25, f"only {len(keys)} keys in the table")
    keys += [("Alt+C", "calcul de la feuille"), ("AltGr+C", "calcul de la feuille"),
             ("Alt+R", "Rechercher depuis le curseur"), ("Alt+Gauche", "chaine à gauche"),
             ("Alt+Droite", "chaine à droite"), ("Alt+F1", "Liste des fonctions"),
             ("Ctrl+Entrée", "calcul de toutes les lignes en colonne"),
             ("Ctrl+Maj+S", "enregistrer sous un autre nom"), ("Alt+M", "Remplacement sur le texte"),
             ("Alt+Q", "quitter la calculatrice"), ("K", "aucune fonction")]
    for key, words in keys:
        if key == "F1":
            continue
        p.key(key)
        wait_same(lambda: p.message().strip(), words, f"words of {key}")
        same((p.dialog(), p.sheet(), p.panel(1)), (None, "", "Flottant Degré"), f"after {key}")
    for key in ("Fin", "Maj", "Ctrl"):
        p.key(key)
        same(p.message().strip(), "aucune fonction", f"words of {key}")
    p.key("F1")
    p.wait_sheet("A=3")
    p.wait_message("A=3")
    p.type("4")
    p.wait_sheet("A=34")


def escape_in_the_sheet(p):
    """Escape does nothing there, and the sheet isn't changed by it."""
    p.start()
    p.key("Échap")
    wait_same(p.buttons, ["Modif. texte", "Quitter"], "buttons")
    p.key("Alt+Q")
    same(p.wait_end(), 0, "exit status")


run([start, menus, every_menu_by_keyboard, calculation, an_error_in_a_line, number_modes, decimals,
     layouts, angle_view, functions_guide_and_about, about_words, key_help, escape_in_the_sheet],
    BINARY, PLACE)
