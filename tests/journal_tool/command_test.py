#!/usr/bin/env python3
"""quorvale-journal as its users meet it. Usage: command_test.py PROGRAM HELPER"""

import glob
import json
import os
import pty
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from tool import DONE, FAILED, IN_USE, MISFIT, PENDING, USAGE, Tool, give_up_privileges

TOOL = HELPER = None
JOURNAL = '<corrections><update start="2" loc="1">TWO\n</update></corrections>'


class CommandCase(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.place = Path(place.name)
        self.file = self.place / "a.log"
        self.file.write_bytes(b"one\ntwo\r\nthree")
        self.journal = self.place / "a.log!.xml"
        self.journal.write_text(JOURNAL, encoding="utf-8")

    def run_tool(self, *arguments, **more):
        return TOOL.run(*arguments, cwd=self.place, **more)

    def expect(self, code, *arguments, **more):
        ran = self.run_tool(*arguments, **more)
        self.assertEqual(ran.code, code, (ran.output, ran.errors))
        return ran

    def kept(self):
        return [Path(name).read_text(encoding="utf-8")
                for name in glob.glob(str(self.place / ".qbx-displaced-*"))]


class Usage(CommandCase):
    def test_help_and_version_go_to_standard_output(self):
        for option in ("--help", "-h", "--version"):
            ran = self.expect(DONE, option)
            self.assertTrue(ran.output.startswith((b"Usage: quorvale-journal", b"quorvale-journal ")))
            self.assertEqual(ran.errors, b"")

    def test_a_line_that_makes_no_sense_is_told_and_does_nothing(self):
        for arguments in ((), ("list",), ("show", "a.log"), ("list", "--dry-run", "a.log"),
                          ("apply", "--json", "a.log"), ("list", "--encoding"), ("apply", "-x"),
                          ("apply", "--line-format=dos", "a.log"), ("drop", "-f", "a.log"),
                          ("list", ""), ("check", "--encoding=ebcdic", "a.log")):
            ran = self.expect(USAGE, *arguments)
            self.assertEqual(ran.output, b"")
            self.assertIn(b"--help", ran.errors)
        self.assertTrue(self.journal.exists())

    def test_a_journal_in_place_of_its_file_is_told(self):
        # Symptom: the journal had no corrections of its own, and that was all that was said.
        for command in ("list", "check", "apply", "drop"):
            ran = self.expect(USAGE, command, "a.log!.xml")
            self.assertEqual(ran.output, b"")
            self.assertIn(b"is the journal of 'a.log'", ran.errors)
        self.assertEqual(self.journal.read_text(encoding="utf-8"), JOURNAL)

    def test_a_file_that_is_called_like_a_journal_is_a_file(self):
        (self.place / "a.log!.xml!.xml").write_text(JOURNAL.replace("2", "1"), encoding="utf-8")
        self.expect(PENDING, "list", "a.log!.xml")
        self.file.unlink()
        (self.place / "a.log!.xml!.xml").unlink()
        self.expect(DONE, "list", "a.log!.xml")

    def test_a_name_that_looks_like_an_option_stands_behind_two_dashes(self):
        self.file.rename(self.place / "-n")
        self.journal.rename(self.place / "-n!.xml")
        self.expect(PENDING, "check", "--", "-n")
        self.expect(USAGE, "check", "-x")

    def test_of_several_files_the_worst_counts(self):
        (self.place / "b.log").write_bytes(b"")
        self.expect(DONE, "check", "b.log")
        ran = self.expect(FAILED, "list", "b.log", "a.log", "none.log")
        self.assertIn(b"none.log: No such file", ran.errors)
        self.assertIn(b"none.log: 0 corrections pending, but the file cannot be read", ran.output)
        self.assertEqual(ran.output.count(b"\n"), 6)


class Output(CommandCase):
    def test_output_that_cannot_be_written_is_an_error(self):
        with open("/dev/full", "wb") as full:
            for arguments in (("--help",), ("list", "a.log"), ("apply", "-n", "a.log")):
                ran = self.expect(FAILED, *arguments, stdout=full)
                self.assertIn(b"No space left", ran.errors)

    def test_a_file_never_takes_the_place_of_a_closed_stream(self):
        before = self.file.read_bytes()
        ran = subprocess.run(["sh", "-c", '"$0" list a.log <&- >&-', TOOL.program], check=False,
                             cwd=self.place, stderr=subprocess.PIPE)
        self.assertEqual(ran.returncode, FAILED, ran.stderr)
        self.assertEqual(self.file.read_bytes(), before)
        ran = subprocess.run(["sh", "-c", '"$0" apply a.log <&- >&- 2>&-', TOOL.program],
                             check=False, cwd=self.place)
        self.assertEqual(ran.returncode, DONE)
        self.assertEqual(self.file.read_bytes(), b"one\nTWO\r\nthree")

    def test_a_terminal_gets_no_control_characters(self):
        self.file.write_bytes(b"one\n\x1b[2Jtwo\n")
        main, other = pty.openpty()
        with os.fdopen(other, "wb") as terminal:
            self.expect(PENDING, "apply", "-n", "a.log", stdout=terminal)
            shown = os.read(main, 65536)
        os.close(main)
        self.assertIn(b"-\\u001B[2Jtwo", shown)
        self.assertIn(b"-\x1b[2Jtwo", self.expect(PENDING, "apply", "-n", "a.log").output)

    def test_json_gives_every_text_back(self):
        self.file.write_bytes(b"one\nt\xe9\0\"w\\o\n")
        ran = self.expect(PENDING, "list", "--json", "--encoding=single-byte", "a.log")
        report = json.loads(ran.output)
        self.assertEqual(report["corrections"], [{
            "start": 2, "count": 1, "problem": None, "before": ["t\xe9\0\"w\\o"],
            "after": ["TWO"]}])


class Applying(CommandCase):
    def test_only_the_corrected_line_changes(self):
        ran = self.expect(DONE, "apply", "a.log")
        self.assertEqual((ran.output, ran.errors), (b"", b""))
        self.assertEqual(self.file.read_bytes(), b"one\nTWO\r\nthree")
        self.assertEqual(sorted(os.listdir(self.place)), ["a.log"])
        self.expect(DONE, "apply", "a.log")

    def test_the_other_line_format_ends_every_line_alike(self):
        self.expect(DONE, "apply", "--line-format", "crlf", "a.log")
        self.assertEqual(self.file.read_bytes(), b"one\r\nTWO\r\nthree\r\n")

    def test_what_does_not_fit_is_applied_by_force_only_and_kept(self):
        journal = JOURNAL.replace("</corrections>",
                                  '<update start="99" loc="1">far\n</update></corrections>')
        self.journal.write_text(journal, encoding="utf-8")
        ran = self.expect(MISFIT, "apply", "a.log")
        self.assertIn(b"line 99: the file ends before", ran.errors)
        self.assertEqual(self.file.read_bytes(), b"one\ntwo\r\nthree")
        self.expect(DONE, "apply", "--force", "a.log")
        self.assertEqual(self.file.read_bytes(), b"one\nTWO\r\nthree")
        self.assertEqual(self.kept(), [journal])

    def test_force_that_fails_leaves_one_copy_however_often(self):
        journal = JOURNAL.replace("</corrections>",
                                  '<update start="99" loc="1">far\n</update></corrections>')
        self.journal.write_text(journal, encoding="utf-8")
        self.file.chmod(0o400)
        for _ in range(3):
            self.expect(FAILED, "apply", "--force", "a.log", preexec_fn=give_up_privileges)
        self.assertEqual(self.kept(), [journal])

    def test_utf_16_does_not_fit_and_stays_even_with_force(self):
        for mark in (b"\xff\xfe", b"\xfe\xff"):
            content = mark + "one\ntwo\n".encode("utf-16-le")
            self.file.write_bytes(content)
            for command in (("check",), ("apply",), ("apply", "--force")):
                ran = self.expect(MISFIT, *command, "a.log")
                self.assertIn(b"UTF-16", ran.output + ran.errors)
            self.assertEqual(self.file.read_bytes(), content)

    def test_a_byte_order_mark_stays_when_its_line_is_corrected(self):
        self.file.write_bytes(b"\xef\xbb\xbfone\ntwo\n")
        self.journal.write_text(JOURNAL.replace('start="2"', 'start="1"'), encoding="utf-8")
        self.expect(DONE, "apply", "a.log")
        self.assertEqual(self.file.read_bytes(), b"\xef\xbb\xbfTWO\ntwo\n")

    def test_a_text_in_pieces_does_not_fit(self):
        self.journal.write_text(JOURNAL.replace("TWO", "TWO<!-- x -->"), encoding="utf-8")
        ran = self.expect(MISFIT, "apply", "a.log")
        self.assertIn(b"more than one text", ran.errors)

    def test_a_list_for_a_missing_file_names_it(self):
        self.file.unlink()
        ran = self.expect(FAILED, "list", "a.log")
        self.assertTrue(ran.output.startswith(b"a.log: 1 correction pending"), ran.output)

    def test_a_character_that_the_encoding_lacks_does_not_fit(self):
        self.file.write_bytes(b"one\n\xe9\n")
        self.journal.write_text(JOURNAL.replace("TWO", "\u65e5"), encoding="utf-8")
        for command in (("check",), ("apply",), ("apply", "--force"), ("apply", "-n", "-f")):
            ran = self.expect(MISFIT, *command, "a.log")
            self.assertIn(b"U+65E5", ran.output + ran.errors)
        self.assertEqual(self.file.read_bytes(), b"one\n\xe9\n")
        self.assertEqual(len(self.kept()), 0)

    def test_a_file_that_another_program_works_on_is_left_alone(self):
        with subprocess.Popen([HELPER, "lock", str(self.place / "." / "a.log")],
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE) as holder:
            self.assertEqual(holder.stdout.readline(), b"ours\n")
            os.symlink("a.log", self.place / "link")
            for command in ("apply", "drop"):
                self.assertIn(b"Another program", self.expect(IN_USE, command, "a.log").errors)
            self.expect(IN_USE, "apply", "link")
            self.expect(PENDING, "check", "a.log")
            holder.kill()
            holder.wait()
        self.expect(DONE, "apply", "a.log")


class Dropping(CommandCase):
    def test_the_journal_is_moved_aside(self):
        ran = self.expect(DONE, "drop", "a.log")
        self.assertIn(b"kept as ", ran.errors)
        self.assertFalse(self.journal.exists())
        self.assertEqual(self.kept(), [JOURNAL])
        self.expect(DONE, "drop", "a.log")

    def test_it_is_deleted_on_demand(self):
        self.expect(DONE, "drop", "--delete", "a.log")
        self.assertEqual(os.listdir(self.place), ["a.log"])

    def test_the_journal_of_a_file_that_is_gone_can_be_listed_and_dropped(self):
        self.file.unlink()
        ran = self.expect(FAILED, "list", "a.log")
        self.assertIn(b"+ TWO", ran.output)
        self.expect(FAILED, "apply", "a.log")
        self.expect(DONE, "drop", "a.log")
        self.assertEqual(self.kept(), [JOURNAL])


if __name__ == "__main__":
    TOOL, HELPER = Tool(sys.argv[1]), sys.argv[2]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=1)
