"""What the tests of the window share on both systems: faults that end a test and those that don't, a wait for a
value, the work of a process."""
import os
import pathlib

LIMIT = float(os.environ.get("VOXTAB_LIMIT", "60"))   # seconds after which a wait is given up

failures = []


class Failed(AssertionError):
    """What was expected did not come."""


def expect(condition, what):
    if not condition:
        raise Failed(what)


def same(seen, expected, what):
    if seen != expected:
        raise Failed(f"{what}: {seen!r}, expected {expected!r}")


def until_same(wait, look, expected, what):
    """Waits, the way of that system, until `look` gives what is expected."""
    seen = None

    def found():
        nonlocal seen
        seen = look()
        return seen == expected
    try:
        wait(found, what)
    except Failed:
        raise Failed(f"{what}: {seen!r}, expected {expected!r}") from None


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAILED ", what, flush=True)


def cpu_seconds(pid):
    """How long the process has calculated."""
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()
    return int(fields[11]) / os.sysconf("SC_CLK_TCK")
