# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of the pure functions of tools/validation/validate_detection.py."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "tools" / "validation"))

import validate_detection as v  # noqa: E402
from validate_detection import Comparison, Interval  # noqa: E402

LABELS = "sample,time,MN,RA\n0,5000,1,2\n1,5002,1,1\n2,5004,2,1\n3,5006,1,1\n"

EVENTS_HEADER = "subjectID;subjectINFO;picture;event;eventcode;gazepoints;cluster;onset(ms);duration(ms);mean_x(px)\n"
EVENTS_ROWS = (
    '"S1";"subjectID=S1, group=T, ";a.png;fixation;0;51;0;100;200;512;300;12,5;;\n'
    '"S1";"subjectID=S1, group=T, ";a.png;saccade;1;4;;302;10;;;;120,25;33,5\n'
    '"S1";"subjectID=S1, group=T, ";a.png;fixation;0;20;0;312;88,5;400;200;9,1;;\n'
    "\n\n\n\nFixation mean duration:144,2500000000\n"
)


class Labels(unittest.TestCase):
    def test_times_start_at_zero_and_every_coder_is_read(self):
        times, coders = v.read_labels(LABELS)
        self.assertEqual(times, [0, 2, 4, 6])
        self.assertEqual(coders, {"MN": ["1", "1", "2", "1"], "RA": ["2", "1", "1", "1"]})

    def test_other_columns_are_left_out(self):
        self.assertEqual(v.read_labels("sample,time,trial,parser_L\n0,7,1,1\n"), ([0], {}))

    def test_empty_table(self):
        self.assertEqual(v.read_labels("sample,time,MN\n"), ([], {}))

    def test_runs_of_code_1_are_fixations(self):
        self.assertEqual(v.coded_fixations("1121311"), [Interval(0, 1), Interval(3, 3), Interval(5, 6)])
        self.assertEqual(v.coded_fixations("234"), [])


class Events(unittest.TestCase):
    def test_fixations_of_a_file_with_a_mark_before_each_block(self):
        content = EVENTS_HEADER.encode("utf-16") + EVENTS_ROWS.encode("utf-16")
        self.assertEqual(v.read_event_fixations(content), [(100, 300), (312, 400.5)])

    def test_samples_of_a_fixation_include_both_ends(self):
        times = [0, 2, 4, 6, 8, 10]
        self.assertEqual(v.as_intervals([(2, 6), (8.5, 9), (10, 30)], times), [Interval(1, 3), Interval(5, 5)])

    def test_adjacent_fixations_stay_apart(self):
        self.assertEqual(v.as_intervals([(0, 2), (4, 6)], [0, 2, 4, 6]), [Interval(0, 1), Interval(2, 3)])


class Recordings(unittest.TestCase):
    def test_rate_is_that_of_the_median_step(self):
        self.assertEqual(v.Recording(None, [0, 1, 3, 5, 8, 10, 5000], {}).rate, 500)
        self.assertEqual(v.Recording(None, [0, 5, 10, 15], {}).rate, 200)

    def test_stimulus_must_lie_beside_the_set_file(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "a.set").write_text("[subject]\npicturename=p.png\n", encoding="utf-8")
            self.assertIsNone(v.stimulus_of(folder / "a.set"))
            (folder / "p.png").write_bytes(b"")
            self.assertEqual(v.stimulus_of(folder / "a.set"), folder / "p.png")

    def test_settings_of_a_method(self):
        method = v.velocity("v", "percentile", 60, 90)
        self.assertEqual(method.options, ("--detector", "velocity", "--velocity-unit", "percentile"))
        self.assertEqual(method.settings["Calculation/Fixation/Velocity/VelocityThreshold"], 90)
        self.assertEqual(method.text(), "MinimumDuration 60, VelocityThreshold 90")


