"""Has Gappa prove the error bound of a plane's value, from the order of operations in the source.

    viewVolume.py SOURCE_DIR [GAPPA]

Reads sumTerms() and the factors of its bound from src/primitives/geViewVolume.imp, and proves for float and double,
denormal numbers included: before the last rounding the sum is off by at most

    slack * u * ( PRODUCT_ROUNDING * ( |px| + |py| + |pz| ) + OFFSET_ROUNDING * |d| ) + UNDERFLOW_ERROR

where px, py and pz are the exact products, which are rounded on their way in, and d is a number of the type.

The sum has two parts of two terms each. Rounding commutes with the multiplication by a power of two as long as nothing
underflows, so that the larger term of a part may be taken to lie between 1 and 2, the other one anywhere below it, of
either sign. Where there is underflow, every scale is proved by itself, from the smallest denormal number upwards, until
nothing that is rounded can be denormal and count.
"""

import ast
import pathlib
import re
import subprocess
import sys

SOURCE = pathlib.Path(sys.argv[1]) / "src/primitives/geViewVolume.imp"
GAPPA = sys.argv[2] if len(sys.argv) > 2 else "gappa"
text = SOURCE.read_text()


def find(pattern):
    found = re.search(pattern, text)
    if not found:
        sys.exit(f"{SOURCE}: no line like {pattern}")
    return found[1]


def factor(name):
    """How many units of roundoff."""
    given = find(rf"constexpr T {name} = (.*?);")
    if not re.fullmatch(r"(\d+ \* )?UNIT_ROUNDOFF<T>", given):
        sys.exit(f"{name} = {given}: not a number of UNIT_ROUNDOFF")
    return int(given.split()[0]) if " " in given else 1


expression = ast.parse(find(r"inline Value sumTerms\(.*\)\n\{\n\s*return (.*?);"), mode="eval").body
parameters = find(r"inline Value sumTerms\((.*)\)").replace("Value ", "").replace(" ", "").split(",")
slack = find(r"constexpr T BOUND_SLACK = T\( 1 \) \+ T\( 1 \) / (\d+);")
smallest = int(find(r"constexpr T UNDERFLOW_ERROR = (\d+) \* SMALLEST_NORMAL<T>;"))
factors = {name: factor("OFFSET_ROUNDING" if name == parameters[3] else "PRODUCT_ROUNDING") for name in parameters}


def leaves(node):
    return [node.id] if isinstance(node, ast.Name) else leaves(node.left) + leaves(node.right)


def as_given(node):
    """What is computed: each operation is rounded, each product on its way in."""
    if isinstance(node, ast.Name):
        return node.id if node.id == parameters[3] else f"rnd({node.id})"
    if not isinstance(node.op, ast.Add):
        sys.exit("sumTerms() is not a sum")
    return f"rnd({as_given(node.left)} + {as_given(node.right)})"


def prove(script):
    run = subprocess.run([GAPPA], input=script, capture_output=True, text=True)
    if run.returncode != 0:
        sys.exit(f"not proved:\n{script}\n{run.stderr[:2000]}")


def prove_part(part, precision, lowest):
    """Lowest: the exponent of the smallest denormal number."""
    terms = leaves(part)
    if len(terms) != 2:
        sys.exit(f"a part of the sum has {len(terms)} terms: the proof is one for two")
    nb_proved = 0
    offset = parameters[3]
    # below all scales nothing but the underflow is left
    tiny = f"[-1b{lowest},1b{lowest}]"
    underflow = f"{smallest} * 1b{lowest + precision - 1} * 1b-2"
    rounding = f"@rnd = float<{'ieee_32' if precision == 24 else 'ieee_64'},ne>;\n"
    error = f"error = {as_given(part)} - ({terms[0]} + {terms[1]});\n"
    prove(f"{rounding}{error}{{ {terms[0]} in {tiny} /\\ {terms[1]} in {tiny} -> |error| - {underflow} <= 0 }}\n")
    for large, small in (terms, terms[::-1]):
        # the last scale stands for all above
        for scale in [*range(lowest, lowest + 2 * precision + 4), 0]:
            one, two = f"1b{scale}", f"1b{scale + 1}"
            for sign in (1, -1):
                # a number of the type is a rounded one
                given = rounding + (f"{offset} = rnd({offset}_);\n" if offset in terms else "") + error
                variable = {name: f"{name}_" if name == offset else name for name in terms}
                magnitude = {large: large, small: small if sign > 0 else f"-{small}"}
                bound = " + ".join(f"{factors[name]} * ({magnitude[name]})" for name in terms)
                given += f"bound = 1b-{precision} * (1 + 1/{slack}) * ({bound}) + {underflow};\n"
                lower, upper = ("0", two) if sign > 0 else (f"-{two}", "0")
                prove(f"{given}{{ {variable[large]} in [{one},{two}] /\\ {variable[small]} in [{lower},{upper}] ->\n"
                      f"  error - bound <= 0 /\\ error + bound >= 0 }}\n$ {variable[large]}, {variable[small]};\n")
                nb_proved += 1
    return nb_proved


if not isinstance(expression, ast.BinOp) or not isinstance(expression.op, ast.Add):
    sys.exit("sumTerms() is not a sum")
total = 0
for precision, lowest in ((24, -149), (53, -1074)):
    for part in (expression.left, expression.right):
        total += prove_part(part, precision, lowest)
print(f"{total} cases proved: {ast.unparse(expression)}")
