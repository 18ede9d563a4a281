"""Printing on Windows: what comes out of a PostScript printer, read back page by page."""
import pathlib
import subprocess
import sys

from pilot import Failed, run, same, wait

BUILD, PLACE = sys.argv[1:3]


def pages(printed):
    """The lines of each page, without blanks at their ends."""
    subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=txtwrite",
                    f"-sOutputFile={printed.parent}/page-%03d.txt", str(printed)], check=True)
    texts = [page.read_text(encoding="utf-8") for page in sorted(printed.parent.glob("page-*.txt"))]
    return [[line.strip() for line in text.split("\n") if line.strip()] for text in texts]


def print_sheet(p, *arguments, text=None):
    """The pages of a sheet that the program prints, once its printer has them all."""
    printed = p.folder / "imprime.ps"
    p.start(f"--imprime-vers={printed.name}", *arguments, text=text)
    p.key("Ctrl+P")
    wait(lambda: printed.exists() and b"%%EOF" in printed.read_bytes()[-200:], "the printed file")
    return pages(printed)


def no_printer(p):
    """Without a printer the user is told in words, once, and the program goes on."""
    p.start(text="A=3")
    p.key("Ctrl+P")
    p.wait_box("l'impression n'a pas pu se faire : y a-t-il une imprimante ?")
    p.key("Entrée")
    p.wait_no_box()
    p.key("F5")                # a second box would have taken the key
    p.hear("Entier", "A=3 = 3")


def a_sheet(p):
    subprocess.run(["wine", str(pathlib.Path(BUILD) / "printer.exe"),
                    "Z:" + str(pathlib.Path(PLACE) / "tests" / "printer.ppd").replace("/", "\\")], check=True)
    same(print_sheet(p, text="A=3¶B=A+2"), [["A=3", "B=A+2"]], "pages")


def the_printer_dialog(p):
    """It opens, and Cancel leaves the printer as it is."""
    p.start(text="A=3")
    p.choose("F", 9)
    wait(lambda: (box := p.box()) and any("Essai" in c["text"] for c in box["children"]), "the dialog")
    p.key("Échap")
    p.wait_no_box()


def a_long_sheet(p):
    """Every line is printed once, in order, over as many pages as it takes."""
    (p.folder / "longue.VXT").write_bytes("".join(f"ligne {i}\r\n" for i in range(1, 301)).encode())
    seen = print_sheet(p, "longue.VXT")
    if len(seen) < 4:
        raise Failed(f"{len(seen)} pages for 300 lines")
    same([line for page in seen for line in page], [f"ligne {i}" for i in range(1, 301)], "lines")


run([no_printer, a_sheet, the_printer_dialog, a_long_sheet], BUILD, PLACE)
