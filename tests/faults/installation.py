"""An installation of Vellumark to be maltreated: its folder, its template, and how its program is run in it."""
import os
import shutil
import signal
import subprocess
import time
from dataclasses import dataclass

TIMEOUT = 120
# Texts of a program that fell over instead of telling what went wrong.
RAW_TEXTS = ("terminate called", "what():", "std::", "Assertion", "Sanitizer", "bad_alloc", "Segmentation")


@dataclass
class Outcome:
    status: int
    out: str
    err: str
    seconds: float

    def was_killed(self):
        return self.status == -signal.SIGKILL

    def complaints(self):
        """What is wrong with how the program ended, whatever was done to it."""
        found = []
        if self.status < 0 and not self.was_killed():
            found.append(f"it died of {signal.Signals(-self.status).name}")
        if self.status > 2:
            found.append(f"exit status {self.status}")
        if self.status == 1 and not self.err.strip():
            found.append("it failed without a message")
        found += [f"raw text in the message: {text}" for text in RAW_TEXTS if text in self.err]
        return found


class Installation:
    """A folder with settings file, stores and databases, which can be put back to its template."""

    def __init__(self, base, program, library):
        self.base, self.program, self.library = base, program, library
        self.folder = os.path.join(base, "work")
        self.template = os.path.join(base, "template")
        os.makedirs(self.folder)
        self.write_settings()

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def write_settings(self):
        with open(self.path("Vellumark.INI"), "w", encoding="utf-8") as file:
            file.write(f"REPOSITORY={self.folder}\nVALUES={self.folder}\n"
                       f"VM_DATABASES={self.path('databases')}\n")

    def repository(self):
        return self.path("Vellumark.mdb")

    def values(self):
        return self.path("Vellumark Values.mdb")

    def keep_as_template(self):
        shutil.rmtree(self.template, ignore_errors=True)
        shutil.copytree(self.folder, self.template)

    def restore(self):
        """Puts the template's files back; the folder itself stays, as it may be a disk of its own."""
        for entry in os.scandir(self.folder):
            if entry.is_dir(follow_symlinks=False):
                shutil.rmtree(entry.path)
            else:
                os.remove(entry.path)
        shutil.copytree(self.template, self.folder, dirs_exist_ok=True)

    def start(self, words, environment=None, prefix=(), preload=False):
        settings = dict(os.environ, **(environment or {}))
        if preload:
            settings["LD_PRELOAD"] = self.library
        command = [*prefix, self.program, "--settings", self.path("Vellumark.INI"), "--yes", *words]
        return subprocess.Popen(command, env=settings, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True, errors="replace", cwd=self.base)

    def finish(self, process, started):
        try:
            out, err = process.communicate(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            return Outcome(99, "", f"It hung for {TIMEOUT} seconds.", TIMEOUT)
        return Outcome(process.returncode, out, err, time.monotonic() - started)

    def run(self, words, **how):
        started = time.monotonic()
        return self.finish(self.start(words, **how), started)

    def must(self, *words):
        outcome = self.run(words)
        if outcome.status != 0:
            raise SystemExit(f"faults: {' '.join(words)} failed: {outcome.err}")
        return outcome.out

    def run_killed(self, words, delay):
        """Runs, with SIGKILL after so many seconds."""
        started = time.monotonic()
        process = self.start(words)
        try:
            process.wait(timeout=delay)
        except subprocess.TimeoutExpired:
            process.kill()
        return self.finish(process, started)

    def run_with_fault(self, words, calls, number, action, folder=None):
        """Runs with the nth call that changes a file below `folder` failing by `action`, or killing."""
        plan = f"{calls} {number} {action} {folder or self.folder}"
        return self.run(words, environment={"VELLUMARK_FAULT": plan}, preload=True)

    def count_calls(self, words, calls, folder=None):
        count = os.path.join(self.base, "count")
        plan = f"{calls} 0 0 {folder or self.folder}"
        outcome = self.run(words, environment={"VELLUMARK_FAULT": plan, "VELLUMARK_FAULT_COUNT": count},
                           preload=True)
        if outcome.status != 0:
            raise SystemExit(f"faults: {' '.join(words)} failed: {outcome.err}")
        with open(count, encoding="utf-8") as file:
            return int(file.read())
