# SPDX-License-Identifier: GPL-3.0-or-later
import unittest

import type_rules as rules
from sample_tree import LayoutTest


class TestTypes(LayoutTest):
    def test_real_tree(self):
        self.assert_clean(rules.types_of_two_headers(self.real_tree()))

    def headers(self, first, second):
        return self.sample({"src/aoi/Span.h": first, "src/model/Time.h": second})

    def test_one_name_in_two_headers(self):
        for second in ("struct TimeSpan {\n};", "class TimeSpan final : public QObject {\n};", "enum class TimeSpan { A };",
                       "namespace a {\nstruct Other {};\n}\nstruct TimeSpan : Base<int> {};"):
            with self.subTest(second):
                tree = self.headers("struct TimeSpan {\n    int start;\n};\n", second)
                self.assert_complains(rules.types_of_two_headers(tree), "src/model/Time.h", "TimeSpan", "src/aoi/Span.h")

    def test_line_is_told(self):
        tree = self.headers("struct TimeSpan {};", "#pragma once\n\nstruct TimeSpan {};")
        self.assert_complains(rules.types_of_two_headers(tree), "src/model/Time.h:3")

    def test_what_is_no_second_type(self):
        for second in ("struct TimeSpan;", "namespace other {\nstruct TimeSpan {};\n}", "// struct TimeSpan {};",
                       "struct Outer {\n    struct TimeSpan {};\n};", "void f(struct TimeSpan span);",
                       "inline void f()\n{\n    struct TimeSpan {};\n}", "struct TimeSpanRow {};",
                       "class TimeSpan::Part : public Base {\n};"):
            with self.subTest(second):
                self.assert_clean(rules.types_of_two_headers(self.headers("struct TimeSpan {};", second)))

    def test_one_name_in_one_namespace(self):
        text = "namespace a {\nnamespace b {\nclass Row {};\n}\n}"
        tree = self.headers(text, "namespace a::b {\nclass Row {};\n}")
        self.assert_complains(rules.types_of_two_headers(tree), "a::b::Row")


if __name__ == "__main__":
    unittest.main()
