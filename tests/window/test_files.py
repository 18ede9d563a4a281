"""Files: saving, opening, closing and quitting through the real dialogs, and what is on the disk
afterwards."""
import os
import pathlib
import shutil
import sys

from pilot import (accepts, buttons_of, children, expect, gone, name_file, name_line, run, same,
                   text_of, wait, wait_same, walk)
from texts import FUNCTIONS

BINARY, PLACE = sys.argv[1:3]


def write(path, text):
    path.write_bytes(text.replace("\n", "\r\n").encode("cp1252"))


def read(path):
    return path.read_bytes().decode("cp1252").replace("\r\n", "\n")


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


def extensions(p):
    """VXT is added to a name that has no extension, also beside a file of just that name; another
    extension stays."""
    p.start()
    write(p.folder / "cahier", "X=1\n")
    p.type("A=3")
    for typed, written in (("cahier", "cahier.VXT"), ("cours.txt", "cours.txt"), ("fin.", "fin.VXT"),
                           ("notes.vxt", "notes.vxt")):
        p.key("Ctrl+Maj+S")
        name_file(p, p.folder / typed)
        wait_same(p.title, f"VOXTAB {p.folder}/{written}", "title")
        p.wait_no_dialog()
        same(read(p.folder / written), "A=3\n", "file")
    same(read(p.folder / "cahier"), "X=1\n", "the file without an extension")


def replaces_only_when_told(p):
    """The question stands on Non: Enter alone replaces nothing."""
    p.start()
    write(p.folder / "ancien.VXT", "X=1\n")
    p.type("A=3")
    p.key("Ctrl+Maj+S")
    for answer in ("Alt+N", "Entrée"):
        name_file(p, p.folder / "ancien.VXT")
        d = p.wait_box("ancien.VXT existe déjà, le remplacer ?")
        same(sorted(buttons_of(d)), ["Non", "Oui"], "buttons")
        wait_same(lambda: p.focused(d) and p.focused(d).get_name(), "Non", "button with the focus")
        p.key(answer)
        p.wait_dialog("file chooser")
        same(read(p.folder / "ancien.VXT"), "X=1\n", "file")
    p.key("Échap")
    p.wait_no_dialog()
    same(read(p.folder / "ancien.VXT"), "X=1\n", "file")
    wait_same(p.title, "VOXTAB SANSTITRE.VXT", "title")


def open_and_recent(p):
    p.folder.mkdir(exist_ok=True)
    write(p.folder / "un.VXT", "A=1\né=2\n")
    p.start()
    p.type("Z=1")                        # an empty sheet would give way
    p.key("Ctrl+O")
    name_file(p, p.folder / "absent.VXT")
    p.close_box("absent.VXT : ce fichier n'existe pas")
    name_file(p, p.folder / "un.VXT")
    p.wait_sheet("A=1\né=2")
    p.wait_no_dialog()
    wait_same(p.title, f"VOXTAB {p.folder}/un.VXT", "title")
    wait_same(lambda: p.panel(2), "feuille 2", "panel 2")
    p.key("Maj+F6")
    p.wait_sheet("Z=1")
    p.key("F6")
    p.wait_sheet("A=1\né=2")
    items = [n.get_name() for n in children(p.menu_named("Fichier"))]
    same(items[1], f"2 {p.folder}/un.VXT", "second item of the File menu")
    p.key("Ctrl+F4")
    p.wait_sheet("Z=1")
    wait_same(lambda: p.panel(2), "feuille 1", "panel 2")


def documents(p):
    """An empty folder of the user's, where the dialogs begin. It has no dot: a path is cut after one."""
    folder = p.folder / "documents"
    folder.mkdir()
    return folder


