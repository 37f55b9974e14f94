# SPDX-License-Identifier: GPL-3.0-or-later
import unittest

import habit_rules as rules
from sample_tree import LayoutTest


class TestHabits(LayoutTest):
    def test_real_tree(self):
        tree = self.real_tree()
        for rule in (rules.windows_below_panels, rules.connections_by_macro, rules.macros, rules.deletes,
                     rules.reminders, rules.settings_outside_their_module, rules.silent_folders, rules.unguarded_headers,
                     rules.ownerless_objects, rules.sources_without_licence, rules.mixed_spellings):
            with self.subTest(rule.__name__):
                self.assert_clean(rule(tree))

    def complaints(self, rule, code, path="src/aoi/Region.cpp"):
        return rule(self.sample({path: code}))

    def test_windows_below_panels(self):
        for word in ("QMessageBox box;", "QProgressDialog dialog;", "QFileDialog::getOpenFileName();",
                     "qApp->processEvents();"):
            for path in ("src/aoi/Region.cpp", "src/aoi/scene/Item.cpp", "src/batch/main.cpp"):
                self.assert_complains(self.complaints(rules.windows_below_panels, "\n" + word, path), path + ":2")
            self.assert_clean(self.complaints(rules.windows_below_panels, word, "src/aoi/panel/Form.cpp"))
            self.assert_clean(self.complaints(rules.windows_below_panels, word, "src/app/Vistrum.cpp"))
        self.assert_clean(self.complaints(rules.windows_below_panels, '// no QMessageBox\nf("QMessageBox");'))

    def test_connections_by_macro(self):
        self.assert_complains(self.complaints(rules.connections_by_macro, "connect(a, SIGNAL(b()), c);"), "SIGNAL")
        self.assert_complains(self.complaints(rules.connections_by_macro, "connect(a, b, c, SLOT(d()));"), "SLOT")

    def test_macros(self):
        self.assert_complains(self.complaints(rules.macros, "#define SQUARE(x) x * x\n"), "SQUARE")

    def test_deletes(self):
        self.assert_complains(self.complaints(rules.deletes, "delete item;"), "delete")
        self.assert_complains(self.complaints(rules.deletes, "delete[] items;"), "delete")
        self.assert_clean(self.complaints(rules.deletes, "A(const A &) = delete;\nA &operator=(const A &) =delete;"))

    def test_reminders(self):
        self.assert_complains(self.complaints(rules.reminders, "int a; // TODO later"), "TODO")

    def test_settings_outside_their_module(self):
        self.assert_complains(self.complaints(rules.settings_outside_their_module, "QSettings store;"), "QSettings")
        self.assert_complains(self.complaints(rules.settings_outside_their_module, "#include <QSettings>"), "QSettings")
        self.assert_clean(self.complaints(rules.settings_outside_their_module, "QSettings s;", "src/settings/A.cpp"))

    def test_silent_folders(self):
        self.assert_complains(self.complaints(rules.silent_folders, "QDir().mkpath(folder);"), "mkpath")
        self.assert_clean(self.complaints(rules.silent_folders, "// no mkpath\nmakeFolder(folder);"))

    def test_unguarded_headers(self):
        self.assert_complains(self.complaints(rules.unguarded_headers, "int a;\n", "src/aoi/A.h"), "src/aoi/A.h")
        self.assert_clean(self.complaints(rules.unguarded_headers, "#pragma once\nint a;\n", "src/aoi/A.h"))

    def test_sources_without_licence(self):
        self.assert_complains(self.complaints(rules.sources_without_licence, "#pragma once\n"), "first line")
        self.assert_complains(self.complaints(rules.sources_without_licence, "\n" + rules.LICENCE), "first line")
        self.assert_clean(self.complaints(rules.sources_without_licence, rules.LICENCE + "\nint a;\n"))

    def test_mixed_spellings(self):
        for code in ('f("Colour of the line");', 'f("a"\n  "two colours");', 'f(R"(<b>COLOUR</b>)");'):
            with self.subTest(code):
                self.assert_complains(self.complaints(rules.mixed_spellings, code), "users read")
        self.assert_clean(self.complaints(rules.mixed_spellings, '// its colour\nf("Color"); // "colour"'))
        form = '<ui>\n<string>%s</string></ui>'
        path = "src/aoi/panel/Form.ui"
        self.assert_complains(self.complaints(rules.mixed_spellings, form % "Line Colour", path), path + ":2")
        self.assert_clean(self.complaints(rules.mixed_spellings, form % "Line Color", path))

    def test_ownerless_objects(self):
        for code in ("auto *a = new Thing;", "Thing *a = new Thing();", "m_thing = new Thing(1, 2);",
                     "return new Thing(f(1));", "auto *a = new QList<int>;", 'auto *b = new QLabel("text");',
                     "if (x)\n    a = new ns::Thing;", "int *a = new int[5];"):
            with self.subTest(code):
                self.assert_complains(self.complaints(rules.ownerless_objects, "f();\n" + code), "nobody owns")

    def test_owned_objects(self):
        for code in ("std::unique_ptr<Thing> a(new Thing);", "stack.push(new Command(1,\n    2));",
                     "auto *a = new QLabel(text(), this);", "auto *a = new QLabel(parent);", "a.reset(new Thing());",
                     "auto *a = new QVBoxLayout(ui->box);", "std::unique_ptr<A> a{new A};", "// a new Thing\nf();",
                     "auto *a = new QTimer(&window);", "auto *a = new Item; // owned by the scene"):
            with self.subTest(code):
                self.assert_clean(self.complaints(rules.ownerless_objects, code))


if __name__ == "__main__":
    unittest.main()
