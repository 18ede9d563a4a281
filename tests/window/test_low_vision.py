"""What somebody who sees little needs, measured on the screen: texts that stand out from what is behind
them on every theme, a focus that can be found, the beginning of the line, sizes that follow the sheet's
and the system's.   VOXTAB_CONTRASTS=FILE writes the contrasts down."""
import os
import pathlib
import shutil
import sys

from Xlib import X

from pilot import (Atspi, children, expect, gone, has, role, run, same, showing, wait, wait_same,
                   walk)

BINARY, PLACE = sys.argv[1:3]
THEMES = {"clair": "Adwaita", "sombre": "Adwaita:dark", "contraste élevé": "HighContrast",
          "contraste élevé inverse": "HighContrastInverse"}
SIZES = {"100 %": "1", "200 %": "2"}
RECORD = 267     # bytes of a record of the settings file
MESSAGE = 7      # contrast that the message line keeps
THEME = 4.5      # what the themes' own texts keep


def no_blinking():
    """A cursor that blinks is not always there to be looked at."""
    with open(pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "gtk-3.0" / "settings.ini", "a",
              encoding="utf-8") as settings:
        settings.write("gtk-cursor-blink=false\n")


def begin(p, theme, scale="1"):
    stop(p)
    p.start(environment={"GTK_THEME": theme, "GDK_DPI_SCALE": scale})


def stop(p):
    """Ends the program; the sheet that it hasn't saved is not to be asked about at the next start."""
    p.kill()
    for kept in ("secours", "reprise"):
        shutil.rmtree(p.folder / kept, ignore_errors=True)


def luminance(colour):
    parts = [c / 255 / 12.92 if c / 255 <= 0.04045 else ((c / 255 + 0.055) / 1.055) ** 2.4 for c in colour]
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]


def contrast(a, b):
    low, high = sorted((luminance(a), luminance(b)))
    return (high + 0.05) / (low + 0.05)


def box_of(node):
    return Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)


def pixels(p, node, around=0, part=1.0):
    """The pixels of a control in a row, or of the screen's part that its box has with a border; `part`: of
    its width, at the right."""
    box = box_of(node)
    left, top = max(box.x - around + int(box.width * (1 - part)), 0), max(box.y - around, 0)
    right, bottom = min(box.x + box.width + around, 1024), min(box.y + box.height + around, 768)
    image = p.screen.root.get_image(left, top, right - left, bottom - top, X.ZPixmap, 0xFFFFFFFF)
    return list(zip(image.data[2::4], image.data[1::4], image.data[0::4]))


def colours_of(p, node, part=1.0):
    """The colours of a text and how often each is seen, once it is drawn: more than its background is
    there, and a second look shows the same."""
    last = None

    def looked():
        nonlocal last
        before, last = last, {}
        for colour in pixels(p, node, part=part):
            last[colour] = last.get(colour, 0) + 1
        return last if last == before and sum(times >= 3 for times in last.values()) > 1 else None
    return wait(looked, "a text that is drawn")


def contrast_of(p, node, part=1.0):
    """How far a text stands out: its ink is the colour farthest from that of the background."""
    seen = colours_of(p, node, part)
    behind = max(seen, key=seen.get)
    return max(contrast(colour, behind) for colour, times in seen.items() if times >= 3)


def message_line(p):
    panel = next(n for n in walk(p.window()) if role(n) == "panel" and n.get_name().startswith("Message"))
    return panel.get_child_at_index(0)


def measured(p):
    """The texts of the views and their contrast, in the order of the table."""
    p.type("2+3")
    p.key("Alt+C")
    p.wait_message("2+3 = 5")
    found = {"ligne de message": contrast_of(p, message_line(p)),
             "bouton": contrast_of(p, p.find("push button", "Quitter")),
             "barre d'état": contrast_of(p, p.kept("status bar").get_child_at_index(0))}
    p.key("F8")
    option = wait(lambda: p.find("radio button", "degré"), "the angles")
    wait(lambda: showing(option), "the angles")
    found["unité d'angle"] = contrast_of(p, option)
    p.key("Échap")
    p.wait_text()
    p.key("F3")
    label = wait(lambda: (d := p.dialog()) and p.find("label", "Recherche", d), "the entry box")
    p.wait_entry("Recherche", "")
    found["saisie"] = contrast_of(p, label)
    p.key("Échap")
    p.wait_no_dialog()
    p.menu("O", "Choix de la couleur de l'écran")
    wait(lambda: (t := p.find("table", "Couleurs")) and showing(t), "the list")
    line = wait(lambda: next((n for n in walk(p.find("table", "Couleurs")) if n.get_name() == "Bleu"), None),
                "a line of the list")
    found["liste"] = contrast_of(p, line)
    wait(lambda: chosen_in_sight(p), "the chosen line of the list, in sight")
    found["ligne choisie"] = contrast_of(p, chosen_line(p))
    p.key("Échap")
    p.wait_text()
    p.key("Alt+O")
    wait(p.open_menu, "the menu Options")
    item = next(n for n in children(p.menu_named("Options")) if n.get_name() == "Nombre flottant")
    found["touche d'un menu"] = contrast_of(p, item, part=0.25)
    p.key("Échap")
    p.key("Échap")
    p.wait_text()
    return found


