#!/usr/bin/env python3
"""A user works the viewer with real keys and a real mouse: caret, selection, drags and folds.
Usage: keys_and_mouse_test.py VIEWER, on a display with a window manager."""

import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for

LINES = 5_000


class KeysAndMouse(ViewerCase):
    def setUp(self):
        self.file = Path("numbers.txt")
        self.file.write_text("\n".join(f"{n:06d} is line {n}" for n in range(1, LINES + 1)),
                             encoding="utf-8")
        self.open(str(self.file), title="numbers")
        self.until("the file", lambda shown: shown["lines"] == LINES)
        self.activate()
        self.until("the focus in the text", lambda shown: shown["focus"] == "text")

    def go_to(self, line):
        self.point_at_line(line)
        self.click()
        self.until(f"the caret in line {line}", lambda shown: shown["row"] == line)

    def test_a_click_puts_the_caret_there(self):
        self.go_to(7)
        self.go_to(3)

    def test_arrows_move_the_caret(self):
        self.go_to(5)
        self.press("Down", "Down", "Up", "Home", "Right", "Right")
        self.until("line 6, column 3", lambda shown: (shown["row"], shown["column"]) == (6, 3))
        self.press("End")
        self.until("the end of the line", lambda shown: shown["column"] == len("000006 is line 6") + 1)

    def test_shift_and_down_twice_highlights_three_rows(self):
        self.go_to(5)
        self.press("shift+Down", "shift+Down")
        self.until("three selected rows", lambda shown: shown["selected"] == -3)
        self.assertEqual(self.highlighted(), [5, 6, 7])
        self.press("Down")
        self.until("no selection", lambda shown: shown["selected"] == 0)
        self.assertEqual(self.highlighted(), [])

    def test_page_keys_and_both_ends(self):
        self.press("Next")
        paged = self.until("a page down", lambda shown: shown["row"] > 10)
        self.press("Prior")
        self.until("line 1", lambda shown: shown["row"] == 1)
        self.press("ctrl+End")
        self.until("the last line", lambda shown: shown["row"] == LINES and
                   shown["rows"][-1]["line"] >= LINES)
        self.press("ctrl+Home")
        self.until("the first line", lambda shown: shown["row"] == 1 and shown["top"] == 1)
        self.assertLess(paged["row"], len(paged["rows"]))

    def test_everything_is_selected_with_one_key(self):
        self.press("ctrl+a")
        self.until("all rows", lambda shown: shown["selected"] == -(LINES + 1))
        self.assertIn(LINES, self.highlighted())

    def test_a_drag_past_the_lower_edge_scrolls(self):
        self.point_at_line(4)
        tool("xdotool", "mousedown", "1")
        below = self.shown()["height"] + 40
        top = self.shown()["top"]
        def dragged_on():
            # A hand never rests: each little move scrolls one line further.
            for x in (310, 320):
                self.point_at(x, below)
            return self.shown()["top"] > top + 5
        wait_for("the scrolling", dragged_on)
        tool("xdotool", "mouseup", "1")
        shown = self.until("a long selection", lambda shown: shown["selected"] < -20)
        self.assertEqual(shown["row"] + shown["selected"] + 1, 4)
        highlighted = {row["line"] for row in shown["rows"] if row["highlighted"]}
        self.assertTrue(highlighted >= set(range(shown["top"] + 1, shown["row"])))

    def test_a_shift_click_extends_the_selection(self):
        self.go_to(3)
        self.point_at_line(9)
        self.click(modifier="shift")
        self.until("seven rows", lambda shown: shown["selected"] == -7)
        self.assertEqual(self.highlighted(), list(range(3, 10)))

    def test_a_text_is_found_while_it_is_typed_and_again(self):
        self.press("ctrl+f")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        tool("xdotool", "type", "line 42")
        self.until("line 42", lambda shown: shown["row"] == 42)
        self.press("F3")
        self.until("line 420", lambda shown: shown["row"] == 420)
        self.press("shift+F3")
        self.until("line 42 again", lambda shown: shown["row"] == 42)
        self.press("shift+F3")
        self.until("the word of it", lambda shown: "other end" in self.message())

    def message(self):
        return self.shown().get("message", "")

    def test_all_matches_are_listed_and_picked_with_the_keys(self):
        self.press("ctrl+f")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        tool("xdotool", "type", "line 99")
        self.press("ctrl+shift+f")
        self.until("the list", lambda shown: shown.get("results", 0) == 13)
        # The first of them is where the typing went to, and is selected.
        self.press("F4")
        self.until("the first", lambda shown: (shown["row"], shown["column"]) == (99, 12)
                   and "results" not in shown)
        self.press("F4")
        self.until("the second", lambda shown: shown["row"] == 990)
        self.press("shift+F4")
        self.until("the first", lambda shown: shown["row"] == 99)

    def test_a_line_is_gone_to_by_its_number(self):
        self.press("ctrl+g")
        self.until("the line box", lambda shown: shown["focus"] == "line")
        tool("xdotool", "type", "4321")
        self.press("Return")
        self.until("line 4321", lambda shown: shown["row"] == 4321)

    def test_the_selected_rows_are_copied(self):
        self.go_to(2)
        self.press("shift+Down", "ctrl+c")
        self.assertEqual(self.pasted("000002 is line 2\n000003 is line 3"), None)
        self.press("ctrl+shift+c")
        self.assertEqual(self.pasted("2\t000002 is line 2\n3\t000003 is line 3"), None)

    def pasted(self, text):
        """Waits until the clipboard holds the text."""
        wait_for(f"{text!r} on the clipboard",
                 lambda: tool("xclip", "-o", "-selection", "clipboard").decode() == text)

    def test_tab_leaves_the_text_and_shift_tab_comes_back(self):
        self.press("Tab")
        self.until("the keys elsewhere", lambda shown: shown["keysAt"] != "rows")
        self.press("shift+Tab")
        self.until("the keys in the text", lambda shown: shown["keysAt"] == "rows")


