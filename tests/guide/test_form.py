"""The form of the guide and of the list of functions: what a screen reader needs to read them well.

Both can be written in a sheet's code page, have no line that is too long to be heard, no blanks at the
ends, no drawn tables. The guide's contents are its chapters, in their order, and each heading is found
by searching for "chapitre" and its number. Every function is in both texts."""
import re
import sys

from texts import ENTRY, ROOT, chapter, chapters, examples, function_names, read

MOST = 200               # characters a line, in the list of functions too
GUIDE = 100              # characters a line in the guide, but for the program's own longer words
DRAWN = re.compile(r"[|_]{2,}|-{3,}|\+-|\*{3,}|\t| {3,}")


def form_faults(name: str) -> list[str]:
    """What no line of either text may have."""
    faults = []
    for number, line in enumerate(read(name), 1):
        try:
            line.encode("cp1252")
        except UnicodeEncodeError as error:
            faults.append(f"{name}:{number}: {line[error.start]!r} doesn't exist in a sheet")
        if len(line) > MOST:
            faults.append(f"{name}:{number}: {len(line)} characters")
        if line != line.strip():
            faults.append(f"{name}:{number}: a blank at an end")
        if DRAWN.search(line):
            faults.append(f"{name}:{number}: something drawn: {line}")
    return faults


def heading_faults(lines: list[str]) -> list[str]:
    """Contents and headings say the same; a search for "chapitre N" stops at chapter N."""
    headings = list(chapters(lines))
    start = lines.index("SOMMAIRE") + 1
    contents = lines[start:lines.index("", start)]
    faults = []
    if [f"CHAPITRE {line}" for line in contents] != headings:
        faults.append(f"aide.txt: contents {contents}, chapters {headings}")
    if [int(re.search(r"\d+", line)[0]) for line in headings] != list(range(1, len(headings) + 1)):
        faults.append("aide.txt: the chapters aren't numbered from 1")
    for line in headings:
        words = line.split(" :")[0]
        first = next(text for text in lines if words.upper() in text.upper())
        if first != line:
            faults.append(f"aide.txt: a search for {words!r} stops at {first!r}")
    return faults


def search_faults(lines: list[str]) -> list[str]:
    """Who has heard a fault, a box or a question finds it by searching for its words: the first line
    that has them is an entry."""
    faults = []
    for title in ["les messages derrière une ligne", "les boîtes et les questions"]:
        for line in chapter(lines, title):
            if not (entry := ENTRY.fullmatch(line)) or entry[1] == "Saisie":
                continue
            first = next(text for text in lines if entry[2].casefold() in text.casefold())
            if not ENTRY.fullmatch(first):
                faults.append(f"aide.txt: a search for {entry[2]!r} stops at {first!r}")
    return faults


def function_faults(lines: list[str]) -> list[str]:
    """Every function and operator word begins a line of the list, once, and stands in an example of
    the guide; "RangeFonction" takes what is in front of the first blank."""
    names = function_names()
    listed = [line.split(" ")[0] for line in read("data/fonction.txt")]
    shown = "\n".join("\n".join(example.typed) for example in examples(lines)[0]).upper()
    faults = [f"fonction.txt: {name} begins {listed.count(name)} lines"
              for name in [*names, "AND", "OR", "XOR", "NOT"] if listed.count(name) != 1]
    faults += [f"fonction.txt: {name} stands twice" for name in set(listed) if listed.count(name) > 1]
    fuzzed = (ROOT / "fuzz/words.dict").read_text(encoding="cp1252")
    faults += [f"words.dict: the fuzzer doesn't know {name}" for name in names if not re.search(rf'^"{name}', fuzzed, re.M)]
    joined = "|".join(["AIR", "INC"])
    faults += [f"aide.txt: no example of {name}" for name in names
               if not re.search(rf"(?<![A-Z]){name}(?![A-Z0-9])" if name not in joined
                                else rf"(?<![A-Z]){name}[A-Z]\(", shown)]
    return faults


def main() -> int:
    lines = read("data/aide.txt")
    faults = form_faults("data/aide.txt") + form_faults("data/fonction.txt")
    faults += heading_faults(lines) + function_faults(lines)
    faults += [f"aide.txt:{number}: {len(line)} characters" for number, line in enumerate(lines, 1)
               if len(line) > GUIDE and not ENTRY.fullmatch(line)]
    faults += search_faults(lines)
    if not chapter(lines, "ce qui surprend"):
        faults.append("aide.txt: the chapter of surprises is empty")
    print("\n".join(faults + [f"{len(lines)} lines, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
