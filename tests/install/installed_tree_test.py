#!/usr/bin/env python3
"""Installs the build into a directory and is a host there: with CMake, with pkg-config, header by header.
The environment says which build (see CMakeLists.txt here)."""

import os
import re
import shlex
import shutil
import subprocess
import sys
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

HERE = Path(__file__).resolve().parent
SOURCE = HERE.parent.parent
BUILD = Path(os.environ["QUORVALE_BUILD"])
CMAKE = os.environ.get("QUORVALE_CMAKE", "cmake")
COMPILER = shlex.split(os.environ.get("QUORVALE_COMPILER", "c++"))
FLAGS = shlex.split(os.environ.get("QUORVALE_FLAGS", ""))
WITH_QT = os.environ.get("QUORVALE_QT", "ON") == "ON"
WITH_PUGIXML = os.environ.get("QUORVALE_PUGIXML", "ON") == "ON"
STATIC = os.environ.get("QUORVALE_STATIC", "OFF") == "ON"
# Said here again: it rises on purpose, and with it the names of the Debian packages.
SOVERSION = 0
# Sizes are those of a 64-bit machine, and only this compiler tells them.
TELLS_LAYOUTS = os.environ.get("QUORVALE_COMPILER_ID", "GNU") == "GNU" and sys.maxsize > 2 ** 32
SCRATCH = BUILD / "install-test"
TREE = SCRATCH / "tree"
CONSUMER = HERE / "consumer"


def run(*command, fails=False, **options):
    """The output of a command that must succeed, or must not."""
    done = subprocess.run([str(word) for word in command], text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, **options)
    if (done.returncode != 0) != fails:
        raise AssertionError(f"{shlex.join(map(str, command))}: exit code {done.returncode}\n"
                             + done.stdout)
    return done.stdout


def configure(source, build, *options, **keywords):
    shutil.rmtree(build, ignore_errors=True)
    launcher = [f"-DCMAKE_CXX_COMPILER_LAUNCHER={COMPILER[0]}"] if len(COMPILER) > 1 else []
    return run(CMAKE, "-G", "Ninja", "-S", source, "-B", build,
               f"-DCMAKE_CXX_COMPILER={COMPILER[-1]}", f"-DCMAKE_CXX_FLAGS={shlex.join(FLAGS)}",
               *launcher, *options, **keywords)


def with_tree(**more):
    """The environment of somebody who has the tree outside of the system's own places."""
    libraries = next(TREE.glob("lib/**/quorvalebox-core.pc")).parent.parent
    return {**os.environ, "PKG_CONFIG_PATH": str(libraries / "pkgconfig"),
            "LD_LIBRARY_PATH": str(libraries), **more}


HOST = """
class Host : public QMainWindow {{
public:
    template <class... What>
    void openElsewhere(const What&...) {{}}
    void snippet(quorvale::QuorvaleBoxWidget* view, const QString& path);
}};
{functions}
void Host::snippet(quorvale::QuorvaleBoxWidget* view, const QString& path) {{
    static_cast<void>(view);
    static_cast<void>(path);
    {{
{statements}
    }}
}}
"""


def snippets_of(page):
    """The pieces of C++ on a page: a name each, and a source that has it in a host."""
    text = (SOURCE / page).read_text(encoding="utf-8")
    for number, snippet in enumerate(re.findall(r"^```cpp\n(.*?)^```$", text, re.M | re.S), 1):
        lines = snippet.splitlines()
        includes = [line for line in lines if line.startswith("#include")]
        rest = "\n".join(line for line in lines if not line.startswith("#include"))
        # Whole functions are as they stand; statements are a method's.
        whole = re.match(r"\s*(//.*\s+)*[\w:]+ \w+\([^=;]*\) \{$", rest, re.M)
        host = HOST.format(functions=rest if whole else "", statements="" if whole else rest)
        own = ["#include <QMainWindow>", "#include <QStatusBar>",
               "#include <quorvalebox/qt/quorvale_box_widget.h>"]
        yield f"{Path(page).stem}_{number}", includes, "\n".join([*includes, *own, host])


