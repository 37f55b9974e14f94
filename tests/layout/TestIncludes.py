# SPDX-License-Identifier: GPL-3.0-or-later
import os
import unittest

import include_rules as rules
from sample_tree import LayoutTest

LISTS = {
    "src/base/CMakeLists.txt": "add_module(base CORE Log.cpp)",
    "src/base/Log.h": "#pragma once\n",
    "src/model/CMakeLists.txt": "add_module(model CORE Eye.cpp USES base)",
    "src/model/Eye.h": "#pragma once\n",
    "src/aoi/CMakeLists.txt": "add_module(aoi CORE Region.cpp PANEL panel/AoiForm.cpp USES model)",
    "src/aoi/Region.h": "#pragma once\n",
    "src/aoi/scene/RegionItem.h": "#pragma once\n",
    "src/aoi/panel/AoiForm.h": "#pragma once\n",
    "src/export/CMakeLists.txt": "add_module(export\n  CORE Csv.cpp # USES aoi\n  USES model\n  LIBRARIES Qt6::Svg)",
    "src/app/Window.h": "#pragma once\n",
}


class TestIncludes(LayoutTest):
    def test_real_tree(self):
        tree = self.real_tree()
        for rule in (rules.unresolved_includes, rules.unseen_modules, rules.upward_includes, rules.upward_uses,
                     rules.uses_of_later_modules, rules.wrongly_named_modules, rules.include_circles):
            with self.subTest(rule.__name__):
                self.assert_clean(rule(tree))

    def test_real_core_is_without_widgets(self):
        widgets = rules.widget_headers(os.environ["VISTRUM_WIDGET_HEADERS"].split(":"))
        self.assertTrue({"QWidget", "QMessageBox", "QGraphicsItem", "QOpenGLWidget", "qwidget.h"} <= widgets)
        self.assertFalse({"QImage", "QList", "QUndoStack", "QPainter"} & widgets)
        self.assert_clean(rules.widgets_in_core(self.real_tree(), widgets))

    def include(self, path, *lines):
        return self.sample({**LISTS, path: "".join(f"#include {line}\n" for line in lines)})

    def test_widget_header_in_core(self):
        for line in ("<QLabel>", "<QtWidgets/QLabel>", "<QtWidgets/qlabel.h>"):
            tree = self.include("src/aoi/Region.cpp", '"aoi/Region.h"', "<QImage>", line)
            self.assert_complains(rules.widgets_in_core(tree, {"QLabel"}), "src/aoi/Region.cpp:3", line)

    def test_widget_header_outside_core(self):
        for path in ("src/aoi/panel/AoiForm.cpp", "src/aoi/scene/RegionItem.cpp", "src/app/main.cpp"):
            self.assert_clean(rules.widgets_in_core(self.include(path, "<QLabel>"), {"QLabel"}))

    def test_path_that_does_not_begin_in_src(self):
        tree = self.include("src/aoi/Region.cpp", '"Region.h"', '"ui_AoiForm.h"', '"Region.moc"')
        self.assert_complains(rules.unresolved_includes(tree), "src/aoi/Region.cpp:1", "Region.h")

    def test_module_outside_uses(self):
        tree = self.include("src/export/Csv.cpp", '"aoi/Region.h"')
        self.assert_complains(rules.unseen_modules(tree), "src/export/Csv.cpp:1", "aoi/Region.h")

    def test_module_reached_through_another(self):
        tree = self.include("src/aoi/Region.cpp", '"model/Eye.h"', '"base/Log.h"')
        self.assert_clean(rules.unseen_modules(tree))

    def test_programs_see_all_modules_but_not_each_other(self):
        tree = self.include("src/batch/main.cpp", '"aoi/Region.h"', '"app/Window.h"')
        self.assert_complains(rules.unseen_modules(tree), "app/Window.h")

    def test_commented_include_does_not_count(self):
        code = '// #include "aoi/Region.h"\n/*\n#include "app/Window.h"\n*/'
        tree = self.sample({**LISTS, "src/export/Csv.cpp": code})
        self.assert_clean(rules.unseen_modules(tree) + rules.upward_includes(tree))

    def test_include_of_a_higher_module(self):
        self.assert_complains(rules.upward_includes(self.include("src/base/Log.cpp", '"model/Eye.h"')), "above base")
        self.assert_complains(rules.upward_includes(self.include("src/aoi/Region.cpp", '"app/Window.h"')), "above aoi")

    def test_include_of_a_higher_layer(self):
        for path, included in (("src/aoi/Region.cpp", "aoi/panel/AoiForm.h"),
                               ("src/aoi/Region.cpp", "aoi/scene/RegionItem.h"),
                               ("src/aoi/scene/RegionItem.cpp", "aoi/panel/AoiForm.h"),
                               ("src/batch/main.cpp", "aoi/panel/AoiForm.h"),
                               ("tools/simulator/main.cpp", "aoi/panel/AoiForm.h")):
            with self.subTest(path):
                self.assert_complains(rules.upward_includes(self.include(path, f'"{included}"')), path, included)

    def test_include_of_a_lower_layer(self):
        for path, included in (("src/aoi/panel/AoiForm.cpp", "aoi/scene/RegionItem.h"),
                               ("src/aoi/scene/RegionItem.cpp", "aoi/Region.h"),
                               ("src/batch/main.cpp", "aoi/scene/RegionItem.h"),
                               ("src/app/main.cpp", "aoi/panel/AoiForm.h")):
            self.assert_clean(rules.upward_includes(self.include(path, f'"{included}"')))

    def test_uses_of_a_higher_module(self):
        tree = self.sample({**LISTS, "src/base/CMakeLists.txt": "add_module(base CORE Log.cpp USES model)"})
        self.assert_complains(rules.upward_uses(tree), "src/base", "model")

    def test_uses_of_a_module_that_is_not_there(self):
        tree = self.sample({"src/aoi/CMakeLists.txt": "add_module(aoi CORE A.cpp USES statistics)"})
        self.assert_complains(rules.upward_uses(tree), "statistics")

    def test_uses_of_a_module_later_in_the_list(self):
        order = "add_subdirectory(base)\nforeach(module export aoi model)\n  add_subdirectory(${module})\nendforeach()\n"
        tree = self.sample({**LISTS, "src/CMakeLists.txt": order})
        self.assertEqual(tree.module_order, ["base", "export", "aoi", "model"])
        complaints = rules.uses_of_later_modules(tree)
        self.assertEqual(len(complaints), 2, complaints)
        self.assertIn("export USES model", complaints[0])
        self.assertIn("aoi USES model", complaints[1])

    def test_uses_of_modules_before_it_in_the_list(self):
        tree = self.sample({**LISTS, "src/CMakeLists.txt": "add_subdirectory(base)\nforeach(module model aoi export)\n"})
        self.assert_clean(rules.uses_of_later_modules(tree))

    def test_module_with_another_name_than_its_folder(self):
        tree = self.sample({"src/aoi/CMakeLists.txt": "add_module(regions CORE A.cpp)"})
        self.assert_complains(rules.wrongly_named_modules(tree), "regions")

    def test_circle_of_files(self):
        tree = self.sample({"src/base/A.h": '#include "base/B.h"\n', "src/base/B.h": '#include "base/C.h"\n',
                            "src/base/C.h": '#include "base/A.h"\n'})
        self.assert_complains(rules.include_circles(tree), "files", "src/base/A.h -> src/base/B.h -> src/base/C.h")

    def test_circle_of_folders(self):
        tree = self.sample({"src/aoi/A.h": '#include "model/M.h"\n', "src/model/M.h": "", "src/aoi/B.h": "",
                            "src/model/N.h": '#include "aoi/B.h"\n'})
        self.assert_complains(rules.include_circles(tree), "folders", "src/aoi -> src/model -> src/aoi")

    def test_circle_of_folders_within_a_module(self):
        tree = self.sample({"src/aoi/shapes/A.h": '#include "aoi/modes/M.h"\n', "src/aoi/modes/M.h": "",
                            "src/aoi/shapes/B.h": "", "src/aoi/modes/N.h": '#include "aoi/shapes/B.h"\n'})
        self.assert_complains(rules.include_circles(tree), "folders", "src/aoi/modes -> src/aoi/shapes -> src/aoi/modes")

    def test_circle_of_uses(self):
        tree = self.sample({"src/aoi/CMakeLists.txt": "add_module(aoi CORE A.cpp USES export)",
                            "src/export/CMakeLists.txt": "add_module(export CORE A.cpp USES aoi)"})
        self.assert_complains(rules.include_circles(tree), "USES", "aoi -> export -> aoi")


if __name__ == "__main__":
    unittest.main()
