#!/usr/bin/env python3
"""Compares how classes of the installed headers lie in memory with the list that is kept of it.

Usage: check_layouts.py LIST COMPILER FLAG...            exit code 1 with what came and what went
       check_layouts.py --renew LIST COMPILER FLAG...    writes the list

COMPILER is a g++. The FLAGs have to hold the directory of the headers as -I; it is the one that is named
quorvalebox. A host that was built before knows the size of every class it creates or derives from and
the place of every virtual function it calls or overrides: the list of exported symbols shows neither."""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

import check_abi

HEAD = "# How the classes of the installed headers lie in memory; see tests/install/check_layouts.py\n"

TABLE = re.compile(r"Vtable for (quorvale::.*)")
FUNCTION = re.compile(r"\d+ +\(int \(\*\)\(\.\.\.\)\)(quorvale::.*)")
# But moc's marks.
CLASS = re.compile(r"Class (quorvale::(?!.*::QPrivateSignal).*)")
SIZE = re.compile(r" +size=(\d+) align=(\d+)")


def layouts(dump):
    """A line for the size of every class of ours and for each of its virtual functions, out of what
    g++ -fdump-lang-class writes. The place of a function counts from the first one of its table."""
    found = set()
    sized = table = None
    for line in dump.splitlines():
        if match := TABLE.match(line):
            table, place = match[1], 0
        elif match := CLASS.match(line):
            sized, table = match[1], None
        elif sized and (match := SIZE.match(line)):
            found.add(f"{sized}: {match[1]} bytes, aligned to {match[2]}")
            sized = None
        elif table and (match := FUNCTION.match(line)):
            found.add(f"{table}: virtual function {place} is {match[1]}")
            place += 1
    return found


def dumped(compiler, flags):
    """What the compiler says of all headers together."""
    top = next(Path(flag[2:]) for flag in flags if flag.startswith("-I") and flag.endswith("/quorvalebox"))
    headers = sorted(path.relative_to(top).as_posix() for path in top.rglob("*.h"))
    with tempfile.TemporaryDirectory() as place:
        source = Path(place, "headers.cpp")
        source.write_text("".join(f'#include "{name}"\n' for name in headers), encoding="utf-8")
        dump = Path(place, "dump")
        subprocess.run([compiler, "-std=c++20", "-fPIC", "-fsyntax-only", f"-fdump-lang-class={dump}",
                        *flags, source], check=True)
        return dump.read_text(encoding="utf-8")


def main(arguments):
    renew = arguments[1:2] == ["--renew"]
    if len(arguments) < (5 if renew else 4):
        print(__doc__, file=sys.stderr)
        return 2
    listing, compiler, *flags = arguments[2 if renew else 1:]
    present = layouts(dumped(compiler, flags))
    if not present:
        print("the headers have no class of ours")
        return 2
    if renew:
        text = HEAD + "".join(f"{line}\n" for line in sorted(present))
        Path(listing).write_text(text, encoding="utf-8")
        print(f"{listing}: {len(present)} lines")
        return 0
    findings = check_abi.compare(check_abi.read_list(listing), present)
    if findings:
        print("\n".join([f"The headers lay classes out otherwise than {listing} says:", *findings, "",
                         "Hosts have to be built anew for it: raise QUORVALE_SOVERSION in CMakeLists.txt",
                         "and write the new list with --renew. New classes alone need the new list only."]))
        return 1
    print(f"{listing}: {len(present)} lines, as listed")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
