#!/usr/bin/env python3
"""The viewer is killed at every call that changes files while it commits, and each of these calls
fails in turn: afterwards the file is the old or the new one, byte for byte, no correction is lost or
applied twice, and nothing stray is left.
Usage: viewer_faults_test.py VIEWER SHIM, on a display with a window manager."""

import errno
import os
import shutil
import sys
import unittest
from pathlib import Path

import desktop
from desktop import ViewerCase, tool, wait_for

OLD = b"first line\nsecond line\nthird line\n"
NEW = b"first line\nA\nB\nthird line\n"
JOURNAL = b'<corrections><update start="2" loc="1">A\nB\n</update></corrections>'
# What goes wrong: the error number, and whether every later call fails too.
FAULTS = {"no space, once": (errno.ENOSPC, False),
          "input/output errors from then on": (errno.EIO, True)}
# All of it takes minutes: QUORVALE_ALL_FAULTS asks for it.
ALL_FAULTS = {f"{errno.errorcode[number]}{', and on' if on else ''}": (number, on)
              for number in (errno.ENOSPC, errno.EIO, errno.EACCES, errno.EROFS, errno.EINTR)
              for on in (False, True) if not (on and number == errno.EINTR)}
if os.environ.get("QUORVALE_ALL_FAULTS"):
    FAULTS = ALL_FAULTS
SHIM = ""


