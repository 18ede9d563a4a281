"""Every text that the program says, shows in a box or asks with is explained in the guide.

Collected from the sources (but the tools and the port): every literal in the sheet's code page, every
one in a statement that says or shows something, and every one that looks like words. Each must stand in a line "Message : ...", "Boîte : ...", "Question : ..." or
"Saisie : ..." of the guide, with an explanation below it. not_said.txt tells the others: under
"[told elsewhere]" what the guide must have anywhere, under "[never heard]" what no user meets. A line
there that no literal needs any more is a fault too."""
import pathlib
import re
import sys

from texts import ENTRY, ROOT, read

LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"(_fr)?')
WORDS = re.compile(r"[^\W\d_]{2}.* [^\W\d_]{2}|[À-ÿ]")     # two words, or an accent
VOICE = re.compile(r"\b(?:dit|message|boite|saisie|oui_non|oui_non_annuler|affiche_erreur_formule)\s*\("
                   r"[^;]*;")
MENUS = ("shell/commands.cpp", "shell/menus.cpp", "shell/help_mode.hpp")   # captions and key-help words
VOCABULARY = ("shell/listening.cpp", "study/study_text.cpp", "verification/function_words.cpp", "verification/sign_words.cpp",   # words that sentences are made of
              "verification/words.cpp", "verification/line_words.cpp")
# What the page of a sheet says; a browser reads it, and the program itself says none of it.
PAGE = ("exchange/drawing.cpp", "exchange/html_text.cpp", "exchange/mathml.cpp", "exchange/page.cpp",
        "exchange/page_style.cpp", "exchange/study_section.cpp")
HERE = pathlib.Path(__file__).resolve().parent


def literals() -> dict[str, str]:
    """Each literal that may be for the user, and a file that has it."""
    found: dict[str, str] = {}
    for path in sorted((ROOT / "src").rglob("*.[ch]pp")):
        name = str(path.relative_to(ROOT / "src"))
        if name.startswith(("terminal/", "platform/")) or name in MENUS + PAGE:
            continue                       # the menus have a test of their own
        text = re.sub(r"//[^\n]*|#include[^\n]*", "", path.read_text(encoding="utf-8"))
        text = re.sub(r"'(?:[^'\\\n]|\\.)'", "' '", text)      # a quote as a character opens nothing
        voiced = {match[1] for said in VOICE.finditer(text) for match in LITERAL.finditer(said[0])}
        for match in LITERAL.finditer(text):
            if match[2] or match[1] in voiced or WORDS.search(match[1]):
                found.setdefault(match[1].replace('\\"', '"'), name)
    return found


def stands(text: str, entry: str) -> bool:
    """Whether the entry has the text; a sentence with places for pieces ("%m est lu %l") has anything there."""
    if not re.search("%[mlv]", text):
        return text in entry
    return re.search(".+".join(re.escape(part) for part in re.split("%[mlv]", text)), entry) is not None


def words(literal: str) -> str:
    """A literal as it stands in a message: without the marks and blanks around it."""
    return literal.strip(" =").replace("&", "")


def not_said() -> dict[str, list[re.Pattern]]:
    """The exceptions by heading; a line "/.../" is a pattern for the whole literal."""
    found: dict[str, list[re.Pattern]] = {}
    for line in (HERE / "not_said.txt").read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            patterns = found.setdefault(line, [])
        elif line and not line.startswith("#"):
            pattern = line[1:-1] if line.startswith("/") and line.endswith("/") else re.escape(line)
            patterns.append(re.compile(pattern))
    return found


def explained(lines: list[str]) -> tuple[list[str], list[str]]:
    """The texts of the entries, and the entries that nothing explains."""
    entries, bare = [], []
    for number, line in enumerate(lines):
        if entry := ENTRY.fullmatch(line):
            entries.append(entry[2])
            below = lines[number + 1] if number + 1 < len(lines) else ""
            if not below or ENTRY.match(below) or below.startswith("Exemple"):
                bare.append(f"aide.txt:{number + 1}: not explained: {line}")
    return entries, bare


def main() -> int:
    lines = read("data/aide.txt")
    exceptions, (entries, faults) = not_said(), explained(lines)
    whole, used, heard = "\n".join(lines).casefold(), set(), 0
    for literal, file in literals().items():
        text = words(literal)
        kinds = {kind for kind, patterns in exceptions.items() for pattern in patterns
                 if pattern.fullmatch(literal) and (used.add(pattern) or True)}
        if "[never heard]" in kinds or not re.search(r"[^\W_]", text):
            continue
        if "[told elsewhere]" in kinds or file in VOCABULARY:
            if text.casefold().removeprefix("fin ") not in whole:
                faults.append(f"src/{file}: not told in the guide: {literal!r}")
            continue
        heard += 1
        if not any(stands(text, entry) for entry in entries):
            faults.append(f"src/{file}: not explained in the guide: {literal!r}")
    faults += [f"not_said.txt: nothing needs {pattern.pattern!r} any more"
               for patterns in exceptions.values() for pattern in patterns if pattern not in used]
    if heard < 100:
        faults.append(f"only {heard} texts found")
    print("\n".join(faults + [f"{heard} texts, {len(entries)} entries, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
