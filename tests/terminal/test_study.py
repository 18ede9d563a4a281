"""Studies and sounds that voxtab-calc writes beside the sheet.   test_study.py VOXTAB_CALC"""
import pathlib
import subprocess
import sys
import tempfile
import wave

PROGRAM = sys.argv[1]
SHEET = "A=2\r\nINCX(-2,1,5)\r\nX^2-A\r\n\r\nAIRX(0,1,10)\r\nX+1\r\n"
faults = []


def run(place, text, *options):
    (place / "f.VXT").write_bytes(text.encode("cp1252"))
    return subprocess.run([PROGRAM, *options, "f.VXT"], cwd=place, capture_output=True, text=True, encoding="utf-8",
                          timeout=60, check=False)


def expect(what, condition):
    if not condition:
        faults.append(what)


with tempfile.TemporaryDirectory() as folder:
    place = pathlib.Path(folder)
    plain = run(place, SHEET)
    both = run(place, SHEET, "--etude", "e.txt", "--son", "s.wav")
    expect("the sheet is another one with its study", both.stdout == plain.stdout and both.returncode == 0)
    lines = (place / "e.txt").read_text(encoding="utf-8").split("\n")
    for line in ("Étude de X^2-A, X de -2 à 2", "Zéro : X = environ -1.414214", "Étude de X+1, X de 0 à 1",
                 "Intersection avec X+1, ligne 11 : X = environ -1.302776, y = environ -0.3027756"):
        expect(f"no line {line!r} in {lines}", line in lines)
    with wave.open(str(place / "s.wav")) as sound:
        expect("the sound is not stereo of 16 bits", (sound.getnchannels(), sound.getsampwidth()) == (2, 2))
        seconds = sound.getnframes() / sound.getframerate()
        expect(f"two curves of three seconds last {seconds}", 6.5 < seconds < 8.5)
    none = run(place, "A=2\r\n", "--son", "n.wav")
    expect(f"no function: {none.stderr!r}", "n.wav : la feuille n'a ni INC ni AIR" in none.stderr
           and none.returncode == 2 and not (place / "n.wav").exists())
    many = run(place, "INCX(0,1,3)\r\nX\r\n\r\n" * 101, "--son", "m.wav")
    expect(f"101 functions: {many.stderr!r}", "m.wav : la feuille a 101 fonctions, un fichier de son en prend 100\n" in many.stderr
           and many.returncode == 2 and not (place / "m.wav").exists())
    bad = run(place, "INCX(1,0,3)\r\nX\r\n", "--etude", "b.txt")
    expect(f"an empty interval: {bad.stderr!r}", "ligne 2 : l'intervalle est vide" in bad.stderr)

print("\n".join(faults + [f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
