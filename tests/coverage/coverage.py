# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""Judges what gcovr measured: coverage.py REPORT EXCEPTIONS. Started by scripts/proofs/coverage.sh."""

import collections
import json
import re
import sys

LEAST_BRANCHES = 0.97
SOMETIMES = "sometimes"

Place = collections.namedtuple("Place", "path function text")


def function_names(report):
    """The line of each function and its name alone. Lambdas belong to the function around them."""
    names = []
    for function in report["functions"]:
        if "lambda" not in function["name"]:
            name = re.sub(r"<.*>|\(anonymous namespace\)::|\[abi:\w+\]", "", function["name"]).split("(")[0]
            names.append((function["lineno"], name.split("::")[-1].split(" ")[-1]))
    return sorted(names)


class File:
    def __init__(self, report):
        self.path = report["file"]
        with open(self.path, encoding="utf-8") as file:
            self.source = file.read().splitlines()
        self.functions = function_names(report)
        lines = [line for line in report["lines"] if not line["gcovr/noncode"] and not line["gcovr/excluded"]]
        self.lines = len(lines)
        self.missing_lines = [self.place(line["line_number"]) for line in lines if line["count"] == 0]
        run = [line for line in lines if line["count"] > 0]
        self.branches = sum(len(line["branches"]) for line in run)
        self.missing_branches = collections.Counter()
        for line in run:
            missing = sum(branch["count"] == 0 for branch in line["branches"])
            if missing:
                self.missing_branches[self.place(line["line_number"])] += missing

    def place(self, number):
        before = [name for line, name in self.functions if line <= number]
        text = " ".join(self.source[number - 1].split())
        return Place(self.path, before[-1] if before else "", text)


def read_exceptions(path):
    """The number of missing branches by place, "line" for a missing line, "sometimes" for what is up to the moment.
    Blocks of lines: file, function, number or word; the line; the reason."""
    listed = {}
    with open(path, encoding="utf-8") as file:
        text = "\n".join(line for line in file.read().splitlines() if not line.startswith("#"))
    for block in filter(None, (b.strip() for b in re.split(r"\n\s*\n", text))):
        lines = block.splitlines()
        found = re.fullmatch(r"(\S+), (\S+), (line|sometimes|\d+)", lines[0])
        if not found or len(lines) < 3:
            sys.exit(f"coverage: {path}: not understood:\n{block}")
        count = int(found[3]) if found[3].isdigit() else found[3]
        listed[Place(found[1], found[2], " ".join(lines[1].split()))] = count
    return listed


class Rows:
    def __init__(self):
        self.passed = 0
        self.failed = 0

    def row(self, name, failures):
        if failures:
            self.failed += 1
            print(f"FAIL!  : {name}")
            for failure in failures:
                print(f"   {failure}")
        else:
            self.passed += 1
            print(f"PASS   : {name}")


def judge_lines(file, listed):
    """What does not run and is not listed, and what is listed and runs."""
    missing = [place for place in file.missing_lines if listed.get(place) not in ("line", SOMETIMES)]
    failures = [f"{place.function}: not run: {place.text}" for place in missing]
    for place, count in sorted(listed.items(), key=str):
        if place.path == file.path and count == "line" and place not in file.missing_lines:
            failures.append(f"{place.function}: runs, or is gone, but is listed: {place.text}")
    return failures


def judge_branches(file, listed):
    """What is not taken and not listed, and what is listed and taken."""
    failures = []
    for place, count in sorted(file.missing_branches.items()):
        if listed.get(place, 0) not in (count, SOMETIMES):
            failures.append(f"{place.function}: {count} not taken, {listed.get(place, 0)} listed: {place.text}")
    for place, count in sorted(listed.items(), key=str):
        if place.path == file.path and count not in ("line", SOMETIMES) and place not in file.missing_branches:
            failures.append(f"{place.function}: taken, or gone, but {count} listed: {place.text}")
    return failures


def share(part, whole):
    return f"{whole - part} of {whole}"


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        files = [File(report) for report in json.load(file)["files"]]
    listed = read_exceptions(sys.argv[2])
    rows = Rows()
    for file in files:
        rows.row(f"{file.path}: {share(len(file.missing_lines), file.lines)} lines", judge_lines(file, listed))
        if file.branches:
            not_taken = sum(file.missing_branches.values())
            rows.row(f"{file.path}: {share(not_taken, file.branches)} branches", judge_branches(file, listed))
    known = {file.path for file in files}
    gone = [f"{place.path}, {place.function}: {place.text}" for place in listed if place.path not in known]
    rows.row("all exceptions are of files that were measured", gone)

    branches = sum(file.branches for file in files)
    missing = sum(sum(file.missing_branches.values()) for file in files)
    too_few = [f"at least {100 * LEAST_BRANCHES:.0f} % are asked for"] if missing > branches * (1 - LEAST_BRANCHES) else []
    lines = sum(file.lines for file in files)
    rows.row(f"all files: {share(sum(len(file.missing_lines) for file in files), lines)} lines", [])
    rows.row(f"all files: {share(missing, branches)} branches, {100 * (1 - missing / branches):.1f} %", too_few)
    run = sum(len(file.missing_lines) for file in files)
    print(f"found: {share(run, lines)} lines, {share(missing, branches)} branches")
    print(f"{rows.passed} passed, {rows.failed} failed")
    sys.exit(1 if rows.failed else 0)


main()
