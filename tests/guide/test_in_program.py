"""The guide and the list of functions as the program shows them.   test_in_program.py SONDE

Opening says the first line; F3 with "chapitre" and a number says that chapter's heading, and F3 with the
words of a message says its entry; Escape brings the sheet back as it was, even after the guide has been
calculated by mistake; the list shows every line."""
import sys

from sonde import Sonde
from texts import ENTRY, chapter, chapters, quoted, read

FOLDER = "C:\\VOXTAB\\"
START = ["démarre", 'tape "2+3"', "touche Alt+C", "ignore"]


def run(sonde: Sonde, events: list[str], seen: list[str]) -> list[str]:
    """Runs events on the texts of the tree; the failed steps."""
    files = {FOLDER + name: "\r\n".join(read(f"data/{name}")) + "\r\n" for name in ["aide.txt", "fonction.txt"]}
    try:
        result = sonde.run({"op": "programme", "fichiers": files, "evenements": events})
    except RuntimeError as error:
        return [str(error)[-2000:]]
    seen.append(result["text"])
    return []


def search(words: str, found: str, proposed: str) -> list[str]:
    """F3 with an answer, and the line heard."""
    return [f"répond {quoted(words)}", "touche F3", f"entend saisie {quoted('Recherche')} {quoted(proposed)}",
            f"entend message {quoted(found)}"]


def searches(lines: list[str]) -> list[str]:
    """A search for each chapter and for each message of the faults."""
    events, last = [], ""
    for title in chapters(lines):
        words = title.split(" :")[0].lower()
        events += search(words, title, last)
        last = words.upper()
    for line in chapter(lines, "les messages derrière une ligne"):
        if entry := ENTRY.fullmatch(line):
            events += search(entry[2], line.strip(), last)
            last = entry[2].upper()
    return events


def main() -> int:
    guide, functions, seen = read("data/aide.txt"), read("data/fonction.txt"), []
    opened = [*START, "choisit mnuAideTxtItem", f"entend message {quoted(guide[0])}"]
    back = ["touche Échap", 'entend message "2+3 = 5"', 'voit texte "2+3 = 5"', "voit lecture_seule non"]
    with Sonde(sys.argv[1]) as sonde:
        faults = run(sonde, opened, seen)
        faults += run(sonde, [*opened, *searches(guide), *back], seen)
        faults += run(sonde, [*opened, "touche Alt+C", "ignore", *back], seen)
        faults += run(sonde, [*START, "touche Alt+F1", f"entend message {quoted(functions[0])}"], seen)
        faults += run(sonde, [*START, "touche Alt+F1", f"entend message {quoted(functions[0])}", *back], seen)
    wanted = ["\r\n".join(guide), "2+3 = 5", "2+3 = 5", "\r\n".join(functions), "2+3 = 5"]
    if not faults and seen != wanted:
        faults.append("the program shows another text than the file's")
    print("\n".join(faults + [f"{len(chapters(guide))} chapters, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
