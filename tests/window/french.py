"""The keys of a French keyboard, by the codes that the display gives their places, and what each types."""

MAJ, CTRL, ALT, ALTGR = 50, 37, 64, 108
ESCAPE, BACK, TAB, ENTER, SPACE, F1 = 9, 22, 23, 36, 65, 67
LEFT, RIGHT, NUM_LOCK, KEYPAD_ENTER = 113, 114, 77, 104
ROWS = {49: "²", 10: "&é\"'(-è_çà)=", 24: "azertyuiop^$", 38: "qsdfghjklmù", 52: "wxcvbn,;:!", 94: "<"}
PLAIN = {sign: first + i for first, signs in ROWS.items() for i, sign in enumerate(signs)}
DEAD = PLAIN.pop("^")
PLAIN["*"] = 51
SHIFTED = {**{digit: 10 + i for i, digit in enumerate("1234567890°+")}, "£": 35, "%": 48, "µ": 51, "?": 58, ".": 59,
           "/": 60, "§": 61, ">": 94,
           **{letter.upper(): code for letter, code in PLAIN.items() if letter.isascii() and letter.isalpha()}}
WITH_ALTGR = {"#": 12, "{": 13, "[": 14, "|": 15, "\\": 17, "^": 18, "@": 19, "]": 20, "}": 21}
KEYPAD = {"7": 79, "8": 80, "9": 81, "-": 82, "4": 83, "5": 84, "6": 85, "+": 86, "1": 87, "2": 88, "3": 89,
          "0": 90, ".": 91, "*": 63, "/": 106}
# Signs that the layout "oss" has on AltGr.
OSS = {"×": (ALTGR, 59), "÷": (ALTGR, 60)}


def place_of(sign):
    """The key of a sign and the modifiers that it needs."""
    if sign == "\n":
        return ENTER, ()
    if sign == " ":
        return SPACE, ()
    if sign in PLAIN:
        return PLAIN[sign], ()
    if sign in SHIFTED:
        return SHIFTED[sign], (MAJ,)
    return WITH_ALTGR[sign], (ALTGR,)
