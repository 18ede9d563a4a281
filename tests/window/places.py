"""Where a letter lands that is typed after each editing command: the texts, the commands in turn, and the
program without a window, which the real ones are compared with."""
import json

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
    """The program without a window: what it is like after a row of steps. `ask` gives a job's line to the
    probe and returns its answer's."""

    def __init__(self, ask, text):
        self.ask = ask
        self.job = {"op": "programme", "text": "", "ligne_commande": "C:\\A.VXT",
                    "fichiers": {"C:\\A.VXT": text.replace("\n", "\r\n")}}
        self.steps = []
        self.now = self.after([])    # how the program is

    def after(self, steps):
        job = json.dumps({**self.job, "evenements": self.steps + steps})
        answer = json.loads(self.ask(job))
        if "erreur" in answer:
            raise AssertionError(f"the probe: {answer['erreur']}")
        return answer

    def command(self, key, *answers):
        """Runs a command; the answers that it has asked for, and how the program is then."""
        before = len(self.now["saisies"])
        steps = [f"répond {quoted(answer)}" for answer in answers]
        answer = self.after([*steps, f"touche {key}"])
        asked = len(answer["saisies"]) - before
        self.steps += [*steps[:asked], f"touche {key}"]
        self.now = answer if asked == len(answers) else self.after([])
        return answers[:asked], self.now

    def letter(self):
        self.steps.append(f"tape {quoted(LETTER)}")
        self.now = self.after([])
        return self.now


def place(answer):
    """Text and cursor as the text control has them: a line end is one, and between its two characters the
    cursor is on the line below."""
    text = answer["text"].encode("cp1252")
    at = answer["selstart"]
    at += text[at - 1:at + 1] == b"\r\n"
    return text.decode("cp1252").replace("\r\n", "\n"), len(text[:at].decode("cp1252").replace("\r\n", "\n"))


def line_at(text, at):
    return text[text.rfind("\n", 0, at) + 1:].split("\n")[0]
