"""Disks that are full or fail: writes and syncs that go wrong from the nth on, and a small disk of its own."""
import errno
import os
import subprocess
from contextlib import contextmanager

from trial import a_call

CALLS = (("disk full at a write", "write", errno.ENOSPC), ("write fails", "write", errno.EIO),
         ("sync fails", "sync", errno.EIO))
FULL_WORDS = ("full", "No space left")
LARGE = 1 << 30
MOST_ROOM = 21  # bytes, as a power of two


def fail_calls(installation, trials, count, random, report):
    for kind, calls, number in CALLS:
        for trial in trials:
            trial.begin()
            most = installation.count_calls(trial.operation.words, calls)
            for _ in range(max(1, count // 60)) if most else ():
                trial.begin()
                call = a_call(random, most)
                outcome = installation.run_with_fault(trial.operation.words, calls, call, number)
                reached, faults = trial.verdict(outcome)
                report.add(kind, trial.operation.name, outcome, reached, faults + told(outcome, number),
                           f"at call {call} of {most}")


def told(outcome, number):
    """What the message of a full disk leaves out."""
    if number != errno.ENOSPC or outcome.status != 1 or any(word in outcome.err for word in FULL_WORDS):
        return []
    return [f"no word of a full disk: {outcome.err}"]


def mount(folder, size, *options):
    return subprocess.run(["mount", "-t", "tmpfs", "-o", ",".join([*options, f"size={size}"]), "faults",
                           folder], capture_output=True, check=False).returncode == 0


@contextmanager
def small_disk(installation):
    """The installation on a disk of its own; yields whether there may be one."""
    mounted = os.geteuid() == 0 and mount(installation.folder, LARGE)
    try:
        yield mounted
    finally:
        if mounted:
            subprocess.run(["umount", "-l", installation.folder], check=True)


def fill_disk(installation, trials, count, random, report):
    with small_disk(installation) as mounted:
        if not mounted:
            print("faults: no right to mount a small disk; left out")
            return
        for trial in trials:
            for _ in range(max(1, count // 60)):
                trial.begin()
                room = int(2 ** random.uniform(0, MOST_ROOM))
                used = os.statvfs(installation.folder)
                taken = (used.f_blocks - used.f_bfree) * used.f_frsize
                mount(installation.folder, taken + room, "remount")
                outcome = installation.run(trial.operation.words)
                mount(installation.folder, LARGE, "remount")
                reached, faults = trial.verdict(outcome)
                report.add("disk full", trial.operation.name, outcome, reached,
                           faults + told(outcome, errno.ENOSPC), f"with {room} bytes left")
