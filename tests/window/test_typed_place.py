"""Where a letter lands that is typed behind each command: in the real window as in the program without one,
and on the line that the command has said."""
import json
import subprocess
import sys

from pilot import expect, run, same, wait, wait_same

BINARY, PLACE, _, PROBE = sys.argv[1:5]
TEXTS = {
    "one_line": "alpha beta", "closed": "alpha\nbeta\ngamma\n", "open_end": "ab\nba\nb1 a",
    "empty_lines": "\n\na\n\nb\n", "single_signs": "a\nb\na\nb\n", "ends_with_match": "xa\nya b\nza\nb",
    "accents": "é a à\nœ b €\nça\n", "blanks": "  a  b\n   \n b   a \n", "long": "a" * 25 + "\n" + "b " * 15 + "\nabc\n",
    "calculated": "A=3 = 3\nB=A*2 = 6\nA+B = 9\n! a b",
}
# Each command by its key, with the answers to its questions.
COMMANDS = (("F3", "a"), ("Ctrl+F3",), ("Maj+F3",), ("Alt+R", "b"), ("Ctrl+E", "a"), ("Ctrl+L", "a", ""), ("Ctrl+J",),
            ("Ctrl+Y", "3"), ("Ctrl+T",), ("Ctrl+Y", "2"), ("Alt+Droite",), ("Ctrl+Y", "3"), ("Alt+Gauche",), ("F9",),
            ("Maj+F9",), ("Ctrl+Y", "2"), ("Ctrl+F1",), ("Ctrl+G",), ("Ctrl+Y", "1"), ("Maj+F1",), ("Ctrl+Y", "2"),
            ("Alt+M", "b", ""), ("Ctrl+A",), ("Ctrl+Z",), ("Ctrl+Maj+Z",), ("Ctrl+Z",))
SAYS_ITS_LINE = ("F3", "Ctrl+F3", "Maj+F3", "Alt+R", "Ctrl+E", "Ctrl+L", "Ctrl+J", "Maj+F1", "Ctrl+Y", "Ctrl+Z", "Ctrl+Maj+Z")
NO_LINE = ("introuvable", "inconnu", "rien à annuler", "rien à rétablir")
LETTER = "k"


def quoted(text):
    return '"' + text.replace("\n", "¶") + '"'


class Probe:
    """The program without a window: what it is like behind a row of steps."""

    def __init__(self, text):
        self.job = {"op": "programme", "text": "", "ligne_commande": "C:\\A.VXT",
                    "fichiers": {"C:\\A.VXT": text.replace("\n", "\r\n")}}
        self.steps = []

    def after(self, steps):
        job = json.dumps({**self.job, "evenements": self.steps + steps})
        answer = json.loads(subprocess.run([PROBE], input=job + "\n", capture_output=True, text=True, check=True).stdout)
        expect("erreur" not in answer, f"the probe: {answer.get('erreur')}")
        return answer

    def command(self, key, *answers):
        """Runs a command; the answers that it has asked for, and how the program is then."""
        before = len(self.after([])["saisies"])
        steps = [f"répond {quoted(answer)}" for answer in answers]
        answer = self.after([*steps, f"touche {key}"])
        asked = len(answer["saisies"]) - before
        self.steps += [*steps[:asked], f"touche {key}"]
        return answers[:asked], self.after([])

    def letter(self):
        self.steps.append(f"tape {quoted(LETTER)}")
        return self.after([])


def place(answer):
    """Text and cursor as the text control has them: a line end is one, and between its two characters the
    cursor is on the line below."""
    text = answer["text"].encode("cp1252")
    at = answer["selstart"]
    at += text[at - 1:at + 1] == b"\r\n"
    return text.decode("cp1252").replace("\r\n", "\n"), len(text[:at].decode("cp1252").replace("\r\n", "\n"))


def line_at(text, at):
    return text[text.rfind("\n", 0, at) + 1:].split("\n")[0]


def behind_each_command(p, text):
    sheet = p.folder / "A.VXT"
    sheet.write_bytes(text.replace("\n", "\r\n").encode("cp1252"))
    p.start(sheet)
    probe = Probe(text)
    for key, *prepared in COMMANDS:
        answers, answer = probe.command(key, *prepared)
        p.key(key)
        for number, given in enumerate(answers):
            prompt, proposed = answer["saisies"][number - len(answers)]
            p.entry(prompt, proposed, given)
        p.wait_text()
        where = f"behind {key} {answers}"
        message = answer["messages"][-1].strip()
        wait_same(lambda: p.message().strip(), message, f"message {where}")
        wait_same(lambda: (p.sheet(), p.caret()), place(answer), f"text and cursor {where}")
        if key in SAYS_ITS_LINE and message not in NO_LINE:
            same(line_at(*place(answer)).strip(), message, f"line of the cursor {where}")
        after = probe.letter()
        p.type(LETTER)
        wait_same(lambda: (p.sheet(), p.caret()), place(after), f"text and cursor of the letter {where}")


def case(name, text):
    def run_case(p):
        behind_each_command(p, text)
    run_case.__name__ = name
    return run_case


run([case(name, text) for name, text in TEXTS.items()], BINARY, PLACE)
