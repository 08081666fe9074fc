"""What was tried and what came out."""
from collections import Counter

# How a try ended, and which definitions were there afterwards.
COUNTS = ("tries", "killed", "done", "refused", "before", "after", "faults")


class Report:
    def __init__(self, random, thorough):
        self.random, self.thorough = random, thorough
        self.rows = {}
        self.faults = []
        self.messages = Counter()

    def add(self, kind, name, outcome, reached, faults, detail=""):
        row = self.rows.setdefault((kind, name), Counter())
        row["tries"] += 1
        row["killed" if outcome.was_killed() else "done" if outcome.status == 0 else "refused"] += 1
        row["before" if reached == 0 else "after" if reached == 1 else "unasked"] += 1
        row["faults"] += bool(faults)
        if outcome.err.strip() and outcome.status != 0 and not outcome.was_killed():
            self.messages[(kind, name, outcome.err.strip())] += 1
        for fault in faults:
            self.faults.append(f"{kind}, {name} {detail}: {fault.strip()}")
            print(f"  FAULT {self.faults[-1]}", flush=True)

    def print_table(self, details):
        """A line for each kind of fault; with details one for each operation in it."""
        lines = {}
        for (kind, name), row in self.rows.items():
            lines.setdefault((kind, name if details else ""), Counter()).update(row)
        lines[("all", "")] = sum(self.rows.values(), Counter())
        print(f"\n{'what was done':<24}{'to, or in the middle of' if details else '':<26}" +
              "".join(f"{name:>9}" for name in COUNTS))
        for (kind, name), row in lines.items():
            print(f"{kind:<24}{name:<26}" + "".join(f"{row[each]:>9}" for each in COUNTS))

    def print_messages(self):
        print("\nMessages:")
        for (kind, name, text), count in self.messages.items():
            print(f"-- {kind}, {name} ({count} times)\n{text}")
