"""Several sheets on one command line: what is written is what each sheet alone gives, in their order, whatever the
cores are; the status is the worst one.   test_many.py VOXTAB_CALC [SHEETS]"""
import os
import pathlib
import pty
import select
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from one_start import large_stack  # noqa: E402

PROGRAM = sys.argv[1]
SHEETS = int(sys.argv[2]) if len(sys.argv) > 2 else 120
faults = []


def run(*arguments, **options):
    return subprocess.run([PROGRAM, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          timeout=120, check=False, **options)


def named(name, errors):
    """The messages of one sheet, as they are told among others."""
    return b"".join(line if line.startswith(b"voxtab-calc : ") else name.encode() + b" : " + line
                    for line in errors.splitlines(keepends=True))


def write_sheets():
    """Sheets of all kinds: good ones, failing ones, one that is no file, one without its last line end, definitions
    that another sheet must not see."""
    names = []
    for number in range(SHEETS):
        name = f"feuille {number}.VXT"
        text = [f"A={number}\nB=A*2\nSIN(A)\n", f"A={number}\n5/0\nA\n", f"{number}*3", "B+1\n",
                "DEFFON=X^2\nFON(3)\nDEFMA\n1,2\n3,4\nFIN\nMB=MA*2\n", "FON(2)\n", "MC=MB*2\n"][number % 7]
        pathlib.Path(name).write_text(text, encoding="ascii", newline="\n")
        names.append(name)
    names.insert(7, "absente.VXT")
    return names


def check_standard_output(names):
    single = [run(name) for name in names]
    expected = b"".join(one.stdout if not one.stdout or one.stdout.endswith(b"\n") or name == names[-1] else one.stdout + b"\n"
                        for one, name in zip(single, names))
    errors = b"".join(named(name, one.stderr) for one, name in zip(single, names))
    for what, cores in (("all cores", None), ("one core", {0})):
        done = run(*names, preexec_fn=(lambda: os.sched_setaffinity(0, cores)) if cores else None)
        if done.stdout != expected or done.stderr != errors or done.returncode != 2:
            faults.append(f"{what}: status {done.returncode}, or what is written differs from the single sheets")
    good = run(names[0], names[3])
    if good.returncode != max(one.returncode for one in (single[0], single[3])):
        faults.append(f"two good sheets: status {good.returncode}")


def check_in_place(names):
    expected = {name: run(name, "--codage", "windows-1252").stdout.replace(b"\r\n", b"\n") for name in names if os.path.exists(name)}
    before = {name: pathlib.Path(name).read_bytes() for name in expected}
    done = run("-i", *names)
    if done.returncode != 2 or done.stdout:
        faults.append(f"in place: status {done.returncode}")
    for name, text in expected.items():
        written = pathlib.Path(name).read_bytes().replace(b"\r\n", b"\n")
        if written.rstrip(b"\n") != text.rstrip(b"\n"):
            faults.append(f"in place: {name} holds {written!r}")
        if pathlib.Path(name).with_suffix(".bak").read_bytes() != before[name]:
            faults.append(f"in place: the backup of {name} isn't what it was")


def check_one_backup():
    """Two sheets with one backup are written one after the other."""
    for suffix in ("txt", "vxt"):
        pathlib.Path("meme." + suffix).write_text("1+1\n", encoding="ascii")
    done = run("-i", "meme.txt", "meme.vxt", "meme.txt")
    texts = {pathlib.Path("meme." + suffix).read_bytes() for suffix in ("txt", "vxt")}
    if done.returncode != 0 or texts != {b"1+1 = 2\r\n"}:
        faults.append(f"one backup: status {done.returncode}, {texts}, {done.stderr}")


def processor_time(process):
    """In hundredths of a second; 0 for one that has ended."""
    try:
        return int(pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()[11])
    except (FileNotFoundError, ProcessLookupError):
        return 0


def children_of(thread):
    """The numbers of the processes that a thread has started; none for one that has ended."""
    try:
        return thread.read_text()
    except (FileNotFoundError, ProcessLookupError):
        return ""


def busy_helper(program, other=0):
    """The helper that calculates the long sheet; not the other one, which had it before."""
    while True:
        threads = pathlib.Path(f"/proc/{program.pid}/task").glob("*/children")
        for child in " ".join(children_of(thread) for thread in threads).split():
            if int(child) != other and processor_time(child) > 20:
                return int(child)


def check_killed_helper():
    """A helper that is killed is told of the sheet that it had; the others are calculated."""
    pathlib.Path("longue.VXT").write_text("AIRX(0,1,1000000000000)\nX^X+SIN(X)*TAN(X)\n", encoding="ascii")
    pathlib.Path("courte.VXT").write_text("1+1\n", encoding="ascii")
    program = subprocess.Popen([PROGRAM, "longue.VXT", "courte.VXT"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE)
    os.kill(busy_helper(program), signal.SIGKILL)
    output, errors = program.communicate(timeout=60)
    if program.returncode != 2 or output != b"1+1 = 2\n" or "longue.VXT : le calcul s'est arrêté" not in errors.decode():
        faults.append(f"a killed helper: status {program.returncode}, {output}, {errors.decode()}")


def check_killed_helper_of_a_lot():
    """A sheet that a helper was handed with others is the one that is told of, and the only one."""
    names = [f"petite {number}.VXT" for number in range(64)]
    for number, name in enumerate(names):
        pathlib.Path(name).write_text(f"{number}+1\n", encoding="ascii")
    names[33] = "longue.VXT"
    program = subprocess.Popen([PROGRAM, *names], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    first = busy_helper(program)
    os.kill(first, signal.SIGKILL)
    os.kill(busy_helper(program, first), signal.SIGKILL)   # which was handed that sheet alone
    output, errors = program.communicate(timeout=60)
    expected = "".join(f"{number}+1 = {number + 1}\n" for number in range(64) if number != 33)
    stopped = [line for line in errors.decode().splitlines() if "s'est arrêté" in line]
    if program.returncode != 2 or output.decode() != expected or stopped != ["voxtab-calc : longue.VXT : le calcul s'est arrêté"]:
        faults.append(f"a killed helper of a lot: status {program.returncode}, {output}, {errors.decode()}")


def check_killed_program():
    """No helper goes on calculating when the program that started it is gone."""
    program = subprocess.Popen([PROGRAM, "longue.VXT", "courte.VXT"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    helper = busy_helper(program)
    ended = os.pidfd_open(helper)
    program.kill()
    program.wait()
    if not select.select([ended], [], [], 60)[0]:
        faults.append("a helper goes on after its program was killed")
        os.kill(helper, signal.SIGKILL)
    os.close(ended)


def check_full_disk(names):
    with open("/dev/full", "wb") as full:
        done = subprocess.run([PROGRAM, *names], stdin=subprocess.DEVNULL, stdout=full, stderr=subprocess.PIPE, timeout=60,
                              check=False)
    if done.returncode != 2 or not done.stderr.decode().endswith("voxtab-calc : la sortie ne peut pas être écrite\n"):
        faults.append(f"a full disk: status {done.returncode}, {done.stderr[-80:]}")


def check_progress():
    """On a terminal a line tells how far the calculation is, and goes when something else is told."""
    terminal, other = pty.openpty()
    program = subprocess.Popen([PROGRAM, "courte.VXT", "longue.VXT"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=other)
    os.close(other)
    heard = b""
    while b"feuilles : 1 sur 2" not in heard:
        heard += os.read(terminal, 4096)
    os.kill(busy_helper(program), signal.SIGKILL)
    try:
        while piece := os.read(terminal, 4096):
            heard += piece
    except OSError:   # the other end has gone
        pass
    program.wait()
    if b"feuilles : 1 sur 2\r                  \rvoxtab-calc : longue.VXT : " not in heard:
        faults.append(f"progress: {heard!r}")


began = time.monotonic()
large_stack()
with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    sheets = write_sheets()
    check_standard_output(sheets)
    check_in_place(sheets)
    check_one_backup()
    check_full_disk(sheets[:40])
    if hasattr(os, "sched_getaffinity") and len(os.sched_getaffinity(0)) > 1:
        check_killed_helper()
        check_killed_helper_of_a_lot()
        check_killed_program()
        check_progress()
    os.chdir("/")
print("\n".join([*faults, f"{len(faults)} faults, {time.monotonic() - began:.1f} s"]))
sys.exit(1 if faults else 0)
