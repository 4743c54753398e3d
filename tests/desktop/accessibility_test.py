#!/usr/bin/env python3
"""A screen reader's view of the viewer: another program reads rows, caret, selection and folds over
AT-SPI while a user works with real keys. Usage: accessibility_test.py VIEWER, on a display with a
window manager, with a session bus of its own."""

import os
import sys
import unittest
from pathlib import Path
from unittest import mock

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

import desktop
from desktop import ViewerCase, tool, wait_for

SOURCE = "first\n    one\n    two words\n        deep\n\n    three\nsecond\n    four\n" + "x\n" * 500
State = Atspi.StateType
HEARD = ("object:state-changed:focused", "object:state-changed:selected",
         "object:text-caret-moved", "object:property-change:accessible-description")


def parts_below(part):
    for i in range(part.get_child_count()):
        child = part.get_child_at_index(i)
        if child is not None:
            yield child
            yield from parts_below(child)


def has(part, *states):
    its_states = part.get_state_set()
    return all(its_states.contains(state) for state in states)


def text_of(row):
    return Atspi.Text.get_text(row, 0, -1)


def describe(row):
    return (row.get_name(), row.get_description())


def told_of(event):
    """The description of the row that an event is about; empty when it is gone."""
    try:
        return event.source.get_description()
    except GLib.Error:
        return ""


class ScreenReader(ViewerCase):
    """Hears the events and looks the parts up; a part that goes away meanwhile is looked up again."""

    def read(self, **environment):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.heard.append)
        # Before the viewer starts: it asks once what is to be told.
        for event in HEARD:
            self.listener.register(event)
            self.addCleanup(self.listener.deregister, event)
        Path("read.txt").write_text(SOURCE, encoding="utf-8")
        with mock.patch.dict(os.environ, environment):
            self.open("read.txt", title="read")
        self.activate()
        self.app = self.soon("the viewer on the bus", self.viewer_on_bus)
        self.list = self.soon("the list of rows", lambda: self.part("list"))
        self.soon("the caret", self.caret_row)

    def soon(self, what, answer):
        """Waits for an answer, listening meanwhile."""
        def met():
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                return answer()
            except (GLib.Error, AttributeError, TypeError, StopIteration):
                # Rows are asked for one by one: between two answers they may have moved on.
                return None
        return wait_for(what, met)

    def viewer_on_bus(self):
        bus = Atspi.get_desktop(0)
        programs = (bus.get_child_at_index(i) for i in range(bus.get_child_count()))
        return next((program for program in programs
                     if program is not None and program.get_process_id() == self.viewer.pid), None)

    def part(self, role, name=None):
        return next((part for part in parts_below(self.app) if part.get_role_name() == role and
                     name in (None, part.get_name())), None)

    def rows(self):
        rows = [self.list.get_child_at_index(i) for i in range(self.list.get_child_count())]
        return [row for row in rows if row is not None]

    def row(self, line):
        return next(row for row in self.rows()
                    if row.get_description().split(",")[0] == f"line {line}")

    def caret_row(self):
        """The row that has the keyboard."""
        return next((row for row in self.rows() if has(row, State.FOCUSED)), None)

    def follow(self, line, column):
        """Waits until the caret is told to be there; its row."""
        def there():
            row = self.caret_row()
            if row is None or row.get_description() != f"line {line}":
                return None
            return row if Atspi.Text.get_caret_offset(row) == column else None
        return self.soon(f"the caret in line {line} behind {column} characters", there)

    def hear(self, event, description):
        """Waits for an event of the row with that description; how often it was told."""
        def times():
            return sum(1 for told in self.heard
                       if told.type == event and told_of(told) == description)
        return self.soon(f"{event} of {description}", times)


