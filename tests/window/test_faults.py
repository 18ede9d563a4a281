"""What a blind user hears of a fault, of messages again, of the bare result and of the list of functions: each once,
in the ear and on the braille line."""
import sys

from hearing import run_parts
from pilot import same

FAULT = "2+A*) = attend fact: k, var, (: ')"


def faults(p, h):
    """The place of the fault, its entry in the guide, and back to its column."""
    p.type("A=3¶2+A*)¶12345678")
    h.hear("Alt+C", FAULT)
    h.hear("F12", "ligne 2, colonne 5 : fin parenthèse")
    same(p.caret(), 12, "the cursor")
    h.hear("Maj+F12", "lecture seule", "Message : attend fact: k, var, (: '-")
    h.hear("Échap", FAULT, row="Guide")
    same(p.caret(), 12, "the cursor")
    h.hear("F11", "pas de ligne en erreur plus bas")
    p.key("Ctrl+Fin")
    h.hear("Maj+F11", FAULT)
    h.hear("Ctrl+D", FAULT)
    h.hear("Ctrl+D", "pas de ligne en erreur plus bas")


def corrected(p, h):
    """The fault is corrected where the cursor stands; the number is spelt and copied."""
    p.key("Suppr")
    p.key("Arrière")
    p.wait_sheet("A=3 = 3\n2+A = attend fact: k, var, (: ')\n12345678")
    p.key("Ctrl+Fin")
    h.hear("Alt+C", "12345678 = 12345678")
    h.hear("F12", "pas de faute connue, faites Alt+C")
    h.hear("Maj+F2", "1 2, 3 4 5, 6 7 8")
    h.hear("Ctrl+F2", "copié : 12345678")
    p.key("Entrée")
    h.hear_beside("Ctrl+V", "8 caractères collés")
    p.wait_sheet("A=3 = 3\n2+A = 5\n12345678 = 12345678\n12345678")
    p.key("Ctrl+Début")
    p.key("Maj+Bas", 3)
    h.hear("Ctrl+F2", "3 résultats copiés")
    p.key("Ctrl+Fin")
    p.key("Entrée")
    h.hear_beside("Ctrl+V", "12 caractères collés")
    p.wait_sheet("A=3 = 3\n2+A = 5\n12345678 = 12345678\n12345678\n3\n5\n12345678")


def functions(p, h):
    """A letter reads the next function that begins with it, a key that would write is answered, Enter writes the
    function into the sheet."""
    lines = (p.folder / "data" / "fonction.txt").read_text(encoding="utf-8").splitlines()
    h.hear("Alt+F1", "lecture seule", lines[0])
    for line in [one for one in lines if one.startswith("SQR")][:2]:
        h.hear("S", line, row="Liste des fonctions")
    for key in ("7", "Suppr", "Ctrl+V"):
        h.hear(key, "lecture seule", row="Liste des fonctions")
    p.key("Entrée")
    p.wait_sheet("A=3 = 3\n2+A = 5\n12345678 = 12345678\n12345678\n3\n5\n12345678SQRT(")
    h.hear("Ctrl+D", "12345678SQRT(")
    p.key("Ctrl+Z")
    p.wait_sheet("A=3 = 3\n2+A = 5\n12345678 = 12345678\n12345678\n3\n5\n12345678")


run_parts(*sys.argv[1:3], (faults, corrected, functions))
