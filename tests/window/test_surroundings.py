"""Bad surroundings: whatever is missing or full, the user is told in French and loses nothing."""
import os
import shutil
import subprocess
import sys
import time

from pilot import (LIMIT, PAUSE, Atspi, expect, run, same, wait, wait_same, words_of)

BINARY, PLACE = sys.argv[1:3]


def mounted(folder, options):
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", str(folder)], check=True)
    return folder


def fill(folder):
    """Leaves no room for another byte on the disk of a folder."""
    with open(folder / "bouchon", "wb") as plug:
        try:
            while True:
                plug.write(b"x" * 1024)
                plug.flush()
        except OSError:
            pass
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
    wait(lambda: p.sheet().startswith("PI "), "the list of functions")
    p.key("Échap")
    p.wait_sheet("A=3 = 3")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    p.start()
    wait_same(lambda: p.panel(1), "Entier Degré", "panel 1 at the next start")


def explore(p):
    disk = mounted(p.folder / "disque", "size=64k")
    sheet = disk / "essai.VXT"
    sheet.write_bytes(b"A=1\r\n")
    p.start(sheet)
    fill(disk)
    p.type("B=2¶")
    p.key("Ctrl+S")
    for _ in range(5):
        time.sleep(1.5)
        d = p.dialog()
        print("full:", d and words_of(d), repr(p.message()))
        if d: p.key("Entrée")
    print(sheet.read_bytes(), os.listdir(disk), p.sheet())
    (disk / "bouchon").unlink()
    p.key("Ctrl+S"); time.sleep(1)
    d = p.dialog()
    print("free:", d and words_of(d), repr(p.message()), sheet.read_bytes(), os.listdir(disk))


def explore2(p):
    (p.folder / "dossier.VXT").mkdir()
    p.launch(p.folder / "dossier.VXT")
    for _ in range(5):
        time.sleep(1)
        d = p.dialog()
        print("folder:", d and words_of(d), p.window() and repr(p.message()), p.window() and p.title())
        if d: p.key("Entrée")


def explore3(p):
    sheet=p.folder / "x.VXT"
    sheet.write_bytes(b"A=1\r\n")
    p.start(sheet)
    sheet.unlink(); sheet.mkdir()
    p.type("Z=1¶")
    p.key("Ctrl+S")
    for _ in range(5):
        time.sleep(1)
        d = p.dialog()
        print("folder:", d and words_of(d), repr(p.message()), p.title())
        if d: p.key("Entrée")
    print(os.listdir(p.folder), os.listdir(sheet))

def big(p):
    sheet = p.folder / "grand.VXT"
    line = b"! " + b"x" * 1276 + b"\r\n"
    sheet.write_bytes(line * 32000 + b"A=3\r\n")
    t=time.monotonic()
    p.start(sheet); print("open", time.monotonic()-t); t=time.monotonic()
    print(p.title(), Atspi.Text.get_character_count(p.text())); p.key("Ctrl+Fin"); print("end", time.monotonic()-t); t=time.monotonic()
    p.key("Alt+C");print("calc", time.monotonic()-t, repr(p.message()[:20]), p.dialog() and words_of(p.dialog())); t=time.monotonic()
    p.key("Ctrl+S");print("save", time.monotonic()-t, sheet.stat().st_size, p.message()[:20]); t=time.monotonic()

run([no_display,no_accessibility_bus,read_only_program_folder,explore,explore2,explore3,big], BINARY, PLACE)
