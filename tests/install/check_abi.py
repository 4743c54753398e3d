#!/usr/bin/env python3
"""Compares what a shared library exports with the list that is kept of it.

Usage: check_abi.py LIBRARY LIST            exit code 1 with what came and what went
       check_abi.py --renew LIBRARY LIST    writes the list

Only what the library itself defines for good is listed: functions and data of its classes. Weak symbols
(inline functions) are in whatever file needs them, and which ones are there is up to the compiler. The
tables of a class (virtual functions, type information) are weak with one compiler and strong with
another, so they are left out with both: the virtual functions themselves are in the list."""

import re
import subprocess
import sys
from pathlib import Path

OURS = re.compile(r"((non-)?virtual thunk to )?quorvale::")
# functions, data that is written, read-only and zero at first
STRONG = set("TDRB")

RENEW = """
{gone}If that was not meant, mark what hosts use for export, or take back the change.
If hosts have to be built anew for it (anything that went or changed), raise QUORVALE_SOVERSION in
CMakeLists.txt. Then write the new list:
    {script} --renew {library} {listing}
"""


def exported(nm_output):
    """The demangled names among the lines of nm -DC --defined-only."""
    names = set()
    for line in nm_output.splitlines():
        parts = line.split(" ", 2)
        if len(parts) == 3 and parts[1] in STRONG and OURS.match(parts[2]):
            names.add(parts[2])
    return names


def read_library(library):
    command = ["nm", "--dynamic", "--demangle", "--defined-only", library]
    return exported(subprocess.run(command, check=True, capture_output=True, text=True).stdout)


def read_list(listing):
    lines = Path(listing).read_text(encoding="utf-8").splitlines()
    return {line for line in lines if line and not line.startswith("#")}


def write_list(listing, library, names):
    head = f"# What {Path(library).name} exports; written and compared by tests/install/check_abi.py\n"
    Path(listing).write_text(head + "".join(f"{name}\n" for name in sorted(names)), encoding="utf-8")


def compare(kept, present):
    """Findings: what went first, since that breaks hosts."""
    return [f"- {name}" for name in sorted(kept - present)] + \
           [f"+ {name}" for name in sorted(present - kept)]


def main(arguments):
    renew = arguments[1:2] == ["--renew"]
    files = arguments[2 if renew else 1:]
    if len(files) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    library, listing = files
    present = read_library(library)
    if not present:
        print(f"{library}: exports nothing of ours")
        return 2
    if renew:
        write_list(listing, library, present)
        print(f"{listing}: {len(present)} symbols")
        return 0
    findings = compare(read_list(listing), present)
    if not findings:
        print(f"{library}: {len(present)} symbols, as listed")
        return 0
    print(f"{library} exports something else than {listing} says:")
    print("\n".join(findings))
    gone = any(finding.startswith("-") for finding in findings)
    print(RENEW.format(gone="Hosts that use what went no longer start.\n" if gone else "",
                       script=arguments[0], library=library, listing=listing))
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv))
