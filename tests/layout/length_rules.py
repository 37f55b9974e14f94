# SPDX-License-Identifier: GPL-3.0-or-later
"""No file beyond 600 lines, no function beyond 60."""

import ast
import re
from pathlib import Path

from source_tree import line_at

FILE_LIMIT = 600
FUNCTION_LIMIT = 60
SCOPE = re.compile(r"\b(namespace|class|struct|union|enum)\b(?!.*\))|^\s*extern\s*\"\"\s*$", re.DOTALL)
TEMPLATE_ARGUMENTS = re.compile(r"<[^<>]*>")
INITIALIZER_LIST = re.compile(r"\)[\w\s]*:(?!:).*[\w>]\s*$", re.DOTALL)
PREPROCESSOR = re.compile(r"^[ \t]*#(?:\\\n|[^\n])*", re.MULTILINE)
DELIMITER = re.compile(r"[{};]")


def without_preprocessor(code):
    return PREPROCESSOR.sub(lambda match: "\n" * match[0].count("\n"), code)


def is_scope(header):
    """Whether a namespace or a type begins here, and no function that only names one."""
    while (shorter := TEMPLATE_ARGUMENTS.sub("", header)) != header:
        header = shorter
    return SCOPE.search(header) is not None


def matching_brace(code, start):
    """Position of the brace that closes the one at `start`, or the end of the code."""
    depth = 0
    for match in re.compile(r"[{}]").finditer(code, start):
        depth += 1 if match[0] == "{" else -1
        if depth == 0:
            return match.start()
    return len(code)


def function_bodies(code):
    """Header and positions of the braces of each function that stands in no other; lambdas are part of theirs."""
    position, header_start = 0, 0
    while match := DELIMITER.search(code, position):
        position = match.end()
        header = code[header_start:match.start()]
        if match[0] != "{":
            header_start = position
        elif is_scope(header):
            header_start = position
        elif INITIALIZER_LIST.search(header) or ")" not in header or header.rstrip().endswith("="):
            position = matching_brace(code, match.start()) + 1  # a value in braces
        else:
            end = matching_brace(code, match.start())
            yield " ".join(header.split()), match.start(), end
            position = header_start = end + 1


def long_functions(tree):
    """The lines from the opening brace to the closing one count."""
    complaints = []
    for file in tree.files:
        code = without_preprocessor(file.bare_code)
        for header, start, end in function_bodies(code):
            lines = code.count("\n", start, end) + 1
            if lines > FUNCTION_LIMIT:
                complaints.append(f"{file.path}:{line_at(code, start)}: {lines} lines of {header}")
    return complaints


def long_files(tree):
    return [f"{file.path}: {lines} lines" for file in tree.files
            if (lines := len(file.text.splitlines())) > FILE_LIMIT]


def python_files(tree):
    areas = ("tests", "tools", "scripts", "docs")
    return sorted(path for area in areas for path in Path(tree.root, area).rglob("*.py"))


def long_python(tree):
    complaints = []
    for path in python_files(tree):
        text = path.read_text(encoding="utf-8")
        if (lines := len(text.splitlines())) > FILE_LIMIT:
            complaints.append(f"{path.relative_to(tree.root)}: {lines} lines")
        for node in ast.walk(ast.parse(text)):
            if isinstance(node, (ast.FunctionDef, ast.AsyncFunctionDef)):
                lines = node.end_lineno - node.lineno + 1
                if lines > FUNCTION_LIMIT:
                    complaints.append(f"{path.relative_to(tree.root)}:{node.lineno}: {lines} lines of {node.name}")
    return complaints
