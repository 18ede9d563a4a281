"""The braille of the formulas of a page: natbraille (Debian) reads the page itself, and each formula must be what
braille.txt says. Arguments: voxtab-calc, the folder usr of natbraille, its class path."""
import pathlib
import shutil
import subprocess
import sys
import tempfile

rows = [line.split("\t") for line in
        pathlib.Path(__file__).with_name("braille.txt").read_text(encoding="utf-8").splitlines()
        if line and not line.startswith("#")]


def main():
    calc, usr, classes = sys.argv[1:4]
    with tempfile.TemporaryDirectory() as folder:
        page, shown = pathlib.Path(folder) / "page.xhtml", pathlib.Path(folder) / "page.txt"
        subprocess.run([calc, "--html", page, "-"], input="\n".join(row[0] for row in rows).encode(),
                       capture_output=True, check=True)
        done = subprocess.run(["java", "-cp", classes, "nat/Nat", "-c", "configurations/unicode.cfg",
                               "--fi-line-length", "80", "-f", page, "-t", shown], cwd=pathlib.Path(usr) / "share/natbraille",
                              capture_output=True, timeout=300, check=False)
        if not shown.exists():
            print(done.stdout.decode(errors="replace")[-2000:])
            return 1
        lines = [line for line in shown.read_text(encoding="utf-8").splitlines() if line.strip("\u2800 ")]
    faults = 0
    for (formula, wanted), line in zip(rows, lines[1:]):      # the first one is the heading
        if line.strip("\u2800 ") != wanted:
            faults += 1
            print(f"{formula}: {line}, wanted {wanted}")
    print(f"{len(rows)} formulas in braille, {faults} faults")
    return 1 if faults or len(lines) <= len(rows) else 0


sys.exit(main())
