"""What a blind user hears: the program with a real screen reader. Each message is spoken once and
stands on the braille line, equal messages in a row are both heard, nothing is said twice, and the
braille line comes back to the cursor's line. Every command of the menus, dialog, alert and view is a row of
one run: the key, the words expected, how often they were heard, the braille line after.
VOXTAB_HEARD=FILE writes the rows into that file."""
import subprocess
import sys

from hearing import run_parts
from pilot import accepts, expect, name_line, wait, wait_same

BINARY, PLACE, LIST_MENUS = sys.argv[1:4]
LEAST = 170      # rows of the table
LINE = "! alpha gamma delta epsilon zeta"
GUIDE = "GUIDE DE VOXTAB, la calculatrice en forme de feuille de texte"


def calculation(p, h):
    p.type("A=3¶B=A*2¶C=B+1")
    p.wait_sheet("A=3\nB=A*2\nC=B+1")
    for _ in range(3):
        h.hear("Alt+C", "C=B+1 = 7")
    for _ in range(2):
        h.hear("F5", "Entier", "C=B+1 = 7")
    h.hear("Ctrl+F7", "Flottant en puissance de 10", "C=B+1 = 7.E00")
    h.hear("Maj+F7", "Hexadécimal", "C=B+1 = 7")
    h.hear("F7", "Flottant", "C=B+1 = 7")
    h.hear("Ctrl+G", "colonne 10 ligne 3")
    h.hear("Ctrl+G", "colonne 10 ligne 3")
    h.hear("Alt+C", "C=B+1 = 7")
    h.hear("Ctrl+R", "= 7")
    h.hear("F2", "C égale B plus 1")
    h.hear("F2", "B vaut 6")
    h.hear("F2", "C égale B plus 1")
    h.hear("Ctrl+F1", "Pose d'un repère")


def dialogs(p, h):
    """A box is read; back in the text its line is read once, and a message once."""
    h.hear_box("Ctrl+F5", "Nombre de décimal text")
    p.wait_dialog()
    h.hear_back("Échap", "C=B+1 = 7", row="Nombre de décimal")
    h.hear_box("F3", "Recherche text")
    h.answer("ZZ")
    h.hear_back("Entrée", "C=B+1 = 7", "introuvable", row="Recherche")
    p.type("X")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nC=B+1 = 7X")
    h.hear_box("Alt+Q", "enregistrer sur SANSTITRE.VXT ?")
    p.wait_dialog()
    h.hear_back("Échap", "C=B+1 = 7X", row="enregistrer sur")
    p.key("Arrière")
    p.wait_sheet("A=3 = 3\nB=A*2 = 6\nC=B+1 = 7")


def views(p, h):
    h.hear_box("F8", "degré")
    h.hear_back("Échap", "C=B+1 = 7", "Degré", row="Unité d'angle")
    h.hear("Alt+F1", "lecture seule", first_function(p))
    h.hear("5", "lecture seule", row="Liste des fonctions")
    h.hear("Échap", "C=B+1 = 7", row="Liste des fonctions")


def first_function(p):
    """The first line of the list of functions that lies beside the program."""
    return (p.folder / "data" / "fonction.txt").read_text(encoding="utf-8").splitlines()[0].strip()


def choose(p, letter, caption, steps=40):
    """Goes to an item of a menu, not yet chosen; the result is the name of its row."""
    p.key(f"Alt+{letter}")
    menu = wait(p.open_menu, f"the menu {letter}")
    for _ in range(steps):
        before = p.chosen(menu)
        if (before or "").startswith(caption):
            return f"Menu {menu.get_name()}, {before}"
        p.key("Bas")
        wait(lambda: p.chosen(menu) != before, "the next item")
    raise RuntimeError(f"no item {caption}")


def menu(p, h):
    """A command chosen in a menu: the focus comes back, and the message is heard once; so it is when the
    command moves the cursor or brings another text."""
    h.hear_back("Entrée", "C=B+1 = 7", "Entier", row=choose(p, "O", "Nombre entier"))
    h.hear("F7", "Flottant", "C=B+1 = 7")
    h.hear_back("Entrée", "C=B+1 = 7.E00", "Flottant en puissance de 10",
                row=choose(p, "O", "Nombre en puissance de 10"))
    h.hear("F7", "Flottant", "C=B+1 = 7")
    h.hear_back("Entrée", "C=B+1 = 7", row=choose(p, "E", "Calcul de la feuille"))
    help_menu(p, h, 2, "Guide", GUIDE)
    help_menu(p, h, 1, "A propos", "VOXTAB Version 2.02")