class Rows(ScreenReader):
    def test_the_rows_on_screen_are_read_with_their_lines(self):
        self.read()
        rows = self.rows()
        self.assertEqual([describe(row) for row in rows[:7]],
                         [("first", "line 1"), ("    one", "line 2"),
                          ("    two words", "line 3"), ("        deep", "line 4"),
                          ("blank", "line 5"), ("    three", "line 6"), ("second", "line 7")])
        self.assertTrue(all(row.get_role_name() == "list item" for row in rows))
        self.assertTrue(all(has(row, State.SHOWING, State.SELECTABLE) for row in rows))
        self.assertEqual(text_of(rows[4]), "")
        # A row lies where it is seen.
        place = rows[3].get_extents(Atspi.CoordType.SCREEN)
        found = self.list.get_accessible_at_point(place.x + 50, place.y + place.height // 2,
                                                  Atspi.CoordType.SCREEN)
        self.assertEqual(describe(found), ("        deep", "line 4"))

    def test_the_caret_is_followed_from_row_to_row(self):
        self.read()
        self.assertEqual(text_of(self.follow(1, 0)), "first")
        self.press("Down", "Down")
        self.assertEqual(text_of(self.follow(3, 0)), "    two words")
        self.hear("object:state-changed:focused", "line 3")
        self.press("ctrl+End")
        self.soon("the last line", lambda: self.caret_row().get_description() == "line 509")
        self.press("ctrl+Home")
        self.follow(1, 0)

    def test_the_caret_is_followed_along_its_row(self):
        self.read()
        self.press("Down", "Down")
        self.follow(3, 0)
        self.press("End")
        row = self.follow(3, len("    two words"))
        self.hear("object:text-caret-moved", "line 3")
        self.press("Left")
        self.follow(3, len("    two word"))
        self.assertEqual(Atspi.Text.get_text(row, 8, 13), "words")

    def test_every_step_of_the_caret_is_told_once(self):
        self.read()
        for line in (2, 3, 4, 5):
            self.press("Down")
            self.follow(line, 0)
            self.hear("object:state-changed:focused", f"line {line}")
        told = [told_of(event) for event in self.heard
                if event.type == "object:state-changed:focused" and event.detail1 == 1]
        self.assertEqual([line for line in told if line in ("line 2", "line 3", "line 4", "line 5")],
                         ["line 2", "line 3", "line 4", "line 5"])

    def test_selected_rows_are_told(self):
        self.read()
        self.press("Down", "shift+Down", "shift+Down")
        self.follow(4, 0)
        def selected():
            return [row.get_description() for row in self.rows() if has(row, State.SELECTED)]
        self.soon("three rows", lambda: selected() == ["line 2", "line 3", "line 4"])
        self.hear("object:state-changed:selected", "line 3")
        self.press("Down")
        self.soon("none", lambda: selected() == [])

    def test_a_row_is_gone_to_from_outside(self):
        self.read()
        self.row(7).grab_focus()
        self.assertEqual(text_of(self.follow(7, 0)), "second")
        Atspi.Text.set_caret_offset(self.row(3), 4)
        self.follow(3, 4)

    def test_the_focus_is_followed_out_of_the_rows_and_back(self):
        self.read()
        self.press("Down")
        self.hear("object:state-changed:focused", "line 2")
        self.press("Tab")
        self.soon("the focus elsewhere", lambda: self.caret_row() is None)
        self.assertTrue(has(self.row(2), State.ACTIVE))
        self.press("shift+Tab")
        self.follow(2, 0)
        self.soon("the row told again",
                  lambda: self.hear("object:state-changed:focused", "line 2") > 1)


