"""Random formulas of matrices, calculated by the program and by this file's own arithmetic: where the program gives
another value and reports no error, the check must have something to say of the line.
test_matrices.py VOXTAB_CALC VOXTAB_SONDE [COUNT]"""
import json
import pathlib
import random
import re
import subprocess
import sys
from fractions import Fraction

sys.path[:0] = [str(pathlib.Path(__file__).parents[1] / folder) for folder in ("guide", "support")]
from sonde import Sonde  # noqa: E402
from one_start import large_stack  # noqa: E402

NAMES = ["MA", "MB", "MC", "MD", "ME", "MF", "MG", "MH"]
LETTERS = "ABCDEFGH"
NUMBERS = ["2", "5", "0.7", "7", "11", "1.3", "13", "17"]


def values_of(size, seed):
    """Values for all names: matrices of that size, and letters."""
    rng = random.Random(seed)
    table = {name: tuple(tuple(rng.randint(-3, 5) for _ in range(size)) for _ in range(size)) for name in NAMES}
    return table | {letter: rng.choice((-1, 1)) * (3.3 + 1.9 * i) for i, letter in enumerate(LETTERS)}


# What is right with matrices of two sizes is no chance.
SETS = [values_of(2, 5), values_of(3, 8)]


def head(values):
    """The lines that give the values."""
    lines = []
    for name, value in values.items():
        if isinstance(value, tuple):
            lines += [f"DEF{name}", *(",".join(map(str, row)) for row in value), "FIN"]
        else:
            lines.append(f"{name}={value}")
    return lines


class NoValue(Exception):
    """What mathematics has no value for."""


def product(a, b):
    return tuple(tuple(sum(x * row[j] for x, row in zip(line, b)) for j in range(len(b))) for line in a)


def each(a, f):
    return tuple(tuple(f(x) for x in row) for row in a) if isinstance(a, tuple) else f(a)


def minor(a, i, j):
    return tuple(row[:j] + row[j + 1:] for k, row in enumerate(a) if k != i)


def determinant(a):
    return sum((-1) ** j * x * determinant(minor(a, 0, j)) for j, x in enumerate(a[0])) if len(a) > 1 else a[0][0]


def inverse(a):
    d, n = determinant(a), range(len(a))
    if d == 0:
        raise NoValue
    return tuple(tuple(Fraction((-1) ** (i + j) * determinant(minor(a, j, i))) / d for j in n) for i in n)


def combined(sign, a, b):
    """The value of two operands; a sum of a matrix and a number has none."""
    if sign == "/":
        if isinstance(b, tuple) or b == 0:
            raise NoValue
        return each(a, lambda x: Fraction(x) / b)
    if sign == "*":
        if isinstance(a, tuple) and isinstance(b, tuple):
            return product(a, b)
        return each(a, lambda x: x * b) if isinstance(a, tuple) else each(b, lambda x: x * a)
    if isinstance(a, tuple) != isinstance(b, tuple):
        raise NoValue
    f = (lambda x, y: x + y) if sign == "+" else (lambda x, y: x - y)
    return tuple(tuple(map(f, *rows)) for rows in zip(a, b)) if isinstance(a, tuple) else f(a, b)


def power(a, n):
    return a if n == 1 else combined("*", power(a, n - 1), a)


LEVEL = {"+": 1, "-": 1, "*": 2, "/": 2}


class Operands:
    """The names and numbers of one formula: each another one, or any."""

    def __init__(self, rng, different):
        self.left = {kind: list(names) for kind, names in (("matrix", NAMES), ("letter", LETTERS), ("number", NUMBERS))}
        self.rng, self.different = rng, different

    def take(self):
        names = self.left[self.rng.choice(("matrix", "matrix", "letter", "number"))]
        name = names.pop(0) if self.different else self.rng.choice(names[:3])
        return name, [values.get(name) if name[0].isalpha() else Fraction(name) for values in SETS]


