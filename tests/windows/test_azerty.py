"""A French keyboard on Windows: a whole sheet key by key, the text to the byte, each message heard once.

Real: the keys come from the display as a keyboard's do (XTEST, layouts "fr" and "fr oss"), go through Wine's
keyboard, and dead keys are composed before the program sees them. Stood in for: AltGr is Ctrl and Alt on
Windows and neither under Wine, so what it types there is tried with Ctrl and Alt really held and the key
really pressed, while the character after the press is sent by hand.exe; the character messages of Windows's
own dead keys, and the touch keyboard's signs, come from hand.exe too. Sticky Keys of Windows lets a modifier
come up before or after its key, which both orders of release try; the accessibility setting itself isn't
there under Wine."""
import json
import pathlib
import subprocess
import sys

from Xlib import X

from french import (ALT, ALTGR, BACK, CTRL, DEAD, ENTER, ESCAPE, F1, KEYPAD, KEYPAD_ENTER, LEFT, MAJ, NUM_LOCK, OSS,
                    PLAIN, RIGHT, SPACE, TAB, place_of)
from pilot import (ANGLE, CALCULATOR, DEGREE, LIST, QUIT, REPLACE, TXT, Failed, Helper, expect, run, same,
                   wait)
from screen import Screen

BUILD, PLACE = sys.argv[1:3]
screen = Screen()      # the first of the display's programs and the last: it keeps the layout
screen.display.change_keyboard_control(auto_repeat_mode=X.AutoRepeatModeOff)    # a slow wait types no more
KEY_F8 = 74
FUNCTIONS = (pathlib.Path(BUILD) / "data/fonction.txt").read_text(encoding="utf-8").split("\n")[0]


def layout(*names):
    subprocess.run(["setxkbmap", *names], check=True)


def hand(command, words=""):
    return HAND.ask(command, json.dumps(words))


def held(ctrl_alt, others=0):
    """Waits until Ctrl and Alt are down for the program, or up, and so many other keys are down."""
    wanted = {"maj": False, "ctrl": ctrl_alt, "alt": ctrl_alt, "others": others}
    wait(lambda: hand("held") == wanted, f"the keys {wanted}")


def strike(code, *modifiers, first_up=False, pressed=lambda: None):
    """Presses a key with modifiers held; the key comes up first, or the modifiers do. `pressed` waits for
    what the press does."""
    for key in (*modifiers, code):
        screen.down_code(key)
    pressed()
    for key in ([*reversed(modifiers), code] if first_up else [code, *reversed(modifiers)]):
        screen.up_code(key)


def types(p, sign, *keys, first_up=False):
    """Keys that end in one sign, or in these signs, after what the sheet has."""
    before = p.sheet()

    def there():
        try:
            wait(lambda: p.sheet() == before + sign, repr(sign))
        except Failed:
            raise Failed(f"the sheet is {p.sheet()!r}, expected {before + sign!r}") from None
    for code, *modifiers in keys[:-1]:
        strike(code, *modifiers, first_up=first_up)
    code, *modifiers = keys[-1]
    strike(code, *modifiers, first_up=first_up, pressed=there)


def write(p, text, first_up=False):
    """Types a text sign by sign; the modifiers come up before the sign's key or after it."""
    for sign in text:
        code, modifiers = place_of(sign)
        types(p, sign, (code, *modifiers), first_up=first_up)


def keypad(p, keys):
    strike(NUM_LOCK)
    for key in keys:
        types(p, key, (KEYPAD[key],))
    strike(NUM_LOCK)


def heard(p, *texts):
    """The next messages are these, each once."""
    for words in texts:
        event = p.listener.next(f"the message {words!r}")
        same((event["event"], event["name"].strip()), ("live", words), "heard")


def pass_over(p):
    """What was said until now isn't looked at, however late it comes: the place of the cursor is said after it."""
    strike(PLAIN["g"], CTRL)
    while not p.listener.next("the place of the cursor")["name"].strip().startswith("colonne "):
        pass


