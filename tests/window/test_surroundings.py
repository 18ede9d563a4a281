"""Bad surroundings: whatever is missing or full, the user is told in French and loses nothing."""
import os
import shutil
import subprocess
import sys

from pilot import LeftOut, Atspi, expect, name_file, run, same, wait, wait_same
from texts import FUNCTIONS

BINARY, PLACE = sys.argv[1:3]


def mounted(folder, options):
    """A disk of its own; where the system doesn't permit one, the case is left out, and said to be."""
    if not os.environ["VOXTAB_MOUNTS"]:
        raise LeftOut("no disk may be mounted here")
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", str(folder)], check=True)
    return folder


def fill(folder):
    """Leaves no room for another byte on the disk of a folder."""
    plug = os.open(folder / "bouchon", os.O_WRONLY | os.O_CREAT)
    try:
        while os.write(plug, b"x" * 1024):
            pass
    except OSError:
        pass
    finally:
        os.close(plug)
    return folder / "bouchon"


def no_display(p):
    """Without a display: one French sentence and status 1."""
    env = {name: value for name, value in os.environ.items()
           if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    for display in ({}, {"DISPLAY": ":987"}):
        done = subprocess.run([BINARY], env={**env, **display}, capture_output=True, text=True,
                              check=False)
        same(done.returncode, 1, "exit status")
        same(done.stderr, "voxtab : aucun écran n'est disponible ; voxtab-calc calcule dans un terminal.\n",
             "what it says")
    p.log.write_text("", encoding="utf-8")


def no_accessibility_bus(p):
    """The program works all the same: it calculates and saves."""
    sheet = p.folder / "essai.VXT"
    sheet.write_bytes(b"6*7\r\n")
    nowhere = "unix:path=" + str(p.folder / "nulle-part")
    env = dict(os.environ, DBUS_SESSION_BUS_ADDRESS=nowhere, AT_SPI_BUS_ADDRESS=nowhere)
    with open(p.folder / "sans-bus.txt", "w", encoding="utf-8") as log:
        p.process = subprocess.Popen([p.binary, sheet], stdout=log, stderr=log, env=env, cwd=p.folder)
    p.main = wait(p.active_window, "the window")
    p.key("Alt+C")
    p.key("Ctrl+S")
    wait_same(sheet.read_bytes, b"6*7 = 42\r\n", "the file")
    p.key("Alt+Q")
    same(p.wait_end(), 0, "exit status")
    p.log.write_text("", encoding="utf-8")


def read_only_program_folder(p):
    """The program's files go to the user's folder when its own can't be written."""
    folder = mounted(p.folder / "lecture", "size=64m")
    shutil.copy(p.binary, folder / "voxtab")
    shutil.copytree(p.folder / "data", folder / "data")
    subprocess.run(["mount", "-o", "remount,ro", str(folder)], check=True)
    p.binary = folder / "voxtab"
    p.start()
    p.type("A=3")
    p.key("F5")
    p.wait_sheet("A=3 = 3")
    same(p.dialog(), None, "box")
    p.key("Alt+F1")
    p.wait_sheet(FUNCTIONS)
    p.key("Échap")
    p.wait_sheet("A=3 = 3")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    p.start()
    wait_same(lambda: p.panel(1), "Entier Degré", "panel 1 at the next start")


def full_disk(p):
    """A save that finds no room is told; file and text stay, and the save goes when there is room."""
    disk = mounted(p.folder / "disque", "size=64k")
    sheet = disk / "essai.VXT"
    sheet.write_bytes(b"A=1\r\n")
    p.start(sheet)
    plug = fill(disk)
    p.type("B=2¶")
    p.key("Ctrl+S")
    p.close_box("61 61")
    p.wait_text()
    same((sheet.read_bytes(), p.sheet()), (b"A=1\r\n", "B=2\nA=1"), "file and text")
    same(sorted(f.name for f in disk.iterdir()), ["bouchon", "essai.VXT"], "files of the full disk")
    plug.unlink()
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same(sheet.read_bytes(), b"B=2\r\nA=1\r\n", "file")
    same((disk / "essai.bak").read_bytes(), b"A=1\r\n", "backup")


def export_page(p, page):
    """Ctrl+H, and the page's name over the one that is proposed."""
    p.key("Ctrl+H")
    name_file(p, page)


def page_without_room(p):
    """A page that finds no room, or may not be written, is told; the page from before stays whole, nothing is left
    beside it, and the next try succeeds."""
    disk = mounted(p.folder / "disque", "size=64k")
    page = disk / "devoir.html"
    page.write_text("ancienne", encoding="utf-8")
    p.start()
    p.type("2+3")
    plug = fill(disk)
    before = sorted(f.name for f in disk.iterdir())
    for hinder, free in ((lambda: None, plug.unlink),
                         (lambda: subprocess.run(["mount", "-o", "remount,ro", str(disk)], check=True),
                          lambda: subprocess.run(["mount", "-o", "remount,rw", str(disk)], check=True))):
        hinder()
        export_page(p, page)
        p.wait_box("devoir.html existe déjà, le remplacer ?")
        p.key("Alt+O")
        p.wait_message("rien n'est exporté : le fichier ne peut pas être écrit")
        p.wait_text()
        same((page.read_text(encoding="utf-8"), p.sheet()), ("ancienne", "2+3"), "page and sheet")
        same(sorted(f.name for f in disk.iterdir()), before, "files of the disk")
        free()
        before = ["devoir.html"]
        p.key("Ctrl+G")
        p.wait_message("colonne 4 ligne 1")
    export_page(p, page)
    p.wait_box("devoir.html existe déjà, le remplacer ?")
    p.key("Alt+O")
    p.wait_message("page exportée : devoir.html, avec les résultats d'un nouveau calcul")
    expect(page.read_text(encoding="utf-8").startswith("<!DOCTYPE html>"), "no page")


def full_disk_of_the_program(p):
    """No room for a working copy: it is told, and the sheet stays where it is."""
    folder = mounted(p.folder / "plein", "size=64m")
    shutil.copy(p.binary, folder / "voxtab")
    shutil.copytree(p.folder / "data", folder / "data")
    p.binary = folder / "voxtab"
    p.start()
    p.type("A=3")
    plug = fill(folder)
    p.key("Alt+F1")                    # would put the sheet aside and show the list of functions
    p.close_box("61 61")
    p.wait_text()
    same((p.sheet(), p.title()), ("A=3", "VOXTAB SANSTITRE.VXT"), "text and title")
    p.key("Échap")
    p.wait_sheet("A=3")
    plug.unlink()
    p.key("Alt+F1")
    p.wait_sheet(FUNCTIONS)
    p.key("Échap")
    p.wait_sheet("A=3")


def a_folder_with_the_name_of_the_sheet(p):
    """A folder stands where the sheet was: it is told, and nothing is lost."""
    sheet = p.folder / "essai.VXT"
    sheet.write_bytes(b"A=1\r\n")
    p.start(sheet)
    sheet.unlink()
    sheet.mkdir()
    p.type("B=2¶")
    p.key("Ctrl+S")
    p.close_box("75 75")
    p.wait_text()
    same((p.sheet(), p.title(), list(sheet.iterdir())), ("B=2\nA=1", f"VOXTAB {sheet}", []),
         "text, title and folder")
    sheet.rmdir()
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same(sheet.read_bytes(), b"B=2\r\nA=1\r\n", "file")


def a_folder_on_the_command_line(p):
    """It is no sheet: the program begins with an empty one."""
    (p.folder / "dossier.VXT").mkdir()
    p.start(p.folder / "dossier.VXT")
    same((p.title(), p.sheet(), p.dialog()), ("VOXTAB SANSTITRE.VXT", "", None), "title, sheet and box")


def missing_printer(p):
    """It is told in words, once."""
    p.start()
    p.type("A=3")
    p.key("Ctrl+P")
    p.close_box("l'impression n'a pas pu se faire : y a-t-il une imprimante ?")
    p.wait_text()
    same(p.dialog(), None, "a second box")
    p.menu("F", "Choix de l'imprimante")
    wait_same(lambda: (d := p.wait_dialog()).get_name(), "Choix de l'imprimante", "the printer dialog")
    p.key("Échap")
    p.wait_text()
    same(p.sheet(), "A=3", "sheet")


def forty_megabytes(p):
    """A sheet of 40 MB opens, is calculated and saved, not a byte of it lost."""
    sheet = p.folder / "grand.VXT"
    before = (b"! " + b"x" * 1276 + b"\r\n") * 32000 + b"A=3\r\n"
    sheet.write_bytes(before)
    p.start(sheet)
    same(Atspi.Text.get_character_count(p.text()), len(before) - 2 - 32000, "characters in the text")
    p.key("Ctrl+Fin")
    p.key("Alt+C")
    p.wait_message("A=3 = 3")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    expect(sheet.read_bytes() == before[:-2] + b" = 3\r\n", "the file isn't what it should be")
    expect((p.folder / "grand.bak").read_bytes() == before, "the backup isn't what it should be")


run([no_display, no_accessibility_bus, read_only_program_folder, full_disk, page_without_room, full_disk_of_the_program,
     a_folder_with_the_name_of_the_sheet, a_folder_on_the_command_line, missing_printer,
     forty_megabytes], BINARY, PLACE)
