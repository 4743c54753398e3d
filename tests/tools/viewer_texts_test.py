#!/usr/bin/env python3
"""What the viewer says: every text in its sources has a Japanese and a Korean one, with the same
values in it, and each menu's access keys differ in every language."""

import re
import unittest
from pathlib import Path

VIEWER = Path(__file__).resolve().parents[2] / "src/viewer"
LITERALS = r'(?:"(?:[^"\\]|\\.)*"\s*)+'


def joined(literals):
    return "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals))


def said():
    """Every text that a source hands to be translated, with the name of the source."""
    for source in sorted(VIEWER.glob("*.cpp")):
        text = source.read_text(encoding="utf-8")
        for found in re.finditer(r"\btr\(\s*(" + LITERALS + ")", text):
            yield source.name, joined(found.group(1))


def table():
    """The translated texts: English to Japanese and Korean; the same one twice is a fault."""
    rows = {}
    for source in sorted(VIEWER.glob("texts_of_*.cpp")):
        text = source.read_text(encoding="utf-8")
        row = r"\{\s*(" + LITERALS + r"),\s*(" + LITERALS + r"),\s*(" + LITERALS + r")\}"
        for found in re.finditer(row, text):
            english, japanese, korean = (joined(part) for part in found.groups())
            assert english not in rows, f"{english!r} stands there twice"
            rows[english] = (japanese, korean)
    return rows


def access_key(caption):
    found = re.search(r"&(\w)", caption.replace("&&", ""))
    return found.group(1).lower() if found else None


class ViewerTexts(unittest.TestCase):
    def test_every_text_is_translated(self):
        rows = table()
        missing = [f"{source}: {text}" for source, text in said() if text not in rows]
        self.assertEqual(missing, [])

    def test_the_search_for_texts_finds_them(self):
        texts = {text for _, text in said()}
        self.assertIn("&Open...", texts)
        self.assertGreater(len(texts), 80)

    def test_translations_are_whole(self):
        for english, translated in table().items():
            for text in translated:
                with self.subTest(english):
                    self.assertTrue(text.strip())
                    self.assertEqual(sorted(re.findall("%[1-9]", text)),
                                     sorted(re.findall("%[1-9]", english)))
                    self.assertEqual(access_key(text) is None, access_key(english) is None)
                    self.assertEqual(text.endswith("..."), english.endswith("..."))

    def test_no_plural_is_shown_raw(self):
        self.assertEqual([text for _, text in said() if "(s)" in text or "%n" in text], [])

    def test_the_keys_of_a_menu_differ(self):
        rows = table()
        for source in ("edit_menu.cpp", "search_menu.cpp", "help_menu.cpp"):
            texts = [text for name, text in said() if name == source]
            self.check_keys(source, texts, rows)
        view = [text for name, text in said() if name in ("view_menu.cpp", "look_menu.cpp")]
        self.check_keys("the View menu", view + ["A&ppearance", "Lan&guage"], rows)

    def check_keys(self, menu, texts, rows):
        for column in range(3):
            captions = [(text,) + rows[text] for text in texts if access_key(text)]
            keys = [access_key(caption[column]) for caption in captions]
            self.assertEqual(len(keys), len(set(keys)), f"{menu}: {sorted(keys)}")


if __name__ == "__main__":
    unittest.main()
