"""Tries scripts/check-layers: in a copy of the sources files of every floor get lines that they may not
have, and the check must tell of each of these breaches and of nothing else."""
import pathlib
import shutil
import subprocess
import sys
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
CHECK = PROJECT / "scripts/check-layers"
failures = []


def told(root):
    """The breaches that the check tells of, and whether it refuses."""
    run = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True, check=False)
    if run.returncode not in (0, 1) or run.stderr:
        raise RuntimeError(f"check-layers: status {run.returncode}: {run.stderr}")
    return run.stdout.splitlines()[:-1], run.returncode == 1


def expect(what, root, expected):
    """The check tells of what is expected and of nothing else."""
    breaches, refused = told(root)
    good = sorted(breaches) == sorted(expected) and refused == bool(expected)
    print("ok     " if good else "FAILED ", what, flush=True)
    if not good:
        failures.append(what)
        print(f"  told: {breaches}, expected: {expected}")


def attempt(what, root, lines, expected=()):
    """Files get lines, each of which is no breach ("") or told in these words; then the files are put
    back, and those that are new go."""
    before, expected = {}, [*expected]
    for name, line, breach in lines:
        file = root / "src" / name
        if file not in before:
            before[file] = file.read_text(encoding="utf-8") if file.is_file() else None
        with open(file, "a", encoding="utf-8") as out:
            out.write(line + "\n")
        expected += [f"{name}: {breach}"] if breach else []
    expect(what, root, expected)
    for file, text in before.items():
        file.unlink() if text is None else file.write_text(text, encoding="utf-8")


def rows_of(root):
    rows = (root / "src/floors.txt").read_text(encoding="utf-8").splitlines()
    return [row.replace("|", " ").split() for row in reversed(rows)]


def header_of(root, floor):
    return str(sorted((root / "src" / floor).glob("*.hpp"))[0].relative_to(root / "src"))


def includes(root):
    """A file of each floor includes from every floor: those beside it and above it are told."""
    lines = []
    for number, row in enumerate(rows_of(root)):
        for floor in row:
            for other_number, other_row in enumerate(rows_of(root)):
                for other in other_row:
                    header = header_of(root, other)
                    high = other_number >= number and other != floor
                    lines.append((f"{floor}/probe.cpp", f'#include "{header}"', f"runs up: {header}" if high else ""))
    attempt("every floor includes from every floor", root, lines)


def circle(root, count):
    """Files of one floor use each other in a round, the first of them in its source alone."""
    lines = []
    for floor in sum(rows_of(root), []):
        names = [f"{floor}/probe_{letter}" for letter in "abc"[:count]]
        lines += [(f"{name}.hpp", f'#include "{target}.hpp"', "") for name, target in
                  zip(names[1:], names[2:] + names[:1])]
        lines += [(f"{names[0]}.hpp", "", ""), (f"{names[0]}.cpp", f'#include "{names[1]}.hpp"', "")]
    expected = [f"{floor}/probe_a: circle: " + ", ".join(f"{floor}/probe_{letter}" for letter in "abc"[:count])
                for floor in sum(rows_of(root), [])]
    attempt(f"circles of {count}", root, lines, expected)


def words(root):
    """What a file may not say: by floor, since the front ends may more."""
    lines = []
    for floor in sum(rows_of(root)[:-1], []):
        name = header_of(root, floor)
        lines += [(name, f"#include <{header}>", f"the core includes the library <{header}>")
                  for header in ("nlohmann/json.hpp", "wx/wx.h")]
        lines += [(name, "#include <unistd.h>", "includes the system's <unistd.h>"),
                  (name, 'inline void f() { setlocale(0, ""); }', "setlocale looks at the locale"),
                  (name, "inline double g() { return std::pow(2., 3.); }",
                   "std::pow() is the system's; base/maths.hpp has ours")]
    lines += [("wx/frame.cpp", "#include <windows.h>", "includes the system's <windows.h>"),
              ("terminal/options.cpp", "#include <nlohmann/json.hpp>", ""),
              ("base/table.hpp", '#include "base/absent.hpp"', "no such file: base/absent.hpp")]
    attempt("words of the system, the locale and libraries", root, lines)


def off_the_floors(root):
    """A folder that is no floor, and a file that includes from it."""
    (root / "src/attic").mkdir()
    attempt("a folder that is no floor", root,
            [("attic/old.hpp", "", "stands on no floor"),
             ("shell/probe.cpp", '#include "attic/old.hpp"', "attic/old.hpp stands on no floor")])


def main() -> int:
    with tempfile.TemporaryDirectory() as place:
        root = pathlib.Path(place)
        shutil.copytree(PROJECT / "src", root / "src")
        expect("the sources as they are", root, [])
        includes(root)
        circle(root, 2)
        circle(root, 3)
        words(root)
        off_the_floors(root)
    print(f"{len(failures)} failed")
    return 1 if failures else 0


sys.exit(main())
