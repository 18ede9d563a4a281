"""Files on Windows: saving, opening, closing and quitting through the system's dialogs, the command
line, the program's folder, and what is on the disk afterwards."""
import os
import pathlib
import shutil
import subprocess
import sys

from disk import name_file, read, there, write
from pilot import TXT, expect, run, same, wait

BUILD, PLACE = sys.argv[1:3]
TEXTS = ["aide.txt", "fonction.txt", "lisezmoi.txt"]
DRIVE_C = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"


def save_as(p):
    p.start(text="A=3")
    p.key("Ctrl+Maj+S")
    name_file(p, "Enregistrer sous", there(p.folder / "essai"))   # the default extension is added
    wait(lambda: p.title() == f"VOXTAB {there(p.folder)}\\essai.VXT", "the title")
    p.wait_no_box()
    same(read(p.folder / "essai.VXT"), "A=3\n", "file")
    p.type("¶B=4")
    p.wait_sheet("A=3\nB=4")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same(read(p.folder / "essai.VXT"), "A=3\nB=4\n", "file")
    same(read(p.folder / "essai.bak"), "A=3\n", "backup")
    same([f.name for f in p.folder.iterdir() if f.name.startswith(".voxtab")], [], "files left over")


def extensions(p):
    """VXT is added to a name that has no extension, also beside a file of just that name; another
    extension stays."""
    write(p.folder / "cahier", "X=1\n")
    p.start(text="A=3")
    for typed, written in (("cahier", "cahier.VXT"), ("cours.txt", "cours.txt"), ("jour.v2", "jour.v2"),
                           ("notes.vxt", "notes.vxt")):
        p.key("Ctrl+Maj+S")
        name_file(p, "Enregistrer sous", there(p.folder / typed))
        wait(lambda: p.title() == f"VOXTAB {there(p.folder)}\\{written}", f"the title with {written}")
        p.wait_no_box()
        same(read(p.folder / written), "A=3\n", "file")
    same(read(p.folder / "cahier"), "X=1\n", "the file without an extension")


def replaces_only_when_told(p):
    write(p.folder / "ancien.VXT", "X=1\n")
    p.start(text="A=3")
    p.key("Ctrl+Maj+S")
    for answer in ("Alt+N", "Entrée"):        # the question stands on Non
        name_file(p, "Enregistrer sous", there(p.folder / "ancien.VXT"))
        p.wait_box("ancien.VXT existe déjà, le remplacer ?")
        p.key(answer)
        wait(lambda: (box := p.box()) and box["title"] == "Enregistrer sous", "the dialog again")
        same(read(p.folder / "ancien.VXT"), "X=1\n", "file")
    p.key("Échap")
    p.wait_no_box()
    same(read(p.folder / "ancien.VXT"), "X=1\n", "file")
    same(p.title(), "VOXTAB SANSTITRE.VXT", "title")


def open_and_recent(p):
    write(p.folder / "un.VXT", "A=1\né=2\n")
    p.start(text="Z=1")                   # an empty sheet would give way
    p.key("Ctrl+O")
    name_file(p, "Ouvrir", there(p.folder / "un.VXT"))
    p.wait_sheet("A=1\né=2")
    p.wait_no_box()
    same(p.title(), f"VOXTAB {there(p.folder)}\\un.VXT", "title")
    same(p.panels()[1], "feuille 2", "panel 2")
    p.key("Maj+F6")
    p.wait_sheet("Z=1")
    p.key("F6")
    p.wait_sheet("A=1\né=2")
    p.key("Ctrl+F4")
    p.wait_sheet("Z=1")
    wait(lambda: p.panels()[1] == "feuille 1", "panel 2")
    p.key("F7")                           # draws the menu again, with the closed file to be chosen
    p.wait_message("Flottant")
    p.choose("F", 1)
    p.wait_sheet("A=1\né=2")


