# SPDX-License-Identifier: GPL-3.0-or-later
import unittest

import key_rules as rules
from sample_tree import LayoutTest

TREE = {
    "src/settings/StoredKeys.h": 'inline constexpr StoredKey<QString> version{"Version"_L1};\n'
                                 'inline constexpr StoredKey<int> eye{"Drawing/Eye"_L1};\n',
    "src/aoi/AoiSettingsModel.h": 'inline constexpr Parameter limit{\n'
                                  '    &M::limit, "Calculation/Limit"_L1, 5, "Text"_L1};\n'
                                  'inline constexpr ParameterStoredAs<M, int> unit{\n'
                                  '    {&M::unit, "Calculation/Unit"_L1, 0, "Unit: %1"_L1}, stored, loaded};',
    "src/aoi/AoiParameters.h": 'inline const Parameter width{&P::width, QLatin1StringView("/Width"), 1};\n'
                               'inline constexpr Parameter size{&P::size, "/Size"_L1, 1}; // of "Drawing/Comment"\n',
    "src/aoi/AoiParameters.cpp": 'P first() { return load(QStringLiteral("Drawing/First"), "First"); }\n'
                                 'P second() { return load(QStringLiteral("Drawing/Second"), "Second"); }\n',
    "data/factory_settings.ini": "Version=1\nDrawing/Eye=0\nCalculation/Limit=5\nCalculation/Unit=0\n"
                                 "Drawing/First/Width=1\nDrawing/First/Size=1\nDrawing/Second/Width=1\nDrawing/Second/Size=\n",
}
ALL_RULES = (rules.suffixes_without_path, rules.keys_outside_tables, rules.keys_declared_twice,
             rules.keys_unlike_factory, rules.unreadable_factory_lines)


class TestSettingsKeys(LayoutTest):
    def test_real_tree(self):
        tree = self.real_tree()
        for rule in ALL_RULES:
            with self.subTest(rule.__name__):
                self.assert_clean(rule(tree))

    def test_rows_of_the_real_tree_are_seen(self):
        known = {"Version", "ImportModule/lastbasepath", "Calculation/Fixation/Standard/MaximumRadius",
                 "Visualization/Gazepoint/BorderWidth", "Visualization/Saccade/ACM_start_c4"}
        self.assert_clean(sorted(known - set(rules.full_keys(self.real_tree()))))

    def changed(self, path, old, new):
        self.assertIn(old, TREE[path])
        return self.sample({**TREE, path: TREE[path].replace(old, new)})

    def test_good_sample(self):
        tree = self.sample(TREE)
        for rule in ALL_RULES:
            self.assert_clean(rule(tree))
        self.assertEqual(sorted(rules.full_keys(tree)), sorted(
            ["Version", "Drawing/Eye", "Calculation/Limit", "Calculation/Unit", "Drawing/First/Width",
             "Drawing/First/Size", "Drawing/Second/Width", "Drawing/Second/Size"]))

    def test_key_outside_the_tables(self):
        for literal in ("Drawing/Eye", "Drawing/Unknown", "Drawing/First", "/Width", "Version", "Calculation/"):
            for path in ("src/aoi/Region.cpp", "src/aoi/panel/Form.h", "tools/simulator/main.cpp"):
                tree = self.sample({**TREE, path: f'int a;\nread("{literal}"_L1);\n'})
                self.assert_complains(rules.keys_outside_tables(tree), path + ":2", literal)

    def test_key_in_a_table_but_in_no_row(self):
        tree = self.changed("src/settings/StoredKeys.h", "inline", '// "Drawing/Eye"\nauto x = "Drawing/Eye";\ninline')
        self.assertTrue(rules.keys_outside_tables(tree))

    def test_words_that_are_no_keys(self):
        code = '#include "Drawing/Eye"\n// "Drawing/Eye"\nf("a/Drawing/Eye", "The Version", "Drawing", "/");\n'
        self.assert_clean(rules.keys_outside_tables(self.sample({**TREE, "src/aoi/Region.cpp": code})))

    def test_key_declared_twice(self):
        tree = self.changed("src/aoi/AoiSettingsModel.h", "Calculation/Limit", "Drawing/Eye")
        self.assert_complains(rules.keys_declared_twice(tree), "Drawing/Eye")

    def test_full_key_that_is_also_made_of_path_and_suffix(self):
        tree = self.changed("src/settings/StoredKeys.h", "Drawing/Eye", "Drawing/First/Width")
        self.assert_complains(rules.keys_declared_twice(tree), "Drawing/First/Width")

    def test_suffixes_without_path(self):
        tree = self.sample({path: text for path, text in TREE.items() if path != "src/aoi/AoiParameters.cpp"})
        self.assert_complains(rules.suffixes_without_path(tree), "src/aoi/AoiParameters.h")

    def test_row_without_factory_value(self):
        tree = self.changed("data/factory_settings.ini", "Drawing/Second/Width=1\n", "")
        self.assert_complains(rules.keys_unlike_factory(tree), "Drawing/Second/Width", "no value")

    def test_factory_value_without_row(self):
        tree = self.changed("data/factory_settings.ini", "Version=1", "Version=1\nDrawing/Third/Width=1")
        self.assert_complains(rules.keys_unlike_factory(tree), "Drawing/Third/Width", "in no row")

    def test_two_factory_values(self):
        tree = self.changed("data/factory_settings.ini", "Version=1", "Version=1\nVersion=2")
        self.assert_complains(rules.keys_unlike_factory(tree), "Version", "2 times")

    def test_missing_factory_file(self):
        tree = self.sample({path: text for path, text in TREE.items() if not path.startswith("data/")})
        self.assertEqual(len(rules.keys_unlike_factory(tree)), 8)

    def test_factory_line_that_would_not_be_read(self):
        for line in ("Version", "Version=1=2", "[Drawing]", ""):
            tree = self.changed("data/factory_settings.ini", "Version=1", line)
            self.assert_complains(rules.unreadable_factory_lines(tree), ":1: " + line)


if __name__ == "__main__":
    unittest.main()