def package_flags(*packages):
    static = ["--static"] if STATIC else []
    return shlex.split(run("pkg-config", "--cflags", "--libs", *static, *packages, env=with_tree()))


def include_flags(*packages):
    return shlex.split(run("pkg-config", "--cflags", *packages, env=with_tree()))


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(TREE, ignore_errors=True)
        run(CMAKE, "--install", BUILD, "--prefix", TREE)
        cls.headers = sorted(
            path.relative_to(TREE / "include/quorvalebox").as_posix()
            for path in (TREE / "include/quorvalebox").rglob("*.h"))

    def check_window_host(self, program, **options):
        picture = SCRATCH / "window_host.png"
        picture.unlink(missing_ok=True)
        said = run(program, SOURCE / "samples/welcome.txt", picture, **options)
        lines = len((SOURCE / "samples/welcome.txt").read_bytes().split(b"\n"))
        self.assertIn(f"window_host: {lines} lines", said)
        self.assertGreater(picture.stat().st_size, 5000)

    def test_a_project_with_cmake_builds_and_runs(self):
        build = SCRATCH / "consumer"
        configure(CONSUMER, build, f"-DCMAKE_PREFIX_PATH={TREE}",
                  f"-DCONSUMER_WITH_WIDGET={'ON' if WITH_QT else 'OFF'}")
        run(CMAKE, "--build", build)
        self.assertIn("all is well", run(build / "headless_host"))
        if WITH_QT:
            self.check_window_host(build / "window_host")

    def test_a_program_with_pkg_config_builds_and_runs(self):
        program = SCRATCH / "headless_host"
        run(*COMPILER, "-std=c++20", *FLAGS, CONSUMER / "headless_host.cpp", "-o", program,
            *package_flags("quorvalebox-headless"))
        self.assertIn("all is well", run(program, env=with_tree()))
        if WITH_QT:
            program = SCRATCH / "window_host"
            run(*COMPILER, "-std=c++20", "-fPIC", *FLAGS, CONSUMER / "window_host.cpp",
                "-o", program, *package_flags("quorvalebox-widget"))
            self.check_window_host(program, env=with_tree())

    def test_a_host_without_a_window_needs_no_qt(self):
        configure(CONSUMER, SCRATCH / "without-qt", f"-DCMAKE_PREFIX_PATH={TREE}",
                  "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON", "-DCONSUMER_WITH_WIDGET=OFF")

    def test_a_wish_for_the_widget_does_no_harm_without_qt(self):
        # Symptom: the whole package was not found.
        project = SCRATCH / "wish"
        shutil.rmtree(project, ignore_errors=True)
        project.mkdir()
        (project / "CMakeLists.txt").write_text("""
            cmake_minimum_required(VERSION 3.25)
            project(Wish LANGUAGES CXX)
            find_package(QuorvaleBox 0.1 REQUIRED COMPONENTS Core OPTIONAL_COMPONENTS Widget)
            if(TARGET QuorvaleBox::Widget)
                message(STATUS "with a widget")
            endif()""", encoding="utf-8")
        without = configure(project, project / "without", f"-DCMAKE_PREFIX_PATH={TREE}",
                            "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON")
        self.assertNotIn("with a widget", without)
        if WITH_QT:
            self.assertIn("with a widget", configure(project, project / "with",
                                                     f"-DCMAKE_PREFIX_PATH={TREE}"))

    @unittest.skipUnless(WITH_QT, "the pages are about the widget")
    def test_the_code_on_the_pages_compiles_as_it_stands(self):
        flags = [*include_flags("quorvalebox-headless"), *include_flags("quorvalebox-widget")]

        def compile_snippet(snippet):
            name, includes, text = snippet
            source = SCRATCH / f"{name}.cpp"
            source.write_text(text, encoding="utf-8")
            run(*COMPILER, "-std=c++20", "-fPIC", "-Wall", "-Wextra", "-Werror", *flags, *FLAGS,
                "-fsyntax-only", source)
            return name, includes

        snippets = [*snippets_of("docs/host-guide.md"), *snippets_of("README.md")]
        self.assertGreater(len(snippets), 7)
        with ThreadPoolExecutor(max_workers=2) as pool:
            for name, includes in pool.map(compile_snippet, snippets):
                self.assertTrue(includes, f"{name} names no header")

    def test_a_host_with_a_window_is_told_that_qt_is_missing(self):
        said = configure(CONSUMER, SCRATCH / "missing-qt", f"-DCMAKE_PREFIX_PATH={TREE}",
                         "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON", fails=True)
        self.assertIn("Qt6" if WITH_QT else "Widget", said)

    @unittest.skipIf(STATIC, "an archive has no number")
    def test_the_libraries_are_known_by_their_number_and_not_by_their_version(self):
        names = ["core", "headless", *(["widget"] if WITH_QT else [])]
        for name in names:
            file, = (path for path in TREE.glob(f"lib/**/libquorvalebox-{name}.so.*")
                     if not path.is_symlink())
            told = run("objdump", "-p", file)
            number = f"libquorvalebox-{name}.so.{SOVERSION}"
            self.assertEqual(re.findall(r"SONAME\s+(\S+)", told), [number])
            # The loader asks for it; the linker asks for the name without a number.
            self.assertTrue((file.parent / number).exists())
            self.assertTrue((file.parent / f"libquorvalebox-{name}.so").is_symlink())
            if name != "core":
                self.assertIn(f"libquorvalebox-core.so.{SOVERSION}",
                              re.findall(r"NEEDED\s+(\S+)", told))

    def test_versions_before_one_fit_within_their_minor_version(self):
        file = next(TREE.glob("lib/**/QuorvaleBoxConfigVersion.cmake"))
        script = SCRATCH / "version.cmake"
        script.write_text(f"""
            foreach(wanted 0.0.9 0.1 0.1.0 0.2 1.0)
                set(CMAKE_SIZEOF_VOID_P 8)
                string(REPLACE "." ";" numbers ${{wanted}})
                list(GET numbers 0 PACKAGE_FIND_VERSION_MAJOR)
                list(GET numbers 1 PACKAGE_FIND_VERSION_MINOR)
                set(PACKAGE_FIND_VERSION ${{wanted}})
                unset(PACKAGE_VERSION_COMPATIBLE)
                include({file})
                message("${{wanted}} ${{PACKAGE_VERSION_COMPATIBLE}}")
            endforeach()""", encoding="utf-8")
        self.assertEqual(run(CMAKE, "-P", script).split("\n")[:5],
                         ["0.0.9 FALSE", "0.1 TRUE", "0.1.0 TRUE", "0.2 FALSE", "1.0 FALSE"])

    @unittest.skipUnless(WITH_QT and TELLS_LAYOUTS, "the list is of all headers, told by g++")
    def test_classes_lie_in_memory_as_listed(self):
        run(sys.executable, "-B", HERE / "check_layouts.py", SOURCE / "abi/layouts", COMPILER[-1],
            *include_flags("quorvalebox-headless"), *include_flags("quorvalebox-widget"), *FLAGS)

    def test_every_public_header_stands_alone(self):
        self.assertGreater(len(self.headers), 40)
        core = ["-std=c++20", "-Wall", "-Wextra", "-Werror", *include_flags("quorvalebox-core")]
        widget = ["-fPIC", *include_flags("quorvalebox-widget")] if WITH_QT else []

        def compile_alone(header):
            name = header.replace("/", "_")
            source = SCRATCH / f"{name}.cpp"
            source.write_text(f'#include "{header}"\n#include "{header}"\n', encoding="utf-8")
            # What is no part of the widget gets by without a way to Qt.
            run(*COMPILER, *core, *(widget if header.startswith("qt/") else []), *FLAGS,
                "-c", source, "-o", SCRATCH / f"{name}.o", "-MMD", "-MF", SCRATCH / f"{name}.d")
            return header, (SCRATCH / f"{name}.d").read_text(encoding="utf-8")

        with ThreadPoolExecutor(max_workers=2) as pool:
            for header, read in pool.map(compile_alone, self.headers):
                for path in re.findall(r"(?<=\s)/\S+", read.replace("\\\n", " ")):
                    self.assertFalse(Path(path).is_relative_to(SOURCE / "src"), header + path)
                    self.assertNotRegex(path, r"/private/|_p\.h$", header)

    def test_the_reference_tells_of_every_header_that_is_installed_and_of_no_other(self):
        # Symptom: eighteen installed headers were not in it.
        text = (SOURCE / "docs/Doxyfile").read_text(encoding="utf-8").replace("\\\n", " ")
        words = re.search(r"^INPUT\s*=(.*)$", text, re.MULTILINE)[1].split()
        told = {word[4:] for word in words if word.startswith("src/")}
        # What this build leaves out is told all the same.
        left_out = set() if WITH_QT else {header for header in told if header.startswith("qt/")}
        if not WITH_PUGIXML:
            left_out.add("adapters/pugi_xml.h")
        installed = {header for header in self.headers if not header.endswith("/export.h")}
        self.assertEqual(sorted(told - left_out), sorted(installed))

    def test_headers_include_nothing_that_is_not_declared(self):
        allowed = re.compile(r"Q\w+|[a-z_]+")  # Qt's and the standard library's
        for header in self.headers:
            text = (TREE / "include/quorvalebox" / header).read_text(encoding="utf-8")
            for quoted, angled in re.findall(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', text,
                                             re.MULTILINE):
                if quoted:
                    target = os.path.normpath(Path(header).parent / quoted)
                    self.assertIn(target, self.headers, header)
                else:
                    self.assertRegex(angled, rf"^({allowed.pattern})$", header)
                    if angled.startswith("Q"):
                        self.assertTrue(header.startswith("qt/"), header)

    def test_what_is_installed_names_no_place_of_the_build(self):
        for path in TREE.rglob("*"):
            if path.suffix in {".cmake", ".pc", ".h", ".json"}:
                text = path.read_text(encoding="utf-8")
                for place in (str(SOURCE), str(TREE)):
                    self.assertNotIn(place, text, path)

    def test_as_a_folder_of_another_project_it_brings_neither_tests_nor_installs(self):
        outer = SCRATCH / "outer"
        shutil.rmtree(outer, ignore_errors=True)
        outer.mkdir()
        (outer / "CMakeLists.txt").write_text(f"""
            cmake_minimum_required(VERSION 3.25)
            project(Outer LANGUAGES CXX)
            add_subdirectory({SOURCE} box)
            add_executable(host {CONSUMER}/headless_host.cpp)
            target_link_libraries(host PRIVATE QuorvaleBox::Headless)
            get_target_property(type quorvalebox-core TYPE)
            message(STATUS "core: ${{type}}")""", encoding="utf-8")
        said = configure(outer, outer / "build", f"-DQUORVALE_WITH_QT={'ON' if WITH_QT else 'OFF'}")
        self.assertIn("core: STATIC_LIBRARY", said)
        cache = (outer / "build/CMakeCache.txt").read_text(encoding="utf-8")
        for option in ("BUILD_TESTS", "BUILD_BENCH", "BUILD_EXAMPLES", "BUILD_PROGRAMS",
                       "WITH_DESIGNER", "INSTALL"):
            self.assertIn(f"QUORVALE_{option}:BOOL=OFF", cache)
        targets = run("ninja", "-C", outer / "build", "-t", "targets", "all")
        for target in ("quorvale-viewer", "quorvale-journal", "quorvalebox-designer", "example_"):
            self.assertNotIn(target, targets)
        self.assertEqual(WITH_QT, "quorvalebox-widget" in targets)
        # Its two lowest layers compile, with the headers that are made for them; all of it would take
        # minutes.
        run(CMAKE, "--build", outer / "build", "--target", "quorvale_platform")
        self.assertTrue((outer / "build/box/exports/base/export.h").is_file())
        self.assertTrue(list((outer / "build/box/src/platform").glob("*.a")))


if __name__ == "__main__":
    unittest.main(verbosity=2)
