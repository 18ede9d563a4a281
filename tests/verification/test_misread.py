"""Every line of misread.jsonl, typed as pupils type, gives exactly the findings that stand there: kind, line,
column and sentence; and every kind of finding stands there.   test_misread.py VOXTAB_CALC FINDINGS"""
import json
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from checker import findings  # noqa: E402

TABLE = pathlib.Path(__file__).with_name("misread.jsonl")
KINDS = pathlib.Path(__file__).parents[2] / "src/verification/findings.cpp"


# The exit status of a check: the sheet, the words of the command, what it must be. What is probably wrong counts
# more than a line in error.
STATUSES = [("A=3\nA*2", ["-V"], 0), ("-2^2", ["-V"], 0), ("1/0", ["-V"], 1), ("1,5", ["-V"], 3),
            ("1/0\n1,5", ["--verifier"], 3), ("1,5", ["-V", "-j"], 3), ("1,5", ["--json"], 2),
            ("1,5", ["-V", "/nowhere/a.VXT"], 2), ("1,5", ["-V", "a.VXT", "b.VXT"], 2)]


def status_faults(program: str) -> list[str]:
    faults = []
    for sheet, words, wanted in STATUSES:
        done = subprocess.run([program, *words], input=sheet + "\n", capture_output=True, text=True, encoding="utf-8")
        if done.returncode != wanted or (wanted == 2) != bool(done.stderr):
            faults.append(f"{words} on {sheet!r} ends with {done.returncode}, not {wanted}: {done.stderr}")
    return faults


def main(program: str, check: str) -> int:
    wrong = status_faults(program)
    for fault in wrong:
        print(fault)
    faults, rows = len(wrong), [json.loads(line) for line in TABLE.read_text(encoding="utf-8").splitlines()]
    jobs = [{"feuille": row["feuille"] + "\n", "options": row.get("options", [])} for row in rows]
    for row, found in zip(rows, findings(check, jobs)):
        got = [{key: finding[key] for key in ("genre", "ligne", "colonne", "phrase")} for finding in found]
        if got != row["constats"]:
            faults += 1
            print(f"{row['feuille']!r}: wanted {row['constats']}, got {got}")
    kinds = re.findall(r'^    \{\w+, "(\w+)", k(?:Faux|Savoir)', KINDS.read_text(encoding="utf-8"), re.M)
    missing = set(kinds) - {finding["genre"] for row in rows for finding in row["constats"]}
    if missing or not kinds:
        faults += 1
        print(f"kinds that no line proves: {missing or 'all'}")
    print(f"{len(rows)} sheets, {len(kinds)} kinds, {faults} faults")
    return 1 if faults or len(rows) < 150 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
