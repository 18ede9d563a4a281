"""Takes a picture of each view of the real window, as it stands on a screen of 1024 by 768, at the usual
size of texts and at twice that size. Run by scripts/take-pictures; GTK_THEME="Adwaita:dark" in front of it
shows another theme."""
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "window"))

from pilot import Program, children, has, role, wait  # noqa: E402
import gi  # noqa: E402

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

BINARY, PLACE, PICTURES = sys.argv[1:4]
COLOURS = 48        # of a picture: letters stay legible and the file small
SIZES = {"": "1", "-200": "2"}


def screen():
    """The pixels of the screen as the X server has them."""
    return subprocess.run(["import", "-silent", "-window", "root", "ppm:-"], check=True,
                          capture_output=True).stdout


def still():
    """The screen, once it has stopped changing."""
    last = [b""]

    def same_twice():
        now = screen()
        if now == last[0]:
            return now
        last[0] = now
        return None
    return wait(same_twice, "a screen at rest", 20)


def keep(name):
    """Writes the screen to a picture."""
    pathlib.Path(PICTURES).mkdir(parents=True, exist_ok=True)
    subprocess.run(["convert", "ppm:-", "-strip", "+dither", "-colors", str(COLOURS),
                    "-define", "png:compression-level=9", f"png8:{PICTURES}/{name}.png"],
                   input=still(), check=True)


def choose(p, menu, item):
    """Runs an item of a menu, whose name begins so."""
    found = next(n for n in children(p.menu_named(menu)) if n.get_name().startswith(item))
    Atspi.Action.do_action(found, 0)


def open_menu(p, menu):
    Atspi.Action.do_action(p.menu_named(menu), 0)
    wait(lambda: has(p.menu_named(menu), Atspi.StateType.SELECTED) or
         any(has(n, Atspi.StateType.SHOWING) for n in children(p.menu_named(menu))), "the menu")


def sheet_view(p, suffix):
    p.key("Alt+C")
    p.key("Ctrl+Début")
    wait(lambda: " = " in p.sheet(), "the results")
    keep("sheet" + suffix)


def read_views(p, suffix):
    """What is read in the text: guide, functions, about; then key help."""
    for name, view in (("guide", lambda: choose(p, "?", "Guide")),
                       ("functions", lambda: p.key("Alt+F1")),
                       ("about", lambda: choose(p, "?", "A propos"))):
        before = p.sheet()
        view()
        wait(lambda: p.sheet() != before, name)
        keep(name + suffix)
        p.key("Échap")
        wait(lambda: p.sheet() == before, "the sheet again")
    p.key("F1")
    wait(lambda: p.sheet() == "", "key help")
    p.key("F7")
    p.wait_message("Flottant")
    keep("key-help" + suffix)
    p.key("F1")
    wait(lambda: p.sheet() != "", "the sheet again")


def option_views(p, suffix):
    """The angle view and the list of colours."""
    p.key("F8")
    wait(lambda: (node := p.focused()) is not None and role(node) == "radio button", "the angles")
    keep("angle" + suffix)
    p.key("Échap")
    wait(lambda: p.focus_name() == "Feuille", "the sheet again")
    choose(p, "Options", "Choix de la couleur")
    wait(lambda: p.find("list box", "Couleurs") or p.find("table", "Couleurs") or
         p.find("tree table", "Couleurs"), "the list")
    keep("colours" + suffix)
    p.key("Échap")
    wait(lambda: p.focus_name() == "Feuille", "the sheet again")


def menus(p, suffix):
    """The File menu with the documents, the Options, the menu Outils."""
    p.key("Ctrl+Début")
    for name, menu in (("documents", "Fichier"), ("options", "Options"), ("tools", "Outils")):
        open_menu(p, menu)
        keep(name + suffix)
        p.key("Échap")
        p.key("Échap")
        wait(lambda: p.focus_name() == "Feuille", "the sheet")


def boxes(p, suffix):
    """An entry box, a question, and the dialog for a file."""
    for name, keys in (("entry", "F3"), ("file", "Ctrl+O")):
        p.key(keys)
        p.wait_dialog()
        keep(name + suffix)
        p.key("Échap")
        p.wait_no_dialog()
    p.type(" ")
    p.key("Alt+Q")
    p.wait_dialog()
    keep("question" + suffix)
    p.key("Échap")
    p.wait_no_dialog()


def main():
    for suffix, scale in SIZES.items():
        program = Program(BINARY, PLACE, "a" + suffix.replace("-", ""))
        for sheet in ("trigonometrie", "statistiques"):
            shutil.copy(ROOT / "examples" / f"{sheet}.VXT", program.folder)
        try:
            program.start("trigonometrie.VXT", environment={"GDK_DPI_SCALE": scale,
                                                            "LC_ALL": "fr_FR.UTF-8"})
            for views in (sheet_view, read_views, option_views, menus, boxes):
                views(program, suffix)
        finally:
            program.kill()


main()
