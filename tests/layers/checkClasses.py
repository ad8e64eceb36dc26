"""Holds the lists of classes against each other: the public headers, forward.h of each folder, the table of README.md and
the table of groups in docs/architecture.md.

    checkClasses.py SOURCE_DIR
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
CLASS = r"^(?:class|struct)(?: (ZQ_\w+_API))? (\w+)"
failures = []


def check(holds, text):
    if not holds:
        failures.append(text)


def read(path):
    return (ROOT / path).read_text()


def outside_of_inner_namespaces(text):
    return re.sub(r"^namespace (?:Detail|ZqInit)$.*?^\} // namespace \w+$", "", text, flags=re.M | re.S)


readme = read("README.md").partition("## What is in it")[2].partition("\n## ")[0]
shown = set(re.findall(r"`(\w+)`", "".join(re.findall(r"^\| (`.*?`) \|", readme, re.M))))
groups = set(re.findall(r"`(?:\w+/)?(\w+)`", "".join(re.findall(r"^\| [\w ]+ \| (`.*?`) \|", read("docs/architecture.md"), re.M))))

everywhere = set()
for folder in ("base", "primitives", "color"):
    declared = {name: api for api, name in re.findall(CLASS + ";", read(f"src/{folder}/forward.h"), re.M)}
    defined = {}
    for header in sorted((ROOT / "src" / folder).glob("*.h")):
        text = outside_of_inner_namespaces(header.read_text())
        found = {name: api for api, name in re.findall(CLASS + r"(?: :.*)?$", text, re.M)}
        defined.update(found)
        if folder != "base" and found:
            check(header.stem in groups, f"{header.name}: no place in the table of docs/architecture.md")
            for name in sorted(found.keys() - shown):
                failures.append(f"{name}: no row in the table of README.md")
    for name in sorted(defined.keys() | declared.keys()):
        check(defined.get(name) == declared.get(name),
              f"{name}: defined with '{defined.get(name)}' in src/{folder}, declared with '{declared.get(name)}' in forward.h")
    everywhere.update(defined)
for name in sorted(shown - everywhere):
    failures.append(f"README.md shows {name}, which no public header defines")
for name in sorted(groups):
    check(any((ROOT / "src").rglob(f"{name}.*")), f"docs/architecture.md gives {name} a place, and there is no such file")
print("\n".join(failures))
sys.exit(bool(failures) or len(everywhere) < 50)
