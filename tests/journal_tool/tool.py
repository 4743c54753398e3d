"""What the tests of quorvale-journal share: running it, and seeing every byte of a folder."""

import ctypes
import hashlib
import os
import stat
import subprocess
import time

DONE, PENDING, USAGE, MISFIT, FAILED, IN_USE, INTERRUPTED = range(7)

# Of the clock. What is counted is processor time; but a program that waits, for a lock or a pipe, takes
# none of it and would still hang before its user. A busy machine makes a run of some milliseconds into
# one of a second or two, sanitizers make that a few; it never takes as long as this.
LONGEST_WAIT = 10

_CAPBSET_DROP, _DAC_OVERRIDE, _DAC_READ_SEARCH = 24, 1, 2


def give_up_privileges():
    """Whoever is started from now on is bound by permissions, even as root."""
    if os.geteuid() == 0:
        libc = ctypes.CDLL(None, use_errno=True)
        for capability in (_DAC_OVERRIDE, _DAC_READ_SEARCH):
            if libc.prctl(_CAPBSET_DROP, capability, 0, 0, 0) != 0:
                raise OSError(ctypes.get_errno(), "a capability cannot be dropped")


class Ran:
    def __init__(self, code, output, errors, seconds):
        self.code, self.output, self.errors, self.seconds = code, output, errors, seconds


class Tool:
    """The built program."""

    def __init__(self, program):
        self.program = os.path.abspath(program)
        self.runs = 0
        self.slowest = 0.0

    def run(self, *arguments, cwd=None, **more):
        start = time.monotonic()
        with subprocess.Popen([self.program, *arguments], cwd=cwd, close_fds=False,
                              stdout=more.pop("stdout", subprocess.PIPE),
                              stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, **more) as process:
            try:
                output, errors = process.communicate(timeout=LONGEST_WAIT)
            except subprocess.TimeoutExpired:
                process.kill()
                raise
        seconds = time.monotonic() - start
        self.runs += 1
        self.slowest = max(self.slowest, seconds)
        return Ran(process.returncode, output or b"", errors or b"", seconds)


def content_of(path):
    with open(path, "rb") as file:
        return file.read()


def print_of_file(path):
    """Everything about one name that must not change: kind, permissions, time, bytes, target."""
    status = os.lstat(path)
    kept = [stat.S_IFMT(status.st_mode), stat.S_IMODE(status.st_mode), status.st_nlink]
    if stat.S_ISLNK(status.st_mode):
        return (*kept, os.readlink(path))
    if stat.S_ISREG(status.st_mode):
        # A file that is large is one hole.
        digest = "" if status.st_size > 1 << 28 else hashlib.md5(content_of(path)).hexdigest()
        return (*kept, status.st_mtime_ns, status.st_size, digest)
    return (*kept,) if stat.S_ISDIR(status.st_mode) else (*kept, status.st_mtime_ns)


def print_of_folder(*folders):
    """The same of all that is below some folders, as bytes."""
    seen = {}
    for folder in folders:
        for path, names, files in os.walk(os.fsencode(folder)):
            for name in names + files:
                whole = os.path.join(path, name)
                seen[whole] = print_of_file(whole)
    return seen
