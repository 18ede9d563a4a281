"""How the sheet looks: its colours on the screen's pixels, its fonts, each chosen with the keyboard
alone, kept for the next start, and dropped when the user cancels."""
import pathlib
import sys

from pilot import (Atspi, Failed, children, expect, gone, has, role, run, same, showing, text_of, wait,
                   wait_same, walk, words_of)

BINARY, PLACE = sys.argv[1:3]
# The lines of the list after its first one, and what each looks like.
PALETTE = {"Noir": (0, 0, 0), "Gris": (128, 128, 128), "Bleu": (0, 0, 128), "Bleu clair": (0, 0, 255),
           "Vert": (0, 128, 0), "Vert clair": (0, 255, 0), "Cyan": (0, 128, 128),
           "Cyan clair": (0, 255, 255), "Rouge": (128, 0, 0), "Rouge clair": (255, 0, 0),
           "Magenta": (128, 0, 128), "Magenta clair": (255, 0, 255), "Jaune": (128, 128, 0),
           "Jaune clair": (255, 255, 0), "Blanc": (192, 192, 192), "Blanc pur": (255, 255, 255)}
NAMES = list(PALETTE)
FIRST, SECOND = "Choisissez une couleur des caractères", "Choisissez une couleur d'arrière plan"
COLOURS = "Choix de la couleur de l'écran"
RECORD = 267     # bytes of a record of the settings file


def lines(p):
    table = p.find("table", "Couleurs")
    return [n.get_name() for n in children(table) if role(n) == "table cell"] if table else []


def chosen_line(p):
    table = p.find("table", "Couleurs")
    return next((n.get_name() for n in children(table) if has(n, Atspi.StateType.SELECTED)), None)


def pick(p, prompt, name):
    """Chooses a line of the list with the arrows and Enter."""
    wait_same(lambda: lines(p)[:1], [prompt], "first line of the list")
    wait_same(lambda: chosen_line(p), prompt, "line of the list")
    p.key("Bas", times=NAMES.index(name) + 1)
    wait_same(lambda: chosen_line(p), name, "line of the list")
    p.key("Entrée")


def colours(p, characters, background):
    p.menu("O", COLOURS)
    wait(lambda: (t := p.find("table", "Couleurs")) and showing(t), "the list")
    pick(p, FIRST, characters)
    pick(p, SECOND, background)


def pixels(p):
    """How often each colour is seen where the text is."""
    area = Atspi.Component.get_extents(p.text(), Atspi.CoordType.SCREEN)
    return p.screen.colours(p.screen.root, area.x + 4, area.y + 4, area.width - 40, 60)


def looks(p, characters, background):
    """Waits until these are the text's colours: one of the letters, most of the rest the other."""
    ink, paper = PALETTE[characters], PALETTE[background]

    counts = {}

    def seen():
        counts.clear()
        counts.update(pixels(p))
        return counts.get(paper, 0) > sum(counts.values()) / 2 and counts.get(ink, 0) >= 20
    try:
        wait(seen, "the colours")
    except Failed:
        most = sorted(counts.items(), key=lambda c: -c[1])[:5]
        raise Failed(f"{characters} on {background}, {ink} on {paper}, but seen: {most}") from None


def every_colour(p):
    """Each of the sixteen can be chosen for the characters and for the background, and is seen."""
    p.start()
    p.type("MMMMMMMMMMMM")
    p.menu("O", COLOURS)
    wait_same(lambda: lines(p), [FIRST, *NAMES], "lines of the list")
    wait_same(p.buttons, ["OK", "Annuler"], "buttons")
    wait(lambda: not showing(p.text()), "the sheet can be seen")
    p.key("Échap")
    p.wait_text()
    for i, characters in enumerate(NAMES):
        background = NAMES[len(NAMES) - 1 - i]
        colours(p, characters, background)
        p.wait_text()
        looks(p, characters, background)
    wait_same(p.buttons, ["Modif. texte", "Quitter"], "buttons")
    same(p.sheet(), "MMMMMMMMMMMM", "sheet")


def light_on_dark_is_kept(p):
    p.start()
    colours(p, "Jaune clair", "Noir")
    p.wait_text()
    p.key("Alt+F4")
    same(p.wait_end(), 0, "exit status")
    p.start()
    p.type("MMMMMMMMMMMM")
    looks(p, "Jaune clair", "Noir")


def cancelled(p):
    """A first choice that is cancelled, by Escape or by the button, changes nothing; so does the
    prompt's own line."""
    p.start()
    p.type("MMMMMMMMMMMM")
    colours(p, "Blanc pur", "Bleu")
    p.wait_text()
    for leave in (lambda: p.key("Échap"), lambda: button(p, "Annuler")):
        p.menu("O", COLOURS)
        wait_same(lambda: lines(p)[:1], [FIRST], "first line of the list")
        p.key("Entrée")
        same(lines(p)[:1], [FIRST], "first line after Enter on it")
        pick(p, FIRST, "Rouge")
        wait_same(lambda: lines(p)[:1], [SECOND], "first line of the list")
        leave()
        p.wait_text()
        looks(p, "Blanc pur", "Bleu")


def button(p, name):
    """Goes to a button with Tab and presses it."""
    p.tab_to(lambda node: node.get_name() == name)
    p.key("Espace")


