"""A program that is started a second time on the same folder of files ends with a box: two would share the
settings and the working copies. Another folder, or a program that was killed, hinders nobody."""
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


def second_start(p):
    """The second program says so and ends; the first keeps its unsaved sheets, also those not shown."""
    sheet = p.folder / "essai.VXT"
    sheet.write_bytes(b"1+1\r\n")
    p.start(sheet)
    p.type("A=3¶")
    p.key("Ctrl+N")
    p.type("B=4")
    before = copies(p)
    expect(b"A=3\r\n1+1\r\n" in before.values(), f"the copy of the first sheet: {before}")
    second = beside(p, p.folder)
    for arguments in ((), (sheet,)):
        second.launch(*arguments)
        second.close_box(OPEN_ALREADY)
        same(second.wait_end(), 1, "exit status of the second program")
    same(copies(p), before, "working copies")
    expect(not (p.folder / "VOXTAB.INI").exists(), "the second program has written the settings")
    look_at(p)
    same(p.sheet(), "B=4", "the sheet")
    p.key("F6")
    p.wait_sheet("A=3\n1+1")
    p.key("Ctrl+S")
    wait_same(sheet.read_bytes, b"A=3\r\n1+1\r\n", "the file")
    p.key("Alt+Q")
    p.close_box("enregistrer sur SANSTITRE.VXT ?", "Alt+N")
    same(p.wait_end(), 0, "exit status of the first program")
    p.start()
    p.key("Alt+Q")
    same(p.wait_end(), 0, "exit status of a later program")


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


run([second_start, killed, other_folder], BINARY, PLACE)
