#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Static analysis of sources: scripts/tidy.py [changed | FILE.cpp...], all of src/ and tools/ where none is named.

"changed" stands for those since the last release, the commit that last changed CITATION.cff. Headers are not precompiled
here, so that a missing include shows. A source whose text after the preprocessor passed before, with the same rules and
the same program, is not looked at again.
"""

import hashlib
import json
import os
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/tidy"
PASSED = Path(os.environ.get("XDG_CACHE_HOME", Path.home() / ".cache")) / "vistrum-tidy"
UIC = Path("/usr/lib/qt6/libexec/uic")


def output_of(*command, folder=ROOT):
    return subprocess.run(command, cwd=folder, check=True, capture_output=True).stdout


def commands():
    """{source: (command without its output, folder)}, as the build would run them."""
    found = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8")):
        words = shlex.split(entry["command"])
        compiler = next(i for i, word in enumerate(words) if word.endswith("++"))
        words = words[compiler:words.index("-o")] + words[words.index("-o") + 2:]
        found[entry["file"]] = ([word for word in words if word != "-c"], entry["directory"])
    return found


def make_forms(known):
    """The headers of all forms, where the sources of their module look for them."""
    folders = {word[2:] for words, _ in known.values() for word in words if word.endswith("_autogen/include")}
    for folder in map(Path, sorted(folders)):
        module = ROOT / folder.relative_to(BUILD).parent.parent
        folder.mkdir(parents=True, exist_ok=True)
        for form in module.rglob("*.ui"):
            output_of(UIC, form, "-o", folder / f"ui_{form.stem}.h")


def chosen(arguments):
    if not arguments:
        return sorted(path for area in ("src", "tools") for path in (ROOT / area).rglob("*.cpp"))
    if arguments != ["changed"]:
        return [Path(name).resolve() for name in arguments]
    release = output_of("git", "log", "-1", "--format=%H", "--", "CITATION.cff").decode().strip()
    names = output_of("git", "diff", "--name-only", "--diff-filter=d", release, "--", "src/*.cpp", "tools/*.cpp")
    return [ROOT / name for name in names.decode().split()]


def rules():
    return output_of("clang-tidy", "--version") + (ROOT / ".clang-tidy").read_bytes()


def complaints(source, command, folder, key_of_rules):
    text = subprocess.run(command + ["-E", "-P"], cwd=folder, capture_output=True, check=False)
    if text.returncode:
        return text.stderr.decode()
    mark = PASSED / hashlib.sha256(key_of_rules + text.stdout).hexdigest()
    if mark.exists():
        return ""
    answer = subprocess.run(["clang-tidy", "-p", BUILD, "--quiet", "--warnings-as-errors=*", source],
                            capture_output=True, text=True, check=False)
    if answer.returncode:
        return answer.stdout + answer.stderr
    mark.touch()
    return ""


def main():
    if not (BUILD / "compile_commands.json").exists():
        output_of("cmake", "--preset", "tidy")
    PASSED.mkdir(parents=True, exist_ok=True)
    known, key = commands(), rules()
    make_forms(known)
    sources = [source for source in chosen(sys.argv[1:]) if str(source) in known]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        answers = list(pool.map(lambda source: complaints(source, *known[str(source)], key), sources))
    for answer in filter(None, answers):
        print(answer)
    bad = sum(map(bool, answers))
    print(f"{len(sources)} sources, {bad} with complaints.")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
