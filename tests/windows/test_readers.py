"""Each message once, by the one way that the reader hears: with a stand-in for JAWS the name of the
control that has the focus changes, without one the message line tells as a live region. What sixty
commands make heard stands in docs/heard-windows.txt; VOXTAB_HEARD names the file to write it to."""
import os
import pathlib
import sys

from pilot import DEGREE, MESSAGE, TXT, expect, run, same, wait
from stand_in import Reader

BUILD, PLACE = sys.argv[1:3]
LIVE, NAME = "live", "name"
TABLE = pathlib.Path(PLACE) / "heard-windows.txt"

SHEET = "A=3¶B=A*2"
# Keys, in turn on one sheet, and the words of the one message of each.
COMMANDS = [
    ("Alt+C", "B=A*2 = 6"), ("Alt+C", " B=A*2 = 6  "), ("Alt+C", "B=A*2 = 6"),
    ("Ctrl+R", "= 6"), ("Ctrl+G", "colonne 10 ligne 2"), ("Ctrl+G", " colonne 10 ligne 2  "),
    ("Ctrl+G", "colonne 10 ligne 2"), ("F2", "B égale A fois 2"), ("F2", "A vaut 3"),
    ("F2", "B égale A fois 2"), ("Ctrl+B", "aucune parenthèse avant le curseur"), ("Ctrl+F1", "Pose d'un repère"),
    ("Ctrl+Z", "B=A*2"), ("Ctrl+Maj+Z", "B=A*2 = 6"), ("Ctrl+Maj+Z", "rien à rétablir"),
    ("F1", "Aide Mémoire des touches"),
    ("Ctrl+N", "nouveau fichier"), ("Ctrl+O", "ouvrir un fichier"),
    ("Maj+F6", "Lecture du fichier ouvert précédent"), ("F6", "Lecture du fichier ouvert suivant"),
    ("Ctrl+S", "enregistrer un fichier"), ("Ctrl+F4", "fermer un fichier"),
    ("Ctrl+P", "imprimer un fichier"), ("Ctrl+L", "Remplacement sur la ligne"),
    ("Ctrl+J", "Remplacement sur la ligne sans entrer les chaines"),
    ("Ctrl+T", "Suppression du mot sous le curseur"), ("Ctrl+R", "Resultat de la ligne"),
    ("F9", "Tabulation avant"), ("Maj+F9", "Tabulation arrière"), ("Ctrl+F1", "Pose d'un repère"),
    ("Maj+F1", "Affichage au repère"), ("Ctrl+G", "coordonnées du curseur"),
    ("Ctrl+Y", "aller à un numéro de ligne"), ("Ctrl+A", "sélection tout"),
    ("F3", "recherche depuis le début du texte"),
    ("Ctrl+E", "recherche en arrière depuis la position du curseur"),
    ("Maj+F3", "recherche précédente"), ("Ctrl+F3", "recherche suivante"), ("F5", "Entier"),
    ("F7", "Flottant"), ("Ctrl+F7", "Flottant en puissance de 10"), ("Maj+F7", "Hexadécimal"),
    ("F8", "Unité d'angle"), ("Ctrl+F5", "nombre de décimal"), ("Alt+C", "calcul de la feuille"),
    ("Alt+R", "Rechercher depuis le curseur"), ("Alt+Gauche", "chaine à gauche"),
    ("Alt+Droite", "chaine à droite"), ("Alt+F1", "Liste des fonctions"),
    ("Ctrl+Entrée", "calcul de toutes les lignes en colonne"),
    ("Ctrl+Maj+S", "enregistrer sous un autre nom"), ("Alt+M", "Remplacement sur le texte"),
    ("Alt+Q", "quitter la calculatrice"), ("K", "aucune fonction"), ("K", " aucune fonction  "),
    ("K", "aucune fonction"), ("F1", "B=A*2 = 6"), ("Ctrl+R", "= 6"),
    ("Ctrl+F1", "Pose d'un repère"), ("Ctrl+G", "colonne 10 ligne 2"), ("Ctrl+Z", "B=A*2"),
    ("Alt+C", "B=A*2 = 6"), ("Ctrl+R", "= 6"), ("Ctrl+G", "colonne 10 ligne 2"),
]


def one_message(p, way, control, words):
    """The next event of all is that one, with these words."""
    heard = p.listener.next(f"the message {words!r}")
    same((heard["event"], heard["id"], heard["name"].strip()), (way, control, words.strip()), "heard")
    same(p.message(), words, "the message line")
    return heard["name"]


def commands(p, way):
    """Each command of the table is heard once. The rows of the table of what is heard."""
    control = TXT if way == NAME else MESSAGE
    rows, last = [], None
    for key, words in COMMANDS:
        p.key(key)
        heard = one_message(p, way, control, words)
        expect(heard != last, f"{key}: the reader finds {heard!r} again, and says nothing")
        last = heard
        rows.append(f"{key:<12} {way:<5} {control}  {words.strip()}")
    return rows


def table(rows):
    """The table as it stands in the project, or where it is to be written."""
    text = "\n".join(["# What readers on Windows are told, each line one event: the key, the event, the control",
                      "# that it comes from, the words. Written by tests/windows/test_readers.py.", *rows, ""])
    if "VOXTAB_HEARD" in os.environ:
        pathlib.Path(os.environ["VOXTAB_HEARD"]).write_text(text, encoding="utf-8")
    return text


