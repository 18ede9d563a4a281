"""Printing: the text of the pages, read back from the PDF file that stands in for the printer."""
import re
import subprocess
import sys

from pilot import Failed, expect, run, same, wait

BINARY, PLACE = sys.argv[1:3]
EDGE = 18    # points at the left of a page that a printer leaves free


def pages(pdf):
    """The text of each page, its lines without blanks at their end."""
    text = subprocess.run(["pdftotext", "-layout", "-enc", "UTF-8", str(pdf), "-"], check=True,
                          capture_output=True, text=True).stdout
    return [[line.rstrip() for line in page.split("\n") if line.strip()]
            for page in text.split("\f")[:-1]]


def left_edges(pdf):
    """Where each word begins, in points from the left edge of the page, by word."""
    boxes = subprocess.run(["pdftotext", "-bbox", str(pdf), "-"], check=True, capture_output=True,
                           text=True).stdout
    return {word: float(x) for x, word in re.findall(r'<word xMin="([\d.]+)"[^>]*>([^<]*)</word>', boxes)}


def printed(p, pdf):
    p.key("Ctrl+P")
    wait(lambda: pdf.exists() and pdf.stat().st_size > 0, "the printed file")

    def whole():
        try:
            return pages(pdf)
        except subprocess.CalledProcessError:
            return None
    return wait(whole, "the pages")


def a_sheet(p):
    pdf = p.folder / "essai.pdf"
    p.start(f"--imprime-vers={pdf}")
    p.type("A=3¶! été 2²")
    p.key("Alt+C")
    p.wait_message("! été 2²")
    same([[line.strip() for line in page] for page in printed(p, pdf)],
         [["A=3 = 3", "! été 2²"]], "pages")


def the_margin(p):
    """Every line begins after five blanks: five blanks of the sheet's own begin as far again."""
    pdf = p.folder / "marge.pdf"
    sheet = p.folder / "marge.VXT"
    sheet.write_bytes(b"premier\r\n     second\r\n")
    p.start(f"--imprime-vers={pdf}", sheet)
    printed(p, pdf)
    edges = left_edges(pdf)
    blanks = edges["second"] - edges["premier"]
    expect(blanks > 10 and abs(edges["premier"] - blanks - EDGE) < 1, f"left edges: {edges}")


def form_feeds(p):
    """A form feed ends its page, and the one after the sheet makes no page more."""
    pdf = p.folder / "pages.pdf"
    sheet = p.folder / "pages.VXT"
    sheet.write_bytes(b"un\x0cdeux\r\ntrois\r\n")
    p.start(f"--imprime-vers={pdf}", sheet)
    same([[line.strip() for line in page] for page in printed(p, pdf)], [["un"], ["deux", "trois"]],
         "pages")


def not_in_key_help(p):
    pdf = p.folder / "aide.pdf"
    p.start(f"--imprime-vers={pdf}")
    p.type("A=3")
    p.key("F1")
    p.key("Ctrl+P")
    p.wait_message("imprimer un fichier")
    p.key("F1")
    p.wait_sheet("A=3")
    expect(not pdf.exists(), "it was printed")


def a_long_sheet(p):
    """Every line is printed once, in order, over as many pages as it takes."""
    pdf = p.folder / "long.pdf"
    sheet = p.folder / "long.VXT"
    p.folder.mkdir(exist_ok=True)
    sheet.write_bytes("".join(f"ligne {i}\r\n" for i in range(1, 301)).encode())
    p.start(f"--imprime-vers={pdf}", str(sheet))
    seen = printed(p, pdf)
    if len(seen) < 4:
        raise Failed(f"{len(seen)} pages for 300 lines")
    same([line.strip() for page in seen for line in page], [f"ligne {i}" for i in range(1, 301)], "lines")


run([a_sheet, the_margin, form_feeds, a_long_sheet, not_in_key_help], BINARY, PLACE)
