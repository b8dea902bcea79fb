# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""Writes sources that hold many mutants at once, one of which the environment can switch on."""

import re


class Range:
    """What stands at source[start:end], and how it is wrapped."""

    def __init__(self, start, end):
        self.start = start
        self.end = end
        self.edits = []  # (number of the mutant, edit)
        self.children = []
        self.constant = ""  # The name of a constexpr variable, which becomes const.


class Schema:
    """The mutated text of one file; places maps its parts back to the mutants that they belong to."""

    def __init__(self, source, mutants):
        self.source = source
        self.places = []  # (start, end, set of numbers, name of the constant), in the mutated text
        ranges = {}
        for mutant in mutants:
            for edit in mutant.edits:
                place = ranges.setdefault((edit.start, edit.end), Range(edit.start, edit.end))
                place.edits.append((mutant.number, edit))
        for start, end, name in source.constants:
            if any(start <= first and last <= end for first, last in ranges):
                ranges.setdefault((start, end), Range(start, end)).constant = name

        root = Range(0, len(source.text))
        stack = [root]
        for place in sorted(ranges.values(), key=lambda r: (r.start, -r.end)):
            while stack[-1].end < place.end or stack[-1].end <= place.start:
                stack.pop()
            stack[-1].children.append(place)
            stack.append(place)
        self.parts = []
        self.length = 0
        self.write_inner(root)
        self.text = "".join(self.parts)

    def write(self, text):
        self.parts.append(text)
        self.length += len(text)

    def write_inner(self, place):
        position = place.start
        for child in place.children:
            self.write(self.source.text[position : child.start])
            self.write_range(child)
            position = child.end
        rest = self.source.text[position : place.end]
        self.write(rest)

    def write_range(self, place):
        start = self.length
        if place.constant:
            self.write_constant(place)
        else:
            self.write_wrapped(place, list(place.edits))
        numbers = {number for number, _ in place.edits}
        if place.constant:
            numbers |= self.numbers_below(place)
        self.places.append((start, self.length, numbers, place.constant))

    def numbers_below(self, place):
        numbers = set()
        for child in place.children:
            numbers |= {number for number, _ in child.edits} | self.numbers_below(child)
        return numbers

    def write_constant(self, place):
        head = self.source.text[place.start : place.children[0].start]
        self.write(head.replace("constexpr ", "const ", 1))
        place.start = place.children[0].start
        self.write_inner(place)

    def write_wrapped(self, place, edits):
        if not edits:
            self.write_inner(place)
            return
        number, edit = edits[0]
        active = f"mutants::mutant({number})"
        if edit.form == "expression":
            self.write(f"({active} ? (")
            self.write_alternative(number, edit.alternative)
            self.write(") : (")
            self.write_wrapped(place, edits[1:])
            self.write("))")
        elif edit.form == "negation":
            self.write(f"({active} != static_cast<bool>(")
            self.write_wrapped(place, edits[1:])
            self.write("))")
        elif edit.form == "declaration":
            self.write_wrapped(place, edits[1:])
            self.write(f"; {active} != static_cast<bool>({edit.alternative})")
        elif edit.form == "drop":
            self.write(f"{{ if (!{active}) {{ ")
            self.write_wrapped(place, edits[1:])
            self.write(" } }")
        else:
            self.write(f"{{ if ({active}) {{ ")
            self.write_alternative(number, edit.alternative)
            self.write(" } ")
            self.write_wrapped(place, edits[1:])
            self.write(" }")

    def write_alternative(self, number, text):
        start = self.length
        self.write(text)
        self.places.append((start, self.length, {number}, ""))

    def numbers_at(self, line, column):
        """The mutants of the innermost part around a place of the mutated text."""
        offset = self.line_range(line)[0] + column - 1
        around = [p for p in self.places if p[0] <= offset <= p[1]]
        return min(around, key=lambda p: p[1] - p[0])[2] if around else set()

    def constants_at(self, line, column):
        """The mutants of a constant that is declared at this place."""
        offset = self.line_range(line)[0] + column - 1
        return {number for p in self.places if p[3] and p[0] <= offset <= p[1] for number in p[2]}

    def numbers_near(self, line):
        """The mutants of the line, and of the constants that it names."""
        start, end = self.line_range(line)
        words = set(re.findall(r"\w+", self.text[start:end]))
        return {number for p in self.places if start <= p[0] < end or p[3] in words for number in p[2]}

    def line_range(self, line):
        start = 0
        for _ in range(line - 1):
            start = self.text.find("\n", start) + 1
        end = self.text.find("\n", start)
        return start, end if end != -1 else len(self.text)