class Folds(ScreenReader):
    def setUp(self):
        self.read()
        # Not by its keys: while a reader listens, Qt now and then misses Alt and a letter that are let
        # go at once.
        self.part("menu item", "Fold by indentation").do_action(0)
        self.soon("rows that can be folded", lambda: self.heads(State.EXPANDED))

    def heads(self, *states):
        return [describe(row) for row in self.rows() if has(row, State.EXPANDABLE, *states)]

    def test_a_folded_row_is_found_by_its_state(self):
        self.assertEqual(self.heads(State.EXPANDED),
                         [("first", "line 1"), ("    two words", "line 3"), ("second", "line 7")])
        self.assertEqual(self.heads(State.COLLAPSED), [])
        self.press("ctrl+Home")
        self.toggle(3)
        self.soon("the fold", lambda: self.heads(State.COLLAPSED) ==
                  [("    two words", "line 3, folded")])
        self.assertFalse(has(self.row(3), State.EXPANDED))
        self.assertNotIn("        deep", [row.get_name() for row in self.rows()])
        self.hear("object:property-change:accessible-description", "line 3, folded")
        self.toggle(3)
        self.soon("no fold", lambda: self.heads(State.COLLAPSED) == [])
        self.assertIn("        deep", [row.get_name() for row in self.rows()])

    def toggle(self, line):
        # The first action of a row is to go there.
        self.assertEqual(Atspi.Action.get_n_actions(self.row(line)), 2)
        self.row(line).do_action(1)

    def test_a_row_without_a_fold_cannot_be_toggled(self):
        self.assertFalse(has(self.row(2), State.EXPANDABLE))
        self.assertEqual(Atspi.Action.get_n_actions(self.row(2)), 1)


class Corrections(ScreenReader):
    def setUp(self):
        Path("read.txt!.xml").unlink(missing_ok=True)
        self.addCleanup(Path("read.txt!.xml").unlink, missing_ok=True)
        self.read()

    def corrected(self):
        return [describe(row) for row in self.rows() if has(row, State.CHECKED)]

    def test_a_corrected_row_is_found_by_its_state(self):
        self.assertEqual(self.corrected(), [])
        self.press("Down", "Down")
        self.follow(3, 0)
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        tool("xdotool", "type", "new")
        self.until("the typed text", lambda shown: shown["editor"].startswith("new"))
        self.press("ctrl+Return")
        # What stands there stays until it is committed.
        self.soon("the correction", lambda: self.corrected() ==
                  [("    two words", "line 3, corrected")])
        self.hear("object:property-change:accessible-description", "line 3, corrected")
        self.press("ctrl+z")
        self.soon("no correction", lambda: self.corrected() == [])

    def test_rows_are_found_by_all_their_states_at_once(self):
        self.part("menu item", "Fold by indentation").do_action(0)
        self.soon("rows that can be folded",
                  lambda: [row for row in self.rows() if has(row, State.EXPANDABLE)])
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        tool("xdotool", "type", "new")
        self.press("ctrl+Return")
        self.soon("the correction", lambda: len(self.corrected()) == 1)
        self.row(1).do_action(1)
        def found():
            return [describe(row) for row in self.rows()
                    if has(row, State.CHECKED, State.COLLAPSED, State.FOCUSED)]
        self.soon("the row", lambda: found() == [("first", "line 1, folded, corrected")])
        self.assertEqual(text_of(self.caret_row()), "first")


class Parts(ScreenReader):
    def test_toolbar_and_boxes_have_names(self):
        self.read()
        bar = self.part("tool bar")
        named = {part.get_name() for part in parts_below(bar)
                 if part.get_role_name() in ("push button", "check box")}
        self.assertEqual(named, {"Find", "Go to Line", "Collapse Lines", "Edit",
                                 "Show Boundaries", "Print"})
        boxes = [part.get_name() for part in parts_below(bar) if part.get_role_name() == "text"]
        self.assertEqual(boxes, ["Find", "Go to Line"])
        self.assertIsNotNone(self.part("push button", "Hide Toolbar"))
        self.assertIsNotNone(self.part("text", "Edit"), "the editor")

    def test_a_button_is_pressed_from_outside(self):
        self.read()
        grid = self.part("check box", "Show Boundaries")
        self.assertFalse(has(grid, State.CHECKED))
        grid.do_action(0)
        self.soon("the boundaries", lambda: has(self.part("check box", "Show Boundaries"),
                                                State.CHECKED))

    def test_the_words_are_the_users(self):
        self.read(LANGUAGE="ja")
        self.assertEqual(self.list.get_name(), "テキスト")
        self.assertEqual(describe(self.rows()[4]), ("空行", "行 5"))


if __name__ == "__main__":
    # Without a reader that the desktop knows of, Qt tells only when it is asked to.
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    Atspi.init()
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
