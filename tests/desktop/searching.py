"""What the tests of finding share: a folder of files to search, and a user's hands on the search box,
its menu and the list of results. Where QUORVALE_PICTURES names a folder, a picture of the screen is
put there at every step."""

import os
import shutil
from pathlib import Path

from desktop import ViewerCase, tool

# The entries of the Find button's menu, without its separator.
NEXT, ALL, PATTERN, RECENT = range(4)
PICTURES = os.environ.get("QUORVALE_PICTURES")


def lines(count, **texts):
    """Plain lines, and what some of them say instead: line_20="text"."""
    numbered = {int(name.split("_")[1]): text for name, text in texts.items()}
    return "".join(numbered.get(n, f"nothing in line {n}") + "\n" for n in range(1, count + 1))


class Searching(ViewerCase):
    def setUp(self):
        self.folder = Path("tree").absolute()
        shutil.rmtree(self.folder, ignore_errors=True)
        (self.folder / "deeper").mkdir(parents=True)
        self.put("first.txt", lines(300, line_20="    the Marker one", line_120="marker two"))
        self.put("second.txt", lines(80, line_50="  a marker three"))
        self.put("deeper/third.log", lines(10, line_5="marker four", line_7="MARKER five"))
        self.put("deeper/other.dat", "marker in a file that nobody asks for\n")
        self.put(".hidden.txt", "a hidden marker\n")
        (self.folder / "link.txt").symlink_to("second.txt")
        (self.folder / "deeper" / "circle").symlink_to("..")

    def put(self, name, text):
        (self.folder / name).write_text(text, encoding="utf-8")

    def show(self, name="first.txt", count=301):
        self.open(str(self.folder / name), title=f"^{name}")
        self.until("the file", lambda shown: shown["lines"] == count)
        self.activate()
        self.until("the focus in the text", lambda shown: shown["focus"] == "text")

    def picture(self, name):
        if not PICTURES:
            return
        # What is shown is painted a moment later. A cursor that blinks never comes to rest.
        before = b""
        for _ in range(5):
            tool("import", "-window", "root", f"{PICTURES}/{self._testMethodName}-{name}.png")
            now = tool("import", "-window", "root", "-silent", "rgb:-")
            if now == before:
                break
            before = now

    def type(self, text):
        tool("xdotool", "type", "--clearmodifiers", text)

    def at_row(self, row):
        return self.until(f"the caret in line {row}", lambda shown: shown["row"] == row)

    def told(self, words):
        self.until(f"the words {words!r}", lambda shown: words in shown["message"])

    def look_for(self, text):
        self.press("ctrl+f")
        self.until("the search box", lambda shown: shown["focus"] == "search")
        self.type(text)
        self.until("the typed text", lambda shown: shown["search"] == text)

    def listed(self, count):
        """The list with so many rows, the ways back among them, and the keys."""
        return self.until(f"a list of {count}", lambda shown: shown["results"] == count and
                          len(shown["seenResults"]) == min(count, len(shown["seenResults"])) > 0 and
                          shown["focus"] == "found" and shown["keysAt"] == "lvFound")

    def result(self, row):
        return self.shown()["seenResults"][row]

    def selected(self, row):
        return self.until(f"row {row} selected",
                          lambda shown: shown["seenResults"][row]["selected"])

    def hidden(self):
        return self.until("no list", lambda shown: "results" not in shown and
                          shown["focus"] == "text" and shown["keysAt"] == "rows")

    def pick_in_find_menu(self, entry, picture=None):
        self.point_at(*self.shown()["find"]["menuAt"])
        self.click()
        shown = self.until("the menu", lambda shown: len(shown["menu"]) > entry)
        if picture:
            self.picture(picture)
        tool("xdotool", "mousemove", *map(str, shown["menu"][entry]["at"]))
        self.click()
        self.until("the menu to close", lambda shown: not shown["menu"])
