"""The winget manifests keep to the schema, a wrong one is refused; a program is signed when there is a certificate.
    test_distribution.py [PROGRAM.EXE]   without a program for Windows one is made by the installer's compiler"""
import importlib.machinery
import importlib.util
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parents[2]
SUM = "ab" * 32
faults = []


def expect(what, condition):
    if not condition:
        faults.append(what)


def run(*command, **surroundings):
    return subprocess.run(command, capture_output=True, text=True, encoding="utf-8", timeout=120, check=False,
                          env={**os.environ, **surroundings})


# The published limits: fewest and most characters of a text, words and what isn't one of them.
LENGTHS = {"version": {"PackageVersion": (1, 128)},
           "defaultLocale": {"Publisher": (2, 256), "PackageName": (2, 256), "License": (3, 512),
                             "ShortDescription": (3, 256), "PackageVersion": (1, 128)}}
WRONG = {"version": {"PackageIdentifier": ["Voxtab", "Vox tab.Voxtab", "V." + "x" * 33, ".".join("x" * 9)],
                     "DefaultLocale": ["", "f", "fr_FR", "fr-" + "x" * 9], "ManifestType": ["installer"],
                     "ManifestVersion": ["1.7.0"], "PackageVersion": ["1/2"]},
         "defaultLocale": {"Tags": [["x"] * 2, [""], ["x" * 41], [str(n) for n in range(17)]],
                           "PackageLocale": ["francais-x y"]},
         "installer": {"InstallerType": ["setup"], "Scope": ["all"], "InstallModes": [["quiet"], ["silent"] * 2],
                       "UpgradeBehavior": ["deny"], "FileExtensions": [["a/b"], ["x" * 65], ["VXT", "VXT"]],
                       "Installers": [[], [{}]], "InstallerLocale": ["1"]}}
WRONG_INSTALLERS = {"Architecture": ["x32"], "InstallerUrl": ["ftp://x", "https://", "https://" + "x" * 2041],
                    "InstallerSha256": ["ab" * 31, "xy" * 32, "ab" * 33], "Other": ["x"]}


def limits(module):
    """Each manifest with one field changed, at the published limits and beyond them."""
    manifests = module.manifests("https://example.org", "x.exe", SUM)

    def taken(kind, **changed):
        try:
            module.check(kind, {**manifests[kind], **changed})
            return True
        except jsonschema.ValidationError:
            return False

    for kind, fields in LENGTHS.items():
        for field, (fewest, most) in fields.items():
            expect(f"{kind}: {field} of {fewest} or {most} characters is refused",
                   taken(kind, **{field: "x" * fewest}) and taken(kind, **{field: "x" * most}))
            expect(f"{kind}: {field} beyond its limits is taken",
                   not taken(kind, **{field: "x" * (fewest - 1)}) and not taken(kind, **{field: "x" * (most + 1)}))
    for kind, fields in WRONG.items():
        for field, values in fields.items():
            for value in [*values, None]:
                expect(f"{kind}: {field} {value!r} is taken", not taken(kind, **{field: value}))
    one = manifests["installer"]["Installers"][0]
    for field, values in WRONG_INSTALLERS.items():
        for value in [*values, None]:
            expect(f"installer: {field} {value!r} is taken", not taken("installer", Installers=[{**one, field: value}]))
    expect("a second installer is refused", taken("installer", Installers=[one, {**one, "Architecture": "arm64"}]))


def winget(folder):
    (folder / "SHA256SUMS").write_text(f"{SUM}  Voxtab-0.1.0-installation.exe\n{SUM}  Voxtab-0.1.0-portable.zip\n")
    made = run(ROOT / "scripts/make-winget", "https://example.org/voxtab/", folder)
    expect(f"make-winget: {made.stderr}", made.returncode == 0 and len(made.stdout.splitlines()) == 3)
    manifest = json.loads((folder / "Voxtab.Voxtab.installer.yaml").read_text(encoding="utf-8"))
    expect("the installer's sum or address is another", manifest["Installers"] == [
        {"Architecture": "x64", "InstallerSha256": SUM.upper(),
         "InstallerUrl": "https://example.org/voxtab/Voxtab-0.1.0-installation.exe"}])
    refused = run(ROOT / "scripts/make-winget", "nowhere", folder)
    expect("an address that is none is taken", refused.returncode != 0 and "InstallerUrl" in refused.stderr)
    loader = importlib.machinery.SourceFileLoader("make_winget", str(ROOT / "scripts/make-winget"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("make_winget", loader))
    sys.dont_write_bytecode = True
    loader.exec_module(module)
    limits(module)
    for kind, whole in module.manifests("https://example.org", "x.exe", SUM).items():
        for field in whole:
            if field in ("InstallerLocale", "InstallerType", "Scope", "InstallModes", "UpgradeBehavior",
                         "FileExtensions", "Tags"):
                continue
            try:
                module.check(kind, {name: value for name, value in whole.items() if name != field})
                faults.append(f"{kind} without {field} is taken")
            except jsonschema.ValidationError:
                pass


def small_program(folder):
    """A program for Windows that does nothing."""
    (folder / "p.nsi").write_text('OutFile "p.exe"\nSection\nSectionEnd\n')
    made = run("makensis", "-V1", folder / "p.nsi")
    expect(f"makensis: {made.stdout}", made.returncode == 0)
    return folder / "p.exe"


def signing(folder, program):
    none = run(ROOT / "scripts/sign", program, VOXTAB_CERTIFICATE="")
    expect(f"without a certificate: {none.stdout}", none.returncode == 0 and "no certificate" in none.stdout)
    before = program.read_bytes()
    run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Voxtab test",
        "-addext", "extendedKeyUsage=codeSigning", "-keyout", folder / "k.pem", "-out", folder / "c.pem")
    (folder / "password").write_text("secret")
    run("openssl", "pkcs12", "-export", "-in", folder / "c.pem", "-inkey", folder / "k.pem", "-out", folder / "c.p12",
        "-passout", "pass:secret")
    signed = run(ROOT / "scripts/sign", program, VOXTAB_CERTIFICATE=str(folder / "c.p12"),
                 VOXTAB_CERTIFICATE_PASSWORD=str(folder / "password"))
    expect(f"sign: {signed.stdout}{signed.stderr}", signed.returncode == 0 and "signed:" in signed.stdout)
    expect("the program is as before", program.read_bytes() != before)
    verified = run("osslsigncode", "verify", "-CAfile", folder / "c.pem", "-in", program)
    expect(f"verify: {verified.stdout[-600:]}", verified.returncode == 0)
    program.write_bytes(program.read_bytes().replace(b"This program", b"That program", 1))
    broken = run("osslsigncode", "verify", "-CAfile", folder / "c.pem", "-in", program)
    expect("a changed program is still verified", broken.returncode != 0)
    wrong = run(ROOT / "scripts/sign", program, VOXTAB_CERTIFICATE=str(folder / "none.p12"))
    expect("a certificate that is missing is no failure", wrong.returncode != 0)


with tempfile.TemporaryDirectory() as name:
    place = pathlib.Path(name)
    winget(place)
    if len(sys.argv) > 1:
        copy = place / "copy.exe"
        copy.write_bytes(pathlib.Path(sys.argv[1]).read_bytes())
        signing(place, copy)
    else:
        signing(place, small_program(place))
print("\n".join(faults + [f"{len(faults)} faults"]))
sys.exit(1 if faults else 0)
