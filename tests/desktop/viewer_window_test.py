#!/usr/bin/env python3
"""The viewer in a real window: what it paints there, and that a user's hands reach it.
Usage: viewer_window_test.py VIEWER, on a display with a window manager."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for

LINES = 100_000
PART_OF_ROWS = ("-crop", "500x300+100+150", "-depth", "8", "rgb:-")


class ViewerWindow(ViewerCase):
    def setUp(self):
        self.file = Path("numbers.txt")
        self.file.write_text("".join(f"{n:06d} is line {n} of {LINES}\n"
                                     for n in range(1, LINES + 1)), encoding="utf-8")

    def rows(self):
        """The pixels of a part of the rows, right of the blinking marker."""
        return tool("import", "-window", self.window, *PART_OF_ROWS)

    def rows_at(self, line):
        """The same part of a picture that the viewer renders with the line in sight."""
        subprocess.run([desktop.VIEWER, "--line", str(line), "--snapshot", "snapshot.png",
                        str(self.file)], check=True)
        return tool("convert", "snapshot.png", *PART_OF_ROWS)

    def painted_rows(self):
        """The pixels once something stands there and stays."""
        def settled():
            first = self.rows()
            pixels = {first[i:i + 3] for i in range(0, len(first), 3)}
            return first if len(pixels) > 1 and first == self.rows() else None
        return wait_for("painted rows", settled)

    def point_at_rows(self):
        tool("xdotool", "mousemove", "--sync", "--window", self.window, "300", "300")

    def test_the_window_shows_what_a_snapshot_shows(self):
        expected = self.rows_at(50000)
        self.open("--line", "50000", str(self.file), title="numbers")
        wait_for("the rows of the snapshot", lambda: self.rows() == expected)

    def test_a_file_whose_name_is_no_utf_8_is_opened(self):
        name = os.fsdecode(b"caf\xe9.txt")
        Path(name).write_text("one\ntwo\n", encoding="utf-8")
        self.open(name, title="QuorvaleBox")
        self.until("the file", lambda shown: [row["text"] for row in shown["rows"]][:2] ==
                   ["one", "two"])
        picture = Path(os.fsdecode(b"picture\xe9.png"))
        subprocess.run([desktop.VIEWER, "--snapshot", str(picture), name], check=True)
        self.assertEqual(picture.read_bytes()[1:4], b"PNG")

    def test_the_wheel_scrolls_there_and_back(self):
        self.open(str(self.file), title="numbers")
        start = self.painted_rows()
        self.point_at_rows()
        tool("xdotool", "click", "5")
        wait_for("other rows", lambda: self.rows() not in (start, b""))
        tool("xdotool", "click", "4")
        wait_for("the first rows again", lambda: self.rows() == start)

    def test_the_last_line_is_reached_with_the_scroll_bar(self):
        # The line break at the end of the file begins one more, empty line.
        last = self.rows_at(LINES + 1)
        self.open(str(self.file), title="numbers")
        self.painted_rows()
        size = self.geometry()
        right = str(size["WIDTH"] - 8)
        # The middle button takes the thumb to where it is pressed.
        tool("xdotool", "mousemove", "--sync", "--window", self.window, right, "300")
        tool("xdotool", "mousedown", "2")
        tool("xdotool", "mousemove", "--sync", "--window", self.window, right, str(size["HEIGHT"]))
        tool("xdotool", "mouseup", "2")
        wait_for("the last rows", lambda: self.rows() == last)

    def test_a_missing_file_is_told_in_a_message_and_the_viewer_stays(self):
        self.open("missing.txt", title="^QuorvaleBox$")
        wait_for("the message beside it", lambda: len(self.windows("^QuorvaleBox$")) == 2)
        wait_for("the message to close", lambda: tool("xdotool", "key", "Return") == b"" and
                 len(self.windows("^QuorvaleBox$")) == 1)
        self.assertIsNone(self.viewer.poll())

    def test_closing_the_window_ends_the_program(self):
        self.open(str(self.file), title="numbers")
        self.painted_rows()
        self.activate()
        tool("xdotool", "key", "alt+F4")
        self.assertEqual(self.viewer.wait(timeout=30), 0)


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
