"""Pages of sheets: of every example and of generated ones, written by voxtab-calc."""
import json
import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]


def generated(property_jobs, count):
    """So many sheets, with their names."""
    jobs = subprocess.run([property_jobs, "--feuilles", str(count // 2 + 1)], capture_output=True, text=True,
                          encoding="utf-8", check=True).stdout.splitlines()[:count]
    for job in map(json.loads, jobs):
        yield job["id"].replace(" ", "-"), job["text"]


def read(path):
    """A sheet's text, in UTF-8 or in the code page of sheets."""
    content = path.read_bytes()
    try:
        return content.decode("utf-8")
    except UnicodeDecodeError:
        return content.decode("cp1252")


def write(calc, folder, name, text):
    """Calculates a sheet and writes its page, with its studies; the calculated sheet and the page's path."""
    page = folder / f"{name}.html"
    done = subprocess.run([calc, "--html", page, "--etude", folder / f"{name}.txt", "-"], input=text.encode(),
                          capture_output=True, timeout=60, check=False)
    # 2: a sheet without functions, or with one that can't be studied, has its page all the same.
    if done.returncode not in (0, 1, 2) or not page.exists():
        raise RuntimeError(f"{name}: status {done.returncode}, {done.stderr.decode()}")
    return done.stdout.decode(), page


def pages(calc, property_jobs, count, folder):
    """Name, calculated sheet, path of the page."""
    for example in sorted((ROOT / "examples").glob("*.VXT")):
        yield (example.stem, *write(calc, folder, example.stem, read(example)))
    for name, text in generated(property_jobs, count):
        yield (name, *write(calc, folder, name, text))
