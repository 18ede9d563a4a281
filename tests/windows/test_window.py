"""The window on Windows: what it shows, what its keys do, what a screen reader hears."""
import re
import sys

from pilot import (ANGLE, CALCULATOR, GRADE, LIST, MESSAGE, QUIT, READ_ONLY, REPLACE, SELECTED, TXT,
                   expect, run, same, wait)

BUILD, PLACE = sys.argv[1:3]


def start(p):
    p.start()
    same(p.title(), "VOXTAB SANSTITRE.VXT", "title")
    same(p.sheet(), "", "sheet")
    panels = p.panels()
    same(panels[:2], ["Flottant Degré", "feuille 1"], "panels 1 and 2")
    expect(re.fullmatch(r"\d\d:\d\d", panels[2]), f"panel 3 is {panels[2]!r}")
    expect(re.fullmatch(r"\d\d/\d\d/\d{4}", panels[3]), f"panel 4 is {panels[3]!r}")
    same(p.state(TXT)["class"], "Edit", "class of the text")
    same(p.state(MESSAGE)["class"], "Static", "class of the message line")
    expect(not p.shown(CALCULATOR) and p.shown(REPLACE) and p.shown(QUIT), "the buttons")
    expect(not p.state(TXT)["style"] & READ_ONLY, "the sheet can't be written")
    for name in ("aide.txt", "fonction.txt", "travail"):
        expect((p.folder / name).exists(), f"{name} isn't there")


def calculation(p):
    p.start(text="A=3¶B=A*2")
    p.key("Alt+C")
    p.hear("B=A*2 = 6")
    same(p.sheet(), "A=3 = 3\nB=A*2 = 6", "sheet")
    same(p.message(), "B=A*2 = 6", "message")
    same(p.selection(), (18, 18), "cursor")
    p.key("Haut")
    p.key("Fin")
    wait(lambda: p.selection() == (7, 7), "the cursor in line 1")
    p.key("Ctrl+R")
    p.hear("= 3")
    p.key("Ctrl+Entrée")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nZ= 9")


def repeated_message(p):
    """The same words again are another event."""
    p.start(text="12")
    for _ in range(3):
        p.key("Ctrl+G")
    p.hear("colonne 3 ligne 1", " colonne 3 ligne 1  ", "colonne 3 ligne 1")


run([start, calculation, repeated_message], BUILD, PLACE)
