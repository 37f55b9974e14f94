#!/usr/bin/env python3
"""Compares the standard detector's fixations with those of human coders.

    validate_detection.py DATA_FOLDER VISTRUM_BATCH [--write docs/validation.md]

Every recording of the folder that has a NAME.labels.csv beside NAME.data is analysed with vistrum-batch. The labels are
a table with the columns sample, time, and one a coder; code 1 is a fixation. The result is a table in Markdown: on
standard output, or with --write between the markers of the document.
"""

import argparse
import csv
import io
import pathlib
import subprocess
import sys
import tempfile
from dataclasses import dataclass

SETTINGS = {
    "Calculation/Fixation/Standard/MinimumDuration": 100,  # ms
    "Calculation/Fixation/Standard/MaximumRadius": 25,  # px
    "Calculation/Fixation/Standard/Outlier": 2,  # samples
}

BEGIN_MARK = "<!-- table: begin, written by tools/validation/validate_detection.py -->"
END_MARK = "<!-- table: end -->"

CODERS = ("MN", "RA")  # columns of human coders; other columns, as those of a tracker's own parser, are left out
FIXATION_CODE = "1"
EVENT_COLUMNS = 11  # event, code, gaze points, cluster, onset, duration, ...; subject columns stand before them
LEAST_IOU = 0.5


@dataclass(frozen=True)
class Interval:
    """Samples from the place `first` to the place `last`, both included."""

    first: int
    last: int

    def overlap(self, other):
        return max(0, min(self.last, other.last) - max(self.first, other.first) + 1)

    def iou(self, other):
        common = self.overlap(other)
        return common / (self.last - self.first + other.last - other.first + 2 - common)


def read_labels(text):
    """Times in ms from the first sample, and the codes of each human coder by name."""
    rows = list(csv.DictReader(io.StringIO(text)))
    coders = [name for name in CODERS if rows and name in rows[0]]
    start = int(rows[0]["time"]) if rows else 0
    times = [int(row["time"]) - start for row in rows]
    return times, {coder: [row[coder] for row in rows] for coder in coders}


def coded_fixations(codes):
    """Runs of samples with the code of a fixation."""
    intervals = []
    for place, code in enumerate(codes):
        if code != FIXATION_CODE:
            continue
        if intervals and intervals[-1].last == place - 1:
            intervals[-1] = Interval(intervals[-1].first, place)
        else:
            intervals.append(Interval(place, place))
    return intervals


def read_event_fixations(content):
    """Onset and end in ms of each fixation of an events file: UTF-16 with a mark before each block, decimal comma."""
    text = content.decode("utf-16").replace("\ufeff", "")
    fixations = []
    for line in text.splitlines():
        fields = line.split(";")[-EVENT_COLUMNS:]
        if len(fields) == EVENT_COLUMNS and fields[0] == "fixation":
            onset, duration = (float(field.replace(",", ".")) for field in fields[4:6])
            fixations.append((onset, onset + duration))
    return fixations


def as_intervals(fixations, times):
    """The samples that lie in each fixation, from its onset to its end."""
    intervals = []
    for onset, end in fixations:
        places = [place for place, time in enumerate(times) if onset <= time <= end]
        if places:
            intervals.append(Interval(places[0], places[-1]))
    return intervals


def as_flags(intervals, count):
    flags = [False] * count
    for interval in intervals:
        for place in range(interval.first, interval.last + 1):
            flags[place] = True
    return flags


def kappa(a, b):
    """Cohen's kappa of two lists of flags: agreement beyond chance, 1 at most."""
    count = len(a)
    agreed = sum(x == y for x, y in zip(a, b)) / count
    share_a, share_b = sum(a) / count, sum(b) / count
    expected = share_a * share_b + (1 - share_a) * (1 - share_b)
    return 1.0 if expected == 1 else (agreed - expected) / (1 - expected)


def matched_pairs(a, b, likeness, least):
    """How many intervals of a and b can be paired one to one, the most alike first."""
    pairs = [(likeness(x, y), i, j) for i, x in enumerate(a) for j, y in enumerate(b)]
    pairs = sorted((p for p in pairs if p[0] > 0 and p[0] >= least), key=lambda p: (-p[0], p[1], p[2]))
    used_a, used_b = set(), set()
    for _, i, j in pairs:
        if i not in used_a and j not in used_b:
            used_a.add(i)
            used_b.add(j)
    return len(used_a)


def f1(pairs, count_a, count_b):
    return 2 * pairs / (count_a + count_b) if count_a + count_b else 1.0


