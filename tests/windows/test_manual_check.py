"""The list that a user with a reader walks on a real Windows, docs/manual-check.md, walked under Wine: each step
gives what it says and no other message. Steps in italics need a real reader or another program."""
import pathlib
import re
import sys
import time

from hearing import line_of_cursor, messages
from pilot import DEGREE, GRADE, LIMIT, RADIAN, TXT, expect, run, wait
from sound_server import SoundServer
from stand_in import Reader

BUILD, PLACE = sys.argv[1:3]
LIST = pathlib.Path(PLACE) / "manual-check.md"
ROW = re.compile(r"\| (\d+) \| (.+?) \| (.+?) \|")
# Wine's AltGr is neither Ctrl nor Alt; its dialogs don't select the name that they propose.
ANGLE_FRAME = 1002
UNDER_WINE = {"AltGr+C": "Ctrl+Alt+C"}


def steps():
    """Number, keys and texts to hear of each step."""
    return [(int(found[1]), found[2], re.findall(r'"([^"]*)"', found[3]), found[3])
            for line in LIST.read_text(encoding="utf-8").splitlines() if (found := ROW.match(line))]


def readable(p):
    """What a reader reads by itself of what has the focus: the title, the control, its line."""
    box = p.box()
    if box is not None:
        return [box["title"], *(p.words_of_box() or [])]
    state = p.probe.ask("focus")
    if state is None or state["id"] == TXT:
        return [p.title() or "", "Feuille", line_of_cursor(p) or ""]
    around = [p.state(ANGLE_FRAME)["text"]] if state["id"] in (DEGREE, RADIAN, GRADE) else []
    return [*around, state["text"].replace("&", "")]


def press(p, part):
    """A key, or a text in backquotes; what is told until then is not lost."""
    if not part.startswith("`"):
        p.key(UNDER_WINE.get(part, part))
        return
    box = p.box()
    if box is not None and box["title"] != "VOXTAB":
        p.key("Ctrl+A")
    p.type(part.strip("`"))


def missing(texts, said, seen):
    """The texts that are neither told, as often as the step has them, nor read."""
    return [words for words in texts if said.count(words) < texts.count(words) and not any(words in one for one in seen)]


def walk(p, number, keys, texts, heard):
    """One step. The messages are among its texts; the others a reader reads by itself."""
    parts = re.findall(r"`[^`]+`|(?:[A-Za-zÉéè]+\+)*[A-ZÉ][a-zéè]*\d*(?![a-zé])", keys.replace(" quickly", ""))
    said = []
    for part in parts:
        press(p, part)
        if "quickly" not in keys:
            said += messages(p)
    said += messages(p)
    end = time.monotonic() + LIMIT
    while missing(texts, said, readable(p)) and time.monotonic() < end:
        said += messages(p)
    seen = readable(p)
    print(f"{number} {keys}: {said} {seen}", flush=True)
    expect(texts or "no message" in heard, f"step {number} says nothing to hear")
    for words in said:
        expect(texts.count(words) >= said.count(words), f"step {number}, {keys}: told {said}, expected {texts}")
    expect(not missing(texts, said, seen),
           f"step {number}, {keys}: {missing(texts, said, seen)} aren't in {said} or {seen}")


def the_list(p):
    rows = steps()
    expect([number for number, *_ in rows] == list(range(1, len(rows) + 1)), "the steps are numbered in turn")
    expect(all(texts or "no message" in heard for _, _, texts, heard in rows), "each step has one thing to hear")
    p.start(environment=SERVER.environment)
    messages(p)
    with Reader(p, BUILD, "witness"):       # the name of the message line has its "&" there
        for number, keys, texts, heard in rows:
            if not keys.startswith("*"):
                walk(p, number, keys, texts, heard)


SERVER = SoundServer(PLACE, wait)
run([the_list], BUILD, PLACE)
