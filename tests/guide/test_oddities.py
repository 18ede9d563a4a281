"""docs/kept-oddities.md and the code agree: each oddity that a comment points to ("kept: see the oddities,
NAME") stands there, each one there is pointed to by the program's code, and every test that is named there
exists: the file, and in it the case whose name stands after it. The names without a caller are in the code."""
import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs/kept-oddities.md"
FOLDERS = ("src", "tests", "scripts", "fuzz", "bench")
POINTER = re.compile(r"see\s+(?:(?://|#)\s*)?the\s+(?:(?://|#)\s*)?oddities,\s+(?:(?://|#)\s*)?([a-z0-9-]+)")
BARE = re.compile(r"\bon\s+(?:(?://|#)\s*)?purpose\b")
TEST = re.compile(r'`([\w./-]+)`((?:,? ?"[^"]+")*)')


def texts(*folders):
    """The text files of the code with their paths."""
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and path != pathlib.Path(__file__) and path.suffix not in (".jsonl", ".VXT", ".pyc"):
                try:
                    yield path.relative_to(ROOT), path.read_text(encoding="utf-8")
                except UnicodeDecodeError:
                    continue   # sheets and findings of the fuzzer


def cases(path):
    """Names of the cases of a table of jobs, or the text of any other test."""
    text = path.read_text(encoding="utf-8")
    if path.suffix != ".jsonl":
        return text
    return {json.loads(line).get("nom") for line in text.splitlines() if line.strip() and line[0] == "{"}


def test_faults(name, cell):
    """What is wrong with the tests of one row."""
    named = TEST.findall(cell)
    if not named:
        yield f"{name}: no test is named"
    for path, quoted in named:
        if not (ROOT / path).is_file():
            yield f"{name}: no such test: {path}"
            continue
        known = cases(ROOT / path)
        for case in re.findall(r'"([^"]+)"', quoted):
            if case not in known:
                yield f"{name}: {path} has no case \"{case}\""


def main():
    page = PAGE.read_text(encoding="utf-8")
    oddities, _, names = page.partition("\n## Names without a caller\n")
    rows = [row.strip("| ").split(" | ") for row in oddities.splitlines() if row.startswith('| <a id="')]
    anchors = [re.match(r'<a id="([a-z0-9-]+)"></a>\1$', row[0]) for row in rows]
    faults = [f"a row without its name: {row[0]}" for row, anchor in zip(rows, anchors) if not anchor]
    known = [anchor.group(1) for anchor in anchors if anchor]
    faults += [f"{name}: stands there twice" for name in set(known) if known.count(name) > 1]
    for row, anchor in zip(rows, anchors):
        if len(row) != 4 or not all(cell.strip() for cell in row):
            faults.append(f"{row[0]}: a cell is missing")
        elif anchor:
            faults += test_faults(anchor.group(1), row[3])
    code = dict(texts(*FOLDERS))
    used = {name for path, text in code.items() if path.parts[0] == "src" for name in POINTER.findall(text)}
    faults += [f"{name}: no comment of the code points to it" for name in known if name not in used]
    for path, text in code.items():
        faults += [f"{path}: no such oddity: {name}" for name in POINTER.findall(text) if name not in known]
        if path.parts[0] == "src" and BARE.search(text):
            faults.append(f"{path}: says \"on purpose\" instead of naming the oddity")
    for name in re.findall(r"^\| (`.*?`) \|", names, re.M):
        for word in re.findall(r"`(\w+)`", name):
            if not any(re.search(rf"\b{word}\b", text) for path, text in code.items() if path.parts[0] == "src"):
                faults.append(f"no such name: {word}")
    for fault in faults:
        print(fault)
    print(f"{len(known)} oddities, {len(faults)} faults")
    return 1 if faults or not known else 0


sys.exit(main())
