#!/usr/bin/env python3
"""The layer check must catch what it is there for: each test writes a small tree with one fault."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import check_layers


class CheckLayers(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.addCleanup(self.place.cleanup)
        self.src = Path(self.place.name) / "src"
        self.write("base/text.h", "#pragma once\n#include <string>\n")
        self.write("base/text.cpp", '#include "base/text.h"\n')
        self.write("base/CMakeLists.txt", "quorvale_folder(base SOURCES text.cpp)\n")
        self.write("state/view.h", '#pragma once\n#include "base/text.h"\n')
        self.write("state/CMakeLists.txt", "quorvale_folder(state USES base)\n")
        self.write("view/layout.h", '#pragma once\n#include "state/view.h"\n')
        self.write("view/CMakeLists.txt", "quorvale_folder(view SOURCES layout.cpp USES state)\n")
        self.write("view/layout.cpp", '#include "view/layout.h"\n#include "base/text.h"\n')

    def write(self, name, text):
        path = self.src / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def assert_finds(self, *pieces):
        findings = check_layers.check(self.src)
        self.assertEqual(len(findings), 1, findings)
        for piece in pieces:
            self.assertIn(piece, findings[0])

    def test_a_clean_tree_has_no_findings(self):
        self.assertEqual(check_layers.check(self.src), [])

    def test_an_include_that_points_up(self):
        self.write("base/text.cpp", '#include "state/view.h"\n')
        findings = check_layers.check(self.src)
        self.assertIn("base/ may not include state/", findings[0])

    def test_an_include_that_points_up_makes_the_program_fail(self):
        self.write("base/text.cpp", '  #  include "state/view.h"\n')
        ran = subprocess.run([sys.executable, check_layers.__file__, str(self.src)],
                             capture_output=True, text=True, check=False)
        self.assertEqual(ran.returncode, 1)
        self.assertIn("src/base/text.cpp", ran.stdout)

    def test_a_clean_tree_makes_the_program_succeed(self):
        ran = subprocess.run([sys.executable, check_layers.__file__, str(self.src)],
                             capture_output=True, text=True, check=False)
        self.assertEqual((ran.returncode, ran.stdout), (0, "5 files, 0 findings\n"))

    def test_an_empty_tree_is_no_success(self):
        empty = Path(self.place.name) / "empty"
        empty.mkdir()
        ran = subprocess.run([sys.executable, check_layers.__file__, str(empty)],
                             capture_output=True, text=True, check=False)
        self.assertEqual(ran.returncode, 2)

    def test_an_include_that_points_sideways(self):
        self.write("navigation/CMakeLists.txt", "quorvale_folder(navigation USES state)\n")
        self.write("navigation/scrolling.h", '#include "view/layout.h"\n')
        findings = check_layers.check(self.src)
        self.assertIn("navigation/ may not include view/", findings[0])

    def test_every_pair_of_behaviours_is_kept_apart(self):
        for one in check_layers.BEHAVIOURS:
            self.assertFalse(check_layers.PICTURE[one] & check_layers.BEHAVIOURS, one)

    def test_the_picture_has_no_circle(self):
        self.assertIsNone(check_layers.find_cycle(check_layers.PICTURE))

    def test_an_include_in_a_comment_does_not_count(self):
        self.write("base/text.cpp", '// #include "state/view.h"\n/*\n#include "state/view.h"\n*/\n')
        self.assertEqual(check_layers.check(self.src), [])

    def test_files_that_include_one_another(self):
        self.write("state/rows.h", '#include "state/view.h"\n')
        self.write("state/view.h", '#include "state/rows.h"\n')
        self.assert_finds("circle", "state/rows.h -> state/view.h")

    def test_a_file_that_includes_itself(self):
        self.write("state/view.h", '#include "state/view.h"\n')
        self.assert_finds("circle", "state/view.h -> state/view.h")

    def test_an_include_without_its_folder(self):
        self.write("view/layout.cpp", '#include "layout.h"\n')
        self.assert_finds('"layout.h" is no file below src/')

    def test_qt_in_the_core(self):
        for include in ("<QString>", "<QtWidgets/QWidget>", "<QtCore>", "<qstring.h>"):
            with self.subTest(include=include):
                self.write("view/layout.cpp", f"#include {include}\n")
                self.assert_finds("Qt stays in designer/ and qt/ and viewer/")

    def test_qt_in_the_qt_layer(self):
        self.write("qt/CMakeLists.txt", "quorvale_folder(qt SOURCES widget.cpp USES view)\n")
        self.write("qt/widget.cpp", '#include <QWidget>\n#include "widget.moc"\n')
        self.assertEqual(check_layers.check(self.src), [])

    def test_a_long_header_and_a_long_source(self):
        self.write("state/view.h", "\n" * 151)
        self.assert_finds("src/state/view.h: 151 lines, 150 are allowed")
        self.write("state/view.h", "\n" * 150)
        self.write("base/text.cpp", "\n" * 401)
        self.assert_finds("src/base/text.cpp: 401 lines, 400 are allowed")

    def test_a_target_that_uses_what_is_above_it(self):
        self.write("state/CMakeLists.txt", "quorvale_folder(state USES base view)\n")
        self.assert_finds("src/state/CMakeLists.txt: USES view")

    def test_a_target_that_does_not_use_what_it_includes(self):
        self.write("state/CMakeLists.txt", "quorvale_folder(state\n    # USES base\n)\n")
        self.write("view/CMakeLists.txt", "quorvale_folder(view SOURCES layout.cpp USES base state)\n")
        self.assert_finds("src/state/CMakeLists.txt: includes base/")

    def test_a_source_that_no_target_names(self):
        self.write("base/more_text.cpp", "")
        self.assert_finds("src/base/CMakeLists.txt: does not name more_text.cpp")

    def test_a_folder_that_is_not_in_the_picture(self):
        self.write("helpers/CMakeLists.txt", "quorvale_folder(helpers)\n")
        self.assert_finds("helpers", "not in the picture")

    def test_a_folder_that_nothing_builds(self):
        (self.src / "view/CMakeLists.txt").unlink()
        self.assert_finds("no quorvale_folder(view ...)")


if __name__ == "__main__":
    unittest.main()
