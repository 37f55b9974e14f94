# SPDX-License-Identifier: GPL-3.0-or-later
"""The Snakefile of examples/cluster gives what one run over all recordings gives, also after it was killed.

    test_cluster_example.py VISTRUM_BATCH SOURCE_DIR
"""

import gzip
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

BATCH, SOURCE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
SNAKEFILE = SOURCE / "examples" / "cluster" / "Snakefile"
TABLES = ("tidy_fixations", "tidy_saccades", "tidy_losses", "tidy_clusters", "tidy_aois", "quality")
LONGEST = 300  # seconds
HEADER = "participant,time,left_x,left_y,right_x,right_y\n"


def table_rows(participant, place):
    """One second: the gaze rests, and rests elsewhere."""
    return "".join(f"{participant},{4 * i},{x}.5,300.5,{x + 3}.5,302.5\n"
                   for i in range(250) for x in [place if i < 125 else place + 400])


def lost_rows(participant):
    return "".join(f"{participant},{4 * i},,,,\n" for i in range(250))


class Cluster(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.place = pathlib.Path(folder.name)
        self.recordings = self.place / "study"
        shutil.copytree(SOURCE / "examples" / "study", self.recordings)
        self.out = self.place / "out"
        self.config = []

    def command(self):
        return ["snakemake", "--snakefile", SNAKEFILE, "--cores", "2", "--directory", self.place, "--rerun-incomplete",
                "--nolock", "--config", f"recordings={self.recordings}", f"out={self.out}", f"batch={BATCH}",
                *self.config]

    def environment(self):
        return os.environ | {"HOME": str(self.place), "XDG_CACHE_HOME": str(self.place / "cache")}

    def run_all(self):
        outcome = subprocess.run(self.command(), capture_output=True, text=True, timeout=LONGEST, env=self.environment())
        self.assertEqual(outcome.returncode, 0, outcome.stderr[-3000:])

    def check_tables(self, *left_out):
        whole = self.place / "whole"
        names = sorted(str(path) for path in self.recordings.glob("*.data") if path.name not in left_out)
        subprocess.run([BATCH, "--quiet", "--calculate", "fixations", "--export", "tidy,quality", "--out", whole, *names],
                       check=True, stdout=subprocess.DEVNULL)
        for table in TABLES:
            expected = (whole / f"vistrum_{table}.csv").read_bytes()
            self.assertEqual((self.out / f"vistrum_{table}.csv").read_bytes(), expected, table)
        self.assertGreater((whole / "vistrum_tidy_fixations.csv").read_text().count("\n"), 100)

    def finished(self):
        return sorted(self.out.glob("recordings/*/report.json"))

    def test_killed_and_resumed(self):
        process = subprocess.Popen(self.command(), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   start_new_session=True, env=self.environment())
        end = time.monotonic() + LONGEST
        while not self.finished() and process.poll() is None and time.monotonic() < end:
            time.sleep(0.01)
        os.killpg(process.pid, signal.SIGKILL)  # a session of its own: nobody else is in it
        process.wait()
        self.run_all()
        self.check_tables()
        self.assertEqual((self.out / "left_out.txt").read_text(), "")

    def test_one_bad_recording_does_not_stop_the_others(self):
        (self.recordings / "S03.data").write_text("no samples\n")
        self.run_all()
        self.check_tables("S03.data")
        self.assertEqual((self.out / "left_out.txt").read_text(), f"{self.recordings}/S03.data\n")
        before = {path: path.stat().st_mtime_ns for path in self.finished()}
        shutil.copy(SOURCE / "examples" / "study" / "S03.data", self.recordings / "S03.data")  # mended
        self.run_all()
        self.check_tables()
        changed = [path.parent.name for path in self.finished() if path.stat().st_mtime_ns != before[path]]
        self.assertEqual(changed, ["S03.data"])

    def use_tables(self, **contents):
        """Tables of others instead of the study: a name without its end, and what lies behind the header."""
        self.recordings = self.place / "tables"
        self.recordings.mkdir()
        for name, rows in contents.items():
            (self.recordings / f"{name}.csv").write_text(HEADER + rows)

    def write_layout(self, **further):
        layout = {"version": 1, "kind": "delimited", "time": {"column": "time", "unit": "ms"},
                  "left": {"x": "left_x", "y": "left_y"}, "right": {"x": "right_x", "y": "right_y"},
                  "place": {"unit": "px"}}
        (self.place / "own.layout.json").write_text(json.dumps(layout | further))

    def check_joined(self, layout, status=0):
        """The tables are those of one run over all files, which ends with this status."""
        whole = self.place / "whole"
        names = sorted(str(path) for path in self.recordings.glob("*.csv*"))
        outcome = subprocess.run([BATCH, "--quiet", "--calculate", "fixations", "--export", "tidy,quality", "--layout",
                                  layout, "--out", whole, *names], cwd=self.place, capture_output=True, text=True)
        self.assertEqual(outcome.returncode, status, outcome.stderr)
        for table in TABLES:
            expected = (whole / f"vistrum_{table}.csv").read_bytes()
            self.assertEqual((self.out / f"vistrum_{table}.csv").read_bytes(), expected, table)
        return (whole / "vistrum_tidy_fixations.csv").read_text().splitlines()

    def test_table_with_a_recording_that_is_useless(self):
        self.use_tables(first=table_rows("A", 100) + lost_rows("B"), second=table_rows("C", 200))
        self.write_layout(split=["participant"])
        self.config = ["pattern=*.csv", "layout=own.layout.json"]
        self.run_all()
        fixations = self.check_joined("own.layout.json", status=1)
        self.assertEqual({row.split(",")[0] for row in fixations[1:]}, {"first_A", "second_C"})
        self.assertEqual((self.out / "left_out.txt").read_text(), f"{self.recordings}/first.csv (in part)\n")

    def pack(self, name):
        path = self.recordings / f"{name}.csv"
        with gzip.open(f"{path}.gz", "wt") as packed:
            packed.write(path.read_text())
        path.unlink()

    def changed_by(self, path, text):
        """The recordings that are calculated anew when the file has this text."""
        before = {each: each.stat().st_mtime_ns for each in self.finished()}
        path.write_text(text)
        self.run_all()
        return [each.parent.name for each in self.finished() if each.stat().st_mtime_ns != before.get(each)]

    def test_tables_that_are_looked_at(self):
        self.use_tables(one=table_rows("A", 100), two=table_rows("B", 200), three=table_rows("C", 300))
        self.config = ["layout=auto", "pattern=*.csv"]
        self.run_all()
        fixations = self.check_joined("auto")
        self.assertEqual(len(fixations), 1 + 3 * 2 * 2)
        self.assertEqual((self.out / "left_out.txt").read_text(), "")

    def test_all_that_a_recording_is_made_of(self):
        self.use_tables(one=table_rows("A", 100), two=table_rows("B", 200))
        self.pack("one")
        (self.recordings / "one.set").write_text("[subject]\nsubjectID=11\n")
        (self.place / "lab.txt").write_text("")
        (self.place / "areas.txt").write_text("")
        self.write_layout()
        self.config = ["pattern=*.csv*", "layout=own.layout.json", "depends=lab.txt,areas.txt"]
        self.run_all()
        self.check_joined("own.layout.json")
        self.assertEqual(self.changed_by(self.recordings / "one.set", "[subject]\nsubjectID=12\n"), ["one.csv.gz"])
        fixations = self.check_joined("own.layout.json")
        self.assertEqual(fixations[1].split(",")[:2], ["one", "12"])
        self.assertEqual(self.changed_by(self.place / "areas.txt", "#"), ["one.csv.gz", "two.csv"])
        layout = self.place / "own.layout.json"
        self.assertEqual(self.changed_by(layout, layout.read_text() + "\n"), ["one.csv.gz", "two.csv"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
