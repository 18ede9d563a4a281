"""Typing a whole sheet on a French keyboard, key by key as the hand does it: digits with Maj, AltGr, dead
keys, keypad, modifiers that come up first or last, Sticky Keys. The text is compared to the byte; the words
are those of a real screen reader."""
import ctypes
import subprocess
import sys

from french import (ALT, ALTGR, CTRL, DEAD, ENTER, ESCAPE, F1, KEYPAD, KEYPAD_ENTER, LEFT, MAJ, NUM_LOCK, OSS, PLAIN,
                    RIGHT, SPACE, place_of)
from pilot import run, same, wait, wait_same
from reader import Reader

BINARY, PLACE = sys.argv[1:3]

XKB_CORE_KEYBOARD, XKB_STICKY_KEYS = 0x100, 1 << 3


def strike(p, code, *modifiers, first_up=False):
    """Presses a key with modifiers held; the key comes up first, or the modifiers do."""
    for modifier in modifiers:
        p.screen.down_code(modifier)
    p.screen.down_code(code)
    for key in ([*reversed(modifiers), code] if first_up else [code, *reversed(modifiers)]):
        p.screen.up_code(key)


def write(p, text, first_up=False):
    """Types a text by the keys of the layout; the modifiers come up before the sign's key or after it."""
    wait(p.active_window, f"the keyboard, before {text!r}")
    for sign in text:
        code, modifiers = place_of(sign)
        strike(p, code, *modifiers, first_up=first_up)
    p.answered()


def layout(p, *names):
    subprocess.run(["setxkbmap", *names], check=True)
    p.screen.map = {}


def keypad(p, keys):
    strike(p, NUM_LOCK)
    for key in keys:
        strike(p, KEYPAD[key])
    strike(p, NUM_LOCK)
    p.answered()


