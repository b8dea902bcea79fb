# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""Finds the places of C++ sources where a mutant can be made, on libclang's syntax tree."""

import bisect
import hashlib
import os
import re

from clang.cindex import Config, CursorKind, Index, TranslationUnit, TypeKind

if os.path.exists("/usr/lib/llvm-14/lib/libclang-14.so.1"):
    Config.set_library_file("/usr/lib/llvm-14/lib/libclang-14.so.1")

COMPARISONS = {
    "<": ["<=", ">="],
    "<=": ["<", ">"],
    ">": [">=", "<="],
    ">=": [">", "<"],
    "==": ["!="],
    "!=": ["=="],
}
NUMERIC_EQUALITY = {"==": [">=", "<="], "!=": ["<", ">"]}
LOGIC = {"&&": "||", "||": "&&"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "/"}
COMPOUND = {"+=": "-=", "-=": "+=", "*=": "/=", "|=": "&=", "&=": "|="}
SYMMETRIC = {"max", "min", "abs", "hypot"}
FUNCTIONS = {
    CursorKind.FUNCTION_DECL,
    CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR,
    CursorKind.DESTRUCTOR,
    CursorKind.FUNCTION_TEMPLATE,
    CursorKind.CONVERSION_FUNCTION,
}
INTEGERS = {
    TypeKind.INT,
    TypeKind.UINT,
    TypeKind.LONG,
    TypeKind.ULONG,
    TypeKind.LONGLONG,
    TypeKind.ULONGLONG,
    TypeKind.SHORT,
    TypeKind.USHORT,
}
REALS = {TypeKind.DOUBLE, TypeKind.FLOAT}
BODIES = {
    CursorKind.IF_STMT,
    CursorKind.FOR_STMT,
    CursorKind.WHILE_STMT,
    CursorKind.CXX_FOR_RANGE_STMT,
    CursorKind.DO_STMT,
}
# Whose expressions must be constant, or are no code of the function they stand in.
LEFT_OUT = {CursorKind.ENUM_DECL, CursorKind.STATIC_ASSERT, CursorKind.PARM_DECL, CursorKind.TYPE_ALIAS_DECL}


class Edit:
    """A replacement of source[start:end]. form is
    expression  (mutant ? alternative : original)
    negation    the truth of the original is turned
    drop        the statement is left out
    instead     the statement "alternative" comes before the original one, and leaves it
    declaration the condition that declares a variable, alternative being its name, is turned"""

    def __init__(self, start, end, form, alternative="", shown=None):
        self.start = start
        self.end = end
        self.form = form
        self.alternative = alternative
        self.shown = alternative if shown is None else shown

    def shown_for(self, original):
        """What the mutated source reads like."""
        if self.form == "negation":
            return f"!({original})"
        if self.form == "declaration":
            return f"{original}; !{self.alternative}"
        return ";" if self.form == "drop" else self.shown


class Mutant:
    def __init__(self, kind, path, edits):
        self.kind = kind
        self.path = path
        self.function = ""
        self.edits = edits
        self.original = ""
        self.mutated = ""
        self.occurrence = 1
        self.number = None

    def key(self):
        return (self.path, self.function, self.original, self.mutated, self.occurrence)

    def describe(self, source):
        """Names the mutant by its function and by the lines it changes."""
        start = source.text.rfind("\n", 0, self.edits[0].start) + 1
        end = source.text.find("\n", self.edits[-1].end)
        mutated, position = "", start
        for edit in self.edits:
            mutated += source.text[position : edit.start] + edit.shown_for(source.text[edit.start : edit.end])
            position = edit.end
        mutated += source.text[position:end]
        self.function = source.function_at(self.edits[0].start) or "members"
        self.original = " ".join(source.text[start:end].split())
        self.mutated = " ".join(mutated.split())

    def rank(self, seed):
        """A number that depends on the mutant alone, so that a sample stays the same when other code changes."""
        text = "\0".join(map(str, (seed,) + self.key()))
        return hashlib.sha1(text.encode()).hexdigest()


def named(mutants, sources):
    """Those mutants, each once, with their names."""
    found, keys = {}, {}
    for mutant in mutants:
        places = tuple((edit.start, edit.end, edit.form, edit.alternative) for edit in mutant.edits)
        found.setdefault((mutant.path, places), mutant)
    for mutant in sorted(found.values(), key=lambda m: (m.path, m.edits[0].start, m.edits[0].end)):
        mutant.describe(sources[mutant.path])
        same = mutant.key()
        keys[same] = keys.get(same, 0) + 1
        mutant.occurrence = keys[same]
    return list(found.values())


