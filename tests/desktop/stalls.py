"""Programs that stand still for a moment at random, as on a busy machine: a test that waits for time
instead of an answer, or for the wrong answer, fails then. QUORVALE_STALLS names the program, "viewer"
or "manager" (of windows), and a seed: QUORVALE_STALLS=viewer:1."""

import functools
import os
import random
import signal
import threading
import time

# In seconds: how long a program stands, and how long it goes on at most.
SHORTEST, LONGEST, BETWEEN = 0.05, 0.5, 0.4

_program, _, _seed = os.environ.get("QUORVALE_STALLS", "").partition(":")
_chance = random.Random(_seed)


@functools.cache
def stall(program, process):
    """Stalls the process from now on until it ends, if it is the program that is to be stalled. To
    ask again makes no difference."""
    if program == _program:
        threading.Thread(target=_stall, args=(os.pidfd_open(process),), daemon=True).start()


def _stall(process):
    try:
        while True:
            time.sleep(_chance.uniform(0, BETWEEN))
            signal.pidfd_send_signal(process, signal.SIGSTOP)
            time.sleep(_chance.uniform(SHORTEST, LONGEST))
            signal.pidfd_send_signal(process, signal.SIGCONT)
    except ProcessLookupError:
        os.close(process)
