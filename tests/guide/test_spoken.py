"""Words of the guide and of the list of functions that the French voice of espeak-ng doesn't read as
French words: it spells them letter by letter, or takes them for English.

A word is spelled when its sounds are those of its letters one after the other. docs/read-aloud.md lists
the words that may be so, with the reason; any other is a fault, and so is a word listed for nothing."""
import re
import subprocess
import sys

from texts import ROOT, read

WORD = re.compile(r"[A-Za-zÀ-ÖØ-öø-ÿœŒ]{2,}")
LISTED = re.compile(r"^- `(\S+)` : \S", re.M)
NOISE = re.compile(r"\([a-z-]+\)|[_:!|'`,\-\s;~#0-9]")     # stress, pauses, changes of voice


def sounds(texts: list[str]) -> list[str]:
    """What the voice makes of each text, as phonemes; each text is a sentence of its own."""
    done = subprocess.run(["espeak-ng", "-v", "fr", "-x", "-q", "--stdin"], input=".\n".join(texts) + ".\n",
                          check=True, capture_output=True, text=True, encoding="utf-8")
    lines = [line for line in done.stdout.splitlines() if line.strip()]
    if len(lines) != len(texts):
        raise RuntimeError(f"{len(texts)} texts, {len(lines)} lines of the voice")
    return lines


def odd_words(words: list[str]) -> dict[str, str]:
    """The words that aren't read as French, and how they are read."""
    found = {}
    for word, whole, letters in zip(words, sounds(words), sounds([" ".join(word) for word in words])):
        if NOISE.sub("", whole) == NOISE.sub("", letters):
            found[word] = "spelled"
        elif "(en)" in whole:
            found[word] = "read as English"
    return found


def main() -> int:
    texts = read("data/aide.txt") + read("data/fonction.txt")
    words = sorted({word for line in texts for word in WORD.findall(line)})
    odd = odd_words(words)
    listed = set(LISTED.findall((ROOT / "docs/read-aloud.md").read_text(encoding="utf-8")))
    faults = [f"{word} is {how}: reword, or list it in docs/read-aloud.md"
              for word, how in odd.items() if word not in listed]
    faults += [f"docs/read-aloud.md: {word} is read as a word, or isn't in the texts"
               for word in sorted(listed - set(odd))]
    if odd_words(["SQRT", "maison"]) != {"SQRT": "spelled"}:
        faults.append("the voice isn't the one that this test knows")
    print("\n".join(faults + [f"{len(words)} words, {len(odd)} odd, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
