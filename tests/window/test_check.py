"""What a blind user hears of the check of the sheet: the count, each finding once, and the warning behind a
calculation, in the ear and on the braille line."""
import sys

from hearing import run_parts
from pilot import same

PRODUCT = "ligne 2, signe manquant : 2(A+1) est lu 2, la suite n'est pas calculée ; tapez 2*(A+1)"
POWER = ("ligne 3, à savoir, signe moins et puissance : -2^2 vaut -4, la puissance est calculée d'abord ; "
         "tapez (-2)^2")


def findings(p, h):
    """The count and the first place, and from one to the next; the sheet stays as it is."""
    p.type("A=3¶2(A+1)¶-2^2")
    h.reader.wait_for(lambda heard: heard.count("caret"), "the last sign that was typed")
    h.hear("Ctrl+K", "2 constats, 1 faux probable", PRODUCT)
    same(p.caret(), 5, "the cursor")
    h.hear("F4", POWER)
    same(p.caret(), 11, "the cursor")
    h.hear("F4", "pas de constat plus bas")
    h.hear("Maj+F4", PRODUCT)
    h.hear("Maj+F4", "pas de constat plus haut")
    p.wait_sheet("A=3\n2(A+1)\n-2^2")


def warning(p, h):
    """The first calculation warns, the second one has nothing new; the option is kept."""
    h.hear("Alt+C", "2(A+1) = 2", "attention ligne 2")
    h.hear("Alt+C", "2(A+1) = 2")
    p.wait_sheet("A=3 = 3\n2(A+1) = 2\n-2^2 = -4")


run_parts(*sys.argv[1:3], (findings, warning))
