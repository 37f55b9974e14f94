# SPDX-License-Identifier: GPL-3.0-or-later
"""What vistrum-batch writes as tidy tables, as pandas reads it with its defaults. The required tables are read with the
lines that the README gives.

    test_tidy_with_pandas.py VISTRUM_BATCH SOURCE_DIR
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import numpy
import pandas

BATCH, SOURCE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])

LEAD = {"recording": "object", "subject": "object", "group": "object", "image": "object", "eye": "object"}
DTYPES = {
    "fixations": "fixation:i onset_ms:i duration_ms:i samples:i x_px:i y_px:i mean_x_px:f mean_y_px:f "
                 "dispersion_px:f dispersion_deg:f major_axis_px:f minor_axis_px:f area_px2:f mean_velocity_px_per_s:f peak_velocity_px_per_s:f "
                 "mean_velocity_deg_per_s:f peak_velocity_deg_per_s:f pupil_width:f pupil_height:f aois:o cluster:i",
    "saccades": "saccade:i from_fixation:i to_fixation:i onset_ms:i duration_ms:i samples:i invalid_samples:i x_px:i "
                "y_px:i end_x_px:i end_y_px:i amplitude_px:f amplitude_deg:f direction_deg:f mean_velocity_px_per_s:f "
                "peak_velocity_px_per_s:f mean_velocity_deg_per_s:f peak_velocity_deg_per_s:f aois:o end_aois:o "
                "cluster:i end_cluster:i",
    "losses": "loss:i onset_ms:i duration_ms:i samples:i until_end:i",
    "clusters": "cluster:i onset_ms:i duration_ms:i dwell_ms:i fixations:i samples:i x_px:i y_px:i dispersion_px:f "
                "dispersion_deg:f major_axis_px:f minor_axis_px:f area_px2:f aois:o",
    "aois": "aoi:o visit:i onset_ms:i duration_ms:i dwell_ms:i fixations:i x_px:i y_px:i area_px2:i",
    "samples": "onset_ms:i x_px:f y_px:f pupil_width:f pupil_height:f valid:i velocity_px_per_s:f velocity_deg_per_s:f "
               "event:o fixation:i aois:o cluster:i",
}
NAMES = {"i": "int64", "f": "float64", "o": "object"}
PIXEL = 0.4 / 1280 / 0.6  # width of the picture and distance of the eye in the factory settings; width of the study's picture


def reader_of_the_manual():
    """The function that the README shows for the required tables."""
    text = (SOURCE / "README.md").read_text(encoding="utf-8")
    code = re.search(r"(?m)^    import io, pandas\n(?:    .*\n|\n)*?(?=    fixations =)", text)[0]
    scope = {}
    exec("\n".join(line[4:] for line in code.split("\n")), scope)
    return scope["read_required"]


class Tables(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.place = pathlib.Path(cls.folder.name)
        shutil.copytree(SOURCE / "examples" / "study", cls.place / "study")
        recordings = [f"study/S0{number}.data" for number in range(1, 7)]
        subprocess.run([BATCH, "--quiet", "--out", "out", "--group-by", "expertise", "--generate-aois", "grid",
                        "--background", "study/bay.png", "--detector", "velocity", "--velocity-unit", "degree-per-s",
                        "--calculate", "fixations,clusters", "--export", "tidy,tidy-samples,fixations,events",
                        *recordings], cwd=cls.place, check=True, stdout=subprocess.DEVNULL)
        cls.tables = {kind: pandas.read_csv(cls.place / "out" / f"vistrum_tidy_{kind}.csv") for kind in DTYPES}

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def stream(self, kind, recording, eye):
        table = self.tables[kind]
        return table[(table.recording == recording) & (table.eye == eye)].reset_index(drop=True)

    def test_columns_have_the_types_of_what_they_hold(self):
        for kind, columns in DTYPES.items():
            with self.subTest(kind):
                expected = LEAD | {name: NAMES[letter] for name, letter in
                                   (column.split(":") for column in columns.split())}
                self.assertEqual({name: str(dtype) for name, dtype in self.tables[kind].dtypes.items()}, expected)
                self.assertGreater(len(self.tables[kind]), 20)

    def test_bytes(self):
        for kind in DTYPES:
            content = (self.place / "out" / f"vistrum_tidy_{kind}.csv").read_bytes()
            self.assertTrue(content.startswith(b"recording,subject,group,image,eye,"))  # no mark
            self.assertEqual(content.count(b"\r"), 0)
            content.decode("utf-8")

    def test_who_was_recorded(self):
        lead = self.tables["samples"][list(LEAD)].drop_duplicates()
        self.assertEqual(sorted(lead.recording), sorted(2 * [f"S0{number}" for number in range(1, 7)]))
        self.assertEqual(set(lead.eye), {"left", "right"})
        for _, row in lead.iterrows():
            entries = dict(line.split("=") for line in
                           (self.place / "study" / f"{row.recording}.set").read_text().splitlines() if "=" in line)
            self.assertEqual((row.subject, row.group, row.image),
                             (entries["subjectID"], entries["expertise"], entries["picturename"]))

    def test_samples_are_those_of_the_recordings(self):
        for number in range(1, 7):
            name = f"S0{number}"
            lines = (self.place / "study" / f"{name}.data").read_text().splitlines()
            fields = numpy.array([[float(field) for field in line.split("\t")] for line in lines if line[:1].isdigit()])
            for eye, first in (("left", 1), ("right", 6)):
                with self.subTest(recording=name, eye=eye):
                    self.check_samples(self.stream("samples", name, eye), fields[:, 0] - fields[0, 0],
                                       fields[:, first:first + 5])

    def check_samples(self, table, times, measured):
        numpy.testing.assert_array_equal(table.onset_ms, times)
        valid = measured[:, 4] == 1
        numpy.testing.assert_array_equal(table.valid, valid.astype(int))
        expected = numpy.where(valid[:, None], measured[:, :4], numpy.nan)
        numpy.testing.assert_array_equal(table[["x_px", "y_px", "pupil_width", "pupil_height"]], expected)
        step = numpy.hypot(numpy.diff(expected[:, 0]), numpy.diff(expected[:, 1]))
        seconds = numpy.diff(times) / 1000
        numpy.testing.assert_allclose(table.velocity_px_per_s[1:], step / seconds, rtol=1e-12)
        numpy.testing.assert_allclose(table.velocity_deg_per_s[1:], numpy.degrees(numpy.arctan(step * PIXEL)) / seconds,
                                      rtol=1e-12)

    def test_fixations_are_made_of_their_samples(self):
        for (recording, eye), fixations in self.tables["fixations"].groupby(["recording", "eye"]):
            samples = self.stream("samples", recording, eye)
            samples = samples[(samples.fixation > 0) & (samples.valid == 1)]
            inside = samples.groupby("fixation")
            self.assertEqual(list(inside.groups), list(fixations.fixation))
            fixations = fixations.set_index("fixation")
            same = numpy.testing.assert_allclose
            same(fixations.onset_ms, inside.onset_ms.min())
            same(fixations.duration_ms, inside.onset_ms.max() - inside.onset_ms.min())
            same(fixations.samples, inside.size())
            for axis in ("x_px", "y_px"):
                same(fixations["mean_" + axis], inside[axis].mean(), rtol=1e-12)
                same(fixations[axis], inside[axis].mean(), rtol=0, atol=2)  # cut twice: each sample, and the mean
            extent = inside.x_px.max() - inside.x_px.min() + inside.y_px.max() - inside.y_px.min()
            same(fixations.dispersion_px, extent, rtol=1e-9)
            same(fixations.dispersion_deg, numpy.degrees(numpy.arctan(extent * PIXEL)), rtol=1e-9)
            same(fixations.pupil_width, inside.pupil_width.mean(), rtol=1e-9)
            for _, one in inside:
                steps = numpy.hypot(one.x_px.diff(), one.y_px.diff())[1:]
                seconds = one.onset_ms.diff()[1:] / 1000
                row = fixations.loc[one.fixation.iloc[0]]
                same(row.mean_velocity_px_per_s, steps.sum() / seconds.sum(), rtol=1e-9)
                same(row.peak_velocity_px_per_s, (steps / seconds).max(), rtol=1e-9)

    def test_saccades_join_the_fixations(self):
        for (recording, eye), saccades in self.tables["saccades"].groupby(["recording", "eye"]):
            fixations = self.stream("fixations", recording, eye)
            before, after = fixations[:-1].reset_index(), fixations[1:].reset_index()
            numpy.testing.assert_array_equal(saccades.onset_ms, before.onset_ms + before.duration_ms)
            numpy.testing.assert_array_equal(saccades.onset_ms + saccades.duration_ms.values, after.onset_ms)
            numpy.testing.assert_array_equal(saccades[["x_px", "y_px"]], before[["x_px", "y_px"]])
            numpy.testing.assert_array_equal(saccades[["end_x_px", "end_y_px"]], after[["x_px", "y_px"]])
            right, up = after.x_px - before.x_px, before.y_px - after.y_px
            numpy.testing.assert_allclose(saccades.amplitude_px, numpy.hypot(right, up), rtol=1e-12)
            direction = (numpy.degrees(numpy.arctan2(up, right)) % 360).where((up != 0) | (right != 0))
            numpy.testing.assert_allclose(saccades.direction_deg, direction, rtol=1e-9)
            self.assertEqual(list(saccades.cluster), list(before.cluster))
            self.assertEqual(list(saccades.end_cluster), list(after.cluster))

    def test_losses_are_the_runs_without_valid_sample(self):
        for (recording, eye), samples in self.tables["samples"].groupby(["recording", "eye"]):
            losses = self.stream("losses", recording, eye)
            begins = samples[(samples.valid == 0) & (samples.valid.shift(fill_value=1) == 1)]
            self.assertEqual(list(losses.onset_ms), list(begins.onset_ms))
            self.assertEqual(losses.samples.sum(), (samples.valid == 0).sum())

    def test_clusters_have_the_fixations_with_their_number(self):
        for (recording, eye), clusters in self.tables["clusters"].groupby(["recording", "eye"]):
            fixations = self.stream("fixations", recording, eye)
            inside = fixations[fixations.cluster > 0].groupby("cluster")
            self.assertEqual(list(clusters.cluster), list(inside.groups))
            self.assertEqual(list(clusters.fixations), list(inside.size()))
            self.assertEqual(list(clusters.dwell_ms), list(inside.duration_ms.sum()))

    def test_visits_are_the_runs_of_fixations_in_an_area(self):
        for (recording, eye, area), visits in self.tables["aois"].groupby(["recording", "eye", "aoi"]):
            inside = self.stream("fixations", recording, eye).aois == area  # tiles do not overlap
            fixations = self.stream("fixations", recording, eye)
            run = (inside != inside.shift()).cumsum()[inside]
            runs = fixations[inside].groupby(run)
            self.assertEqual(list(visits.onset_ms), list(runs.onset_ms.min()))
            self.assertEqual(list(visits.dwell_ms), list(runs.duration_ms.sum()))
            self.assertEqual(list(visits.fixations), list(runs.size()))
            self.assertEqual(list(visits.visit), list(range(1, len(visits) + 1)))

    def test_the_manual_reads_the_required_tables(self):
        read_required = reader_of_the_manual()
        for eye in ("left", "right"):
            fixations = self.tables["fixations"][self.tables["fixations"].eye == eye].reset_index()
            table = read_required(self.place / "out" / f"vistrum_fixations__fixations_{eye}.csv")
            self.assertEqual(list(table.subjectID), list(fixations.subject))
            self.assertEqual(list(table.mean_x), list(fixations.x_px))
            numpy.testing.assert_allclose(table.radius, fixations.major_axis_px, rtol=1e-5)  # six digits there
            events = read_required(self.place / "out" / f"vistrum_events_{eye}.csv", decimal=",")
            events = events[events.event == "fixation"].reset_index()
            self.assertEqual(list(events["onset(ms)"]), list(fixations.onset_ms))
            self.assertEqual(list(events["duration(ms)"]), list(fixations.duration_ms))
            numpy.testing.assert_allclose(events["radius(px)"], fixations.major_axis_px, rtol=1e-5)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
