# SPDX-License-Identifier: GPL-3.0-or-later
"""Each settings key is declared in one row of one table, stands nowhere else, and has a factory value."""

import re
from collections import Counter

from source_tree import line_at

TABLE_HEADER = re.compile(r"(Parameters|SettingsModel|^StoredKeys)\.h$")
ROW = re.compile(r"""\b(?:Parameter\w*|StoredKey)\b (?:\s*<[^;{]*>)? \s*\w*\s* \{ \s* \{? \s*
                     (?:&[\w:]+\s*,\s*)? (?:QLatin1StringView|QLatin1String)? \s*\(?\s* "([^"]+)" """, re.VERBOSE)
FACTORY_FILE = "data/factory_settings.ini"


def tables(tree):
    """The headers that hold rows."""
    return [file for file in tree.files_of("src") if TABLE_HEADER.search(file.name)]


def rows(tree):
    """File, line and key of each row, as declared: a key that begins with '/' is a suffix."""
    return [(file, line_at(file.code, match.start(1)), match[1])
            for file in tables(tree) for match in ROW.finditer(file.code)]


def roots(tree):
    """The first parts of all keys: a literal that begins with one of them and '/' is a key."""
    keys = [key for _, _, key in rows(tree)] + factory_keys(tree)
    return {key.split("/")[0] for key in keys if "/" in key[1:] and not key.startswith("/")}


def is_key(text, all_roots, declared):
    return text in declared or ("/" in text and text.split("/")[0] in all_roots)


def settings_paths(tree, header):
    """The first parts of keys that the source beside a table knows; the suffixes of the table follow each of them."""
    source = header.path.removesuffix(".h") + ".cpp"
    files = [file for file in tree.files_of("src") if file.path == source]
    declared = {key for _, _, key in rows(tree)}
    return [text for file in files for _, text in file.literals() if is_key(text, roots(tree), set()) and
            text not in declared]


def full_keys(tree):
    """All keys that the tables can store, as often as they are declared."""
    keys = []
    for file, _, key in rows(tree):
        keys += [path + key for path in settings_paths(tree, file)] if key.startswith("/") else [key]
    return keys


def factory_keys(tree):
    path = tree.root / FACTORY_FILE
    lines = path.read_text(encoding="utf-8").splitlines() if path.is_file() else []
    return [line.split("=")[0] for line in lines if line]


def suffixes_without_path(tree):
    return [f"{file.path}: rows with a suffix, and no settings path in the source beside it" for file in tables(tree)
            if any(row_file is file and key.startswith("/") for row_file, _, key in rows(tree))
            and not settings_paths(tree, file)]


def keys_outside_tables(tree):
    """Keys as literals anywhere but in rows. Settings paths may stand in the source beside their table."""
    complaints, all_roots = [], roots(tree)
    declared = {key for _, _, key in rows(tree)}
    row_places = Counter((file.path, key) for file, _, key in rows(tree))
    paths = {(file.path.removesuffix(".h") + ".cpp", path) for file in tables(tree)
             for path in settings_paths(tree, file)}
    for file in tree.files_of("src", "tools"):
        for line, text in file.literals():
            if not is_key(text, all_roots, declared) or (file.path, text) in paths:
                continue
            if row_places[file.path, text] > 0:
                row_places[file.path, text] -= 1
            else:
                complaints.append(f'{file.path}:{line}: "{text}" is a settings key: use its row')
    return complaints


def keys_declared_twice(tree):
    return [f"{key}: declared {count} times" for key, count in sorted(Counter(full_keys(tree)).items()) if count > 1]


def keys_unlike_factory(tree):
    """Differences between the keys of the rows and those of the factory file."""
    declared, factory = set(full_keys(tree)), Counter(factory_keys(tree))
    return ([f"{key}: no value in {FACTORY_FILE}" for key in sorted(declared - set(factory))] +
            [f"{key}: in {FACTORY_FILE}, but in no row" for key in sorted(set(factory) - declared)] +
            [f"{key}: {count} times in {FACTORY_FILE}" for key, count in sorted(factory.items()) if count > 1])


def unreadable_factory_lines(tree):
    """A line is read only if it has exactly one '='."""
    path = tree.root / FACTORY_FILE
    lines = path.read_text(encoding="utf-8").splitlines() if path.is_file() else []
    return [f"{FACTORY_FILE}:{number}: {line}" for number, line in enumerate(lines, 1) if line.count("=") != 1]