def left_menus(p, h):
    """The menus that were opened and left without a choice: the text is read, and its messages are heard."""
    p.key("Menu")
    wait(p.open_menu, "the first menu")
    h.hear_back("Échap", "C=B+1 = 7", row="F10")
    h.hear("Ctrl+G", "colonne 10 ligne 3")
    p.key("Alt+O")
    h.hear_back("Échap", "C=B+1 = 7", row="Menu Options")
    h.hear("Ctrl+G", "colonne 10 ligne 3")


def help_menu(p, h, ups, caption, line):
    """A view of the last menu, so many items from its end."""
    p.key("Menu")
    p.key("Gauche")
    p.key("Haut", ups)
    wait_same(lambda: (m := p.open_menu()) and p.chosen(m), caption, "item")
    h.hear_back("Entrée", line, "lecture seule", row=f"Menu ?, {caption}", name="Feuille read only text")
    h.hear("Échap", "C=B+1 = 7", row=caption)


def options(p, h):
    """The items of the Options menu without a key: what is set is heard, once."""
    for caption, words in (("affichage matrice", "en colonne"), ("affichage matrice", "en ligne"),
                           ("résultat statistique", "affichage restreint"),
                           ("Résultat statistique", "affichage complet")):
        h.hear_back("Entrée", "C=B+1 = 7", words, row=choose(p, "O", caption))
    for words in ("checked", "not checked"):
        h.hear_back("Entrée", "C=B+1 = 7", row=choose(p, "O", "Affichage dernière feuille"), spoken=(words,))


def colours(p, h):
    """Both steps of the colours are heard, then what is set; the same colour twice is an alert."""
    first, second = "Choisissez une couleur des caractères", "Choisissez une couleur d'arrière plan"
    h.hear_box("Entrée", first, row=choose(p, "O", "Choix de la couleur"))
    h.hear("Bas", "Noir", row="Couleurs")
    h.hear("V", "Vert", row="Couleurs")
    h.hear("Entrée", second, row="Couleurs")
    h.hear("V", "Vert", row="Couleurs")
    h.hear_box("Entrée", "les couleurs caractère et arrière plan sont identiques", row="Couleurs")
    h.hear_back("Entrée", "C=B+1 = 7", row="sont identiques")
    h.hear_box("Entrée", first, row=choose(p, "O", "Choix de la couleur"))
    h.hear("V", "Vert", row="Couleurs")
    h.hear("Entrée", second, row="Couleurs")
    h.hear("B", "Bleu", row="Couleurs")
    h.hear_back("Entrée", "C=B+1 = 7", "caractères Vert, arrière plan Bleu", row="Couleurs")
    h.hear_box("Entrée", first, row=choose(p, "O", "Choix de la couleur"))
    h.hear_back("Échap", "C=B+1 = 7", row="Couleurs")


def fonts(p, h):
    """The font that is set, the question, the dialog, and what its Cancel says."""
    for which, name in (("l'écran", "police Courier Taille 15"), ("l'imprimante", "police Arial Taille 16")):
        h.hear_box("Entrée", name, row=choose(p, "O", f"Choix de la police de {which}"))
        p.wait_dialog()
        h.hear_box("Entrée", f"Voulez vous modifier la police de {which}", row="Police")
        p.wait_dialog()
        h.hear_box("Alt+O", "Police dialog", row="Police")
        wait(lambda: (d := p.dialog()) and (f := p.focused(d)) and f.get_name() == "Chercher une police",
             "the line for a name")
        h.hear_box("Échap", "Vous n'avez sélectionné aucune police", row="Police")
        p.wait_dialog()
        h.hear_back("Entrée", "C=B+1 = 7", row="aucune police")


def buttons(p, h):
    """Every control is reached with Tab and left with Escape."""
    for times, words in ((1, "Modif. texte"), (2, "Quitter")):
        p.key("Tab", times - 1)
        h.hear_box("Tab", words)
        h.hear_back("Échap", "C=B+1 = 7", row=words)


def one_sheet(p, h):
    """What the commands for several sheets say while there is one."""
    h.hear_box("Ctrl+N", "un seul fichier SANSTITRE autorisé")
    p.wait_dialog()
    h.hear_back("Entrée", "C=B+1 = 7", row="un seul fichier")
    h.hear("F6", "un seul fichier")
    h.hear("Maj+F6", "un seul fichier")
    h.hear_back("Entrée", "C=B+1 = 7", "1 SANSTITRE.VXT", row=choose(p, "F", "1 SANSTITRE.VXT"))


