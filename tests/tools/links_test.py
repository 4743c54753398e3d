#!/usr/bin/env python3
"""Every link from one of the pages to a file of the checkout leads somewhere, and every picture is shown."""

import re
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)#\s]+)(#[^)]*)?\)")


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

    def test_every_picture_is_shown(self):
        shown = {(page.parent / target).resolve() for page in pages() for target in targets(page)}
        for picture in sorted((TOP / "docs/images").iterdir()):
            with self.subTest(picture=picture.name):
                self.assertIn(picture, shown)


if __name__ == "__main__":
    unittest.main()
