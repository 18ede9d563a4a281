"""The first steps of the guide, its lesson and the path of README's French part are walked by the whole program:
exactly these keys, and exactly these words are heard.   test_steps.py PROGRAM_RUNNER [--write]

A step is a numbered line of sentences "Tapez X.", "Faites TOUCHE.", "Répondez X." and, at the end,
"Vous entendez : MOTS". README's path also stands as tests/program/guide_path_of_the_readme.scn, which
must say the same; --write writes it anew."""
import pathlib
import re
import subprocess
import sys
import tempfile

from texts import ROOT, Unrecognised, chapter, quoted, read

SCRIPT = ROOT / "tests/program/guide_path_of_the_readme.scn"
STEP = re.compile(r"(?:\d+)\. (?=(?:Tapez|Faites) )(.+)")
VERBS = "Tapez|Faites|Répondez|Vous entendez"
SENTENCE = re.compile(rf"(Tapez|Faites|Répondez) (.+?)\.(?: (?={VERBS})|$)|(Vous entendez)[^:]* : (.+)$")
FILE_DIALOGS = {"Ctrl+S": ("enregistrer", "C:\\SANSTITRE.VXT"), "Ctrl+O": ("ouvrir", "C:\\.VXT")}
ENTRY_BOXES = {"F3": ("Recherche", "")}
# The lesson: the file that it imports, the question about it, the sound of its curve in tenths of a second.
LESSON, DATA = "Une leçon : de la mesure à la page", ROOT / "examples/ressort.csv"
QUESTION = "6 lignes, 2 colonnes, virgule décimale"
COLUMNS, CURVE = " : colonnes 1 Masse (g), 2 Longueur (cm)", ["entend courbe \"50\"", "fin_du_son"]


def sentences(line: str) -> list[tuple[str, str]]:
    """A step's sentences as verb and object; a step with anything else in it is refused."""
    found, place = [], 0
    for match in SENTENCE.finditer(line):
        if match.start() != place:
            break
        found.append((match[1] or match[3], match[2] or match[4]))
        place = match.end()
    if place != len(line):
        raise Unrecognised(f"no form of a step: {line[place:]!r} in {line!r}")
    return found


def heard(words: str) -> list[str]:
    """The texts heard: all the words, or each text in French quotes."""
    return re.findall(r"« (.+?) »", words) or [words]


def key(name: str, answer: str | None, started: bool) -> list[str]:
    """The script's lines for a key, with the answer that its question will get."""
    if name == "./run":
        return ["redémarre" if started else "démarre"]
    lines = [f"touche {name}"]
    if answer is not None and name in FILE_DIALOGS:
        dialog, proposed = FILE_DIALOGS[name]
        lines = [f"répond {quoted(f'C:{chr(92)}{answer}.VXT')}", *lines,
                 f"entend dialogue {quoted(dialog)} {quoted(proposed)}"]
    elif answer is not None:
        prompt, proposed = ENTRY_BOXES[name]
        lines = [f"répond {quoted(answer)}", *lines, f"entend saisie {quoted(prompt)} {quoted(proposed)}"]
    return lines + (["entend fin"] if name == "Alt+Q" else [])


def data_key(answers: list[str]) -> list[str]:
    """The script's lines for the key that imports a file."""
    return [f"répond {quoted(f'C:{chr(92)}{answers[0]}')}", f"répond {quoted(answers[1])}", "touche Ctrl+I",
            'entend dialogue "Importer des données" "C:\\.csv"', f"entend saisie {quoted(QUESTION + COLUMNS)} {quoted(answers[1])}"]


def page_key(answer: str) -> list[str]:
    """The script's lines for the key that writes the page."""
    return [f"répond {quoted(f'C:{chr(92)}{answer}.html')}", "touche Ctrl+H",
            'entend dialogue "Exporter la page" "C:\\SANSTITRE.html"']


def lesson_key(name: str, answers: list[str]) -> list[str]:
    """The script's lines for a key of the lesson."""
    if name == "Ctrl+I":
        return data_key(answers)
    return page_key(answers[0]) if name == "Ctrl+H" else [f"touche {name}"]


