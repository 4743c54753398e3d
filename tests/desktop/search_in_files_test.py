#!/usr/bin/env python3
"""A user searches many files: the dialog, results that lead into other windows, and what is told
when something cannot be searched. Usage: search_in_files_test.py VIEWER, on a display with a window
manager."""

import os
import sys
import unittest
from pathlib import Path

import desktop
from desktop import tool
from searching import Searching


class InFiles(Searching):
    def ask(self):
        self.press("alt+s", "i")
        # It is there a moment before it has the keys.
        return self.until("the dialog", lambda shown: shown["popup"] and
                          shown["dialog"]["title"] == "Search in files")["dialog"]

    def fill(self, key, name, text):
        """Puts a text into a field that has a key of its own, as one types a text."""
        self.press_until(f"alt+{key}", f"the field {name}",
                         lambda shown: shown["dialog"]["focus"] == name)
        self.press("ctrl+a")
        self.type(text)
        self.until(f"{text!r} in it", lambda shown: shown["dialog"][name] == text)
        # Once: a second Escape, pressed before the first was seen to work, would close the dialog.
        if self.shown()["dialog"]["completing"]:
            self.press("Escape")
        self.until("the end of the offers", lambda shown: not shown["dialog"]["completing"])

    def find_in_files(self, text="marker", folder=None, names="*.txt;*.log"):
        self.ask()
        self.fill("x", "text", text)
        self.fill("o", "folder", str(folder or self.folder))
        self.fill("n", "names", names)
        self.press("Return")

    def seen(self):
        return [(row["file"], row["line"]) for row in self.shown()["seenResults"]][1:-1]

    def active(self, title):
        """The window with the keys; from now on it is the one that is pointed at."""
        shown = self.until(f"the window {title}", lambda shown: any(
            window["active"] and window["title"].startswith(title) for window in shown["windows"]))
        self.window = self.windows(f"^{title}")[0]
        return shown

    def places(self):
        return {window["title"].split()[0]: (window["row"], window["column"])
                for window in self.shown()["windows"]}

    def wait_for_places(self, **places):
        wanted = {name.replace("_", "."): place for name, place in places.items()}
        self.until(f"the carets {wanted}", lambda shown: self.places() == wanted)

    def test_results_in_other_files_open_windows_of_their_own(self):
        self.show()
        self.press("Down", "Down", "End")
        caret = len("nothing in line 3") + 1
        self.until("the end of line 3", lambda shown: (shown["row"], shown["column"]) == (3, caret))
        self.find_in_files()
        shown = self.listed(7)
        self.picture("list")
        self.assertEqual(self.seen(), [("first.txt", "20"), ("first.txt", "120"),
                                       ("second.txt", "50"), ("third.log", "5"),
                                       ("third.log", "7")])
        self.assertEqual(shown["message"], "3 files searched")
        self.point_at(*self.result(3)["at"])
        tool("xdotool", "click", "--repeat", "2", "--delay", "50", "1")
        self.active("second.txt")
        self.picture("other window")
        self.wait_for_places(first_txt=(3, caret), second_txt=(50, 6))
        self.assertEqual(self.shown()["search"], "marker")
        self.assertTrue(any(row["line"] == 50 for row in self.shown()["rows"]))

        # From there the keys go on in the list that led there.
        self.press("F4")
        self.active("third.log")
        self.wait_for_places(first_txt=(3, caret), second_txt=(50, 6), third_log=(5, 2))
        self.press("F4")
        self.wait_for_places(first_txt=(3, caret), second_txt=(50, 6), third_log=(7, 2))
        self.press("F4")
        self.told("no further result")
        self.picture("no further result")
        self.press("shift+F4", "shift+F4")
        self.active("second.txt")
        self.press("shift+F4")
        self.active("first.txt")
        self.wait_for_places(first_txt=(120, 2), second_txt=(50, 6), third_log=(5, 2))

    def test_a_window_that_shows_the_file_is_raised_and_moved(self):
        self.show()
        self.find_in_files(names="second.txt")
        self.listed(3)
        self.press("Return")
        self.active("second.txt")
        self.until("the text", lambda shown: shown["focus"] == "text")
        self.press("ctrl+Home")
        self.at_row(1)
        # The list that led here is shown again where it is.
        self.press("alt+s", "l")
        self.active("first.txt")
        self.listed(3)
        self.press("Return")
        self.active("second.txt")
        self.wait_for_places(first_txt=(1, 1), second_txt=(50, 6))
        # A list of its own takes the keys over.
        self.look_for("line 7")
        self.press("ctrl+shift+f")
        self.listed(13)
        self.press("F4", "F4")
        self.until("its own result", lambda shown: shown["row"] == 71)

    def test_find_all_is_in_the_document_again_afterwards(self):
        self.show("second.txt", 81)
        self.find_in_files()
        self.listed(7)
        self.press("Escape")
        self.hidden()
        self.press("ctrl+shift+f")
        self.listed(3)
        self.press("Return")
        self.at_row(50)

    def test_a_file_under_another_name_is_the_same_file(self):
        self.show("link.txt", 81)
        self.find_in_files(names="second.txt")
        self.listed(3)
        self.press("Return")
        self.at_row(50)
        self.hidden()
        self.assertEqual(len(self.shown()["windows"]), 1)

    def test_a_window_without_a_file_shows_what_was_picked_itself(self):
        self.open(title="^QuorvaleBox$")
        self.activate()
        self.until("the focus in the text", lambda shown: shown["focus"] == "text")
        self.find_in_files(text="m[a-c]rker ???")
        self.listed(1)
        self.press("Escape")
        self.hidden()
        self.ask()
        self.press("alt+w")
        self.until("a pattern", lambda shown: shown["dialog"]["pattern"])
        self.picture("dialog")
        self.press("Return")
        self.listed(7)
        self.press("Down", "Return")
        self.active("first.txt")
        self.hidden()
        self.picture("file")
        self.wait_for_places(first_txt=(120, 2))
        self.press("F4")
        self.active("second.txt")
        self.wait_for_places(first_txt=(120, 2), second_txt=(50, 2))

    def test_what_cannot_be_searched_is_told_and_the_dialog_stays(self):
        self.show()
        self.find_in_files(folder=self.folder / "missing")
        self.refused("no such folder", focus="folder")
        self.picture("no folder")
        self.fill("o", "folder", str(self.folder / "first.txt"))
        self.press("Return")
        self.refused("not a folder", focus="folder")
        self.fill("o", "folder", str(self.folder))
        self.fill("n", "names", "*.none")
        self.press("Return")
        self.refused("No file in this folder", focus="names")
        self.picture("no file")
        self.fill("n", "names", "[a")
        self.press("Return")
        self.refused("has no ]", focus="names")
        self.press("Escape")
        self.until("no dialog", lambda shown: not shown["dialog"] and shown["focus"] == "text")
        self.assertNotIn("results", self.shown())

    def refused(self, words, focus):
        self.until(f"the words {words!r}", lambda shown: words in shown["dialog"]["message"] and
                   shown["dialog"]["focus"] == focus)

    def test_names_that_no_list_can_hold_are_left_out_and_told(self):
        (self.folder / "bad\rname.txt").write_text("marker\n", encoding="utf-8")
        self.show()
        self.find_in_files()
        self.until("the message", lambda shown: "name of one file" in shown["dialog"]["text"])
        self.picture("message")
        self.press_until("Return", "no message", lambda shown: not shown["dialog"])
        shown = self.listed(7)
        self.assertEqual(shown["message"], "3 files searched, 1 left out")

    def test_a_name_that_is_no_utf_8_is_found_and_opened(self):
        Path(os.fsdecode(os.fsencode(self.folder) + b"/caf\xe9.txt")).write_text("marker\n")
        self.show()
        self.find_in_files(names="caf?.txt")
        self.listed(3)
        self.picture("list")
        self.press("Return")
        self.active("caf")

    def test_what_the_dialog_held_comes_back(self):
        self.show()
        self.find_in_files(text="marker f", names="third.*")
        self.listed(4)
        self.press("Escape")
        self.hidden()
        dialog = self.ask()
        self.assertEqual((dialog["text"], dialog["names"], dialog["folder"], dialog["pattern"]),
                         ("marker f", "third.*", str(self.folder), False))
        self.assertEqual(dialog["focus"], "text")

    def test_a_search_of_many_files_shows_how_far_it_is_and_ends_with_escape(self):
        folder = self.folder / "many"
        folder.mkdir()
        whole = folder / "00000.txt"
        whole.write_bytes(b"marker\n" + b"nothing of interest in this line\n" * 120_000)
        # The same megabytes over and over: the search is long on any machine, the disk stays empty.
        for number in range(1, 20_000):
            os.link(whole, folder / f"{number:05}.txt")
        self.show()
        self.find_in_files(folder=folder, names="*.txt")
        shown = self.until("how far it is", lambda shown: shown["progress"]["visible"]
                           and shown["progress"]["text"])
        self.assertRegex(shown["progress"]["text"], r"\d{5}\.txt")
        self.picture("progress")
        # What is typed meanwhile reaches nobody.
        self.press("Down", "Down", "x")
        self.press("Escape")
        shown = self.until("the end of it", lambda shown: not shown["progress"]["visible"]
                           and shown["results"] > 2)
        self.picture("stopped")
        self.assertRegex(shown["message"], r"Stopped: [\d,.]+ of 20[,.]?000 files searched")
        self.assertEqual((shown["row"], shown["focus"]), (1, "found"))
        self.press("Down", "Return")
        self.active("00001.txt")

    def test_a_language_chosen_in_another_window_leaves_the_keys_there(self):
        self.show()
        first = self.window
        self.find_in_files(names="second.txt")
        self.listed(3)
        self.press("Return")
        self.active("second.txt")
        second, self.window = self.window, first
        self.activate()
        title = self.ask()["title"]
        self.window = second
        self.activate()
        self.press("alt+v")
        self.until("the menu", lambda shown: shown["popup"])
        self.press("g", "Down", "Down", "Return")
        self.until("the dialog in Japanese", lambda shown: shown["dialog"]["title"] != title)
        self.until("the keys in the text", lambda shown: shown["keysAt"] == "rows")
        self.assertEqual(tool("xdotool", "getactivewindow").strip().decode(), second)

    def test_a_file_that_is_gone_by_then_is_told(self):
        self.show()
        self.find_in_files(names="second.txt")
        self.listed(3)
        (self.folder / "second.txt").unlink()
        self.press("Return")
        self.until("the message", lambda shown: "no such file" in shown["dialog"]["text"])
        self.picture("message")
        self.press_until("Return", "no message", lambda shown: not shown["dialog"])
        self.wait_for_places(first_txt=(1, 1))


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
