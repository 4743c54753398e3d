#!/usr/bin/env python3
"""The scripts ./run and tools/install-packages, with stand-ins for everything they would start."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]


class ScriptTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.place = Path(place.name).resolve()
        self.top = self.place / "a checkout"
        (self.top / "tools").mkdir(parents=True)
        self.stand_ins = self.place / "bin"
        self.stand_ins.mkdir()

    def copy(self, name):
        shutil.copy2(TOP / name, self.top / name)

    def script(self, path, *lines):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join(("#!/bin/sh",) + lines) + "\n", encoding="utf-8")
        path.chmod(0o755)

    def run_script(self, name, *arguments, directory=None, **environment):
        return subprocess.run(
            [str(self.top / name), *arguments], cwd=directory or self.place, check=False,
            capture_output=True, text=True,
            env={"PATH": f"{self.stand_ins}:{os.environ['PATH']}", **environment})


class Run(ScriptTest):
    def setUp(self):
        super().setUp()
        self.copy("run")
        self.script(self.top / "tools/install-packages", 'echo "install $*"')
        self.script(self.top / "tools/build", 'echo "build $*"')
        self.script(self.top / "build/release/bin/quorvale-viewer",
                    'echo "platform:$QT_QPA_PLATFORM"', 'echo "in:$PWD"',
                    'for argument in "$@"; do echo "<$argument>"; done')
        self.welcome = f"<{self.top}/samples/welcome.txt>"
        self.picture = f"{self.top}/build/quorvale.png"

    def viewer_arguments(self, *arguments, **environment):
        ran = self.run_script("run", *arguments, **environment)
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assertEqual(ran.stderr, "install run\nbuild release quorvale-viewer\n")
        return [line for line in ran.stdout.splitlines() if line.startswith("<")]

    def test_the_plugin_is_checked_where_it_was_built(self):
        # Symptom: nothing had built it, and the welcome file was taken for it.
        self.script(self.top / "build/release/bin/quorvale-viewer",
                    'echo "$QT_PLUGIN_PATH $*"')
        ran = self.run_script("run", "--designer-check", QT_PLUGIN_PATH="/more")
        self.assertEqual(ran.stderr, "install designer\n"
                                     "build release quorvale-viewer quorvalebox-designer\n")
        self.assertEqual(ran.stdout, f"{self.top}/build/release/plugins:/more --designer-check\n")

    def test_without_a_file_the_welcome_file_opens(self):
        self.assertEqual(self.viewer_arguments(DISPLAY=":1"), [self.welcome])

    def test_options_alone_keep_the_welcome_file(self):
        self.assertEqual(self.viewer_arguments("--line", "7", DISPLAY=":1"),
                         ["<--line>", "<7>", self.welcome])

    def test_a_file_and_options_go_through_in_any_order(self):
        for arguments in (["a b.log", "--line", "7"], ["--line", "7", "a b.log"],
                          ["--line=7", "a b.log"], ["--", "-dash"], [""]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.viewer_arguments(*arguments, WAYLAND_DISPLAY="wayland-0"),
                                 [f"<{argument}>" for argument in arguments])

    def test_the_file_is_looked_for_where_the_caller_is(self):
        ran = self.run_script("run", "notes.txt", directory=self.place, DISPLAY=":1")
        self.assertIn(f"in:{self.place}\n", ran.stdout)

    def test_without_a_display_the_window_becomes_a_picture(self):
        ran = self.run_script("run", "notes.txt")
        self.assertEqual(ran.stdout.splitlines(),
                         ["platform:offscreen", f"in:{self.place}", "<--snapshot>",
                          f"<{self.picture}>", "<notes.txt>",
                          "No display: the window was rendered to build/quorvale.png"])

    def test_without_a_display_a_picture_of_ones_own_is_enough(self):
        self.assertEqual(self.viewer_arguments("--snapshot", "my.png", "notes.txt"),
                         ["<--snapshot>", "<my.png>", "<notes.txt>"])

    def test_without_a_display_help_is_just_help(self):
        self.assertNotIn("<--snapshot>", self.viewer_arguments("--help"))

    def test_a_viewer_that_fails_makes_the_command_fail(self):
        self.script(self.top / "build/release/bin/quorvale-viewer", "exit 3")
        ran = self.run_script("run", "missing.txt")
        self.assertEqual(ran.returncode, 3)
        self.assertNotIn("rendered", ran.stdout)


class InstallPackages(ScriptTest):
    def setUp(self):
        super().setUp()
        self.copy("tools/install-packages")
        (self.top / "packages.txt").write_text(
            "# all of them\n[run]\n# to build\ng++\ncmake\n\n[test]\nlibgtest-dev\n[ci]\nclang-19\n",
            encoding="utf-8")
        self.log = self.place / "log"
        self.installed("g++", "cmake")
        self.script(self.stand_ins / "apt-get", f'echo "apt-get $*" >> "{self.log}"')
        self.user(0)

    def installed(self, *names):
        lines = [f"echo '{name} installed'" for name in names]
        self.script(self.stand_ins / "dpkg-query", *lines, "exit 1")

    def user(self, number):
        self.script(self.stand_ins / "id", f"echo {number}")

    def requests(self):
        """What apt-get was asked to install."""
        lines = self.log.read_text(encoding="utf-8").splitlines() if self.log.exists() else []
        return [line.split("--no-install-recommends ")[1] for line in lines if " install " in line]

    def test_nothing_is_asked_for_when_nothing_is_missing(self):
        ran = self.run_script("tools/install-packages", "run")
        self.assertEqual((ran.returncode, ran.stdout, self.log.exists()), (0, "", False))

    def test_only_what_is_missing_is_installed(self):
        self.installed("cmake")
        ran = self.run_script("tools/install-packages", "run")
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assertEqual(set(self.requests()), {"g++"})

    def test_a_package_that_was_removed_is_missing(self):
        self.script(self.stand_ins / "dpkg-query", "echo 'cmake installed'",
                    "echo 'g++ config-files'")
        self.run_script("tools/install-packages", "run")
        self.assertEqual(set(self.requests()), {"g++"})

    def test_a_package_of_another_architecture_name_counts(self):
        self.installed("g++:amd64", "cmake")
        self.run_script("tools/install-packages", "run")
        self.assertEqual(self.requests(), [])

    def test_a_group_includes_those_above_it_and_not_those_below(self):
        self.installed("cmake")
        self.run_script("tools/install-packages", "test")
        self.assertEqual(set(self.requests()), {"g++ libgtest-dev"})

    def test_stale_lists_are_fetched_and_the_installation_tried_again(self):
        self.installed("cmake")
        self.script(self.stand_ins / "apt-get", f'echo "apt-get $*" >> "{self.log}"',
                    f'case "$*" in *" update") touch "{self.place}/fetched";; esac',
                    f'test -e "{self.place}/fetched"')
        ran = self.run_script("tools/install-packages", "run")
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assertEqual(self.requests()[-1], "g++")

    def test_an_installation_that_fails_names_the_packages(self):
        self.installed("cmake")
        self.script(self.stand_ins / "apt-get", "exit 100")
        ran = self.run_script("tools/install-packages", "run")
        self.assertEqual(ran.returncode, 1)
        self.assertIn("could not be installed: g++", ran.stderr)

    def test_a_user_without_sudo_is_told_the_packages(self):
        self.installed("cmake")
        self.user(1000)
        # Only what the script itself needs: no sudo anywhere.
        for name in ("bash", "dirname", "awk", "comm", "sed", "sort", "env"):
            os.symlink(shutil.which(name), self.stand_ins / name)
        ran = subprocess.run([str(self.stand_ins / "bash"), str(self.top / "tools/install-packages"),
                              "run"], check=False, capture_output=True, text=True,
                             env={"PATH": str(self.stand_ins)})
        self.assertEqual(ran.returncode, 1)
        self.assertIn("needs root or sudo:\n    g++\n", ran.stderr)
        self.assertFalse(self.log.exists())

    def test_a_user_with_sudo_installs_through_it(self):
        self.installed("cmake")
        self.user(1000)
        self.script(self.stand_ins / "sudo", f'echo sudo >> "{self.log}"', 'exec "$@"')
        ran = self.run_script("tools/install-packages", "run")
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assertEqual(self.log.read_text(encoding="utf-8").splitlines()[0], "sudo")
        self.assertEqual(set(self.requests()), {"g++"})

    def test_an_unknown_group_is_an_error(self):
        for arguments in ([], ["all"], ["run", "test"]):
            with self.subTest(arguments=arguments):
                ran = self.run_script("tools/install-packages", *arguments)
                self.assertEqual(ran.returncode, 2)

    def test_the_real_list_has_its_three_groups(self):
        self.copy("packages.txt")
        self.installed()
        for group in ("run", "test", "ci"):
            self.run_script("tools/install-packages", group)
        sizes = [len(request.split()) for request in self.requests()]
        self.assertTrue(0 < sizes[0] < sizes[-1], sizes)


if __name__ == "__main__":
    sys.exit(unittest.main())
