#!/usr/bin/env python3
"""Breaks things around vellumark-cli and looks at what is left: see docs/reliability.md."""
import argparse
import os
import random
import shutil
import signal
import sys
import tempfile
import time

sys.dont_write_bytecode = True  # the tree stays as it is

import disks
import kills
import servers
import stores
from installation import Installation
from operations import build, operations
from report import Report
from trial import Trial

KINDS = ("moments", "calls", "failing", "full", "stores", "servers")
# From so many killed programs on, every command is tried on every spoiled store.
THOROUGH = 100


def parse():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", help="vellumark-cli")
    parser.add_argument("library", help="the library of failing calls")
    parser.add_argument("--count", type=int, default=200, help="how many programs to kill")
    parser.add_argument("--seed", type=int, default=None, help="default: a new one each time")
    parser.add_argument("--kinds", default=",".join(KINDS), help="kinds of faults, separated by commas")
    parser.add_argument("--details", action="store_true", help="a line of the table for each operation")
    parser.add_argument("--messages", action="store_true", help="print what the program said")
    words = parser.parse_args()
    unknown = set(words.kinds.split(",")) - set(KINDS)
    if unknown:
        parser.error(f"unknown kinds {', '.join(unknown)}; there are {', '.join(KINDS)}")
    words.seed = random.SystemRandom().randrange(1 << 31) if words.seed is None else words.seed
    return words


def place():
    """Memory, where there is enough: nothing here depends on the disk, and a kill takes no file along."""
    memory = "/dev/shm"
    if "TMPDIR" in os.environ or not os.access(memory, os.W_OK) or shutil.disk_usage(memory).free < 1 << 30:
        return None
    return memory


def main():
    words = parse()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # disks and servers are put away
    print(f"faults: seed {words.seed}", flush=True)
    base = tempfile.mkdtemp(prefix="vellumark-faults-", dir=place())
    stream = random.Random(words.seed)
    report = Report(stream, words.count >= THOROUGH)
    try:
        installation = Installation(base, os.path.abspath(words.program), os.path.abspath(words.library))
        build(installation)
        trials = []

        def all_trials():
            if not trials:
                trials.extend(Trial(installation, operation) for operation in operations(installation))
            return trials
        rest = (words.count, stream, report)
        sections = {
            "moments": lambda: kills.kill_at_moments(installation, all_trials(), *rest),
            "calls": lambda: kills.kill_at_calls(installation, all_trials(), words.count // 2, *rest[1:]),
            "failing": lambda: disks.fail_calls(installation, all_trials(), *rest),
            "full": lambda: disks.fill_disk(installation, all_trials(), *rest),
            "stores": lambda: stores.spoil_stores(installation, *rest),
            "servers": lambda: servers.fail_servers(installation, *rest),
        }
        for name in words.kinds.split(","):
            started = time.monotonic()
            sections[name]()
            print(f"faults: {name} took {time.monotonic() - started:.0f} s", flush=True)
    finally:
        shutil.rmtree(base, ignore_errors=True)
    report.print_table(words.details)
    if words.messages:
        report.print_messages()
    return 1 if report.faults else 0


if __name__ == "__main__":
    sys.exit(main())
