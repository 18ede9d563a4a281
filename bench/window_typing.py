"""Times a typed character in the longest sheet, in the real window: from the key to the moment at which the
accessibility bus tells that the text has changed. With recovery files and without them in turn; a key comes
every tenth of a second or so, as from a quick hand, so that some fall into the writing of a file."""
import argparse
import os
import pathlib
import random
import shutil
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from window import LIMIT, READ, Keyboard, Watch, find_text, quiet  # noqa: E402
from pilot import wait  # noqa: E402

LINES = 32_767
AIM = 0.002         # seconds that recovery may add
PAUSES = (0.06, 0.14)


def own_time(pid):
    """Seconds that the thread of the window has spent on a processor: no other program lengthens them."""
    return int(pathlib.Path(f"/proc/{pid}/task/{pid}/schedstat").read_text().split()[0]) / 1e9


def type_keys(command, folder, keyboard, watch, count, chance):
    """For each key of one run: seconds to the changed text, and processor time of the window's thread until
    the next key."""
    shutil.rmtree(folder / "secours", ignore_errors=True)    # of a run that was killed here
    with open(folder / "sortie.txt", "a", encoding="utf-8") as log:
        process = subprocess.Popen(command, stdout=log, stderr=log, cwd=folder)
    try:
        wait(lambda: find_text(process.pid), "the text", LIMIT)
        quiet(process.pid)
        watch.pid = process.pid
        times = []
        for _ in range(count):
            watch.seen, spent = {}, own_time(process.pid)
            start = time.perf_counter()
            keyboard.key("1", True)
            changed, _ = watch.until(READ[0], "the changed text")
            keyboard.key("1", False)
            time.sleep(chance.uniform(*PAUSES))
            times.append((changed - start, own_time(process.pid) - spent))
        if "--sans-reprise" not in command:
            wait(lambda: any((folder / "secours").glob("*.VXT")), "a recovery file")
        return times
    finally:
        keyboard.key("1", False)
        process.kill()
        process.wait()


def figure(seconds):
    """The median, and the hundredth slowest."""
    return statistics.median(seconds), statistics.quantiles(seconds, n=100)[98]


def main():
    options = argparse.ArgumentParser(description="Times typing with and without recovery files.")
    options.add_argument("voxtab")
    options.add_argument("place")
    options.add_argument("--rounds", type=int, default=5)
    options.add_argument("--keys", type=int, default=100, help="in each round")
    options.add_argument("--strict", action="store_true", help="exit status 3 when the aim is missed")
    asked = options.parse_args()
    folder = pathlib.Path(asked.place) / "frappe"
    folder.mkdir()
    program = shutil.copy(asked.voxtab, folder)
    shutil.copytree(pathlib.Path(asked.voxtab).parent / "data", folder / "data")
    (folder / "feuille.VXT").write_bytes(b"".join(b"A=%d*2 = %d\r\n" % (i, 2 * i) for i in range(LINES)))
    keyboard, watch, chance = Keyboard(), Watch(READ), random.Random(20260101)
    commands = {"with": [program, "feuille.VXT"], "without": [program, "--sans-reprise", "feuille.VXT"]}
    times = {name: [] for name in commands}
    for turn in range(asked.rounds + 1):
        for name, command in commands.items():
            measured = type_keys(command, folder, keyboard, watch, asked.keys if turn else 10, chance)
            if turn:                       # the first round fills the caches
                times[name] += measured
    print(f"{LINES:,} lines, {asked.rounds} rounds of {asked.keys} keys, milliseconds; "
          f"load {os.getloadavg()[0]:.1f}")
    print(f"{'recovery files':20}{'to the changed text':>28}{'processor time':>28}")
    print(f"{'':20}" + 2 * f"{'median':>14}{'99 %':>14}")
    rows = {name: [figure(column) for column in zip(*all_times)] for name, all_times in times.items()}
    for name, columns in rows.items():
        print(f"{name:20}" + "".join(f"{1000 * one:14.1f}" for column in columns for one in column))
    later = [1000 * (a - b) for w, o in zip(rows["with"], rows["without"]) for a, b in zip(w, o)]
    held = max(later) <= 1000 * AIM
    print(f"aim: none of the four later by {1000 * AIM:.0f}: {'held' if held else 'MISSED'} "
          f"({', '.join(f'{one:+.1f}' for one in later)})")
    return 3 if asked.strict and not held else 0


raise SystemExit(main())