def formula(rng, depth, operands):
    """A formula, how strongly it binds, and its values."""
    kind = rng.random()
    if depth == 0 or kind < 0.2:
        name, values = operands.take()
        return name, 4, values
    text, level, values = formula(rng, depth - 1, operands)
    if kind < 0.36:
        name, f = rng.choice((("DETMAT", determinant), ("INVMAT", inverse)))
        if not isinstance(values[0], tuple):
            raise NoValue
        return f"{name}({text})", 4, [f(v) for v in values]
    if kind < 0.43:
        return f"(-{text if level > 1 else f'({text})'})", 4, [each(v, lambda x: -x) for v in values]
    if kind < 0.53:
        n = rng.choice((2, 3))
        return f"{text if level > 3 else f'({text})'}^{n}", 3, [power(v, n) for v in values]
    sign = rng.choice("++--***/")
    right = formula(rng, depth - 1, operands)
    mine = LEVEL[sign]
    b = right[0] if right[1] > mine else f"({right[0]})"
    return (text if level >= mine else f"({text})") + sign + b, mine, [combined(sign, v, w) for v, w in zip(values, right[2])]


def lines(rng, count):
    """Formulas with their values, as they are typed: stored, or alone; some with a sign in front."""
    made = {}
    while len(made) < count:
        try:
            text, level, values = formula(rng, rng.randint(1, 3), Operands(rng, len(made) % 2 == 0))
        except NoValue:
            continue
        if not re.search("M[A-H]", text):
            continue
        if rng.random() < 0.1 and level > 1:
            text, values = "-" + text, [each(v, lambda x: -x) for v in values]
        stored = ("MI=", "MI=", "MI=", "") if isinstance(values[0], tuple) else ("X=", "")
        made[rng.choice(stored) + text] = values
    return made


def by_chance(text):
    """Operands that stand there twice or signs and inverses that cancel out may make a wrong way come out right."""
    operands = re.findall(r"M?[A-H]\b|[0-9.]+", re.sub(r"\^\d|^MI=|DETMAT|INVMAT", " ", text))
    return len(operands) != len(set(operands)) or re.search(r"(^|=|\()-|INVMAT\(INVMAT", text) is not None


def shown(line):
    """The value that a calculated line shows; None for an error."""
    if re.search(r" =[-0-9.,;INF]+ =\d,\d$", line):
        return tuple(tuple(float(x) for x in row.split(",")) for row in line.rsplit(" =", 2)[1].split(";"))
    number = re.fullmatch(r".* = (-?[0-9.]+)", line)
    return float(number[1]) if number else None


def same(value, seen):
    if isinstance(value, tuple) != isinstance(seen, tuple):
        return False
    if isinstance(value, tuple):
        return all(same(x, y) for xs, ys in zip(value, seen) for x, y in zip(xs, ys))
    return abs(float(value) - seen) <= 1e-6 * max(1.0, abs(float(value)))


def results(sonde, text):
    """What the line shows with each set of values; None where it is an error."""
    return [shown(sonde.run({"text": "\r\n".join([*head(values), text]), "nombre_decimal": 9})["text"].split("\r\n")[-1])
            for values in SETS]


def findings(program, sheet):
    """What is probably wrong by the check, by line."""
    done = subprocess.run([program, "--verifier", "--json", "-"], input=sheet, capture_output=True, text=True, encoding="utf-8")
    found = [json.loads(line) for line in done.stdout.splitlines()]
    return {finding["ligne"]: finding for finding in found if finding["gravite"] == "faux probable"}


def main(calc, probe, count):
    large_stack()
    made, start = lines(random.Random(20260101), count), head(SETS[0])
    told = findings(calc, "\n".join([*start, *made]) + "\n")
    faults, silent, proposals = [], 0, 0
    with Sonde(probe) as sonde:
        for number, (text, values) in enumerate(made.items(), len(start) + 1):
            seen, finding = results(sonde, text), told.get(number)
            right = None not in seen and all(map(same, values, seen))
            silent += right and not finding
            if None not in seen and right == bool(finding) and not (right and by_chance(text)):
                faults.append(f"{text} gives {seen}, told: {finding and finding['phrase']}")
            if finding and finding["propose"]:
                proposals += 1
                if not all(s is not None and same(v, s) for v, s in zip(values, results(sonde, finding["propose"]))):
                    faults.append(f"{text}: {finding['propose']} is proposed, which is something else")
    print("\n".join([*faults[:60], f"{len(made)} lines, {silent} right and silent, {proposals} proposals, {len(faults)} faults"]))
    return 1 if faults or silent < count // 10 or proposals < count // 10 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], int(sys.argv[3]) if len(sys.argv) > 3 else 3000))
