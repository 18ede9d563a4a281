"""What a blind user hears: the program with a real screen reader. Each message is spoken once and
stands on the braille line, equal messages in a row are both heard, nothing is said twice, and the
braille line follows the cursor's line. Every command of the six menus, dialog, alert and view is a row of
one run: the key, the words expected, heard once each, the braille line.   VOXTAB_HEARD=FILE writes the
rows into that file."""
import os
import subprocess
import sys

from pilot import Program, expect, same, wait_same
from reader import Reader

BINARY, PLACE, LIST_MENUS = sys.argv[1:4]
# What the reader says of keys themselves, and the names of the window and of its text when the focus
# comes back.
KEY_NAMES = ("left alt", "left control", "left shift", "right alt", "return", "escape", "tab", "space",
             "delete", "backspace", "up", "down", "left", "right", "page up", "page down", "home", "end")
failures = []
last_said = []
rows = []        # key, what was spoken, the last braille line
expected = {}    # number of a row: the words that were expected once
commands = 0


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAILED ", what, flush=True)


def is_key(words):
    return words in KEY_NAMES or len(words) == 1 or words in [f"F{n}" for n in range(1, 13)]


def said_of(heard):
    """What was spoken but for the names of keys."""
    return [words.strip() for words in heard.speech if words.strip() and not is_key(words)]


def begin(reader):
    """Before a key: nothing of what the last one made the reader say may come again."""
    late = [words for words in said_of(reader.heard()) if words in last_said]
    check(not late, f"heard once more, later: {late}")


def note(p, reader, key, heard, box=None):
    """Writes down what a key made the reader say; nothing but names of keys may come twice. A box that the
    window manager of the test takes the keyboard from, and gives it back, is read when it comes back: that
    is the manager's doing on a busy machine, and counted. The result: what was said, how often it came."""
    global commands
    commands += 1
    p.answered()
    rest = reader.heard()
    said = said_of(heard) + said_of(rest)
    comings = 1 + (heard.left + rest.left).count(box)
    braille = (heard.braille + rest.braille)[-1:]
    print(f"{key}: {said} | {braille}", flush=True)
    rows.append((key, said, braille))
    last_said[:] = said
    plain = [words.rstrip(".") for words in said]
    check(all(plain.count(words) <= comings for words in plain), f"{key}: something is heard twice in {said}")
    return plain, comings


def hear(p, reader, key, *words):
    """Presses a key; the words are spoken, in this order and nothing else, and shown in braille."""
    begin(reader)
    p.key(key)
    heard = reader.wait_for(lambda h: all(h.count(w) for w in words), f"{key}: {words}")
    for w in words:
        check(any(w in line for line in heard.braille), f"{key}: {w!r} isn't in braille {heard.braille}")
    said, _ = note(p, reader, key, heard)
    expected[len(rows) - 1] = words
    check(said == [w.strip().rstrip(".") for w in words], f"{key}: expected {list(words)}, heard {said}")
    return heard


def hear_back(p, reader, key, line, *words, name="Feuille text"):
    """Presses a key that leads back to the text: its line is read once, and so are the words."""
    begin(reader)
    p.key(key)
    p.wait_text()
    wanted = (name, line, *words)
    heard = reader.wait_for(lambda h: all(h.count(w) for w in wanted), f"{key}: {wanted}")
    check(any(line in b for b in heard.braille), f"{key}: {line!r} isn't in braille {heard.braille}")
    said, _ = note(p, reader, key, heard)
    expected[len(rows) - 1] = (line, *words)
    for w in words:
        check(any(w in b for b in heard.braille), f"{key}: {w!r} isn't in braille {heard.braille}")
    for w in wanted:
        check(said.count(w) == 1, f"{key}: {w!r} is heard {said.count(w)} times in {said}")


def hear_box(p, reader, key, words):
    """Presses a key that opens a box or a view: its words are read once."""
    begin(reader)
    p.key(key)
    heard = reader.wait_for(lambda h: any(words in said for said in h.speech), f"{key}: {words}")
    said, comings = note(p, reader, key, heard, words)
    expected[len(rows) - 1] = (words,)
    first = words.removesuffix(" text")
    check(any(first in b for b in heard.braille), f"{key}: {first!r} isn't in braille {heard.braille}")
    times = sum(words in one for one in said)
    check(times == comings, f"{key}: {words!r} is heard {times} times in {said}")