def by_the_button(p):
    """The list's choices by the button OK instead of Enter."""
    p.start()
    p.type("MMMMMMMMMMMM")
    p.menu("O", COLOURS)
    for prompt, name in ((FIRST, "Vert clair"), (SECOND, "Noir")):
        wait_same(lambda q=prompt: lines(p)[:1], [prompt], "first line of the list")
        wait_same(lambda: p.focus_name() in (None, prompt, "Couleurs"), True, "the focus in the list")
        p.key("Bas", times=NAMES.index(name) + 1)
        wait_same(lambda: chosen_line(p), name, "line of the list")
        button(p, "OK")
    p.wait_text()
    looks(p, "Vert clair", "Noir")


def the_same_twice(p):
    p.start()
    p.type("MMMMMMMMMMMM")
    colours(p, "Cyan clair", "Noir")
    p.wait_text()
    colours(p, "Rouge", "Rouge")
    p.close_box("les couleurs caractère et arrière plan sont identiques")
    p.wait_text()
    looks(p, "Cyan clair", "Noir")


def settings_name(p, row):
    record = (p.folder / "VOXTAB.INI").read_bytes()[(row - 1) * RECORD:row * RECORD]
    return record.decode("cp1252")


def choose_font(p, item, told, question, name, size):
    """The font dialog to its end: a name in its search line, its first row, a size."""
    p.menu("O", item)
    p.close_box(told)
    p.wait_box(question)
    p.key("Alt+O")
    dialog = wait(lambda: (d := p.wait_dialog()) and d.get_name() == "Police" and d, "the font dialog")
    wait(lambda: (f := p.focused(dialog)) and f.get_name() == "Chercher une police", "the line for a name")
    p.type(name)
    wait(lambda: (c := [n.get_name() for n in walk(dialog) if role(n) == "table cell"]) and
         all(n.startswith(name) for n in c), "the fonts of that name")
    p.key("Tab")
    wait(lambda: (f := p.focused(dialog)) and role(f) in ("table", "table cell"), "the list of fonts")
    p.key("Début")
    wait(lambda: (f := p.focused(dialog)) and f.get_name() == f"{name} Regular" or
         any(has(n, Atspi.StateType.SELECTED) and n.get_name().startswith(name) for n in walk(dialog)
             if role(n) == "table cell"), "the font in the list")
    p.tab_to(lambda node: role(node) == "spin button", dialog)
    p.key("Ctrl+A")
    p.type(str(size))
    p.key("Tab")                      # a size counts when its line is left
    p.key("Alt+S")
    wait(lambda: gone(dialog), "the end of the font dialog")


def height_of_line(p):
    box = Atspi.Text.get_character_extents(p.text(), 0, Atspi.CoordType.SCREEN)
    return box.height


def font_of_the_screen(p):
    """The font that is chosen is seen, stands in the settings, and is told the next time."""
    p.start()
    p.type("MMMMMMMMMMMM")
    before = height_of_line(p)
    choose_font(p, "Choix de la police de l'écran", "police Courier Taille 15",
                "Voulez vous modifier la police de l'écran", "Liberation Serif", 30)
    p.wait_text()
    wait(lambda: height_of_line(p) > before * 1.5, "larger letters")
    attributes = Atspi.Text.get_attribute_run(p.text(), 0, True)[0]
    same((attributes.get("family-name"), attributes.get("size")), ("Liberation Serif", "30"), "font")
    p.menu("O", "Choix de la police de l'écran")
    p.close_box("police Liberation Serif Taille 30")
    p.wait_box("Voulez vous modifier la police de l'écran")
    p.key("Alt+N")
    p.wait_text()
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    expect(settings_name(p, 19).startswith("Liberation Serif"), f"row 19: {settings_name(p, 19)!r}")
    expect(settings_name(p, 20).startswith("30 "), f"row 20: {settings_name(p, 20)!r}")


def font_of_the_printer(p):
    p.start()
    told = "police Arial Taille 16"
    p.menu("O", "Choix de la police de l'imprimante")
    told = next(w for w in words_of(p.wait_dialog()) if w.startswith("police "))
    p.key("Échap")
    p.wait_box("Voulez vous modifier la police de l'imprimante")
    p.key("Alt+N")
    p.wait_text()
    choose_font(p, "Choix de la police de l'imprimante", told,
                "Voulez vous modifier la police de l'imprimante", "DejaVu Sans", 11)
    p.wait_text()
    p.key("Alt+F4")
    same(p.wait_end(), 0, "exit status")
    expect(settings_name(p, 21).startswith("DejaVu Sans"), f"row 21: {settings_name(p, 21)!r}")
    expect(settings_name(p, 22).startswith("11 "), f"row 22: {settings_name(p, 22)!r}")


def no_font(p):
    """Cancel of the font dialog is told, and the font stays."""
    p.start()
    p.type("M")
    before = height_of_line(p)
    p.menu("O", "Choix de la police de l'écran")
    p.close_box("police Courier Taille 15")
    p.wait_box("Voulez vous modifier la police de l'écran")
    p.key("Alt+O")
    dialog = wait(lambda: (d := p.wait_dialog()) and d.get_name() == "Police" and d, "the font dialog")
    p.key("Échap")
    wait(lambda: gone(dialog), "the end of the font dialog")
    p.close_box("Vous n'avez sélectionné aucune police.")
    p.wait_text()
    same(height_of_line(p), before, "height of a line")
    same((p.sheet(), text_of(p.text())), ("M", "M"), "sheet")


expect(pathlib.Path(BINARY).exists(), f"{BINARY} isn't built")
run([every_colour, light_on_dark_is_kept, cancelled, by_the_button, the_same_twice, font_of_the_screen,
     font_of_the_printer, no_font], BINARY, PLACE)
