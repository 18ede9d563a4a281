"""What is heard beside words. The sound library plays into files: each sound that the program plays is
one file, written whole when the sound has ended."""
import os
import pathlib
import sys

from pilot import expect, run, same, wait
from screen import Bells

BINARY, PLACE = sys.argv[1:3]
SOUNDS = pathlib.Path(PLACE) / "sons"


def prepare():
    """A sound card whose every sound is handed to a command that keeps it."""
    SOUNDS.mkdir()
    keep = pathlib.Path(PLACE) / "garde"
    keep.write_text(f"""#!/bin/sh
f=$(mktemp "{PLACE}/son.XXXXXX")
cat >"$f"
mv "$f" "{SOUNDS}/$(basename "$f")"
""")
    keep.chmod(0o700)
    (pathlib.Path(os.environ["HOME"]) / ".asoundrc").write_text(f"""
pcm.!default {{ type file  slave.pcm "muette"  file "|{keep}"  format "raw" }}
pcm.muette {{ type null }}
ctl.!default {{ type hw  card 0 }}
""")
    os.environ["CANBERRA_DRIVER"] = "alsa"


def played(number):
    """The sounds that have been played since the last time, once there are so many."""
    wait(lambda: len(list(SOUNDS.iterdir())) >= number, f"{number} sounds")
    sounds = []
    for file in SOUNDS.iterdir():
        sounds.append(file.read_bytes())
        file.unlink()
    same(len(sounds), number, "sounds")
    expect(all(any(sound) for sound in sounds), "a sound is silent")
    return sounds


def beeps(p):
    """A beep is a sound of the desktop's theme and not its bell, and two beeps are two sounds."""
    bells = Bells()
    p.start()
    p.type("2+3")
    p.key("F3")
    p.entry("Recherche", "", "ABSENT")
    p.wait_message("introuvable")
    once = played(1)
    p.key("Ctrl+Début")
    p.key("Alt+Gauche")
    same(played(2), once * 2, "two beeps")
    same(bells.rung, 0, "bells")


def without_a_sound(p):
    """A desktop that has no sounds: the bell rings for each beep and for the end of a calculation."""
    share = p.folder / "partage"
    share.mkdir()
    for entry in pathlib.Path("/usr/share").iterdir():
        if entry.name != "sounds":
            (share / entry.name).symlink_to(entry)
    bells = Bells()
    p.start(environment={"XDG_DATA_DIRS": str(share), "XDG_CACHE_HOME": str(p.folder / "cache")})
    p.type("2+3")
    p.key("F3")
    p.entry("Recherche", "", "ABSENT")
    p.wait_message("introuvable")
    wait(lambda: bells.rung == 1, "the bell of a beep")
    p.key("Ctrl+Début")
    p.key("Alt+Gauche")
    wait(lambda: bells.rung == 3, "the bells of two beeps")
    p.key("Ctrl+F8")
    p.wait_message("avec son")
    p.key("Alt+C")
    wait(lambda: bells.rung == 4, "the bell of a calculation's end")
    same(list(SOUNDS.iterdir()), [], "sounds")


def end_of_a_calculation(p):
    """No sound at the first start; then one for a sheet that is calculated, another for one that isn't,
    kept for the next start."""
    p.start()
    p.type("2+3")
    p.key("Alt+C")
    p.wait_message("2+3 = 5")
    p.key("Ctrl+F8")
    p.wait_message("avec son")
    same(list(SOUNDS.iterdir()), [], "sounds")
    p.key("Alt+C")
    good = played(1)
    p.type("¶5/0")
    p.key("Alt+C")
    bad = played(1)
    expect(good != bad, "both ends sound alike")
    p.key("Alt+Q")
    p.wait_box("enregistrer sur SANSTITRE.VXT ?")
    p.key("Alt+N")
    same(p.wait_end(), 0, "exit status")
    p.start()
    p.type("1")
    p.key("Alt+C")
    same(played(1), good, "sound after another start")


prepare()
expect(pathlib.Path(BINARY).exists(), f"{BINARY} isn't built")
run([beeps, without_a_sound, end_of_a_calculation], BINARY, PLACE)
