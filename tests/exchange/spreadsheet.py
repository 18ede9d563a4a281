"""Random numbers leave a sheet in both conventions, and LibreOffice Calc reads the file as a user of that language
would: every number is the same to the fifteen digits and twenty decimals that its own files keep. Then it writes them as French
spreadsheets do, and voxtab-calc imports that file: the same again, but for numbers that the spreadsheet shows as
powers of ten and writes with three digits. Argument: voxtab-calc."""
import pathlib
import random
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as tree
import zipfile

ROWS, COLUMNS = 200, 3
VALUE = "{urn:oasis:names:tc:opendocument:xmlns:office:1.0}value"
FRENCH, ENGLISH = 1036, 1033


def numbers():
    chance = random.Random(11)
    return [[chance.choice([chance.randrange(-1000, 1000), round(chance.uniform(-500, 500), 3), chance.gauss(0, 1) * 10 ** chance.randrange(-12, 13)])
             for _ in range(COLUMNS)] for _ in range(ROWS)]


def convert(folder, source, form, language, separator):
    """Has the spreadsheet read the file in that language and write it as `form`."""
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", f"--infilter=CSV:{ord(separator)},34,76,1,,{language}",
                    "--convert-to", form, "--outdir", folder / "out", source], capture_output=True, timeout=300, check=True)


def loop(calc, folder, rows, point):
    """What the spreadsheet has read, and what comes back of it."""
    sheet = "DEFMA\n" + "\n".join(",".join(f"{x:.25f}" for x in row) for row in rows) + "\nFIN\n"
    exported = folder / ("point.csv" if point else "virgule.csv")
    subprocess.run([calc, "--donnees", exported, "-", *(["--point"] if point else [])], input=sheet.encode(), capture_output=True, check=True)
    convert(folder, exported, "ods", ENGLISH if point else FRENCH, "," if point else ";")
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to",
                    f"csv:Text - txt - csv (StarCalc):59,34,76,1,,{FRENCH},false,false", "--outdir", folder / "back",
                    folder / "out" / f"{exported.stem}.ods"], capture_output=True, timeout=300, check=True)
    content = tree.fromstring(zipfile.ZipFile(folder / "out" / f"{exported.stem}.ods").read("content.xml"))
    read = [float(cell.get(VALUE)) for cell in content.iter() if cell.get(VALUE)]
    again = folder / "again.csv"
    done = subprocess.run([calc, "--importer", folder / "back" / exported.name, "--forme", "DEFMA", "--donnees", again, "--point"],
                          capture_output=True, check=False)
    if done.returncode != 0:
        return read, [done.stderr.decode()]
    lines = again.read_text(encoding="utf-8").splitlines()[1:]
    return read, [float(cell) for line in lines for cell in line.split(",")]


def compare(what, wanted, found, tolerance):
    """How many numbers differ."""
    if len(found) != len(wanted):
        print(what, "has", len(found), "numbers, not", len(wanted), found[:1])
        return 1
    wrong = [(x, y) for x, y in zip(wanted, found) if abs(x - y) > tolerance(x) * abs(x)]
    for x, y in wrong[:5]:
        print(what, f"{x!r} became {y!r}")
    return len(wrong)


def main():
    calc, rows, faults = sys.argv[1], numbers(), 0
    wanted = [float(f"{x:.25f}") for row in rows for x in row]
    for point in (False, True):
        name = "point:" if point else "virgule:"
        with tempfile.TemporaryDirectory() as folder:
            read, back = loop(calc, pathlib.Path(folder), rows, point)
        faults += compare(name + " read", wanted, read, lambda x: max(5e-15, 1e-19 / max(abs(x), 1e-300)))
        faults += compare(name + " back", wanted, back, lambda x: 5e-15 if abs(x) >= 1e-3 else 5e-3)
    print(f"{4 * len(wanted)} numbers through the spreadsheet, {faults} faults")
    return 1 if faults else 0


sys.exit(main())