def chosen_line(p):
    return next(n for n in walk(p.find("table", "Couleurs")) if has(n, Atspi.StateType.SELECTED))


def chosen_in_sight(p):
    """The line of the list that is chosen lies within the list, whole."""
    around, box = box_of(p.find("table", "Couleurs")), box_of(chosen_line(p))
    return box.height > 0 and around.y <= box.y and box.y + box.height <= around.y + around.height


def contrasts(p):
    """Every text of the window on four themes, at two sizes."""
    rows = []
    for theme, name in THEMES.items():
        for size, scale in SIZES.items():
            begin(p, name, scale)
            found = measured(p)
            rows.append((theme, size, found))
            print(theme, size, {what: round(value, 1) for what, value in found.items()}, flush=True)
    if os.environ.get("VOXTAB_CONTRASTS"):
        write_down(rows)
    for theme, size, found in rows:
        for what, value in found.items():
            least = MESSAGE if what == "ligne de message" else THEME
            expect(value >= least, f"{what}, {theme}, {size}: contrast {value:.2f}, at least {least}")


def write_down(rows):
    names = list(rows[0][2])
    lines = ["| Thème | Taille | " + " | ".join(names) + " |", "|---|---|" + "---|" * len(names)]
    lines += [f"| {theme} | {size} | " + " | ".join(f"{found[n]:.1f}" for n in names) + " |"
              for theme, size, found in rows]
    pathlib.Path(os.environ["VOXTAB_CONTRASTS"]).write_text("\n".join(lines) + "\n", encoding="utf-8")


def changed(before, after):
    """Pixels that have changed so that an eye can tell."""
    return sum(a != b and contrast(a, b) >= 3 for a, b in zip(before, after))


def framed(p, node):
    """A frame is around the control: more stands out there than its words and its mark."""
    seen = pixels(p, node, around=4)
    behind = max(set(seen), key=seen.count)
    box = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return sum(contrast(colour, behind) >= 3 for colour in seen) >= 3 * (box.width + box.height)


def focus_is_seen(p):
    """Where the focus is, something stands out that isn't there otherwise: in the text its cursor, on
    a button and on an option a frame."""
    for theme, name in THEMES.items():
        begin(p, name)
        text, button = p.text(), p.find("push button", "Quitter")
        with_text, without_button = pixels(p, text), pixels(p, button)
        p.tab_to(lambda node: node.get_name() == "Quitter")
        wait(lambda: changed(without_button, pixels(p, button)) >= 100, f"the focus of a button, {theme}")
        wait(lambda: changed(with_text, pixels(p, text)) >= 20, f"the cursor of the text, {theme}")
        p.key("F8")
        option = wait(lambda: (f := p.focused()) and role(f) == "radio button" and f, "the angles")
        wait(lambda: framed(p, option), f"the frame of an option, {theme}")
        p.key("Tab")
        wait(lambda: (node := p.focused()) is not None and role(node) != "radio button", "the next control")
        wait(lambda: not framed(p, option), f"the end of the option's frame, {theme}")


def settings(p, row, text):
    """Writes a text into a row of the settings of a program that has ended."""
    file = p.folder / "VOXTAB.INI"
    content = bytearray(file.read_bytes())
    content[(row - 1) * RECORD:(row - 1) * RECORD + 255] = text.encode("cp1252").ljust(255)
    file.write_bytes(content)


def height(p, node):
    return Atspi.Text.get_character_extents(node, 0, Atspi.CoordType.SCREEN).height


