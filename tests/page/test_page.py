"""The pages of all examples and of generated sheets: well-formed, in French, without scripts and without anything
fetched; every number of the calculated sheet is in the text of the page; tables have captions and headings,
drawings a title and a description; MathML has each element with as many children as it takes. And the pages of
small sheets, part by part."""
import pathlib
import re
import sys
import tempfile
import xml.etree.ElementTree as tree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import sheets  # noqa: E402
from one_start import large_stack  # noqa: E402

X, M, S = "{http://www.w3.org/1999/xhtml}", "{http://www.w3.org/1998/Math/MathML}", "{http://www.w3.org/2000/svg}"
CHILDREN = {"mfrac": 2, "msup": 2, "mroot": 2, "msubsup": 3}
NUMBER = re.compile(r"\d+(?:\.\d+)?")
faults = []


def check(condition, *words):
    if not condition:
        faults.append(" ".join(str(word) for word in words))


def text_of(element):
    return "".join(element.itertext())


def look(name, sheet, path):
    """What holds of every page."""
    source = path.read_text(encoding="utf-8")
    page = tree.fromstring(source)
    check(page.get("lang") == "fr", name, "isn't in French")
    check(len(page.findall(f".//{X}h1")) == 1 and text_of(page.find(f".//{X}h1")).strip(), name, "has no heading")
    check(text_of(page.find(f".//{X}title")).strip(), name, "has no title")
    check("<script" not in source and not re.search(r"(?:src|href)=|url\(|@import", source), name, "fetches or runs something")
    body = text_of(page.find(f"{X}body"))
    lost = [number for number in NUMBER.findall(sheet) if number not in body]
    check(not lost, name, "lacks", lost[:5])
    for table in page.findall(f".//{X}table"):
        check(table.find(f"{X}caption") is not None and table.find(f".//{X}th[@scope]") is not None, name, "has a bare table")
    for drawing in page.findall(f".//{S}svg"):
        named = [text_of(drawing.find(f"{S}{part}")).strip() for part in ("title", "desc")]
        check(drawing.get("role") == "img" and all(named), name, "has a drawing without words")
    for element in (e for m in page.findall(f".//{M}math") for e in m.iter()):
        wanted = CHILDREN.get(element.tag.removeprefix(M))
        check(wanted is None or len(element) == wanted, name, element.tag, "has", len(element), "children")
    ids = re.findall(r' id="([^"]*)"', source)
    check(len(ids) == len(set(ids)), name, "has an id twice")
    return page


def formulas(page):
    """The formulas of a page, each element as its name in brackets around its content."""
    def shown(element):
        inside = (element.text or "") + "".join(map(shown, element))
        kind = element.tag.removeprefix(M)
        return inside if kind in ("math", "mrow", "mi", "mn", "mo", "mtext") else f"{kind}[{inside}]"
    return [shown(m) for m in page.findall(f".//{M}math")]


