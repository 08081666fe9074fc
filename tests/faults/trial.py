"""One operation with its two legal states, and the verdict on what a fault left of it."""
import os
import shutil

import checks
from operations import FIRST_START


LAST_CALLS = 16


def a_call(random, calls):
    """Any, or one of the last, where rows are committed and folders follow."""
    return max(1, calls - random.randrange(LAST_CALLS)) if random.random() < 0.5 else random.randint(1, calls)


class Trial:
    """Measures the operation once undisturbed; then `begin`, disturb it, and `verdict`."""

    def __init__(self, installation, operation):
        self.installation, self.operation = installation, operation
        self.begin()
        self.before = self.state()
        outcome = installation.run(operation.words)
        if outcome.status != 0:
            raise SystemExit(f"faults: {operation.name} failed: {outcome.err}")
        self.seconds = outcome.seconds
        self.after = self.state()
        self.known = set(self.links())
        self.rows = self.output_rows()
        self.text = self.output_text()

    def begin(self):
        self.installation.restore()
        if self.operation.name == FIRST_START:
            for path in (self.installation.repository(), self.installation.values()):
                os.remove(path)
            shutil.rmtree(self.installation.path("databases"))

    def state(self):
        return [checks.dump(path) for path in (self.installation.repository(), self.installation.values())]

    def links(self):
        return checks.orphans(self.installation.repository(), self.installation.values())

    def output_rows(self):
        """How many rows each table of an embedded target holds."""
        if not self.operation.output.endswith(".mdb"):
            return {}
        database = checks.connect(self.operation.output)
        try:
            return {table: database.execute(f"select count(*) from [{table}]").fetchone()[0]
                    for table in checks.tables_of(database)}
        finally:
            database.close()

    def output_text(self):
        """What a run wrote into its file, less the first line, which tells the time."""
        if not self.operation.output.endswith(".sql") or not os.path.exists(self.operation.output):
            return ""
        with open(self.operation.output, encoding="utf-8", newline="") as file:
            return file.read().partition("\n")[2]

    def stores(self):
        paths = [self.installation.repository(), self.installation.values()]
        return paths + ([self.operation.output] if self.operation.output.endswith(".mdb") else [])

    def leftovers(self):
        """Files that nothing would take away. A journal beside a user's database goes with its next write."""
        found = []
        for folder, _, files in os.walk(self.installation.folder):
            found += [os.path.join(folder, name) for name in files
                      if name.endswith(("-wal", "-shm", ".new", ".tmp"))]
        return found

    def next_start(self):
        """What the next starts say: every schema must open."""
        outcome = self.installation.run(("schemas",) if self.operation.name != FIRST_START else ("init",))
        if outcome.status != 0:
            return [f"the next start failed: {outcome.err}"]
        found = []
        listed = [] if self.operation.name == FIRST_START else outcome.out.splitlines()
        for schema in listed:
            opened = self.installation.run(("scenarios", schema))
            if opened.status != 0 or opened.err:
                found.append(f"opening {schema}: {opened.err}")
        return found

    def reached(self):
        """0 for the state before, 1 for the one after, None for another."""
        now = self.state()
        if self.operation.name != FIRST_START and now == self.before:
            return 0
        return 1 if now == self.after else None

    def names_the_thing(self, text):
        """Whether a message says of which file it speaks."""
        return self.installation.folder in text or "Vellumark repository" in text

    def verdict(self, outcome, again=True):
        """(0, 1 or None for the state that was reached, list of faults)."""
        found = outcome.complaints()
        if outcome.status == 1 and not self.names_the_thing(outcome.err):
            found.append(f"the message names no file: {outcome.err}")
        for path in self.stores():
            found += checks.is_intact(path)
        if found:
            return None, found
        found += self.next_start()
        reached = self.reached()
        if reached is None:
            return None, found + ["the definitions are neither as before nor as after"]
        if outcome.status == 0 and not self.is_done(reached):
            found.append("it claims to have succeeded")
        found += sorted(set(self.links()) - self.known)
        found += checks.folder_faults(self.installation)
        if any(count > self.rows[table] for table, count in self.output_rows().items()):
            found.append("more rows than the run makes")
        if again and (reached == 0 or self.operation.only_runs):
            found += self.second_try()
        return reached, found + self.pile()

    def is_done(self, reached):
        return (reached == 1 or self.before == self.after) and self.output_rows() == self.rows and \
            self.output_text() == self.text

    def second_try(self):
        """After the fault the same words must do what they are for."""
        if self.kept_rows():
            return []
        outcome = self.installation.run(self.operation.words)
        if outcome.status != 0:
            return [f"the second try failed: {outcome.err}"]
        found = [] if self.state() == self.after else ["the second try made something else"]
        found += [] if self.is_done(1) else ["the second try made other output"]
        return found + [fault for path in self.stores() for fault in checks.is_intact(path)]

    def kept_rows(self):
        """Whether an inserting run left rows in its target: those that were committed stay."""
        return self.operation.only_runs and any(self.output_rows().values()) and any(self.rows.values())

    def pile(self):
        return [f"left behind: {os.path.basename(path)}" for path in self.leftovers()]
