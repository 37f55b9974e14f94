# SPDX-License-Identifier: GPL-3.0-or-later
import unittest

import local_name_rules as rules
from sample_tree import LayoutTest

# What declares `span` in an anonymous namespace, and how else it may look.
DECLARATIONS = {
    "function": "int span(int a)\n{\n    return a;\n}",
    "function without a body": "int span(QList<int> a, int b = 1);",
    "template": "template <class T, std::size_t N = (1 > 0)>\nQList<T> span(const T (&values)[N])\n{\n}",
    "function behind others": "struct A : B {\n    int x;\n};\nbool operator==(A a, A b)\n{\n}\nA span()\n{\n}",
    "function with a long result": "std::variant<QList<int>, QString> span() noexcept\n{\n}",
    "variable": "int span;",
    "constant": "constexpr int span = 5;",
    "second of a list": "int other = f(1, 2), span = 3;",
    "value in braces": "const QList<int> span{1, 2};",
    "value in parentheses": "constexpr QLatin1StringView span(\"a\");",
    "array": "constexpr Row<&A::b> span[] = {{1, 2}, {3, 4}};",
    "array of pointers to members": "constexpr double A::*span[] = {&A::b};",
    "pointer to function": "void (*span)(int) = nullptr;",
    "lambda": "const auto span = [](int a) { return a; };\nint other;",
    "value of a lambda": "const int span = [] { return 1; }();",
    "struct": "struct span {\n    int a;\n};",
    "class": "class span final : public Base<int> {\n};",
    "declared type": "struct span;",
    "enumeration": "enum class span : int { A, B };",
    "array of a type of its own": "struct {\n    int a;\n} span[] = {{1}};",
    "alias": "using span = int;",
    "old alias": "typedef QList<int> span;",
    "alias template": "template <class T>\nusing span = QList<T>;",
    "concept": "template <class T>\nconcept span = requires(T t) { t.x; };",
    "name of another namespace": "using other::a, other::span;",
    "behind preprocessor": "#if A\n#include <x>\n#endif\nQ_DECLARE_METATYPE(A)\nint span;",
    "behind attributes": "[[maybe_unused]] int span = 1;",
}

# What has the name in it and declares none.
NO_DECLARATIONS = {
    "member": "struct A {\n    int span;\n    int span() { return 1; }\n};",
    "enumerator": "enum class A { span };",
    "parameter": "void f(int span, int (&spans)[2]);",
    "parameter of a template": "template <class span>\nvoid f();",
    "within a function": "void f()\n{\n    int span = 1;\n    struct span {};\n}",
    "within a lambda": "const auto f = [] {\n    int span = 1;\n};",
    "member of another": "int A::span(int a)\n{\n}",
    "in a named namespace": "namespace a {\nnamespace {\n}\n}",
    "use": "constexpr int a = span;",
    "use in an initializer": "const QList<int> a{span(1), span(2)};",
    "specialization": "template <>\nint span<int>()\n{\n}",
    "text": "const char *a = \"int span;\"; // int span;",
    "longer name": "int spans;",
}


def source(code, include=""):
    return f"{include}namespace {{\n\n{code}\n\n}} // namespace\n\nint Shown::span() {{ return 1; }}\n"


