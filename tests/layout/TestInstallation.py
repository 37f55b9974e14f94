# SPDX-License-Identifier: GPL-3.0-or-later
import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from sample_tree import REAL_ROOT


def release_number():
    return re.search(r"project\(Vistrum VERSION (\S+)", (REAL_ROOT / "CMakeLists.txt").read_text("utf-8"))[1]


class TestInstallation(unittest.TestCase):
    """Everything that the programs look for stands in the installed tree."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="installed tree ")
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = Path(folder.name)
        subprocess.run(["cmake", "--install", os.environ["VISTRUM_BINARY_DIR"], "--prefix", folder.name],
                       check=True, stdout=subprocess.DEVNULL)

    def test_programs(self):
        for name in ("vistrum", "vistrum-batch", "vistrum-import", "gaze-simulator", "tracker-simulator"):
            with self.subTest(name):
                self.assertTrue(os.access(self.prefix / "bin" / name, os.X_OK))

    def test_video_encoders_are_where_programs_look(self):
        self.assertTrue((self.prefix / "lib/vistrum/libvistrum_video.so").is_file())

    def test_batch_program_starts(self):
        command = [self.prefix / "bin/vistrum-batch", "--help"]
        answer = subprocess.run(command, check=True, capture_output=True, text=True)
        self.assertIn("--calculate", answer.stdout + answer.stderr)

    def test_version_needs_no_display(self):
        without = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        answer = subprocess.run([self.prefix / "bin/vistrum", "--version"], env=without, timeout=60,
                                capture_output=True, text=True)
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        self.assertRegex(answer.stdout, rf"\Avistrum \S+\nrelease {re.escape(release_number())}\b.*\n\Z")

    def test_data_is_that_of_the_sources(self):
        for installed, source in (("vistrum/factory_settings.ini", "data/factory_settings.ini"),
                                  ("applications/vistrum.desktop", "data/vistrum.desktop"),
                                  ("metainfo/org.vistrum.Vistrum.metainfo.xml", "data/org.vistrum.Vistrum.metainfo.xml"),
                                  ("doc/Vistrum/LICENSE", "LICENSE"),
                                  ("doc/Vistrum/README.md", "README.md"),
                                  ("doc/Vistrum/docs/validation.md", "docs/validation.md"),
                                  ("icons/hicolor/scalable/apps/vistrum.svg", "data/icons/vistrum.svg")):
            with self.subTest(installed):
                self.assertEqual((self.prefix / "share" / installed).read_bytes(), (REAL_ROOT / source).read_bytes())

    def test_examples(self):
        def recordings(folder):
            return sorted(path.name for path in folder.glob("study/*.data"))
        self.assertTrue(recordings(REAL_ROOT / "examples"))
        self.assertEqual(recordings(self.prefix / "share/vistrum/examples"), recordings(REAL_ROOT / "examples"))

    def test_release_is_one_number(self):
        """Citation, metainfo, change log and build name the same release."""
        release = release_number()
        for path, pattern in (("CITATION.cff", r"^version: (\S+)$"), ("CHANGELOG.md", r"^## (\S+)"),
                              ("data/org.vistrum.Vistrum.metainfo.xml", r'<release version="([^"]+)"')):
            with self.subTest(path):
                text = (REAL_ROOT / path).read_text(encoding="utf-8")
                self.assertEqual(re.search(pattern, text, re.MULTILINE)[1], release)

    def test_desktop_entry_names_what_is_installed(self):
        entry = (REAL_ROOT / "data/vistrum.desktop").read_text(encoding="utf-8")
        program = re.search(r"^Exec=(\S+)$", entry, re.MULTILINE)[1]
        icon = re.search(r"^Icon=(\S+)$", entry, re.MULTILINE)[1]
        self.assertTrue((self.prefix / "bin" / program).is_file())
        self.assertTrue((self.prefix / f"share/icons/hicolor/scalable/apps/{icon}.svg").is_file())

    def test_window_belongs_to_the_desktop_entry(self):
        """By this name a desktop gives the window its icon."""
        source = (REAL_ROOT / "src/app/main.cpp").read_text(encoding="utf-8")
        name = re.search(r'setDesktopFileName\(QStringLiteral\("([^"]+)"\)\)', source)[1]
        self.assertTrue((self.prefix / f"share/applications/{name}.desktop").is_file())


if __name__ == "__main__":
    unittest.main()
