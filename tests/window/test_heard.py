"""What a blind user hears: the program with a real screen reader. Each message is spoken once and
stands on the braille line, equal messages in a row are both heard, and the braille line follows the
cursor's line."""
import subprocess
import sys

from pilot import Program, expect, release_keys, same, wait
from reader import Reader

BINARY, PLACE, LIST_MENUS = sys.argv[1:4]
failures = []
heard_commands = 0


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAILED ", what)


def hear_once(p, reader, key, *words):
    """Presses a key; each of the words is spoken once, and shown in braille."""
    global heard_commands
    reader.forget()
    p.key(key)
    heard = reader.hear(lambda h: all(h.count(w) for w in words), 4.0)
    for w in words:
        check(heard.count(w) == 1, f"{key}: {w!r} is heard {heard.count(w)} times in {heard.speech}")
        check(any(w in line for line in heard.braille), f"{key}: {w!r} isn't in {heard.braille}")
    heard_commands += 1
    print(f"{key}: {heard.speech} | {heard.braille[-1:]}")
    return heard


def calculation(p, reader):
    p.type("A=3¶B=A*2¶C=B+1")
    p.wait_sheet("A=3\nB=A*2\nC=B+1")
    h = hear_once(p, reader, "Alt+C", "C=B+1 = 7")
    check(any("Feuille C=B+1 = 7" in line for line in h.braille), f"braille line: {h.braille}")
    hear_once(p, reader, "Alt+C", "C=B+1 = 7")
    hear_once(p, reader, "Alt+C", "C=B+1 = 7")
    hear_once(p, reader, "F5", "Entier", "C=B+1 = 7")
    hear_once(p, reader, "F5", "Entier", "C=B+1 = 7")
    hear_once(p, reader, "Ctrl+F7", "Flottant en puissance de 10")
    hear_once(p, reader, "Maj+F7", "Hexadécimal")
    hear_once(p, reader, "F7", "Flottant", "C=B+1 = 7")
    hear_once(p, reader, "Ctrl+G", "colonne 10 ligne 3")
    hear_once(p, reader, "Ctrl+G", "colonne 10 ligne 3")


def dialogs(p, reader):
    """A box is read; back in the text its line is read once, and a message once."""
    reader.forget()
    p.key("Ctrl+F5")
    h = reader.hear(lambda h: h.count("Nombre de décimal text"), 4.0)
    check(h.count("Nombre de décimal text") == 1, f"entry box: {h.speech}")
    p.wait_dialog()
    hear_once_back(p, reader, "Échap", "C=B+1 = 7")
    reader.forget()
    p.key("F3")
    p.wait_dialog()
    p.type("ZZ")
    h = hear_once_back(p, reader, "Entrée", "C=B+1 = 7")
    check(h.count("introuvable") == 1, f"search: {h.speech}")


def hear_once_back(p, reader, key, line):
    global heard_commands
    reader.forget()
    p.key(key)
    h = reader.hear(lambda h: h.count("Feuille text"), 4.0)
    check(h.count(line) == 1, f"back in the text: {line!r} is heard {h.count(line)} times in {h.speech}")
    heard_commands += 1
    print(f"{key}: {h.speech} | {h.braille[-1:]}")
    return h


def views(p, reader):
    reader.forget()
    p.key("F8")
    h = reader.hear(lambda h: h.count("degré"), 4.0)
    check(h.count("degré") == 1 and "selected radio button" in h.speech, f"angle view: {h.speech}")
    hear_once_back(p, reader, "Échap", "C=B+1 = 7")
    reader.forget()
    p.key("Alt+F1")
    h = reader.hear(lambda h: any(w.startswith("PI ") for w in h.speech), 4.0)
    check(sum(w.startswith("PI ") for w in h.speech) == 1, f"list of functions: {h.speech}")
    hear_once(p, reader, "Échap", "C=B+1 = 7")


def menu(p, reader):
    """A command chosen in the menu: the focus comes back, and the message is heard once."""
    p.key("Alt+O")
    wait(lambda: p.find("menu item", "Nombre entier"), "the menu")
    h = hear_once_back(p, reader, "Entrée", "C=B+1 = 7")
    check(h.count("Entier") == 1, f"menu: {h.speech}")
    hear_once(p, reader, "F7", "Flottant")


def key_help(p, reader):
    """Each command with a key of its own tells what it does."""
    rows = subprocess.run([LIST_MENUS], check=True, capture_output=True, text=True).stdout
    hear_once(p, reader, "F1", "Aide Mémoire des touches")
    for row in rows.splitlines():
        _, _, _, key, words = row.split("\t")
        if key and words:
            hear_once(p, reader, key, words)
    for key, words in (("Alt+C", "calcul de la feuille"), ("Alt+Gauche", "chaine à gauche"),
                       ("Alt+Droite", "chaine à droite"), ("Alt+F1", "Liste des fonctions"),
                       ("Ctrl+Entrée", "calcul de toutes les lignes en colonne"),
                       ("Ctrl+Maj+S", "enregistrer sous un autre nom"),
                       ("Alt+M", "Remplacement sur le texte"), ("K", "aucune fonction"),
                       ("K", "aucune fonction")):
        hear_once(p, reader, key, words)
    hear_once(p, reader, "F1", "C=B+1 = 7")


def main():
    reader = Reader(PLACE)
    program = Program(BINARY, PLACE)
    try:
        program.start()
        reader.hear(lambda h: h.count("Feuille text"), 10)
        for part in (calculation, dialogs, views, menu, key_help):
            part(program, reader)
        same(program.errors(), [], "what the toolkit complains about")
        expect(heard_commands >= 40, f"only {heard_commands} commands were heard")
    finally:
        release_keys()
        program.kill()
        reader.end()
    print(f"{heard_commands} commands heard, {len(failures)} failures")
    raise SystemExit(1 if failures else 0)


main()
