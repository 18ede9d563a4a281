"""The French voice of espeak-ng: the sounds that it makes of texts, and the words that it doesn't read as words."""
import re
import subprocess

from texts import ROOT

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


def listed() -> set[str]:
    """The words that may be odd: docs/read-aloud.md tells the reason of each."""
    return set(LISTED.findall((ROOT / "docs/read-aloud.md").read_text(encoding="utf-8")))


def heard_alike(words: str, sentence: str) -> bool:
    """Whether the words, with which the sentence begins, sound there as they do alone."""
    alone, there = (NOISE.sub("", sound) for sound in sounds([words, sentence]))
    return there.startswith(alone)
