#!/usr/bin/env python3
"""A user writes Korean in the editor: with a real input method, which composes a syllable out of
several keys and keeps some keys for itself.
Usage: composition_test.py VIEWER, on a display with a window manager and a session bus."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for

# One layout with one input method, so that every key goes to it from the start.
PROFILE = """[Groups/0]
Name=Default
Default Layout=us
DefaultIM=hangul

[Groups/0/Items/0]
Name=hangul
Layout=

[GroupOrder]
0=Default
"""
ADDONS = "dbus,dbusfrontend,hangul,keyboard,xcb"
BUS_NAME = "org.fcitx.Fcitx5"


def is_there():
    answer = tool("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus",
                  "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner",
                  f"string:{BUS_NAME}")
    return b"true" in answer


class Composition(ViewerCase):
    def setUp(self):
        self.start_input_method()
        self.file = Path("document.txt")
        self.file.write_text("one\ntwo\nthree\n" + "more\n" * 300, encoding="utf-8")
        Path("document.txt!.xml").unlink(missing_ok=True)
        self.open(str(self.file), title="document", QT_IM_MODULE="fcitx5")
        self.until("the file", lambda shown: shown["lines"] == 304)
        self.activate()
        self.until("the focus in the text", lambda shown: shown["focus"] == "text")

    def start_input_method(self):
        config = Path.cwd() / "config"
        folder = config / "fcitx5"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "profile").write_text(PROFILE, encoding="utf-8")
        with open("fcitx5.log", "wb") as log:
            method = subprocess.Popen(
                ["fcitx5", "--disable=all", f"--enable={ADDONS}"], stdout=log, stderr=log,
                env=os.environ | {"XDG_CONFIG_HOME": str(config)})

        def end():
            method.kill()
            method.wait()
            wait_for("the input method to go", lambda: not is_there())
        self.addCleanup(end)
        wait_for("the input method", is_there)

    def compose(self, line=1):
        """Opens the editor over the line and composes the syllable of the keys g, k and s."""
        # Not where the caret is already: the click might come when the editor is open.
        if self.shown()["row"] != line:
            self.point_at_line(line)
            self.click()
            self.until("the caret", lambda shown: shown["row"] == line)
        self.press("F2")
        self.until("the editor", lambda shown: shown["focus"] == "editor")
        wait_for("the first letter", self.begin)
        self.press("k", "s")
        self.until("the syllable", lambda shown: shown["composed"] == "한" and
                   shown["editor"] == "")

    def begin(self):
        """The input method answers when it likes, and does not know of a new editor at once: what is
        typed until then stands there as it is, and is taken out again."""
        self.press("ctrl+a", "Delete")
        self.until("an empty editor", lambda shown: shown["editor"] == "")
        self.press("g")
        return self.until("a letter", lambda shown: shown["composed"] or shown["editor"])["composed"]

    def pick(self, *entries):
        """Picks with the mouse: a key would go to the input method first."""
        for entry in entries:
            def place(shown):
                names = [name for name in shown["menuEntries"] if name.replace("&", "").startswith(entry)]
                return shown["menuEntries"][names[0]]
            shown = self.until(f"the menu's {entry}", place)
            tool("xdotool", "mousemove", *map(str, place(shown)))
            self.click()

    def until_recorded(self, text, line=1):
        """The editor is closed, and the text is what the line is going to be."""
        self.until("the editor to close", lambda shown: "editor" not in shown)
        self.until("the correction", lambda shown: shown["pending"] == 1 and
                   shown["row"] == line and self.row_of(line)["corrected"])
        self.press("F2")
        self.until("the text", lambda shown: shown["editor"] == text and not shown["composed"])

    def test_the_key_that_picks_a_character_is_not_typed(self):
        self.compose()
        # Chinese characters with this sound are offered; Enter takes the first one.
        self.press("F9", "Return")
        shown = self.until("the character", lambda shown: not shown["composed"] and
                           shown["editor"] != "")
        self.assertEqual(shown["editor"], "韓")
        self.assertEqual(shown["focus"], "editor")
        self.assertEqual(shown["pending"], 0)
        self.press("ctrl+Return")
        self.until_recorded("韓")

    def test_a_key_that_takes_a_composition_back_leaves_the_text_alone(self):
        self.compose()
        self.press("BackSpace")
        self.until("one key less", lambda shown: shown["composed"] == "하")
        self.press("BackSpace", "BackSpace")
        shown = self.until("nothing composed", lambda shown: shown["composed"] == "")
        self.assertEqual(shown["editor"], "")
        self.assertEqual(shown["pending"], 0)

    def test_recording_takes_the_syllable_along(self):
        self.compose()
        self.press("ctrl+Return")
        self.until_recorded("한")

    def test_a_click_elsewhere_takes_the_syllable_along(self):
        self.compose()
        self.point_at_line(3)
        self.click()
        self.until("the caret", lambda shown: shown["row"] == 3)
        self.point_at_line(1)
        self.click()
        self.until_recorded("한")

    def test_scrolling_away_takes_the_syllable_along(self):
        self.compose()
        self.point_at_line(3)
        for _ in range(20):
            self.click("5")
        self.until("the editor to close", lambda shown: "editor" not in shown)
        for _ in range(20):
            self.click("4")
        self.until("the top", lambda shown: shown["top"] == 1)
        self.point_at_line(1)
        self.click()
        self.until_recorded("한")

    def test_a_commit_from_the_menu_takes_the_syllable_along(self):
        self.compose()
        self.pick("Edit", "Commit")
        self.until("nothing pending", lambda shown: shown["pending"] == 0 and
                   "editor" not in shown and self.row_of(1)["text"] == "한")
        self.assertEqual(self.file.read_text(encoding="utf-8"), "한\ntwo\nthree\n" + "more\n" * 300)

    def test_the_menu_that_opens_the_editor_anew_takes_the_syllable_along(self):
        self.compose()
        self.pick("Edit", "Edit lines")
        self.until("the editor over what was recorded", lambda shown: shown["pending"] == 1 and
                   shown["editor"] == "한" and not shown["composed"])


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    unittest.main()
