#!/usr/bin/env python3
"""A user corrects lines, leaves, comes back, and commits: with real keys, on real files.
Usage: corrections_test.py VIEWER, on a display with a window manager."""

import hashlib
import signal
import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for

# Tabs, two kinds of line ends, and no line end after the last line: all of it is to stay.
CONTENT = b"first\tline\r\nsecond line\nthird line\r\n\r\nlast line"


def wait_a_tip(case):
    """A little patience: a tip takes most of a second."""
    try:
        return case.until("a tip", lambda shown: "corrected" in shown.get("tip", ""), seconds=2)
    except AssertionError:
        return None


class CorrectingCase(ViewerCase):
    """A viewer with a small document, and a user who corrects it."""

    def setUp(self):
        self.file = Path("document.txt")
        self.file.write_bytes(CONTENT)
        self.journal = Path("document.txt!.xml")
        self.journal.unlink(missing_ok=True)
        for stray in Path(".").glob(".qbx*"):
            stray.unlink()
        self.show()

    def show(self):
        self.open(str(self.file), title="document")
        self.until("the file", lambda shown: shown["lines"] == 5)
        self.activate()
        self.until("the focus in the text", lambda shown: shown["focus"] == "text")

    def close(self):
        self.press("alt+F4")
        self.assertEqual(self.viewer.wait(timeout=30), 0)

    def go_to(self, line):
        self.point_at_line(line)
        # The first click into a window that has just opened may only give it the keys.
        self.repeat_until(self.click, f"the caret in line {line}", lambda shown: shown["row"] == line)

    def open_editor(self, line):
        self.go_to(line)
        self.press("F2")
        return self.until("the editor", lambda shown: "editor" in shown and
                          shown["focus"] == "editor")["editor"]

    def correct(self, line, text):
        self.open_editor(line)
        self.press("ctrl+a")
        tool("xdotool", "type", "--clearmodifiers", text)
        self.until("the typed text", lambda shown: shown["editor"] == text)
        self.press("ctrl+Return")
        self.until("the editor to close", lambda shown: "editor" not in shown)
        self.until("the mark", lambda shown: self.row_of(line)["corrected"])

    def commit(self):
        self.press("ctrl+s")
        self.until("nothing pending", lambda shown: shown["pending"] == 0)

    def answer(self, key):
        """Answers the question that is open, or will be, and waits until it is gone."""
        def boxes():
            return [window for window in tool("xdotool", "search", "--onlyvisible", "--class",
                                              "quorvale").decode().split()
                    if window != self.window]
        box = wait_for("a question", boxes)[0]
        def active():
            tool("xdotool", "windowactivate", box)
            return tool("xdotool", "getactivewindow").strip().decode() == box
        wait_for("the question to have the keys", active)
        tool("xdotool", "key", key)
        # Another one may come right after it.
        wait_for("the question to close", lambda: box not in boxes())


