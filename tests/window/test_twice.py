"""A program that is started a second time on the same folder of files gives its sheet to the first one and
ends: two would share the settings and the working copies. Another folder, or a program that was killed,
hinders nobody."""
import os
import pathlib
import subprocess
import sys

from pilot import Program, expect, looked_at, run, same, wait, wait_same
from recovery import question, recovered

BINARY, PLACE = sys.argv[1:3]
OPEN_ALREADY = "VOXTAB est déjà ouvert. Revenez à sa fenêtre avec Alt+Tab, et ouvrez-y la feuille avec Ctrl+O."


def beside(p, folder):
    """Another run of the program, in that folder."""
    return Program(BINARY, PLACE, folder.name)


def look_at(p):
    """From now on this program is asked, and waits for the keyboard."""
    looked_at[:] = [p.app]
    wait(p.active_window, "the keyboard of the first window")


def copies(p):
    return {path.name: path.read_bytes() for path in (p.folder / "travail").iterdir()}


def hand_over(p, *arguments):
    """A second start, which gives its sheet to the program that runs, and ends."""
    done = subprocess.run([*(p.command or [p.binary]), *map(str, arguments)], cwd=p.folder, timeout=300,
                          capture_output=True, check=False)
    same(done.returncode, 0, "exit status of the second program")
    look_at(p)


def second_start(p):
    """The first program opens what the second one was given, or shows it as it stands when it is open
    already; while a box is open it waits. The unsaved sheets stay, also those not shown."""
    sheet, other = p.folder / "essai.VXT", p.folder / "jean.dupont" / "autre.VXT"
    other.parent.mkdir()
    sheet.write_bytes(b"1+1\r\n")
    other.write_bytes(b"2+2\r\n")
    p.start(sheet)
    p.type("A=3¶")
    p.key("Ctrl+N")
    p.type("B=4")
    before = copies(p)
    expect(b"A=3\r\n1+1\r\n" in before.values(), f"the copy of the first sheet: {before}")
    hand_over(p)
    same(p.sheet(), "B=4", "the sheet")
    hand_over(p, sheet)
    p.wait_sheet("A=3\n1+1")
    hand_over(p, other)
    p.wait_sheet("2+2")
    wait_same(p.title, f"VOXTAB {other}", "the title")
    p.key("F6")
    p.wait_sheet("A=3\n1+1")
    expect(not (p.folder / "VOXTAB.INI").exists(), "the second program has written the settings")
    p.key("Ctrl+S")
    wait_same(sheet.read_bytes, b"A=3\r\n1+1\r\n", "the file")
    p.key("Alt+Q")
    p.close_box("enregistrer sur SANSTITRE.VXT ?", "Alt+N")
    same(p.wait_end(), 0, "exit status of the first program")
    p.start()
    p.key("Alt+Q")
    same(p.wait_end(), 0, "exit status of a later program")


def behind_a_box(p):
    """What is given while a command shows a box is opened when the command has ended."""
    sheet = p.folder / "essai.VXT"
    sheet.write_bytes(b"1+1\r\n")
    p.start()
    p.type("A=3")
    p.key("F3")
    p.wait_dialog()
    done = subprocess.run([*(p.command or [p.binary]), sheet], cwd=p.folder, timeout=300, check=False)
    same(done.returncode, 0, "exit status of the second program")
    same(p.sheet(), "A=3", "the sheet")
    p.key("Échap")
    p.wait_sheet("1+1")


def out_of_reach(p):
    """Where the first program can't be reached, the second one says so and ends."""
    p.start()
    p.type("A=3")
    places = [p.folder / "travail", pathlib.Path(os.environ.get("XDG_RUNTIME_DIR", p.folder)), p.folder]
    sockets = [path for place in places for path in place.glob("voxtab-*.feuilles")]
    expect(sockets, "no socket")
    for path in set(sockets):
        path.unlink()
    second = beside(p, p.folder)
    second.launch()
    second.close_box(OPEN_ALREADY)
    same(second.wait_end(), 1, "exit status of the second program")
    look_at(p)
    same(p.sheet(), "A=3", "the sheet")


def killed(p):
    """A program that was killed leaves nothing that hinders the next one."""
    p.start()
    p.type("A=3")
    p.kill()
    p.launch()
    if recovered(p.folder):
        p.close_box(question(1), "Alt+N")
    p.wait_text()
    p.type("B=4")
    p.wait_sheet("B=4")


def other_folder(p):
    """Each copy of the program has files of its own."""
    p.start()
    p.type("A=3")
    other = Program(BINARY, PLACE, p.folder.name + "_autre")
    other.start()
    other.type("B=4")
    other.wait_sheet("B=4")
    other.kill()
    same(other.errors(), [], "complaints of the other program")
    look_at(p)
    p.wait_sheet("A=3")


run([second_start, behind_a_box, out_of_reach, killed, other_folder], BINARY, PLACE)
