"""What a key makes the screen reader say: the words that are expected come once each and nothing comes twice,
the braille line shows them, and then the line of the cursor again. Each key is a row of a table.
VOXTAB_HEARD=FILE writes the rows into that file."""
import os
import re

from pilot import Program, same
from reader import Reader

# What the reader says of keys themselves.
KEY_NAMES = ("left alt", "left control", "left shift", "right alt", "return", "escape", "tab", "space",
             "delete", "backspace", "up", "down", "left", "right", "page up", "page down", "home", "end")
FLASH = 60       # milliseconds that the reader leaves a message on the braille line; a user's are 5000
TITLE = "# What is heard: one run of the window's test with Orca 43, in its English.\n" \
        "# key or command | words expected | times heard, each | all that was spoken but the names of keys " \
        "| the braille line after it\n"


class Hearing:
    """The rows of one run, and what went wrong in it."""

    def __init__(self, program, reader):
        self.p = program
        self.reader = reader
        self.rows = []
        self.failures = []
        self.last_said = []
        self.braille = ""        # the braille line, as it was written last

    def check(self, condition, what):
        if not condition:
            self.failures.append(what)
            print("FAILED ", what, flush=True)

    def begin(self):
        """Before a key: nothing of what the last one made the reader say may come again."""
        late = [words for words in said_of(self.reader.heard()) if words in self.last_said]
        self.check(not late, f"heard once more, later: {late}")

    def press(self, key, row):
        """Presses a key; the result is the name of its row. A command of a menu is chosen with Enter."""
        self.begin()
        self.p.key(key)
        return f"{row} : {key}" if row else key

    def note(self, row, heard, words, box=None):
        """Writes a row: how often each of the words came, and that nothing but names of keys came twice. A
        box that the window manager of the test takes the keyboard from, and gives it back, is read when it
        comes back: that is the manager's doing on a busy machine, and counted."""
        self.p.answered()
        line = self.wait_braille(heard)
        said = said_of(heard)
        comings = 1 + heard.left.count(box)
        plain = [one.rstrip(".") for one in said]
        print(f"{row}: {said} | {line}", flush=True)
        self.check(all(plain.count(one) <= comings for one in plain), f"{row}: heard twice in {said}")
        times = [sum(one == word.strip().rstrip(".") or (box == word and word in one) for one in plain)
                 for word in words]
        self.check(all(1 <= n <= comings for n in times), f"{row}: {words} are heard {times} times in {said}")
        self.last_said[:] = said
        self.rows.append((row, words, times, said, line))
        return plain

    def wait_braille(self, heard):
        """The braille line once what was spoken has left it: what stands at the cursor. In the sheet that is
        its line."""
        wanted = self.line_of_the_cursor()

        def back(h):
            lines = heard.braille + h.braille
            self.braille = shown(lines[-1]) if lines else self.braille
            return self.braille.removesuffix(" rdonly").strip() == wanted if wanted is not None else \
                self.braille not in [one.strip() for one in said_of(heard)]
        heard.add(self.reader.wait_for(back, f"the braille line {wanted!r}"))
        return self.braille

    def line_of_the_cursor(self):
        """What braille shows of the sheet where the cursor is in it, None elsewhere."""
        if self.p.dialog() is not None or self.p.focus_name() != "Feuille":
            return None
        text, at = self.p.sheet(), self.p.caret()
        line = text[text.rfind("\n", 0, at) + 1:].split("\n")[0]
        return f"Feuille {line}".strip()

    def hear(self, key, *words, row=""):
        """Presses a key; the words are spoken, in this order and nothing else, and shown in braille."""
        row = self.press(key, row)
        heard = self.reader.wait_for(lambda h: all(h.count(w) for w in words), f"{row}: {words}")
        said = self.note(row, heard, words)
        for w in words:
            self.check(any(w in line for line in heard.braille), f"{row}: {w!r} isn't in {heard.braille}")
        self.check(said == [w.strip().rstrip(".") for w in words],
                   f"{row}: expected {list(words)}, heard {said}")

    def hear_beside(self, key, *words, row=""):
        """Presses a key at which the reader has words of its own too: it reads the sign at the cursor after
        an arrow, what is selected or comes into the text, a title that changes."""
        row = self.press(key, row)
        heard = self.reader.wait_for(lambda h: all(h.count(w) for w in words), f"{row}: {words}")
        self.note(row, heard, words)

    def hear_back(self, key, line, *words, row="", name="Feuille text", spoken=()):
        """Presses a key that leads back to the text: its line is read once, and so are the words; those of
        `spoken` only in the ear."""
        row = self.press(key, row)
        self.p.wait_text()
        wanted = (name, *([line] if line else []), *words, *spoken)
        heard = self.reader.wait_for(lambda h: all(h.count(w) for w in wanted), f"{row}: {wanted}")
        self.note(row, heard, wanted[1:])
        for w in (name.removesuffix(" text").removesuffix(" read only"), line, *words):
            self.check(any(w in b for b in heard.braille), f"{row}: {w!r} isn't in {heard.braille}")
        return heard

    def hear_box(self, key, words, row=""):
        """Presses a key that opens a box, a dialog or a view: its words are read once."""
        row = self.press(key, row)
        heard = self.reader.wait_for(lambda h: any(words in said for said in h.speech), f"{row}: {words}")
        self.note(row, heard, (words,), box=words)
        first = re.sub(" (text|dialog|file chooser|push button|page tab)$", "", words)
        self.check(any(first in b for b in heard.braille), f"{row}: {first!r} isn't in {heard.braille}")

    def answer(self, text):
        """Types an answer into an entry box or a line for a name, over what is proposed there."""
        dialog = self.p.wait_dialog()
        self.p.key("Ctrl+A")
        self.p.type(text)
        self.reader.heard()
        return dialog

    def write(self):
        """Writes the table where VOXTAB_HEARD says, names of folders of the test left out."""
        if not os.environ.get("VOXTAB_HEARD"):
            return
        with open(os.environ["VOXTAB_HEARD"], "w", encoding="utf-8") as out:
            out.write(TITLE)
            for row, words, times, said, line in self.rows:
                cells = (row, "; ".join(words), "; ".join(map(str, times)), "; ".join(said), line)
                out.write(" | ".join(cells).replace(str(self.p.folder), "/home/eleve") + "\n")


def run_parts(binary, place, parts, before=None, after=None):
    """Runs the parts of a test one after the other in one run of the program with its reader, then ends the test:
    status 1 when something was heard otherwise. `before` gets the program before it starts, `after` the hearing
    when all parts have run."""
    reader = Reader(place, flash=FLASH)
    program = Program(binary, place)
    if before:
        before(program)
    h = Hearing(program, reader)
    try:
        program.start()
        reader.wait_for(lambda heard: heard.count("Feuille text"), "the text")
        for part in parts:
            part(program, h)
        same(program.errors(), [], "what the toolkit complains about")
        if after:
            after(h)
    finally:
        program.screen.release_all()
        program.kill()
        reader.end()
    print(f"{len(h.rows)} commands heard, {len(h.failures)} failures")
    raise SystemExit(1 if h.failures else 0)


def is_key(words):
    return words in KEY_NAMES or len(words) == 1 or words in [f"F{n}" for n in range(1, 13)]


def said_of(heard):
    """What was spoken but for the names of keys."""
    return [words.strip() for words in heard.speech if words.strip() and not is_key(words)]


def shown(braille):
    """A braille line without the reader's sign for the end of the line, from the name of the sheet on."""
    return re.sub(r"^voxtab application .* (Feuille )", r"\1", braille).replace(" $l", "").strip()
