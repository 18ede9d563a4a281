"""Every message that a failed calculation leaves in an example of the guide is explained by its own entry.

Each example below an entry of the chapters on messages is typed and calculated in the whole program; then
"Expliquer le message" must open the guide at that entry. Where a report comes before the words of the line, the
entry of the first report is the right one.   test_explained.py SONDE"""
import sys

from sonde import Sonde
from texts import ENTRY, examples, read

# The entry that an example stands below, a line of it, and the entry that explains it: the report that came first,
# as the guide says there; the words of the line that the cursor is on.
OTHERS = {("Message : manque )", "LN(0)"): "Message : argument negatif ou nul",
          ("Panne 28", "DEFFON=FON(X)"): "Message : 2 variables X,X"}


def heading(line: int, lines: list[str]) -> str:
    """The entry or the number of failure that an example stands below."""
    while not ENTRY.match(lines[line]) and not lines[line].startswith(("Panne ", "CHAPITRE ")):
        line -= 1
    return lines[line]


def explained(sonde: Sonde, sheet: list[str], guide: str) -> str:
    """What a user hears last who calculates the sheet and asks for the explanation."""
    files = {"C:\\VOXTAB\\aide.txt": guide, "C:\\A.VXT": "\r\n".join(sheet)}
    events = ['démarre "C:\\A.VXT"', "touche AltGr+C", "touche Maj+F12", "ignore"]
    result = sonde.run({"op": "programme", "fichiers": files, "evenements": events})
    return result["messages"][-1].strip()


def main() -> int:
    lines = read("data/aide.txt")
    guide, faults, tried = "\r\n".join(lines) + "\r\n", [], 0
    with Sonde(sys.argv[1]) as sonde:
        for example in examples(lines)[0]:
            wanted = heading(example.line - 1, lines)
            if wanted.startswith("CHAPITRE ") or example.options or example.op != "recalcul":
                continue
            tried += 1
            for (told, typed), other in OTHERS.items():
                if wanted.startswith(told) and typed in example.typed:
                    wanted = other
            said = explained(sonde, example.typed, guide)
            if said != wanted:
                faults.append(f"aide.txt:{example.line}: {example.typed}: explained by {said!r}, not {wanted!r}")
    if tried < 55:
        faults.append(f"only {tried} examples tried")
    print("\n".join(faults + [f"{tried} examples, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
