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
