"""Where a letter lands that is typed after each command: in the real window as in the program without one,
and on the line that the command has said."""
import subprocess
import sys

from pilot import run, same, wait_same
from places import COMMANDS, LETTER, NO_LINE, SAYS_ITS_LINE, TEXTS, Probe, line_at, place

BINARY, PLACE, _, PROBE = sys.argv[1:5]
running = subprocess.Popen([PROBE], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)


def ask(job):
    """Each job is a fresh program in the probe."""
    running.stdin.write(job + "\n")
    running.stdin.flush()
    return running.stdout.readline()


def behind_each_command(p, text):
    sheet = p.folder / "A.VXT"
    sheet.write_bytes(text.replace("\n", "\r\n").encode("cp1252"))
    p.start(sheet)
    probe = Probe(ask, text)
    for key, *prepared in COMMANDS:
        answers, answer = probe.command(key, *prepared)
        p.key(key)
        for number, given in enumerate(answers):
            prompt, proposed = answer["saisies"][number - len(answers)]
            p.entry(prompt, proposed, given)
        p.wait_text()
        where = f"after {key} {answers}"
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
