"""Reads docs/first-ten-minutes.md, or a page written like it, as a list of steps to be done.

A step begins with a heading "## N. Title". In it, in their order: shell blocks, whose lines are commands and may
end in a remark on what must come of it; blocks under a line that is nothing but a file's name and a colon;
tables of what to do and what to see."""

import re
from dataclasses import dataclass, field

HEADING = re.compile(r"## (\d+)\. (.+)")
FILE_NAME = re.compile(r"`([^`]+)`:")
COMMAND = re.compile(r"(?P<command>.*?\S)(?:\s+# (?P<remark>.+))?")
# A key, or keys held together; or a text to type.
ACTION = re.compile(r"(<kbd>[^<]+</kbd>(?:\+<kbd>[^<]+</kbd>)*)|`([^`]+)`")
NOTHING_TO_DO = "wait for the window"

# The names on a keyboard, and what xdotool calls them.
KEYS = {"Ctrl": "ctrl", "Shift": "shift", "Alt": "alt", "Enter": "Return", "Esc": "Escape",
        "Backspace": "BackSpace", "Down": "Down", "Up": "Up", "End": "End", "Home": "Home"}


class PageError(Exception):
    """The page says something that cannot be done or looked for."""


@dataclass
class Command:
    """A line for the shell, and what must come of it; no remark for success alone."""
    line: int
    text: str
    remark: str = ""


@dataclass
class NewFile:
    """A file that the reader writes."""
    line: int
    name: str
    text: str


@dataclass
class Row:
    """Keys as xdotool calls them and texts, in their order, and what then must be seen."""
    line: int
    actions: list
    sights: list


@dataclass
class Step:
    number: int
    title: str
    parts: list = field(default_factory=list)


def key_of(name, line):
    if name in KEYS:
        return KEYS[name]
    if re.fullmatch(r"[A-Z]|F\d+", name):
        return name if len(name) > 1 else name.lower()
    raise PageError(f"line {line}: no key is called {name}")


def actions_of(cell, line):
    found = []
    for keys, text in ACTION.findall(cell):
        if keys:
            names = re.findall(r"<kbd>([^<]+)</kbd>", keys)
            found.append(("press", "+".join(key_of(name, line) for name in names)))
        else:
            found.append(("type", text))
    if not found and cell != NOTHING_TO_DO:
        raise PageError(f"line {line}: nothing to do in {cell!r}")
    return found


def row_of(text, line):
    cells = [cell.strip() for cell in text.strip().strip("|").split("|")]
    if len(cells) != 2 or not all(cells):
        raise PageError(f"line {line}: a row says what to do and what to see")
    return Row(line, actions_of(cells[0], line), cells[1].split("; "))


def block_parts(language, above, lines, line):
    """What stands between two fences; `line` is the number of the first of its lines."""
    if language == "sh":
        for number, text in enumerate(lines, line):
            if text:
                found = COMMAND.fullmatch(text)
                yield Command(number, found["command"], found["remark"] or "")
        return
    name = FILE_NAME.fullmatch(above)
    if not name:
        raise PageError(f"line {line}: which file is this?")
    yield NewFile(line, name[1], "\n".join(lines) + "\n")


def parts_of(lines):
    """(line number, heading or part) for everything on the page that is one of the two."""
    above, at = "", 0
    while at < len(lines):
        text = lines[at]
        if text.startswith("```"):
            end = lines.index("```", at + 1)
            for part in block_parts(text[3:], above, lines[at + 1:end], at + 2):
                yield part
            at = end
        elif HEADING.fullmatch(text):
            yield Step(int(HEADING.fullmatch(text)[1]), HEADING.fullmatch(text)[2])
        elif text.startswith("|") and text not in ("| do | see |", "|---|---|"):
            yield row_of(text, at + 1)
        above = text or above
        at += 1


def steps_of(page):
    steps = []
    for part in parts_of(page.splitlines()):
        if isinstance(part, Step):
            steps.append(part)
        elif not steps:
            raise PageError(f"line {part.line}: before the first step")
        else:
            steps[-1].parts.append(part)
    if [step.number for step in steps] != list(range(1, len(steps) + 1)) or not steps:
        raise PageError("the steps are not numbered from 1 up")
    for step in steps:
        if not step.parts:
            raise PageError(f"step {step.number} has nothing to do")
    return steps
