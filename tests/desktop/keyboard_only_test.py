#!/usr/bin/env python3
"""The viewer worked through without a mouse: a file is opened, searched, folded, corrected, undone,
committed and closed, and every part of the window is reached.
Usage: keyboard_only_test.py VIEWER, on a display with a window manager."""

import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for

CONTENT = b"first\n    one\n    two words\n        deep\nsecond\n    three\nlast"


class KeyboardOnly(ViewerCase):
    def setUp(self):
        self.file = Path("document.txt").resolve()
        self.file.write_bytes(CONTENT)
        Path("document.txt!.xml").unlink(missing_ok=True)
        # Out of the way: whatever is under it must not matter.
        tool("xdotool", "mousemove", "1279", "1023")

    def start(self, *arguments):
        title = "document" if arguments else "^QuorvaleBox$"
        self.open(*arguments, title=title)
        self.activate()

    def start_on_file(self):
        self.start(str(self.file))
        self.until("the file", lambda shown: shown["lines"] == 7 and shown["focus"] == "text")

    def type(self, text):
        tool("xdotool", "type", text)

    def popup(self, keys):
        """Opens what these keys open over the window."""
        self.press(*keys[:-1])
        return self.press_until(keys[-1], "a menu or a dialog",
                                lambda shown: shown.get("popup"))["popup"]

    def pick(self, keys, entry):
        self.popup(keys)
        self.press(entry)

    def lines(self):
        shown = self.shown()
        return [row["line"] for row in shown["rows"] if row["line"] <= shown["lines"]]

    def go_to_line(self, line):
        self.press("ctrl+g")
        self.until("the line box", lambda shown: shown["focus"] == "line")
        self.type(str(line))
        self.press("Return")
        self.until(f"line {line}", lambda shown: shown["row"] == line)

    def to_the_text(self):
        self.press("Escape")
        self.until("the text", lambda shown: shown["focus"] == "text")

    def correct(self, text, pending=1):
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("ctrl+a")
        self.type(text)
        self.until("the typed text", lambda shown: shown["editor"] == text)
        self.press("ctrl+Return")
        self.until("the record", lambda shown: "editor" not in shown and
                   shown["pending"] == pending)

    def test_from_opening_to_closing(self):
        self.start()
        self.popup(["ctrl+o"])
        self.type(str(self.file))
        self.press("Return")
        self.until("the file", lambda shown: shown["lines"] == 7 and shown["keysAt"] == "rows")
        self.window = wait_for("the title", lambda: self.windows("document"))[0]
        self.activate()
        self.until("the focus in the text", lambda shown: shown["focus"] == "text")

        self.press("ctrl+f")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        self.type("deep")
        self.until("line 4", lambda shown: shown["row"] == 4)
        self.to_the_text()

        self.pick(["alt+v"], "i")
        self.until("folds", lambda shown: "glyph" in shown["rows"][0])
        self.press("ctrl+Home", "ctrl+m")
        self.until("a fold", lambda shown: self.lines() == [1, 5, 6, 7])
        self.press("ctrl+m")
        self.until("no fold", lambda shown: self.lines() == [1, 2, 3, 4, 5, 6, 7])
        self.press("ctrl+shift+m")
        self.until("all folded", lambda shown: self.lines() == [1, 5, 7])
        self.press("ctrl+alt+m")
        self.until("all unfolded", lambda shown: self.lines() == [1, 2, 3, 4, 5, 6, 7])

        self.press("Down", "Down")
        self.until("line 3", lambda shown: shown["row"] == 3)
        self.correct("wrong")
        self.press("ctrl+z")
        self.until("nothing pending", lambda shown: shown["pending"] == 0)
        self.correct("right")
        self.press("ctrl+s")
        self.until("the commit", lambda shown: shown["pending"] == 0)
        self.assertEqual(self.file.read_bytes(), CONTENT.replace(b"    two words", b"right"))

        self.press("ctrl+q")
        self.assertEqual(self.viewer.wait(timeout=30), 0)

    def test_tab_leads_through_boxes_and_buttons_and_escape_back(self):
        self.start_on_file()
        self.press("Tab")
        self.until("a button", lambda shown: shown["keysAt"] == "Find")
        self.press("Tab")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        self.press("Tab")
        self.until("a button", lambda shown: shown["keysAt"] == "Ln")
        self.press("Tab")
        self.until("the line box", lambda shown: shown["focus"] == "line")
        for key in ("Collapsed", "Edit", "Grid"):
            if key == "Collapsed" and not self.enabled(key):
                continue
            self.press("Tab")
            self.until(key, lambda shown: shown["keysAt"] == key)
        self.press("space")
        self.until("the boundaries", lambda shown: self.part("Grid")["checked"])
        self.to_the_text()
        self.press("Tab", "Escape")
        self.until("the text again", lambda shown: shown["keysAt"] == "rows")

    def part(self, name):
        return next(part for part in self.shown()["parts"] if part["name"] == name)

    def enabled(self, name):
        return self.part(name)["enabled"]

    def test_a_button_opens_its_menu(self):
        self.start_on_file()
        self.press("Tab")
        self.until("a button", lambda shown: shown["keysAt"] == "Find")
        self.press_until("Tab", "the Edit button", lambda shown: shown["keysAt"] == "Edit")
        self.popup(["space"])
        # Its first entry is the editor.
        self.press("Down", "Return")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("Escape")
        self.until("the text", lambda shown: "editor" not in shown)

    def test_the_menu_key_opens_the_menu_of_the_rows(self):
        self.start_on_file()
        self.correct("x")
        self.pick(["Menu"], "u")
        self.until("the undo", lambda shown: shown["pending"] == 0)
        self.pick(["shift+F10"], "e")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("Escape")
        self.until("no editor", lambda shown: "editor" not in shown)

    def test_one_walks_from_correction_to_correction(self):
        self.start_on_file()
        self.correct("1st")
        self.press("Down", "Down")
        self.until("line 3", lambda shown: shown["row"] == 3)
        self.correct("3rd", pending=2)
        self.press("ctrl+Home")
        self.until("line 1", lambda shown: shown["row"] == 1)
        self.pick(["alt+Return"], "n")
        self.until("the next one", lambda shown: shown["row"] == 3)
        # The window's own keys go by the caret, whatever was picked.
        self.press("ctrl+shift+Down")
        self.until("the end", lambda shown: "no further correction" in shown["message"])
        self.press("ctrl+shift+Up")
        self.until("the one before", lambda shown: shown["row"] == 1)
        self.press("ctrl+shift+Up")
        self.until("the other end", lambda shown: "no earlier correction" in shown["message"])
        self.press("ctrl+shift+Down")
        self.until("the next one again", lambda shown: shown["row"] == 3)
        self.press("Down", "ctrl+z")
        self.until("a word", lambda shown: "no correction" in shown["message"])
        self.assertEqual(self.shown()["pending"], 2)

    def test_results_are_listed_picked_and_left(self):
        self.start_on_file()
        self.press("ctrl+f")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        self.type("t")
        self.press("ctrl+shift+f")
        self.until("the list", lambda shown: shown.get("results", 0) == 6 and
                   shown["focus"] == "found")
        self.press("Down", "Return")
        self.until("a result", lambda shown: shown["row"] > 1)
        self.press_until("Escape", "the text",
                         lambda shown: "results" not in shown and shown.get("focus") == "text")

    def test_a_line_is_gone_to(self):
        self.start_on_file()
        self.go_to_line(5)
        self.to_the_text()
        self.press("Up")
        self.until("the line above", lambda shown: shown["row"] == 4)

    def test_a_recent_file_is_opened_by_its_number(self):
        self.start_on_file()
        self.press("ctrl+q")
        self.assertEqual(self.viewer.wait(timeout=30), 0)
        self.start()
        self.popup(["alt+f"])
        self.press("r", "1")
        self.until("the file", lambda shown: shown["lines"] == 7 and shown["keysAt"] == "rows")

    def test_a_file_that_is_gone_leaves_the_list_with_a_word(self):
        self.start_on_file()
        self.press("ctrl+q")
        self.assertEqual(self.viewer.wait(timeout=30), 0)
        self.file.unlink()
        self.start()
        self.popup(["alt+f"])
        self.press("r", "1")
        self.until("a message", lambda shown: "not there any more" in shown.get("popup", ""))
        self.assertNotIn("document", self.settings.read_text(encoding="utf-8"))
        self.press_until("Return", "the message to close", lambda shown: not shown.get("popup"))

    def test_zoom_toolbar_and_boundaries_have_keys_and_are_kept(self):
        self.start_on_file()
        normal = self.shown()["rowHeight"]
        self.press("ctrl+plus", "ctrl+plus", "ctrl+plus")
        larger = self.until("larger rows", lambda shown: "12" in shown["message"])["rowHeight"]
        self.assertGreater(larger, normal)
        # The toolbar keeps its size: the word on a button used to grow out of it.
        self.assertLess(self.part("Ln")["needs"][0], 40)
        for _ in range(20):
            self.press("ctrl+plus")
        self.until("the largest of them", lambda shown: "32" in shown["message"])
        self.assertLess(self.part("Ln")["needs"][0], 40)
        for _ in range(20):
            self.press("ctrl+minus")
        self.until("the former size", lambda shown: shown["rowHeight"] == larger)
        self.press("ctrl+shift+b")
        self.until("the boundaries", lambda shown: self.part("Grid")["checked"])
        self.press("ctrl+shift+t")
        self.until("no toolbar", lambda shown: not self.part("Grid")["visible"])
        self.press("ctrl+q")
        self.assertEqual(self.viewer.wait(timeout=30), 0)
        self.start_on_file()
        self.until("the same look", lambda shown: shown["rowHeight"] == larger and
                   not self.part("Grid")["visible"] and self.part("Grid")["checked"])
        self.press("ctrl+0")
        self.until("the normal size", lambda shown: shown["rowHeight"] == normal)

    def test_who_corrects_a_line_goes_on_typing_without_the_toolbar(self):
        self.start_on_file()
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        self.press("ctrl+a")
        self.type("a")
        self.press("ctrl+shift+t")
        self.until("no toolbar", lambda shown: not self.part("Grid")["visible"])
        self.until("the keys", lambda shown: shown["keysAt"] == "rtbEdit")
        self.type("b")
        self.pick(["alt+v"], "t")
        self.until("the toolbar", lambda shown: self.part("Grid")["visible"])
        self.until("the keys", lambda shown: shown["keysAt"] == "rtbEdit")
        self.type("c")
        self.until("the text", lambda shown: shown["editor"] == "abc")

    def test_a_second_file_from_the_dialog_takes_the_keys(self):
        second = self.file.with_name("second.txt")
        second.write_text("one\ntwo\n", encoding="utf-8")
        self.start_on_file()
        self.popup(["ctrl+o"])
        self.type(str(second))
        self.press("Return")
        self.until("the file", lambda shown: shown["title"].startswith("second") and
                   shown["keysAt"] == "rows")
        self.press("Down")
        self.until("line 2", lambda shown: shown["row"] == 2)

    def test_the_language_is_changed_where_one_stands(self):
        self.start_on_file()
        self.correct("x")
        self.go_to_line(3)
        self.popup(["alt+v"])
        self.press("g", "Down", "Down", "Return")
        self.until("Japanese", lambda shown: "7 行" in shown["status"]
                   and self.part("Grid")["tip"] == "境界の表示")
        shown = self.until("the same place",
                           lambda shown: shown["row"] == 3 and shown["pending"] == 1)
        self.assertIn("コミットしていない修正 1 件", shown["status"])
        # The keys of the menus stay where they were.
        self.pick(["alt+v"], "t")
        self.until("no toolbar", lambda shown: not self.part("Grid")["visible"])

    def test_the_appearance_is_changed_by_keys(self):
        self.start_on_file()
        self.popup(["alt+v"])
        self.press("p", "a")
        self.until("dark", lambda shown: shown["dark"])
        self.popup(["alt+v"])
        self.press("p", "d")
        self.until("light", lambda shown: not shown["dark"])

    def test_keys_and_program_are_told(self):
        self.start_on_file()
        self.assertIn("Ctrl+M", self.popup(["F1"]))
        self.press_until("Escape", "the dialog to close", lambda shown: not shown.get("popup"))
        self.until("the keys in the text", lambda shown: shown["keysAt"] == "rows")
        self.pick(["alt+h"], "a")
        self.until("the program", lambda shown: "MIT" in shown.get("popup", ""))
        self.press_until("Escape", "the box to close", lambda shown: not shown.get("popup"))


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