class Token:
    def __init__(self, start, end, text, depth, bracket):
        self.start = start
        self.end = end
        self.text = text
        self.depth = depth
        self.bracket = bracket  # The innermost open one before this token.


class Source:
    """One file of the library as libclang sees it. Offsets count bytes, so the text is kept as Latin-1."""

    def __init__(self, unit, path, name):
        self.path = path
        self.name = name
        with open(path, encoding="latin-1", newline="") as file:
            self.text = file.read()
        self.tokens = []
        whole = unit.get_extent(path, (0, len(self.text)))
        open_brackets = []
        for token in unit.get_tokens(extent=whole):
            text = token.spelling
            if text in (")", "]", "}") and open_brackets:
                open_brackets.pop()
            bracket = open_brackets[-1] if open_brackets else "{"
            start = token.extent.start.offset
            self.tokens.append(Token(start, token.extent.end.offset, text, len(open_brackets), bracket))
            if text in ("(", "[", "{"):
                open_brackets.append(text)
        self.starts = [token.start for token in self.tokens]
        self.macros = []
        self.functions = []
        self.constants = []

    def tokens_in(self, start, end):
        first = bisect.bisect_left(self.starts, start)
        last = bisect.bisect_left(self.starts, end)
        return self.tokens[first:last]

    def before(self, offset):
        index = bisect.bisect_left(self.starts, offset) - 1
        return self.tokens[index] if index >= 0 else None

    def after(self, offset):
        index = bisect.bisect_left(self.starts, offset)
        return self.tokens[index] if index < len(self.tokens) else None

    def operator(self, start, end, left_end, right_start):
        """The operator between two operands."""
        tokens = self.tokens_in(start, end)
        if not tokens:
            return None
        depth = min(token.depth for token in tokens)
        for token in tokens:
            if token.start >= left_end and token.end <= right_start and token.depth == depth:
                return token
        return None

    def function_at(self, offset):
        """The innermost function around the offset, or the constant."""
        around = [(end - start, name) for start, end, name in self.functions if start <= offset < end]
        return min(around)[1] if around else ""

    def in_macro(self, start, end):
        return any(first <= start and end <= last for first, last in self.macros)