def open_by_name(p):
    """To open, a name is typed at once; what is typed stands in the line, though a file is called so."""
    folder = documents(p)
    write(folder / "un.VXT", "A=1\n")
    write(folder / "une.VXT", "A=2\n")
    p.start(environment={"HOME": str(folder)})
    for typed, title in (("une", "une"), ("un.VXT", "un")):
        p.key("Ctrl+O")
        dialog = p.wait_dialog("file chooser")
        line = wait(lambda: name_line(p, dialog), "the line for the name")
        same(line.get_name(), "Nom du fichier", "name of the line")
        p.type(typed)
        wait(lambda: accepts(dialog), "the button that accepts the name")
        same(text_of(line), typed, "what stands in the line")
        p.key("Entrée")
        wait(lambda: p.title() == f"VOXTAB {folder}/{title}.VXT", "the title")
        p.wait_no_dialog()


def open_from_list(p):
    """From the line for a name, Tab and the down arrow lead to the files, and Escape ends the dialog."""
    folder = documents(p)
    for name in ("un.VXT", "deux.VXT", "trois.Vxt", "quatre.vXT", "autre.txt"):
        write(folder / name, f"! {name[:-4]}\n")
    p.start(environment={"HOME": str(folder)})
    for key in ("Tab", "Bas"):
        p.key("Ctrl+O")
        dialog = p.wait_dialog("file chooser")
        p.key(key)
        wait(lambda: name_line(p, dialog) is None, f"the end of the line for a name, by {key}")
        p.key("Échap")
        p.wait_no_dialog()
    p.key("Ctrl+O")
    dialog = p.wait_dialog("file chooser")
    p.key("Échap")
    wait(lambda: gone(dialog), "the end of the file dialog")
    p.wait_no_dialog()
    p.key("Ctrl+O")
    dialog = p.wait_dialog("file chooser")
    def listed():
        return {n.get_name() for n in walk(dialog) if "." in (n.get_name() or "")[-4:-1] and
                "(" not in n.get_name()}
    wait_same(listed, {"un.VXT", "deux.VXT", "trois.Vxt", "quatre.vXT"}, "files of the list")
    p.key("Bas")
    wait(lambda: accepts(dialog), "the button that accepts the file")
    p.key("Entrée")
    wait(lambda: p.title() == f"VOXTAB {folder}/deux.VXT", "the title")
    p.wait_no_dialog()


def recent_by_menu(p):
    """A sheet of the last run stands in the File menu and opens from there."""
    write(p.folder / "un.VXT", "A=1")
    p.start(p.folder / "un.VXT")
    p.wait_sheet("A=1")
    p.key("Alt+Q")
    same(p.wait_end(), 0, "exit status")
    p.start()
    wait_same(p.title, "VOXTAB SANSTITRE.VXT", "title")
    items = [n.get_name() for n in children(p.menu_named("Fichier"))]
    caption = next((i for i in items if i.endswith("un.VXT")), None)
    expect(caption is not None, f"un.VXT isn't in the File menu: {items}")
    p.menu("F", caption)
    p.wait_sheet("A=1")
    p.wait_text()
    wait_same(p.title, f"VOXTAB {p.folder}/un.VXT", "title")


def long_path(p):
    """A path that the settings file has no room for: the sheet is opened, saved and closed like others; it is told
    that the next start lists no more than its beginning, and choosing that says that no such file is there."""
    cut = "chemin trop long : au prochain démarrage, la liste n'en aura que le début"
    folder = p.folder / "/".join(["un dossier au nom assez long pour qu'on s'y perde"] * 6)
    folder.mkdir(parents=True)
    write(folder / "loin.VXT", "A=5\n")
    p.start(folder / "loin.VXT")
    p.wait_sheet("A=5")
    p.wait_message(cut)
    p.type("B=1¶")
    p.key("Ctrl+S")
    p.wait_message("enregistrer")
    same((read(folder / "loin.VXT"), read(folder / "loin.bak")), ("B=1\nA=5\n", "A=5\n"), "files")
    p.key("Ctrl+F4")
    p.wait_sheet("")
    p.key("Alt+Q")
    same(p.wait_end(), 0, "exit status")
    p.start()
    items = [n.get_name() for n in children(p.menu_named("Fichier"))]
    caption = next((i for i in items if "un dossier au nom" in i), "")
    same(caption, "2 " + str(folder / "loin.VXT")[:255], "item of the File menu")
    p.menu("F", caption)
    p.wait_message("fichier inexistant")
    same((p.title(), p.sheet()), ("VOXTAB SANSTITRE.VXT", ""), "title and sheet")


