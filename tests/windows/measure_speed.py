"""How long a sheet of 32,000 lines takes in the window under Wine, and in the system's bare text control, which
tells what of it is the program's. Not a test; figures are in docs/development.md.
   tests/windows/run build/windows measure_speed.py"""
import os
import pathlib
import subprocess
import sys
import time

from pilot import run, wait

BUILD, PLACE = sys.argv[1:3]
LINES = 32000
LONG = 300     # seconds


def processor(p):
    """Seconds that the program's own process has worked, as the system counts them."""
    for entry in pathlib.Path("/proc").iterdir():
        if not entry.name.isdigit():
            continue
        try:
            if str(p.folder / "VOXTAB.EXE").encode() in (entry / "cmdline").read_bytes().replace(b"\\", b"/"):
                fields = (entry / "stat").read_text().rsplit(")", 1)[1].split()
                return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
        except OSError:      # a process that has ended, or another user's
            continue
    raise RuntimeError("the program isn't there")


def window(p):
    """From the press of a key to its message."""
    lines = [f"{i % 97}+{i % 13}" for i in range(LINES)]
    (p.folder / "longue.VXT").write_bytes("\r\n".join(lines).encode())
    p.launch("longue.VXT")
    wait(lambda: p.title() and p.sheet() == "\n".join(lines), "the sheet", LONG)
    for what, key in (("first calculation", "Alt+C"), ("second calculation", "Alt+C"), ("undo of it", "Ctrl+Z"),
                      ("redo", "Ctrl+Maj+Z"), ("a key that tells the place", "Ctrl+G")):
        clock, worked = time.monotonic(), processor(p)
        p.key(key)
        p.listener.next(what, LONG)
        print(f"window: {what}: {time.monotonic() - clock:.2f} s, processor {processor(p) - worked:.2f} s", flush=True)


def bare_control(_):
    """Filled, its lines replaced by calculated ones, and back."""
    subprocess.run(["wine", str(pathlib.Path(BUILD) / "edit_control.exe")], check=True)


run([window, bare_control], BUILD, PLACE)
