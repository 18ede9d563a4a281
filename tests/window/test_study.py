"""What a blind user hears of a function: its study, read with the arrows, and its curve where no device is."""
import sys

from hearing import FLASH, Hearing
from pilot import Program, same
from reader import Reader

BINARY, PLACE = sys.argv[1:3]


def study(p, h):
    """The study is announced, each line is read as the arrow comes to it, Escape leads back to the function."""
    p.type("INCX(-2,1,5)¶X^2-1")
    p.wait_sheet("INCX(-2,1,5)\nX^2-1")
    h.reader.heard()   # the echo of what was typed
    h.hear("Ctrl+U", "lecture seule", "Étude de X^2-1, X de -2 à 2")
    for line in ("Précision, sauf mention : X à 0.000001 près, f à 0.000001 près", "Domaine : définie partout",
                 "Signe : positive de -2 à -1"):
        h.hear("Bas", line, row="Étude de la fonction")
    h.hear("Échap", "X^2-1", row="Étude de la fonction")
    p.wait_sheet("INCX(-2,1,5)\nX^2-1")


def curve(p, h):
    """Without a sound server the words are heard, and that there is no sound; the points are read."""
    h.hear("Ctrl+F9", "lecture seule", "Courbe de X^2-1, X de -2 à 2", "pas de son ici")
    h.hear("Bas", "Du plus grave au plus aigu : f de -1 à 3 ; un tic tous les 0.2", row="Écouter la courbe")
    h.hear("Bas", "X = -2 ; f = 3", row="Écouter la courbe")
    h.hear("Bas", "X = -1 ; f = 0", row="Écouter la courbe")
    h.hear("Échap", "X^2-1", row="Écouter la courbe")
    p.wait_sheet("INCX(-2,1,5)\nX^2-1")


def main():
    reader = Reader(PLACE, flash=FLASH)
    program = Program(BINARY, PLACE)
    h = Hearing(program, reader)
    try:
        program.start()
        reader.wait_for(lambda heard: heard.count("Feuille text"), "the text")
        for part in (study, curve):
            part(program, h)
        same(program.errors(), [], "what the toolkit complains about")
    finally:
        program.screen.release_all()
        program.kill()
        reader.end()
    print(f"{len(h.rows)} commands heard, {len(h.failures)} failures")
    raise SystemExit(1 if h.failures else 0)


main()
