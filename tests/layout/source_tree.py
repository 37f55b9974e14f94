# SPDX-License-Identifier: GPL-3.0-or-later
"""The source tree as the layout rules see it: files, the module and layer each belongs to, and their code."""

import re
from functools import cached_property
from pathlib import Path

TOKENS = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)"""
    r"""|(?P<raw>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")"""
    r"""|(?P<string>"(?:\\.|[^"\\\n])*")"""
    r"""|(?P<character>(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+')""",
    re.DOTALL | re.VERBOSE)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
PROGRAMS = ("app", "batch", "convert")


def blank(text):
    """The text without its characters, but with its lines."""
    return "\n" * text.count("\n")


class SourceFile:
    """One C++ file. `path` is relative to the root of the tree, with '/' between its parts."""

    def __init__(self, root, path):
        self.path = path.as_posix()
        self.area = path.parts[0]
        self.module = path.parts[1] if len(path.parts) > 2 else ""
        self.folder = path.parent.as_posix()
        self.name = path.name
        self.text = (root / path).read_text(encoding="utf-8")

    @property
    def layer(self):
        """Where in the picture of the layers a file of src/ stands: core, scene, panel, or the program's name."""
        if self.module in PROGRAMS:
            return self.module
        inner = self.path.split("/")[2]
        return inner if inner in ("scene", "panel") else "core"

    @cached_property
    def code(self):
        """The text without comments."""
        return TOKENS.sub(lambda token: blank(token[0]) if token["comment"] else token[0], self.text)

    @cached_property
    def bare_code(self):
        """The text without comments, and with every literal empty."""
        return TOKENS.sub(lambda token: blank(token[0]) if token["comment"] else '""' + blank(token[0]), self.text)

    def literals(self):
        """Number of the line and content of each string literal; those of includes are none."""
        code = INCLUDE.sub("", self.code)
        for token in TOKENS.finditer(code):
            if token["string"]:
                yield line_at(code, token.start()), token["string"][1:-1]

    def includes(self):
        """Number of the line, '"' or '<', and name of each included file."""
        for match in INCLUDE.finditer(self.code):
            yield line_at(self.code, match.start(1)), match[1], match[2]


def line_at(text, position):
    return text.count("\n", 0, position) + 1


class Module:
    """What the CMakeLists.txt of a folder of src/ says about it."""

    def __init__(self, name, text):
        self.name = name
        self.text = re.sub(r"#[^\n]*", "", text)
        call = re.search(r"add_module\(\s*(\w+)(.*?)\)", self.text, re.DOTALL)
        self.declared_name = call[1] if call else None
        uses = re.search(r"\bUSES\b((?:\s+(?!(?:CORE|SCENE|PANEL|LIBRARIES)\b)\w+)*)", call[2]) if call else None
        self.uses = uses[1].split() if uses else []


class SourceTree:
    def __init__(self, root):
        self.root = Path(root)

    @cached_property
    def files(self):
        found = []
        for area in ("src", "tools", "tests", "benchmarks", "fuzz"):
            paths = sorted(path for kind in ("*.h", "*.cpp") for path in (self.root / area).rglob(kind))
            found += [SourceFile(self.root, path.relative_to(self.root)) for path in paths]
        return found

    def files_of(self, *areas):
        return [file for file in self.files if file.area in areas]

    @cached_property
    def modules(self):
        lists = sorted((self.root / "src").glob("*/CMakeLists.txt"))
        return {path.parent.name: Module(path.parent.name, path.read_text(encoding="utf-8")) for path in lists}

    @cached_property
    def module_order(self):
        """The modules in the order of the list in src/CMakeLists.txt."""
        path = self.root / "src/CMakeLists.txt"
        text = path.read_text(encoding="utf-8") if path.is_file() else ""
        calls = re.findall(r"add_subdirectory\((\w+)\)|foreach\(module ([\w\s]+)\)", text)
        return [name for one, several in calls for name in (one + " " + several).split()]

    def reachable_modules(self, name):
        """The modules that the named one uses, directly or through others, and itself."""
        reached, waiting = set(), [name]
        while waiting:
            module = waiting.pop()
            if module not in reached:
                reached.add(module)
                waiting += self.modules[module].uses if module in self.modules else []
        return reached


def circles(edges):
    """A circle of the graph {node: nodes}, as the list of its nodes with the first one again at the end, or []."""
    done, path = set(), []

    def visit(node):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return []
        path.append(node)
        for follower in sorted(edges.get(node, ())):
            circle = visit(follower)
            if circle:
                return circle
        path.pop()
        done.add(node)
        return []

    for start in sorted(edges):
        circle = visit(start)
        if circle:
            return circle
    return []
