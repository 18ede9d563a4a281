"""Files that voxtab-calc writes beside the sheet: never over a sheet, over what it reads, or twice.
   test_targets.py VOXTAB_CALC"""
import os
import pathlib
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
SHEET = b"INCX(0,1,3)\r\n2X\r\n"
SHEET_NAME, DATA_NAME, TWICE = ("ce nom est celui d'une feuille", "ce fichier est celui des nombres à importer",
                                "deux options écrivent ce fichier")
faults = []


def refused(place, words, *arguments):
    """The words alone are heard, and no file has changed."""
    before = {path.name: path.read_bytes() for path in place.iterdir()}
    done = subprocess.run([PROGRAM, *arguments], cwd=place, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          encoding="utf-8", timeout=60, check=False)
    after = {path.name: path.read_bytes() for path in place.iterdir()}
    if done.returncode != 2 or done.stdout or done.stderr != f"voxtab-calc : {words}\n" or before != after:
        faults.append(f"{arguments}: status {done.returncode}, heard {done.stderr!r}, "
                      f"changed {[name for name in after if after[name] != before.get(name)]}")


with tempfile.TemporaryDirectory() as folder:
    place = pathlib.Path(folder)
    (place / "devoir.VXT").write_bytes(SHEET)
    (place / "autre.txt").write_bytes(SHEET)
    (place / "notes.csv").write_bytes(b"1\n2\n")
    os.symlink("autre.txt", place / "lien.html")
    for option in ("--html", "--donnees", "--etude", "--son"):
        refused(place, f"devoir.VXT : {SHEET_NAME}", option, "devoir.VXT")
        refused(place, f"neuf.vxt : {SHEET_NAME}", option, "neuf.vxt", "devoir.VXT")
        refused(place, f"./autre.txt : {SHEET_NAME}", option, "./autre.txt", "autre.txt")
        refused(place, f"lien.html : {SHEET_NAME}", option, "lien.html", "autre.txt")
        refused(place, f"notes.csv : {DATA_NAME}", option, "notes.csv", "--importer", "notes.csv")
    refused(place, f"./a.txt : {TWICE}", "--html", "a.txt", "--etude", "./a.txt", "devoir.VXT")
    one = subprocess.run([PROGRAM, "--donnees", "d.csv", "--table", "2", "devoir.VXT"], cwd=place, capture_output=True, text=True,
                         encoding="utf-8", timeout=60, check=False)
    if one.returncode != 2 or not one.stderr.endswith("voxtab-calc : d.csv : la feuille n'a qu'une table\n"):
        faults.append(f"a second table: status {one.returncode}, heard {one.stderr!r}")
    done = subprocess.run([PROGRAM, "--html", "p.html", "--donnees", "d.csv", "--etude", "e.txt", "--son", "s.wav", "devoir.VXT"],
                          cwd=place, capture_output=True, timeout=60, check=False)
    if done.returncode != 0 or not all((place / name).stat().st_size for name in ("p.html", "d.csv", "e.txt", "s.wav")):
        faults.append(f"four files: status {done.returncode}, heard {done.stderr!r}")

print("\n".join(faults + [f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