class Corrections(CorrectingCase):
    def test_a_correction_waits_for_its_commit_over_the_night(self):
        before = hashlib.sha256(self.file.read_bytes()).hexdigest()
        self.correct(2, "corrected")
        self.assertEqual(hashlib.sha256(self.file.read_bytes()).hexdigest(), before)
        self.close()
        self.assertEqual(hashlib.sha256(self.file.read_bytes()).hexdigest(), before)
        self.assertTrue(self.journal.exists())
        self.show()
        self.until("the correction", lambda shown: shown["pending"] == 1 and
                   self.row_of(2)["corrected"])
        self.commit()
        self.until("the new line", lambda shown: self.row_of(2)["text"] == "corrected")
        self.assertEqual(self.file.read_bytes(), CONTENT.replace(b"second line", b"corrected"))
        self.close()
        self.assertFalse(self.journal.exists())
        self.assertEqual(sorted(path.name for path in Path(".").glob(".qbx*")), [])

    def test_the_status_bar_counts_what_is_pending(self):
        self.assertNotIn("correction", self.shown()["status"])
        self.correct(2, "corrected")
        self.until("one", lambda shown: "1 correction not committed" in shown["status"])
        self.correct(3, "corrected too")
        self.until("two", lambda shown: "2 corrections not committed" in shown["status"])
        self.commit()
        self.until("none", lambda shown: "correction" not in shown["status"])

    def test_the_mouse_over_a_corrected_row_shows_what_will_be_there(self):
        self.correct(2, "corrected")
        def shown():
            # A tip comes when the mouse rests after a move.
            for x in (301, 300):
                self.point_at_line(2, x)
            return "corrected" in self.shown().get("tip", "")
        wait_for("the tip", lambda: shown() or wait_a_tip(self))
        self.point_at_line(4)
        self.until("no tip", lambda shown: "tip" not in shown)

    def test_escape_drops_what_was_typed(self):
        self.assertEqual(self.open_editor(3), "third line")
        tool("xdotool", "type", "nothing of this")
        self.until("the typed text", lambda shown: "nothing" in shown["editor"])
        self.press("Escape")
        shown = self.until("the editor to close", lambda shown: "editor" not in shown)
        self.assertEqual(shown["pending"], 0)

    def test_leaving_the_line_records_the_edit(self):
        self.open_editor(3)
        tool("xdotool", "type", "x")
        self.until("the typed text", lambda shown: shown["editor"].startswith("x"))
        self.point_at_line(1)
        self.click()
        self.until("the record", lambda shown: shown["pending"] == 1 and shown["row"] == 1)

    def test_a_line_break_is_typed_with_enter(self):
        self.open_editor(5)
        self.press("End", "Return")
        tool("xdotool", "type", "more")
        self.until("two lines", lambda shown: shown["editor"] == "last line\r\nmore")
        self.press("ctrl+Return")
        self.until("the record", lambda shown: shown["pending"] == 1)
        self.commit()
        self.assertTrue(self.file.read_bytes().endswith(b"\r\n\r\nlast line\r\nmore"))

    def test_the_mark_opens_a_menu_that_undoes(self):
        self.correct(2, "corrected")
        row = self.row_of(2)
        self.point_at(row["markAt"][0], row["markAt"][1])
        self.click()
        # The menu takes the keys once it is open.
        def undone():
            self.press("u")
            return self.shown()["pending"] == 0
        wait_for("the undo", undone)
        self.until("no mark", lambda shown: not self.row_of(2)["corrected"])

    def test_undo_all_asks_first(self):
        self.correct(1, "one")
        self.correct(3, "three")
        self.press("alt+e")
        self.press("a")
        boxes = lambda: tool("xdotool", "search", "--onlyvisible", "--class", "quorvale"
                             ).decode().split()
        wait_for("the question", lambda: len(boxes()) == 2)
        self.assertEqual(self.shown()["pending"], 2)
        def cancelled():
            self.press("Escape")
            return len(boxes()) == 1
        wait_for("the question to close", cancelled)
        self.assertEqual(self.shown()["pending"], 2)

    def test_a_changed_file_can_be_loaded_again_with_the_corrections(self):
        self.correct(2, "corrected")
        changed = CONTENT.replace(b"third", b"3rd")
        self.file.write_bytes(changed)
        self.press("ctrl+s")
        self.answer("alt+r")
        self.until("the other's line", lambda shown: shown["rows"][2]["text"] == "3rd line")
        self.until("the correction", lambda shown: shown["pending"] == 1)
        self.assertEqual(self.file.read_bytes(), changed)
        self.until("the keys in the text", lambda shown: shown["keysAt"] == "rows")
        self.commit()
        self.assertEqual(self.file.read_bytes(), changed.replace(b"second line", b"corrected"))

    def test_a_changed_file_can_be_replaced_and_is_kept_aside(self):
        self.correct(2, "corrected")
        changed = CONTENT + b" of somebody else"
        self.file.write_bytes(changed)
        self.press("ctrl+s")
        self.answer("alt+a")
        # The viewer tells where the other version is.
        self.answer("Return")
        self.until("nothing pending", lambda shown: shown["pending"] == 0)
        self.assertEqual(self.file.read_bytes(), CONTENT.replace(b"second line", b"corrected"))
        kept = list(Path(".").glob(".qbx-displaced-*"))
        self.assertEqual([path.read_bytes() for path in kept], [changed])
        for path in kept:
            path.unlink()

    def test_a_changed_file_is_not_overwritten_without_a_word(self):
        self.correct(2, "corrected")
        self.file.write_bytes(CONTENT + b" that somebody else wrote")
        self.press("ctrl+s")
        boxes = lambda: tool("xdotool", "search", "--onlyvisible", "--class", "quorvale"
                             ).decode().split()
        wait_for("the question", lambda: len(boxes()) == 2)
        def cancelled():
            self.press("Escape")
            return len(boxes()) == 1
        wait_for("the question to close", cancelled)
        self.assertTrue(self.file.read_bytes().endswith(b"somebody else wrote"))
        self.assertEqual(self.shown()["pending"], 1)


class Endings(CorrectingCase):
    """However the viewer ends, what was corrected is there when it comes back."""

    def in_the_journal(self, text):
        def saved():
            return self.journal.exists() and text in self.journal.read_text(encoding="utf-8")
        wait_for("the journal", saved)

    def test_what_was_recorded_outlives_a_kill(self):
        self.correct(2, "corrected")
        self.in_the_journal("corrected")
        self.viewer.send_signal(signal.SIGKILL)
        self.viewer.wait(timeout=30)
        self.show()
        self.until("the correction", lambda shown: shown["pending"] == 1 and
                   self.row_of(2)["corrected"])

    def test_a_signal_saves_what_is_being_typed_and_ends_the_viewer(self):
        for ending in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            self.open_editor(3)
            self.press("ctrl+a")
            tool("xdotool", "type", "--clearmodifiers", ending.name)
            self.until("the typed text", lambda shown: shown["editor"] == ending.name)
            self.viewer.send_signal(ending)
            self.assertEqual(self.viewer.wait(timeout=30), 0)
            self.in_the_journal(ending.name)
            self.show()
            self.until("the correction", lambda shown: shown["pending"] == 1)

    def test_a_signal_ends_the_viewer_while_it_asks(self):
        self.correct(2, "corrected")
        self.file.write_bytes(CONTENT + b" of somebody else")
        self.press("ctrl+s")
        wait_for("the question", lambda: len(tool(
            "xdotool", "search", "--onlyvisible", "--class", "quorvale").decode().split()) == 2)
        self.viewer.send_signal(signal.SIGTERM)
        self.assertEqual(self.viewer.wait(timeout=30), 0)
        self.in_the_journal("corrected")
        self.assertTrue(self.file.read_bytes().endswith(b"somebody else"))

    def test_undo_in_an_open_editor_takes_back_typing_only(self):
        self.correct(3, "corrected")
        self.open_editor(3)
        tool("xdotool", "type", "x")
        self.until("the typed text", lambda shown: shown["editor"] == "xcorrected")
        self.press("alt+e")
        self.press("u")
        shown = self.until("the text before", lambda shown: shown["editor"] == "corrected")
        self.assertEqual(shown["pending"], 1)

    def test_a_deleted_file_is_told_as_such_and_can_be_written_anew(self):
        self.correct(2, "corrected")
        self.file.unlink()
        self.press("ctrl+s")
        self.answer("alt+a")
        self.until("nothing pending", lambda shown: shown["pending"] == 0)
        self.assertEqual(self.file.read_bytes(), CONTENT.replace(b"second line", b"corrected"))


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
