"""Data that voxtab-calc puts in front of a sheet: what was found is told, what can't be read is refused.
    test_import.py VOXTAB_CALC"""
import pathlib
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
faults = []


def run(place, data, *options):
    (place / "d.csv").write_text(data, encoding="utf-8")
    return subprocess.run([PROGRAM, "--importer", "d.csv", *options], cwd=place, capture_output=True, text=True,
                          encoding="utf-8", timeout=60, check=False)


def expect(what, condition):
    if not condition:
        faults.append(what)


with tempfile.TemporaryDirectory() as folder:
    place = pathlib.Path(folder)
    done = run(place, "Nom;Note\nZoé;12,5\nMax;14\n")
    expect(f"a column that is left aside isn't told: {done.stderr!r}", done.stderr.splitlines()[0] ==
           "2 lignes, 1 colonne, virgule décimale : colonne 2 Note ; en texte, laissée de côté : 1")
    expect(f"the sheet is {done.stdout!r}", done.stdout.startswith("! Note\nSTATX\n12.5,14\nFIN\nP=") and done.returncode == 0)
    done = run(place, "Nom;Note\nZoé;Abs\nMax;14\n")
    expect(f"a word is no number: {done.stderr!r}", done.stdout == "" and done.returncode == 2 and done.stderr ==
           "voxtab-calc : d.csv : ligne 2, colonne 2 : \"Abs\" n'est pas un nombre\n")
    done = run(place, "1;2\n3;4\n", "--forme", "DEFMB")
    expect(f"a form that is asked for: {done.stdout!r}", "DEFMB =2,2\n1,2\n3,4\nFIN" in done.stdout)

print("\n".join(faults + [f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
