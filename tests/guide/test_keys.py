"""The guide's list of keys is the menu table, in its order, each command explained below its line; and
the keys that stand in no menu are told too.   test_keys.py PRINTED_MENU_TABLE"""
import subprocess
import sys

from texts import chapter, read

# Commands whose caption has no shortcut of the menu, but which a key of the text or a button reaches.
IN_CAPTION = {"mnuEnregistrerSousItem", "mnuCalculItem", "mnuCalculColonneItem", "mnumodifTexteItem",
              "mnuFonctionItem", "mnuChaineGaucheItem", "mnuChaineDroiteItem", "mnuRechercherCurseurItem",
              "mnuAnnulerItem", "mnuRetablirItem"}
BY_BUTTON = {"mnuQuitterItem": "Alt+Q"}
# The keys that the text and the views take themselves.
WITHOUT_MENU = ["Alt+C", "Ctrl+Entrée", "Ctrl+Maj+S", "Alt+F1", "Alt+Flèche gauche", "Alt+Flèche droite",
                "Alt+R", "Alt+M", "Alt+Q", "Échap", "Entrée", "Ctrl+C, Ctrl+X et Ctrl+V", "Ctrl+Z",
                "Ctrl+Maj+Z"]


def caption(text: str) -> str:
    return text.replace("&", "")


def key_line(name: str, words: str, shortcut: str) -> str:
    """The line of a command in the guide."""
    shortcut = BY_BUTTON.get(name, shortcut)
    if name in IN_CAPTION:
        return caption(words)
    return f"{caption(words)} : {shortcut or 'sans touche'}"


def menu_faults(rows: list[list[str]], lines: list[str]) -> list[str]:
    """Every line of the table, in its order, with an explanation that is no command's line itself."""
    wanted, menu = [], ""
    for of_menu, name, words, shortcut, _ in rows:
        if of_menu != menu:
            menu = of_menu
            wanted.append(f"Menu {caption(menu)}")
        wanted.append(key_line(name, words, shortcut))
    faults, place = [], 0
    for line in wanted:
        if line not in lines[place:]:
            faults.append(f"aide.txt: not told, or not in the menu's order: {line}")
            continue
        place = lines.index(line, place) + 1
        if not line.startswith("Menu ") and (place >= len(lines) or not lines[place] or lines[place] in wanted):
            faults.append(f"aide.txt: not explained: {line}")
    claimed = [line for line in lines if line.endswith(" : sans touche")]
    return faults + [f"aide.txt: no command of a menu: {line}" for line in claimed if line not in wanted]


def main() -> int:
    table = subprocess.run([sys.argv[1]], check=True, capture_output=True, text=True, encoding="utf-8").stdout
    rows = [line.split("\t") for line in table.splitlines()]
    lines = read("data/aide.txt")
    faults = menu_faults(rows, chapter(lines, "les menus et leurs touches"))
    others = chapter(lines, "les touches sans menu")
    faults += [f"aide.txt: {key} isn't told" for key in WITHOUT_MENU
               if not any(line.startswith((f"{key} :", f"{key} ou ")) for line in others)]
    if len(rows) < 40:
        faults.append(f"only {len(rows)} rows in the menu table")
    print("\n".join(faults + [f"{len(rows)} commands, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
