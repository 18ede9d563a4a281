"""What a blind user hears of a function: its study, read with the arrows, and its curve where no device is."""
import sys

from hearing import run_parts
from pilot import same


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


run_parts(*sys.argv[1:3], (study, curve))
