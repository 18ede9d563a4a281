"""Where a letter lands that is typed after each editing command: in the window on Windows as in the program
without one, and on the line that the command has said."""
import os
import pathlib
import subprocess
import sys

from pilot import run, same, wait, wait_same
from places import COMMANDS, LETTER, NO_LINE, SAYS_ITS_LINE, TEXTS, Probe, line_at, place

BUILD, PLACE = sys.argv[1:3]
CHOSEN = os.environ.get("TEXTS", "empty_lines accents calculated").split()    # of the ten of Linux
sonde = subprocess.Popen(["wine", str(pathlib.Path(BUILD) / "voxtab-sonde.exe")], stdin=subprocess.PIPE,
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)


def ask(job):
    sonde.stdin.write(job.encode() + b"\n")
    sonde.stdin.flush()
    return sonde.stdout.readline()


def now(p):
    """The text and the cursor's place with line ends as one."""
    text = p.sheet()
    control = text.replace("\n", "\r\n")
    return text, len(control[:p.selection()[0]].replace("\r\n", "\n"))


def entry(p, prompt, proposed, answer):
    """Answers an entry box, which proposes a text that typing replaces."""
    p.wait_box(prompt)
    fields = wait(lambda: [c for c in p.box()["children"] if c["class"] == "Edit" and c["focus"]], "its line")
    same(fields[0]["text"], proposed, f"what {prompt} proposes")
    if answer:
        p.type(answer)
    else:
        p.key("Suppr")
    wait(lambda: [c for c in p.box()["children"] if c["class"] == "Edit" and c["text"] == answer], "the answer")
    p.key("Entrée")
    wait(lambda: prompt not in (p.words_of_box() or []), "the end of the box")


def behind_each_command(p, text):
    (p.folder / "A.VXT").write_bytes(text.replace("\n", "\r\n").encode("cp1252"))
    p.launch("A.VXT")
    p.ready()
    probe = Probe(ask, text)
    wait_same(lambda: now(p), place(probe.after([])), "the sheet")
    for key, *prepared in COMMANDS:
        answers, answer = probe.command(key, *prepared)
        p.key(key)
        for number, given in enumerate(answers):
            entry(p, *answer["saisies"][number - len(answers)], given)
        p.wait_no_box()
        where = f"after {key} {answers}"
        message = answer["messages"][-1].strip()
        wait_same(lambda: p.message().strip(), message, f"message {where}")
        wait_same(lambda: now(p), place(answer), f"text and cursor {where}")
        if key in SAYS_ITS_LINE and message not in NO_LINE:
            same(line_at(*place(answer)).strip(), message, f"line of the cursor {where}")
        after = probe.letter()
        p.type(LETTER)
        wait_same(lambda: now(p), place(after), f"text and cursor of the letter {where}")


def case(name):
    def run_case(p):
        behind_each_command(p, TEXTS[name])
    run_case.__name__ = name
    return run_case


try:
    run([case(name) for name in CHOSEN], BUILD, PLACE)
finally:
    sonde.kill()
    sonde.wait()