class Folds(ViewerCase):
    SOURCE = ("first\n    one\n    two\n        deep\n    three\nsecond\n    four\n    five\nlast\n")

    def setUp(self):
        self.file = Path("blocks.txt")
        self.file.write_text(self.SOURCE, encoding="utf-8")
        self.open(str(self.file), title="blocks")
        self.until("the file", lambda shown: shown["lines"] == 10)
        self.activate()
        self.press("alt+v")
        self.press("i")
        self.until("a glyph at line 1", lambda shown: "glyph" in shown["rows"][0])

    def click_glyph(self, line):
        self.point_at(*self.row_of(line)["glyphAt"])
        self.click()

    def lines(self, shown):
        return [row["line"] for row in shown["rows"] if row["line"] <= shown["lines"]]

    def test_a_glyph_folds_its_range_and_unfolds_it_again(self):
        everything = list(range(1, 11))
        self.assertEqual(self.lines(self.shown()), everything)
        self.click_glyph(1)
        shown = self.until("the fold", lambda shown: self.lines(shown) == [1, 6, 7, 8, 9, 10])
        self.assertTrue(shown["rows"][0]["bold"])
        self.assertEqual(shown["rows"][0]["glyph"], "glyph/Collapsed")
        self.click_glyph(1)
        shown = self.until("all lines", lambda shown: self.lines(shown) == everything)
        self.assertFalse(shown["rows"][0]["bold"])

    def test_the_keys_step_over_a_fold(self):
        self.click_glyph(1)
        self.until("the fold", lambda shown: self.lines(shown) == [1, 6, 7, 8, 9, 10])
        self.press("ctrl+Home", "Down")
        self.until("the line behind it", lambda shown: shown["row"] == 6)
        self.press("Up")
        self.until("its head", lambda shown: shown["row"] == 1)

    def test_the_menu_of_a_glyph_folds_everything(self):
        self.point_at(*self.row_of(1)["glyphAt"])
        self.click("3")
        # The menu takes the keys once it is open; a press before that moves no caret.
        def folded():
            self.press("c")
            return self.lines(self.shown()) == [1, 6, 9, 10]
        wait_for("all folds", folded)

    def test_folds_are_forgotten_when_the_user_turns_them_off(self):
        self.click_glyph(1)
        self.until("the fold", lambda shown: self.lines(shown) == [1, 6, 7, 8, 9, 10])
        self.press("alt+v")
        self.press("i")
        self.until("plain rows", lambda shown: self.lines(shown) == list(range(1, 11)) and
                   not any("glyph" in row for row in shown["rows"]))


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
