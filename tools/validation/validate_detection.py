#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the fixations of each detector with those of human coders.

    validate_detection.py DATA_FOLDER VISTRUM_BATCH [--write docs/validation.md]

Every recording of the folder that has a NAME.labels.csv beside NAME.data is analysed with vistrum-batch. The labels are
a table with the columns sample, time, and one a coder; code 1 is a fixation. The result are tables in Markdown: on
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


@dataclass(frozen=True)
class Method:
    """A detector with its settings, as the tables name it."""

    name: str
    options: tuple
    settings: dict

    def text(self):
        return ", ".join(f"{key.rsplit('/', 1)[1]} {value}" for key, value in self.settings.items())


def velocity(name, unit, duration, threshold, **further):
    settings = {"MinimumDuration": duration, "VelocityThreshold": threshold, **further}
    return Method(name, ("--detector", "velocity", "--velocity-unit", unit),
                  {f"Calculation/Fixation/Velocity/{key}": value for key, value in settings.items()})


# Of the screen that the recordings were made at; no file tells it.
SCREEN = {"ScreenDistance": 0.67, "ImageSize": 0.38}  # m

METHODS = (
    Method("standard", ("--detector", "standard"), {
        "Calculation/Fixation/Standard/MinimumDuration": 100,  # ms
        "Calculation/Fixation/Standard/MaximumRadius": 25,  # px
        "Calculation/Fixation/Standard/Outlier": 2,  # samples
    }),
    Method("mixture", ("--detector", "gaussian"), {
        "Calculation/Fixation/Gaussian/MinimumDuration": 60,  # ms
        "Calculation/Fixation/Gaussian/MergeSequential": "false",
    }),
    velocity("velocity px/ms", "pixel-per-ms", 60, 2),
    velocity("velocity degrees/s", "degree-per-s", 60, 80, **SCREEN),
    velocity("velocity percentile", "percentile", 60, 90),
)

# How the best threshold depends on the sampling rate.
THRESHOLDS = (20, 30, 40, 60, 80, 100)  # degrees/s

BEGIN_MARK = "<!-- table: begin, written by tools/validation/validate_detection.py -->"
END_MARK = "<!-- table: end -->"

CODERS = ("MN", "RA")  # columns of human coders; other columns, as those of a tracker's own parser, are left out
FIXATION_CODE = "1"
CODE_NAMES = {"1": "fixation", "2": "saccade", "3": "oscillation", "4": "pursuit", "5": "blink", "6": "undefined"}
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

    def measures(self):
        counts = len(self.durations_a), len(self.durations_b)
        values = kappa(self.flags_a, self.flags_b), f1(self.overlapping, *counts), f1(self.alike, *counts)
        return [f"{value:.3f}" for value in values]

    def row(self, recording, names):
        means = [f"{sum(d) / len(d):.0f}" if d else "-" for d in (self.durations_a, self.durations_b)]
        cells = [
            recording,
            names,
            *self.measures(),
            f"{len(self.durations_a)} / {len(self.durations_b)}",
            f"{means[0]} / {means[1]}",
        ]
        return "| " + " | ".join(cells) + " |"


def table(compared, total_only=False):
    """Markdown of [(recording, names, comparison)]; the totals are over all recordings for each pair of names."""
    lines = [
        "| recording | compared | kappa | F1 overlap | F1 IoU >= 0.5 | fixations | mean duration [ms] |",
        "|---|---|---|---|---|---|---|",
    ]
    if not total_only:
        return "\n".join(lines + [comparison.row(*names) for *names, comparison in compared]) + "\n"
    totals = {}
    for _, names, comparison in compared:
        totals.setdefault(names, Comparison([], [], 0, 0, [], [])).add(comparison)
    return "\n".join(lines + [total.row("all", names) for names, total in totals.items()]) + "\n"


def replaced_between_marks(document, text):
    before, begin, rest = document.partition(BEGIN_MARK)
    _, end, after = rest.partition(END_MARK)
    if not begin or not end:
        raise ValueError("the document has no markers for the table")
    return f"{before}{begin}\n{text}{end}{after}"


def stimulus_of(set_file):
    """The picture that the set file names, if it lies beside it."""
    for line in set_file.read_text(encoding="utf-8").splitlines():
        key, _, value = line.partition("=")
        if key == "picturename" and (set_file.parent / value).is_file():
            return set_file.parent / value
    return None


def detected_fixations(batch, recording, method):
    """Runs vistrum-batch on one recording and reads its events of the dominant eye."""
    picture = stimulus_of(recording.with_suffix(".set"))
    with tempfile.TemporaryDirectory() as folder:
        command = [str(batch), *method.options, "--calculate", "fixations", "--export", "events"]
        command += ["--eyes", "dominant", "--out", folder]
        command += ["--background", str(picture)] if picture else []
        for key, value in method.settings.items():
            command += ["--set", f"{key}={value}"]
        subprocess.run([*command, "--quiet", str(recording)], check=True, stdout=subprocess.DEVNULL)
        (events,) = pathlib.Path(folder).glob("*_events_dominant.csv")
        return read_event_fixations(events.read_bytes())