ROWS = []


def without_jaws(p):
    """One event of the live region for each message."""
    p.start(text=SHEET)
    ROWS.extend(["", "# NVDA, Narrator: the message line is a live region", *commands(p, LIVE)])


def with_jaws(p):
    """One change of the name of the control that has the focus for each message, and no live region."""
    p.start(text=SHEET)
    with Reader(p, BUILD):
        ROWS.extend(["", "# JAWS, Dolphin: the message is the name of the control that has the focus",
                     *commands(p, NAME)])


def the_table_is_the_one_of_the_project(_):
    expect(len(COMMANDS) >= 60, "sixty commands")
    expect(len(ROWS) == 2 * len(COMMANDS) + 4, "both ways")
    text = table(ROWS)
    expect(TABLE.read_text(encoding="utf-8") == text,
           "docs/heard-windows.txt is another table: VOXTAB_HEARD=$PWD/docs/heard-windows.txt writes it")


def names_come_back(p):
    """A control bears a message only while it has the focus."""
    p.start(text="12")
    with Reader(p, BUILD):
        p.key("Ctrl+G")
        one_message(p, NAME, TXT, "colonne 3 ligne 1")
        same(p.probe.ask("name", TXT), "colonne 3 ligne 1", "name of the sheet")
        p.key("F8")
        wait(lambda: p.focus() == DEGREE, "the options")
        wait(lambda: p.probe.ask("name", TXT) == "Feuille", "the sheet's own name")
        p.key("Échap")
        wait(lambda: p.focus() == TXT, "the focus back in the text")
        p.key("Ctrl+Y")                  # a box takes the focus, and gives it back
        wait(p.box, "the entry box")
        wait(lambda: p.probe.ask("name", TXT) == "Feuille", "the sheet's own name")
        p.key("Échap")
        p.wait_no_box()


def both_libraries(p):
    """The other reader that hears no live region is known by its own library."""
    p.start(text="12")
    with Reader(p, BUILD, "dolwinhk"):
        p.key("Ctrl+G")
        one_message(p, NAME, TXT, "colonne 3 ligne 1")


def messages_together_by_name(p):
    """What one command says in several messages comes in several names."""
    p.start(text="1/0")
    with Reader(p, BUILD):
        p.key("Alt+C")
        first = p.listener.next("the first message")
        same((first["event"], first["id"]), (NAME, TXT), "heard")
        while "1/0 = division par 0" not in first["name"]:
            first = p.listener.next("the line of the pass")
            same((first["event"], first["id"]), (NAME, TXT), "heard")


def quick_keys(p):
    """Keys in a row are heard each with its own words, as many as they say."""
    p.start(text="2+3")
    hear_quick_keys(p, LIVE, MESSAGE)
    with Reader(p, BUILD):
        hear_quick_keys(p, NAME, TXT)


def a_slow_reader(p):
    """A reader that asks for the words of each message with delay finds those words, not the next ones."""
    p.start(text="2+3")
    p.slow_listener(400)
    try:
        hear_quick_keys(p, LIVE, MESSAGE)
        with Reader(p, BUILD):
            hear_quick_keys(p, NAME, TXT)
    finally:
        p.slow_listener(0)


def hear_quick_keys(p, way, control):
    for key in ("F5", "F7", "F5"):
        p.key(key)
    p.key("Ctrl+G")
    heard = []
    while not heard or "colonne" not in heard[-1]:
        event = p.listener.next("the last message")
        same((event["event"], event["id"]), (way, control), "heard")
        heard.append(event["name"].strip())
    modes = [words for words in heard if words in ("Entier", "Flottant")]
    same(modes, ["Entier", "Flottant", "Entier"], "the modes that are heard")


def empty_line(p):
    """An empty line is heard as such, and the message line shows the message as it is."""
    p.start(text="2+3¶")
    p.key("Alt+C")
    heard = p.listener.next("the empty line")
    same((heard["event"], heard["id"], heard["name"]), (LIVE, MESSAGE, "ligne vide"), "heard")
    wait(lambda: p.message().strip() == "", "the empty message line")


def the_reader_comes_later(p):
    """A reader that starts while the program runs is served from the next message on."""
    p.start(text="12")
    p.key("Ctrl+G")
    one_message(p, LIVE, MESSAGE, "colonne 3 ligne 1")
    with Reader(p, BUILD):
        p.key("Ctrl+G")
        one_message(p, NAME, TXT, " colonne 3 ligne 1  ")


def ampersand(p):
    """"&" is heard and shown as it stands, by both ways."""
    no_prefix = 0x80
    p.start(text="!Dupont & fils")
    for library, way, control in (("witness", LIVE, MESSAGE), ("jhook", NAME, TXT)):
        with Reader(p, BUILD, library):
            p.key("Alt+C")
            heard = p.listener.next("the line")
            same((heard["event"], heard["id"], heard["name"].strip()), (way, control, "!Dupont & fils"), "heard")
            same(p.message().strip(), "!Dupont & fils", "the message line")
    expect(p.state(MESSAGE)["style"] & no_prefix, "the message line takes & for the mark of a key")


run([without_jaws, with_jaws, the_table_is_the_one_of_the_project, names_come_back, both_libraries,
     messages_together_by_name, quick_keys, a_slow_reader, empty_line, the_reader_comes_later, ampersand], BUILD, PLACE)
