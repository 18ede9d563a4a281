"""What the tests of the window share on both systems: faults that don't end a test, the work of a process."""
import os
import pathlib

failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAILED ", what, flush=True)


def cpu_seconds(pid):
    """How long the process has calculated."""
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()
    return int(fields[11]) / os.sysconf("SC_CLK_TCK")