def calculation(p, reader):
    p.type("A=3¶B=A*2¶C=B+1")
    p.wait_sheet("A=3\nB=A*2\nC=B+1")
    h = hear(p, reader, "Alt+C", "C=B+1 = 7")
    check(any("Feuille C=B+1 = 7" in line for line in h.braille),
          f"the braille line hasn't followed the cursor's line: {h.braille}")
    hear(p, reader, "Alt+C", "C=B+1 = 7")
    hear(p, reader, "Alt+C", "C=B+1 = 7")
    hear(p, reader, "F5", "Entier", "C=B+1 = 7")
    hear(p, reader, "F5", "Entier", "C=B+1 = 7")
    hear(p, reader, "Ctrl+F7", "Flottant en puissance de 10", "C=B+1 = 7.E00")
    hear(p, reader, "Maj+F7", "Hexadécimal", "C=B+1 = 7")
    hear(p, reader, "F7", "Flottant", "C=B+1 = 7")
    hear(p, reader, "Ctrl+G", "colonne 10 ligne 3")
    hear(p, reader, "Ctrl+G", "colonne 10 ligne 3")
    hear(p, reader, "Alt+C", "C=B+1 = 7")
    hear(p, reader, "Ctrl+R", "= 7")
    hear(p, reader, "Ctrl+F1", "Pose d'un repère")


def dialogs(p, reader):
    """A box is read; back in the text its line is read once, and a message once."""
    hear_box(p, reader, "Ctrl+F5", "Nombre de décimal text")
    p.wait_dialog()
    hear_back(p, reader, "Échap", "C=B+1 = 7")
    hear_box(p, reader, "F3", "Recherche text")
    p.wait_dialog()
    p.type("ZZ")
    hear_back(p, reader, "Entrée", "C=B+1 = 7", "introuvable")
    p.type("X")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nC=B+1 = 7X")
    hear_box(p, reader, "Alt+Q", "enregistrer sur SANSTITRE.VXT ?")
    p.wait_dialog()
    hear_back(p, reader, "Échap", "C=B+1 = 7X")
    p.key("Arrière")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nC=B+1 = 7")


def views(p, reader):
    hear_box(p, reader, "F8", "degré")
    hear_back(p, reader, "Échap", "C=B+1 = 7", "Degré")
    hear(p, reader, "Alt+F1", "lecture seule", first_function(p))
    hear(p, reader, "X", "lecture seule")
    hear(p, reader, "Échap", "C=B+1 = 7")


def first_function(p):
    """The first line of the list of functions that lies beside the program."""
    return (p.folder / "data" / "fonction.txt").read_text(encoding="utf-8").splitlines()[0].strip()


def menu(p, reader):
    """A command chosen in the menu: the focus comes back, and the message is heard once."""
    p.key("Alt+O")
    wait_same(lambda: (m := p.open_menu()) and p.chosen(m), "Nombre entier", "item")
    hear_back(p, reader, "Entrée", "C=B+1 = 7", "Entier")
    hear(p, reader, "F7", "Flottant", "C=B+1 = 7")
    menu_moves_cursor(p, reader)


def menu_moves_cursor(p, reader):
    """A command of the menu that moves the cursor or brings another text is heard as well."""
    p.key("Alt+O")
    wait_same(lambda: (m := p.open_menu()) and p.chosen(m), "Nombre entier", "item")
    p.key("Bas", 2)
    wait_same(lambda: p.chosen(p.open_menu()), "Nombre en puissance de 10", "item")
    hear_back(p, reader, "Entrée", "C=B+1 = 7.E00", "Flottant en puissance de 10")
    hear(p, reader, "F7", "Flottant", "C=B+1 = 7")
    p.key("Menu")
    p.key("Gauche")
    p.key("Haut", 2)
    wait_same(lambda: (m := p.open_menu()) and p.chosen(m), "Guide", "item")
    hear_back(p, reader, "Entrée", "GUIDE DE VOXTAB, la calculatrice en forme de feuille de texte",
              "lecture seule", name="Feuille read only text")
    hear(p, reader, "Échap", "C=B+1 = 7")


def choose(p, letter, caption, steps=40):
    """Goes to an item of a menu, not yet chosen."""
    p.key(f"Alt+{letter}")
    for _ in range(steps):
        menu = p.open_menu()
        if menu is not None and (p.chosen(menu) or "").startswith(caption):
            return
        p.key("Bas")
    raise RuntimeError(f"no item {caption}")


def options(p, reader):
    """The items of the Options menu without a key: what is set is heard, once."""
    for caption, words in (("affichage matrice", "en colonne"), ("affichage matrice", "en ligne"),
                           ("résultat statistique", "affichage restreint"),
                           ("Résultat statistique", "affichage complet")):
        choose(p, "O", caption)
        hear_back(p, reader, "Entrée", "C=B+1 = 7", words)
    for _ in range(2):
        choose(p, "O", "Affichage dernière feuille")
        hear_back(p, reader, "Entrée", "C=B+1 = 7")


