#!/usr/bin/env python3
"""The examples are short, every one of them is run, and the pages know how many there are."""

import re
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
EXAMPLES = sorted((TOP / "examples").glob("*.cpp"))
# To be read at one look.
MOST_LINES = 39
WIDEST = 100
NUMBERS = ["no", "one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten"]


class Examples(unittest.TestCase):
    def test_each_is_read_at_one_look(self):
        # Symptom: one had 73 lines.
        for example in EXAMPLES:
            with self.subTest(example.name):
                lines = example.read_text(encoding="utf-8").splitlines()
                self.assertLessEqual(len(lines), MOST_LINES)
                self.assertLessEqual(max(map(len, lines)), WIDEST)

    def test_each_is_whole_and_says_what_it_shows(self):
        # What is short because the rest lies in a helper of the examples is not to be copied.
        for example in EXAMPLES:
            with self.subTest(example.name):
                text = example.read_text(encoding="utf-8")
                self.assertTrue(text.startswith("// "))
                for included in re.findall(r'#include "([^"]+)"', text):
                    self.assertTrue((TOP / "src" / included).is_file(), included)

    def test_each_is_built_and_run(self):
        rules = (TOP / "examples/CMakeLists.txt").read_text(encoding="utf-8")
        self.assertEqual(sorted(re.findall(r"^\s*quorvale_example\((\w+)", rules, re.MULTILINE)),
                         [example.stem for example in EXAMPLES])

    def test_the_pages_know_how_many_there_are(self):
        for page in ("README.md", "docs/first-ten-minutes.md"):
            with self.subTest(page):
                said = re.findall(r"\[examples\]\([./]*examples\) holds (\w+) small hosts",
                                  (TOP / page).read_text(encoding="utf-8"))
                self.assertEqual(said, [NUMBERS[len(EXAMPLES)]])


if __name__ == "__main__":
    unittest.main()
