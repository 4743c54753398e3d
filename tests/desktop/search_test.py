#!/usr/bin/env python3
"""A user finds things in the shown file, with real keys and a real mouse, and goes to a line.
Usage: search_test.py VIEWER, on a display with a window manager."""

import sys
import unittest

import desktop
from desktop import tool
from searching import ALL, NEXT, PATTERN, RECENT, Searching


class InTheDocument(Searching):
    def setUp(self):
        super().setUp()
        self.show()

    def test_typing_finds_and_the_keys_find_again(self):
        self.look_for("marker")
        self.at_row(20)
        self.picture("typed")
        self.press("Return")
        self.at_row(120)
        self.press("Return")
        self.at_row(20)
        self.told("other end")
        self.picture("wrapped")
        self.press("F3")
        self.at_row(120)
        self.picture("found again")
        self.press("shift+F3")
        self.at_row(20)
        self.press("shift+F3")
        self.at_row(120)
        self.told("other end")
        self.press("Escape")
        self.until("the text", lambda shown: shown["focus"] == "text")
        self.press("F3")
        self.at_row(20)
        self.assertEqual(self.shown()["focus"], "text")

    def test_what_is_not_there_is_told_and_the_caret_stays(self):
        self.press("Down", "Down")
        self.at_row(3)
        self.look_for("nowhere to be found")
        self.told("was not found")
        self.picture("not found")
        self.press("Return")
        self.press("ctrl+f", "Delete")
        self.until("an empty box", lambda shown: shown["search"] == "" and
                   not shown["find"]["enabled"])
        self.assertEqual(self.shown()["row"], 3)

    def test_the_find_button_and_its_menu_with_the_mouse(self):
        self.look_for("marker")
        self.at_row(20)
        self.point_at(*self.shown()["find"]["at"])
        self.click()
        self.at_row(120)
        self.pick_in_find_menu(NEXT)
        self.at_row(20)
        self.pick_in_find_menu(ALL, picture="menu")
        shown = self.listed(4)
        self.picture("list")
        first, one, two, last = shown["seenResults"]
        self.assertEqual((one["file"], one["line"], one["text"]),
                         ("first.txt", "20", "    the Marker one"))
        self.assertEqual((two["line"], two["text"]), ("120", "marker two"))
        self.assertTrue(first["bold"] and last["bold"] and one["selected"])
        self.assertFalse(one["bold"])
        self.assertTrue(first["text"].startswith("2 match"))
        self.point_at(*two["at"])
        self.click()
        self.selected(2)
        self.assertEqual(self.shown()["row"], 20)
        # Elsewhere first: a third click there would count as the second of two.
        self.point_at(*one["at"])
        self.click()
        self.selected(1)
        self.point_at(*two["at"])
        tool("xdotool", "click", "--repeat", "2", "--delay", "50", "1")
        self.at_row(120)
        self.hidden()
        self.picture("picked")

    def test_the_list_with_the_keys(self):
        self.look_for("marker")
        self.press("ctrl+shift+f")
        self.listed(4)
        self.press("Down")
        self.selected(2)
        self.press("Down", "Down", "Down")
        self.selected(3)
        self.press("Home")
        self.selected(0)
        self.picture("first row")
        self.press("Return")
        self.hidden()
        self.assertEqual(self.shown()["row"], 20)
        self.picture("returned")
        self.pick_in_find_menu(RECENT)
        self.listed(4)
        self.picture("list again")
        self.press("End")
        self.selected(3)
        self.press("Up", "Return")
        self.at_row(120)
        self.hidden()
        self.press("alt+s", "l")
        self.listed(4)
        self.press("End", "Return")
        self.hidden()
        self.press("alt+s", "l")
        self.listed(4)
        self.press("Home", "Escape")
        self.hidden()
        self.picture("escaped")
        self.assertEqual(self.shown()["row"], 120)

    def test_a_pattern_and_no_match_at_all(self):
        self.look_for("m?rker f*ve")
        self.pick_in_find_menu(PATTERN)
        self.listed(1)
        self.picture("no match")
        self.assertEqual(self.result(0)["text"], "No match found.")
        self.assertFalse(self.result(0)["selected"])
        self.press("Return")
        self.assertEqual(self.shown()["results"], 1)
        self.press("Escape")
        self.hidden()
        self.look_for("m[ae]rker ???")
        self.press("alt+s", "t")
        self.listed(4)

    def test_where_a_key_leads_is_not_hidden_by_the_list(self):
        self.look_for("marker")
        self.at_row(20)
        for keys, row in ((["F3"], 120), (["shift+F3"], 20), (["ctrl+g", "7", "Return"], 7)):
            self.press("ctrl+shift+f")
            self.listed(4)
            self.press(*keys)
            self.at_row(row)
            self.until("no list", lambda shown: "results" not in shown)

    def test_a_line_is_gone_to(self):
        self.press("ctrl+g")
        self.until("the line box", lambda shown: shown["focus"] == "line")
        self.type("250")
        self.picture("typed")
        self.press("Return")
        self.at_row(250)
        self.assertIsNotNone(self.row_of(250))
        self.press("ctrl+g")
        self.type("abc")
        self.press("Return", "ctrl+f")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        self.assertEqual(self.shown()["row"], 250)

    def test_the_menu_names_the_keys(self):
        self.press("alt+s")
        shown = self.until("the menu", lambda shown: len(shown["menu"]) > 5)
        self.picture("menu")
        keys = [entry["keys"] for entry in shown["menu"] if entry["keys"]]
        self.assertEqual(keys, ["Ctrl+F", "F3", "Shift+F3", "Ctrl+Shift+F", "Ctrl+Shift+P",
                                "Ctrl+Shift+I", "Ctrl+Shift+L", "F4", "Shift+F4", "Ctrl+G"])


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
