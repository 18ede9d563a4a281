"""The texts for users, cut into what the tests look at: examples, entries of messages, chapters.

An example is a heading line that begins with "Exemple" and ends with ":", then the lines of a sheet
as it stands after its calculation, up to an empty line. Where typing and result differ more than that,
"Vous tapez :" and its lines are followed by "Après Alt+C :" or "Après Ctrl+Entrée :" and theirs."""
import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent

# What stands between "Exemple" and ":" and what it sets in the probe.
SETTINGS = {
    "": {},
    "en radians": {"unite_angle": 2},
    "en grades": {"unite_angle": 3},
    "en nombres entiers": {"mode_affichage": 1},
    "en puissances de 10": {"mode_affichage": 3},
    "en hexadécimal": {"mode_nombre": 2},
    "en colonne": {"matrice_colonne": 1},
    "en résultats restreints": {"stat_restreint": 1},
}
AFTER = re.compile(r"Après (Alt\+C|Ctrl\+Entrée)(?:, (en .+?))? :")
COMMANDS = {"Alt+C": "recalcul", "Ctrl+Entrée": "calcul_colonne"}
ENTRY = re.compile(r"(Message|Boîte|Question|Saisie) : (.+)")


def quoted(text: str) -> str:
    """A text as the language of the scripts has it."""
    return '"' + text.replace('"', '""') + '"'


class Unrecognised(Exception):
    """A line that looks like an example and has none of its forms."""


@dataclasses.dataclass
class Example:
    line: int                    # of the heading, from 1
    options: dict
    typed: list[str]
    after: list[str]
    op: str = "recalcul"
    box: str = ""                # the box that the heading or the entry names
    entry: str = ""              # "Message" or "Boîte" when the example belongs to such an entry
    told: str = ""               # the words of that entry
    stands: bool = True          # the sheet as it stands is calculated too, and doesn't change


def read(name: str) -> list[str]:
    """The lines of a text of the tree."""
    return (ROOT / name).read_text(encoding="utf-8").removesuffix("\n").split("\n")


def function_names() -> list[str]:
    """The names that the calculator knows, from its own table, as a sheet writes them."""
    rows = re.findall(r'^    {k\w+, "(\w+)", Lecture::', "\n".join(read("src/functions/table.cpp")), re.M)
    numbers = re.search(r"kAucuneFonction,(.*)kApresFonctions", " ".join(read("src/functions/table.hpp")))
    if len(rows) != len(re.findall(r"\bk[A-Z]\w*(?=,)", numbers[1])):
        raise Unrecognised("src/functions/table.cpp: not every row of the table is read here")
    return [name.upper() for name in rows]


def heading(text: str, line: int) -> tuple[dict, str]:
    """Settings and named box of an example's heading line."""
    found = re.fullmatch(r"Exemple(?: (.+?))? ?:", text)
    words = (found[1] or "") if found else None
    if words is None:
        raise Unrecognised(f"line {line}: {text}")
    if box := re.fullmatch(r"avec la boîte (.+)", words):
        return {}, box[1]
    if decimals := re.fullmatch(r"avec (\d+) décimales", words):
        return {"nombre_decimal": int(decimals[1])}, ""
    if words not in SETTINGS:
        raise Unrecognised(f"line {line}: {text}")
    return SETTINGS[words], ""


def typed_of(after: list[str]) -> list[str]:
    """What a user types to get these lines: they without any result."""
    typed, block = [], False
    for line in after:
        if block:
            block = not line.startswith("fin résultat")
        elif re.match(r"P=nombre de|N= .*, X= ", line):
            block = True
        elif not line.startswith("f("):
            typed.append(line if line.startswith("!") else without_result(line))
            block = line.startswith("TRISTATX = ") or "== " in line
    return typed


def without_result(line: str) -> str:
    """A line up to its result: in front of the first " =" or "==" """
    found = re.search(r" =|==", line)
    return line[:found.start()] if found else line


def block(lines: list[str], start: int) -> list[str]:
    """The lines from start up to an empty line."""
    end = start
    while end < len(lines) and lines[end]:
        end += 1
    return lines[start:end]


def examples(lines: list[str]) -> tuple[list[Example], set[int]]:
    """All examples of a text, and the numbers from 0 of the lines that they take."""
    found, taken, kind, told = [], set(), "", ""
    number = 0
    while number < len(lines):
        line = lines[number]
        if entry := ENTRY.fullmatch(line):
            kind, told = entry[1], entry[2]
        elif line.startswith("CHAPITRE "):
            kind, told = "", ""
        if line.startswith("Exemple"):
            options, box = heading(line, number + 1)
            after = block(lines, number + 1)
            found.append(Example(number + 1, options, typed_of(after), after, box=box, entry=kind, told=told,
                                 stands=not box and kind != "Boîte"))
            kind, told = "", ""          # only the first example below an entry shows its very words
            taken.update(range(number, number + 1 + len(after)))
            number += len(after)
        elif line == "Vous tapez :":
            typed = block(lines, number + 1)
            middle = number + 2 + len(typed)
            below = AFTER.fullmatch(lines[middle]) if middle < len(lines) else None
            if not below or (below[2] or "") not in SETTINGS:
                raise Unrecognised(f"line {number + 1}: no \"Après\" follows")
            after = block(lines, middle + 1)
            found.append(Example(number + 1, SETTINGS[below[2] or ""], typed, after, COMMANDS[below[1]],
                                 entry=kind, told=told, stands=False))
            kind, told = "", ""
            taken.update(range(number, middle + 1 + len(after)))
            number = middle + len(after)
        number += 1
    return found, taken


def chapters(lines: list[str]) -> dict[str, list[str]]:
    """Heading to lines of each chapter; two chapters of the same heading are a fault."""
    found: dict[str, list[str]] = {}
    for line in lines:
        if re.fullmatch(r"CHAPITRE \d+ : .+", line):
            if line in found:
                raise Unrecognised(f"{line} stands twice")
            found[line] = []
        elif found:
            found[next(reversed(found))].append(line)
    return found


def chapter(lines: list[str], words: str) -> list[str]:
    """The lines of the chapter whose heading ends with these words."""
    return next(text for title, text in chapters(lines).items() if title.endswith(words))
