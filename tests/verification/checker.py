"""Many sheets checked by one process (findings.cpp): under the sanitizers starting the program takes longer than
checking a sheet."""
import json
import subprocess


def findings(program: str, jobs: list[dict]) -> list[list[dict]]:
    """What the check finds in the sheet of each job: {"feuille": text} or {"fichier": path}, with "options"."""
    told = "".join(json.dumps(job) + "\n" for job in jobs)
    done = subprocess.run([program], input=told, capture_output=True, text=True, encoding="utf-8")
    lots = [[]]
    for line in done.stdout.splitlines():
        if line:
            lots[-1].append(json.loads(line))
        else:   # the end of a sheet's findings
            lots.append([])
    if done.returncode != 0 or len(lots) != len(jobs) + 1:
        raise RuntimeError(f"status {done.returncode}, {len(lots) - 1} of {len(jobs)} sheets: {done.stderr}")
    return lots[:-1]