def small_sheets(calc, folder):
    """Sheets whose pages are known."""
    def page_of(name, *lines):
        return look(name, *sheets.write(calc, folder, name, "\n".join(lines)))

    for line, wanted in (("1/2", "mfrac[12]=0,5"), ("(1+2)/(7-4)", "mfrac[1+27−4]=1"), ("2^3^2", "msup[(msup[23])2]=64"),
                         ("SQRT(9)", "msqrt[9]=3"), ("SQR3(8)", "mroot[83]=2"), ("2PI", "2π=6,28"), ("FACT(4)", "4!=24"),
                         ("ABS(-2)", "|−2|=2"), ("1.5*4", "1,5×4=6"), ("-2^2", "−msup[22]=−4"), ("3²", "msup[32]=9"),
                         ("(1+2)^2", "msup[(1+2)2]=9"), ("SQR(1+2)", "msup[(1+2)2]=9"), ("CNP(5,2)", "CNP(5;2)=10"),
                         ("SIN(30)", "sin(30)=0,5"), ("100+20%", "100+20%=120"), ("1/2/4", "mfrac[mfrac[12]4]=0,13")):
        page = page_of("line", line)
        check(formulas(page) == [wanted], line, "is", formulas(page), "not", wanted)
    page = page_of("assignment", "A=4", "B=A+1")
    check(formulas(page) == ["A=4", "B=A+1=5"], "assignments are", formulas(page))
    page = page_of("misread", "1,5+2", "2 3")
    check(formulas(page) == [] and [text_of(c) for c in page.iter(f"{X}code")] == ["1,5+2 = 1", "2 3 = 3"],
          "lines that are read otherwise than they look are shown as formulas")
    page = page_of("fault", "2+3", "A+1", "7*6")
    check(text_of(page.find(f".//{X}strong")) == "= variable A non définie", "a fault isn't told")
    check([text_of(c) for c in page.iter(f"{X}code")] == ["A+1", "7*6"], "lines at a fault and below it are lost")
    page = page_of("comments", "! Devoir de <maths> & plus", "2+3 ! somme", "", "! fin")
    check(text_of(page.find(f".//{X}h1")) == "Devoir de <maths> & plus", "the title isn't the first comment")
    check([text_of(c) for c in page.findall(f".//*[@class='commentaire']")] == ["somme", "fin"], "comments are lost")
    # look() finds the numbers of standard output in the page.
    page = page_of("random", "A=INT(1000000*ALEA)", "B=A*2", "INCX(1,1,3)", "X+INT(1000000*ALEA)", "A+INT(1000000*ALEA)")
    check(not page.findall(f".//{S}svg"), "a function that draws random numbers is drawn as if it were one")
    page = page_of("matrix", "DEFMA", "1,2", "3,4", "FIN", "MB=MA*2")
    check(formulas(page) == ["MA=(mtable[mtr[mtd[1]mtd[2]]mtr[mtd[3]mtd[4]]])",
                             "MB=MA×2=(mtable[mtr[mtd[2]mtd[4]]mtr[mtd[6]mtd[8]]])"], "matrices are", formulas(page))
    data(page_of("pairs", "STATXY", "1,2,3", "2,4,7", "A"), "Données STATXY, ligne 1", 3, "Résultats STATXY, ligne 1", 3)
    data(page_of("values", "STATX", "1,2", "2,4", "FIN"), "Données STATX, ligne 1", 4, "Résultats STATX, ligne 1", 3)
    data(page_of("frequencies", "STATX(2;4,3)"), "Données STATX, ligne 1", 2, "Résultats STATX, ligne 1", 2)
    page = page_of("table", "INCX(0,0.5,3)", "X^2+1")
    data(page, "Table de X, ligne 1", 3, None, 3)
    check("Courbe de X^2+1 pour X de 0 à 1, ligne 1" in page.find(f".//{S}title").text, "a curve isn't named")
    check(formulas(page) == ["f(X)=msup[X2]+1"], "a function is", formulas(page))
    page = page_of("study", "INCX(-1,0.4,6)", "1/X+0.5", "", "INCX(0,1,3)", "X+1", "7*6")
    headings = [text_of(h) for h in page.iter(f"{X}h2")]
    check(headings == ["Étude de 1/X+0,5, X de -1 à 1", "Étude de X+1, X de 0 à 2", "Texte de la feuille"], headings)
    study = page.find(f".//{X}section")
    facts = [text_of(li) for li in study.iter(f"{X}li")]
    check("Limite en X = 0 par la gauche : moins l'infini" in facts and "Signe : positive de 0 à 1" in facts, facts)
    rows = [[text_of(cell) for cell in row] for row in study.findall(f".//{X}tbody/{X}tr")]
    check(rows == [["-1", "-0,5", "décroît ↘"], ["0", "moins l'infini", ""], ["0", "plus l'infini", "décroît ↘"],
                   ["1", "1,5", ""]], "variations are", rows)
    page = page_of("area", "AIRX(0,2,2)", "X^2-1")
    check(formulas(page) == ["msubsup[∫02](msup[X2]−1)dX≈1"], "an area is", formulas(page))
    page = page_of("own", "DEFFON=2*X+1", "FON(3)")
    check(formulas(page) == ["FON(X)=2×X+1", "FON(3)=7"], "an own function is", formulas(page))
    page = page_of("flat", "INCX(0,10,5)", "SIN(X)^2+COS(X)^2")
    check("plus petite valeur 1 en" in text_of(page.find(f".//{S}desc")), "values that rounding alone parts aren't drawn")
    page = page_of("flat but ends", "INCX(0,1,3)", "1+(X-1)*INT(ABS(X-1)+0.02)+X*10^-17")
    check(len(page.findall(f".//{S}text")) < 40, "a curve that is flat but for its ends has", len(page.findall(f".//{S}text")), "labels")
    data(page_of("close", "STATX(10000000000000000;10000000000000002)"), "Données STATX, ligne 1", 2, "Résultats STATX, ligne 1", 2)
    check(page_of("wide", "STATXY(1,10^153;2,3*10^153)").find(f".//{S}circle") is not None, "large values aren't drawn")
    page = page_of("below", "STATXY(1,2;2,1;3,0)")
    check("Y = -1 X + 3, environ" in text_of(page.find(f".//{S}desc")), "a line is", text_of(page.find(f".//{S}desc")))
    page = page_of("minus", "STATXY(1,-2;2,-1;3,0)")
    check("Y = 1 X - 3, environ" in text_of(page.find(f".//{S}desc")), "a line is", text_of(page.find(f".//{S}desc")))
    page = page_of("pole", "INCX(-1,0.25,9)", "1/(X-0.1)")
    check("sortent du dessin" in text_of(page.find(f".//{S}desc")), "a pole isn't told")


def data(page, caption, rows, results, dots):
    """A table of data with its caption and rows, the results below it, the dots or bars of its drawing."""
    tables = {text_of(t.find(f"{X}caption")): t for t in page.iter(f"{X}table")}
    check(caption in tables and len(tables[caption].findall(f"{X}tbody/{X}tr")) == rows, caption, "is", list(tables))
    check(results is None or results in tables, results, "is missing")
    drawn = len(page.findall(f".//{S}circle")) + len(page.findall(f".//{S}line[@class='baton']"))
    check(drawn == dots, caption, "has", drawn, "dots and bars")


def main():
    large_stack()
    calc, property_jobs = sys.argv[1:3]
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        small_sheets(calc, folder)
        count = 0
        for name, sheet, path in sheets.pages(calc, property_jobs, 60, folder):
            look(name, sheet, path)
            count += 1
    check(count >= 72, "only", count, "pages")
    print("\n".join(faults + [f"{count} pages, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
