"""Random keys on the real window: letters, lines, commands, menus, dialogs and answers, from a fixed seed.
The program neither ends nor complains: no line of the sanitizers, none of GTK, GLib or Pango but those that
`pilot` names with a reason.
VOXTAB_SECONDS is how long (20 when nothing is said)."""
import os
import random
import sys
import time

from pilot import Failed, expect, run, wait

BINARY, PLACE = sys.argv[1:3]
SECONDS = float(os.environ.get("VOXTAB_SECONDS", "20"))
SEED = int(os.environ.get("VOXTAB_SEED", "20260101"))

LETTERS = "abcxyz0123456789+-*/^()=;,.! é²"
LINES = ["A=3", "STATX(2;4)", "DEFMA", "1,2", "3,4", "FIN", "MB=INVMAT(MA)", "INCX(1,1,5)", "X^2",
         "DEFFON=X^2", "FON(2)", "A/0", "TRISTATX", "STATXY(1,2;3,4)"]
KEYS = ["Alt+C", "Ctrl+Entrée", "Ctrl+Z", "Ctrl+Maj+Z", "Ctrl+R", "Alt+Gauche", "Alt+Droite", "F3", "Maj+F3",
        "F1", "Alt+F1", "Entrée", "Arrière", "Suppr", "Gauche", "Droite", "Haut", "Bas", "Début", "Fin",
        "Maj+Haut", "Maj+Fin", "Ctrl+A", "Ctrl+C", "Ctrl+V", "Ctrl+X", "Tab", "Maj+Tab", "PageSuiv",
        "Échap", "Échap", "Échap", "Entrée", "Ctrl+N", "Ctrl+O", "Ctrl+S", "F5", "F6", "F7", "F8", "F9",
        "Alt+F", "Alt+O", "Alt+M", "Menu", "Espace"]

def hand(p, chance):
    """One thing that a hand does; the keys go to whatever window of the program has the keyboard."""
    kind = chance.random()
    if kind < 0.5:
        p.screen.chord(chance.choice(KEYS).split("+"))
    elif kind < 0.8:
        p.screen.type(chance.choice(LINES) + "\n")
    else:
        p.screen.type("".join(chance.choice(LETTERS) for _ in range(chance.randint(1, 6))))


def ready(p):
    """The program has a window at the keyboard, or has ended as it may."""
    return not p.running() or p.active_window()


def random_keys(p):
    chance = random.Random(SEED)
    p.launch()
    done, starts = 0, 1
    end = time.monotonic() + SECONDS
    while time.monotonic() < end:
        if not p.running():
            expect(p.process.returncode == 0, f"status {p.process.returncode}, {p.errors()[:20]}")
            p.launch()
            starts += 1
        try:
            window = wait(lambda: ready(p), "the keyboard")
        except Failed:
            if p.running():
                raise
            continue
        if window is True:
            continue
        hand(p, chance)
        done += 1
        p.screen.answered(window, lambda w=window: p.running() and p.screen.exists(w), 120)
    print(f"{done} actions, {starts} starts")
    expect(done > SECONDS / 4, f"only {done} actions")


def random_hand(p):
    random_keys(p)
    expect(not p.errors(), "\n".join(p.errors()[:20]))


def quits(p):
    """The program ends by itself, so that what is left of its memory is looked at."""
    p.start()
    p.type("A=3¶DEFMA¶1,2¶3,4¶FIN¶STATX(2;4)¶")
    p.key("Alt+C")
    p.key("Ctrl+Z")
    p.screen.chord(["Alt", "Q"])
    wait(p.dialog, "the question")
    p.screen.chord(["Alt", "N"])
    wait(lambda: not p.running(), "the end of the program")
    expect(p.process.returncode == 0, f"status {p.process.returncode}, {p.errors()[:40]}")
    expect(not p.errors(), "\n".join(p.errors()[:20]))


run([quits, random_hand], BINARY, PLACE)
