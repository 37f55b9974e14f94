# SPDX-License-Identifier: GPL-3.0-or-later
"""What we do not do, as far as a pattern can see it."""

import re

from source_tree import TOKENS, line_at

EVERYWHERE = ("src", "tools", "tests", "benchmarks", "fuzz")
WINDOWS = re.compile(r"\b(QMessageBox|QProgressDialog|QFileDialog|processEvents)\b")
OLD_CONNECTION = re.compile(r"\b(SIGNAL|SLOT)\s*\(")
MACRO = re.compile(r"^[ \t]*#[ \t]*define\b[^\n]*", re.MULTILINE)
DELETE = re.compile(r"(?<!=)(?<!= )\bdelete\b(\s*\[\s*\])?")
REMINDER = re.compile(r"\b(TODO|FIXME|XXX)\b")
SETTINGS = re.compile(r"\bQSettings\b")
FOLDER = re.compile(r"\bmkpath\b")
NEW = re.compile(r"\bnew\s+(?:[\w:]+)(?:<[^;(]*>)?\s*(?P<arguments>\([^;]*)?")
STATEMENT_START = re.compile(r"[;{}]")
PARENT = re.compile(r"(?:^|[(,]\s*)(?:this|&?\*?[A-Za-z_][\w.>:-]*(?:\(\))?)\s*$")


def found(files, pattern, message, text_of=lambda file: file.bare_code):
    return [f"{file.path}:{line_at(text_of(file), match.start())}: {match[0].strip()}: {message}"
            for file in files for match in pattern.finditer(text_of(file))]


def windows_below_panels(tree):
    files = [file for file in tree.files_of("src") if file.layer in ("core", "scene", "batch")]
    return found(files, WINDOWS, "only panels and the window talk to people themselves")


def connections_by_macro(tree):
    return found(tree.files_of(*EVERYWHERE), OLD_CONNECTION, "connect pointers to members")


def macros(tree):
    return found(tree.files_of("src", "tools"), MACRO, "a template or a constant serves")


def deletes(tree):
    return found(tree.files_of("src", "tools"), DELETE, "let an owner do it")


def reminders(tree):
    return found(tree.files_of(*EVERYWHERE), REMINDER, "do it or leave it", lambda file: file.text)


def settings_outside_their_module(tree):
    files = [file for file in tree.files_of("src", "tools") if file.module != "settings"]
    return found(files, SETTINGS, "ask SettingsStore")


def silent_folders(tree):
    return found(tree.files_of("src", "tools"), FOLDER, "makeFolder tells why a folder cannot be made")


def unguarded_headers(tree):
    return [f"{file.path}: no #pragma once" for file in tree.files
            if file.name.endswith(".h") and not re.search(r"^#pragma once$", file.text, re.MULTILINE)]


def closing(text):
    """Position of the parenthesis that closes the one at the beginning of the text, or -1."""
    depth = 0
    for position, character in enumerate(text):
        depth += {"(": 1, ")": -1}.get(character, 0)
        if depth == 0:
            return position
    return -1


def has_owner(code, position, arguments):
    """Whether the new object goes straight into a call or a value in braces, or has a parent as its last argument."""
    start = max((match.end() for match in STATEMENT_START.finditer(code, 0, position)), default=0)
    before = code[start:position]
    if before.count("(") > before.count(")") or re.search(r"[\w>]\{\s*$", code[:position]):
        return True
    end = closing(arguments) if arguments else -1
    return end > 1 and bool(PARENT.search(arguments[:end]))


def ownerless_objects(tree):
    """An owner that the line cannot show is named in it: "// owned by the table"."""
    complaints = []
    for file in tree.files_of(*EVERYWHERE):
        code, lines = file.bare_code, file.text.split("\n")
        for match in NEW.finditer(code):
            line = line_at(code, match.start())
            if not has_owner(code, match.start(), match["arguments"]) and "// owned by" not in lines[line - 1]:
                complaints.append(f"{file.path}:{line}: nobody owns {match[0].split('(')[0]}")
    return complaints


LICENCE = "// SPDX-License-Identifier: GPL-3.0-or-later"


def sources_without_licence(tree):
    return [f"{file.path}:1: the first line is not {LICENCE}" for file in tree.files_of(*EVERYWHERE)
            if file.text.split("\n", 1)[0] != LICENCE]


BRITISH = re.compile(r"colour", re.IGNORECASE)
FORM_TEXT = re.compile(r"<string\b[^>]*>[^<]*</string>")


def shown_texts(tree):
    """Path, number of the line and content of what users may be shown: literals of programs and texts of forms."""
    for file in tree.files_of("src", "tools"):
        for token in TOKENS.finditer(file.code):
            if token["string"] or token["raw"]:
                yield file.path, line_at(file.code, token.start()), token[0]
    for path in sorted((tree.root / "src").rglob("*.ui")):
        form = path.read_text(encoding="utf-8")
        for match in FORM_TEXT.finditer(form):
            yield path.relative_to(tree.root).as_posix(), line_at(form, match.start()), match[0]


def mixed_spellings(tree):
    """Comments are British; what users read says "Color", as most of its buttons always have."""
    return [f"{path}:{line}: {text}: users read \"color\"" for path, line, text in shown_texts(tree)
            if BRITISH.search(text)]
