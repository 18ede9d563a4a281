"""What voxtab-calc -i leaves on the disk: rights, links, codings, and nothing of a run that was ended or
refused.   test_in_place.py VOXTAB_CALC"""
import os
import pathlib
import signal
import stat
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
faults = []


def run(*arguments, **how):
    how = {"stdin": subprocess.DEVNULL, "capture_output": True, "timeout": 120, "check": False, **how}
    return subprocess.run([PROGRAM, *map(str, arguments)], **how)


def want(what, good, seen=""):
    if not good:
        faults.append(f"{what}: {seen}")


def rights(path):
    return oct(stat.S_IMODE(path.stat().st_mode))


def refused(what, done, words):
    want(what, done.returncode == 2 and words in done.stderr.decode(), (done.returncode, done.stderr.decode()))


def rights_are_kept(folder):
    for mode in (0o600, 0o640, 0o664):
        sheet = folder / f"private{mode:o}.VXT"
        backup = sheet.with_suffix(".bak")
        sheet.write_bytes(b"1+1\r\n")
        sheet.chmod(mode)
        for turn in ("a new backup", "one that is there"):
            done = run("-i", sheet)
            want("rights", done.returncode == 0 and rights(sheet) == rights(backup) == oct(mode),
                 (turn, oct(mode), rights(sheet), rights(backup)))
            backup.chmod(0o666)


def other_names_lead_to_the_result(folder):
    sheet, other = folder / "one.VXT", folder / "other.VXT"
    sheet.write_bytes(b"1+1\r\n! a long comment that goes with nothing\r\n")
    os.link(sheet, other)
    run("-i", sheet)
    want("hard link", sheet.samefile(other) and other.read_bytes().startswith(b"1+1 = 2\r\n"), other.read_bytes())
    want("backup of a hard link", sheet.with_suffix(".bak").read_bytes().startswith(b"1+1\r\n"))
    other.write_bytes(b"2 = 2 = 2 = 2\r\n" * 3)
    run("-i", other)
    want("shorter than before", sheet.read_bytes() == b"2 = 2\r\n" * 3, sheet.read_bytes())


def codings_are_kept(folder):
    for coding in ("utf-8", "utf-8-sig", "utf-16-le", "utf-16-be", "windows-1252"):
        mark = b"\xff\xfe" if coding == "utf-16-le" else b"\xfe\xff" if coding == "utf-16-be" else b""
        sheet = folder / f"{coding}.VXT"
        sheet.write_bytes(mark + "1+1 ! d\u00e9j\u00e0 \u0153\r\n".encode(coding))
        done = run("-i", sheet)
        wanted = mark + "1+1 ! d\u00e9j\u00e0 \u0153 = 2\r\n".encode(coding)
        want(coding, done.returncode == 0 and sheet.read_bytes() == wanted, (done.stderr, sheet.read_bytes()))
    exact = folder / "exact.VXT"   # as the window writes a sheet that would be taken for UTF-8
    double = b"\xef\xbb\xbf" * 2
    exact.write_bytes(double + "1+1 ! \u00c3\u00a9\u00a0\u2026\r\n".encode())
    run("-i", exact)
    want("two marks", exact.read_bytes() == double + "1+1 ! \u00c3\u00a9\u00a0\u2026 = 2\r\n".encode(), exact.read_bytes())
    chance = folder / "chance.VXT"   # valid UTF-8 by accident, of a character that no sheet has
    chance.write_bytes("1+1 ! CLASS\u00c9\u2026\r\n".encode("windows-1252"))
    run("-i", chance)
    want("UTF-8 by accident", chance.read_bytes() == "1+1 ! CLASS\u00c9\u2026 = 2\r\n".encode("windows-1252"), chance.read_bytes())
    done = run(input="1+1\r\n".encode("utf-16"), stdin=None)
    want("UTF-16 from a pipe", done.stdout == b"1+1 = 2\r\n" or done.stdout == b"1+1 = 2\n", done.stdout)
    lost = folder / "lost.VXT"
    lost.write_bytes("1+1 ! \u2264".encode("utf-16"))
    before = lost.read_bytes()
    refused("a character that a sheet lacks", run("-i", lost), "U+2264")
    want("it stays", lost.read_bytes() == before)


def code_0_is_refused(folder):
    sheet = folder / "zero.VXT"
    sheet.write_bytes(b"1+1\r\n2\x00\r\n")
    refused("code 0", run("-i", sheet), "zero.VXT, ligne 2 : le code 0 n'existe pas dans une feuille")
    want("its file", sheet.read_bytes() == b"1+1\r\n2\x00\r\n" and not sheet.with_suffix(".bak").exists())


