#!/usr/bin/env python3
"""Does what docs/first-ten-minutes.md tells a newcomer to do: its commands, its keys in a real window, its program;
and looks for everything that they are to see. Prints how long each step took.
Usage: first_minutes_test.py VIEWER BUILD, on a display with a window manager. BUILD is the build directory;
QUORVALE_INSTALLS=1 says that there is something to install in it, QUORVALE_DESIGNS=1 that the plugin for
Qt Designer is part of it."""

import os
import re
import shlex
import shutil
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

import desktop
import page
from desktop import ViewerCase, tool, wait_for
from picture import Picture

TOP = Path(__file__).resolve().parents[2]
PAGE = TOP / "docs/first-ten-minutes.md"
BUILD = Path()
# Steps that need what not every build has, and what tells that it is there.
NEEDS = {"In a program of your own": "QUORVALE_INSTALLS", "In Qt Designer": "QUORVALE_DESIGNS"}


class Checkout:
    """What the page's commands find: the scripts of the checkout as they are, and the viewer and the tests where the
    scripts look for them, as they were built already. Only installing packages and building are stood in for."""

    def __init__(self, place, dump):
        self.place = place
        self.closed = place / "closed"
        for name in ("run", "test", "CMakePresets.json", "samples"):
            copy = shutil.copytree if (TOP / name).is_dir() else shutil.copy2
            copy(TOP / name, place / name)
        for name in ("tools/install-packages", "tools/build"):
            assert os.access(TOP / name, os.X_OK), name
            self.script(name, "exit 0")
        release = place / "build/release"
        release.mkdir(parents=True)
        (release / "cmake_install.cmake").symlink_to(BUILD / "cmake_install.cmake")
        self.script("build/release/bin/quorvale-viewer",
                    f"{shlex.quote(desktop.VIEWER)} --dump-elements {shlex.quote(str(dump))} \"$@\"",
                    "echo $? > closing", f"mv closing {shlex.quote(str(self.closed))}")
        (release / "bin/example_host_test").symlink_to(BUILD / "bin/example_host_test")
        (place / "build/test").mkdir()
        (place / "build/test/CTestTestfile.cmake").write_text(
            f'subdirs("{BUILD / "examples"}")\n', encoding="utf-8")

    def script(self, name, *lines):
        path = self.place / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join(("#!/bin/sh", *lines)) + "\n", encoding="utf-8")
        path.chmod(0o755)


