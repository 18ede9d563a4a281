"""Man pages and README about the terminal.   test_terminal.py VOXTAB_CALC

The formatter has nothing to say against a page; each page is its language's version of the other; the
pages of voxtab-calc tell every option that --aide tells and no other, those of voxtab the ones that its
own help has in the sources; every "$ command" in the pages
and in README gives the lines below it."""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from texts import ROOT, read

PAGES = ["data/man/voxtab-calc.1", "data/man/fr/voxtab-calc.1", "data/man/voxtab.1", "data/man/fr/voxtab.1"]
SECTIONS = {"voxtab-calc.1": 7, "voxtab.1": 6}


def formatted(page: str) -> tuple[str, str]:
    """The page as a terminal shows it, and what the formatter says against it."""
    done = subprocess.run(["groff", "-k", "-man", "-Tutf8", "-ww", "-rLL=100n", "-P-c", "-P-b", "-P-u", "-P-o",
                           str(ROOT / page)],
                          capture_output=True, text=True, encoding="utf-8", env={**os.environ, "LC_ALL": "C.UTF-8"})
    return done.stdout, done.stderr


def commands(lines: list[str]) -> list[tuple[str, list[str]]]:
    """Each "$ command" with the lines below it, up to an empty line or the end of a block."""
    found, current = [], None
    for line in (text.strip() for text in lines):
        if line.startswith("$ "):
            current = (line[2:], [])
            found.append(current)
        elif not line or line == "```":
            current = None
        elif current:
            current[1].append(line)
    return found


def command_faults(name: str, lines: list[str], program: str) -> list[str]:
    """Runs each command in a shell that finds the program under its name."""
    faults, found = [], commands(lines)
    if not found:
        return [f"{name}: no command is shown"]
    with tempfile.TemporaryDirectory() as folder:
        os.symlink(program, pathlib.Path(folder, "voxtab-calc"))
        for command, wanted in found:
            done = subprocess.run(["sh", "-c", command.replace("build/run/voxtab-calc", "voxtab-calc")],
                                  cwd=folder, capture_output=True, text=True, encoding="utf-8",
                                  env={**os.environ, "PATH": f"{folder}:{os.environ['PATH']}"})
            if done.stdout.splitlines() != wanted:
                faults.append(f"{name}: {command} gives {done.stdout!r}, the text says {wanted}")
    return faults


def options(text: str) -> set[str]:
    return set(re.findall(r"(?<![\w-])--?[a-z][a-z-]*", text))


def told_options(shown: str) -> set[str]:
    """The options of a formatted page: the beginnings of paragraphs that start with one."""
    lines = [line.strip() for line in shown.splitlines()]
    return {option for line in lines if line.startswith("-") for option in options(line)}


def source_faults(page: str) -> list[str]:
    text = (ROOT / page).read_text(encoding="utf-8")
    name = pathlib.Path(page).name
    count = len(re.findall(r"^\.SH ", text, re.M))
    return [] if count == SECTIONS[name] else [f"{page}: {count} sections, {SECTIONS[name]} wanted"]


def window_options() -> set[str]:
    """The options that the desktop program compares its arguments with or tells in its help."""
    text = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "src/wx").glob("*.cpp"))
    return {option for literal in re.findall(r'" *(--[a-z]+)(?:"| +montre)', text) for option in options(literal)}


def main() -> int:
    program = str(pathlib.Path(sys.argv[1]).resolve())
    help_text = subprocess.run([program, "--aide"], check=True, capture_output=True, text=True,
                               encoding="utf-8").stdout
    known = options("\n".join(line for line in help_text.splitlines() if line.strip().startswith("-")))
    faults = command_faults("README.md", read("README.md"), program)
    for page in PAGES:
        shown, against = formatted(page)
        faults += [f"{page}: {line}" for line in against.splitlines()] + source_faults(page)
        if "voxtab-calc.1" in page:
            faults += command_faults(page, shown.splitlines(), program)
            if told_options(shown) != known:
                faults.append(f"{page}: options {sorted(told_options(shown) ^ known)} only here or in --aide")
        elif told_options(shown) != window_options():
            faults.append(f"{page}: options {sorted(told_options(shown) ^ window_options())} only here or there")
    if len(known) < 15:
        faults.append(f"--aide tells only {sorted(known)}")
    print("\n".join(faults + [f"{len(PAGES)} pages, {len(known)} options, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