def a_file_that_changed_is_left(folder):
    """Another program writes the sheet during the calculation: while a message longer than a pipe holds waits
    to be read, the sheet has been read and not yet been written."""
    sheet = folder / "busy.VXT"
    sheet.write_bytes(b"1+1 ! " + b"x" * 300000 + b"\r\n")
    program = subprocess.Popen([PROGRAM, "-i", str(sheet)], stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
    first = program.stderr.read(10)
    sheet.write_bytes(b"mine\r\n")
    heard = first + program.stderr.read()
    want("changed meanwhile", program.wait(timeout=60) == 2 and "le fichier a changé".encode() in heard, heard[-200:])
    want("the other's text", sheet.read_bytes() == b"mine\r\n", sheet.read_bytes()[:100])
    want("no backup either", not sheet.with_suffix(".bak").exists())


def outputs_that_take_nothing(folder):
    for option in ("--aide", "--version"):
        with open("/dev/full", "wb") as full:
            refused(f"{option}, full", run(option, capture_output=False, stdout=full, stderr=subprocess.PIPE),
                    "la sortie ne peut pas être écrite")
        refused(f"{option}, closed", run(option, preexec_fn=lambda: os.close(1)), "la sortie ne peut pas être écrite")
    sheet = folder / "closed.VXT"
    sheet.write_bytes(b"1/0\r\n")
    run("-i", sheet, preexec_fn=lambda: (os.close(1), os.close(2)))
    want("nothing else in the file", sheet.read_bytes().startswith(b"1/0") and b"sur" not in sheet.read_bytes(),
         sheet.read_bytes())


def recovery(text, name=b""):
    """A recovery file as the window writes it, by docs/formats.md."""
    def fnv(data):
        total = 0xCBF29CE484222325
        for byte in data:
            total = (total ^ byte) * 0x100000001B3 % 2**64
        return b"%016x" % total
    head = (b"VOXTAB REPRISE 2\r\nnom %d %s\r\nrang 1\r\ncurseur 0 0\r\nmodifie 1\r\nnumero 4\r\n"
            b"fichier %s\r\noctets %d\r\n" % (len(name), name, b"0" * 16, len(text)))
    return head + b"somme " + fnv(head + text) + b"\r\n\r\n" + text


def a_recovery_file_stands_for_its_sheet(folder):
    sheet = folder / "sans titre 2026-01-01.VXT"
    text = "A=3\r\n! é\r\n2A".encode("windows-1252")
    sheet.write_bytes(recovery(text))
    for arguments, source in (((sheet,), b""), ((), sheet.read_bytes()), (("--codage", "utf-8", sheet), b"")):
        done = run(*arguments, stdin=None, input=source)
        want("recovery file", done.returncode == 0 and done.stdout.decode() == "A=3 = 3\r\n! é\r\n2A = 6\r\n",
             (done.returncode, done.stdout, done.stderr))
    before = sheet.read_bytes()
    refused("a recovery file in place", run("-i", sheet), "c'est une copie de secours")
    sheet.write_bytes(before[:-1])
    refused("a damaged recovery file", run(sheet), "copie de secours abîmée")
    refused("a damaged recovery file in place", run("-i", sheet), "copie de secours abîmée")
    want("left alone", sheet.read_bytes() == before[:-1] and not sheet.with_suffix(".bak").exists())


def nothing_is_left_by_a_signal(folder):
    """Ended at many moments while it saves: the sheet is the old one or the new one, with nothing beside."""
    place = folder / "signals"
    place.mkdir()
    sheet = place / "long.VXT"
    old = b"".join(b"A=%d\r\n" % i for i in range(20000))
    sheet.write_bytes(old)
    run("-i", sheet)
    new = sheet.read_bytes()
    ended = 0
    for turn in range(40):
        sheet.write_bytes(old)
        program = subprocess.Popen([PROGRAM, "-i", str(sheet)], stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        seen = set()
        # Wait for the turn-th change of the folder: the moments at which files come and go.
        for _ in range(turn * 40):
            names = frozenset(os.listdir(place))
            seen.add(names)
            if program.poll() is not None:
                break
        program.send_signal(signal.SIGTERM if turn % 2 else signal.SIGINT)
        ended += program.wait(timeout=60) < 0
        names = set(os.listdir(place))
        want("left by a signal", names <= {"long.VXT", "long.bak"}, names)
        want("whole", sheet.read_bytes() in (old, new), len(sheet.read_bytes()))
    want("some were ended", ended > 0, ended)


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    for case in (rights_are_kept, other_names_lead_to_the_result, codings_are_kept, code_0_is_refused, a_file_that_changed_is_left,
                 outputs_that_take_nothing, a_recovery_file_stands_for_its_sheet, nothing_is_left_by_a_signal):
        case(folder)
print("\n".join([*faults, f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
