"""docs/formats.md tells the truth about the files that the program leaves.   test_formats.py SONDE

The program runs, changes settings, saves twice and ends; the page's own Python code reads the settings
file, and sheet, backup and working copies are as the page says."""
import re
import sys

from sonde import Sonde
from texts import ROOT

EVENTS = ["démarre", 'tape "2+3"', "touche Alt+C", 'répond "C:\\devoir.VXT"', "touche Ctrl+S",
          "touche Entrée", 'tape "A=1"', "touche Ctrl+F1", "touche Ctrl+S", "touche Maj+F7",
          'répond "4"', "touche Ctrl+F5", 'répond "dev"', "touche F3", "choisit mnuColonneMatrice",
          "touche F8", "clique OptionRadian", "clique CmdAngle", "choisit mnuDerniereFeuilleItem"]
SHEET = b"2+3 = 5\r\nA=1\r\n"


def files_after(sonde: Sonde, events: list[str]) -> dict[str, bytes]:
    """The files as bytes after these events."""
    steps = [step for event in events for step in (event, "ignore")]
    result = sonde.run({"op": "programme", "evenements": steps})
    return {name: text.encode("cp1252") for name, text in result["fichiers"].items()}


def page_code() -> dict:
    """What the page's Python block defines."""
    page = (ROOT / "docs/formats.md").read_text(encoding="utf-8")
    names: dict = {}
    exec(re.search(r"```python\n(.*?)```", page, re.S)[1], names)   # the page's own code is under test
    return names


def main() -> int:
    with Sonde(sys.argv[1]) as sonde:
        before = files_after(sonde, EVENTS)
        after = files_after(sonde, [*EVENTS, "touche Ctrl+S", "touche Alt+Q"])
    settings = after["C:\\VOXTAB\\VOXTAB.INI"]
    records = page_code()["read_settings"](settings)
    found = {
        "size of the settings": (len(settings), 22 * 267),
        "records": (len(records), 22),
        "record 1": (records[0][0], "C:\\devoir.VXT"),
        "record 2": (records[1], ("SANSTITRE.VXT", 1, 0, 1)),
        "bookmark": (records[0][3], 12),
        "record 16": (records[15], ("DEV", 2, 4, 2)),
        "record 17": (records[16][1:3], (2, 1)),
        "record 18": (records[17][1:3], (1, 0)),
        "records 19 to 22": (records[18:], [("Courier", 15, 0, 0), ("15", 0, 0, 0), ("Arial", 0, 0, 0),
                                            ("16", 0, 0, 0)]),
        "sheet": (before["C:\\devoir.VXT"], SHEET),
        "backup": (before["C:\\devoir.bak"], b"2+3 = 5\r\n"),
        "working copy": (before["C:\\VOXTAB\\travail\\C__devoir.VXT"], SHEET),
        "working folder at the end": ([name for name in after if "\\travail\\" in name], []),
    }
    faults = [f"{what}: {got!r}, the page says {wanted!r}" for what, (got, wanted) in found.items()
              if got != wanted]
    print("\n".join(faults + [f"{len(found)} facts, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
