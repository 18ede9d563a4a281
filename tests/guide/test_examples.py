"""Every example in the texts for users is calculated and gives what the text says.   test_examples.py SONDE

Guide: the blocks of texts.py, calculated twice: as typed, and as they stand, since a calculated sheet
doesn't change. List of functions: "Exemple : COS(60) = 0.5", with the lines that must stand around it
after ", après ", ", avant " or ", si MA a les lignes ". README: the sheet at its top, before and after
side by side."""
import re
import sys

from sonde import Sonde
from texts import ENTRY, Example, Unrecognised, examples, function_names, read, without_result

# A line outside the examples that shows a result would never be calculated: it is refused.
RESULT = re.compile(r"\S = -?[\d$A-Z]|==")
FUNCTION_EXAMPLE = re.compile(r"Exemple(?P<radian> en radians)? : (?P<line>.+?)"
                              r"(?:, après (?P<above>\S+(?: et \S+)?)|, avant (?P<below>\S+)"
                              r"|, si MA a les lignes (?P<rows>\S+))?")
# Lines of prose that tell of a result: what a step makes heard (calculated by test_steps.py), and
# the two that explain what an example looks like.
STEP = re.compile(r"\d+\. (Tapez|Faites) .*Vous entendez")
PROSE = {"Par exemple, la ligne 2+3 = 5 veut dire : vous tapez 2+3, et = 5 s'écrit derrière."}


def stripped(lines: list[str]) -> list[str]:
    """Without blanks at the ends of lines and without empty lines at the end."""
    lines = [line.rstrip() for line in lines]
    while lines and not lines[-1]:
        lines.pop()
    return lines


def check(sonde: Sonde, name: str, example: Example) -> list[str]:
    """Calculates one example as typed and then as it stands; says what isn't as the text has it."""
    place = f"{name}:{example.line}"
    result = sonde.calculate(example.typed, {**example.options, "op": example.op})
    faults = heard_faults(place, example, result)
    runs = [(example.typed, result, example.after)]
    if example.stands:
        again = sonde.calculate(example.after, example.options)
        runs.append((example.after, again, example.after))
    return faults + [f"{place}: {sheet} gives {got['lignes']}, the text says {wanted}"
                     for sheet, got, wanted in runs if stripped(got["lignes"]) != stripped(wanted)]


def heard_faults(place: str, example: Example, result: dict) -> list[str]:
    """The box or message that the text announces must come, and no other box."""
    wanted = example.box or (example.told if example.entry == "Boîte" else "")
    boxes = {box.strip() for box in result["boites"]}
    faults = [] if boxes == ({wanted} if wanted else set()) else [f"{place}: boxes {boxes}, told {wanted!r}"]
    if example.entry == "Message":
        said = [text.strip() for text in result["messages"]]
        if not any(text == example.told or re.search(r" ?= ?" + re.escape(example.told) + "$", text)
                   for text in said):
            faults.append(f"{place}: {example.told!r} isn't heard, but {said}")
    return faults


def guide_faults(sonde: Sonde) -> tuple[int, list[str]]:
    lines = read("data/aide.txt")
    found, taken = examples(lines)
    faults = [fault for example in found for fault in check(sonde, "aide.txt", example)]
    faults += [f"aide.txt:{number + 1}: a result outside an example: {line}"
               for number, line in enumerate(lines)
               if number not in taken and RESULT.search(line) and not STEP.match(line)
               and not ENTRY.match(line) and line not in PROSE]
    return len(found), faults


def function_example(text: str, number: int) -> Example:
    """The example at the end of a line of the list of functions."""
    found = FUNCTION_EXAMPLE.fullmatch(text)
    if not found:
        raise Unrecognised(f"fonction.txt:{number}: {text}")
    above = found["above"].split(" et ") if found["above"] else []
    below = [found["below"]] if found["below"] else []
    if found["rows"]:
        above = ["DEFMA", *found["rows"].split(";"), "FIN"]
    options = {"stat_restreint": 1, **({"unite_angle": 2} if found["radian"] else {})}
    return Example(number, options, [*above, without_result(found["line"]), *below], [found["line"]])


def function_faults(sonde: Sonde) -> tuple[int, list[str]]:
    """Each line of the list has one example; its line stands in the calculated sheet."""
    faults, lines = [], read("data/fonction.txt")
    for number, line in enumerate(lines, 1):
        if line.count("Exemple") != 1:
            faults.append(f"fonction.txt:{number}: one example a line: {line}")
            continue
        example = function_example(line[line.index("Exemple"):], number)
        result = sonde.calculate(example.typed, example.options)
        if example.after[0] not in result["lignes"] or result["boites"]:
            faults.append(f"fonction.txt:{number}: {example.typed} gives {result['lignes']}")
    return len(lines), faults


def readme_faults(sonde: Sonde) -> list[str]:
    """The sheet at the top of README: what is typed on the left, the sheet then on the right, which
    stays as it is when it is calculated again. The right begins where the first line repeats itself."""
    lines = read("README.md")
    start = lines.index("```", lines.index("A sheet before and after Alt+C:")) + 1
    sheet = lines[start:lines.index("```", start)]
    column = sheet[0].index(sheet[0].split()[0], 1)
    typed = [line[:column].strip() for line in sheet if line[:column].strip()]
    after = [line[column:].strip() for line in sheet]
    if len(typed) < 5:
        return ["README.md: the sheet at the top has lost its form"]
    results = [sonde.calculate(sheet, {})["lignes"] for sheet in (typed, after)]
    return [f"README.md: {typed} gives {result}" for result in results if result != after]


def main() -> int:
    with Sonde(sys.argv[1]) as sonde:
        counted, faults = guide_faults(sonde)
        listed, more = function_faults(sonde)
        faults += more + readme_faults(sonde)
    if counted < 100 or listed < len(function_names()):
        faults.append(f"too few examples found: {counted} in the guide, {listed} in the list")
    print("\n".join(faults + [f"{counted} + {listed} examples, {len(faults)} faults"]))
    return 1 if faults else 0


sys.exit(main())
