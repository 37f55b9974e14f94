# SPDX-License-Identifier: GPL-3.0-or-later
"""Names that are local to a source stay apart. Where the sources of a module are compiled in groups, the anonymous
namespace of one is in sight of those that follow: a name of two things may choose the other one, without a message."""

import re
from collections import namedtuple
from functools import cache

from source_tree import blank, line_at

ANONYMOUS = "(anonymous)"
# Scope: the names of the namespaces around it. Text: what an alias stands for, else None.
Declaration = namedtuple("Declaration", "scope name line text")

DIRECTIVE = re.compile(r"^[ \t]*#(?:[^\n\\]|\\.|\\\n)*", re.MULTILINE)
QT_LINE = re.compile(r"^[ \t]*Q_\w+(?:\([^\n]*\))?;?[ \t]*$", re.MULTILINE)
NAMESPACE = re.compile(r"(?:inline\s+)?namespace(?P<name>(?:\s+\w+(?:::\w+)*)?)\s*$")
DIRECTIVE_OF_NAMESPACE = re.compile(r"using\s+namespace\s+(?P<name>[\w:]+)$")
ALIAS = re.compile(r"using\s+(?P<name>\w+)\s*=\s*(?P<text>.*)$", re.DOTALL)
OTHERS_NAME = re.compile(r"(?P<text>[\w:]*::(?P<name>\w+))\s*(?:,|$)")
CONCEPT = re.compile(r"concept\s+(?P<name>\w+)\s*=")
TYPE = re.compile(r"(?:class|struct|union|enum)\b(?:\s+(?:class|struct)\b)?(?:\s*(?P<name>\w+))?")
OPERATOR = re.compile(r"operator\s*[^\w\s(]+")
POINTER = re.compile(r"\(\s*[*&]+\s*(?:const\s+)?(?P<name>\w+)\s*(?:\[\s*\w*\s*\]\s*)?\)")
LAST_NAME = re.compile(r"(?<![\w:])(?P<name>\w+)\s*(?:\[[^\]]*\]\s*)*$")
SPECIFIERS = re.compile(r"\b(?:decltype|alignas|requires|noexcept)\s*\(")
OPENING, CLOSING = "([{", ")]}"


def end_of(code, start):
    """Position behind the bracket that closes the one at the start; '<' counts as clang-format sets it: "List<"."""
    depth = 0
    angles = code[start] == "<"
    for position in range(start, len(code)):
        character = code[position]
        if character in OPENING or (angles and character == "<"):
            depth += 1
        elif character in CLOSING or (angles and character == ">" and code[position - 1] != "-"):
            depth -= 1
            if depth == 0:
                return position + 1
    return len(code)


def without_head_of_template(text):
    while match := re.match(r"template\s*(?=<)", text):
        text = text[end_of(text, match.end()):].lstrip()
    return text


def without_arguments_of_templates(text):
    """The text without "template <...>" at its beginning and without "<...>" behind names."""
    text = without_head_of_template(text)
    while match := re.search(r"(?<=\w)<", text):
        text = text[:match.start()] + text[end_of(text, match.start()):]
    return text


def outside_of_brackets(text, separators):
    """Positions of the separators that stand in no bracket."""
    depth = 0
    for position, character in enumerate(text):
        if depth == 0 and character in separators:
            yield position
        depth += (character in OPENING) - (character in CLOSING)


def first_part(text, separators):
    return text[:next(outside_of_brackets(text, separators), len(text))]


def has_value(text):
    """Whether a statement gives a value with "=", which is no part of the name of an operator."""
    return any(True for _ in outside_of_brackets(OPERATOR.sub("operator", text), "="))


def ends_function(code, start, position):
    """Whether the braces that end at the position end a function, and not a type, a value or an initializer."""
    if code[position:].lstrip()[:1] in (";", ",", "{"):
        return False
    text = without_arguments_of_templates(code[start:position])
    return not TYPE.match(text) and not has_value(text)


def statements(code):
    """Scope, start and text of each statement outside of types and functions; bodies are part of the text."""
    scope, start, position = [], 0, 0
    while position < len(code):
        character = code[position]
        if not code[start:position + 1].strip():
            start = position = position + 1
        elif character == "}":
            scope = scope[:-1]
            start = position = position + 1
        elif character == ";":
            yield tuple(scope), start, code[start:position]
            start = position = position + 1
        elif character == "{" and (opened := NAMESPACE.match(code[start:position])):
            scope = [*scope, opened["name"].strip() or ANONYMOUS]
            start = position = position + 1
        elif character in OPENING:
            position = end_of(code, position)
            if character == "{" and ends_function(code, start, position):
                yield tuple(scope), start, code[start:position]
                start = position
        else:
            position += 1


