"""docs/glossary.md has every French word that the identifiers of the headers are made of, and no word or
name that the code lacks. english_words.txt beside this test lists the words that are English, of C++, of a
library or of a single letter: a word that is in neither fails, so that a new French name brings its row."""
import fnmatch
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
GLOSSARY = ROOT / "docs/glossary.md"
ENGLISH = pathlib.Path(__file__).with_name("english_words.txt")
NAME = re.compile(r"[A-Za-z_]\w*")
WORD = re.compile(r"[A-Z]+(?![a-z])|[A-Z]?[a-z]+")
# Comments, preprocessor lines, texts and characters, numbers, names of the libraries.
NO_NAME = re.compile(r'//[^\n]*|/\*.*?\*/|^\s*#[^\n]*|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'|\b\d[\w\']*'
                     r"|\b(?:std|nlohmann|doctest)::\w+(?:::\w+)*|\bwx\w+", re.S | re.M)


def names(pattern, *folders):
    """The identifiers of these files, each with one file that has it."""
    found = {}
    for folder in folders:
        for path in sorted((ROOT / folder).rglob(pattern)):
            for name in NAME.findall(NO_NAME.sub(" ", path.read_text(encoding="utf-8"))):
                found.setdefault(name, path.relative_to(ROOT))
    return found


def words(name):
    return [word.lower() for part in name.split("_") for word in WORD.findall(part)]


def main():
    text = GLOSSARY.read_text(encoding="utf-8")
    start, end = text.index("\n## Words\n"), text.index("\n## src/")
    rows = [row.split("|")[1] for row in text[start:end].splitlines() if row.startswith("| ")]
    french = {word.strip() for row in rows[1:] for word in row.split(",")}
    english = set(ENGLISH.read_text(encoding="utf-8").split())
    headers, code = names("*.hpp", "src", "tests/support"), names("*.[ch]pp", "src", "tests")
    code_words = {word for name in code for word in words(name)}
    faults = [f"{path}: {name}: the glossary lacks \"{word}\"" for name, path in headers.items()
              for word in words(name) if word not in french | english]
    faults += [f"docs/glossary.md: no name has the word \"{word}\"" for word in sorted(french - code_words)]
    faults += [f"english_words.txt: no name has the word \"{word}\"" for word in sorted(english - code_words)]
    faults += [f"both in the glossary and in english_words.txt: \"{word}\"" for word in sorted(french & english)]
    for name in sorted(set(re.findall(r"`([\w*]+)`", text[end:]))):
        if name not in code and not ("*" in name and fnmatch.filter(code, name)):
            faults.append(f"docs/glossary.md: no such name: {name}")
    for fault in faults:
        print(fault)
    print(f"{len(headers)} names, {len(french)} words, {len(faults)} faults")
    return 1 if faults else 0


sys.exit(main())