def quit_asks(p):
    """Cancel goes on, No throws away, and the settings are written."""
    p.start(text="A=3")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    same(p.box()["title"], "VOXTAB", "title of the box")
    same([c["text"] for c in p.box()["children"] if c["class"] == "Button"],
         ["&Oui", "&Non", "&Annuler"], "buttons")
    p.key("Échap")
    p.wait_no_box()
    same(p.sheet(), "A=3", "sheet")
    p.key("F5")
    wait(lambda: p.panels()[0] == "Entier Degré", "panel 1")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    p.wait_end()
    same((p.folder / "VOXTAB.INI").stat().st_size, 22 * 267, "size of the settings file")
    same(list((p.folder / "travail").iterdir()), [], "working copies left")
    p.start()
    same(p.panels()[0], "Entier Degré", "panel 1 at the next start")


def quit_saves(p):
    p.start(text="A=3")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+O")
    name_file(p, "Enregistrer sous", there(p.folder / "neuf.VXT"))
    p.wait_end()
    same(read(p.folder / "neuf.VXT"), "A=3\n", "file")


def close_box(p):
    """The close box asks as well, and closes whatever the answer is; the next start offers the sheet."""
    p.start(text="A=3")
    p.probe.ask("close")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Échap")
    p.wait_end()
    expect(not (p.folder / "VOXTAB.INI").exists(), "the settings are written")
    p.launch()
    p.wait_box("La dernière fois, Voxtab s'est arrêté sans quitter. Reprendre 1 feuille(s) ?")
    p.key("Alt+O")
    p.ready()
    p.wait_sheet("A=3")
    p.key("Alt+F4")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    p.wait_end()
    expect((p.folder / "VOXTAB.INI").exists(), "no settings file")


def opened_with(p, sheet, *arguments):
    """A start with these arguments shows that sheet, by its whole path."""
    p.start(*arguments)
    p.wait_sheet("A=5")
    same(p.title(), f"VOXTAB {sheet}", "title")
    p.key("Alt+F4")
    p.wait_end()


def command_line(p):
    """A bare name, a path with blanks with quotes and without, words after it, a disk alone."""
    write(p.folder / "donnée.VXT", "A=5\n")
    write(p.folder / "mes feuilles" / "une feuille.VXT", "A=5\n")
    write(DRIVE_C / "X.VXT", "A=5\n")
    opened_with(p, there(p.folder / "donnée.VXT"), "donnée.VXT")
    blanks = there(p.folder / "mes feuilles" / "une feuille.VXT")
    opened_with(p, blanks, blanks)                # quoted, for it is one argument
    opened_with(p, blanks, *blanks.split(" "))    # without quotes
    opened_with(p, there(p.folder / "donnée.VXT"), there(p.folder / "donnée.VXT"), "imprimer")
    opened_with(p, "C:\\X.VXT", "C:X.VXT")
    opened_with(p, "C:\\X.VXT", "--imprime-vers=rien", "C:X.VXT")


def last_sheet(p):
    """With the option the sheet comes back at the next start, with its cursor."""
    write(p.folder / "suite.VXT", "A=1\nB=2\n")
    p.start("suite.VXT")
    p.wait_sheet("A=1\nB=2")
    p.choose("O", 6)
    p.key("Bas")
    wait(lambda: p.selection()[0] == 5, "the cursor in line 2")
    p.key("Alt+F4")
    p.wait_end()
    p.start()
    p.wait_sheet("A=1\nB=2")
    wait(lambda: p.selection()[0] == 5, "the cursor in line 2 again")


def keeps_files_elsewhere(p):
    """A start in a folder that can't be written: the program's files are in the user's folder then."""
    home = next(DRIVE_C.glob("users/*/AppData/Roaming")) / "voxtab"
    shutil.rmtree(home, ignore_errors=True)
    before = sorted(f.name for f in p.folder.iterdir())
    p.folder.chmod(0o555)
    try:
        p.start()
        p.key("Alt+F1")
        p.wait_sheet((pathlib.Path(BUILD) / "data" / "fonction.txt").read_text(encoding="utf-8")
                     .removesuffix("\n"))
        p.key("Échap")
        p.wait_sheet("")
        p.key("Alt+F4")
        p.wait_end()
    finally:
        p.folder.chmod(0o755)
    same(sorted(f.name for f in p.folder.iterdir()), before, "files beside the program")
    same(sorted(f.name for f in home.iterdir()), ["VOXTAB.INI", *TEXTS, "travail"], "files of the user")
    return read(home / "fonction.txt")


