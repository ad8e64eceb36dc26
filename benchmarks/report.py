#!/usr/bin/env python3
"""Turns two runs of the benchmark program into docs/performance.md; scripts/benchmark calls it.

    report.py --default RUN.json --widest RUN.json [--write]

Each run is the program's JSON output with aggregates; the build folder around it says how it was compiled. Without
--write the table is printed. What the document shows is in goals.json; remarks.json explains, by "operation/count",
what keeps a goal from being met. The medians are kept in results/, one file per processor model.
"""

import argparse
import datetime
import json
import pathlib
import platform
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
TARGETS = ("default", "widest")
PEER_PACKAGES = {"GLM": "libglm-dev", "Eigen": "libeigen3-dev", "Imath": "libimath-dev", "cglm": "libcglm-dev",
                 "Bullet": "libbullet-dev", "meshoptimizer": "libmeshoptimizer-dev",
                 "Google Benchmark": "libbenchmark-dev"}
NO_PEERS = ("ours", "plain", "floor")


def read_medians(path):
    """The median ns per item of each row, and the rows whose repetitions scatter."""
    medians, unsteady = {}, []
    for run in json.loads(path.read_text())["benchmarks"]:
        if run.get("error_occurred"):
            sys.exit(f"report: {run['name']}: {run['error_message']}")
        name = run["run_name"]
        count = int(name.rsplit("/", 1)[1])
        if run.get("aggregate_name") == "median":
            medians[name] = run["cpu_time"] / count
        elif run.get("aggregate_name") == "cv" and run["cpu_time"] > 0.05:
            unsteady.append(name)
    return medians, unsteady


def run_command(*command):
    return subprocess.run(command, check=False, capture_output=True, text=True).stdout.strip()


def read_cache(folder):
    entries = re.findall(r"^(\w+):\w+=(.*)$", (folder / "CMakeCache.txt").read_text(), re.MULTILINE)
    return dict(entries)


def describe_build(folder):
    cache = read_cache(folder)
    compiler = cache["CMAKE_CXX_COMPILER"]
    flags = f"{cache['CMAKE_CXX_FLAGS']} {cache['CMAKE_CXX_FLAGS_RELEASE']} -ffp-contract=off".split()
    version = run_command(compiler, "--version").splitlines()[0]
    native = ""
    if "-march=native" in flags:
        match = re.search(r"-march=\s+(\S+)", run_command(compiler, "-march=native", "-Q", "--help=target"))
        native = f", {match.group(1)} to the compiler" if match else ""
    return {"compiler": re.sub(r"^\S*/", "", version), "flags": f"`{' '.join(flags)}`{native}"}


def describe_machine():
    info = pathlib.Path("/proc/cpuinfo").read_text()
    model = re.search(r"^model name\s*:\s*(.*)$", info, re.MULTILINE)
    flags = re.search(r"^flags\s*:\s*(.*)$", info, re.MULTILINE)
    have = flags.group(1).split() if flags else []
    levels = [name for name in ("sse2", "avx", "avx2", "fma", "avx512f", "avx512dq", "avx512bw", "avx512vl") if name in have]
    return {"cpu": model.group(1) if model else platform.machine(),
            "cores": len(re.findall(r"^processor\s*:", info, re.MULTILINE)),
            "levels": levels}


def describe_peers():
    peers = {}
    for name, package in PEER_PACKAGES.items():
        version = run_command("dpkg-query", "-W", "-f", "${Version}", package)
        peers[name] = re.sub(r"^\d+:|[+-].*$", "", version) or "?"
    return peers


def format_ns(value):
    if value is None:
        return "–"
    return f"{value:.0f}" if value >= 100 else f"{value:.1f}" if value >= 10 else f"{value:.2f}"


def format_ratio(value):
    return "–" if value is None else f"{value:.2f}" if value >= 0.2 else f"{value:.3f}"


def join(values):
    """One cell for both targets."""
    return " / ".join(values)