class Agreement(unittest.TestCase):
    def test_kappa_by_hand(self):
        a = [True, True, True, False, False, False, False, False, True, True]
        b = [True, True, False, False, False, False, True, False, True, True]
        # 8 of 10 agree; both have 5 of 10: expected 0.5; (0.8 - 0.5) / 0.5
        self.assertAlmostEqual(v.kappa(a, b), 0.6)

    def test_kappa_of_equal_and_of_opposite_accounts(self):
        self.assertEqual(v.kappa([True, False], [True, False]), 1)
        self.assertEqual(v.kappa([True, True], [True, True]), 1)
        self.assertEqual(v.kappa([True, False], [False, True]), -1)

    def test_overlap_and_iou(self):
        self.assertEqual(Interval(0, 9).overlap(Interval(5, 14)), 5)
        self.assertAlmostEqual(Interval(0, 9).iou(Interval(5, 14)), 5 / 15)
        self.assertEqual(Interval(0, 4).iou(Interval(5, 9)), 0)

    def test_pairs_are_one_to_one(self):
        long, parts = [Interval(0, 99)], [Interval(0, 29), Interval(30, 99)]
        self.assertEqual(v.matched_pairs(long, parts, Interval.overlap, 1), 1)
        self.assertEqual(v.matched_pairs(long, parts, Interval.iou, 0.5), 1)  # 70 of 100
        self.assertEqual(v.matched_pairs(long, parts[:1], Interval.iou, 0.5), 0)  # 30 of 100
        self.assertEqual(v.matched_pairs([], parts, Interval.overlap, 1), 0)

    def test_iou_of_exactly_one_half_counts(self):
        self.assertEqual(v.matched_pairs([Interval(0, 9)], [Interval(0, 4)], Interval.iou, 0.5), 1)

    def test_f1(self):
        self.assertAlmostEqual(v.f1(3, 4, 5), 6 / 9)
        self.assertEqual(v.f1(0, 0, 0), 1)
        self.assertEqual(v.f1(0, 3, 0), 0)


class Table(unittest.TestCase):
    def test_rows_and_totals(self):
        times = list(range(0, 20, 2))
        first = Comparison.of([Interval(0, 4)], [Interval(0, 4)], times)
        second = Comparison.of([Interval(0, 4)], [], times)
        compared = [("one", "standard / MN", first), ("two", "standard / MN", second)]
        lines = v.table(compared).splitlines()
        self.assertEqual(lines[2], "| one | standard / MN | 1.000 | 1.000 | 1.000 | 1 / 1 | 8 / 8 |")
        self.assertEqual(lines[3], "| two | standard / MN | 0.000 | 0.000 | 0.000 | 1 / 0 | 8 / - |")
        # 20 samples, 15 agree; shares 0.5 and 0.25: expected 0.5; 2 * 1 / 3 events.
        totals = v.table(compared, total_only=True).splitlines()
        self.assertEqual(totals, lines[:2] + ["| all | standard / MN | 0.500 | 0.667 | 0.667 | 2 / 1 | 8 / 8 |"])
        self.assertEqual(len(first.flags_a), 10)  # the totals leave the parts alone

    def test_shares_of_each_code(self):
        recording = v.Recording(pathlib.Path("one.data"), [0, 2, 4, 6, 8], {"MN": list("11442"), "RA": list("11111")})
        found = {(method.name, "one"): [Interval(1, 2)] for method in v.METHODS}
        lines = v.shares_by_code([recording], found).splitlines()
        self.assertEqual(lines[0], "| in a fixation of | fixation | saccade | pursuit |")
        # 3 of 7 called fixation lie in it, none of 1 saccade, 1 of 2 of pursuit
        self.assertEqual(lines[2], "| standard | 43 % | 0 % | 50 % |")
        self.assertEqual(lines[-1], "| samples so called | 7 | 1 | 2 |")

    def test_text_between_the_marks_is_replaced(self):
        document = f"before\n{v.BEGIN_MARK}\nold\n{v.END_MARK}\nafter\n"
        self.assertEqual(
            v.replaced_between_marks(document, "new\n"), f"before\n{v.BEGIN_MARK}\nnew\n{v.END_MARK}\nafter\n"
        )
        with self.assertRaises(ValueError):
            v.replaced_between_marks("no marks", "new\n")

    def test_the_document_has_the_marks(self):
        document = pathlib.Path(__file__).parents[2] / "docs" / "validation.md"
        self.assertIn("x\n", v.replaced_between_marks(document.read_text(encoding="utf-8"), "x\n"))


if __name__ == "__main__":
    unittest.main()
