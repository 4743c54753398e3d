#!/usr/bin/env python3
"""Every link from one of the pages to a file of the checkout leads somewhere, every file that they name is there, and
every picture is shown."""

import re
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)#\s]+)(#[^)]*)?\)")
# `view/row_fill.cpp`, from the top of the checkout or from src/.
NAMED = re.compile(r"`((?:\w+/)+[\w.-]+\.(?:cpp|h|py|cmake|md))`")


def pages():
    return sorted([*TOP.glob("*.md"), *TOP.glob("docs/*.md")])


def targets(page):
    for target, _ in LINK.findall(page.read_text(encoding="utf-8")):
        if not re.match(r"[a-z]+:", target):
            yield target


class Links(unittest.TestCase):
    def test_every_link_leads_somewhere(self):
        followed = 0
        for page in pages():
            for target in targets(page):
                with self.subTest(page=page.name, target=target):
                    self.assertTrue((page.parent / target).exists())
                    followed += 1
        self.assertGreater(followed, 20)

    def test_every_file_that_a_page_names_is_there(self):
        for page in pages():
            for name in NAMED.findall(page.read_text(encoding="utf-8")):
                with self.subTest(page=page.name, name=name):
                    self.assertTrue((TOP / name).is_file() or (TOP / "src" / name).is_file())

    def test_where_things_are_decided_is_told_of_files_of_the_code(self):
        text = (TOP / "docs/architecture.md").read_text(encoding="utf-8")
        rows = re.findall(r"^\| .*\? \| (.*) \|$", text, re.MULTILINE)
        self.assertGreaterEqual(len(rows), 12)
        for row in rows:
            with self.subTest(row):
                named = NAMED.findall(row)
                self.assertTrue(named)
                self.assertEqual([name for name in named if not (TOP / "src" / name).is_file()], [])

    def test_every_picture_is_shown(self):
        shown = {(page.parent / target).resolve() for page in pages() for target in targets(page)}
        for picture in sorted((TOP / "docs/images").iterdir()):
            with self.subTest(picture=picture.name):
                self.assertIn(picture, shown)


if __name__ == "__main__":
    unittest.main()