def key_help(p, h):
    """Each command with a key of its own tells what it does."""
    lines = subprocess.run([LIST_MENUS], check=True, capture_output=True, text=True).stdout
    h.hear("F1", "Aide Mémoire des touches")
    for line in lines.splitlines():
        _, _, _, key, words = line.split("\t")
        if key and words:
            h.hear(key, words, row="Aide mémoire")
    for key, words in (("Alt+C", "calcul de la feuille"), ("Alt+R", "Rechercher depuis le curseur"),
                       ("Alt+Gauche", "chaine à gauche"), ("Alt+Droite", "chaine à droite"),
                       ("Alt+F1", "Liste des fonctions"),
                       ("Ctrl+Entrée", "calcul de toutes les lignes en colonne"),
                       ("Ctrl+Maj+S", "enregistrer sous un autre nom"),
                       ("Alt+M", "Remplacement sur le texte"), ("Alt+Q", "quitter la calculatrice"),
                       ("K", "aucune fonction"), ("K", "aucune fonction")):
        h.hear(key, words, row="Aide mémoire")
    h.hear("F1", "C=B+1 = 7", row="Aide mémoire")


def movement(p, h):
    """The commands of the sheet that go to a line."""
    h.hear("Maj+F1", "C=B+1 = 7")
    h.hear_box("Ctrl+Y", "Numéro de ligne text")
    h.answer("2")
    h.hear_back("Entrée", "B=A*2 = 6", row="Numéro de ligne")
    h.hear_box("F3", "Recherche text")
    h.answer("C=")
    h.hear_back("Entrée", "C=B+1 = 7", row="Recherche")
    h.hear("Ctrl+F3", "introuvable")


def name_file(p, h, path):
    """Writes a name into the file dialog that is open; it can be accepted then."""
    dialog = p.wait_dialog("file chooser")
    wait(lambda: name_line(p, dialog), "the line for the name")
    h.answer(str(path))
    wait(lambda: accepts(dialog), "the button that accepts the name")


def files(p, h):
    """Saving, under a name and again; a name that is taken; the printer that isn't there."""
    h.hear_box("Ctrl+Maj+S", "Enregistrer sous file chooser")
    name_file(p, h, p.folder / "essai")
    h.hear_back("Entrée", "C=B+1 = 7", spoken=("enregistrer",), row="Enregistrer sous")
    p.key("Fin")
    p.type(" ")
    h.hear("Ctrl+S", "enregistrer")
    h.hear_box("Ctrl+Maj+S", "Enregistrer sous file chooser")
    name_file(p, h, p.folder / "pris.VXT")
    h.hear_box("Entrée", "pris.VXT existe déjà, le remplacer ?", row="Enregistrer sous")
    p.wait_box("pris.VXT existe déjà, le remplacer ?")
    p.key("Entrée")
    p.wait_dialog("file chooser")
    h.hear_back("Échap", "C=B+1 = 7", row="Enregistrer sous")
    h.hear_box("Ctrl+P", "l'impression n'a pas pu se faire : y a-t-il une imprimante ?")
    p.wait_dialog()
    h.hear_back("Entrée", "C=B+1 = 7", row="Imprimer")
    h.hear_box("Entrée", "Choix de l'imprimante dialog", row=choose(p, "F", "Choix de l'imprimante"))
    p.wait_dialog()
    h.hear_back("Échap", "C=B+1 = 7", row="Choix de l'imprimante")
    h.hear("Ctrl+Entrée", "C=B+1 = 7", "= 16")


def two_sheets(p, h):
    """A second sheet, from one to the other, and its file."""
    h.hear_beside("Ctrl+N", "VOXTAB SANSTITRE.VXT")
    p.type(f"! un¶! beta alpha¶{LINE}")
    h.hear_beside("F6", f"VOXTAB {p.folder}/essai.VXT")
    h.hear_beside("Maj+F6", "VOXTAB SANSTITRE.VXT")


