#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Static analysis of sources: scripts/tidy.py [changed | FILE.cpp...], all of src/ and tools/ where none is named.

"changed" stands for what differs from the commit in scripts/tidy.passed, which a whole run without complaints writes; a
changed header is seen through the first source that includes it. Where the history has no such commit, nothing is looked
at, and that is said. Headers are not precompiled here, so that a missing include shows.

Nearly all of the time goes into the toolkit's headers, so sources with the same options are looked at together, one
text behind the other, as far as what is local to each has names of its own. A text that passed before, with the same
rules and the same program, is not looked at again.
"""

import bisect
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/tidy"
PASSED_COMMIT = ROOT / "scripts/tidy.passed"
PASSED = Path(os.environ.get("XDG_CACHE_HOME", Path.home() / ".cache")) / "vistrum-tidy"
UIC = Path("/usr/lib/qt6/libexec/uic")
LINES_TOGETHER = 2500
LOCAL = re.compile(r"^namespace \{$(.*?)^\} // namespace$", re.MULTILINE | re.DOTALL)
# Other words for a type can stand twice.
LOCAL_NAME = re.compile(r"""^(?!\ |using\ )(?:(?:class|struct|enum|enum\ class)\ (?P<type>\w+)
                            |[\w:<>,&*\ ]+?[\ &*](?P<name>\w+)(?:\[\w*\])?(?:\(|\{|;|\ =))""", re.MULTILINE | re.VERBOSE)


def output_of(*command, folder=ROOT):
    return subprocess.run(command, cwd=folder, check=True, capture_output=True).stdout


def commands():
    """The sources that the build knows, and the options of all of them, each once."""
    known, options = set(), {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8")):
        if not Path(entry["file"]).is_relative_to(ROOT / "src") and not Path(entry["file"]).is_relative_to(ROOT / "tools"):
            continue
        words = shlex.split(entry["command"])
        compiler = next(i for i, word in enumerate(words) if word.endswith("++"))
        words = iter(words[compiler + 1:])
        known.add(entry["file"])
        for word in words:
            if word in ("-o", "-c"):
                next(words)
            else:
                options[(word, next(words)) if word == "-isystem" else (word,)] = None
    return known, [word for option in options for word in option]


def make_forms(options):
    """The headers of all forms, where their sources look for them."""
    for folder in (Path(word[2:]) for word in options if word.endswith("_autogen/include")):
        folder.mkdir(parents=True, exist_ok=True)
        for form in (ROOT / folder.relative_to(BUILD).parent.parent).rglob("*.ui"):
            output_of(UIC, form, "-o", folder / f"ui_{form.stem}.h")


def all_sources():
    return sorted(path for area in ("src", "tools") for path in (ROOT / area).rglob("*.cpp"))


def includers(headers):
    """For each header the first source that includes it."""
    names = {str(header.relative_to(ROOT / header.relative_to(ROOT).parts[0])) for header in headers}
    first = {}
    for source in all_sources() if names else []:
        for include in names & set(re.findall(r'^#include "(.+)"', source.read_text(encoding="utf-8"), re.MULTILINE)):
            first.setdefault(include, source)
    return first.values()


def changed():
    passed = PASSED_COMMIT.read_text(encoding="ascii").strip()
    if subprocess.run(["git", "merge-base", "--is-ancestor", passed, "HEAD"], cwd=ROOT, capture_output=True,
                      check=False).returncode:
        print(f"The history has no commit {passed}: nothing is looked at.")
        return []
    names = output_of("git", "diff", "--name-only", "--diff-filter=d", passed, "--", "src", "tools", ".clang-tidy")
    paths = [ROOT / name for name in names.decode().split()]
    if ROOT / ".clang-tidy" in paths:
        return all_sources()
    sources = {path for path in paths if path.suffix == ".cpp"}
    return sorted(sources.union(includers(path for path in paths if path.suffix == ".h")))


def chosen(arguments):
    if arguments == ["changed"]:
        return changed()
    return [Path(name).resolve() for name in arguments] or all_sources()


def note_passed():
    """The commit that is checked out passed, where nothing else was looked at."""
    if not output_of("git", "status", "--porcelain", "--", "src", "tools", ".clang-tidy"):
        PASSED_COMMIT.write_bytes(output_of("git", "rev-parse", "HEAD"))


def rules():
    return output_of("clang-tidy", "--version") + (ROOT / ".clang-tidy").read_bytes()


def local_names(text):
    """Names of what a source keeps for itself, and some more."""
    return {match["type"] or match["name"] for block in LOCAL.finditer(text) for match in LOCAL_NAME.finditer(block[1])}


def groups(sources):
    """The sources as lists of those that can be looked at together."""
    made = []
    for source in sources:
        text = source.read_text(encoding="utf-8")
        names, lines = local_names(text), text.count("\n")
        for group in made:
            if group["lines"] + lines <= LINES_TOGETHER and not names & group["names"]:
                break
        else:
            group = {"sources": [], "names": set(), "lines": 0}
            made.append(group)
        group["sources"].append(source)
        group["names"] |= names
        group["lines"] += lines
    return [group["sources"] for group in made]


def misfits(sources, whole, options):
    """Those of the sources that do not compile behind the others."""
    answer = subprocess.run(["clang++", *options, "-w", "-fsyntax-only", "-ferror-limit=0", whole],
                            capture_output=True, text=True, check=False)
    if not answer.returncode:
        return []
    found = set(re.findall(r"^(/[^:]+\.cpp):\d+:\d+: (?:fatal )?error:", answer.stderr, re.MULTILINE))
    return [source for source in sources if str(source) in found] or sources


def at_sources(text, whole, sources):
    """Complaints with the places in the sources in place of those in the whole text of all."""
    starts = [1]
    for source in sources:
        starts.append(starts[-1] + source.read_text(encoding="utf-8").count("\n") + 2)

    def place(match):
        line = int(match[1])
        at = bisect.bisect_right(starts, line) - 1
        return f"{sources[at]}:{line - starts[at]}:"
    return re.sub(re.escape(str(whole)) + r":(\d+):", place, text)


def complaints(sources, options, key_of_rules):
    text = "".join(f'#line 1 "{source}"\n{source.read_text(encoding="utf-8")}\n' for source in sources)
    whole = BUILD / f"together-{hashlib.sha256(text.encode()).hexdigest()[:16]}.cpp"
    whole.write_text(text, encoding="utf-8")
    compiled = subprocess.run(["clang++", *options, "-E", "-P", whole], capture_output=True, check=False)
    if compiled.returncode:
        return compiled.stderr.decode()
    mark = PASSED / hashlib.sha256(key_of_rules + compiled.stdout).hexdigest()
    if mark.exists():
        return ""
    apart = misfits(sources, whole, options) if len(sources) > 1 else []
    if apart:
        fitting = [source for source in sources if source not in apart]
        return "".join(complaints(each, options, key_of_rules) for each in [fitting, *([one] for one in apart)] if each)
    answer = subprocess.run(["clang-tidy", "--quiet", "--warnings-as-errors=*", whole, "--", *options],
                            capture_output=True, text=True, check=False)
    if answer.returncode:
        return at_sources(answer.stdout, whole, sources)
    mark.touch()
    return ""


def main():
    if not (BUILD / "compile_commands.json").exists():
        output_of("cmake", "--preset", "tidy")
    PASSED.mkdir(parents=True, exist_ok=True)
    known, options = commands()
    make_forms(options)
    sources = [source for source in chosen(sys.argv[1:]) if str(source) in known]
    together, key = groups(sources), rules()
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        answers = list(pool.map(lambda group: complaints(group, options, key), together))
    for answer in filter(None, answers):
        print(answer)
    bad = sum(map(bool, answers))
    print(f"{len(sources)} sources in {len(together)} groups, {bad} groups with complaints.")
    if not bad and not sys.argv[1:]:
        note_passed()
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
