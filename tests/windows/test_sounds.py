"""A curve on Windows: the system's wave output plays it into a sound server of the test's own, where its pitch, its
sides and its end are measured beside what is said. Without a device its words are heard all the same."""
import math
import statistics
import sys
import time

from hearing import line_of_cursor, messages
from pilot import expect, run, same, wait, wait_same
from sound_server import RATE, SoundServer

BUILD, PLACE = sys.argv[1:3]
LOWEST, HIGHEST = 200, 1500
TONE, CURVE = 0.25, 0.4          # seconds of the reference tone, and to the left end of the curve
PATIENCE = 3                     # seconds that a busy machine may take for a key
PARABOLA = "INCX(-2,1,5)¶X^2-1"
WORDS = "Courbe de X^2-1, X de -2 à 2"


def pitch_of(value, low=-1, high=3):
    """What the value of a curve from `low` to `high` sounds like."""
    return LOWEST * math.exp((value - low) / (high - low) * math.log(HIGHEST / LOWEST))


def start(p, text=PARABOLA):
    p.start(text=text, environment=SERVER.environment)
    messages(p)


def begin(p, key, *words):
    """Presses a key that plays a curve: its words, and its first moment, with the seconds from the key to it."""
    since, pressed = SERVER.frames(), time.monotonic()
    p.key(key)
    if words:
        p.hear(*words)
    first = SERVER.begins(since, f"the sound of {key}")
    return first, SERVER.when(first) - pressed


def close(seen, wanted, share, what):
    print(f"        {what}: {seen:.1f}, expected {wanted:.1f}", flush=True)
    expect(abs(seen - wanted) <= share * wanted, f"{what}: {seen}, expected {wanted}")


def follows(first, value, points, seconds=3.0, since=CURVE):
    """The pitch follows the value at places from 0 to 1 of the curve, and the sound goes to the right."""
    for place in points:
        at = first + int((since + place * seconds) * RATE)
        close(SERVER.pitch(at), value(place), 0.015, f"pitch at {place}")
        expect(abs(SERVER.balance(at) - place) < 0.06, f"the side at {place}: {SERVER.balance(at)}")


def the_curve(p):
    """The words, then a tone for zero, then the curve: each value at its place with its pitch; its end is said."""
    start(p)
    first, after = begin(p, "Ctrl+F9", "lecture seule", WORDS)
    print(f"        from the key to the tone {after:.3f} s", flush=True)
    p.hear("fin de la courbe")
    last = SERVER.ends_after(first, "the end of the curve")
    close((last - first) / RATE, CURVE + 3, 0.02, "seconds of sound")
    close(SERVER.pitch(first + int(TONE / 2 * RATE)), pitch_of(0), 0.01, "the reference tone")
    follows(first, lambda place: pitch_of((4 * place - 2) ** 2 - 1), (0.08, 0.2, 0.35, 0.45, 0.6, 0.7, 0.9))


def silent_after(p, first, key, words):
    """Presses a key in the middle of a curve that began at `first`, and hears its words and no end; the seconds
    until the last sound."""
    at = first + int((CURVE + 0.3) * RATE)
    SERVER.begins(at, f"the curve before {key}")
    pressed = time.monotonic()
    p.key(key)
    if words:
        p.hear(*words)
    stopped = SERVER.when(SERVER.ends_after(at, f"silence after {key}") - 1) - pressed
    print(f"        {key}: silent {stopped:.3f} s after it", flush=True)
    expect(stopped < PATIENCE, f"{key} stops the curve after {stopped} s")
    same(messages(p), [], f"messages of the silence after {key}")
    return stopped


def any_key(p):
    """Whatever key is pressed, the sound stops at once; the key does what it does elsewhere, and no end is told."""
    start(p)
    first, _ = begin(p, "Ctrl+F9", "lecture seule", WORDS)
    times = [silent_after(p, first, "Ctrl", ())]
    for seconds in (6, 12):
        p.key("L")
        p.hear(f"{seconds} secondes")
    p.key("Maj")
    late = []
    for key, words in (("Maj", ()), ("Alt+Gauche", ()), ("Gauche", ()), ("X", ("lecture seule",)),
                       ("Ctrl+G", ("colonne 1 ligne 1",)), ("Ctrl+R", ("pas de résultat",)), ("Ctrl+Maj+Z", ("seulement dans la feuille",)),
                       ("F1", ("Aide Mémoire des touches",))):
        first, after = begin(p, "Entrée")
        late.append(after)
        times.append(silent_after(p, first, key, words))
    print(f"        Medians: from Entrée to the tone {statistics.median(late):.3f} s, from a key to silence "
          f"{statistics.median(times):.3f} s", flush=True)
    expect(statistics.median(late) < PATIENCE, f"the tone comes late: {late}")
    expect(statistics.median(times) < 1, f"the sound stops late: {times}")


