"""Every line of misread.jsonl, typed as pupils type, gives exactly the findings that stand there: kind, line,
column and sentence.   test_misread.py VOXTAB_CALC"""
import json
import pathlib
import subprocess
import sys

TABLE = pathlib.Path(__file__).with_name("misread.jsonl")


def findings(program: str, sheet: str, options: list[str]) -> list[dict]:
    done = subprocess.run([program, "--verifier", "--json", *options, "-"], input=sheet + "\n",
                          capture_output=True, text=True, encoding="utf-8")
    return [json.loads(line) for line in done.stdout.splitlines()]


def main(program: str) -> int:
    faults, rows = 0, [json.loads(line) for line in TABLE.read_text(encoding="utf-8").splitlines()]
    for row in rows:
        got = [{key: finding[key] for key in ("genre", "ligne", "colonne", "phrase")}
               for finding in findings(program, row["feuille"], row.get("options", []))]
        if got != row["constats"]:
            faults += 1
            print(f"{row['feuille']!r}: wanted {row['constats']}, got {got}")
    print(f"{len(rows)} sheets, {faults} faults")
    return 1 if faults or len(rows) < 150 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