class Row:
    """One operation on one number of items, with the times of all contenders for both targets."""

    def __init__(self, spec, medians):
        self.spec = spec
        self.name = f"{spec['operation']}/{spec['count']}"
        self.times = []
        for target in TARGETS:
            pattern = re.compile(rf"^{spec['operation']}/([^/]+)/{spec['count']}$")
            matches = ((pattern.match(name), ns) for name, ns in medians[target].items())
            self.times.append({match.group(1): ns for match, ns in matches if match})

    def get_ours(self, target):
        return self.times[target].get("ours")

    def find_fastest(self, target, against):
        """Name and time of the fastest contender of a kind."""
        times = self.times[target]
        names = [against]
        if against == "peer":
            names = self.spec.get("peers") or [name for name in times if name not in NO_PEERS]
        elif against in self.spec.get("kinds", {}):
            names = self.spec["kinds"][against]
        return min(((times[name], name) for name in names if name in times), default=(None, None))

    def compute_ratio(self, target, against):
        ours, opponent = self.get_ours(target), self.find_fastest(target, against)[0]
        return ours / opponent if ours and opponent else None

    def judge(self, goal):
        """The ratios of a goal and whether each is met; None where there is no limit or no measurement."""
        ratios = [self.compute_ratio(target, goal["against"]) for target in range(2)]
        met = [None if limit is None or ratio is None else ratio <= limit
               for ratio, limit in zip(ratios, goal["limits"])]
        return ratios, met

    def make_cells(self):
        ours = [self.get_ours(target) for target in range(2)]
        peers = [self.find_fastest(target, "peer") for target in range(2)]
        peer_texts = [f"{name} {format_ns(ns)}" if name else "–" for ns, name in peers]
        floors = [self.times[target].get("floor") for target in range(2)]
        return [f"{self.spec['says']}", f"{self.spec['count']:,}", join(map(format_ns, ours)),
                peer_texts[0] if peer_texts[0] == peer_texts[1] == "–" else join(peer_texts),
                join(format_ratio(self.compute_ratio(target, "peer")) for target in range(2)),
                join(format_ratio(self.compute_ratio(target, "plain")) for target in range(2)),
                join(map(format_ns, floors)) if any(floors) else "",
                "<br>".join(self.format_goal(goal) for goal in self.spec.get("goals", []))]

    def format_goal(self, goal):
        ratios, met = self.judge(goal)
        verdicts = ["met" if is_met else "**not met**" if is_met is False else "not measured" if limit else ""
                    for is_met, limit in zip(met, goal["limits"])]
        verdict = verdicts[0] if verdicts[0] == verdicts[1] else join(verdicts) if all(verdicts) else "".join(verdicts)
        if goal.get("stretch") and all(ratio is not None and ratio <= goal["stretch"] for ratio in ratios):
            verdict += f", and the {goal['stretch']:g} beyond it"
        limits = ["–" if limit is None else f"{limit:g}" for limit in goal["limits"]]
        return f"{goal['against']} {join(map(format_ratio, ratios))}, goal {join(limits)}: {verdict}"


def write_pairs(pairs, medians):
    """What the array forms are worth."""
    lines = ["", "## One by one or all at once", "",
             "The array forms give the same bits as the single calls. Use them wherever there are more than a handful.", "",
             "| operation | one call, ns | in an array, ns | times as fast |", "|---|---:|---:|---:|"]
    for pair in pairs:
        times = [[medians[target].get("/ours/".join(pair[form].split("/"))) for target in TARGETS]
                 for form in ("single", "array")]
        factors = [f"{single / array:.1f}" if single and array else "–" for single, array in zip(*times)]
        lines.append(f"| {pair['says']} | {join(map(format_ns, times[0]))} | {join(map(format_ns, times[1]))} "
                     f"| {join(factors)} |")
    return lines


