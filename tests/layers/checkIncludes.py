"""Reads every include of the project and holds it against the path of what is included and the table of groups in
docs/architecture.md.

    checkIncludes.py SOURCE_DIR
"""

import os
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
failures = []


def read_groups():
    """A row of the table is | group | files without extension, or a folder and / | groups right below |."""
    owner, reachable = {}, {}
    page = (ROOT / "docs/architecture.md").read_text()
    for name, files, uses in re.findall(r"^\| ([\w ]+) \| (`.*?`) \| (.*?) \|$", page, re.M):
        below = [use for use in uses.split(", ") if use]
        reachable[name] = {name}.union(*(reachable[use] for use in below))  # a group not above: KeyError
        owner.update((file, name) for file in re.findall(r"`(.*?)`", files))
    return owner, reachable


def find_group(path):
    """By path, by the nearest folder that has a row, or by name, a class together with its kernels."""
    place = path.relative_to("src")
    folders = [f"{folder}/" for folder in place.parents]
    for key in (str(place.with_suffix("")), *folders, path.stem, path.stem.removesuffix("Kernels")):
        if key in owner:
            return owner[key]
    return None


def is_public(path):
    """src/LIBRARY/FILE; what lies in a room below is internal, and what is compiled once, too."""
    return len(path.parts) == 3 and path.suffix in (".h", ".inline")


def read_includes(folder):
    """Yields the file and what stands between the quotes or brackets, with them."""
    for file in sorted((ROOT / folder).rglob("*")):
        if file.suffix in (".h", ".inline", ".imp", ".cpp"):
            for given in re.findall(r'^\s*#\s*include\s*("[^"]+"|<[^>]+>)', file.read_text(), re.M):
                yield file.relative_to(ROOT), given


def check(holds, file, given, text):
    if not holds:
        failures.append(f"{file} includes {given}: {text}")


def check_library(file, given):
    if given[0] == "<":
        check(not re.match("<(zq|base|resmgt|color|primitives)/", given), file, given, "use a relative path")
        check(given != "<iostream>", file, given, "it builds objects at load")
        return
    target = pathlib.Path(os.path.normpath(file.parent / given.strip('"')))
    check((ROOT / target).is_file(), file, given, "there is no such file")
    check(file.suffix not in (".inline", ".imp") or target != file.with_suffix(".h"), file, given,
          "a fragment is included, it does not include its header")
    check(is_public(target) or not is_public(file), file, given, "what is public includes nothing internal")
    if file == pathlib.Path("src/primitives/packages.cpp"):  # which knows all
        return
    upper, lower = find_group(file), find_group(target)
    check(upper and lower, file, given, "both need a place in the table")
    check(lower in reachable.get(upper, ()), file, given, f"{lower} is not below {upper}")
    check(target.parts[1] in (file.parts[1], "base"), file, given, "folders meet in base alone")


def check_helpers(file):
    """Helpers of a class that have external linkage merge with those of the same name in another file, in silence."""
    if file.suffix in (".imp", ".cpp") and (ROOT / file.with_suffix(".cpp")).is_file():
        if re.search(r"^namespace Detail", (ROOT / file).read_text(), re.M):
            failures.append(f"{file}: what one class alone uses stands in an unnamed namespace")


def check_client(file, given):
    named = re.match("<zq/(.*)>", given)
    check(named or not re.search(r"\b(src|base|resmgt|color|primitives)/.*\.(h|imp|inline|cpp)\W$", given), file, given,
          "public headers are included as <zq/...>")
    if named and file.parts[:2] != ("tests", "bits"):  # which look inside
        target = pathlib.Path("src") / named[1]
        check(is_public(target) and target.suffix == ".h", file, given, "it is internal")


owner, reachable = read_groups()
for file, given in read_includes("src"):
    check_library(file, given)
for file in sorted((ROOT / "src").glob("*/*")):
    check_helpers(file.relative_to(ROOT))
for folder in ("tests", "tools", "examples", "figures", "benchmarks"):
    for file, given in read_includes(folder):
        check_client(file, given)
print("\n".join(failures))
sys.exit(bool(failures) or len(owner) < 40)
