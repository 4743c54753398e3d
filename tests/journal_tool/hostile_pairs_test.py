#!/usr/bin/env python3
"""quorvale-journal on hostile pairs of a file and a journal: it never crashes nor hangs, never
changes a byte that it was not asked to, and applies as the control itself commits.
Usage: hostile_pairs_test.py PROGRAM HELPER [FIRST [COUNT]]"""

import glob
import json
import os
import re
import resource
import subprocess
import sys
import tempfile
from pathlib import Path

from hostile_pairs import Pair
from tool import (DONE, FAILED, IN_USE, INTERRUPTED, MISFIT, PENDING, Tool, content_of,
                  give_up_privileges, print_of_folder)

# Whatever could do something to a terminal.
UNSAFE = re.compile("[\x00-\x08\x0b-\x1f\x7f-\x9f\u200e\u200f\u2028-\u202e\u2066-\u2069]")
# Processor time, not the clock's: other programs run besides. What waits is killed (tool.LONGEST_WAIT).
MOST_SECONDS = float(os.environ.get("QUORVALE_MOST_SECONDS", "1"))


def patched(old, diff):
    """The bytes that a unified diff makes of others; every line of it must hold."""
    lines = re.findall(rb"[^\n]*\n|[^\n]+", old)
    parts = diff.split(b"\n")[2:-1]
    made, at = [], 0
    for number, part in enumerate(parts):
        head = re.fullmatch(rb"@@ -(\d+),(\d+) \+(\d+),(\d+) @@", part)
        if head:
            start, count = int(head[1]), int(head[2])
            upto = start - 1 if count else start
            made += lines[at:upto]
            at = upto
            assert len(made) + 1 == int(head[3]) + (0 if int(head[4]) else 1), part
            continue
        if part.startswith(b"\\"):
            continue
        ended = number + 1 == len(parts) or not parts[number + 1].startswith(b"\\")
        line = part[1:] + (b"\n" if ended else b"")
        if part[:1] in b"- ":
            assert lines[at] == line, (lines[at], line)
            at += 1
        if part[:1] in b"+ ":
            made.append(line)
    return b"".join(made + lines[at:])


# The corrections are in the file, or half in it, or somebody else has taken the matter up.
BEYOND_DROPPING = ("half-written", "finished", "edited-since")


def without_helpers(seen):
    """Without the helping files of commits; what is kept for the user counts."""
    return {path: what for path, what in seen.items()
            if b"/.qbx-displaced-" in path or not re.search(rb"/\.qbx-[^/]*$|\.redo$", path)}


