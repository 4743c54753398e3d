#!/usr/bin/env python3
"""Takes the pictures of the documentation: see take-pictures, which gives it a display."""

import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool

TOP = Path()


class Pictures(ViewerCase):
    def take(self, name):
        # The marker blinks: a picture shows it.
        self.press("Shift_L")
        tool("xdotool", "mousemove", "--window", self.window, "700", "550")
        tool("import", "-window", self.window, str(TOP / "docs/images" / name))

    def choose(self, menu, entry):
        self.press(f"alt+{menu}")
        self.press(entry)

    def test_a_log_with_folds_colours_and_a_selection(self):
        self.open(str(TOP / "samples/tide-service.log"), title="tide-service")
        self.until("the file", lambda shown: shown["lines"] > 50)
        tool("xdotool", "windowsize", "--sync", self.window, "900", "640")
        self.activate()
        self.choose("v", "i")
        self.until("the folds", lambda shown: "glyph" in shown["rows"][0])
        self.choose("v", "c")
        for line in (1, 5):
            self.point_at(*self.row_of(line)["glyphAt"])
            self.click()
            self.until("a fold", lambda shown: self.row_of(line)["bold"])
        self.point_at_line(18, x=500)
        self.click()
        self.press("shift+Down", "shift+Down", "shift+Down")
        self.until("a selection", lambda shown: shown["selected"] == -4)
        self.take("folds.png")

    def test_the_languages(self):
        for language, look, scale in (("en", "light", "1"), ("ja", "dark", "1"),
                                      ("ko", "light", "1.5")):
            with self.subTest(language):
                self.show_language(language, look, scale)
                self.take(f"in-{language}.png")
                # A picture of the document is a small file: few colours are enough.
                tool("mogrify", "+dither", "-colors", "96",
                     str(TOP / f"docs/images/in-{language}.png"))
                self.stop()

    def show_language(self, language, look, scale):
        copy = Path("tide-service.log")
        copy.write_bytes((TOP / "samples/tide-service.log").read_bytes())
        Path("tide-service.log!.xml").unlink(missing_ok=True)
        self.prepare(look, language)
        self.open(str(copy), title="tide-service", QT_SCALE_FACTOR=scale)
        self.until("the file", lambda shown: shown["lines"] > 50)
        width = "900" if scale == "1" else "1150"
        tool("xdotool", "windowsize", "--sync", self.window, width, "420")
        self.activate()
        self.choose("v", "i")
        self.until("the folds", lambda shown: "glyph" in shown["rows"][0])
        self.choose("v", "c")
        self.press("ctrl+m", "Down")
        self.until("a fold", lambda shown: self.row_of(1)["bold"] and shown["row"] == 5)
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("End")
        tool("xdotool", "type", " and 2025")
        self.press("ctrl+Return")
        self.until("the mark", lambda shown: self.row_of(5)["corrected"])
        self.press("Down", "shift+Down")
        self.until("a selection", lambda shown: shown["selected"] == -2)

    def test_a_line_that_is_being_corrected(self):
        copy = Path("tide-service.log")
        copy.write_bytes((TOP / "samples/tide-service.log").read_bytes())
        self.open(str(copy), title="tide-service")
        self.until("the file", lambda shown: shown["lines"] > 50)
        tool("xdotool", "windowsize", "--sync", self.window, "900", "420")
        self.activate()
        self.correct(11, "2026-03-12 09:14:06.078 INFO  collector  Round 1 of 215 stations")
        self.correct(16, "2026-03-12 09:14:09.251 INFO  http       GET /stations/017/level 200 4 ms")
        self.point_at_line(19, x=500)
        self.click()
        self.press("F2", "End")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        tool("xdotool", "type", ", see the note of 10:40")
        self.take("correcting.png")

    def film_frame(self, name, caption, hundredths):
        """What the window shows now, for so long, above a line that says what is done."""
        self.press("Shift_L")
        tool("import", "-window", self.window, f"{name}.png")
        tool("convert", f"{name}.png", "-gravity", "South", "-background", "#20303c",
             "-splice", "0x34", "-font", "DejaVu-Sans-Bold", "-pointsize", "15", "-fill", "white",
             "-annotate", "+0+8", caption, "+repage", f"{name}.png")
        self.frames += ["-delay", str(hundredths), f"{name}.png"]

    def film_typing(self, caption):
        """The typing mistake is mended in the open editor, letter by letter."""
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("End")
        self.film_frame(f"{len(self.frames)}-open", caption, 60)
        for key, end in (("BackSpace", "check"), ("e", "checke"), ("d", "checked")):
            self.press(key)
            self.until(end, lambda shown: shown["editor"].endswith(end))
            self.film_frame(f"{len(self.frames)}-{key}", caption, 30)
        self.press("ctrl+Return")
        self.until("the mark", lambda shown: self.row_of(23)["corrected"] and
                   "1 correction" in shown["status"])

    def test_a_film_of_a_correction_its_undo_and_its_commit(self):
        copy = Path("rough-crossing.log")
        copy.write_bytes((TOP / "samples/rough-crossing.log").read_bytes())
        Path("rough-crossing.log!.xml").unlink(missing_ok=True)
        self.prepare("light", "en")
        self.open(str(copy), title="rough-crossing")
        self.until("the file", lambda shown: shown["lines"] == 30)
        tool("xdotool", "windowsize", "--sync", self.window, "760", "400")
        tool("xdotool", "mousemove", "1279", "1023")
        self.activate()
        self.press("alt+v")
        self.until("the menu", lambda shown: shown["menu"])
        self.press("c")
        self.until("no menu", lambda shown: not shown["menu"])
        self.press("ctrl+End", "ctrl+Home", *["Down"] * 22, "End")
        self.until("line 23", lambda shown: shown["row"] == 23 and self.row_of(23))
        self.frames = []
        self.film_frame("start", "A typing mistake in line 23", 120)
        self.film_typing("F2: the line is corrected")
        self.film_frame("kept", "Ctrl+Enter: kept in a journal; the file is untouched", 150)
        self.press("ctrl+z")
        self.until("no mark", lambda shown: not self.row_of(23)["corrected"] and
                   "correction" not in shown["status"])
        self.film_frame("undone", "Ctrl+Z: undone", 110)
        self.film_typing("F2: corrected again")
        self.film_frame("again", "Ctrl+Enter: kept", 70)
        self.press("ctrl+s")
        self.until("the commit", lambda shown: self.row_of(23)["text"].endswith("checked") and
                   "correction" not in shown["status"])
        self.film_frame("committed", "Ctrl+S: committed; that line alone has changed", 200)
        tool("convert", "-loop", "0", *self.frames, "+dither", "-colors", "64", "-layers", "Optimize",
             str(TOP / "docs/images/correct-undo-commit.gif"))

    def correct(self, line, text):
        self.point_at_line(line, x=500)
        self.click()
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("ctrl+a")
        tool("xdotool", "type", text)
        self.press("ctrl+Return")
        self.until("the mark", lambda shown: self.row_of(line)["corrected"])


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    TOP = Path(sys.argv.pop(1))
    unittest.main()