class ViewerFaults(ViewerCase):
    def setUp(self):
        self.folder = Path("place").resolve()
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        self.file = self.folder / "document.txt"
        self.journal = self.folder / "document.txt!.xml"
        self.log = Path("calls.log").resolve()

    def start_afresh(self):
        if hasattr(self, "viewer"):
            # A part that failed leaves its own behind, which has the file.
            self.stop()
        for path in self.folder.iterdir():
            path.unlink()
        self.file.write_bytes(OLD)
        self.journal.write_bytes(JOURNAL)

    def commit(self, at=0, how="before", on=False):
        """Opens the file in a viewer with a fault, commits, and lets the viewer end or be ended.
        Answers how many calls there were."""
        self.log.unlink(missing_ok=True)
        self.open(str(self.file), title="document", FAULT_FOLDER=str(self.folder),
                  FAULT_LOG=str(self.log), FAULT_AT=str(at), FAULT_HOW=how,
                  FAULT_ON="1" if on else "", LD_PRELOAD=SHIM)
        self.press_until_gone("ctrl+s", lambda: self.shown().get("pending") == 0, sound=at == 0)
        self.press_until_gone("alt+F4", lambda: False)
        return len(self.log.read_text().splitlines()) if self.log.exists() else 0

    def press_until_gone(self, key, done, sound=False):
        """Presses the key, answers messages, and goes on when that is done or the viewer is no more.
        A viewer that asks before it closes is ended the hard way: what it would save is saved. In a
        sound viewer nothing fails: a key that met a message is pressed again."""
        pressed = False
        told = False
        def finished():
            nonlocal pressed, told
            if self.viewer.poll() is not None or (pressed and done()):
                return True
            others = [window for window in tool("xdotool", "search", "--onlyvisible", "--class",
                                                "quorvale").decode().split()
                      if window != self.window]
            if others and key == "alt+F4":
                self.stop()
            elif others:
                told = True
                # Whichever message has the keys: all of them have a way on that changes nothing.
                if tool("xdotool", "getactivewindow").strip().decode() in others:
                    tool("xdotool", "key", "Return")
            elif not pressed or key == "alt+F4":
                # The window manager calls a window active before it has the keys.
                if self.shown().get("keysAt") == "rows":
                    self.press(key)
                    pressed = True
                else:
                    tool("xdotool", "windowactivate", self.window)
            elif told and sound:
                pressed = told = False
            else:
                # The message was answered and nothing more is coming.
                return told
            return False
        self.wait_and_see(f"what {key} does", finished)

    def correct_and_commit(self, at):
        """A correction of this session, and a viewer that is killed at that call. How many calls
        there were in all."""
        self.start_afresh()
        self.journal.unlink()
        self.log.unlink(missing_ok=True)
        self.open(str(self.file), title="document", FAULT_FOLDER=str(self.folder),
                  FAULT_LOG=str(self.log), FAULT_AT=str(at), FAULT_HOW="before",
                  LD_PRELOAD=SHIM)
        self.until("the file", lambda shown: shown["lines"] == 4)
        self.activate()
        self.press("F2")
        self.until("the editor", lambda shown: shown.get("focus") == "editor")
        self.press("x", "ctrl+Return")
        # What is recorded is saved a moment later, in calls that count too.
        wait_for("the journal", lambda: self.viewer.poll() is not None or
                 (self.journal.exists() and self.shown().get("pending") == 1))
        self.press("ctrl+s")
        wait_for("the end", lambda: self.viewer.poll() is not None or
                 (at == 0 and self.shown().get("pending") == 0))
        self.stop()
        return len(self.log.read_text().splitlines())

    # They used to be in memory only until the window was closed.
    def test_corrections_of_this_session_survive_a_killed_commit(self):
        calls = self.correct_and_commit(0)
        new = self.file.read_bytes()
        self.assertNotEqual(new, OLD)
        # The first file that is put in its place is the journal.
        saved = next(number for number, call in enumerate(self.log.read_text().split(), 1)
                     if call in ("rename", "exchange"))
        for at in range(saved + 1, calls + 1):
            with self.subTest(call=at):
                self.correct_and_commit(at)
                content = self.file.read_bytes()
                self.assertIn(content, (OLD, new))
                if content == OLD:
                    self.assertIn(b"x", self.journal.read_bytes())
        print(f"killed at each of {calls - saved} calls after the corrections were saved", flush=True)

    def test_corrections_that_cannot_be_saved_keep_the_window_open(self):
        self.start_afresh()
        self.journal.unlink()
        self.log.unlink(missing_ok=True)
        self.open(str(self.file), title="document", FAULT_FOLDER=str(self.folder),
                  FAULT_LOG=str(self.log), FAULT_AT="1", FAULT_HOW="28", FAULT_ON="1",
                  LD_PRELOAD=SHIM)
        self.until("the file", lambda shown: shown["lines"] == 4)
        self.activate()
        self.press("F2")
        self.until("the editor", lambda shown: shown.get("focus") == "editor")
        self.press("x", "ctrl+Return")
        self.until("a correction", lambda shown: shown["pending"] == 1)
        self.press("alt+F4")
        boxes = lambda: [window for window in tool("xdotool", "search", "--onlyvisible", "--class",
                                                   "quorvale").decode().split()
                         if window != self.window]
        box = wait_for("the question", boxes)[0]
        def active():
            tool("xdotool", "windowactivate", box)
            return tool("xdotool", "getactivewindow").strip().decode() == box
        wait_for("the question to have the keys", active)
        self.press("Escape")
        wait_for("the question to close", lambda: not boxes())
        self.assertIsNone(self.viewer.poll())
        self.assertEqual(self.shown()["pending"], 1)

    def try_again(self):
        """The next day: the same file in a sound viewer, and another commit."""
        self.commit()
        self.assertEqual(self.file.read_bytes(), NEW)
        self.assertFalse(self.journal.exists())
        # Corrections of a commit that reported a failure after the new file was in place may be kept
        # aside, for people to look at.
        for path in self.folder.iterdir():
            if path.name.startswith(".qbx-displaced-"):
                self.assertEqual(path.read_bytes(), JOURNAL)
            else:
                self.assertEqual(path.name, "document.txt")

    def check(self, what):
        """Old file and its corrections, or new file."""
        content = self.file.read_bytes()
        self.assertIn(content, (OLD, NEW), what)
        if content == OLD:
            self.assertEqual(self.journal.read_bytes(), JOURNAL, what)

    def count(self):
        self.start_afresh()
        calls = self.commit()
        self.assertEqual(self.file.read_bytes(), NEW)
        self.assertGreater(calls, 8)
        return calls

    def test_killed_at_every_call(self):
        calls = self.count()
        for at in range(1, calls + 1):
            for how in ("before", "after"):
                with self.subTest(call=at, killed=how):
                    self.start_afresh()
                    self.assertGreaterEqual(self.commit(at, how), at)
                    self.check(f"killed {how} call {at}")
                    self.try_again()
        print(f"killed before and after each of {calls} calls", flush=True)

    def test_every_call_fails_in_turn(self):
        calls = self.count()
        for at in range(1, calls + 1):
            for name, (number, on) in FAULTS.items():
                with self.subTest(call=at, fault=name):
                    self.start_afresh()
                    self.assertGreaterEqual(self.commit(at, str(number), on), at)
                    self.check(f"{name} at call {at}")
                    self.try_again()
        print(f"{len(FAULTS)} faults at each of {calls} calls", flush=True)


if __name__ == "__main__":
    desktop.VIEWER = sys.argv.pop(1)
    SHIM = sys.argv.pop(1)
    unittest.main()