def declared(text):
    """Name and text of each thing that a statement declares."""
    if re.match(r"template\s*<\s*>", text) or re.match(r"(?:friend|namespace|extern template|static_assert)\b", text):
        return
    text = re.sub(r"\[\[.*?\]\]\s*", "", text)
    plain = without_arguments_of_templates(text)
    if match := ALIAS.match(without_head_of_template(text)):
        yield match["name"], " ".join(match["text"].split())
    elif plain.startswith("using"):
        if not DIRECTIVE_OF_NAMESPACE.match(plain):
            yield from ((match["name"], match["text"]) for match in OTHERS_NAME.finditer(plain))
    elif match := CONCEPT.match(plain):
        yield match["name"], None
    elif plain.startswith("typedef"):
        yield re.search(r"(\w+)\W*$", plain)[1], None
    elif (match := TYPE.match(plain)) and not has_parameters(plain):
        yield from names_of_type(plain, match)
    else:
        yield from ((name, None) for name in names_of_values(plain))


def has_parameters(text):
    """Whether a statement that begins like a type is a function or a value of it: "struct tm time()"."""
    head = re.split(r"[{:=]", text, maxsplit=1)[0]
    return "(" in head or len(re.sub(r"\b(?:enum|class|struct|union|final)\b", "", head).split()) > 1


def names_of_type(text, match):
    if match["name"]:
        if not text[match.end():].lstrip().startswith("::"):
            yield match["name"], None
    body = text.find("{")
    if body >= 0:
        yield from ((name, None) for name in names_of_values("int " + text[end_of(text, body):]))


def names_of_values(text):
    """Names of a function or of the variables of a statement; those that belong to something else are none."""
    if re.search(r"\boperator\b", first_part(text, "(")):
        return
    while match := SPECIFIERS.search(text):
        text = text[:match.start()] + text[end_of(text, match.end() - 1):]
    places = [-1, *outside_of_brackets(text, ","), len(text)]
    for before, after in zip(places, places[1:]):
        head = first_part(text[before + 1:after].replace("::", "\0"), "={:").replace("\0", "::")
        front = first_part(head, "(")
        pointer = POINTER.match(head, len(front))
        name = pointer or LAST_NAME.search(front)
        if name and (before >= 0 or pointer or front[:name.start()].strip()):
            yield name["name"]
        if front != head and not pointer:
            return


def language_of(file):
    """The code without what is the preprocessor's."""
    return QT_LINE.sub("", DIRECTIVE.sub(lambda match: blank(match[0]), file.bare_code))


@cache
def declarations_of(file):
    code, found = language_of(file), []
    for scope, start, text in statements(code):
        for name, meaning in declared(text):
            found.append(Declaration(scope, name, line_at(code, start), meaning))
    return found


@cache
def taken_over(file):
    """Namespaces that the file takes over as a whole, outside of functions."""
    matches = (DIRECTIVE_OF_NAMESPACE.match(text) for _, _, text in statements(language_of(file)))
    return {match["name"] for match in matches if match}


def local_names(file):
    """What the anonymous namespaces of a source declare, each name once for each meaning."""
    found = {}
    for each in declarations_of(file):
        if ANONYMOUS in each.scope:
            found.setdefault((each.name, each.text), each)
    return found.values()


def names_of_headers(tree):
    """Path of the first header that declares a name: {namespace or "": {name: path}}."""
    found = {}
    for file in tree.files_of("src"):
        if file.name.endswith(".h"):
            for each in declarations_of(file):
                found.setdefault("::".join(each.scope), {}).setdefault(each.name, file.path)
    return found


def sources_of(tree):
    return [file for file in tree.files_of("src") if file.name.endswith(".cpp")]


def local_names_of_headers(tree):
    """A source that takes over a namespace of ours brings its names into sight of all others."""
    headers, sources = names_of_headers(tree), sources_of(tree)
    seen = ["", *sorted(set().union(*map(taken_over, sources)) & set(headers))]
    complaints = []
    for file in sources:
        for each in local_names(file):
            around = "::".join(name for name in each.scope if name != ANONYMOUS)
            places = [headers[scope][each.name] for scope in dict.fromkeys([*seen, around])
                      if each.name in headers.get(scope, ())]
            complaints += [f"{file.path}:{each.line}: {each.name} is a name in {place}, too" for place in places]
    return complaints


def local_names_of_two_sources(tree):
    first, complaints = {}, []
    for file in sources_of(tree):
        for each in local_names(file):
            other, text = first.setdefault((file.module, each.name), (file, each.text))
            if other != file and (text is None or text != each.text):
                complaints.append(f"{file.path}:{each.line}: {each.name} is a local name in {other.path}, too")
    return complaints
