"""Two curves at their slowest are longer than a sound server keeps: they are heard to the end all the same."""
import sys

from pilot import expect, run, wait
from sound_server import RATE, STEP, SoundServer

BINARY, PLACE = sys.argv[1:3]
SERVER = SoundServer(PLACE, wait)
SECONDS = 0.4 + 12 + 0.1 + 0.4 + 12   # tone and silence, a curve, its end, a pause, the other curve


def both_curves(p):
    p.start(environment=SERVER.environment)
    p.type("INCX(0,1,3)¶X+1¶INCX(0,1,3)¶X+2")
    p.key("Ctrl+F9")
    p.wait_message("Courbe de X+2, X de 0 à 2")
    for duration in ("6 secondes", "12 secondes"):
        p.key("L")
        p.wait_message(duration)
    p.key("D")
    p.wait_message("X+2, puis X+1")
    since = SERVER.frames()
    first = SERVER.begins(since, "the curves")
    wait(lambda: SERVER.frames() > first + int((SECONDS + 1) * RATE), "the end of the curves", 60)
    last = max(at for at in range(first, SERVER.frames() - STEP, STEP) if SERVER.loudness(at, at + STEP) > 0)
    heard = (last - first) / RATE
    expect(abs(heard - SECONDS) < 0.2, f"{heard} seconds are heard of {SECONDS}")
    p.wait_message("fin de la courbe")


try:
    run([both_curves], BINARY, PLACE)
finally:
    SERVER.end()