def folder_that_cannot_be_written(p):
    """The texts come from the program's data, or from beside it, where they are sheets already."""
    functions = keeps_files_elsewhere(p)
    for name in TEXTS:
        text = (p.folder / "data" / name).read_text(encoding="utf-8")
        (p.folder / name).write_bytes(text.replace("\n", "\r\n").encode("cp1252"))
    shutil.rmtree(p.folder / "data")
    same(keeps_files_elsewhere(p), functions, "list of functions")


def folder_with_accents(p):
    """Names with every kind of letter: in the code page, and not."""
    for name in ("Élève François, 3ème", "Пётр"):
        folder = p.folder / name
        folder.mkdir()
        shutil.copy(p.folder / "VOXTAB.EXE", folder)
        shutil.copytree(p.folder / "data", folder / "data")
        write(folder / "été.VXT", "A=5\n")
        whole, p.folder = p.folder, folder
        p.start("été.VXT")
        p.wait_sheet("A=5")
        p.type("B=1¶")
        p.key("Ctrl+S")
        p.wait_message("enregistrer")
        p.key("Alt+F4")
        p.wait_end()
        same(read(folder / "été.VXT"), "B=1\nA=5\n", "file")
        same(sorted(f.name for f in folder.iterdir()),
             sorted(["VOXTAB.EXE", "VOXTAB.INI", *TEXTS, "data", "secours", "travail", "été.VXT", "été.bak"]), "files beside the program")
        p.folder = whole