class Finder:
    """Collects the mutants of all library files that one translation unit shows."""

    def __init__(self, root, is_wanted):
        self.root = root
        self.is_wanted = is_wanted
        self.sources = {}
        self.index = Index.create()
        self.mutants = []

    def parse(self, path, arguments):
        options = TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        unit = self.index.parse(path, args=arguments, options=options)
        fresh = {}
        for cursor in unit.cursor.get_children():
            file = cursor.location.file
            if file is None:
                continue
            name = os.path.relpath(os.path.realpath(file.name), self.root)
            if name in self.sources and name not in fresh or not self.is_wanted(name):
                continue
            if name not in fresh:
                fresh[name] = Source(unit, file.name, name)
                self.sources[name] = fresh[name]
            source = fresh[name]
            if cursor.kind == CursorKind.MACRO_INSTANTIATION:
                start, end = cursor.extent.start.offset, cursor.extent.end.offset
                source.macros.append((start, end))
                if cursor.spelling == "QStringLiteral":
                    self.string_macro(source, start, end)
            elif not cursor.kind.is_preprocessing():
                self.walk(source, cursor, [])

    # --- The walk

    def walk(self, source, cursor, parents):
        kind = cursor.kind
        if kind in LEFT_OUT:
            return
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        if kind in FUNCTIONS or (kind == CursorKind.VAR_DECL and not source.function_at(start)):
            source.functions.append((start, end, cursor.spelling))
        if kind == CursorKind.VAR_DECL and re.match(r"(static |inline )*constexpr ", source.text[start:end]):
            source.constants.append((start, end, cursor.spelling))
        if kind.is_statement() or kind.is_expression() or kind == CursorKind.VAR_DECL:
            if source.in_macro(start, end):
                return
        outer = next((p for p in reversed(parents) if (p.extent.start.offset, p.extent.end.offset) != (start, end)), None)
        is_outermost = not parents or parents[-1] is outer
        self.visit(source, cursor, parents, outer, is_outermost, start, end)

        children = list(cursor.get_children())
        if kind == CursorKind.CASE_STMT:
            children = children[1:]
        elif kind == CursorKind.DECL_REF_EXPR:
            children = []  # Template arguments.
        for child in children:
            self.walk(source, child, parents + [cursor])

    def add(self, source, kind, *edits):
        for edit in edits:
            if not 0 <= edit.start < edit.end <= len(source.text):
                return
        self.mutants.append(Mutant(kind, source.name, list(edits)))

    def alternatives(self, source, kind, start, end, texts):
        for text in texts:
            self.add(source, kind, Edit(start, end, "expression", text))

    def visit(self, source, cursor, parents, outer, is_outermost, start, end):
        kind = cursor.kind
        if kind == CursorKind.BINARY_OPERATOR or kind == CursorKind.COMPOUND_ASSIGNMENT_OPERATOR:
            self.binary(source, cursor, start, end)
        elif kind == CursorKind.UNARY_OPERATOR:
            self.unary(source, cursor, outer, start, end)
        elif kind == CursorKind.CALL_EXPR:
            self.call(source, cursor, start, end)
        elif kind == CursorKind.INIT_LIST_EXPR and self.is_record(cursor):  # The order of a list hardly matters.
            self.swap(source, list(cursor.get_children()))
        elif kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT, CursorKind.CONDITIONAL_OPERATOR, CursorKind.DO_STMT):
            self.condition(source, cursor)
        elif kind == CursorKind.RETURN_STMT:
            self.returned(source, cursor, parents, start, end)
        elif kind in (CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT):
            self.add(source, "exit", Edit(start, self.statement_end(source, end), "drop"))
        elif kind == CursorKind.CXX_STATIC_CAST_EXPR:
            self.cast(source, cursor)
        elif kind == CursorKind.DECL_REF_EXPR:
            self.name(source, cursor, start, end)
        elif not self.is_overwritten(source, outer, end):
            self.literal(source, cursor, start, end)

        if is_outermost and kind.is_expression() and self.is_statement(source, outer, start, end):
            dropped = "signal" if source.before(start).text == "emit" else "call"
            self.add(source, dropped, Edit(start, self.statement_end(source, end), "drop"))
        if is_outermost and kind.is_expression():
            self.off_by_one(source, cursor, outer, start, end)

    # --- Statements

    @staticmethod
    def statement_end(source, end):
        token = source.after(end)
        return token.end if token and token.text == ";" else 0

    @staticmethod
    def is_statement(source, outer, start, end):
        before, after = source.before(start), source.after(end)
        if outer is None or not before or not after or after.text != ";" or after.bracket != "{":
            return False
        if outer.kind in BODIES:
            return before.text in (")", "else", "do", "emit")
        return outer.kind in (CursorKind.COMPOUND_STMT, CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT)

    def condition(self, source, cursor):
        children = list(cursor.get_children())
        if not children:
            return
        condition = children[-1] if cursor.kind == CursorKind.DO_STMT else children[0]
        start, end = condition.extent.start.offset, condition.extent.end.offset
        if condition.kind == CursorKind.DECL_STMT:
            condition = next(condition.get_children())
        if condition.kind == CursorKind.VAR_DECL:
            self.add(source, "condition", Edit(start, end, "declaration", condition.spelling))
        else:
            self.negate(source, condition)

    def negate(self, source, expression):
        """Comparisons and logic have mutants of their own."""
        inner = self.peeled(expression)
        if inner.kind == CursorKind.BINARY_OPERATOR:
            return
        start, end = expression.extent.start.offset, expression.extent.end.offset
        self.add(source, "condition", Edit(start, end, "negation"))

    @staticmethod
    def peeled(expression):
        while expression.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
            children = list(expression.get_children())
            if len(children) != 1:
                break
            expression = children[0]
        return expression

    def returned(self, source, cursor, parents, start, end):
        end = self.statement_end(source, end)
        children = list(cursor.get_children())
        if not (children and self.ends_function(parents, end)):
            self.add(source, "exit", Edit(start, end, "drop"))
        if not children:
            return
        value = children[0]
        text = source.text[value.extent.start.offset : value.extent.end.offset]
        kind = value.type.get_canonical().kind
        if kind == TypeKind.BOOL:
            if self.peeled(value).kind != CursorKind.CXX_BOOL_LITERAL_EXPR:
                self.add(source, "returned value", Edit(start, end, "instead", f"return !({text});"))
        elif not re.fullmatch(r"\{\}|nullptr|0|std::nullopt|\w+\(\)", text):
            self.add(source, "returned value", Edit(start, end, "instead", "return {};"))

    @staticmethod
    def ends_function(parents, end):
        if len(parents) < 2 or parents[-1].kind != CursorKind.COMPOUND_STMT:
            return False
        last = list(parents[-1].get_children())[-1]
        is_body = parents[-2].kind in FUNCTIONS or parents[-2].kind == CursorKind.LAMBDA_EXPR
        return is_body and last.extent.end.offset >= end - 1

    # --- Expressions

    def binary(self, source, cursor, start, end):
        children = list(cursor.get_children())
        if len(children) != 2:
            return
        left, right = children
        token = source.operator(start, end, left.extent.end.offset, right.extent.start.offset)
        if not token:
            return
        operator = token.text
        left_text = source.text[start : token.start].strip()
        right_text = source.text[token.end : end].strip()
        if operator in COMPARISONS:
            others = list(COMPARISONS[operator])
            is_count = right_text == "0" and re.search(r"([cC]ount|size)\(\)$", left_text)  # Never below 0.
            is_ordered = self.is_number(left) and self.is_number(right) and not self.names_enumerator(right)
            if is_ordered and not is_count:
                others += NUMERIC_EQUALITY.get(operator, [])
            texts = [f"{left_text} {other} {right_text}" for other in others]
            self.alternatives(source, "condition", start, end, texts)
        elif operator in LOGIC:
            texts = [
                f"({left_text}) {LOGIC[operator]} ({right_text})",
                f"static_cast<bool>({left_text})",
                f"static_cast<bool>({right_text})",
            ]
            self.alternatives(source, "condition", start, end, texts)
            self.negate(source, left)
            self.negate(source, right)
        elif operator in ARITHMETIC and self.is_number(left):
            texts = [f"{left_text} {ARITHMETIC[operator]} {right_text}"]
            self.alternatives(source, "arithmetic", start, end, texts)
        elif operator in COMPOUND:
            texts = [f"{left_text} {COMPOUND[operator]} {right_text}"]
            self.alternatives(source, "arithmetic", start, end, texts)

    def names_enumerator(self, expression):
        referenced = self.peeled(expression).referenced
        return referenced is not None and referenced.kind == CursorKind.ENUM_CONSTANT_DECL

    @staticmethod
    def is_number(expression):
        return expression.type.get_canonical().kind in INTEGERS | REALS

    def unary(self, source, cursor, outer, start, end):
        text = source.text[start:end]
        operand = text.strip("+-! ")
        if text.startswith("++") or text.startswith("--"):
            other = ("--" if text.startswith("++") else "++") + text[2:]
            self.alternatives(source, "arithmetic", start, end, [other])
        elif text.startswith("-") and self.is_number(cursor) and not operand.isdigit():
            self.alternatives(source, "arithmetic", start, end, [text[1:]])

    def call(self, source, cursor, start, end):
        name = cursor.spelling
        arguments = [a for a in cursor.get_arguments() if a is not None and self.has_text(a, start, end)]
        if name.startswith("operator"):
            operator = name[len("operator") :]
            if operator in ("==", "!=", "<") and len(arguments) == 2:
                self.overloaded_comparison(source, arguments, start, end)
            return
        if name not in SYMMETRIC:
            self.swap(source, arguments)
        if name == "truncated" and len(arguments) == 1:
            first, last = arguments[0].extent.start.offset, arguments[0].extent.end.offset
            text = f"std::round({source.text[first:last]})"
            self.add(source, "rounding", Edit(first, last, "expression", text))
        if name == "scaled" and len(arguments) == 2:
            texts = [source.text[a.extent.start.offset : a.extent.end.offset] for a in arguments]
            text = f"scaling::truncated(std::round(({texts[0]}) * ({texts[1]})))"
            self.add(source, "rounding", Edit(start, end, "expression", text))

    def overloaded_comparison(self, source, arguments, start, end):
        left, right = arguments
        token = source.operator(start, end, left.extent.end.offset, right.extent.start.offset)
        if not token or token.text not in COMPARISONS:
            return
        text = source.text[start : token.start] + COMPARISONS[token.text][0] + source.text[token.end : end]
        self.alternatives(source, "condition", start, end, [text])

    @staticmethod
    def has_text(expression, start, end):
        return start <= expression.extent.start.offset < expression.extent.end.offset <= end

    def swap(self, source, arguments):
        for first, second in zip(arguments, arguments[1:]):
            if self.plain_type(first) != self.plain_type(second):
                continue
            ranges = [(a.extent.start.offset, a.extent.end.offset) for a in (first, second)]
            texts = [source.text[start:end] for start, end in ranges]
            if texts[0] == texts[1] or ranges[0][1] > ranges[1][0]:
                continue
            edits = [Edit(*ranges[0], "expression", texts[1]), Edit(*ranges[1], "expression", texts[0])]
            self.add(source, "swapped arguments", *edits)

    @staticmethod
    def is_record(expression):
        plain = expression.type.get_canonical()
        return plain.kind == TypeKind.RECORD and "initializer_list" not in plain.spelling

    @staticmethod
    def plain_type(expression):
        return expression.type.get_canonical().spelling.replace("const ", "").rstrip("& ")

    def cast(self, source, cursor):
        children = list(cursor.get_children())
        value = children[-1]
        if cursor.type.get_canonical().kind in INTEGERS and value.type.get_canonical().kind in REALS:
            start, end = value.extent.start.offset, value.extent.end.offset
            text = f"std::round({source.text[start:end]})"
            self.add(source, "rounding", Edit(start, end, "expression", text))

    def off_by_one(self, source, cursor, outer, start, end):
        inner = self.peeled(cursor)
        is_literal = inner.kind in (CursorKind.INTEGER_LITERAL, CursorKind.UNARY_OPERATOR)
        is_named = self.names_enumerator(cursor)  # Which has mutants of its own.
        if outer is None or is_literal or is_named or cursor.type.get_canonical().kind not in INTEGERS:
            return
        places = (CursorKind.CALL_EXPR, CursorKind.VAR_DECL, CursorKind.RETURN_STMT, CursorKind.INIT_LIST_EXPR)
        is_operand = outer.kind == CursorKind.BINARY_OPERATOR and start > outer.extent.start.offset
        if outer.kind not in places and not is_operand:
            return
        text = source.text[start:end]
        if outer.kind == CursorKind.CALL_EXPR and source.before(start) and source.before(start).text not in ("(", ",", "{"):
            return
        for difference, shown in ((1, f"({text} + 1)"), (-1, f"({text} - 1)")):
            alternative = f"mutants::plus({text}, {difference})"
            self.add(source, "off by one", Edit(start, end, "expression", alternative, shown))

    # --- Constants

    @staticmethod
    def is_overwritten(source, outer, end):
        """Whether a value is that of a variable whose address goes to a call at once, as in ok of toInt(&ok)."""
        if outer is None or outer.kind != CursorKind.VAR_DECL:
            return False
        statement = source.text[end + 1 :].split(";", 1)[0]
        return re.search(rf"&{outer.spelling}\b", statement) is not None

    def string_macro(self, source, start, end):
        text = source.text[start:end]
        if text.endswith('")'):
            self.alternatives(source, "constant", start, end, [text[:-2] + '~")'])

    def literal(self, source, cursor, start, end):
        text = source.text[start:end]
        kind = cursor.kind
        texts = []
        if kind == CursorKind.INTEGER_LITERAL:
            texts = [f"{text} + 1"] if re.fullmatch(r"0[uUlL]*", text) else [f"{text} + 1", f"{text} - 1"]
        elif kind == CursorKind.FLOATING_LITERAL:
            texts = [f"{text} + 1"] if float(text.rstrip("fF")) == 0.0 else [f"{text} + 1", f"{text} / 2"]
        elif kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            texts = ["false" if text == "true" else "true"]
        elif kind == CursorKind.STRING_LITERAL and text.endswith('"'):
            texts = ['"~"' if text.startswith("R") else text[:-1] + '~"']
        elif kind == CursorKind.CHARACTER_LITERAL:
            texts = [f"static_cast<char>({text} + 1)"]
        for text in texts:
            shown = f"({text})" if " " in text and not text.startswith('"') else text
            self.add(source, "constant", Edit(start, end, "expression", text, shown))

    def name(self, source, cursor, start, end):
        """A named constant becomes its neighbour: another enumerator, another name of the vocabulary."""
        referenced = cursor.referenced
        if referenced is None:
            return
        text = source.text[start:end]
        if referenced.kind == CursorKind.ENUM_CONSTANT_DECL:
            names = [c.spelling for c in referenced.semantic_parent.get_children() if c.enum_value != referenced.enum_value]
            if referenced.spelling in ("Checked", "Unchecked"):
                names = ["Unchecked" if referenced.spelling == "Checked" else "Checked"]
        elif referenced.kind == CursorKind.VAR_DECL and referenced.semantic_parent.spelling in ("keys", "types"):
            names = [c.spelling for c in referenced.semantic_parent.get_children() if c.kind == CursorKind.VAR_DECL]
            position = names.index(referenced.spelling) if referenced.spelling in names else 0
            names = names[position + 1 :] + names[:position]
        else:
            return
        if names and text.endswith(referenced.spelling):
            other = text[: len(text) - len(referenced.spelling)] + names[0]
            self.alternatives(source, "constant", start, end, [other])
