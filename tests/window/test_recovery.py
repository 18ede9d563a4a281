"""What was typed and not saved comes back: the question at the next start, its two answers, the end of the
session, the close box, and what the screen reader says of all that."""
import os
import signal
import sys
import threading
import time

from pilot import buttons_of, expect, run, same, wait_same
from reader import Reader, registry_process
from recovery import BEHIND, question, recovered

BINARY, PLACE = sys.argv[1:3]
NO_ROOM = "pas de copie de secours, enregistrez votre feuille"
LATE = 1.0      # seconds that the bus of the readers is silent


def has_recovered(p, texts):
    """The recovery files hold these texts."""
    wait_same(lambda: sorted(text for _, text in recovered(p.folder)), sorted(texts), "recovery files")


def asked(p, count, *arguments):
    """Starts the program, which asks about so many sheets."""
    p.launch(*arguments)
    box = p.wait_box(question(count))
    same(sorted(buttons_of(box)), ["Non", "Oui"], "buttons")


def comes_back(p):
    """Killed; Yes opens the sheets as they were."""
    named = p.folder / "un.VXT"
    named.write_bytes(b"A=1\r\n")
    p.start(named)
    p.key("Fin")
    p.type("+2")
    p.key("Ctrl+N")
    p.type("é=3¶B=4")
    p.key("Haut")
    has_recovered(p, ["A=1+2", "é=3\r\nB=4"])
    wait_same(lambda: [fiche["curseur"] for fiche, text in recovered(p.folder) if not fiche["nom"]],
              ["3 0"], "the cursor in the recovery file")
    p.kill()
    asked(p, 2)
    p.key("Alt+O")
    p.wait_text()
    p.wait_sheet("é=3\nB=4")
    wait_same(p.title, "VOXTAB SANSTITRE.VXT", "title")
    same(p.caret(), 3, "cursor")
    p.wait_message("é=3")
    p.key("Maj+F6")
    p.wait_sheet("A=1+2")
    wait_same(p.title, f"VOXTAB {named}", "title")
    same(named.read_bytes(), b"A=1\r\n", "the file")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    has_recovered(p, ["é=3\r\nB=4"])
    p.key("Alt+Q")
    p.close_box("enregistrer sur SANSTITRE.VXT ?", "Alt+N")
    same(p.wait_end(), 0, "exit status")
    has_recovered(p, [])
    p.start()
    p.wait_sheet("")


def set_aside(p):
    """No moves the sheet to the folder reprise."""
    p.start()
    p.type("A=3")
    has_recovered(p, ["A=3"])
    p.kill()
    asked(p, 1)
    p.key("Alt+N")
    p.wait_text()
    p.wait_sheet("")
    has_recovered(p, [])
    moved = list((p.folder / "reprise").iterdir())
    same(len(moved), 1, "sheets set aside")
    p.kill()
    p.start(moved[0])
    p.wait_sheet("A=3")


def close_box_cancelled(p):
    """Cancel at the close box closes, and the next start offers the sheet."""
    p.start()
    p.type("A=3")
    p.key("Alt+F4")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Échap")
    same(p.wait_end(), 0, "exit status")
    asked(p, 1)
    p.key("Alt+O")
    p.wait_text()
    p.wait_sheet("A=3")


def session_ends(p):
    """The signals that end a program write what was typed that very moment, and ask nothing; also while a
    box waits for its answer."""
    for number in (signal.SIGTERM, signal.SIGHUP):
        p.start()
        p.type("A=3")
        p.wait_sheet("A=3")
        p.process.send_signal(number)
        same(p.wait_end(), 0, "exit status")
        has_recovered(p, ["A=3"])
        asked(p, 1)
        p.key("Alt+O")
        p.wait_text()
        p.type("7")
        p.wait_sheet("A=37")
        p.key("Alt+Q")
        p.wait_box("enregistrer sur SANSTITRE.VXT ?")
        p.process.send_signal(number)
        same(p.wait_end(), 0, "exit status")
        has_recovered(p, ["A=37"])
        asked(p, 1)
        p.key("Alt+N")
        p.wait_text()
        p.key("Alt+Q")
        same(p.wait_end(), 0, "exit status")


def not_to_be_written(p):
    """Where recovery files can't be written it is told once, and typing goes on."""
    (p.folder / "secours").write_bytes(b"no folder")
    p.start()
    p.type("A=3")
    p.wait_message(NO_ROOM)
    p.key("F5")
    p.wait_message("A=3 = 3")
    p.type("+4")
    p.key("Fin")
    time.sleep(2 * BEHIND)      # nothing can be waited for: it must not come
    p.answered()
    same(p.message(), "A=3 = 3", "message")
    p.wait_sheet("A=3 = 3+4")


def without_a_key(p):
    """What no key has typed is recovered too: a paste by the menu of the mouse counts the same."""
    p.start()
    p.type("12")
    p.key("Ctrl+A")
    p.key("Ctrl+C")
    p.key("Fin")
    for _ in range(3):
        p.key("Ctrl+V")
    has_recovered(p, ["12121212"])


def heard(p):
    """The question is read once, with its count; then the line of the cursor, once. After No the empty
    sheet is read as at any start."""
    p.start()
    p.type("A=3¶B=4")
    has_recovered(p, ["A=3\r\nB=4"])
    p.kill()
    reader = Reader(PLACE)
    try:
        reader.heard()
        asked(p, 1)
        said = reader.wait_for(lambda h: any(question(1) in s for s in h.speech), "the question").speech
        same(sum(question(1) in s for s in said), 1, f"times that the question is heard in {said}")
        p.key("Alt+O")
        p.wait_text()
        said = reader.wait_for(lambda h: any("B=4" in s for s in h.speech), "the line").speech
        said += reader.heard().speech
        same(sum("B=4" in s for s in said), 1, f"times that the line is heard in {said}")
        expect(not any("A=3" in s for s in said), f"another line is heard in {said}")
        has_recovered(p, ["A=3\r\nB=4"])
        p.kill()
        reader.heard()
        asked(p, 1)
        reader.wait_for(lambda h: any(question(1) in s for s in h.speech), "the question")
        p.key("Alt+N")
        p.wait_text()
        said = reader.wait_for(lambda h: any("Feuille" in s for s in h.speech), "the sheet").speech
        said += reader.heard().speech
        expect(not any(words in s for s in said for words in ("A=3", "B=4")),
               f"a line of the sheet set aside is heard in {said}")
        print("heard after No:", said)
    finally:
        reader.end()


def late_bus(p):
    """A machine so slow that the bus of the readers answers a second late: the first box is read all the
    same."""
    p.start()
    p.type("A=3")
    has_recovered(p, ["A=3"])
    p.kill()
    reader = Reader(PLACE, "tard")
    registry = registry_process()
    try:
        reader.heard()
        os.kill(registry, signal.SIGSTOP)
        threading.Timer(LATE, os.kill, (registry, signal.SIGCONT)).start()
        asked(p, 1)
        said = reader.wait_for(lambda h: any("Oui" in s for s in h.speech), "the button").speech
        same(sum(question(1) in s for s in said), 1, f"times that the question is heard in {said}")
    finally:
        os.kill(registry, signal.SIGCONT)
        reader.end()


run([comes_back, set_aside, close_box_cancelled, session_ends, not_to_be_written, without_a_key, heard,
     late_bus],
    BINARY, PLACE)
