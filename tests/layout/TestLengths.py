# SPDX-License-Identifier: GPL-3.0-or-later
import unittest

import length_rules as rules
from sample_tree import LayoutTest


def body(lines):
    """A body that covers so many lines, braces included."""
    return "{\n" + "    work();\n" * (lines - 2) + "}\n"


class TestLengths(LayoutTest):
    def test_real_tree(self):
        tree = self.real_tree()
        for rule in (rules.long_files, rules.long_functions, rules.long_python):
            with self.subTest(rule.__name__):
                self.assert_clean(rule(tree))

    def test_functions_of_the_real_tree_are_seen(self):
        file = next(file for file in self.real_tree().files if file.path == "src/base/Log.cpp")
        names = [header for header, _, _ in rules.function_bodies(rules.without_preprocessor(file.bare_code))]
        self.assertTrue(any("Log::clear" in name for name in names), names)

    def long_functions(self, text):
        return rules.long_functions(self.sample({"src/base/A.cpp": text}))

    def test_function_at_the_limit(self):
        self.assert_clean(self.long_functions("void work()\n" + body(60)))

    def test_function_above_the_limit(self):
        self.assert_complains(self.long_functions("void work()\n" + body(61)), "src/base/A.cpp:2", "61", "void work()")

    def test_long_functions_of_many_forms(self):
        for header in ("namespace a {\nclass B {\nint f() const override\n", "A::A(int x) : m_a{x}, m_b(x)\n",
                       "template <class T>\nauto f(T value) -> int\n", "class A : public B {\npublic:\n    A() ",
                       "A::A()\n    : m_a(1)\n    , m_b{2}\n", "struct Point origin(int x)\n",
                       "int a[] = {1, 2};\nconst B b{f(1), {2}};\nint f()\n", "#define A {\nint f()\n"):
            with self.subTest(header):
                self.assert_complains(self.long_functions(header + body(61)), "61 lines")

    def test_long_things_that_are_no_function(self):
        for header in ("namespace a ", "class A : public B ", "struct A ", "enum class Mode ", "int table[] = ",
                       "constexpr Row rows[count(1)] = ", 'extern "C" '):
            with self.subTest(header):
                self.assert_clean(self.long_functions(header + "{\n" + "    int a;\n" * 80 + "};\n"))

    def test_braces_in_texts_do_not_count(self):
        text = 'void a()\n{\n    f("{");  // {\n    g(\'{\'); /* { */ h(R"({)");\n}\n' + "int x;\n" * 80
        self.assert_clean(self.long_functions(text))

    def test_long_file(self):
        self.assert_clean(rules.long_files(self.sample({"src/base/A.cpp": "int a;\n" * 600})))
        self.assert_complains(rules.long_files(self.sample({"tests/base/A.cpp": "int a;\n" * 601})), "601")

    def test_long_python(self):
        self.assert_clean(rules.long_python(self.sample({"tests/a.py": "def f():\n" + "    g()\n" * 59})))
        tree = self.sample({"tests/a.py": "def f():\n" + "    g()\n" * 60})
        self.assert_complains(rules.long_python(tree), "61", "f")
        self.assert_complains(rules.long_python(self.sample({"docs/a.py": "a = 1\n" * 601})), "601")


if __name__ == "__main__":
    unittest.main()