@dataclass
class Comparison:
    """Two accounts of the same samples; the lists of several recordings are joined by `add`."""

    flags_a: list
    flags_b: list
    overlapping: int
    alike: int
    durations_a: list
    durations_b: list

    @classmethod
    def of(cls, a, b, times):
        def durations(intervals):
            return [times[interval.last] - times[interval.first] for interval in intervals]

        return cls(
            as_flags(a, len(times)),
            as_flags(b, len(times)),
            matched_pairs(a, b, Interval.overlap, 1),
            matched_pairs(a, b, Interval.iou, LEAST_IOU),
            durations(a),
            durations(b),
        )

    def add(self, other):
        for field in self.__dataclass_fields__:
            setattr(self, field, getattr(self, field) + getattr(other, field))

    def row(self, recording, names):
        counts = len(self.durations_a), len(self.durations_b)
        means = [f"{sum(d) / len(d):.0f}" if d else "-" for d in (self.durations_a, self.durations_b)]
        cells = [
            recording,
            names,
            f"{kappa(self.flags_a, self.flags_b):.3f}",
            f"{f1(self.overlapping, *counts):.3f}",
            f"{f1(self.alike, *counts):.3f}",
            f"{counts[0]} / {counts[1]}",
            f"{means[0]} / {means[1]}",
        ]
        return "| " + " | ".join(cells) + " |"


def table(compared):
    """Markdown of [(recording, names, comparison)], with a line of all recordings together for each pair of names."""
    lines = [
        "| recording | compared | kappa | F1 overlap | F1 IoU >= 0.5 | fixations | mean duration [ms] |",
        "|---|---|---|---|---|---|---|",
    ]
    totals = {}
    for recording, names, comparison in compared:
        lines.append(comparison.row(recording, names))
        if names in totals:
            totals[names].add(comparison)
        else:
            totals[names] = Comparison([], [], 0, 0, [], [])
            totals[names].add(comparison)
    lines += [total.row("all", names) for names, total in sorted(totals.items())]
    return "\n".join(lines) + "\n"


def replaced_between_marks(document, text):
    before, begin, rest = document.partition(BEGIN_MARK)
    _, end, after = rest.partition(END_MARK)
    if not begin or not end:
        raise ValueError("the document has no markers for the table")
    return f"{before}{begin}\n{text}{end}{after}"


def detected_fixations(batch, recording):
    """Runs vistrum-batch on one recording and reads its events of the dominant eye."""
    with tempfile.TemporaryDirectory() as folder:
        command = [str(batch), "--detector", "standard", "--calculate", "fixations", "--export", "fixations,events"]
        command += ["--eyes", "dominant", "--out", folder, "--report", str(pathlib.Path(folder) / "report.json")]
        for key, value in SETTINGS.items():
            command += ["--set", f"{key}={value}"]
        subprocess.run([*command, "--quiet", str(recording)], check=True, stdout=subprocess.DEVNULL)
        (events,) = pathlib.Path(folder).glob("*_events_dominant.csv")
        return read_event_fixations(events.read_bytes())


def compare(data_folder, batch):
    compared = []
    for labels in sorted(data_folder.glob("*.labels.csv")):
        name = labels.name.removesuffix(".labels.csv")
        times, coders = read_labels(labels.read_text(encoding="utf-8"))
        if not coders:
            continue
        detected = as_intervals(detected_fixations(batch, data_folder / f"{name}.data"), times)
        coded = {coder: coded_fixations(codes) for coder, codes in coders.items()}
        for coder, intervals in coded.items():
            compared.append((name, f"Vistrum / {coder}", Comparison.of(detected, intervals, times)))
        if len(coded) == 2:
            (first, a), (second, b) = coded.items()
            compared.append((name, f"{first} / {second}", Comparison.of(a, b, times)))
    return compared


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("data_folder", type=pathlib.Path)
    parser.add_argument("vistrum_batch", type=pathlib.Path)
    parser.add_argument("--write", type=pathlib.Path, metavar="DOCUMENT", help="replace the table of this document")
    arguments = parser.parse_args()
    settings = ", ".join(f"{key.rsplit('/', 1)[1]} {value}" for key, value in SETTINGS.items())
    text = f"Settings: {settings}.\n\n" + table(compare(arguments.data_folder, arguments.vistrum_batch))
    if arguments.write:
        document = arguments.write.read_text(encoding="utf-8")
        arguments.write.write_text(replaced_between_marks(document, text), encoding="utf-8")
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