def words_of_the_line(p, h):
    """From word to word, from tab stop to tab stop, a word that goes and comes back."""
    h.hear_beside("Alt+Gauche", "zeta")
    h.hear_beside("Alt+Gauche", "epsilon")
    h.hear_beside("Alt+Droite", "zeta")
    p.key("Début")
    h.hear("F9", "10")
    h.hear("F9", "20")
    h.hear("Maj+F9", "10")
    p.key("Début")
    h.hear_beside("Alt+Droite", "alpha")
    h.hear("Ctrl+T", "alpha enlevé")
    h.hear_beside("Ctrl+Z", LINE)
    h.hear_beside("Ctrl+Maj+Z", LINE.replace("alpha ", ""))
    h.hear_beside("Ctrl+Z", LINE)
    h.hear_beside("Ctrl+A", "entire document selected")
    p.key("Ctrl+Début")


def replacements(p, h):
    """On the line, on the next one without the questions, in the whole text."""
    p.key("Bas")
    h.hear_box("Ctrl+L", "Recherche text")
    h.answer("alpha")
    h.hear_box("Entrée", "Remplace text", row="Recherche")
    h.answer("omega")
    h.hear_back("Entrée", "! beta omega", row="Remplace")
    p.key("Bas")
    p.key("Début")
    h.hear("Ctrl+J", LINE.replace("alpha", "omega"))
    h.hear_box("Alt+M", "Recherche text")
    h.answer("omega")
    h.hear_box("Entrée", "Remplace text", row="Recherche")
    h.answer("iota")
    h.hear_back("Entrée", LINE.replace("alpha", "iota"), "1 remplacement", row="Remplace")


def searches(p, h):
    """From the start, from the cursor, backwards, and on in both directions."""
    last = LINE.replace("alpha", "iota")
    h.hear_box("F3", "Recherche text")
    h.answer("eta")
    h.hear_back("Entrée", "! beta omega", row="Recherche")
    h.hear("Ctrl+F3", last)
    h.hear("Maj+F3", "! beta omega")
    h.hear("Maj+F3", "inconnu")
    p.key("Ctrl+Fin")
    h.hear_box("Ctrl+E", "Recherche text")
    h.hear_back("Entrée", last, row="Recherche")
    p.key("Ctrl+Début")
    h.hear_box("Alt+R", "Recherche text")
    h.hear_back("Entrée", "! beta omega", row="Recherche")


def tools(p, h):
    """The menu Outils."""
    h.hear("Ctrl+F8", "avec son")
    h.hear("Ctrl+F8", "sans son")


def brackets(p, h):
    """From a bracket to the other one and back; the line in words."""
    p.key("Ctrl+Fin")
    p.type("¶2*(3+SQRT(4)),5")
    h.hear("F2", "2 fois parenthèse 3 plus racine carrée de 4 fin parenthèse non lu virgule 5")
    h.hear("Ctrl+B", "parenthèse ouvrante colonne 3 autour de 3 plus racine carrée de parenthèse 4 fin parenthèse")
    h.hear("Ctrl+B", "parenthèse fermante colonne 13 autour de 3 plus racine carrée de parenthèse 4 fin parenthèse")


def closing(p, h):
    """A sheet that is closed without its text, one that is opened, one that isn't there."""
    h.hear_box("Ctrl+F4", "enregistrer sur SANSTITRE.VXT ?")
    p.wait_dialog()
    h.hear_back("Alt+N", "Z= 16", row="enregistrer sur")
    h.hear_box("Ctrl+O", "Nom du fichier text")
    name_file(p, h, p.folder / "absent.VXT")
    h.hear_box("Entrée", "absent.VXT : ce fichier n'existe pas", row="Ouvrir")
    p.wait_box("absent.VXT : ce fichier n'existe pas")
    p.key("Entrée")
    name_file(p, h, p.folder / "pris.VXT")
    h.hear_back("Entrée", "X=1", row="Ouvrir")
    h.hear_box("Ctrl+O", "Nom du fichier text")
    p.wait_dialog()
    h.hear_back("Échap", "X=1", row="Ouvrir")


def taken(program):
    """A file that stands where a sheet wants to be saved."""
    (program.folder / "pris.VXT").write_bytes(b"X=1\r\n")


def whole(h):
    expect(len(h.rows) >= LEAST, f"only {len(h.rows)} commands were heard")
    h.write()


run_parts(BINARY, PLACE, (calculation, dialogs, views, menu, left_menus, options, colours, fonts, buttons, one_sheet,
                          key_help, movement, files, two_sheets, words_of_the_line, replacements, searches, tools,
                          brackets, closing), before=taken, after=whole)
