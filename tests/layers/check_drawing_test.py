#!/usr/bin/env python3
"""The check of the drawing must catch what it is there for: each test has one fault."""

import tempfile
import unittest
from pathlib import Path

import check_drawing

DRAWING = """# Page

## The layers

    viewer/      the application        uses search, adapters
    adapters/    the outside world      uses base
    view/  search/                      use state,
                 side by side           resources
    state/       plain data             uses base
    resources/   texts                  uses base
    base/        integers               uses nothing

Each folder is one library.
"""
LINKED = {"viewer": "search adapters", "adapters": "base", "view": "state base",
          "search": "state resources base", "state": "base", "resources": "base", "base": ""}


class CheckDrawing(unittest.TestCase):
    def findings(self, page=DRAWING, **linked):
        with tempfile.TemporaryDirectory() as place:
            for folder, uses in (LINKED | linked).items():
                path = Path(place) / folder / "CMakeLists.txt"
                path.parent.mkdir()
                path.write_text(f"quorvale_folder({folder} SOURCES a.cpp"
                                + (f" USES {uses})\n" if uses else ")\n"), encoding="utf-8")
            return check_drawing.check(place, page)

    def assert_finds(self, words, page=DRAWING, **linked):
        findings = self.findings(page, **linked)
        self.assertTrue(any(words in finding for finding in findings), findings)

    def test_a_true_drawing_has_no_findings(self):
        self.assertEqual(self.findings(), [])

    def test_all_below_is_everything_drawn_further_down(self):
        page = DRAWING.replace("uses search, adapters", "uses all below")
        self.assertEqual(self.findings(page, viewer="adapters view search"), [])

    def test_a_link_that_is_not_drawn(self):
        self.assert_finds("state/ uses resources, which the drawing", state="base resources")

    def test_a_drawn_use_that_nobody_links(self):
        self.assert_finds("lets view/ use resources", search="state base")

    def test_folders_that_are_missing_on_one_side(self):
        self.assert_finds("extra/ is not in the drawing", extra="base")
        self.assert_finds("gone/ is drawn",
                          DRAWING.replace("    base/", "    gone/   nothing   uses base\n    base/"))

    def test_uses_that_point_up_or_are_not_said(self):
        self.assert_finds("view does not stand below state",
                          DRAWING.replace("plain data             uses base",
                                          "plain data             uses view"))
        self.assert_finds("does not say what state uses",
                          DRAWING.replace("plain data             uses base", "plain data"))

    def test_a_page_without_a_drawing(self):
        self.assert_finds("base/ is not in the drawing", "# Page\n\n## The layers\n\nWords.\n")


if __name__ == "__main__":
    unittest.main()