def nothing_more(p):
    """No message is left: the next one is that of the next key."""
    strike(PLAIN["g"], CTRL)
    event = p.listener.next("the place of the cursor")
    expect(event["name"].strip().startswith("colonne "), f"heard once too often: {event}")


def clear(p):
    """An empty sheet, and the keyboard at rest."""
    strike(PLAIN["a"], CTRL)
    strike(BACK)
    p.wait_sheet("")


def a_sheet(p):
    p.start()
    write(p, "A=12\nB=A*(3.5-1)\n2")
    types(p, "^1", (DEAD,), (10, MAJ))
    heard(p, "^1")
    write(p, "0\n(A)")
    types(p, "^0", (DEAD,), (19, MAJ), first_up=True)
    heard(p, "^0")
    write(p, "\n3")
    types(p, "^a", (DEAD,), (PLAIN["a"],))
    heard(p, "^a")
    write(p, "\nA²+2^3 ! #{[|\\^@]} ", first_up=True)
    types(p, "ê", (DEAD,), (PLAIN["e"],))
    types(p, "^", (DEAD,), (SPACE,))
    write(p, "\n")
    keypad(p, "7*6/2-15")
    p.wait_sheet("A=12\nB=A*(3.5-1)\n2^10\n(A)^0\n3^a\nA²+2^3 ! #{[|\\^@]} ê^\n7*6/2-15")
    for modifiers in ((ALT,), (CTRL, ALT)):
        for first_up in (False, True):
            strike(PLAIN["c"], *modifiers, first_up=first_up)
            heard(p, "7*6/2-15 = 6")
            p.wait_sheet("A=12 = 12\nB=A*(3.5-1) = 30\n2^10 = 1024\n(A)^0 = 1\n3^a = 531441\n"
                         "A²+2^3 ! #{[|\\^@]} ê^ = 152\n7*6/2-15 = 6")
    nothing_more(p)


def french(p):
    layout("fr")
    a_sheet(p)


def french_oss(p):
    layout("fr", "oss")
    a_sheet(p)
    write(p, "\n2")
    for sign, written in (("×", "*"), ("÷", "/")):
        *modifiers, code = OSS[sign]
        types(p, written, (code, *modifiers))
        heard(p, written)
        write(p, "4")
    write(p, " ! ")
    for sign in OSS:
        *modifiers, code = OSS[sign]
        types(p, sign, (code, *modifiers))
    nothing_more(p)


def dead_trema(p):
    """A letter with its two dots is heard where the calculation would pass over it."""
    layout("fr")
    p.start()
    write(p, "2")
    types(p, "ï", (DEAD, MAJ), (PLAIN["i"],))
    heard(p, "ï ne se calcule pas")
    write(p, " ! ")
    types(p, "ë", (DEAD, MAJ), (PLAIN["e"],))
    types(p, "Ü", (DEAD, MAJ), (PLAIN["u"], MAJ))
    nothing_more(p)


def dead_keys_as_windows_sends_them(p):
    """Windows composes a vowel, and gives both signs after a press that nothing can be composed of."""
    layout("fr")
    p.start()
    for number, vowel, written in (("2", "ê", "^e"), ("7", "Î", "^I"), ("3", "^1", "^1"), ("4", "^^", "^^"),
                                   ("(A)", "û", "^u")):
        write(p, number)
        before = p.sheet()
        expect(hand("dead", "^") and hand("characters", vowel), "the character messages")
        p.wait_sheet(before + written)
        if vowel != written:
            heard(p, written)
        write(p, "\n")
    write(p, "x")
    expect(hand("dead", "^") and hand("characters", "ê"), "the character messages")
    p.wait_sheet("2^e\n7^I\n3^1\n4^^\n(A)^u\nxê")
    nothing_more(p)