def write_document(groups, pairs, machine, builds, peers, date, remarks):
    lines = ["# Performance", "",
             "Written by `scripts/benchmark`; do not edit. How the rows are made: [benchmarks/README.md](../benchmarks/README.md).",
             "The medians of every contender are kept in `benchmarks/results`.", "",
             "Each cell has two values: compiled for the default target / for this very processor. Times are the median ns",
             "per item. *Peer* is the fastest library that does the same, *plain* the rule in straight scalar C++, *floor* a",
             "pass that only reads the same bytes; a ratio is our time by theirs, so below 1 we are faster. Goals compare",
             "calls into a compiled library with code that is inlined. The array forms choose their instructions at run time,",
             "so theirs hardly differ; what changes is what the compiler makes of their opponents.", "",
             "| | |", "|---|---|",
             f"| processor | {machine['cpu']}, {machine['cores']} cores; {', '.join(machine['levels'])} |"]
    for target, words in zip(TARGETS, ("default target", "widest target")):
        lines.append(f"| {words} | {builds[target]['compiler']}; {builds[target]['flags']} |")
    lines.append(f"| peers | {', '.join(f'{name} {version}' for name, version in peers.items())} |")
    lines.append(f"| date | {date} |")

    verdicts = [is_met for _, rows in groups for row in rows for goal in row.spec.get("goals", [])
                for is_met in row.judge(goal)[1] if is_met is not None]
    lines += ["", f"Of {len(verdicts)} goals, each target counted by itself, {sum(verdicts)} are met; the end of this page"
              " is about the others."]

    lines += pairs
    unmet, missing = [], []
    for title, rows in groups:
        lines += ["", f"## {title}", "",
                  "| operation | items | ours, ns | fastest peer, ns | ours / peer | ours / plain | floor, ns | goal |",
                  "|---|---:|---:|---|---:|---:|---:|---|"]
        for row in rows:
            lines.append("| " + " | ".join(row.make_cells()) + " |")
            if row.get_ours(0) is None:
                missing.append(row.name)
            if any(is_met is False for goal in row.spec.get("goals", []) for is_met in row.judge(goal)[1]):
                unmet.append((title, row))

    if unmet:
        lines += ["", "## Goals that are not met"]
        for title, row in unmet:
            lines += ["", f"**{title}: {row.spec['says']}, {row.spec['count']:,}.** " +
                      " ".join(f"{row.format_goal(goal)}." for goal in row.spec["goals"]
                               if False in row.judge(goal)[1]),
                      remarks.get(row.name, "Not explained yet.")]
    return "\n".join(lines) + "\n", [row.name for _, row in unmet if row.name not in remarks], missing


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--default", type=pathlib.Path, required=True)
    parser.add_argument("--widest", type=pathlib.Path, required=True)
    parser.add_argument("--write", action="store_true")
    arguments = parser.parse_args()

    paths = {"default": arguments.default, "widest": arguments.widest}
    medians, unsteady = {}, set()
    for target, path in paths.items():
        medians[target], rows = read_medians(path)
        unsteady.update(f"{name} ({target})" for name in rows)
    spec = json.loads((HERE / "goals.json").read_text())
    goals = spec["groups"]
    remarks = json.loads((HERE / "remarks.json").read_text())
    groups = [(group["title"], [Row(spec, medians) for spec in group["rows"]]) for group in goals]

    if not arguments.write:
        for _, rows in groups:
            for row in rows:
                if any(row.times):
                    print(row.name, *row.make_cells()[2:], sep=" | ")
                    for target, times in zip(TARGETS, row.times):
                        print(f"    {target}:", ", ".join(f"{name} {format_ns(ns)}" for name, ns in times.items()))
        return

    known = {f"{spec['operation']}/{spec['count']}" for group in goals for spec in group["rows"]}
    for name in sorted({re.sub(r"/[^/]+/", "/", name) for name in medians["default"]} - known):
        print(f"report: {name} has no place in goals.json", file=sys.stderr)

    machine = describe_machine()
    builds = {target: describe_build(path.parent) for target, path in paths.items()}
    peers = describe_peers()
    date = datetime.datetime.now(datetime.timezone.utc).date().isoformat()
    text, unexplained, missing = write_document(
        groups, write_pairs(spec["pairs"], medians), machine, builds, peers, date, remarks)
    (HERE.parent / "docs" / "performance.md").write_text(text)

    results = HERE / "results"
    results.mkdir(exist_ok=True)
    slug = re.sub(r"[^a-z0-9]+", "-", machine["cpu"].lower()).strip("-")
    kept = {"machine": machine, "date": date, "builds": builds, "peers": peers,
            "medianNsPerItem": {target: {name: float(f"{ns:.4g}") for name, ns in sorted(medians[target].items())}
                                for target in TARGETS}}
    (results / f"{slug}.json").write_text(json.dumps(kept, indent=1) + "\n")

    for words, names in (("not explained in remarks.json", unexplained), ("not measured", missing),
                         ("unsteady, above 5 %", sorted(unsteady))):
        if names:
            print(f"report: {words}: {', '.join(names)}", file=sys.stderr)


if __name__ == "__main__":
    main()
