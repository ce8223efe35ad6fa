"""Finds every change that can be made to a source file."""

import re

from . import cpp
from .change import Change

OPPOSITE = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&"}
# What `return {};` would change nothing of, or what is changed otherwise.
EMPTY_VALUES = {"{}", "nullptr", "std::nullopt", "0", "*this", '""', "true", "false"}
# A statement that begins with one of these is no call.
KEYWORDS = set(
    "return if else for while do switch case default break continue goto using namespace template class struct enum "
    "union static const constexpr auto typedef friend throw delete new public private protected try catch".split())
INTEGER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9][0-9']*)([uUlLzZ]*)$")
DECIMAL = re.compile(r"([0-9]*\.[0-9]*|[0-9]+\.?)([fFlL]?)$")


def find_changes(file, source):
    """Every change of the file, in the order of the text."""
    found = cpp.tokens(source)
    pieces = []
    for finder in (comparisons, numbers, conditions, calls, returns, texts):
        pieces += finder(found, source)
    seen = {}
    changes = []
    for kind, start, end, replacement in sorted(pieces):
        before, after = touched_lines(source, start, end, replacement)
        nth = seen.get((before, after), 0)
        seen[before, after] = nth + 1
        line = source.count("\n", 0, start) + 1
        changes.append(Change(file, kind, line, start, end, replacement, before, after, nth))
    return sorted(changes, key=lambda change: change.start)


def touched_lines(source, start, end, replacement):
    first = source.rfind("\n", 0, start) + 1
    last = source.find("\n", end)
    last = len(source) if last < 0 else last
    return tuple(
        " ".join(text.split()) for text in (source[first:last], source[first:start] + replacement + source[end:last]))


def is_spaced(token, source):
    """As operators with two operands are written; brackets of templates and references are not."""
    return source[token.start - 1].isspace() and source[token.end].isspace()


def comparisons(found, source):
    for token in found:
        if token.text in ("==", "!=", "<", "<=", ">", ">=") and is_spaced(token, source):
            yield "comparison", token.start, token.end, OPPOSITE[token.text]


def numbers(found, source):
    """One more and one less; a fraction only one more."""
    for token in found:
        if token.kind != "number":
            continue
        integer = INTEGER.match(token.text)
        if integer:
            digits, suffix = integer.group(1).replace("'", ""), integer.group(2)
            base, form = (16, "{:#x}") if digits[:2] in ("0x", "0X") else (10, "{}")
            if len(digits) > 1 and digits[0] == "0" and base == 10:
                base, form = 8, "0{:o}"
            value = int(digits, base)
            for other in (value + 1, value - 1):
                if other >= 0:
                    yield "number", token.start, token.end, form.format(other) + suffix
            continue
        decimal = DECIMAL.match(token.text)
        if decimal and decimal.group(1) != ".":
            yield "number", token.start, token.end, repr(float(decimal.group(1)) + 1) + decimal.group(2)


def conditions(found, source):
    """Negated, a negation left out, one of two where both were asked for, and the other way round."""
    for index, token in enumerate(found):
        following = found[index + 1] if index + 1 < len(found) else token
        if token.text in ("if", "while") and following.text == "(":
            yield from negated(found, index + 1, source)
        elif token.text in ("&&", "||") and is_spaced(token, source):
            yield "condition", token.start, token.end, OPPOSITE[token.text]
        elif token.text == "!" and (following.kind == "name" or following.text in ("(", "*")):
            yield "condition", token.start, token.end, ""


def negated(found, opening, source):
    last = cpp.closing(found, opening)
    first = opening + 1
    for place in range(first, last):
        if found[place].text == ";":  # a declaration comes first
            first = place + 1
    inside = found[first:last]
    words = [token.text for token in inside]
    # What declares a name as it tests it cannot be negated; one `!`, `==` or `!=` is turned round by itself.
    is_turned = not {"&&", "||"} & set(words) and (words[:1] == ["!"] or {"==", "!="} & set(words))
    if inside and "=" not in words and not is_turned:
        start, end = inside[0].start, inside[-1].end
        yield "condition", start, end, f"!({source[start:end]})"


def calls(found, source):
    """A statement that is one call, left out."""
    for index, token in enumerate(found):
        begins = index > 0 and found[index - 1].text in ("{", "}", ";")
        if not begins or (token.kind != "name" and token.text not in ("*", "(")) or token.text in KEYWORDS:
            continue
        last = cpp.statement_end(found, index)
        if last is None or found[last - 1].text != ")":
            continue
        statement = found[index:last]
        if not is_declaration(statement):
            yield "call", token.start, found[last - 1].end, ""


def is_declaration(statement):
    """Also an assignment: what is stored is no call. Looks at what is outside of brackets."""
    depth = 0
    before = None
    for token in statement:
        if token.text in cpp.CLOSING:
            depth += 1
        elif token.text in cpp.CLOSING.values():
            depth -= 1
        elif depth == 0:
            if token.text in ("=", "+=", "-=", "|=", "&=") or (before and before.kind == token.kind == "name"):
                return True
            if before and token.kind == "name" and before.text in (">", "&", "*") and statement[0].kind == "name":
                return True
        before = token
    return False


def returns(found, source):
    for index, token in enumerate(found):
        if token.text != "return":
            continue
        last = cpp.statement_end(found, index)
        if last is None or last == index + 1:
            continue
        start, end = found[index + 1].start, found[last - 1].end
        value = source[start:end]
        if value in ("true", "false"):
            yield "return", start, end, "false" if value == "true" else "true"
        elif value not in EMPTY_VALUES:
            yield "return", start, end, "{}"


def texts(found, source):
    for index, token in enumerate(found):
        if token.kind == "text" and found[index - 1].text != "extern":
            yield "text", token.end - 1, token.end, '~"'
        elif token.kind == "character":
            yield "text", token.start, token.end, "'!'" if token.text == "'~'" else "'~'"