def quit_saves_a_known_sheet(p):
    """Yes writes a sheet that has a file into it, without another question."""
    write(p.folder / "un.VXT", "A=1")
    p.start(p.folder / "un.VXT")
    p.type("B=2¶")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur un.VXT ?")
    p.key("Alt+O")
    same(p.wait_end(), 0, "exit status")
    same((read(p.folder / "un.VXT"), read(p.folder / "un.bak")), ("B=2\nA=1\n", "A=1"),
         "file and backup")


def close_asks(p):
    """Closing a changed sheet asks too; Cancel keeps it, No throws the change away."""
    write(p.folder / "un.VXT", "A=1")
    p.start(p.folder / "un.VXT")
    p.type("B=2¶")
    p.key("Ctrl+F4")
    box = p.wait_box("enregistrer sur un.VXT ?")
    same(sorted(buttons_of(box)), ["Annuler", "Non", "Oui"], "buttons")
    p.key("Échap")
    p.wait_text()
    same(p.sheet(), "B=2\nA=1", "sheet")
    p.key("Ctrl+F4")
    p.wait_box("enregistrer sur un.VXT ?")
    p.key("Alt+N")
    p.wait_text()
    p.wait_sheet("")
    wait_same(p.title, "VOXTAB SANSTITRE.VXT", "title")
    same(read(p.folder / "un.VXT"), "A=1", "file")


def command_line(p):
    write(p.folder / "donnée.VXT", "A=5")
    p.start("donnée.VXT")
    p.wait_sheet("A=5")
    wait_same(p.title, f"VOXTAB {p.folder}/donnée.VXT", "title")


def quit_asks(p):
    """Cancel goes on, No throws away, and the settings are written."""
    p.start()
    p.type("A=3")
    p.key("Alt+Q")
    d = p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    same(d.get_name(), "enregistrer sur SANSTITRE.VXT ?", "name of the box, which a reader shows in Braille")
    same(sorted(buttons_of(d)), ["Annuler", "Non", "Oui"], "buttons")
    p.key("Échap")
    p.wait_no_dialog()
    same(p.sheet(), "A=3", "sheet")
    p.key("F5")
    wait(lambda: p.panel(1) == "Entier Degré", "panel 1")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    same((p.folder / "VOXTAB.INI").stat().st_size, 22 * 267, "size of the settings file")
    same(list((p.folder / "travail").iterdir()), [], "working copies left")
    p.start()
    wait_same(lambda: p.panel(1), "Entier Degré", "panel 1 at the next start")


def quit_saves(p):
    p.start()
    write(p.folder / "x.VXT", "")
    p.type("A=3")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
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
    p.wait_sheet(FUNCTIONS)
    p.key("Échap")
    p.wait_sheet("")
    p.key("Alt+F4")
    same(p.wait_end(), 0, "exit status")
    home = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "voxtab"
    same(sorted(f.name for f in home.iterdir()), ["VOXTAB.INI", "aide.txt", "fonction.txt", "lisezmoi.txt", "travail"],
         "files of the user")
    same([f.name for f in (system / "bin").iterdir()], ["voxtab"], "files beside the program")


run([save_as, extensions, replaces_only_when_told, open_and_recent, open_by_name, open_from_list,
     recent_by_menu, command_line, quit_asks, quit_saves, quit_saves_a_known_sheet, close_asks,
     close_box, long_path, installed_for_everybody],
    BINARY, PLACE)
