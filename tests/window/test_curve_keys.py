"""A curve without a voice, its sound recorded from a sound server: it begins at once, any key stops it at once, and a
server that hangs, goes or isn't there is told."""
import os
import signal
import statistics
import sys
import time

from pilot import Program, expect, same, wait
from sound_server import RATE, SoundServer

BINARY, PLACE = sys.argv[1:3]
CURVE = 0.4                      # seconds from the first sound to the left end of the curve
PATIENCE = 3                     # seconds that a busy machine may take for a key


def begin(p, key):
    """Presses a key that plays at once: the first moment of the tone, and the seconds from the key to it."""
    since, pressed = SERVER.frames(), time.monotonic()
    p.key(key)
    first = SERVER.begins(since, f"the sound of {key}")
    return first, SERVER.when(first) - pressed


def at_once(p):
    """From the key to the first sample, and from any key to silence."""
    starts, stops = [], []
    for key in ("Maj", "Ctrl", "Bas", "Gauche", "Ctrl+G", "Maj+F2"):
        first, after = begin(p, "Entrée")
        starts.append(after)
        at = SERVER.begins(first + int((CURVE + 0.3) * RATE), "the curve")
        pressed = time.monotonic()
        p.key(key)
        stops.append(SERVER.when(SERVER.ends_after(at, f"silence after {key}") - 1) - pressed)
        print(f"        {key}: silent {stops[-1]:.3f} s after it", flush=True)
        expect(stops[-1] < PATIENCE, f"{key} stops the curve after {stops[-1]} s")
        p.key("Ctrl+Début")
    print(f"        medians: {statistics.median(starts):.3f} s from Entrée to the tone, {statistics.median(stops):.3f} s "
          "from a key to silence", flush=True)


def no_answer(p):
    """A server that hangs, and then one that ends in the middle of a curve, are told; then that there is none."""
    os.kill(SERVER.server.pid, signal.SIGSTOP)
    p.key("Entrée")
    p.wait_message("pas de son ici")
    os.kill(SERVER.server.pid, signal.SIGCONT)
    p.key("Ctrl+G")
    p.wait_message("colonne 1 ligne 1")
    begin(p, "Entrée")
    SERVER.server.kill()
    p.wait_message("pas de son ici")
    p.key("Ctrl+G")
    p.wait_message("colonne 1 ligne 1")
    p.key("Entrée")
    p.wait_message("pas de son ici")


SERVER = SoundServer(PLACE, wait)
os.environ["PULSE_SERVER"] = SERVER.address
p = Program(BINARY, PLACE)
try:
    p.start()
    p.type("INCX(0,1,5)¶3+0*X")
    p.wait_sheet("INCX(0,1,5)\n3+0*X")
    p.key("Ctrl+F9")
    p.wait_message("fin de la courbe")
    SERVER.quiet("the end of the first curve")
    at_once(p)
    no_answer(p)
    same(p.errors(), [], "what the toolkit complains about")
finally:
    p.screen.release_all()
    p.kill()
    SERVER.end()