@dataclass(frozen=True)
class Recording:
    path: pathlib.Path
    times: list
    coders: dict  # codes of each human coder by name

    @property
    def rate(self):
        """In Hz, from the median time between samples, which are whole ms."""
        steps = sorted(later - earlier for earlier, later in zip(self.times, self.times[1:]))
        return round(1000 / steps[len(steps) // 2])

    def coded(self):
        return {coder: coded_fixations(codes) for coder, codes in self.coders.items()}

    def detected(self, batch, method):
        return as_intervals(detected_fixations(batch, self.path, method), self.times)


def read_recordings(data_folder):
    recordings = []
    for labels in sorted(data_folder.glob("*.labels.csv")):
        times, coders = read_labels(labels.read_text(encoding="utf-8"))
        if coders:
            name = labels.name.removesuffix(".labels.csv")
            recordings.append(Recording(data_folder / f"{name}.data", times, coders))
    return recordings


def compare(recordings, found):
    """[(recording, names, comparison)]; `found` has the intervals by method and recording."""
    compared = []
    for recording in recordings:
        coded, name = recording.coded(), recording.path.stem
        for method in METHODS:
            for coder, intervals in coded.items():
                comparison = Comparison.of(found[method.name, name], intervals, recording.times)
                compared.append((name, f"{method.name} / {coder}", comparison))
        if len(coded) == 2:
            (first, a), (second, b) = coded.items()
            compared.append((name, f"{first} / {second}", Comparison.of(a, b, recording.times)))
    return compared


def shares_by_code(recordings, found):
    """Markdown: of the samples to which the coders give each code, how many lie in a fixation of each method."""
    codes = sorted({code for r in recordings for given in r.coders.values() for code in given})
    counts = {code: 0 for code in codes}
    inside = {(method.name, code): 0 for method in METHODS for code in codes}
    for recording in recordings:
        for given in recording.coders.values():
            for code in given:
                counts[code] += 1
            for method in METHODS:
                flags = as_flags(found[method.name, recording.path.stem], len(recording.times))
                for code, flag in zip(given, flags):
                    inside[method.name, code] += flag
    lines = ["| in a fixation of | " + " | ".join(CODE_NAMES.get(code, code) for code in codes) + " |",
             "|---" * (len(codes) + 1) + "|"]
    for method in METHODS:
        shares = [f"{100 * inside[method.name, code] / counts[code]:.0f} %" for code in codes]
        lines.append(f"| {method.name} | " + " | ".join(shares) + " |")
    lines.append("| samples so called | " + " | ".join(str(counts[code]) for code in codes) + " |")
    return "\n".join(lines) + "\n"


def thresholds_by_rate(recordings, batch):
    """Markdown: agreement of the velocity detector at several thresholds, apart by sampling rate."""
    lines = ["| rate | threshold [degrees/s] | kappa | F1 overlap | F1 IoU >= 0.5 |", "|---|---|---|---|---|"]
    for rate in sorted({recording.rate for recording in recordings}):
        for threshold in THRESHOLDS:
            method = velocity("", "degree-per-s", 60, threshold, **SCREEN)
            total = Comparison([], [], 0, 0, [], [])
            for recording in (r for r in recordings if r.rate == rate):
                detected = recording.detected(batch, method)
                for intervals in recording.coded().values():
                    total.add(Comparison.of(detected, intervals, recording.times))
            lines.append(f"| {rate} Hz | {threshold} | " + " | ".join(total.measures()) + " |")
    return "\n".join(lines) + "\n"


def pages(recordings, batch):
    """All tables of the document."""
    found = {(method.name, recording.path.stem): recording.detected(batch, method)
             for method in METHODS for recording in recordings}
    compared = compare(recordings, found)
    settings = "".join(f"- {method.name}: {method.text()}\n" for method in METHODS)
    return (f"Settings:\n\n{settings}\n"
            f"All recordings together:\n\n{table(compared, total_only=True)}\n"
            f"What the coders call the samples that lie in a fixation:\n\n{shares_by_code(recordings, found)}\n"
            f"The velocity detector at other thresholds, minimum duration 60 ms, against both coders:\n\n"
            f"{thresholds_by_rate(recordings, batch)}\n"
            f"Each recording:\n\n{table(compared)}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("data_folder", type=pathlib.Path)
    parser.add_argument("vistrum_batch", type=pathlib.Path)
    parser.add_argument("--write", type=pathlib.Path, metavar="DOCUMENT", help="replace the tables of this document")
    arguments = parser.parse_args()
    text = pages(read_recordings(arguments.data_folder), arguments.vistrum_batch)
    if arguments.write:
        document = arguments.write.read_text(encoding="utf-8")
        arguments.write.write_text(replaced_between_marks(document, text), encoding="utf-8")
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
