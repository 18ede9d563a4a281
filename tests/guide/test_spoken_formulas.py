"""The words of formulas: those that the program says are those that were written by hand, no two formulas have
the same words by accident, and the French voice reads each of their words as a word.

The guide's formulas that "est dit :" stands behind are said so too. tests/spoken/formulas.txt has the formulas; before each of them stand the lines of before.txt.
test_spoken_formulas.py SONDE"""
import re
import sys

from sonde import Sonde
from texts import ROOT, read
from voice import WORD, heard_alike, listed, odd_words

TOLD = re.compile(r"(\S.*) est dit : (.+)")
# Formulas that are read the same way, whatever was typed.
SAME = [{"A^2", "A²"}, {"(2+3)*4", "( 2 + 3 ) * 4"}, {"SIN(30)", "sin(30)"}, {"A+B", "a+b"}]


def table() -> list[list[str]]:
    lines = (ROOT / "tests/spoken/formulas.txt").read_text(encoding="utf-8").splitlines()
    return [line.split("\t") for line in lines if line and not line.startswith("#")]


def said(sonde: Sonde, formula: str) -> list[str]:
    """What is said of the formula as the last line of a sheet."""
    before = (ROOT / "tests/spoken/before.txt").read_text(encoding="utf-8").splitlines()
    text = "\r\n".join(before + [formula])
    return sonde.run({"text": text, "op": "mnuDireLigneItem", "selstart": len(text)})["messages"]


def main() -> int:
    rows, faults = table(), []
    told = [list(match.groups()) for line in read("data/aide.txt") if (match := TOLD.fullmatch(line))]
    with Sonde(sys.argv[1]) as sonde:
        letters = [said(sonde, chr(code))[0] for code in range(ord("A"), ord("Z") + 1)]
        for formula, wanted in rows + told:
            heard = said(sonde, formula)
            if heard != [wanted]:
                faults.append(f"{formula}\n  wanted {wanted}\n  heard  {heard}")
    by_words: dict[str, set[str]] = {}
    for formula, wanted in rows:
        by_words.setdefault(wanted, set()).add(formula)
    faults += [f"the same words: {sorted(formulas)}" for formulas in by_words.values()
               if len(formulas) > 1 and formulas not in SAME]
    words = sorted({word for _, wanted in rows for word in WORD.findall(wanted)})
    faults += [f"{word} is {how}" for word, how in odd_words(words).items() if word not in listed()]
    # A letter keeps its name among other words.
    faults += [f"{letter} is read otherwise in a sentence" for letter in letters
               if not heard_alike(letter, f"{letter} plus 1")]
    if heard_alike("Y", "Y plus 1"):
        faults.append("the voice isn't the one that this test knows")
    if len(rows) < 200 or len(told) < 5:
        faults.append(f"only {len(rows)} formulas, {len(told)} in the guide")
    print("\n".join(faults + [f"{len(rows)} formulas, {len(words)} words, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
