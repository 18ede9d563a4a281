"""The installed window: its prefix can't be written, and everything that it keeps lands in the user's
data folder. A guide that a new version brings reaches that folder; one that the user has changed since
stays.   start.py PROGRAM FOLDER"""
import os
import pathlib
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "window"))

from pilot import expect, run, same, wait, wait_same  # noqa: E402

BINARY, PLACE = (pathlib.Path(argument) for argument in sys.argv[1:3])
PREFIX = BINARY.parent.parent
HOME = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "voxtab"


def end(p):
    p.key("Alt+F4")
    same(p.wait_end(), 0, "exit status")


def state(folder):
    """Every file with its size and its date."""
    return {str(path): (path.stat().st_size, path.stat().st_mtime_ns)
            for path in folder.rglob("*")}


def sheet_text(path):
    return path.read_bytes().replace(b"\r\n", b"\n").decode("cp1252")


def source(name, prefix=PREFIX):
    return prefix / "share" / "voxtab" / name


def keeps_its_files_with_the_user(p):
    p.binary = BINARY
    before = state(PREFIX)
    try:
        (PREFIX / "bin" / "essai").touch()
        raise RuntimeError("the prefix can be written: this test would prove nothing")
    except PermissionError:
        pass
    (p.folder / "calcul.VXT").write_bytes(b"A=3\r\nA*2\r\n")
    p.start("calcul.VXT")
    p.key("Alt+C")
    p.wait_sheet("A=3 = 3\nA*2 = 6")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    copies = [path.name for path in (HOME / "travail").iterdir()]
    expect(any("calcul" in name for name in copies), f"no working copy: {copies}")
    p.key("F5")
    wait(lambda: p.panel(1) == "Entier Degré", "the mode")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    end(p)
    same(sorted(f.name for f in HOME.iterdir()),
         ["VOXTAB.INI", "aide.txt", "fonction.txt", "lisezmoi.txt", "travail"], "files of the user")
    for name in ("aide.txt", "fonction.txt", "lisezmoi.txt"):
        same(sheet_text(HOME / name), source(name).read_text(encoding="utf-8"), name)
    same((p.folder / "calcul.VXT").read_bytes(), b"A=3 = 3\r\nA*2 = 6\r\n", "the sheet's file")
    p.start()
    wait_same(lambda: p.panel(1), "Entier Degré", "the mode at the next start")
    end(p)
    same(state(PREFIX), before, "files of the installation")


def newer(p, words):
    """Another version of the installation, whose guide begins with other words and is younger."""
    prefix = p.folder / "usr"
    if not prefix.exists():
        shutil.copytree(PREFIX, prefix)
        for path in (prefix, *prefix.rglob("*")):
            path.chmod(0o755)
    guide = source("aide.txt", prefix)
    guide.write_text(words + "\n", encoding="utf-8")
    now = (HOME / "aide.txt").stat().st_mtime if (HOME / "aide.txt").exists() else 0
    os.utime(guide, (now + 10, now + 10))
    p.binary = prefix / "bin" / "voxtab"


def start_and_end(p):
    p.start()
    end(p)


def brings_a_new_guide(p):
    p.binary = BINARY
    start_and_end(p)
    old = sheet_text(HOME / "aide.txt")
    newer(p, "Guide de la version suivante, à lire")
    start_and_end(p)
    same(sheet_text(HOME / "aide.txt"), "Guide de la version suivante, à lire\n", "guide")
    same(sheet_text(HOME / "aide.bak"), old, "the guide before")
    same(sheet_text(HOME / "fonction.txt"), source("fonction.txt").read_text(encoding="utf-8"),
         "list of functions")
    (HOME / "aide.bak").unlink()


def keeps_what_the_user_wrote(p):
    newer(p, "Guide d'hier")
    start_and_end(p)
    (HOME / "aide.txt").write_bytes(b"Mes notes\r\n")
    stamp = source("aide.txt", p.folder / "usr").stat().st_mtime + 3600
    os.utime(HOME / "aide.txt", (stamp, stamp))
    start_and_end(p)
    same(sheet_text(HOME / "aide.txt"), "Mes notes\n", "guide")
    newer(p, "Guide de demain")
    start_and_end(p)
    same(sheet_text(HOME / "aide.txt"), "Guide de demain\n", "guide of the next version")
    same(sheet_text(HOME / "aide.bak"), "Mes notes\n", "what the user wrote")


CASES = [keeps_its_files_with_the_user, brings_a_new_guide, keeps_what_the_user_wrote]
for case in CASES:       # the folders of their sheets; the program stays where it is installed
    (PLACE / case.__name__).mkdir()
run(CASES, BINARY, PLACE)
