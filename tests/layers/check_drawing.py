#!/usr/bin/env python3
"""Compares the drawing of the layers in docs/architecture.md with what the CMakeLists.txt files link.
Usage: check_drawing.py SRC ARCHITECTURE; exit code 1 with findings.

The drawing is the first indented block below "## The layers". A line that begins with folders ("view/  search/")
ends, perhaps on the next line, in what they use: "uses qt, adapters", "uses nothing", or "uses all below"."""

import re
import sys
from pathlib import Path

from check_layers import reachable, read_uses

FOLDERS = re.compile(r"    ((?:\w+/\s+)+)\S")
USES = re.compile(r"\buses? ([\w, ]+)$")


def drawing_of(page):
    after = page.partition("\n## The layers\n")[2]
    block = re.search(r"(?:^    .*\n)+", after, re.MULTILINE)
    return block[0].splitlines() if block else []


def rows_of(lines):
    """(folders, words behind "uses") from the top down."""
    rows = []
    for line in lines:
        folders = FOLDERS.match(line + "x" if line.endswith("/") else line)
        uses = USES.search(line)
        if folders:
            rows.append([folders[1].replace("/", "").split(), uses[1] if uses else ""])
        elif rows and rows[-1][1].endswith(","):
            # Behind a description of the folders that goes on too.
            rows[-1][1] += " " + re.split(r"\s{3,}", line.rstrip())[-1]
    return rows


def drawn_uses(rows):
    """{folder: what it uses by the drawing}, and findings."""
    uses, findings = {}, []
    for at, (folders, words) in enumerate(rows):
        below = [name for later, _ in rows[at + 1:] for name in later]
        named = set(re.findall(r"\w+", words))
        if words == "all below":
            named = set(below)
        elif words == "nothing":
            named = set()
        elif not named:
            findings.append(f"the drawing does not say what {', '.join(folders)} uses")
        for name in sorted(named - set(below)):
            findings.append(f"in the drawing {name} does not stand below {', '.join(folders)}")
        uses.update({folder: named for folder in folders})
    return uses, findings


def check(src, page):
    linked = read_uses(Path(src))
    rows = rows_of(drawing_of(page))
    drawn, findings = drawn_uses(rows)
    there = {path.name for path in Path(src).iterdir() if path.is_dir()}
    findings += [f"{name}/ is not in the drawing" for name in sorted(there - set(drawn))]
    findings += [f"{name}/ is drawn and not there" for name in sorted(set(drawn) - there)]
    for folder in sorted(set(linked) & set(drawn)):
        for name in sorted(reachable(linked, folder) - reachable(drawn, folder)):
            findings.append(f"{folder}/ uses {name}, which the drawing does not show")
    for folders, _ in rows:
        # What stands side by side has one place for all: somebody of them uses it.
        by_link = {name for folder in folders for name in reachable(linked, folder)}
        for name in sorted(reachable(drawn, folders[0]) - by_link):
            if set(folders) <= set(linked):
                findings.append(f"the drawing lets {folders[0]}/ use {name}, which it does not link")
    return findings


def main(arguments):
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    findings = check(arguments[1], Path(arguments[2]).read_text(encoding="utf-8"))
    for finding in findings:
        print(finding)
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
