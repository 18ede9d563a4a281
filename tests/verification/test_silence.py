"""Golden sheets, example sheets and the examples of the guide: those that their authors mean have nothing that
is probably wrong. traps.txt tells of each sheet that was written with a trap in it which findings it has, and no
other sheet has one.   test_silence.py FINDINGS [--ecrit]    (writes traps.txt anew, to be read)"""
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(ROOT / "tests/guide"), str(HERE)]
from checker import findings  # noqa: E402
from texts import examples, read  # noqa: E402

TRAPS = HERE / "traps.txt"
ANGLES = {1: "degre", 2: "radian", 3: "grade"}
DISPLAYS = {1: "entier", 2: "flottant", 3: "puissance"}


def grave(found: list[dict]) -> list[str]:
    """The sentences of what is probably wrong."""
    return [finding["phrase"] for finding in found if finding["gravite"] == "faux probable"]


def options_of(path: pathlib.Path, folder: pathlib.Path) -> list[str]:
    file = folder / (path.stem + ".options")
    words = file.read_text(encoding="utf-8").split() if file.exists() else []
    kept = []
    while words:
        word = words.pop(0)
        if word == "--curseur":
            words.pop(0)
        else:
            kept.append(word)
    return kept


def sheets() -> list[tuple[str, dict]]:
    """The job of each golden sheet and example, with its name."""
    jobs = []
    for path in sorted([*(HERE.parent / "sheets").rglob("*.VXT"), *(ROOT / "examples").glob("*.VXT")]):
        if not path.name.endswith(".attendu.VXT"):
            folder = HERE.parent / "sheets/examples" if path.parent.name == "examples" else path.parent
            job = {"fichier": str(path), "options": options_of(path, folder)}
            jobs.append((path.relative_to(ROOT).as_posix(), job))
    return jobs


def guide() -> list[tuple[str, dict]]:
    jobs = []
    for example in examples(read("data/aide.txt"))[0]:
        modes = example.options
        words = ["--angle", ANGLES[modes.get("unite_angle", 1)], "--decimales", str(modes.get("nombre_decimal", 2)),
                 "--affichage", "hexa" if modes.get("mode_nombre", 1) == 2 else DISPLAYS[modes.get("mode_affichage", 2)]]
        # The title of the example tells of the trap where it shows one.
        name = "data/aide.txt: " + " / ".join(example.typed)[:60]
        jobs.append((name, {"feuille": "\n".join(example.typed) + "\n", "options": words}))
    return jobs


def main(program: str, write: bool) -> int:
    names, jobs = zip(*sheets(), *guide())
    text = "".join(f"{name}\n" + "".join(f"    {sentence}\n" for sentence in sentences)
                   for name, sentences in zip(names, map(grave, findings(program, jobs))) if sentences)
    if write:
        TRAPS.write_text(text, encoding="utf-8")
    wanted = TRAPS.read_text(encoding="utf-8")
    if text == wanted:
        return 0
    with tempfile.NamedTemporaryFile("w", encoding="utf-8", suffix=".txt") as file:
        file.write(text)
        file.flush()
        print(subprocess.run(["diff", str(TRAPS), file.name], capture_output=True, text=True).stdout)
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], "--ecrit" in sys.argv[2:]))