class Newcomer(ViewerCase):
    """A reader of the page, with a checkout of their own."""

    def setUp(self):
        self.place = Path("checkout").resolve()
        shutil.rmtree(self.place, ignore_errors=True)
        self.place.mkdir()
        self.dump = Path("elements.json").resolve()
        self.checkout = Checkout(self.place, self.dump)
        self.home = Path("home").resolve()
        self.home.mkdir(exist_ok=True)
        # What each command said when it was run last.
        self.before = {}
        # Each command's output is a file of its own.
        self.outputs, self.output = 0, None
        self.groups = []
        self.addCleanup(self.end_all)
        # Variables that the page sets stay set, as in one terminal.
        self.variables = {"HOME": str(self.home), "XDG_CONFIG_HOME": str(self.home / ".config")}

    def end_all(self):
        """What the page left running, as far as these are our own."""
        for group in self.groups:
            try:
                os.killpg(group, signal.SIGKILL)
            except ProcessLookupError:
                pass

    # Commands.

    def run_command(self, command):
        exported = re.fullmatch(r"export (\w+)=(\S+)", command.text)
        if exported:
            self.variables[exported[1]] = exported[2].replace("$HOME", str(self.home))
            return
        if command.text.startswith("./run"):
            self.dump.unlink(missing_ok=True)
            self.checkout.closed.unlink(missing_ok=True)
        # A program in the background may speak up, as the sanitizers do, while the next command runs already.
        self.outputs += 1
        self.output = Path(f"output {self.outputs}")
        with open(self.output, "w+", encoding="utf-8") as output:
            shell = subprocess.Popen(
                ["bash", "-c", command.text], cwd=self.place, stdin=subprocess.DEVNULL,
                stdout=output, stderr=subprocess.STDOUT, start_new_session=True,
                env={name: value for name, value in os.environ.items()
                     if name != "QT_QPA_PLATFORM"} | self.variables)
            self.groups.append(shell.pid)
            code = shell.wait(timeout=240)
            output.seek(0)
            self.judge(command, code, output.read())

    def judge(self, command, code, output):
        said = f"{command.text}\n{output}"
        if command.text.startswith("diff "):
            self.assertEqual(code, 1, said)
        else:
            self.assertEqual(code, 0, said)
        shows = re.fullmatch('shows "(.+)"', command.remark)
        alone = re.fullmatch(r"line (\d+) alone", command.remark)
        if command.remark == "the same sum as before":
            self.assertEqual(output, self.before.get(command.text), said)
        elif shows:
            self.assertIn(shows[1], output)
        elif alone:
            self.check_only_line(int(alone[1]), command, output)
        elif command.remark:
            raise page.PageError(f"line {command.line}: nobody can check {command.remark!r}")
        self.before[command.text] = output

    def check_only_line(self, line, command, output):
        self.assertRegex(output, rf"\A{line}c{line}\n[^\n]*\n---\n[^\n]*\n\Z")
        before, after = ((self.place / name).read_bytes().split(b"\n")
                         for name in command.text.split()[1:])
        self.assertEqual(len(before), len(after))
        self.assertEqual([n for n, pair in enumerate(zip(before, after), 1) if pair[0] != pair[1]],
                         [line])

    def write_file(self, new):
        path = self.place / new.name.replace("~", str(self.home))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(new.text, encoding="utf-8")

    # Keys.

    def find_window(self):
        """The one window that is open gets the keys."""
        try:
            self.window = wait_for("a window", lambda: self.windows("^(crossing.log|hello)"))[0]
        except AssertionError as error:
            raise AssertionError(f"{error}; {self.output.read_text(encoding='utf-8')}") from None
        self.activate()
        if self.windows("^crossing.log"):
            self.until("the focus in the text", lambda shown: shown["focus"] == "text")

    def act(self, kind, what):
        if kind == "type":
            tool("xdotool", "type", "--clearmodifiers", what)
            return
        open_menu = self.shown().get("popup")
        self.press(what)
        if re.fullmatch("alt\\+[a-z]", what):
            self.until("a menu", lambda shown: shown["popup"])
        elif open_menu and re.fullmatch("[a-z]", what):
            # A menu below it, or an end of both.
            self.until("the menu to answer", lambda shown: shown.get("popup") != open_menu)

    def do(self, row):
        if not row.actions:
            self.find_window()
        for action in row.actions:
            self.act(*action)
        for sight in row.sights:
            self.look_for(sight, row.line)

    # Sights.

    def look_for(self, sight, line):
        for pattern, look in SIGHTS.items():
            found = re.fullmatch(pattern, sight)
            if found:
                look(self, *found.groups())
                return
        raise page.PageError(f"line {line}: nobody can look for {sight!r}")

    def see(self, sight, condition):
        self.until(sight, condition)

    def see_row(self, line, what, condition):
        self.until(f"line {line} {what}", lambda shown: condition(
            next(row for row in shown["rows"] if row["line"] == int(line))))

    def see_lines(self, first, last, there):
        wanted = set(range(int(first), int(last) + 1))
        def met(shown):
            seen = {row["line"] for row in shown["rows"]}
            return int(first) - 1 in seen and (wanted <= seen if there else not wanted & seen)
        self.until(f"lines {first} to {last} {'there' if there else 'folded away'}", met)

    def see_red(self, line):
        def is_red():
            shown, row = self.shown(), self.row_of(int(line))
            colours = Picture("row.png", self.window).colours(
                row["left"], shown["above"] + row["top"], 300, shown["rowHeight"])
            return any(red > 150 and green < 60 and blue < 90 for red, green, blue in colours)
        wait_for(f"line {line} in red", is_red)

    def see_closed(self):
        wait_for("the window to close", lambda: self.checkout.closed.exists())
        self.assertEqual(self.checkout.closed.read_text(encoding="utf-8"), "0\n")

    def see_window(self, title, there):
        wait_for(f"the window {title}", lambda: bool(self.windows(f"^{title}$")) == there)


SIGHTS = {
    r"the caret is in line (\d+)":
        lambda user, line: user.see("the caret", lambda shown: shown["row"] == int(line)),
    "the text has the keys":
        lambda user: user.see("the text", lambda shown: shown["focus"] == "text"),
    "the status bar says `(.+)`":
        lambda user, words: user.see(words, lambda shown: words in shown["status"]),
    r"a small box stands beside line (\d+)":
        lambda user, line: user.see_row(line, "with a box", lambda row: "glyph" in row),
    r"lines (\d+) to (\d+) are folded away":
        lambda user, first, last: user.see_lines(first, last, False),
    r"lines (\d+) to (\d+) are there":
        lambda user, first, last: user.see_lines(first, last, True),
    r"line (\d+) is red": Newcomer.see_red,
    r"an editor is open over line (\d+)":
        lambda user, line: user.see("the editor", lambda shown: "editor" in shown and
                                    shown["focus"] == "editor" and shown["row"] == int(line)),
    r"line (\d+) has a mark":
        lambda user, line: user.see_row(line, "with a mark", lambda row: row["corrected"]),
    r"line (\d+) has no mark":
        lambda user, line: user.see_row(line, "without a mark", lambda row: not row["corrected"]),
    r"line (\d+) ends with `(.+)`":
        lambda user, line, end: user.see_row(line, end, lambda row: row["text"].endswith(end)),
    "the menus begin with `(.+)`":
        lambda user, title: user.see(title, lambda shown: next(
            part["text"] for part in shown["parts"] if part["name"] == "title") == title),
    "the window closes": Newcomer.see_closed,
    "the window `(.+)` is open": lambda user, title: user.see_window(title, True),
    "the window `(.+)` is gone": lambda user, title: user.see_window(title, False),
}


