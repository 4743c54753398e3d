"""What desktop tests share: a viewer in a real window, a user's hands, and conditions to wait for."""

import json
import os
import subprocess
import time
import unittest
from pathlib import Path

import stalls

# The program under test; each test sets it from its command line.
VIEWER = ""


def wait_for(what, condition, seconds=30):
    """The condition's first true answer; the test fails when there is none in time."""
    give_up = time.monotonic() + seconds
    while time.monotonic() < give_up:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}")


def tool(*command):
    ran = subprocess.run(command, check=False, capture_output=True)
    return ran.stdout if ran.returncode == 0 else b""


class ViewerCase(unittest.TestCase):
    """A test with a viewer of its own, and what the viewer says that it shows."""

    @classmethod
    def setUpClass(cls):
        stalls.stall("manager", int(os.environ["WINDOW_MANAGER"]))

    def open(self, *arguments, title, **variables):
        environment = {name: value for name, value in os.environ.items()
                       if name != "QT_QPA_PLATFORM"} | variables
        # What one test's viewer keeps is not the next one's.
        config = Path(f"config of {self.id()}").resolve()
        (config / "quorvale").mkdir(parents=True, exist_ok=True)
        self.settings = config / "quorvale/viewer.ini"
        environment["XDG_CONFIG_HOME"] = str(config)
        self.dump = Path("elements.json")
        self.dump.unlink(missing_ok=True)
        self.viewer = subprocess.Popen(
            [VIEWER, "--dump-elements", str(self.dump), *arguments], env=environment)
        self.addCleanup(self.stop)
        stalls.stall("viewer", self.viewer.pid)
        self.window = wait_for("the window", lambda: self.windows(title))[0]

    def prepare(self, appearance="system", language="system"):
        """What the viewer, not started yet, will find as its user's choice."""
        folder = Path(f"config of {self.id()}/quorvale")
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "viewer.ini").write_text(
            f"[General]\nappearance={appearance}\nlanguage={language}\n", encoding="utf-8")

    def stop(self):
        self.viewer.kill()
        self.viewer.wait()

    def windows(self, title):
        return tool("xdotool", "search", "--onlyvisible", "--name", title).decode().split()

    def activate(self):
        """The window gets the keys, and says so: a window manager calls a window active before
        that. One that is asked again and again gives them again and again, in the middle of what
        comes next."""
        self.repeat_until(
            lambda: tool("xdotool", "windowactivate", self.window), "the focus",
            lambda shown: shown["keysAt"] and
            tool("xdotool", "getactivewindow").strip().decode() == self.window)

    def shown(self):
        """What the viewer shows; nothing before it has said so."""
        try:
            return json.loads(self.dump.read_text(encoding="utf-8"))
        except (FileNotFoundError, json.JSONDecodeError):
            return {}

    def met(self, condition):
        """What is shown, if it answers the condition."""
        shown = self.shown()
        try:
            return shown if shown and condition(shown) else None
        except (IndexError, KeyError, TypeError):
            # What is asked for is not there yet: between two documents there are few rows.
            return None

    def until(self, what, condition, seconds=30):
        """Waits until what is shown answers the condition, and returns it."""
        return self.wait_and_see(what, lambda: self.met(condition), seconds)

    def wait_and_see(self, what, condition, seconds=30):
        """Waits like `wait_for`; a failure tells what is shown instead."""
        try:
            return wait_for(what, condition, seconds)
        except AssertionError as error:
            shown = self.shown()
            shown["rows"] = shown.get("rows", [])[:3]
            shown.pop("parts", None)
            raise AssertionError(f"{error}; shown is {shown}") from None

    def row_of(self, line):
        return next((row for row in self.shown()["rows"] if row["line"] == line), None)

    def geometry(self):
        lines = tool("xdotool", "getwindowgeometry", "--shell", self.window).decode().split()
        return {name: int(value) for name, value in (line.split("=") for line in lines)}

    def point_at(self, x, y):
        """Moves the pointer to a place on the control, in its pixels."""
        tool("xdotool", "mousemove", "--window", self.window,
             str(x), str(y + self.shown()["above"]))

    def point_at_line(self, line, x=300):
        row = self.row_of(line)
        self.assertIsNotNone(row, f"line {line} is not on screen")
        self.point_at(x, row["top"] + self.shown()["rowHeight"] // 2)

    def press(self, *keys):
        for key in keys:
            subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)

    def press_until(self, key, what, condition):
        """A menu or a dialog takes the keys once it is open, which nobody tells: a key that was not
        heard is pressed again, but not while the answer to it may still come. Returns what is shown."""
        return self.repeat_until(lambda: self.press(key), what, condition)

    def repeat_until(self, act, what, condition):
        """Acts, and again each second, until what is shown answers the condition."""
        again = 0
        def acted():
            nonlocal again
            shown = self.met(condition)
            if not shown and time.monotonic() >= again:
                act()
                again = time.monotonic() + 1
            return shown
        return self.wait_and_see(what, acted)

    def click(self, button="1", modifier=None):
        if modifier:
            tool("xdotool", "keydown", modifier, "click", button, "keyup", modifier)
        else:
            tool("xdotool", "click", button)

    def highlighted(self):
        return [row["line"] for row in self.shown()["rows"] if row["highlighted"]]