def signs_without_a_key(p):
    """Superscripts and the signs of documents, as the touch keyboard and a dictation type them."""
    layout("fr")
    p.start()
    for signs, written in (("2", "2"), ("⁵", "^5"), ("·", "*"), ("3", "3"), ("⁻", "^-"), ("1", "1"), ("÷", "/"), ("4", "4"),
                           ("–", "-"), ("x", "x"), ("³", "^3"), ("—", "-"), ("6", "6"), ("×", "*"), ("5", "5"),
                           ("²", "²"), ("−", "-"), ("π", "PI")):
        before = p.sheet()
        same(hand("types", signs), True, f"typing {signs!r}")
        p.wait_sheet(before + written)
        if signs != written:
            heard(p, written)
    p.wait_sheet("2^5*3^-1/4-x^3-6*5²-PI")
    write(p, " ! ")
    same(hand("types", "×÷·–—³"), True, "typing")
    p.wait_sheet("2^5*3^-1/4-x^3-6*5²-PI ! ×÷·–—³")
    same(hand("types", "≤"), True, "typing")
    heard(p, "caractère refusé U+2264")
    p.wait_sheet("2^5*3^-1/4-x^3-6*5²-PI ! ×÷·–—³")
    nothing_more(p)


def altgr_as_on_windows(p):
    """Ctrl and Alt are down, the key goes down, and its sign comes: it is typed, whatever the key would do
    with one of them. Under Wine these keys type nothing by themselves then."""
    layout("fr")
    p.start()
    text = ""
    for sign in "#{[|\\]}":
        code, _ = place_of(sign)
        for first_up in (False, True):
            for key in (CTRL, ALT, code):
                screen.down_code(key)
            held(True, 1)
            same(hand("characters", sign), True, "the character message")
            text += sign
            p.wait_sheet(text)
            for key in ((ALT, CTRL, code) if first_up else (code, ALT, CTRL)):
                screen.up_code(key)
            held(False)
    for sign in "^@~`€":     # the sign alone: these keys type under Wine
        screen.down_code(CTRL)
        screen.down_code(ALT)
        held(True)
        same(hand("characters", sign), True, "the character message")
        text += sign
        p.wait_sheet(text)
        screen.up_code(ALT)
        screen.up_code(CTRL)
        held(False)
    nothing_more(p)
    p.wait_sheet(text)


def modifiers_in_both_orders(p):
    """Every key that acts as it comes up, its modifier first or last, acts once."""
    layout("fr")
    p.start()
    for first_up in (True, False):
        write(p, "un deux trois")
        for code, word in ((LEFT, "trois"), (LEFT, "deux"), (RIGHT, "trois")):
            strike(code, ALT, first_up=first_up)
            heard(p, word)
        clear(p)
        for code in (ENTER, KEYPAD_ENTER):
            write(p, "2+3")
            strike(code, CTRL, first_up=first_up)
            p.wait_sheet("2+3 = 5\nZ= 5")
            heard(p, "2+3 = 5", "= 5")
            clear(p)
        write(p, "2+3")
        strike(PLAIN["c"], ALT, first_up=first_up)
        heard(p, "2+3 = 5")
        nothing_more(p)
        strike(F1, ALT, first_up=first_up)
        wait(lambda: p.shown(CALCULATOR), "the list of functions")
        strike(ESCAPE)
        wait(lambda: not p.shown(CALCULATOR), "the sheet")
        strike(PLAIN["r"], ALT, first_up=first_up)
        p.wait_box("Recherche")
        strike(ESCAPE)
        p.wait_no_box()
        for key in (MAJ, CTRL, PLAIN["s"]):
            screen.down_code(key)
        for key in ((CTRL, MAJ, PLAIN["s"]) if first_up else (PLAIN["s"], MAJ, CTRL)):
            screen.up_code(key)
        wait(p.box, "the dialog for the name")
        strike(ESCAPE)
        p.wait_no_box()
        pass_over(p)
        nothing_more(p)
        clear(p)