def colours(p, reader):
    """Both steps of the colours are heard, then what is set; the same colour twice is an alert."""
    choose(p, "O", "Choix de la couleur")
    hear_box(p, reader, "Entrée", "Choisissez une couleur des caractères")
    hear(p, reader, "Bas", "Noir")
    hear(p, reader, "V", "Vert")
    hear(p, reader, "Entrée", "Choisissez une couleur d'arrière plan")
    hear(p, reader, "B", "Bleu")
    hear_back(p, reader, "Entrée", "C=B+1 = 7", "caractères Vert, arrière plan Bleu")
    choose(p, "O", "Choix de la couleur")
    hear_box(p, reader, "Entrée", "Choisissez une couleur des caractères")
    hear_back(p, reader, "Échap", "C=B+1 = 7")


def movement(p, reader):
    """The commands of the sheet that move, search and change."""
    hear(p, reader, "Maj+F1", "C=B+1 = 7")
    hear_box(p, reader, "Ctrl+Y", "Numéro de ligne text")
    p.wait_dialog()
    p.type("2")
    hear_back(p, reader, "Entrée", "B=A*2 = 6")
    hear_box(p, reader, "F3", "Recherche text")
    p.wait_dialog()
    p.type("C=")
    hear_back(p, reader, "Entrée", "C=B+1 = 7")
    hear(p, reader, "Ctrl+F3", "introuvable")


def documents(p, reader):
    """New, Next, Previous and Close: the name is heard once, with the title."""
    hear_box(p, reader, "Ctrl+N", "un seul fichier SANSTITRE autorisé")
    p.wait_dialog()
    hear_back(p, reader, "Entrée", "C=B+1 = 7")
    hear(p, reader, "F6", "un seul fichier")
    hear(p, reader, "Maj+F6", "un seul fichier")
    choose(p, "F", "1 SANSTITRE.VXT")
    hear_back(p, reader, "Entrée", "C=B+1 = 7", "1 SANSTITRE.VXT")


def buttons(p, reader):
    """Every control is reached with Tab and left with Escape."""
    for times, words in ((1, "Modif. texte push button"), (2, "Quitter push button")):
        p.key("Tab", times - 1)
        hear_box(p, reader, "Tab", words.split(" push")[0])
        hear_back(p, reader, "Échap", "C=B+1 = 7")


def about(p, reader):
    p.key("Menu")
    p.key("Gauche")
    p.key("Haut")
    wait_same(lambda: (m := p.open_menu()) and p.chosen(m), "A propos", "item")
    hear_back(p, reader, "Entrée", "VOXTAB Version 2.02", "lecture seule",
              name="Feuille read only text")
    hear(p, reader, "Échap", "C=B+1 = 7")


def key_help(p, reader):
    """Each command with a key of its own tells what it does."""
    rows = subprocess.run([LIST_MENUS], check=True, capture_output=True, text=True).stdout
    hear(p, reader, "F1", "Aide Mémoire des touches")
    for row in rows.splitlines():
        _, _, _, key, words = row.split("\t")
        if key and words:
            hear(p, reader, key, words)
    for key, words in (("Alt+C", "calcul de la feuille"), ("Alt+R", "Rechercher depuis le curseur"),
                       ("Alt+Gauche", "chaine à gauche"), ("Alt+Droite", "chaine à droite"),
                       ("Alt+F1", "Liste des fonctions"),
                       ("Ctrl+Entrée", "calcul de toutes les lignes en colonne"),
                       ("Ctrl+Maj+S", "enregistrer sous un autre nom"),
                       ("Alt+M", "Remplacement sur le texte"), ("Alt+Q", "quitter la calculatrice"),
                       ("K", "aucune fonction"), ("K", "aucune fonction")):
        hear(p, reader, key, words)
    hear(p, reader, "F1", "C=B+1 = 7")


def write_record():
    if not os.environ.get("VOXTAB_HEARD"):
        return
    with open(os.environ["VOXTAB_HEARD"], "w", encoding="utf-8") as out:
        out.write("# What is heard: one run of the window's test with Orca 43, in its English.\n"
                  "# key | words expected, heard once each | all that was spoken but the names of keys "
                  "| the last braille line\n")
        for number, (key, said, braille) in enumerate(rows):
            words = "; ".join(expected.get(number, ()))
            out.write(f"{key} | {words} | {'; '.join(said)} | {''.join(braille).strip()}\n")


def main():
    reader = Reader(PLACE)
    program = Program(BINARY, PLACE)
    try:
        program.start()
        reader.wait_for(lambda h: h.count("Feuille text"), "the text")
        for part in (calculation, dialogs, views, menu, options, colours, about, buttons, documents,
                     key_help, movement):
            part(program, reader)
        same(program.errors(), [], "what the toolkit complains about")
        expect(commands >= 90, f"only {commands} commands were heard")
    finally:
        program.screen.release_all()
        program.kill()
        reader.end()
    write_record()
    print(f"{commands} commands heard, {len(failures)} failures")
    raise SystemExit(1 if failures else 0)


main()
