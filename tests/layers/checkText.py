"""Rules that the text of a file tells, held against all files.

    checkText.py SOURCE_DIR

Loops in an .inline run over the parts of a value: the bound is a constant, or the value's own count of them. Reports quoted in a header are rows of
docs/checks.md. Expectations state one fact each. Loops over random inputs tell their run.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
failures = []
counts = {"loops": 0, "reports": 0, "expectations": 0}


def fail(file, text):
    failures.append(f"{file.relative_to(ROOT)}: {text}")


def check_loops(file):
    text = re.sub("//.*", "", file.read_text())
    bounds = "|".join([r"\d+", "[A-Z_]+", r"_nb\w+", *re.findall(r"\bint (\w+)[,>]", text)])  # these of templates
    header = file.with_suffix(".h")
    arrays = re.findall(r"\b(_\w+)\[", header.read_text()) if header.is_file() else []
    for head in re.findall(r"\b(?:for \(.*|while \(.*|do$)", text, re.M):
        counts["loops"] += 1
        over_array = re.fullmatch(r"for \( .* : (\w+) \)", head)
        if not re.fullmatch(rf"for \( int (\w+) = 0; \1 < (?:{bounds}); .* \)", head) and not (
                over_array and over_array[1] in arrays):
            fail(file, f"an .inline has no loop but over the parts of a value: {head}")


def read_table():
    page = (ROOT / "docs/checks.md").read_text()
    return {(path, line, text.replace("\\|", "|"))
            for path, line, text in re.findall(r"^\| `(\S+)` \| (\w+) \| `(.*?)` \|", page, re.M)}


def check_reports(file):
    """"condition" or "condition" (path, line n); without a path it is the class's own file, or one named before."""
    for comment in re.findall(r"(?:^ */// .*\n)+", file.read_text(), re.M):
        _, _, told = re.sub(r"\s*///\s*", " ", comment).partition("eports")
        place = re.match(r"[^\"(]* from (src/[\w/.]+)", told)
        for text, given in re.findall(r'(?<!level )"([^"]+)"(?: \((src/.*?)\))?', told):
            path = given.split(",")[0] if given else place[1].rstrip(",.") if place else ""
            lines = re.findall(r"line (\d+)", given) or [None]
            for line in lines:
                counts["reports"] += 1
                if not any(row[2] == text and (row[0] == path if path else pathlib.Path(row[0]).stem == file.stem)
                           and line in (None, row[1]) for row in table):
                    fail(file, f'docs/checks.md has no row "{text}" ({path or file.stem}, line {line or "any"})')


def find_end(text, start):
    """The place of the parenthesis that closes the one at `start`, and those of `mark` in between on the first level."""
    depth, marks = 0, []
    for found in re.finditer(r'"(?:\\.|[^"\\])*"|[(){}\[\]]|&&|\|\|', text[start:]):
        if found[0] in "([{":
            depth += 1
        elif found[0] in ")]}":
            depth -= 1
            if depth == 0:
                return marks
        elif depth == 1:
            marks.append(found[0])
    return marks


def check_expectations(file):
    text = re.sub("//.*", "", file.read_text())
    for found in re.finditer(r"\b(?:EXPECT|ASSERT)_(TRUE|FALSE)(?=\()", text):
        counts["expectations"] += 1
        joined = "&&" if found[1] == "TRUE" else "||"
        marks = find_end(text, found.end())
        if joined in marks and len(set(marks)) == 1:
            line = text[:found.start()].count("\n") + 1
            fail(file, f"line {line} joins facts by {joined}: one fact, one expectation")
    for loop in re.findall(r"for \( int \w+ = 0; \w+ < \d{3,};.*(?=\n *\{\n(?:.+\n)*?.*\brandom\b)", text):
        fail(file, f"a loop over random inputs goes through random.runs(), which tells the run: {loop}")


table = read_table()
for file in sorted((ROOT / "src").rglob("*.inline")):
    check_loops(file)
for file in sorted((ROOT / "src").glob("*/*.h")):
    check_reports(file)
for file in sorted((ROOT / "tests").rglob("*.[ch]*")):
    if file.suffix in (".cpp", ".h"):
        check_expectations(file)
print("\n".join(failures))
print(counts)
sys.exit(bool(failures) or 0 in counts.values() or len(table) < 30)
