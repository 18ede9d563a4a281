"""Words of the guide and of the list of functions that the French voice of espeak-ng doesn't read as
French words: it spells them letter by letter, or takes them for English.

A word is spelled when its sounds are those of its letters one after the other. docs/read-aloud.md lists
the words that may be so, with the reason; any other is a fault, and so is a word listed for nothing."""
import sys

from texts import read
from voice import WORD, listed, odd_words


def main() -> int:
    texts = read("data/aide.txt") + read("data/fonction.txt")
    words = sorted({word for line in texts for word in WORD.findall(line)})
    odd = odd_words(words)
    allowed = listed()
    faults = [f"{word} is {how}: reword, or list it in docs/read-aloud.md"
              for word, how in odd.items() if word not in allowed]
    faults += [f"docs/read-aloud.md: {word} is read as a word, or isn't in the texts"
               for word in sorted(allowed - set(odd))]
    if odd_words(["SQRT", "maison"]) != {"SQRT": "spelled"}:
        faults.append("the voice isn't the one that this test knows")
    print("\n".join(faults + [f"{len(words)} words, {len(odd)} odd, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
