# SPDX-License-Identifier: GPL-3.0-or-later
"""tests/, benchmarks/ and fuzz/ mirror src/ and tools/, and nothing lies there that is not built."""

import re

FREE_FOLDERS = {"layout", "sanitizers"}  # about the tree as a whole
MIRRORS = {"tests": "Test", "benchmarks": "Benchmark", "fuzz": "Fuzz"}


def folders(tree, area):
    parent = tree.root / area
    return {path.name for path in parent.iterdir() if path.is_dir()} if parent.is_dir() else set()


def tool_libraries(tree):
    """{library: folder} of the tools; their tests are in folders named after the library they link."""
    found = {}
    for folder in folders(tree, "tools"):
        path = tree.root / "tools" / folder / "CMakeLists.txt"
        text = path.read_text(encoding="utf-8") if path.is_file() else ""
        found |= {name: folder for name in re.findall(r"add_library\(\s*(\w+)", text)}
    return found


def modules_without_tests(tree):
    libraries = tool_libraries(tree)
    with_code = {file.module for file in tree.files_of("src", "tools") if file.name.endswith(".cpp") and file.module}
    tests = [file for file in tree.files_of("tests") if file.name.startswith("Test")]
    tested = {libraries.get(file.module, file.module) for file in tests}
    return [f"{module}: no test in tests/{module}" for module in sorted(with_code - tested)]


def folders_without_modules(tree):
    known = folders(tree, "src") | folders(tree, "tools") | set(tool_libraries(tree)) | FREE_FOLDERS
    return [f"{area}/{name}: mirrors no folder of src/ or tools/" for area in ("tests", "benchmarks", "fuzz")
            for name in sorted(folders(tree, area) - known)]


def words_of_list(tree, folder):
    path = tree.root / folder / "CMakeLists.txt"
    text = re.sub(r"#[^\n]*", "", path.read_text(encoding="utf-8")) if path.is_file() else ""
    return set(re.split(r"[\s()\"]+", text))


def unlisted_sources(tree):
    """Sources that stand in no CMakeLists.txt: they are neither built nor run."""
    complaints = []
    for file in tree.files:
        if not file.name.endswith(".cpp") or not file.module or file.module in FREE_FOLDERS:
            continue
        folder = f"{file.area}/{file.module}"
        inner = file.path.removeprefix(folder + "/")
        prefix = MIRRORS.get(file.area, "")
        names = {inner, inner.removeprefix(prefix).removesuffix(".cpp")} if prefix else {inner}
        if not names & words_of_list(tree, folder):
            complaints.append(f"{file.path}: not in {folder}/CMakeLists.txt")
    return complaints
