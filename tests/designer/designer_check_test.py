#!/usr/bin/env python3
"""quorvale-viewer --designer-check: says that the plugin loads, or why it would not.
Usage: designer_check_test.py VIEWER PLUGIN"""

import os
import subprocess
import sys
import unittest
from pathlib import Path

VIEWER, PLUGIN = sys.argv[1:3]


def check(*arguments, **environment):
    done = subprocess.run([VIEWER, "--designer-check", *arguments], text=True, capture_output=True,
                          env={**os.environ, "ASAN_OPTIONS": "detect_leaks=0", **environment})
    return done.returncode, done.stdout, done.stderr


class DesignerCheck(unittest.TestCase):
    def test_the_plugin_loads_by_its_name(self):
        code, out, _ = check(PLUGIN)
        self.assertEqual(code, 0)
        self.assertIn("loads, and offers quorvale::QuorvaleBoxWidget", out)

    def test_the_plugin_is_found_where_qt_looks(self):
        code, out, _ = check(QT_PLUGIN_PATH=str(Path(PLUGIN).parent.parent))
        self.assertEqual((code, out.split(":")[0]), (0, PLUGIN))

    def test_places_that_do_not_have_it_are_named(self):
        code, out, err = check(QT_PLUGIN_PATH="/nowhere")
        if code == 0:  # the package is installed on this machine
            self.assertTrue(Path(out.split(":")[0]).is_file())
            return
        self.assertEqual((code, out), (1, ""))
        self.assertIn("not found in ", err)
        self.assertIn("QT_PLUGIN_PATH", err)

    def test_a_missing_file_is_said(self):
        code, _, err = check("/no/such/plugin.so")
        self.assertEqual(code, 1)
        self.assertIn("there is no such file", err)

    def test_what_is_no_plugin_is_said(self):
        Path("plain.so").write_text("no plugin at all\n")
        code, _, err = check("plain.so")
        self.assertEqual(code, 1)
        self.assertIn("no plugin for this Qt", err)

    def test_a_plugin_of_another_version_is_said(self):
        data = Path(PLUGIN).read_bytes()
        # In the compact notation of the plugin's data a text stands behind its length.
        self.assertIn(b"Version\x65" b"0.1.0", data)
        Path("other.so").write_bytes(data.replace(b"Version\x65" b"0.1.0", b"Version\x65" b"0.9.0"))
        code, _, err = check("other.so")
        self.assertEqual(code, 1)
        self.assertIn("is of version 0.9.0, not 0.1.0", err)

    def test_a_plugin_whose_library_is_missing_is_said(self):
        # The copy looks for the widget's library in a folder that is not there.
        data = Path(PLUGIN).read_bytes()
        needed = b"libquorvalebox-widget.so"
        self.assertIn(needed, data)
        Path("orphan.so").write_bytes(data.replace(needed, b"libquorvalebox-midget.so"))
        code, _, err = check("orphan.so")
        self.assertEqual(code, 1)
        self.assertIn("libquorvalebox-midget.so", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