class Checks:
    def __init__(self, program, helper, place):
        self.tool = Tool(program)
        self.helper = os.path.abspath(helper)
        self.place = Path(place).absolute()
        self.state = self.place / "state"
        os.environ["XDG_STATE_HOME"] = str(self.state)
        for name in ("state", "tool", "control", "drop"):
            (self.place / name).mkdir()
        self.codes, self.interruptions = {}, {}
        self.applied = self.compared = 0
        self.beyond_dropping = 0
        self.most_time = 0.0
        self.by_control = {"keep": [], "crlf": []}

    # Preparing.

    def help(self, *arguments):
        return subprocess.run([self.helper, *arguments], check=False, stdout=subprocess.DEVNULL,
                              timeout=60).returncode

    def prepare(self, pair):
        pair.put()
        if pair.kind.startswith("interrupted"):
            self.help("interrupt", str(pair.call), pair.path)
        if pair.kind == "interrupted and edited":
            with open(pair.path, "ab") as file:
                file.write(b"edited since\n")
        if pair.kind == "torn record":
            # The next call but one after the record has its name.
            for call in range(30, 60):
                if glob.glob(os.path.join(glob.escape(pair.folder), b".qbx-*.commit")):
                    break
                self.help("interrupt", str(call), pair.path)
            for record in glob.glob(os.path.join(glob.escape(pair.folder), b".qbx-*.commit")):
                os.truncate(record, os.path.getsize(record) // 2)
        if pair.kind == "folder read-only":
            os.chmod(pair.folder, 0o555)

    # Looking.

    def run(self, pair, *arguments):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        ran = self.tool.run(*arguments, b"--", pair.name, cwd=pair.folder)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        self.most_time = max(self.most_time, seconds)
        assert 0 <= ran.code <= INTERRUPTED and ran.code != 2, (arguments, ran.code, ran.errors)
        assert seconds < MOST_SECONDS, (arguments, seconds)
        if arguments[-1] != "-n":
            assert not UNSAFE.search(ran.output.decode()), (arguments, ran.output)
        assert not UNSAFE.search(ran.errors.decode()), (arguments, ran.errors)
        return ran

    def seen(self, pair):
        return print_of_folder(pair.folder, self.state)

    def expect_untouched(self, pair, before, what):
        after = self.seen(pair)
        if what != "looking" and pair.kind.startswith(("interrupted", "torn")):
            # What an interrupted commit has left goes with any load.
            before, after = without_helpers(before), without_helpers(after)
        changed = [(path, before.get(path), after.get(path)) for path in before.keys() | after.keys()
                   if before.get(path) != after.get(path)]
        assert not changed, (what, changed)

    def look(self, pair):
        """What is told of the pair; every way of looking says the same and touches nothing."""
        before = self.seen(pair)
        checked = self.run(pair, "check")
        listed = self.run(pair, "list")
        told = self.run(pair, "list", "--json")
        report = json.loads(told.output)
        assert report["file"].encode("utf-8", "surrogateescape") == pair.name
        found = report["interrupted"]
        self.interruptions[found] = self.interruptions.get(found, 0) + 1
        codes = {checked.code, listed.code, told.code, report["exit"]}
        assert len(codes) == 1, codes
        tried = self.run(pair, "apply", "--line-format", pair.line_format, "-n")
        assert tried.code == checked.code, (tried.code, checked.code, tried.errors)
        self.expect_untouched(pair, before, "looking")
        return checked.code, report, tried.output

    def interruption(self, pair):
        return json.loads(self.run(pair, "list", "--json").output)["interrupted"]

    # Doing.

    def apply(self, pair, code, report, diff):
        before = self.seen(pair)
        old = content_of(pair.path) if os.path.isfile(pair.path) else b""
        told = self.run(pair, "apply", "--line-format=" + pair.line_format)
        if pair.kind == "locked":
            assert told.code == IN_USE, told.code
        elif code in (MISFIT, FAILED):
            assert told.code == code, (told.code, told.errors)
        if told.code == DONE and code == PENDING:
            expected = patched(old, diff)
            assert content_of(pair.path) == expected, "not what the diff has said"
            assert not os.path.lexists(pair.journal)
            self.applied += 1
            pair.applied = True
        elif code != INTERRUPTED:
            self.expect_untouched(pair, before, ("not applying", told.code, told.errors))
        if told.code == MISFIT and report["journal"] == "good":
            self.force(pair)
        # The control also writes a file whose journal holds no more than a comment.
        told_of = report["corrections"] or code == INTERRUPTED
        # It writes the file before it finds out that the journal stays.
        careful = pair.kind in ("locked", "journal read-only", "folder read-only")
        return told_of and not careful and report["journal"] == "good"

    def force(self, pair):
        before = self.seen(pair)
        told = self.run(pair, "apply", "--force", "--line-format=" + pair.line_format)
        if told.code != DONE:
            # Only an attempt may leave something: the copy of the journal.
            after = {path: seen for path, seen in self.seen(pair).items()
                     if b"/.qbx-displaced-" not in path}
            assert after == before, "changed without having applied"
            return
        self.applied += 1
        pair.applied = True
        if pair.kind != "interrupted":
            kept = glob.glob(os.path.join(glob.escape(pair.folder), b".qbx-displaced-*"))
            assert [content_of(path) for path in kept] == [pair.journal_bytes], kept

    def drop(self, pair):
        before = self.seen(pair)
        deletes = pair.chance.random() < 0.3
        had_journal = os.path.isfile(pair.journal) and not os.path.islink(pair.journal)
        interrupted = self.interruption(pair)
        told = self.run(pair, "drop", *(["--delete"] if deletes else []))
        after = self.seen(pair)
        if interrupted in BEYOND_DROPPING:
            assert told.code == INTERRUPTED, (interrupted, told.code)
            assert after == before, (interrupted, "somebody else's commit was ended")
            self.beyond_dropping += 1
            return
        if pair.kind.startswith("interrupted"):
            # What an interrupted commit has left goes with any load.
            before, after = without_helpers(before), without_helpers(after)
        kept = [path for path in after if b"/.qbx-displaced-" in path]
        if told.code != DONE or not had_journal:
            assert after == before or pair.kind == "torn record", "changed without having dropped"
            return
        assert pair.journal not in after and len(kept) == (0 if deletes else 1)
        if kept:
            assert after[kept[0]] == before[pair.journal], "the journal is not what was kept"
        rest = {path: seen for path, seen in after.items() if path not in kept}
        del before[pair.journal]
        assert pair.kind == "torn record" or rest == before, (
            interrupted, "dropping has changed the rest")

    # One pair.

    def check(self, number):
        pair = Pair(number, self.place / "tool")
        self.prepare(pair)
        with Locked(self.helper, pair):
            code, report, diff = self.look(pair)
            self.codes[code] = self.codes.get(code, 0) + 1
            comparable = self.apply(pair, code, report, diff)
        dropped = Pair(number, self.place / "drop")
        self.prepare(dropped)
        self.drop(dropped)
        if comparable:
            twin = Pair(number, self.place / "control")
            self.prepare(twin)
            # What else lies in the folder of records moves the call at which it is interrupted.
            if self.interruption(twin) == report["interrupted"]:
                self.by_control[pair.line_format].append((pair, twin))

    def compare_with_control(self):
        for line_format, pairs in self.by_control.items():
            if not pairs:
                continue
            assert self.help("commit", line_format, *(twin.path for _, twin in pairs)) == 0
            wrong = [f"{pair.number} ({pair.kind})" for pair, twin in pairs
                     if not self.same(pair, twin)]
            assert not wrong, f"the control commits otherwise: {wrong}"

    def same(self, pair, twin):
        def state_of(one):
            document = content_of(one.path) if os.path.isfile(one.path) else None
            # The control takes an empty journal away when it closes.
            return document, pair.applied and os.path.lexists(one.journal)
        self.compared += 1
        return state_of(pair) == state_of(twin)


class Locked:
    """Another program works on the file, if the pair says so."""

    def __init__(self, helper, pair):
        self.command = [helper, "lock", pair.path] if pair.kind == "locked" else None

    def __enter__(self):
        if self.command:
            self.process = subprocess.Popen(self.command, stdin=subprocess.PIPE,
                                            stdout=subprocess.PIPE)
            assert self.process.stdout.readline() == b"ours\n"

    def __exit__(self, *_):
        if self.command:
            self.process.communicate()


def main(arguments):
    first = int(arguments[3]) if len(arguments) > 3 else 0
    count = int(arguments[4]) if len(arguments) > 4 else 400
    give_up_privileges()
    with tempfile.TemporaryDirectory(dir=folder_in_memory()) as place:
        run_all(Checks(arguments[1], arguments[2], place), first, count)


def folder_in_memory():
    """None where there is no such place, or a small one: thousands of files come and go, some large."""
    memory, needed = "/dev/shm", 512 << 20
    if not os.access(memory, os.W_OK):
        return None
    room = os.statvfs(memory)
    return memory if room.f_bavail * room.f_frsize >= needed else None


def run_all(checks, first, count):
    for number in range(first, first + count):
        try:
            checks.check(number)
        except Exception:
            print(f"pair {number} ({Pair(number, '.').kind}) failed", file=sys.stderr)
            raise
    checks.compare_with_control()
    assert checks.beyond_dropping or count < 400
    assert checks.codes.keys() >= {DONE, PENDING, MISFIT, FAILED, INTERRUPTED}, checks.codes
    print(f"{count} pairs, {checks.tool.runs} runs, {checks.applied} applied, "
          f"{checks.compared} compared with the control, by exit code {sorted(checks.codes.items())}, "
          f"interrupted {checks.interruptions}, {checks.beyond_dropping} beyond dropping, "
          f"longest {checks.most_time:.2f} s of processor time, {checks.tool.slowest:.2f} s in all")


if __name__ == "__main__":
    main(sys.argv)
