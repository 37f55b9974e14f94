# SPDX-License-Identifier: GPL-3.0-or-later
"""Recordings that are written as tables in ten layouts come back with the same samples.

    test_ten_layouts.py VISTRUM_IMPORT FOLDER   FOLDER has the recordings (.data)
"""

import gzip
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

IMPORT, FOLDER = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
SCREEN = 1600, 1200  # px
NAMES = [f"{eye}_{what}" for eye in "LR" for what in ("x", "y", "w", "h", "v")]


def samples(path):
    """[time in ms, then x, y, width, height and validity of each eye] of a recording, as numbers."""
    lines = path.read_text(encoding="latin-1").splitlines()
    rows = [line.split("\t") for line in lines if line[:1].isdigit() and line.count("\t") == 10]
    return [[int(row[0])] + [float(field) for field in row[1:]] for row in rows]


def columns(eye):
    return {"x": f"{eye}_x", "y": f"{eye}_y", "pupil": f"{eye}_w", "pupilHeight": f"{eye}_h", "validity": f"{eye}_v"}


class Form:
    """How a table is written, and the layout that says so."""

    def __init__(self, between=",", sign=".", unit="ms", written="utf-8", packed=False, place=None, point=None,
                 words=("1", "0"), missing=None, above="", named=True, **layout):
        self.between, self.sign, self.written, self.packed = between, sign, written, packed
        self.per_ms = {"s": 0.001, "ms": 1, "us": 1000, "ns": 1000000}[unit]
        self.point = point or (lambda x, y: (x, y))
        self.words, self.missing, self.above, self.named = words, missing, above, named
        self.layout = {"version": 1, "time": {"column": "t", "unit": unit}, "left": columns("L"),
                       "right": columns("R"), "valid": {"codes": [words[0]]}, **layout}
        if place:
            self.layout["place"] = place
        if missing:
            self.layout["missing"] = [missing]

    def eye(self, x, y, width, height, valid):
        places = self.point(x, y) if valid or not self.missing else (self.missing, self.missing)
        return [*places, width, height, self.words[0] if valid else self.words[1]]

    def text(self, field):
        return field if isinstance(field, str) else f"{field:.12g}".replace(".", self.sign)

    def table(self, rows):
        lines = [self.between.join(["t"] + NAMES)] if self.named else []
        for row in rows:
            time = row[0] * self.per_ms
            fields = [time if self.per_ms < 1 else f"{time}", *self.eye(*row[1:6]), *self.eye(*row[6:11])]
            lines.append(self.between.join(map(self.text, fields)))
        whole = (self.above + "\n".join(lines) + "\n").encode(self.written)
        return gzip.compress(whole) if self.packed else whole


def numbered():
    """The columns by their numbers, for a table without header."""
    places = {name: number for number, name in enumerate(NAMES, 2)}
    eyes = {side: {key: places[name] for key, name in columns(eye).items()}
            for side, eye in (("left", "L"), ("right", "R"))}
    return {"header": "no", "time": {"column": 1, "unit": "ms"}, **eyes}


WIDTH, HEIGHT = SCREEN
FORMS = {
    "comma and point": Form(),
    "semicolon and decimal comma": Form(";", ",", delimiter="semicolon", decimal="comma"),
    "tabs and microseconds": Form("\t", unit="us", delimiter="tab"),
    "seconds": Form(unit="s"),
    "share of the screen": Form(point=lambda x, y: (x / WIDTH, y / HEIGHT),
                                place={"unit": "normalised", "origin": "top-left", "screenPx": SCREEN}),
    "from the centre, upwards": Form(point=lambda x, y: (x - WIDTH / 2, HEIGHT / 2 - y),
                                     place={"unit": "px", "origin": "centre", "yAxis": "up", "screenPx": SCREEN}),
    "packed, words for validity": Form(packed=True, words=("gültig", "ungültig"), written="latin-1"),
    "UTF-16, missing -1": Form("|", written="utf-16", missing="-1", delimiter="bar"),
    "comments above, nanoseconds": Form(unit="ns", above="# of a tracker\n# with a head\n", comment="#"),
    "without header": Form("\t", named=False, delimiter="tab", **numbered()),
}


class TenLayouts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.place = pathlib.Path(folder.name)
        self.recordings = {path.stem: samples(path) for path in sorted(FOLDER.glob("*.data"))}
        self.recordings = {name: rows for name, rows in self.recordings.items() if rows}
        self.assertTrue(self.recordings)

    def written(self, number, form):
        """The recordings that come of all tables in this form, by their names."""
        place = self.place / str(number)
        place.mkdir()
        layout = place / "lab.layout.json"
        layout.write_text(json.dumps(form.layout), encoding="utf-8")
        tables = []
        for name, rows in self.recordings.items():
            tables.append(place / (name + (".csv.gz" if form.packed else ".csv")))
            tables[-1].write_bytes(form.table(rows))
        done = subprocess.run([IMPORT, "--quiet", "--layout", layout, "--out", place / "out", *tables],
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        return {path.stem: samples(path) for path in (place / "out").glob("*.data")}

    def assert_same(self, before, after):
        """The times count from the first sample or not, as the file has them; only a valid eye has a place."""
        self.assertEqual(len(before), len(after))
        for one, other in zip(before, after):
            self.assertEqual(one[0] - before[0][0], other[0] - after[0][0])
            for first in (1, 6):
                self.assertEqual(one[first + 4] > 0, other[first + 4] > 0, (one, other))
                if one[first + 4] > 0:
                    for mine, theirs in zip(one[first:first + 4], other[first:first + 4]):
                        self.assertAlmostEqual(mine, theirs, delta=1e-6)

    def test_forms(self):
        count = 0
        for number, (name, form) in enumerate(FORMS.items()):
            with self.subTest(name):
                after = self.written(number, form)
                self.assertEqual(set(after), set(self.recordings))
                for recording, rows in self.recordings.items():
                    self.assert_same(rows, after[recording])
                    count += len(rows)
        print(f"{len(FORMS)} layouts, {len(self.recordings)} recordings, {count} samples compared")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
