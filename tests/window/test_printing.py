"""Printing: the text of the pages, read back from the PDF file that stands in for the printer."""
import subprocess
import sys

from pilot import Failed, run, same, wait

BINARY, PLACE = sys.argv[1:3]


def pages(pdf):
    """The text of each page, its lines without blanks at their end."""
    text = subprocess.run(["pdftotext", "-layout", "-enc", "UTF-8", str(pdf), "-"], check=True,
                          capture_output=True, text=True).stdout
    return [[line.rstrip() for line in page.split("\n") if line.strip()]
            for page in text.split("\f")[:-1]]


def font_sizes(pdf):
    """The fonts of the file, as its own table names them."""
    return subprocess.run(["pdffonts", str(pdf)], check=True, capture_output=True, text=True).stdout


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
    p.type("A=3¶été 2²")
    p.key("Alt+C")
    wait(lambda: "=" in p.message() or p.message(), "the result")
    lines = p.sheet().split("\n")
    same([[line.strip() for line in page] for page in printed(p, pdf)],
         [[line.strip() for line in lines]], "pages")


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


run([a_sheet, a_long_sheet], BINARY, PLACE)
