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


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    TOP = Path(sys.argv.pop(1))
    unittest.main()
