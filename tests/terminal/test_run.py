"""The command run leaves no file behind, with and without a display. What it starts is put in its place by
programs that only answer: the build itself has its own tests."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

RUN = pathlib.Path(__file__).resolve().parents[2] / "run"
faults = []


def put(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("#!/bin/sh\n" + text, encoding="utf-8")
    path.chmod(0o755)


def start(display):
    """What the program says, and what is left in the folder for temporary files."""
    with tempfile.TemporaryDirectory() as place:
        place = pathlib.Path(place)
        shutil.copy(RUN, place / "run")
        put(place / "scripts/install-deps", "exit 0\n")
        put(place / "bin/cmake", "echo built\n")
        put(place / "build/run/voxtab", "echo window\n")
        put(place / "build/run/voxtab-calc", "echo terminal\n")
        (place / "tmp").mkdir()
        surroundings = {"PATH": f"{place}/bin:{os.environ['PATH']}", "TMPDIR": str(place / "tmp"), **display}
        done = subprocess.run([place / "run"], env=surroundings, capture_output=True, text=True,
                              encoding="utf-8", timeout=60, check=False)
        return done.stdout, sorted(path.name for path in (place / "tmp").iterdir())


for display, said in (({"DISPLAY": ":1"}, "window\n"), ({}, "terminal\n")):
    heard, left = start(display)
    if heard != said:
        faults.append(f"{display}: {heard!r} was said, {said!r} wanted")
    if left:
        faults.append(f"{display}: {left} is left behind")
print("\n".join([*faults, f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
