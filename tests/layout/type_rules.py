# SPDX-License-Identifier: GPL-3.0-or-later
"""One type of one name: two that are linked into one program under the same name break it, without a message."""

import re

SCOPES = re.compile(
    r"(?P<namespace>\bnamespace\s*(?P<inner>[\w:]*)\s*\{)"
    r"|\b(?:class|struct|union|enum(?:\s+(?:class|struct))?)\s+(?P<type>\w+(?:::\w+)*)(?:\s+final)?\s*(?::[^;{}]*)?\{"
    r"|(?P<open>\{)|(?P<close>\})")


def types_of(file):
    """Name, with its namespaces, and line of each type that a file defines outside of other types and functions."""
    scopes = []  # names of namespaces; None for every other brace
    for match in SCOPES.finditer(file.bare_code):
        if match["close"]:
            if scopes:
                scopes.pop()
        elif match["namespace"]:
            scopes.append(match["inner"] or "(unnamed)")
        else:
            if match["type"] and None not in scopes:
                yield "::".join([*scopes, match["type"]]), file.bare_code.count("\n", 0, match.start()) + 1
            scopes.append(None)


def types_of_two_headers(tree):
    first, complaints = {}, []
    for file in tree.files_of("src", "tools"):
        if not file.name.endswith(".h"):
            continue
        for name, line in types_of(file):
            other = first.setdefault(name, file.path)
            if other != file.path:
                complaints.append(f"{file.path}:{line}: {name} is the name of a type in {other}, too")
    return complaints