def point_by_point(p):
    """Each arrow sounds the point whose line the reader reads, where it lies; no other line sounds."""
    start(p)
    first, _ = begin(p, "Ctrl+F9", "lecture seule", WORDS)
    p.key("Bas")
    since = SERVER.ends_after(first, "the end of the curve")
    for i, f in enumerate((3, 0, -1, 0, 3)):
        p.key("Bas")
        first = SERVER.begins(since, f"the point {i}")
        since = SERVER.ends_after(first, "the end of the point")
        wait_same(lambda: line_of_cursor(p), f"X = {i - 2} ; f = {f}", "the line of the cursor")
        middle = first + int(0.09 * RATE)
        close(SERVER.pitch(middle), pitch_of(f), 0.01, f"pitch of the point {i}")
        expect(abs(SERVER.balance(middle) - i / 4) < 0.06, f"the side of the point {i}: {SERVER.balance(middle)}")
    p.key("Bas")
    same(messages(p), [], "messages of the points")
    same(SERVER.loudness(since, SERVER.frames()), 0, "the loudness of the line below the points")


def one_after_another(p):
    """Two functions on one scale, then the first one again and faster; the end is told when the last has sounded."""
    start(p, PARABOLA + "¶INCT(0,1,4)¶T")
    p.key("Ctrl+Début")
    first, _ = begin(p, "Ctrl+F9", "lecture seule", WORDS)
    p.hear("fin de la courbe")
    SERVER.ends_after(first, "the end of the curve")
    first, _ = begin(p, "D", "X^2-1, puis T")
    p.hear("fin de la courbe")
    last = SERVER.ends_after(first, "the end of both curves", 1.0)
    other = CURVE + 3 + 0.1 + 0.4                          # a short rest of the first one, and the pause
    close((last - first) / RATE, other + 3, 0.02, "seconds of both")
    follows(first, lambda place: pitch_of((4 * place - 2) ** 2 - 1), (0.1, 0.45, 0.9))
    follows(first, lambda place: pitch_of(3 * place), (0.1, 0.5, 0.9), since=other)
    first, _ = begin(p, "R", "1.5 seconde")
    p.hear("fin de la courbe")
    close((SERVER.ends_after(first, "the end of the fast curve") - first) / RATE, CURVE + 1.5, 0.03, "seconds")


def the_end_of_the_program(p):
    """Quitting while a curve sounds ends both."""
    p.start(text=PARABOLA, environment=SERVER.environment)
    first, _ = begin(p, "Ctrl+F9", "lecture seule", WORDS)
    at = first + int(CURVE * RATE)
    SERVER.begins(at, "the curve")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    p.wait_end()
    seconds = (SERVER.ends_after(at, "silence") - first) / RATE
    expect(seconds < CURVE + 2, f"the curve sounds for {seconds} s")


def without_a_device(p):
    """The words, then that there is no sound; the points are read without it being said again."""
    p.start(text=PARABOLA)
    p.key("Ctrl+F9")
    p.hear("lecture seule", WORDS, "pas de son ici")
    p.key("Bas")
    p.key("Bas")
    wait_same(lambda: line_of_cursor(p), "X = -2 ; f = 3", "the line of the cursor")
    same(messages(p), [], "messages of a point")
    p.key("Entrée")
    p.hear(" pas de son ici  ")      # the same words again, told apart by blanks
    p.key("Échap")
    p.hear("X^2-1")
    same(p.sheet(), PARABOLA.replace("¶", "\n"), "sheet")


def the_device_goes(p):
    """The server ends while a curve sounds: the user is told, once, and the program goes on."""
    start(p)
    begin(p, "Ctrl+F9", "lecture seule", WORDS)
    SERVER.server.kill()
    p.hear("pas de son ici")
    p.key("Ctrl+G")
    p.hear("colonne 2 ligne 1")      # behind the first character, where a view begins
    p.key("Entrée")
    p.hear("pas de son ici")
    same(messages(p), [], "messages")


SERVER = SoundServer(PLACE, wait)
run([the_curve, any_key, point_by_point, one_after_another, the_end_of_the_program, without_a_device, the_device_goes],
    BUILD, PLACE)
