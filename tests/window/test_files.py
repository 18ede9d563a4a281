"""Files: saving, opening, closing and quitting through the real dialogs, and what is on the disk
afterwards."""
import os
import pathlib
import shutil
import sys

from pilot import (Failed, children, expect, role, run, same, showing, text_of, wait, walk)

BINARY, PLACE = sys.argv[1:3]


def write(path, text):
    path.write_bytes(text.replace("\n", "\r\n").encode("cp1252"))


def read(path):
    return path.read_bytes().decode("cp1252").replace("\r\n", "\n")


def chooser(p):
    """The file dialog that is open and has the focus, or None."""
    d = p.dialog()
    return d if d is not None and role(d) == "file chooser" and p.focused(d) is not None else None


def name_line(p):
    """The line for a name that has the focus in the file dialog, or None."""
    d = chooser(p)
    f = p.focused(d) if d is not None else None
    return f if f is not None and role(f) == "text" else None


def name_file(p, path):
    """Gives a path to the file dialog that is open or about to open."""
    dialog = wait(lambda: chooser(p), "the file dialog")
    if dialog.get_name() == "Ouvrir" and name_line(p) is None:
        p.type("/")                      # brings the line for a name
    wait(lambda: name_line(p), "the line for the name")
    p.key("Ctrl+A")
    p.type(str(path))
    wait(lambda: (line := name_line(p)) and text_of(line) == str(path), "the name in its line")
    # While it looks for names that begin so, the dialog lets an Enter go by.
    for _ in range(5):
        p.key("Entrée")
        try:
            return wait(lambda: not showing(dialog), "the end of the dialog", 1.0)
        except Failed:
            pass
    raise Failed("the file dialog does not close")


def words_of(dialog):
    return [text_of(n) for n in walk(dialog) if role(n) == "label" and text_of(n)]


def box(p, words):
    """The box that says these words."""
    return wait(lambda: (d := p.dialog()) and words in words_of(d) and d, f"a box that says {words!r}")


def buttons(dialog):
    return [n.get_name() for n in walk(dialog) if role(n) == "push button"]


def save_as(p):
    p.start()
    p.type("A=3")
    p.key("Ctrl+Maj+S")
    name_file(p, p.folder / "essai")     # the default extension is added
    wait(lambda: p.title() == f"VOXTAB {p.folder}/essai.VXT", "the title")
    p.wait_no_dialog()
    same(read(p.folder / "essai.VXT"), "A=3\n", "file")
    p.type("¶B=4")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same(read(p.folder / "essai.VXT"), "A=3\nB=4\n", "file")
    same(read(p.folder / "essai.bak"), "A=3\n", "backup")


def replaces_only_when_told(p):
    p.start()
    write(p.folder / "ancien.VXT", "X=1\n")
    p.type("A=3")
    p.key("Ctrl+Maj+S")
    name_file(p, p.folder / "ancien.VXT")
    d = box(p, "ancien.VXT existe déjà, le remplacer ?")
    same(sorted(buttons(d)), ["Non", "Oui"], "buttons")
    p.key("Alt+N")
    wait(lambda: chooser(p), "the dialog again")
    p.key("Échap")
    p.wait_no_dialog()
    same(read(p.folder / "ancien.VXT"), "X=1\n", "file")
    same(p.title(), "VOXTAB SANSTITRE.VXT", "title")


def open_and_recent(p):
    p.folder.mkdir(exist_ok=True)
    write(p.folder / "un.VXT", "A=1\né=2\n")
    p.start()
    p.type("Z=1")                        # an empty sheet would give way
    p.key("Ctrl+O")
    name_file(p, p.folder / "absent.VXT")
    box(p, "absent.VXT : ce fichier n'existe pas")
    p.key("Entrée")
    wait(lambda: p.dialog() is None or role(p.dialog()) != "alert", "the end of the box")
    name_file(p, p.folder / "un.VXT")
    p.wait_sheet("A=1\né=2")
    p.wait_no_dialog()
    same(p.title(), f"VOXTAB {p.folder}/un.VXT", "title")
    same(p.panel(2), "feuille 2", "panel 2")
    p.key("Maj+F6")
    p.wait_sheet("Z=1")
    p.key("F6")
    p.wait_sheet("A=1\né=2")
    items = [n.get_name() for n in children(p.find("menu", "Fichier"))]
    same(items[1], f"2 {p.folder}/un.VXT", "second item of the File menu")
    p.key("Ctrl+F4")
    p.wait_sheet("Z=1")
    same(p.panel(2), "feuille 1", "panel 2")


def command_line(p):
    write(p.folder / "donnée.VXT", "A=5")
    p.start("donnée.VXT")
    p.wait_sheet("A=5")
    same(p.title(), f"VOXTAB {p.folder}/donnée.VXT", "title")


def quit_asks(p):
    """Cancel goes on, No throws away, and the settings are written."""
    p.start()
    p.type("A=3")
    p.key("Alt+Q")
    d = box(p, "enregistrer sur SANSTITRE.VXT ?")
    same(d.get_name(), "VOXTAB", "title of the box")
    same(sorted(buttons(d)), ["Annuler", "Non", "Oui"], "buttons")
    p.key("Échap")
    p.wait_no_dialog()
    same(p.sheet(), "A=3", "sheet")
    p.key("F5")
    wait(lambda: p.panel(1) == "Entier Degré", "panel 1")
    p.key("Alt+Q")
    box(p, "enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    same((p.folder / "VOXTAB.INI").stat().st_size, 22 * 267, "size of the settings file")
    same(list((p.folder / "travail").iterdir()), [], "working copies left")
    p.start()
    same(p.panel(1), "Entier Degré", "panel 1 at the next start")


def quit_saves(p):
    p.start()
    write(p.folder / "x.VXT", "")
    p.type("A=3")
    p.key("Alt+Q")
    box(p, "enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+O")
    name_file(p, p.folder / "neuf.VXT")
    same(p.wait_end(), 0, "exit status")
    same(read(p.folder / "neuf.VXT"), "A=3\n", "file")


def close_box(p):
    """The close box asks as well; without changes it ends at once."""
    p.start()
    p.key("Alt+F4")
    same(p.wait_end(), 0, "exit status")
    expect((p.folder / "VOXTAB.INI").exists(), "no settings file")


def installed_for_everybody(p):
    """A program in a system's folder keeps its files in the user's data folder."""
    system = p.folder / "systeme"
    for folder in ("bin", "share"):
        (system / folder).mkdir(parents=True)
    shutil.copy(BINARY, system / "bin" / "voxtab")
    shutil.copytree(pathlib.Path(BINARY).parent / "data", system / "share" / "voxtab")
    p.binary = system / "bin" / "voxtab"
    p.start()
    p.key("Alt+F1")
    wait(lambda: p.sheet().startswith("PI "), "the list of functions")
    p.key("Échap")
    p.wait_sheet("")
    p.key("Alt+F4")
    same(p.wait_end(), 0, "exit status")
    home = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "voxtab"
    same(sorted(f.name for f in home.iterdir()), ["VOXTAB.INI", "aide.txt", "fonction.txt", "lisezmoi.txt", "travail"],
         "files of the user")
    same([f.name for f in (system / "bin").iterdir()], ["voxtab"], "files beside the program")


run([save_as, replaces_only_when_told, open_and_recent, command_line, quit_asks, quit_saves,
     close_box, installed_for_everybody], BINARY, PLACE)
