#!/usr/bin/env python3
"""How the viewer looks: in three languages, at four scales, light and dark, every text can be read,
none is cut and no part lies over another.
Usage: appearance_test.py VIEWER, on a display with a window manager. With KEPT_PICTURES set to a
folder the pictures stay there."""

import os
import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for
from picture import Picture

LANGUAGES = ("en", "ja", "ko")
SCALES = ("1", "1.25", "1.5", "2")
LOOKS = ("light", "dark")
LEAST_CONTRAST = 4.5
# The title of the Japanese View menu, say: a language is there once its words are.
VIEW = {"en": "View", "ja": "表示(V)", "ko": "보기(V)"}
SEARCH = {"en": "Searchg", "ja": "Searchg", "ko": "검색"}
SOURCE = """2026-03-12 09:14:02.117 INFO  collector  Round 1 of 214 stations
    answers: 213
    late: 1
2026-03-12 09:14:11.067 ERROR collector  Station 101 (Busan) sent a reading
    reading: 3.41 m
2026-03-12 09:14:17.131 WARN  store      The disk is 91 % full
潮位は午前九時に基準値を超えました
조위는 오전 아홉 시에 기준값을 넘었습니다
2026-03-12 09:14:18.324 INFO  collector  Round 2 of 214 stations
2026-03-12 09:14:20.350 INFO  http       GET /export?year=2025 200
"""
SIZE = (620, 400)