def sticky(on):
    """Turns Sticky Keys of the display on or off: a modifier pressed alone holds for the next key."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    x11.XkbChangeEnabledControls(display, XKB_CORE_KEYBOARD, XKB_STICKY_KEYS, XKB_STICKY_KEYS if on else 0)
    x11.XSync(display, 0)
    x11.XCloseDisplay(display)


class Clipboard:
    """A program that has a text to paste."""
    OWNER = ("import gi, sys\nfor part in ('Gdk', 'Gtk'):\n    gi.require_version(part, '3.0')\nfrom gi.repository import Gdk, Gtk\n"
             "Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD).set_text(sys.argv[1], -1)\n"
             "Gdk.Display.get_default().sync()\nprint('there', flush=True)\nGtk.main()")

    def __init__(self, text):
        self.process = subprocess.Popen([sys.executable, "-c", self.OWNER, text], stdout=subprocess.PIPE)
        same(self.process.stdout.readline(), b"there\n", "answer of the program with the clipboard")

    def end(self):
        self.process.kill()
        self.process.wait()


def heard_once(reader, words):
    """What the reader says next has these words, once."""
    heard = reader.wait_for(lambda h: h.count(words) > 0, words)
    same(heard.count(words), 1, f"times that {words!r} is heard in {heard.speech}")


def hears(p, reader, words, act):
    reader.heard()
    act()
    p.answered()
    heard_once(reader, words)


def a_sheet(p, reader, *names):
    """The same sheet on a layout of French keyboards."""
    p.start()
    p.wait_text()
    layout(p, *names)
    write(p, "A=12\nB=A*(3.5-1)\n2")
    hears(p, reader, "^1", lambda: (strike(p, DEAD), strike(p, 10, MAJ)))
    write(p, "0\n(A)")
    hears(p, reader, "^0", lambda: (strike(p, DEAD), strike(p, 19, MAJ, first_up=True)))
    write(p, "\n3")
    hears(p, reader, "^a", lambda: (strike(p, DEAD), strike(p, PLAIN["a"])))
    write(p, "\nA²+2^3 ! #{[|\\^@]} ", first_up=True)
    strike(p, DEAD)
    write(p, "e")
    strike(p, DEAD)
    strike(p, SPACE)
    write(p, "\n")
    keypad(p, "7*6/2-15")
    p.wait_sheet("A=12\nB=A*(3.5-1)\n2^10\n(A)^0\n3^a\nA²+2^3 ! #{[|\\^@]} ê^\n7*6/2-15")
    calculated = ("A=12 = 12\nB=A*(3.5-1) = 30\n2^10 = 1024\n(A)^0 = 1\n3^a = 531441\n"
                  "A²+2^3 ! #{[|\\^@]} ê^ = 152\n7*6/2-15 = 6")
    for key in (ALT, ALTGR):
        for first_up in (False, True):
            hears(p, reader, "7*6/2-15 = 6", lambda: strike(p, PLAIN["c"], key, first_up=first_up))
            same(p.sheet(), calculated, "sheet after the calculation")


def with_reader(p, act):
    reader = Reader(p.folder)
    try:
        act(reader)
    finally:
        reader.end()
        sticky(False)
        layout(p, "us")


def french(p):
    with_reader(p, lambda reader: a_sheet(p, reader, "fr"))


def french_oss(p):
    def act(reader):
        a_sheet(p, reader, "fr", "oss")
        write(p, "\n2")
        for sign, written in (("×", "*"), ("÷", "/")):
            *modifiers, code = OSS[sign]
            hears(p, reader, written, lambda: strike(p, code, *modifiers))
            write(p, "4")
        write(p, " ! ")
        for sign in OSS:
            *modifiers, code = OSS[sign]
            strike(p, code, *modifiers)
        p.answered()
        same(p.sheet().split("\n")[-1], "2*4/4 ! ×÷", "the last line")
    with_reader(p, act)


def modifiers_in_both_orders(p):
    """Every key that acts as it comes up, its modifier first or last, latched, and held down."""
    p.start()
    p.wait_text()
    layout(p, "fr")
    write(p, "un deux trois")
    for code, first_up, word in ((LEFT, True, "trois"), (LEFT, False, "deux"), (RIGHT, True, "trois")):
        strike(p, code, ALT, first_up=first_up)
        p.wait_message(word)
    p.key("Ctrl+A")
    write(p, "2+3")
    for code in (ENTER, KEYPAD_ENTER):
        strike(p, code, CTRL, first_up=True)
        p.wait_sheet("2+3 = 5\nZ= 5")
        p.key("Ctrl+A")
        write(p, "2+3")
    strike(p, PLAIN["c"], ALT, first_up=True)
    p.wait_message("2+3 = 5")
    strike(p, F1, ALT, first_up=True)
    wait_same(lambda: p.buttons()[0], "Calculatrice", "the button of the list of functions")
    strike(p, ESCAPE)
    p.wait_text()
    strike(p, PLAIN["r"], ALTGR, first_up=True)
    p.wait_entry("Recherche", "")
    strike(p, ESCAPE)
    p.wait_text()
    for modifier in (MAJ, CTRL):
        p.screen.down_code(modifier)
    p.screen.down_code(PLAIN["s"])
    for key in (CTRL, MAJ, PLAIN["s"]):
        p.screen.up_code(key)
    p.wait_dialog("file chooser")
    strike(p, ESCAPE)
    p.wait_text()
    layout(p, "us")


def sticky_keys(p):
    """Each modifier is pressed and let go before its key."""
    def act(reader):
        p.start()
        p.wait_text()
        layout(p, "fr")
        sticky(True)

        def tap(*codes):
            for code in codes:
                strike(p, code)
            p.answered()

        tap(MAJ, PLAIN["a"], PLAIN["="], MAJ, 11, ALTGR, 18, MAJ, 12)
        p.wait_sheet("A=2^3")
        hears(p, reader, "A=2^3 = 8", lambda: tap(ALT, PLAIN["c"]))
        hears(p, reader, "= 8", lambda: tap(CTRL, ENTER))
        p.wait_sheet("A=2^3 = 8\nZ= 8")
        hears(p, reader, "colonne 5 ligne 2", lambda: tap(CTRL, PLAIN["g"]))
        tap(MAJ, CTRL, PLAIN["s"])
        p.wait_dialog("file chooser")
        tap(ESCAPE)
        p.wait_text()
    with_reader(p, act)


def keypad_with_its_decimal_key(p):
    """Without a reader: Orca keeps that key of the layout "oss" for itself."""
    p.start()
    p.wait_text()
    for names in (("fr",), ("fr", "oss")):
        layout(p, *names)
        keypad(p, "1.5*2")
        write(p, "\n")
    p.wait_sheet("1.5*2\n1.5*2\n")
    layout(p, "us")


def dead_key_on_a_button(p):
    """What is typed on a button goes to the sheet, the accent of a dead key with its letter."""
    p.start()
    layout(p, "fr")
    write(p, "2")
    p.key("Tab")
    wait_same(p.focus_name, "Modif. texte", "focus")
    strike(p, DEAD)
    write(p, "1")
    p.wait_sheet("2^1")
    write(p, "!")
    p.key("Tab")
    wait_same(p.focus_name, "Modif. texte", "focus")
    strike(p, DEAD)
    write(p, "e")
    p.wait_sheet("2^1!ê")
    layout(p, "us")


def fast_fingers(p):
    """AltGr goes down for the next sign before the last key is up: nothing is calculated."""
    p.start()
    p.wait_text()
    layout(p, "fr")
    for code in (PLAIN["c"], ENTER):
        p.screen.down_code(code)
        p.screen.down_code(ALTGR)
        p.screen.up_code(code)
        p.screen.down_code(12)
        p.screen.up_code(ALTGR)
        p.screen.up_code(12)
    p.answered()
    p.wait_sheet("c#\n#")
    p.answered()
    same(p.sheet(), "c#\n#", "sheet a moment later")
    layout(p, "us")


def pastes(p):
    """How much has come, what was made of it, and what can't come."""
    clipboards = []

    def act(reader):
        p.start()
        p.wait_text()

        def paste(text):
            clipboards.append(Clipboard(text))
            p.key("Ctrl+V")

        hears(p, reader, "11 caractères collés", lambda: paste("A=12\r\nB=2×3\ufeff\u200e!"))
        p.wait_sheet("A=12\nB=2*3!")
        p.key("Ctrl+A")
        hears(p, reader, "caractère refusé U+2264, ligne 2, colonne 3", lambda: paste("A=1\nA ≤2"))
        same((p.sheet(), p.selection()), ("A=12\nB=2*3!", "A=12\nB=2*3!"), "sheet and selection")
        hears(p, reader, "22 caractères collés", lambda: paste("1\u202f000+2·5−10⁻³ ! 2×3"))
        p.wait_sheet("1000+2*5-10^(-3) ! 2×3")
        p.key("Ctrl+A")
        hears(p, reader, "8 caractères collés, espace dans un nombre, ligne 1, colonne 3",
              lambda: paste("10 000\nA"))
        p.key("Ctrl+A")
        hears(p, reader, "6 caractères collés, ½ ne se calcule pas, ligne 2, colonne 2", lambda: paste("3+1\n2½"))
        p.key("Ctrl+A")
        p.type("≤")
        p.wait_message("caractère refusé U+2264")
        same(p.selection(), "3+1\n2½", "selection after a refused key")
        hears(p, reader, "1 caractère collé", lambda: paste("7"))
        p.wait_sheet("7")
        p.key("Ctrl+Z")
        p.wait_sheet("3+1\n2½")
    try:
        with_reader(p, act)
    finally:
        for clipboard in clipboards:
            clipboard.end()


run([french, french_oss, modifiers_in_both_orders, sticky_keys,
     keypad_with_its_decimal_key, dead_key_on_a_button, fast_fingers, pastes], BINARY, PLACE)
