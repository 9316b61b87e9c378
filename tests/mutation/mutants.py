# SPDX-License-Identifier: Apache-2.0
"""The faults that mutate puts into a C++ source: one changed token, one statement left out, or two
statements swapped. Comments, preprocessor lines and data tables stay as they are."""

import collections
import re

Token = collections.namedtuple("Token", "kind text begin end")

TOKEN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/|(?m:^\#(?:[^\n\\]|\\.)*))
      | (?P<string>"(?:[^"\\]|\\.)*") | (?P<char>'(?:[^'\\]|\\.)*')
      | (?P<number>0[xX][0-9a-fA-F]+|\d+) | (?P<word>[A-Za-z_]\w*)
      | (?P<operator><=>|->|::|\+\+|--|<<|>>|[-+*/%&|^=!<>]=|&&|\|\||.)""",
    re.VERBOSE | re.DOTALL)

# Operators between blanks: without them "<", ">", "*" and "&" belong to a type.
BINARY = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="],
    ">=": [">", "<"], "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"],
    "&": ["|"], "|": ["&"], "+=": ["-="], "-=": ["+="],
}
UNARY = {"++": "--", "--": "++", "!": ""}
WORDS = {"true": "false", "false": "true"}
# What a declaration begins with: to leave one out or to move it does not compile.
DECLARES = {"const", "constexpr", "static", "using", "auto", "std", "inline", "namespace", "enum", "struct",
            "class", "template", "explicit", "virtual", "case", "default", "else", "extern", "typename"}
# Words that name no variable.
KEYWORDS = {"if", "for", "while", "return", "continue", "const", "auto", "true", "false", "nullptr",
            "nullopt", "std"}
CONSTANT = re.compile(r"\bconst\b[^;=(){}]*?\b(\w+)\s*=|\b(k[A-Z]\w*)")
# How much room is made ahead, or given back, changes no result.
ROOM = re.compile(r"\b(reserve|shrink|shrink_to_fit)\(|\bkUsualSize =|\bkFewest =")
# A table of bare numbers is data. Two mutants for each entry, all killed by the one test that
# compares the table, would only flatter the figures.
TABLE_ROW = re.compile(r"^\s*(0x[0-9A-F]+,\s*)+$")


def tokens(source):
    for match in TOKEN.finditer(source):
        if match.lastgroup != "skip":
            yield Token(match.lastgroup, match.group(), match.start(), match.end())


def token_faults(source, token):
    """(replacement, kind) of each fault in one token."""
    text = token.text
    line = source[source.rfind("\n", 0, token.begin) + 1:source.find("\n", token.begin)]
    if ROOM.search(line):
        return
    if token.kind == "number":
        if TABLE_ROW.match(line):
            return
        value = int(text, 8 if text[0] == "0" and text.isdigit() else 0)
        for changed in {0: [1], 1: [0, 2]}.get(value, [value - 1, value + 1]):
            yield str(changed), "constant"
    elif token.kind == "char" and len(text) == 3:
        yield "'%s'" % chr(ord(text[1]) + 1).replace("'", "(").replace("\\", "]"), "constant"
    elif token.kind == "string" and len(text) > 2:
        yield '""', "string"
    elif text in WORDS:
        yield WORDS[text], "constant"
    elif text in UNARY:
        yield UNARY[text], "negation" if text == "!" else "arithmetic"
    elif text in BINARY and source[token.begin - 1].isspace() and source[token.end].isspace():
        kind = "comparison" if text[0] in "=!<>" else "logic" if text in ("&&", "||") else "arithmetic"
        for changed in BINARY[text]:
            yield changed, kind


def statements(all_tokens):
    """The token lists of the statements that end in ";", with None where a block begins or ends."""
    current, depth = [], 0
    for token in all_tokens:
        if token.text in "()":
            depth += 1 if token.text == "(" else -1
        if token.text in "{}" and depth == 0:
            yield None
            current = []
            continue
        current.append(token)
        if token.text == ";" and depth == 0:
            yield current
            current = []


def acts(statement):
    """Whether it is a call, an assignment or a guarded return, rather than a declaration."""
    first, second = statement[0].text, statement[1].text
    if first in ("if", "for", "while", "*", "++", "--", "::"):
        return True
    if statement[0].kind != "word" or first in DECLARES or first in ("return", "continue", "break"):
        return False
    return second in ("(", ".", "->", "=", "+=", "-=", "[", "::")


def variables(statement, constants):
    """(what it may change, all that it touches): "a.b" for the field b of a, "a" for a call of a's
    method. None when the order always matters: for a guard, and for a call of an own method without
    arguments, which may touch anything."""
    text = "".join(token.text + " " * (token.text in KEYWORDS) for token in statement
                   if token.kind in ("word", "operator"))
    if re.fullmatch(r"\w+\(\);", text) or "return " in text or "continue" in text:
        return None
    paths = re.findall(r"[A-Za-z_]\w*(?:(?:\.|->)[A-Za-z_]\w*)*(?!\w)\(?", text)
    objects = [re.sub(r"(?:(?:\.|->)\w+|^\w+)\($", "", path) for path in paths]
    touched = {name for name in objects if name and name not in KEYWORDS | constants}
    # A method changes its object and not its arguments, an assignment what stands on the left.
    action = re.sub(r"^if \(.*?\)(?=\w)", "", text)
    changed = re.match(r"([\w.>-]+?)(?:(?:->|\.)\w+\(|[-+]?=[^=])", action)
    return ({changed[1]} if changed else touched), touched


def order_matters(first, second):
    if first is None or second is None:
        return True
    return bool(first[0] & second[1] or second[0] & first[1])


def statement_faults(source, all_tokens):
    """(begin, end, replacement, kind) of each statement left out or swapped with the next. The order of
    two statements of which none changes what the other touches cannot be seen."""
    constants = {name for names in CONSTANT.findall(source) for name in names}
    before = None
    for statement in statements(all_tokens):
        if statement is None or len(statement) < 3 or not acts(statement):
            before = None
            continue
        if ROOM.search(source[statement[0].begin:statement[-1].end]):
            before = None
            continue
        begin, end = statement[0].begin, statement[-1].end
        guard = statement[0].text == "if" and any(token.text == "return" for token in statement)
        yield begin, end, ";", "removed guard" if guard else "removed statement"
        if before and order_matters(variables(before, constants), variables(statement, constants)):
            start, gap = before[0].begin, source[before[-1].end:begin]
            swapped = source[begin:end] + gap + source[start:before[-1].end]
            yield start, end, swapped, "swapped statements"
        before = statement


def faults_in(source):
    """(begin, end, replacement, kind) of every fault."""
    all_tokens = list(tokens(source))
    for token in all_tokens:
        for text, kind in token_faults(source, token):
            yield token.begin, token.end, text, kind
    yield from statement_faults(source, all_tokens)
