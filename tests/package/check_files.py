"""Checks what an installation puts under its prefix: the files that belong there and no others, with the
rights that everybody needs, and the desktop's own checks of the entry, the type and the description.
   check_files.py PREFIX SOURCES"""
import gzip
import pathlib
import re
import shutil
import stat
import subprocess
import sys
import tempfile

PREFIX, SOURCES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
SHARE = PREFIX / "share"
DOCUMENTS = "share/doc/voxtab"
FILES = {
    "bin/voxtab", "bin/voxtab-calc", "share/voxtab/aide.txt", "share/voxtab/fonction.txt",
    "share/voxtab/lisezmoi.txt", "share/applications/voxtab.desktop", "share/mime/packages/voxtab.xml",
    "share/metainfo/org.voxtab.voxtab.metainfo.xml",
    "share/icons/hicolor/scalable/apps/voxtab.svg", "share/icons/hicolor/48x48/apps/voxtab.png",
    "share/icons/hicolor/128x128/apps/voxtab.png",
} | {f"{DOCUMENTS}/{name}" for name in (
    "copyright", "README.md", "CONTRIBUTING.md", "changelog.gz", "changelog.Debian.gz")}
# Installed under another name, or in another form.
SAME = {"share/voxtab/aide.txt": "data/aide.txt", "share/voxtab/fonction.txt": "data/fonction.txt",
        "share/voxtab/lisezmoi.txt": "data/lisezmoi.txt",
        f"{DOCUMENTS}/README.md": "README.md", f"{DOCUMENTS}/changelog.gz": "CHANGELOG.md"}
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAILED ", what)


def expected():
    """The files of this version: with its examples, its documents and its man pages."""
    examples = {f"{DOCUMENTS}/examples/{path.relative_to(SOURCES / 'examples')}"
                for path in (SOURCES / "examples").rglob("*") if path.is_file()}
    texts = {f"{DOCUMENTS}/docs/{path.name}" for path in (SOURCES / "docs").iterdir()
             if path.suffix in (".md", ".txt")}
    man = SOURCES / "data" / "man"
    pages = {f"share/man/{path.relative_to(man).parent / 'man1' / path.name}.gz"
             for path in man.rglob("*.1")}
    return FILES | examples | texts | pages


def check_list():
    there = {str(path.relative_to(PREFIX)) for path in PREFIX.rglob("*") if not path.is_dir()}
    for name in sorted(expected() - there):
        check(False, f"{name} is missing")
    for name in sorted(there - expected()):
        check(False, f"{name} is there, and nobody knows what for")


def check_rights():
    for path in PREFIX.rglob("*"):
        mode = stat.S_IMODE(path.stat().st_mode)
        program = path.is_dir() or path.parent.name == "bin"
        check(mode == (0o755 if program else 0o644), f"{path.relative_to(PREFIX)} has mode {mode:o}")


def check_contents():
    for name, source in SAME.items():
        content = (PREFIX / name).read_bytes()
        if name.endswith(".gz"):
            content = gzip.decompress(content)
        check(content == (SOURCES / source).read_bytes(), f"{name} isn't {source}")


def check_holders():
    """Who wrote files of ours that others have published stands in what is installed of the licences."""
    told = (PREFIX / DOCUMENTS / "copyright").read_text(encoding="utf-8")
    for path in sorted((SOURCES / "third_party").rglob("*.[ch]")):
        text = path.read_text(encoding="utf-8")
        for holder in re.findall(r"Copyright [^\n]*?\d{4}[,. ]+(?:by )?([^.,\n]+)", text):
            check(holder in told, f"{path.relative_to(SOURCES)} is by {holder}, the licences don't say so")


def run(*command, **named):
    """Runs a checker; its words are told when it isn't content."""
    done = subprocess.run(command, capture_output=True, text=True, check=False, **named)
    check(done.returncode == 0, f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


def check_desktop():
    run("desktop-file-validate", SHARE / "applications/voxtab.desktop")
    run("appstreamcli", "validate", "--no-net", SHARE / "metainfo/org.voxtab.voxtab.metainfo.xml")
    for size in (48, 128):
        header = (SHARE / f"icons/hicolor/{size}x{size}/apps/voxtab.png").read_bytes()[16:24]
        check(header == size.to_bytes(4, "big") * 2, f"the icon of {size} pixels has another size")


def check_type():
    """A desktop that has learnt of the type takes sheets for what they are, and knows who opens them."""
    with tempfile.TemporaryDirectory() as place:
        place = pathlib.Path(place)
        for folder in ("mime/packages", "applications"):
            shutil.copytree(SHARE / folder, place / "share" / folder)
        run("update-mime-database", place / "share/mime")
        run("update-desktop-database", place / "share/applications")
        cache = (place / "share/applications/mimeinfo.cache").read_text(encoding="utf-8")
        check("text/x-voxtab=voxtab.desktop;" in cache, f"nobody opens the sheets: {cache}")
        globs = (place / "share/mime/globs2").read_text(encoding="utf-8")
        check("50:text/x-voxtab:*.vxt" in globs.split("\n"), f"sheets have no type: {globs}")


def check_calculation():
    calc = PREFIX / "bin/voxtab-calc"
    check(run(calc, input="A=3\nA*2\n") == "A=3 = 3\nA*2 = 6\n", "voxtab-calc doesn't calculate")
    for program in ("voxtab", "voxtab-calc"):
        version = run(PREFIX / "bin" / program, "--version").split()[-1]
        release = f'<release version="{version}"'
        described = (SHARE / "metainfo/org.voxtab.voxtab.metainfo.xml").read_text(encoding="utf-8")
        check(release in described, f"{program} is version {version}, the description tells of another")


check_list()
if not failures:
    for part in (check_rights, check_contents, check_holders, check_desktop, check_type, check_calculation):
        part()
print(f"{len(failures)} failed")
sys.exit(1 if failures else 0)