class ProgramsInTheBackground(Newcomer):
    def test_what_they_say_late_is_not_in_the_next_commands_output(self):
        waiting = "until [ -e {} ]; do sleep 0.01; done"
        talker = f"{{ {waiting.format('go')}; echo late; touch said; }} &"
        meanwhile = f"printf x; touch go; {waiting.format('said')}"
        self.run_command(page.Command(1, talker, ""))
        self.run_command(page.Command(2, meanwhile, 'shows "x"'))
        self.assertEqual(self.output.read_text(encoding="utf-8"), "x")


class FirstMinutes(Newcomer):
    def take(self, step):
        for part in step.parts:
            try:
                if isinstance(part, page.Command):
                    self.run_command(part)
                elif isinstance(part, page.NewFile):
                    self.write_file(part)
                else:
                    self.do(part)
            except Exception as error:
                raise AssertionError(f"{PAGE.name}, line {part.line}, step {step.number}: {error}"
                                     ) from error

    def test_the_page_from_its_first_step_to_its_last(self):
        steps = page.steps_of(PAGE.read_text(encoding="utf-8"))
        self.assertLessEqual(set(NEEDS), {step.title for step in steps})
        begun, times = time.monotonic(), []
        for step in steps:
            needed = NEEDS.get(step.title)
            if needed and os.environ.get(needed) != "1":
                times.append(f"     -    {step.number}. {step.title}: not in this build")
                continue
            started = time.monotonic()
            self.take(step)
            times.append(f"{time.monotonic() - started:6.1f} s  {step.number}. {step.title}")
        print(*times, f"{time.monotonic() - begun:6.1f} s  in all", sep="\n", flush=True)


class APageThatIsWrong(unittest.TestCase):
    """A page that changed must not pass by itself."""

    def steps(self, *lines):
        return page.steps_of("\n".join(("# Page", "## 1. Title", *lines)))

    def assert_refused(self, words, *lines):
        with self.assertRaisesRegex(page.PageError, words):
            self.steps(*lines)

    def test_what_is_read(self):
        step, = self.steps("```sh", "ls  # shows \"x\"", "```", "`a.txt`:", "", "```", "one", "```",
                           "| do | see |", "|---|---|",
                           "| <kbd>Ctrl</kbd>+<kbd>F</kbd>, type `x y`, <kbd>Esc</kbd> | this; that |")
        self.assertEqual(step.parts, [
            page.Command(4, "ls", 'shows "x"'), page.NewFile(9, "a.txt", "one\n"),
            page.Row(13, [("press", "ctrl+f"), ("type", "x y"), ("press", "Escape")],
                     ["this", "that"])])

    def test_keys_that_no_keyboard_has(self):
        self.assert_refused("no key is called Strg", "| <kbd>Strg</kbd> | this |")

    def test_rows_that_do_nothing_or_show_nothing(self):
        self.assert_refused("nothing to do", "| look around | this |")
        self.assert_refused("what to see", "| <kbd>F2</kbd> | |")

    def test_files_without_a_name_and_steps_without_a_part_or_a_number(self):
        self.assert_refused("which file", "```cpp", "int i;", "```")
        self.assert_refused("nothing to do", "Some words.")
        with self.assertRaisesRegex(page.PageError, "numbered"):
            page.steps_of("## 2. Title\n| wait for the window | this |")

    def test_sights_and_remarks_that_nobody_can_check(self):
        with self.assertRaisesRegex(page.PageError, "line 7"):
            Newcomer.look_for(None, "the caret blinks", 7)
        with self.assertRaisesRegex(page.PageError, "line 7"):
            Newcomer().judge(page.Command(7, "true", "all is well"), 0, "")

    def test_a_sum_that_was_never_looked_at_before(self):
        newcomer = Newcomer()
        newcomer.before = {}
        with self.assertRaises(AssertionError):
            newcomer.judge(page.Command(7, "sha256sum x", "the same sum as before"), 0, "1 x")


if __name__ == "__main__":
    desktop.VIEWER, BUILD = sys.argv.pop(1), Path(sys.argv.pop(1)).resolve()
    unittest.main()