class TestLocalNames(LayoutTest):
    def test_real_tree(self):
        tree = self.real_tree()
        for rule in (rules.local_names_of_headers, rules.local_names_of_two_sources):
            with self.subTest(rule.__name__):
                self.assert_clean(rule(tree))

    def test_local_name_of_a_header(self):
        for title, code in DECLARATIONS.items():
            with self.subTest(title):
                tree = self.sample({"src/model/A.h": "#pragma once\nint span();", "src/aoi/B.cpp": source(code)})
                self.assert_complains(rules.local_names_of_headers(tree), "src/aoi/B.cpp:", "span", "src/model/A.h")

    def test_name_in_a_header(self):
        for title, code in DECLARATIONS.items():
            with self.subTest(title):
                tree = self.sample({"src/model/A.h": code, "src/aoi/B.cpp": source("int span();")})
                self.assert_complains(rules.local_names_of_headers(tree), "src/aoi/B.cpp:3", "span", "src/model/A.h")

    def test_local_name_of_two_sources(self):
        for title, code in DECLARATIONS.items():
            with self.subTest(title):
                tree = self.sample({"src/aoi/A.cpp": source("long span();"), "src/aoi/panel/B.cpp": source(code)})
                self.assert_complains(rules.local_names_of_two_sources(tree), "src/aoi/panel/B.cpp:", "span",
                                      "src/aoi/A.cpp")

    def test_what_is_no_local_name(self):
        for title, code in NO_DECLARATIONS.items():
            with self.subTest(title):
                tree = self.sample({"src/model/A.h": "int span();", "src/aoi/A.cpp": source("int span();"),
                                    "src/model/B.cpp": source(code)})
                self.assertEqual(len(rules.local_names_of_headers(tree)), 1)
                tree = self.sample({"src/aoi/A.cpp": source("int span();"), "src/aoi/B.cpp": source(code)})
                self.assert_clean(rules.local_names_of_two_sources(tree))

    def test_what_is_no_name_of_a_header(self):
        for title, code in NO_DECLARATIONS.items():
            with self.subTest(title):
                tree = self.sample({"src/model/A.h": code, "src/aoi/B.cpp": source("int span();")})
                self.assert_clean(rules.local_names_of_headers(tree))

    def test_line_is_told(self):
        tree = self.sample({"src/model/A.h": "int span();", "src/aoi/B.cpp": source("int a;\n\n/* why */\nint span;")})
        self.assert_complains(rules.local_names_of_headers(tree), "src/aoi/B.cpp:6:")

    def test_namespaces_of_headers(self):
        header = "namespace words {\nint span();\n}"
        for include, complaints in (("", 0), ("using words::other;\n", 0), ("using namespace words;\n", 1),
                                    ("void f()\n{\n    using namespace words;\n}\n", 0)):
            with self.subTest(include):
                tree = self.sample({"src/model/A.h": header, "src/aoi/A.cpp": source("int span;"),
                                    "src/density/B.cpp": include + "int f();"})
                self.assertEqual(len(rules.local_names_of_headers(tree)), complaints)
        within = "namespace words {\n" + source("int span;") + "}"
        tree = self.sample({"src/model/A.h": header, "src/aoi/A.cpp": within})
        self.assert_complains(rules.local_names_of_headers(tree), "src/aoi/A.cpp:4", "src/model/A.h")

    def test_taken_over_within_an_anonymous_namespace(self):
        tree = self.sample({"src/model/A.h": "namespace words {\nint span();\n}", "src/aoi/A.cpp": source("int span;"),
                            "src/aoi/B.cpp": "#include \"a\"\n" + source("using namespace words;")})
        self.assert_complains(rules.local_names_of_headers(tree), "src/aoi/A.cpp", "src/model/A.h")

    def test_aliases(self):
        for first, second, complaints in (("using Text = A;", "using  Text =\n    A;", 0),
                                          ("using Text = A;", "using Text = B;", 1),
                                          ("using Text = A;", "struct Text {};", 1),
                                          ("using words::span;", "using words::span;", 0),
                                          ("using words::span;", "using others::span;", 1)):
            with self.subTest(second):
                tree = self.sample({"src/aoi/A.cpp": source(first), "src/aoi/B.cpp": source(second)})
                self.assertEqual(len(rules.local_names_of_two_sources(tree)), complaints)
        tree = self.sample({"src/model/A.h": "using Text = A;", "src/aoi/A.cpp": source("using Text = A;")})
        self.assert_complains(rules.local_names_of_headers(tree), "Text")

    def test_one_name_that_may_be_twice(self):
        name = source("int span();")
        for files in ({"src/aoi/A.cpp": source("int span(int a);\nint span(QString b);")},
                      {"src/aoi/A.cpp": name, "src/density/A.cpp": name},
                      {"src/aoi/A.cpp": name, "src/aoi/B.cpp": "int span();"},
                      {"src/aoi/A.cpp": name, "tests/aoi/A.cpp": name, "tests/aoi/A.h": "int span();"}):
            with self.subTest(files):
                tree = self.sample(files)
                self.assert_clean(rules.local_names_of_headers(tree) + rules.local_names_of_two_sources(tree))


if __name__ == "__main__":
    unittest.main()
