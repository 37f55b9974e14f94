#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs two builds of vistrum-batch over the example study and tells in which files they differ, and by how much.

    scripts/quirk-effects.py OLD/vistrum-batch NEW/vistrum-batch [WORDS...]

WORDS choose calls by name; without them all are made. The exit code is 0 only if every file is the same byte for byte.
A table is told by rows, by cells that differ and by the largest difference of numbers; a density by the share of its
mass that lies elsewhere and by the largest difference of a cell, in percent of the largest cell.
"""

import array
import pathlib
import re
import struct
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
STUDY = ROOT / "examples" / "study"
RECORDINGS = [f"study/S0{i}.data" for i in range(1, 7)]
OVERLAP = "--set Calculation/Cluster/CalculationType=2 --overlap-fixations 2"
MEAN_SHIFT = "--set Calculation/Cluster/CalculationType=1"
VELOCITY = "--calculate fixations --export fixations --detector velocity --set Calculation/Fixation/Velocity/"
CALLS = {
    "standard": "--calculate fixations,clusters,cumulative-clusters --export fixations,clusters,events,cumulative-clusters",
    "mean-eye": "--eyes mean --calculate fixations,clusters,cumulative-clusters"
                " --export fixations,clusters,events,cumulative-clusters",
    "frame": "--time 2000:6000 --calculate fixations,clusters --export fixations,clusters,events",
    "mixture": "--detector gaussian --calculate fixations --export fixations,events",
    "velocity": VELOCITY + "VelocityThreshold=1.9 --velocity-unit pixel-per-ms",
    "degrees": VELOCITY + "VelocityThreshold=30.5 --velocity-unit degree-per-s --background study/bay.png",
    "percentile": VELOCITY + "VelocityThreshold=90 --velocity-unit percentile",
    "overlap": f"{OVERLAP} --calculate fixations,clusters,cumulative-clusters"
               " --export fixations,clusters,cumulative-clusters",
    "overlap-outliers": f"{OVERLAP} --overlap-outliers 1 --calculate fixations,cumulative-clusters"
                        " --export cumulative-clusters",
    "mean-shift": f"{MEAN_SHIFT} --calculate fixations,clusters,cumulative-clusters"
                  " --export fixations,clusters,cumulative-clusters",
    "gaze-density": "--density gaze.tiff",
    "fixation-density": "--calculate fixations --density fixations.tiff --density-kind fixations",
    "cluster-density": "--calculate fixations,clusters --density clusters.tiff --density-kind clusters",
    "saccade-density": "--calculate fixations --density saccades.tiff --density-kind saccades",
    "saccade-clusters": "--calculate fixations,saccade-clusters --saccade-cluster mode=lines --saccade-cluster"
                        " minimum-angle-quantity=3 --image saccades.svg",
    "saccade-lines": "--calculate fixations,saccade-clusters --saccade-cluster mode=single-line --saccade-cluster"
                     " minimum-angle-quantity=3 --image lines.svg",
    "drawings": "--calculate fixations,clusters --set Visualization/Fixation/VisualizationMode=1"
                " --set Visualization/Fixationcluster/VisualizationMode=1 --set Visualization/Saccade/VisualizationMode=1"
                " --time 2100:7350 --image drawings.svg",
    "anglestar": "--calculate fixations --set Visualization/Saccade/VisualizationMode=2 --image star.svg",
}


def files_of(program, call):
    """Runs one call in a folder of its own; the files that it leaves, by name."""
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        (folder / "study").symlink_to(STUDY)
        done = subprocess.run([program, "--quiet", *call.split(), *RECORDINGS], cwd=folder, capture_output=True, text=True)
        if done.returncode:
            sys.exit(f"{program} {call}: exit code {done.returncode}\n{done.stderr}")
        return {path.name: path.read_bytes() for path in sorted(folder.iterdir()) if path.is_file()}


def rows_of(data):
    text = data.replace(b"\xff\xfe", b"").decode("utf-16-le")
    return [re.split("[;:]", row) for row in text.splitlines()]


def number(text):
    try:
        return float(text.strip(' "').replace(",", "."))
    except ValueError:
        return None


def table_difference(old, new):
    old, new = rows_of(old), rows_of(new)
    if len(old) != len(new):
        same = len({tuple(row) for row in old} & {tuple(row) for row in new})
        return f"{len(old)} rows, {len(new)} in the other; {same} rows are in both"
    cells = [(a, b) for before, after in zip(old, new) for a, b in zip(before, after)]
    pairs = [(number(a), number(b)) for a, b in cells if a != b]
    largest = max((abs(a - b) for a, b in pairs if a is not None and b is not None), default=0)
    return f"{len(pairs)} of {len(cells)} cells differ, by {largest:g} at most"


def cells_of(tiff):
    """The numbers of a density: one strip of 32-bit floating point numbers, little-endian."""
    directory, = struct.unpack_from("<I", tiff, 4)
    count, = struct.unpack_from("<H", tiff, directory)
    fields = {}
    for i in range(count):
        tag, _, _, value = struct.unpack_from("<HHII", tiff, directory + 2 + 12 * i)
        fields[tag] = value
    return array.array("f", tiff[fields[273]:fields[273] + fields[279]])


def density_difference(old, new):
    old, new = cells_of(old), cells_of(new)
    moved = sum(abs(a - b) for a, b in zip(old, new))
    largest = max(abs(a - b) for a, b in zip(old, new))
    return (f"mass {sum(new) / sum(old) - 1:+.2%}, cells differ by {moved / sum(old):.3%} of the mass in all and by"
            f" {largest / max(old):.3%} of the largest cell at most")


def drawing_difference(old, new):
    old, new = old.splitlines(), new.splitlines()
    if len(old) != len(new):
        return f"{len(old)} lines, {len(new)} in the other"
    return f"{sum(a != b for a, b in zip(old, new))} of {len(old)} lines differ"


def difference(name, old, new):
    if name.endswith(".csv"):
        return table_difference(old, new)
    return density_difference(old, new) if name.endswith(".tiff") else drawing_difference(old, new)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    old_program, new_program = (str(pathlib.Path(path).resolve()) for path in sys.argv[1:3])
    wanted = sys.argv[3:] or list(CALLS)
    compared, differing = 0, 0
    for word in wanted:
        old, new = files_of(old_program, CALLS[word]), files_of(new_program, CALLS[word])
        for name in sorted(old.keys() | new.keys()):
            compared += 1
            if old.get(name) == new.get(name):
                continue
            differing += 1
            told = difference(name, old[name], new[name]) if name in old and name in new else "only in one of them"
            print(f"{word}: {re.sub('^vistrum_', '', name)}: {told}")
    print(f"{compared} files, {differing} differ")
    return 1 if differing or not compared else 0


if __name__ == "__main__":
    sys.exit(main())
