"""A sheet that needs a deep stack, on a machine that gives little stack or little memory: the programs end
with failures in words, 28 or 7, and with the sheet whole, never with a signal.
test_limits.py VOXTAB_CALC VOXTAB_SONDE"""
import json
import resource
import subprocess
import sys

CALC, PROBE = sys.argv[1:]
KILO = 1024
SHEETS = {
    "15,000 brackets": ["(" * 15000 + "1" + ")" * 15000, "2+2"],
    "a function that calls itself": ["DEFFON=FON(X)+1", "A=FON(1)", "2+2"],
}
STACKS = [96, 128, 200, 256, 257, 300, 512, 1024, 4096, 16384]
SPACES = [9000, 10000, 11000, 12000, 13000, 14000, 16000, 20000, 30000, 60000, 200000]
NO_MEMORY = "voxtab-calc : mémoire insuffisante"
faults = []
counts = {"calculated": 0, "refused": 0, "not started": 0}


def limited(kind, kilobytes):
    """Gives the program that much, and no way to ask for more."""
    return lambda: resource.setrlimit(kind, (kilobytes * KILO, kilobytes * KILO))


def run(command, text, kind, kilobytes):
    return subprocess.run(command, input=text, capture_output=True, text=True, encoding="utf-8",
                          timeout=120, preexec_fn=limited(kind, kilobytes), check=False)


def not_started(done):
    """The system itself refuses so little: nothing of the program has run."""
    return done.returncode == 127 and "error while loading shared libraries" in done.stderr


def boxes_known(boxes):
    return all(box.startswith(("28 28", "7 7")) for box in boxes)


def holds(lines, text):
    """Each line of the sheet stands in the text, in order."""
    here = 0
    for line in lines:
        here = text.find(line, here)
        if here < 0:
            return False
        here += len(line)
    return True


def judge(where, done, lines, text, boxes):
    if done.returncode < 0 or done.returncode > 2:
        faults.append(f"{where}: status {done.returncode}, {done.stderr[-200:]}")
    elif not holds(lines, text):
        faults.append(f"{where}: the sheet isn't whole: {text[-80:]!r}")
    elif not boxes_known(boxes):
        faults.append(f"{where}: boxes {boxes}")
    else:
        counts["calculated"] += 1


def check_calc(where, lines, kind, kilobytes):
    done = run([CALC], "\n".join(lines) + "\n", kind, kilobytes)
    heard = done.stderr.splitlines()
    if not_started(done):
        counts["not started"] += 1
    elif done.returncode == 2 and not done.stdout and heard[-1:] == [NO_MEMORY]:
        counts["refused"] += 1
    else:
        judge(where, done, lines, done.stdout, [line for line in heard if line[:2].strip().isdigit()
                                                and not holds([line[:9]], "\n".join(lines))])


def check_probe(where, lines, kind, kilobytes):
    done = run([PROBE], json.dumps({"text": "\r\n".join(lines)}) + "\n", kind, kilobytes)
    if not_started(done):
        counts["not started"] += 1
        return
    try:
        answer = json.loads(done.stdout)
    except ValueError:
        faults.append(f"{where}: status {done.returncode}, no answer, {done.stderr[-200:]}")
        return
    if answer.get("erreur") == "mémoire insuffisante" and done.returncode == 2:
        counts["refused"] += 1
    else:
        judge(where, done, lines, answer.get("text", ""), answer.get("boites", []))


for name, lines in SHEETS.items():
    for kind, label, sizes in ((resource.RLIMIT_STACK, "stack", STACKS),
                               (resource.RLIMIT_AS, "memory", SPACES)):
        for size in sizes:
            check_calc(f"voxtab-calc, {name}, {label} {size} KB", lines, kind, size)
            check_probe(f"voxtab-sonde, {name}, {label} {size} KB", lines, kind, size)

for fault in faults:
    print(fault)
print(counts)
# Where hardly anything starts nothing is shown.
sys.exit(1 if faults or counts["calculated"] < 40 else 0)
