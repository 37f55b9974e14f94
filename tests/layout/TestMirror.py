# SPDX-License-Identifier: GPL-3.0-or-later
import unittest

import mirror_rules as rules
from sample_tree import LayoutTest

TREE = {
    "src/aoi/Region.cpp": "",
    "src/aoi/panel/Form.cpp": "",
    "src/aoi/CMakeLists.txt": "add_module(aoi\n  CORE Region.cpp\n  PANEL panel/Form.cpp)",
    "tests/aoi/TestRegion.cpp": "",
    "tests/aoi/CMakeLists.txt": "add_module_test(aoi Region)",
    "benchmarks/aoi/BenchmarkRegion.cpp": "",
    "benchmarks/aoi/CMakeLists.txt": "add_module_benchmark(aoi Region)",
}


class TestMirror(LayoutTest):
    def test_real_tree(self):
        tree = self.real_tree()
        for rule in (rules.modules_without_tests, rules.folders_without_modules, rules.unlisted_sources):
            with self.subTest(rule.__name__):
                self.assert_clean(rule(tree))

    def test_good_sample(self):
        tree = self.sample(TREE)
        self.assert_clean(rules.modules_without_tests(tree) + rules.folders_without_modules(tree))
        self.assert_clean(rules.unlisted_sources(tree))

    def test_module_without_tests(self):
        for path in ("src/statistics/Speed.cpp", "tools/simulator/main.cpp"):
            self.assert_complains(rules.modules_without_tests(self.sample({**TREE, path: ""})), path.split("/")[1])

    def test_tool_is_tested_under_the_name_of_its_library(self):
        tree = self.sample({**TREE, "tools/simulator/main.cpp": "", "tests/simulation/TestTrain.cpp": "",
                            "tools/simulator/CMakeLists.txt": "add_library(simulation STATIC Train.cpp)"})
        self.assert_clean(rules.modules_without_tests(tree) + rules.folders_without_modules(tree))

    def test_folder_with_helpers_only_is_no_test(self):
        tree = self.sample({**TREE, "src/statistics/Speed.cpp": "", "tests/statistics/Helpers.h": ""})
        self.assert_complains(rules.modules_without_tests(tree), "statistics")

    def test_folder_without_module(self):
        for area in ("tests", "benchmarks", "fuzz"):
            tree = self.sample({**TREE, f"{area}/aio/CMakeLists.txt": ""})
            self.assert_complains(rules.folders_without_modules(tree), f"{area}/aio")

    def test_source_that_is_not_built(self):
        for path in ("src/aoi/Geometry.cpp", "src/aoi/panel/Region.cpp", "tests/aoi/TestGeometry.cpp",
                     "benchmarks/aoi/BenchmarkGeometry.cpp", "tools/simulator/main.cpp"):
            with self.subTest(path):
                self.assert_complains(rules.unlisted_sources(self.sample({**TREE, path: ""})), path)


if __name__ == "__main__":
    unittest.main()
