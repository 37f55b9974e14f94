# SPDX-License-Identifier: GPL-3.0-or-later
"""What every layout test needs: the real tree, and small trees that break a rule on purpose."""

import os
import tempfile
import unittest
from pathlib import Path

from source_tree import SourceTree

REAL_ROOT = Path(os.environ.get("VISTRUM_SOURCE_DIR", Path(__file__).resolve().parents[2]))


class LayoutTest(unittest.TestCase):
    maxDiff = None

    def real_tree(self):
        tree = SourceTree(REAL_ROOT)
        self.assertGreater(len(tree.files_of("src")), 20, "The tree of the sources was not found.")
        return tree

    def sample(self, files):
        """A tree of {path: text} in a temporary folder."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        for path, text in files.items():
            target = Path(folder.name, path)
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text(text, encoding="utf-8")
        return SourceTree(folder.name)

    def assert_clean(self, complaints):
        self.assertEqual(complaints, [], "\n" + "\n".join(complaints))

    def assert_complains(self, complaints, *fragments):
        """Exactly one complaint, holding all the fragments."""
        self.assertEqual(len(complaints), 1, complaints)
        for fragment in fragments:
            self.assertIn(fragment, complaints[0])
