# SPDX-License-Identifier: GPL-3.0-or-later
"""Who may include whom: along USES, downwards, without widgets in the core, never in a circle."""

from pathlib import Path

from source_tree import circles

RANKS = {"base": 0, "model": 1, "settings": 2, "commands": 3, "app": 5, "batch": 5, "convert": 5}
SUBSYSTEM_RANK = 4
VISIBLE_LAYERS = {
    "core": {"core"},
    "scene": {"core", "scene"},
    "panel": {"core", "scene", "panel"},
    "batch": {"core", "scene", "batch"},
    "convert": {"core", "batch", "convert"},
    "app": {"core", "scene", "panel", "app"},
}


def rank(module):
    return RANKS.get(module, SUBSYSTEM_RANK)


def widget_headers(include_folders):
    """The class headers of the widget libraries, as installed, without those of Core and Gui that they forward to."""
    widgets, others = set(), set()
    for folder in include_folders:
        kind = Path(folder).name
        names = {path.name for path in Path(folder).iterdir() if path.is_file()} if Path(folder).is_dir() else set()
        if kind in ("QtWidgets", "QtOpenGLWidgets", "QtSvgWidgets"):
            widgets |= names
        elif kind in ("QtCore", "QtGui"):
            others |= names
    return widgets - others


def resolved(tree, file, name):
    """Path of the file of src/ that an include with quotes means, or None."""
    for folder in ("src", file.folder):
        if (tree.root / folder / name).is_file():
            return (tree.root / folder / name).resolve().relative_to(tree.root.resolve()).as_posix()
    return None


def is_generated(name):
    return name.startswith("ui_") or name.endswith(".moc")


def project_includes(tree, areas):
    """Line, including file and included file for each include of one file of src/ by another, or by a tool."""
    by_path = {file.path: file for file in tree.files}
    for file in tree.files_of(*areas):
        for line, mark, name in file.includes():
            path = resolved(tree, file, name) if mark == '"' else None
            if path in by_path:
                yield line, file, by_path[path]


def unresolved_includes(tree):
    complaints = []
    for file in tree.files_of("src"):
        for line, mark, name in file.includes():
            if mark == '"' and not is_generated(name) and not (tree.root / "src" / name).is_file():
                complaints.append(f'{file.path}:{line}: "{name}" is no path from src/')
    return complaints


def widgets_in_core(tree, widgets):
    complaints = []
    for file in tree.files_of("src"):
        for line, mark, name in file.includes():
            parts = name.split("/")
            library = len(parts) > 1 and parts[0] in ("QtWidgets", "QtOpenGLWidgets", "QtSvgWidgets")
            if file.layer == "core" and mark == "<" and (library or parts[-1] in widgets):
                complaints.append(f"{file.path}:{line}: <{name}> is a widget header, and this is core")
    return complaints


def unseen_modules(tree):
    """Includes of modules that USES does not lead to. The programs and tools see every module."""
    complaints = []
    for line, file, included in project_includes(tree, ("src",)):
        if file.module in ("app", "batch") and included.module not in ("app", "batch"):
            continue
        if included.module not in tree.reachable_modules(file.module):
            complaints.append(f"{file.path}:{line}: {included.path} is not reached by the USES of {file.module}")
    return complaints


def upward_includes(tree):
    complaints = []
    for line, file, included in project_includes(tree, ("src", "tools")):
        layer = file.layer if file.area == "src" else "batch"
        if included.area != "src":
            continue
        if file.area == "src" and rank(included.module) > rank(file.module):
            complaints.append(f"{file.path}:{line}: {included.path} stands above {file.module}")
        elif included.layer not in VISIBLE_LAYERS[layer]:
            complaints.append(f"{file.path}:{line}: {included.path} is {included.layer}, unseen from {layer}")
    return complaints


def upward_uses(tree):
    complaints = []
    for module in tree.modules.values():
        for used in module.uses:
            if used not in tree.modules:
                complaints.append(f"src/{module.name}/CMakeLists.txt: USES {used}, and there is no such module")
            elif rank(used) > rank(module.name):
                complaints.append(f"src/{module.name}/CMakeLists.txt: USES {used}, which stands above it")
    return complaints


def uses_of_later_modules(tree):
    """A module whose scene or panel comes later in the list is linked without them."""
    complaints = []
    for place, name in enumerate(tree.module_order):
        for used in tree.modules[name].uses if name in tree.modules else []:
            if used not in tree.module_order[:place]:
                complaints.append(f"src/CMakeLists.txt: {name} USES {used}, which does not stand before it in the list")
    return complaints


def wrongly_named_modules(tree):
    return [f"src/{module.name}/CMakeLists.txt: the module is called {module.declared_name}"
            for module in tree.modules.values() if module.declared_name not in (None, module.name)]


def include_circles(tree):
    """A circle among files, one among folders, and one among the USES."""
    files, folders = {}, {}
    for _, file, included in project_includes(tree, ("src",)):
        files.setdefault(file.path, set()).add(included.path)
        if file.folder != included.folder:
            folders.setdefault(file.folder, set()).add(included.folder)
    uses = {module.name: module.uses for module in tree.modules.values()}
    found = [("files", circles(files)), ("folders", circles(folders)), ("USES", circles(uses))]
    return [f"circle of {kind}: {' -> '.join(circle)}" for kind, circle in found if circle]