def fast_fingers(p):
    """AltGr goes down for the next sign before the last key is up: nothing is calculated."""
    layout("fr")
    p.start()
    text = ""
    for code, sign in ((PLAIN["c"], "c"), (ENTER, "\n")):
        screen.down_code(code)
        text += sign
        p.wait_sheet(text)
        screen.down_code(CTRL)
        screen.down_code(ALT)
        held(True, 1)
        screen.up_code(code)
        screen.down_code(12)
        held(True, 1)
        same(hand("characters", "#"), True, "the character message")
        text += "#"
        p.wait_sheet(text)
        for key in (ALT, CTRL, 12):
            screen.up_code(key)
        held(False)
    nothing_more(p)
    p.wait_sheet("c#\n#")


def at(p, control):
    """The focus is there; in the sheet nothing but the sheet is shown."""
    wait(lambda: p.focus() == control, f"the focus in {control}")


def escape_from_every_control(p):
    """Échap leads back to the sheet, whatever has the focus; the line of the sheet isn't told as a message."""
    layout("fr")
    p.start()
    write(p, "! un")

    def sheet():
        at(p, TXT)
        wait(lambda: p.sheet() == "! un" and p.shown(REPLACE) and not p.shown(CALCULATOR), "the sheet")

    def by_tab(*controls):
        for control in controls:
            strike(TAB)
            at(p, control)
        strike(ESCAPE)
        sheet()
    by_tab(REPLACE)
    by_tab(REPLACE, QUIT)
    for controls in ((), (ANGLE,), (ANGLE, QUIT)):
        strike(KEY_F8)
        at(p, DEGREE)
        by_tab(*controls)
    for controls in ((), (CALCULATOR,), (CALCULATOR, QUIT)):
        p.choose("O", 9)
        at(p, LIST)
        by_tab(*controls)
    for controls in ((), (CALCULATOR,), (CALCULATOR, QUIT)):
        strike(F1, ALT)
        wait(lambda: p.shown(CALCULATOR), "the list of functions")
        at(p, TXT)
        by_tab(*controls)


def keys_on_buttons(p):
    """What is typed on a button goes to the sheet, once; where there is no sheet it says where one is."""
    layout("fr")
    p.start()
    write(p, "!")
    for controls, sign in (((REPLACE,), "7"), ((REPLACE, QUIT), "é")):
        for control in controls:
            strike(TAB)
            at(p, control)
        write(p, sign)
        at(p, TXT)
    write(p, "m")
    p.wait_sheet("!7ém")
    for signs, written in (((REPLACE, (DEAD,), (PLAIN["e"],)), "ê"), ((REPLACE, (18, ALTGR)), "^")):
        control, *keys = signs
        strike(TAB)
        at(p, control)
        types(p, written, *keys)
        at(p, TXT)
    strike(KEY_F8)
    at(p, DEGREE)
    strike(PLAIN["k"])
    heard(p, "Unité d'angle")
    strike(TAB)
    at(p, ANGLE)
    strike(PLAIN["k"])
    heard(p, "Unité d'angle")
    strike(ESCAPE)
    at(p, TXT)
    heard(p, "Degré")
    strike(F1, ALT)
    heard(p, "lecture seule", FUNCTIONS)
    strike(PLAIN["k"])
    heard(p, "pas de fonction en K")
    strike(ESCAPE)
    heard(p, "!7émê^")
    p.wait_sheet("!7émê^")
    nothing_more(p)


def let_go(case):
    """The case, with no key left down for the next one."""
    def run_case(p):
        try:
            case(p)
        finally:
            screen.release_all()
    run_case.__name__ = case.__name__
    return run_case


CASES = [french, french_oss, dead_trema, dead_keys_as_windows_sends_them, signs_without_a_key, altgr_as_on_windows,
         modifiers_in_both_orders, fast_fingers, escape_from_every_control, keys_on_buttons]
HAND = Helper(pathlib.Path(BUILD) / "hand.exe")
try:
    run([let_go(case) for case in CASES], BUILD, PLACE)
finally:
    HAND.end()
