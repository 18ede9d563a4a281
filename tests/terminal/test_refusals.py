"""What voxtab-calc can't read or hold ends in one French line and status 2.   test_refusals.py VOXTAB_CALC"""
import os
import resource
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
NO_MEMORY = "voxtab-calc : mémoire insuffisante"
faults = []


def limited(kilobytes):
    """Gives the program that much memory, or as much as there is."""
    def limit():
        if kilobytes:
            resource.setrlimit(resource.RLIMIT_AS, (kilobytes * 1024, kilobytes * 1024))
    return limit


def check(what, arguments, source, kilobytes, words, *inherited):
    """The last line on standard error is `words`, and nothing is written to standard output. A sheet that
    is nearly too large may show failures of single lines before."""
    done = subprocess.run([PROGRAM, *arguments], stdin=source, capture_output=True, text=True,
                          encoding="utf-8", timeout=60, preexec_fn=limited(kilobytes), pass_fds=inherited,
                          check=False)
    heard = done.stderr.splitlines()
    if done.returncode != 2 or done.stdout or heard[-1:] != [words]:
        faults.append(f"{what}: status {done.returncode}, heard {heard[-3:]}")


with tempfile.TemporaryDirectory() as folder:
    descriptor = os.open(folder, os.O_RDONLY)
    check("a folder", [], descriptor, 0, "voxtab-calc : entrée standard : accès impossible")
    os.close(descriptor)
    with open("/dev/zero", "rb") as endless:
        check("an input without end", [], endless, 0, "voxtab-calc : entrée standard : trop longue")
        check("the same with little memory", [], endless, 60000, NO_MEMORY)
    check("a device", ["/dev/zero"], subprocess.DEVNULL, 60000, "voxtab-calc : /dev/zero : c'est un périphérique")
    endless = subprocess.Popen(["yes"], stdout=subprocess.PIPE)
    check("a pipe without end", [f"/dev/fd/{endless.stdout.fileno()}"], subprocess.DEVNULL, 0,
          f"voxtab-calc : /dev/fd/{endless.stdout.fileno()} : fichier trop long", endless.stdout.fileno())
    endless.kill()
    endless.wait()
    sheet = folder + "/long.VXT"
    with open(sheet, "w", encoding="ascii") as target:
        target.writelines(f"A={i}+SIN({i})*2 ! {'x' * 50}\n" for i in range(32000))
    before = open(sheet, "rb").read()
    for kilobytes in range(14000, 22000, 2000):
        check(f"a long sheet in {kilobytes} KB", ["-i", sheet], subprocess.DEVNULL, kilobytes, NO_MEMORY)
    if open(sheet, "rb").read() != before:
        faults.append("a sheet that could not be calculated has been written")
print("\n".join([*faults, f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
