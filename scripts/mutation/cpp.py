"""C++ sources as tokens: as much of the language as it takes to find what can be changed."""

import re
from typing import NamedTuple

TOKEN = re.compile(
    r"""
    (?P<space>\s+ | //[^\n]* | /\*.*?\*/)
    | (?P<directive>\#(?:\\\n|[^\n])*)
    | (?P<raw>R"(?P<mark>[^\s()\\]*)\(.*?\)(?P=mark)")
    | (?P<text>"(?:\\.|[^"\\\n])*")
    | (?P<character>'(?:\\.|[^'\\\n])+')
    | (?P<number>\.?\d(?:[eEpP][+-]|'?\w|\.)*)
    | (?P<name>[A-Za-z_]\w*)
    | (?P<sign><=>|->|\+\+|--|<<=?|>>=|[-+*/%&|^!=<>]=|&&|\|\||::|\.\.\.|.)
    """,
    re.VERBOSE | re.DOTALL,
)
CLOSING = {"(": ")", "[": "]", "{": "}"}


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


def tokens(source):
    """Without comments, directives, static assertions and attributes, in which nothing is changed."""
    found = []
    for match in TOKEN.finditer(source):
        kind = match.lastgroup if match.lastgroup != "mark" else "raw"
        if kind not in ("space", "directive"):
            found.append(Token(kind, match.group(), match.start(), match.end()))
    kept = []
    index = 0
    while index < len(found):
        if found[index].text == "static_assert" or [token.text for token in found[index : index + 2]] == ["[", "["]:
            start = index + (found[index].text == "static_assert")
            index = closing(found, start) + 1
        else:
            kept.append(found[index])
            index += 1
    return kept


def closing(found, index):
    """Where the bracket that opens at `index` closes."""
    depth = 0
    for place in range(index, len(found)):
        if found[place].text in CLOSING:
            depth += 1
        elif found[place].text in CLOSING.values():
            depth -= 1
            if depth == 0:
                return place
    raise ValueError(f"{found[index].text} at {found[index].start} is not closed")


def statement_end(found, index):
    """Where the semicolon is that ends what begins at `index`; None where a bracket closes before."""
    while index < len(found):
        text = found[index].text
        if text == ";":
            return index
        if text in CLOSING.values():
            return None
        index = closing(found, index) + 1 if text in CLOSING else index + 1
    return None