class Appearance(ViewerCase):
    def show(self, language, scale, look):
        self.scale = float(scale)
        file = Path("tide.log")
        file.write_text(SOURCE, encoding="utf-8")
        Path("tide.log!.xml").unlink(missing_ok=True)
        self.prepare(look, language)
        self.settings_of_view()
        self.open(str(file), title="tide", QT_SCALE_FACTOR=scale)
        shown = self.until("the file",
                           lambda shown: shown["lines"] == 11 and shown["focus"] == "text")
        # Not only the menus speak the kept language.
        self.assertEqual(shown["search"], SEARCH[language])
        self.activate()
        wanted = [str(round(length * self.scale)) for length in SIZE]
        tool("xdotool", "windowsize", self.window, *wanted)
        self.until("its size", lambda shown: any(
            part["name"] == "cmdMore" and abs(sum(part["place"][0::2]) - SIZE[0]) <= 1
            for part in shown["parts"]))
        self.fill()

    def settings_of_view(self):
        with open(Path(f"config of {self.id()}/quorvale/viewer.ini"), "a",
                  encoding="utf-8") as settings:
            settings.write("[view]\nfolds=indentation\nseverities=true\ngrid=true\n")

    def fill(self):
        """A folded range, a corrected row and selected rows."""
        self.until("folds", lambda shown: "glyph" in shown["rows"][0])
        self.press("ctrl+m")
        self.until("a fold", lambda shown: shown["rows"][1]["line"] == 4)
        self.press("Down", "Down", "Down")
        self.until("line 6", lambda shown: shown["row"] == 6)
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        tool("xdotool", "type", "x")
        self.press("ctrl+Return")
        self.until("the mark", lambda shown: shown["pending"] == 1 and "editor" not in shown and
                   self.row_of(6)["corrected"])
        self.press("Down", "Down", "Down", "shift+Down")
        self.until("selected rows", lambda shown: self.highlighted() == [9, 10])

    def in_pixels(self, *place):
        """A place in pixels of the screen."""
        return tuple(round(length * self.scale) for length in place)

    def painted(self, window):
        """What is painted right of the caret's marker, which blinks."""
        right_of_it = self.in_pixels(60, 0)
        return tool("import", "-window", window, "-crop",
                    f"5000x5000+{right_of_it[0]}+0", "-depth", "8", "rgb:-")

    def take(self, name, window, written=()):
        """A picture of what is painted once it stays the same and something is written at these
        places: what is told to be there may not be painted yet."""
        file = Path(os.environ.get("KEPT_PICTURES", ".")) / f"{name}.png"
        def settled():
            painted = self.painted(window)
            if not painted or painted != self.painted(window):
                return None
            picture = Picture(file, window)
            is_written = all(picture.text_contrast(*place) > 1 for place in written)
            return picture if is_written else None
        return wait_for("a picture that stays", settled)

    def check_rows(self, picture):
        shown = self.shown()
        for row in shown["rows"]:
            if not row["text"].strip():
                continue
            # The marker blinks at the end of its row; the boundaries are far to the right.
            place = self.in_pixels(row["left"], shown["above"] + row["top"],
                                     min(480, 6 * len(row["text"])), shown["rowHeight"])
            with self.subTest(row=row["text"]):
                self.assertGreaterEqual(picture.text_contrast(*place), LEAST_CONTRAST)

    def check_parts(self, picture):
        for part in self.shown()["parts"]:
            if not part["visible"] or not part["text"]:
                continue
            x, y, width, height = part["place"]
            with self.subTest(part=part["text"]):
                # The frame of a box stands out too: only what is inside counts.
                place = self.in_pixels(x + 3, y + 3, width - 6, height - 6)
                self.assertGreaterEqual(picture.text_contrast(*place), LEAST_CONTRAST)

    def check_places(self):
        parts = [part for part in self.shown()["parts"] if part["visible"]]
        for part in parts:
            with self.subTest(part=part["name"] + part["text"]):
                self.assertGreaterEqual(part["place"][2], part["needs"][0] if part["text"] else 1)
                # The frame of a flat button may be a pixel lower than it would like to be.
                self.assertGreaterEqual(part["place"][3] + 1, part["needs"][1])
                self.assertLessEqual(part["place"][0] + part["place"][2], SIZE[0] + 1)
        for i, one in enumerate(parts):
            for other in parts[i + 1:]:
                self.assertFalse(overlap(one["place"], other["place"]), f"{one} {other}")

    def check_editor(self, name):
        self.press("F2")
        shown = self.until("the editor", lambda shown: shown["focus"] == "editor" and
                           shown.get("editor", "").count("GET /export"))
        picture = self.take(name, self.window)
        for line in (9, 10):
            row = self.row_of(line)
            place = self.in_pixels(row["left"] + 2, shown["above"] + row["top"] + 1, 300,
                                   shown["rowHeight"] - 2)
            with self.subTest(edited=line):
                self.assertGreaterEqual(picture.text_contrast(*place), LEAST_CONTRAST)
        self.press_until("Escape", "no editor",
                         lambda shown: "editor" not in shown and shown["keysAt"] == "rows")

    def check_results(self, name):
        self.press("ctrl+f")
        self.until("the box", lambda shown: shown["focus"] == "search")
        tool("xdotool", "type", "round")
        self.until("what was typed", lambda shown: shown["search"] == "round")
        self.press("ctrl+shift+f")
        shown = self.until("the list", lambda shown: shown.get("results") == 4 and
                           len(shown["seenResults"]) == 4 and shown["focus"] == "found")
        places = {}
        for result in shown["seenResults"]:
            at = shown["above"] + result["at"][1]
            places[result["file"] + result["text"]] = self.in_pixels(
                30, at - shown["rowHeight"] / 2 + 1, 320, shown["rowHeight"] - 2)
        self.check_places_of_texts(self.take(name, self.window, places.values()), places)
        self.press_until("Escape", "no list",
                         lambda shown: "results" not in shown and shown["keysAt"] == "rows")

    def check_places_of_texts(self, picture, places):
        for text, place in places.items():
            with self.subTest(text=text):
                self.assertGreaterEqual(picture.text_contrast(*place), LEAST_CONTRAST)

    def check_menu(self, name):
        self.press("alt+v")
        shown = self.until("the menu", lambda shown: shown.get("popupPlace"))
        width, height = shown["popupPlace"][2:]
        self.assertGreaterEqual(width, shown["popupNeeds"][0])
        self.assertGreaterEqual(height, shown["popupNeeds"][1])
        places = {entry["text"]: self.in_pixels(*entry["place"])
                  for entry in shown["popupEntries"] if entry["text"]}
        self.check_places_of_texts(self.take(name, "root", places.values()), places)
        self.press_until("Escape", "the keys in the text",
                         lambda shown: "popupPlace" not in shown and shown["keysAt"] == "rows")

    def look_at(self, language, scale, look):
        self.show(language, scale, look)
        titles = [part["text"] for part in self.shown()["parts"] if part["name"] == "title"]
        self.assertIn(VIEW[language], titles)
        self.assertEqual(self.shown()["dark"], look == "dark")
        name = f"{language}-{look}-{scale}"
        picture = self.take(name, self.window)
        self.check_rows(picture)
        self.check_parts(picture)
        self.check_places()
        self.check_menu(name + "-menu")
        self.check_editor(name + "-editor")
        self.check_results(name + "-list")


def overlap(one, other):
    return all(one[i] < other[i] + other[i + 2] and other[i] < one[i] + one[i + 2]
               for i in (0, 1))


def add_tests():
    for language in LANGUAGES:
        for scale in SCALES:
            for look in LOOKS:
                def test(self, how=(language, scale, look)):
                    self.look_at(*how)
                name = f"test_{language}_at_{scale.replace('.', '_')}_{look}"
                setattr(Appearance, name, test)


class TheMeasure(unittest.TestCase):
    def test_black_on_white_is_21_and_equal_colours_are_1(self):
        from picture import contrast
        self.assertAlmostEqual(contrast((0, 0, 0), (255, 255, 255)), 21)
        self.assertAlmostEqual(contrast((119, 119, 119), (255, 255, 255)), 4.48, places=2)
        self.assertEqual(contrast((40, 50, 60), (40, 50, 60)), 1)


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    add_tests()
    unittest.main()
