# SPDX-License-Identifier: GPL-3.0-or-later
"""What vistrum-batch writes as BIDS keeps the rules, and a data set that breaks one is found.

    test_bids_rules.py VISTRUM_BATCH SOURCE_DIR
"""

import csv
import gzip
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import bids_rules

BATCH, SOURCE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])


def run(folder, *arguments):
    outcome = subprocess.run([BATCH, "--quiet", *arguments], cwd=folder, capture_output=True, text=True)
    assert outcome.returncode == 0, outcome.stderr
    return outcome


class Rules(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.place = pathlib.Path(cls.folder.name)
        shutil.copytree(SOURCE / "examples" / "study", cls.place / "study")
        cls.recordings = [f"study/S0{number}.data" for number in range(1, 7)]
        run(cls.place, "--out", "out", "--calculate", "fixations", "--export", "bids", *cls.recordings)
        cls.dataset = cls.place / "out" / "vistrum_bids"

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def broken(self):
        copy = self.place / "broken"
        if copy.exists():
            shutil.rmtree(copy)
        shutil.copytree(self.dataset, copy)
        return copy, copy / "sub-S01" / "beh" / "sub-S01_task-viewing_run-1_"

    def test_the_example_study(self):
        self.assertEqual(bids_rules.complaints(self.dataset), [])
        self.assertEqual(len(list(self.dataset.rglob("*_physio.tsv.gz"))), 18)

    def test_every_choice_of_eyes_and_a_part_of_the_time(self):
        for eyes, files in (("left", 6), ("right", 6), ("dominant", 6), ("mean", 6)):
            with self.subTest(eyes):
                run(self.place, "--out", eyes, "--eyes", eyes, "--time", "1000:3000", "--export", "bids", *self.recordings)
                self.assertEqual(bids_rules.complaints(self.place / eyes / "vistrum_bids"), [])
                self.assertEqual(len(list((self.place / eyes).rglob("*_physio.tsv.gz"))), files)

    def test_screen_of_a_known_geometry(self):
        run(self.place, "--out", "degrees", "--background", "study/bay.png", "--detector", "velocity", "--velocity-unit",
            "degree-per-s", "--calculate", "fixations", "--export", "bids", *self.recordings)
        dataset = self.place / "degrees" / "vistrum_bids"
        self.assertEqual(bids_rules.complaints(dataset), [])
        screen = json.loads(next(dataset.rglob("*_events.json")).read_text())["StimulusPresentation"]
        self.assertEqual(screen["ScreenResolution"], [1280, 800])
        self.assertEqual([round(length, 12) for length in screen["ScreenSize"]], [0.4, 0.25])  # of the factory settings
        self.assertEqual(screen["ScreenDistance"], 0.6)

    def test_import_of_an_export_gives_the_same_tables(self):
        tables = ["--calculate", "fixations", "--export", "tidy,tidy-samples"]
        run(self.place, "--out", "first", *tables, *self.recordings)
        run(self.place, "--out", "second", *tables, "out/vistrum_bids")
        for path in (self.place / "first").iterdir():
            first = [line.split(",", 1)[1] for line in path.read_text().splitlines()]  # behind the recording's name
            second = [line.split(",", 1)[1] for line in (self.place / "second" / path.name).read_text().splitlines()]
            self.assertEqual(first, second, path.name)
            self.assertGreater(len(first), 1 if "cluster" not in path.name and "aoi" not in path.name else 0)

    def test_fixations_of_the_data_set_stand_until_they_are_calculated(self):
        run(self.place, "--out", "calculated", "--calculate", "fixations", "--export", "tidy", *self.recordings)
        outcome = run(self.place, "--out", "read", "--export", "tidy", "out/vistrum_bids")
        self.assertIn("fixations", outcome.stderr)
        self.assertIn("the calculation replaces them", outcome.stderr)
        columns = ("subject", "image", "eye", "onset_ms", "duration_ms", "x_px", "y_px")
        for kind in ("fixations", "saccades"):
            rows = []
            for origin in ("calculated", "read"):
                with open(self.place / origin / f"vistrum_tidy_{kind}.csv", encoding="utf-8", newline="") as file:
                    rows.append([[row[name] for name in columns] for row in csv.DictReader(file)])
            self.assertGreater(len(rows[0]), 100)
            self.assertEqual(rows[0], rows[1])

    def test_broken_names(self):
        copy, stem = self.broken()
        pathlib.Path(f"{stem}events.tsv").rename(copy / "sub-S01" / "beh" / "sub-S01_run-1_task-viewing_events.tsv")
        self.assertIn("out of order", "\n".join(bids_rules.complaints(copy)))

    def test_broken_participants(self):
        copy, _ = self.broken()
        shutil.rmtree(copy / "sub-S02")
        self.assertIn("not the folders of the subjects", "\n".join(bids_rules.complaints(copy)))

    def test_broken_description(self):
        for key in ("PhysioType", "RecordedEye", "SamplingFrequency", "StartTime", "Columns", "SampleCoordinateSystem"):
            with self.subTest(key):
                copy, stem = self.broken()
                path = pathlib.Path(f"{stem}recording-eye1_physio.json")
                path.write_text(json.dumps({name: value for name, value in json.loads(path.read_text()).items()
                                            if name != key}))
                self.assertIn(key, "\n".join(bids_rules.complaints(copy)))

    def test_broken_rows(self):
        for rows, told in (("0\t1\t2\t3\n", "each column"), ("0\t\t2\t3\t4\n", "n/a"), ("0\tx\t2\t3\t4\n", "no number"),
                           ("5\t1\t2\t3\t4\n4\t1\t2\t3\t4\n", "backwards")):
            with self.subTest(told):
                copy, stem = self.broken()
                pathlib.Path(f"{stem}recording-eye1_physio.tsv.gz").write_bytes(gzip.compress(rows.encode(), mtime=0))
                self.assertIn(told, "\n".join(bids_rules.complaints(copy)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