def hand_over(p, *arguments):
    """A second start, which gives its sheet to the program that runs, and ends."""
    done = subprocess.run(["wine", str(p.folder / "VOXTAB.EXE"), *arguments], cwd=p.folder, timeout=60,
                          check=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    same(done.returncode, 0, "exit status of the second program")


def second_start(p):
    """A second start hands its sheet over and ends: the first program opens it, or shows it when it is
    open, and keeps its sheets as they are."""
    write(p.folder / "un.VXT", "A=1\n")
    write(DRIVE_C / "users" / "luc.martin" / "deux.VXT", "B=2\n")
    p.start("un.VXT")
    p.wait_sheet("A=1")
    p.type("X")
    p.wait_sheet("XA=1")
    hand_over(p)
    same(p.sheet(), "XA=1", "sheet")
    hand_over(p, "C:\\users\\luc.martin\\deux.VXT")
    p.wait_sheet("B=2")
    same(p.title(), "VOXTAB C:\\users\\luc.martin\\deux.VXT", "title")
    wait(lambda: p.focus() == TXT, "the focus in the text")
    p.type("Y")
    p.wait_sheet("YB=2")
    hand_over(p, "un.VXT")                       # open already: shown as it stands
    p.wait_sheet("XA=1")
    p.key("F3")                                  # while a box is open the sheet waits
    p.wait_box("Recherche")
    hand_over(p, "C:\\users\\luc.martin\\deux.VXT")
    p.wait_box("Recherche")
    same(p.sheet(), "XA=1", "sheet")
    p.key("Échap")
    p.wait_no_box()
    p.wait_sheet("YB=2")
    same(p.panels()[1], "feuille 2", "panel 2")
    hand_over(p, "rien.VXT")
    p.wait_message("fichier inexistant")
    expect(not (p.folder / "VOXTAB.INI").exists(), "the second program has written the settings")
    same(read(p.folder / "un.VXT"), "A=1\n", "file")


def dots_in_folders(p):
    """jean.dupont's sheet by a double click: saved, backed up and listed where it stands; and it comes
    back at the next start."""
    home = DRIVE_C / "users" / "jean.dupont" / "Mes documents"
    name = "C:\\users\\jean.dupont\\Mes documents\\devoir.VXT"
    write(home / "devoir.VXT", "A=5\n")
    p.start(name)
    p.wait_sheet("A=5")
    same(p.title(), "VOXTAB " + name, "title")
    p.choose("O", 6)                             # the last sheet at the next start
    p.type("B=1¶")
    p.wait_sheet("B=1\nA=5")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same(sorted(f.name for f in home.iterdir()), ["devoir.VXT", "devoir.bak"], "files of the folder")
    same((read(home / "devoir.VXT"), read(home / "devoir.bak")), ("B=1\nA=5\n", "A=5\n"), "files")
    same(list(f.name for f in home.parent.iterdir()), [home.name], "files beside the folder")
    p.key("Alt+Q")
    p.wait_end()
    p.start()
    p.wait_sheet("B=1\nA=5")
    same(p.title(), "VOXTAB " + name, "title at the next start")
    p.key("Ctrl+F4")                             # closed, it is the first of the recent sheets
    p.wait_sheet("")
    p.key("F7")
    p.wait_message("Flottant")
    p.choose("F", 1)
    p.wait_sheet("B=1\nA=5")
    same(p.title(), "VOXTAB " + name, "title of the recent sheet")
    p.type("C=2¶")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur devoir.VXT ?")
    p.key("Alt+O")
    p.wait_end()
    same((read(home / "devoir.VXT"), read(home / "devoir.bak")), ("B=1\nC=2\nA=5\n", "B=1\nA=5\n"), "files")


def reader_scripts(p):
    """At the first start after an installation the reader's files go where the user says."""
    home = next(DRIVE_C.glob("users/*/AppData/Roaming"))
    scripts = home / "Freedom Scientific" / "JAWS" / "2024" / "settings" / "fra"
    scripts.mkdir(parents=True)
    for name in ("voxtab.jcf", "voxtab.jdf", "verjaws.ini"):
        (p.folder / name).write_bytes(name.encode())
    p.launch()
    p.wait_box("Chemin des scripts de jaws")
    proposed = [c["text"] for c in p.box()["children"] if c["class"] == "Edit"][0]
    same(proposed.lower(), "c:\\" + str(scripts.relative_to(DRIVE_C)).replace("/", "\\").lower(), "folder")
    p.key("Entrée")
    p.ready()
    same(sorted(f.name for f in scripts.iterdir()), ["voxtab.jcf", "voxtab.jdf"], "files of the reader")
    expect(not (p.folder / "verjaws.ini").exists(), "the marker is still there")


def long_path(p):
    """A sheet whose path is longer than 300 characters: calculated in a terminal, opened, saved, listed and
    opened again. The settings file has room for 255 of them: it is told that the next start lists no more, and
    choosing that says that no such file is there."""
    cut = "chemin trop long : au prochain démarrage, la liste n'en aura que le début"
    folder = p.folder / "/".join(["un dossier au nom assez long pour qu'on s'y perde"] * 6)
    write(folder / "loin.VXT", "A=5\n")
    name = there(folder / "loin.VXT")
    expect(len(name) > 300, "the path is too short")
    done = subprocess.run(["wine", str(pathlib.Path(BUILD) / "voxtab-calc.exe"), "-i", name],
                          capture_output=True, check=False)
    same(done.returncode, 0, f"exit status ({done.stderr!r})")
    same(read(folder / "loin.VXT"), "A=5 = 5\n", "file")
    same(read(folder / "loin.bak"), "A=5\n", "backup")
    p.start(name)
    p.wait_sheet("A=5 = 5")
    same(p.title(), "VOXTAB " + name, "title")
    p.wait_message(cut)
    p.type("B=1¶")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same((read(folder / "loin.VXT"), read(folder / "loin.bak")), ("B=1\nA=5 = 5\n", "A=5 = 5\n"), "files")
    p.key("Ctrl+F4")                             # closed, it is the first of the recent sheets
    p.wait_sheet("")
    p.key("F7")
    p.wait_message("Flottant")
    p.choose("F", 1)
    p.wait_sheet("B=1\nA=5 = 5")
    same(p.title(), "VOXTAB " + name, "title of the recent sheet")
    p.wait_message(cut)
    p.key("Alt+Q")
    p.wait_end()
    p.start()
    p.choose("F", 1)
    p.wait_message("fichier inexistant")
    same((p.title(), p.sheet()), ("VOXTAB SANSTITRE.VXT", ""), "title and sheet")


run([save_as, extensions, replaces_only_when_told, open_and_recent, quit_asks, quit_saves, close_box, command_line,
     last_sheet, folder_that_cannot_be_written, folder_with_accents,
     second_start, dots_in_folders, reader_scripts, long_path], BUILD, PLACE)