def lesson_script(steps: list[str]) -> list[str]:
    """A script of the whole program for the lesson; its curve is heard to the end."""
    data = DATA.read_text(encoding="utf-8").replace("\n", "¶")
    lines = [f"fichier {quoted(f'C:{chr(92)}{DATA.name}')} {quoted(data)}", "démarre"]
    for step in steps:
        parts = sentences(step)
        for number, (verb, what) in enumerate(parts):
            if verb == "Tapez":
                lines.append(f"tape {quoted(what)}")
            elif verb == "Faites":
                answers = [answer for kind, answer in parts[number + 1:number + 3] if kind == "Répondez"]
                lines += lesson_key(what, answers)
            elif verb == "Vous entendez":
                for text in heard(what):
                    lines += [f"entend message {quoted(text)}", *(CURVE if text.startswith("Courbe") else [])]
    return lines + ["entend rien"]


def lesson_of(guide: list[str]) -> list[str]:
    """The lines of the lesson, up to the empty line behind it; what is heard may stand on a line of its own."""
    lines = guide[guide.index(LESSON) + 1:]
    return "\n".join(lines[:lines.index("")]).replace("\nVous entendez", " Vous entendez").split("\n")


def script(steps: list[str], started: bool) -> list[str]:
    """A script of the whole program for these steps."""
    lines = ["démarre"] if started else []
    for step in steps:
        parts = sentences(step)
        for number, (verb, what) in enumerate(parts):
            following = parts[number + 1] if number + 1 < len(parts) else ("", "")
            if verb == "Tapez":
                lines.append(f"tape {quoted(what)}")
            elif verb == "Faites":
                answer = following[1] if following[0] == "Répondez" else None
                lines += key(what, answer, "démarre" in lines)
            elif verb == "Vous entendez":
                lines += [f"entend message {quoted(text)}" for text in heard(what)]
    return lines + ["entend rien"]


def steps_of(lines: list[str]) -> list[str]:
    return [found[1].replace("`", "") for line in lines if (found := STEP.fullmatch(line))]


def run(runner: str, lines: list[str], title: str) -> list[str]:
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder, "steps.scn")
        path.write_text("\n".join([f"# {title}", *lines, ""]), encoding="utf-8")
        done = subprocess.run([runner, str(path)], capture_output=True, text=True, encoding="utf-8")
    return [] if done.returncode == 0 else [f"{title}: {done.stdout}"]


def main() -> int:
    guide = steps_of(chapter(read("data/aide.txt"), "les premiers pas"))
    readme = steps_of(read("README.md"))
    path = script(readme, started=False)
    text = "\n".join(["# What README's French part tells a newcomer to do, and what is then heard. Written",
                      "# from it by tests/guide/test_steps.py.", *path, ""])
    if "--write" in sys.argv:
        SCRIPT.write_text(text, encoding="utf-8")
    lesson = lesson_of(read("data/aide.txt"))
    faults = run(sys.argv[1], script(guide, started=True), "aide.txt") + run(sys.argv[1], path, "README.md")
    faults += run(sys.argv[1], lesson_script(steps_of(lesson)), "lesson")
    if not any(line.startswith(f"La question dit {QUESTION}.") for line in lesson):
        faults.append("the lesson tells another question than the one that is asked")
    if len(steps_of(lesson)) != 8:
        faults.append(f"{len(steps_of(lesson))} steps in the lesson")
    if not SCRIPT.exists() or SCRIPT.read_text(encoding="utf-8") != text:
        faults.append(f"{SCRIPT.name} isn't README's path any more: test_steps.py RUNNER --write")
    if len(guide) != 10 or len(readme) < 12:
        faults.append(f"{len(guide)} steps in the guide, {len(readme)} in README.md")
    print("\n".join(faults + [f"{len(guide)} + {len(steps_of(lesson))} + {len(readme)} steps, {len(faults)} faults"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