def message_follows_the_sheet(p):
    """Who makes the sheet's letters larger reads the message in larger ones too."""
    heights = []
    for size in ("15", "30"):
        p.start()
        if size == "15":
            p.key("Alt+Q")
            same(p.wait_end(), 0, "exit status")
            settings(p, 20, size)
            p.start()
        p.type("2+3")
        p.key("Alt+C")
        p.wait_message("2+3 = 5")
        heights.append((height(p, p.text()), height(p, message_line(p))))
        stop(p)
        settings(p, 20, "30")
    (sheet, message), (large_sheet, large_message) = heights
    expect(large_sheet > 1.8 * sheet and large_message > 1.8 * message, f"heights: {heights}")
    expect(message > 0.6 * sheet, f"heights: {heights}")


def system_sizes(p):
    """Boxes, buttons and the list follow the size of texts that the system is set to."""
    found = {}
    for size, scale in SIZES.items():
        begin(p, "Adwaita", scale)
        p.key("F3")
        label = wait(lambda: (d := p.dialog()) and p.find("label", "Recherche", d), "the entry box")
        p.wait_entry("Recherche", "")
        heights = [height(p, label), height(p, p.focused(p.dialog()))]
        p.key("Échap")
        p.wait_no_dialog()
        p.menu("O", "Choix de la couleur de l'écran")
        line = wait(lambda: (t := p.find("table", "Couleurs")) and showing(t) and next(
            (n for n in walk(t) if n.get_name() == "Bleu"), None), "a line of the list")
        heights.append(Atspi.Component.get_extents(line, Atspi.CoordType.SCREEN).height)
        found[size] = heights
    expect(all(b > 1.6 * a for a, b in zip(found["100 %"], found["200 %"])), f"heights: {found}")


def line_from_its_beginning(p):
    """After a calculation the beginning of a line that fits is in view, though a longer one was read
    before; the cursor stays after the result."""
    begin(p, "Adwaita", "2")
    p.type("! " + "x" * 80 + "¶" + "+".join("1" * 15))
    p.key("Haut")
    p.key("Fin")
    area = Atspi.Component.get_extents(p.text(), Atspi.CoordType.SCREEN)
    second = 83
    first_of_line = lambda: Atspi.Text.get_character_extents(p.text(), second, Atspi.CoordType.SCREEN).x
    wait(lambda: first_of_line() < area.x, "the beginning of the lines beyond the edge")
    p.key("Bas")
    p.key("Alt+C")
    p.wait_message("+".join("1" * 15) + " = 15")
    wait(lambda: first_of_line() >= area.x, "the beginning of the line")
    same(p.caret(), len(p.sheet()), "cursor")


def font_dialog(p):
    p.menu("O", "Choix de la police de l'écran")
    p.close_box("police Courier Taille 15")
    p.wait_box("Voulez vous modifier la police de l'écran")
    p.key("Alt+O")
    return wait(lambda: (d := p.wait_dialog()) and d.get_name() == "Police" and d, "the font dialog")


def size_alone(p):
    """The font dialog's parts have names, and who changes the size alone keeps the font."""
    p.start()
    p.type("M")
    before = height(p, p.text())
    dialog = font_dialog(p)
    names = {role(n): n.get_name() for n in walk(dialog) if role(n) in ("table", "tree table", "slider",
                                                                       "spin button", "text")}
    expect(set(names.values()) <= {"Chercher une police", "Aperçu", "Polices", "Taille"}, f"names: {names}")
    wait_same(lambda: (f := p.focused(dialog)) and f.get_name(), "Chercher une police", "first part")
    same(p.tab_to(lambda node: role(node) == "spin button", dialog).get_name(), "Taille", "the line for a size")
    p.key("Ctrl+A")
    p.type("30")
    p.key("Tab")                      # a size counts when its line is left
    p.key("Alt+S")
    wait(lambda: gone(dialog), "the end of the font dialog")
    p.wait_text()
    wait(lambda: height(p, p.text()) > 1.8 * before, "larger letters")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    content = (p.folder / "VOXTAB.INI").read_bytes()
    rows = [content[i * RECORD:i * RECORD + 255].decode("cp1252").strip() for i in (18, 19)]
    same(rows, ["Courier", "30"], "font and size in the settings")


no_blinking()
expect(pathlib.Path(BINARY).exists(), f"{BINARY} isn't built")
run([contrasts, focus_is_seen, message_follows_the_sheet, system_sizes, line_from_its_beginning, size_alone],
    BINARY, PLACE)
