"""Database servers that stop, and connections to them that are cut, in the middle of a read and of a run."""
import os
import re
import signal
import subprocess
import time
from contextlib import contextmanager

import kills
from operations import INSERTS, RULES, TABLES, Operation, table_sql
from proxy import Proxy
from trial import Trial

SERVERS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "servers", "servers.sh")
PASSWORD = "p w;}"
ROWS = 2000


class Engine:
    """One server behind a proxy whose port stays the same when the server is started anew."""

    def __init__(self, name, target_format):
        self.name, self.format = name, target_format
        self.proxy, self.string, self.process = None, "", 0

    def started(self, string):
        port = int(re.search(r"PORT=(\d+)", string)[1])
        self.proxy = self.proxy or Proxy(port)
        self.proxy.server_port, self.port = port, port
        self.string = string.replace(f"PORT={port}", f"PORT={self.proxy.port}")
        self.sql(";".join(table_sql(number, 5) for number in range(TABLES)))

    def sql(self, text):
        words = (["psql", "-qAt", "-v", "ON_ERROR_STOP=1", "-h", "127.0.0.1", "-p", str(self.port), "-U",
                  "tester", "-d", "shop"]
                 if self.name == "PostgreSQL" else
                 ["mariadb", "--no-defaults", "-N", "-h", "127.0.0.1", "-P", str(self.port), "-u", "tester",
                  "shop"])
        environment = dict(os.environ, PGPASSWORD=PASSWORD, MYSQL_PWD=PASSWORD)
        return subprocess.run(words, input=text, env=environment, capture_output=True, text=True, check=True,
                              timeout=60).stdout

    def empty(self):
        self.sql(";".join(f"delete from T{number}" for number in reversed(range(RULES))))

    def rows(self):
        counts = self.sql(" union all ".join(f"select {number}, count(*) from T{number}"
                                             for number in range(RULES)))
        return {f"T{line.split()[0]}": int(line.split()[1]) for line in counts.replace("|", " ").splitlines()}

    def operations(self):
        return [Operation(f"read, {self.name}", ("read", "New", "--type", "Other", "--connection-string",
                                                 self.string)),
                Operation(f"run into {self.name}", ("generate", self.name, INSERTS, "--database", "--format",
                                                    self.format), self.name, True)]

    def define(self, installation):
        installation.must("read", self.name, "--type", "Other", "--connection-string", self.string)
        for table in range(RULES):
            installation.must("rule", "add", self.name, INSERTS, f"T{table}", "--start", "1", "--end",
                              str(ROWS))
        for rule in range(2, RULES + 1):
            installation.must("depend", self.name, INSERTS, "--child", f"{rule}.Up", "--parent",
                              str((rule - 1) // 2 + 1))


class ServerTrial(Trial):
    """A trial whose rows are in a server; a server that has gone is asked for nothing."""

    def __init__(self, installation, operation, engine):
        self.engine, self.is_up = engine, True
        super().__init__(installation, operation)

    def begin(self):
        super().begin()
        self.engine.proxy.reset(None)
        if self.operation.only_runs:
            self.engine.empty()

    def output_rows(self):
        if not self.operation.only_runs or not self.is_up:
            return {}
        return self.engine.rows()

    def names_the_thing(self, text):
        return "Error" in text

    def died_in_the_driver(self, outcome):
        """MariaDB's driver falls over a line that is cut while it tells columns; docs/reliability.md names it."""
        return outcome.status == -signal.SIGSEGV and self.operation.name == "read, MariaDB"

    def verdict(self, outcome, again=True):
        self.engine.proxy.reset(None)
        if self.died_in_the_driver(outcome):
            outcome.status = -signal.SIGKILL
        return super().verdict(outcome, again)


@contextmanager
def running(installation, engines):
    strings = os.path.join(installation.base, "servers.txt")
    subprocess.run([SERVERS, "start", strings], check=True)
    try:
        with open(strings, encoding="utf-8") as file:
            lines = dict(line.rstrip("\n").split("=", 1) for line in file)
        for engine in engines:
            engine.started(lines[engine.name])
        for engine in engines:
            engine.process = server_process(engine.name, lines["folder"])
        yield
    finally:
        subprocess.run([SERVERS, "stop", strings], check=True)


def server_process(name, folder):
    path = {"PostgreSQL": "pg/postmaster.pid", "MariaDB": "my/pid"}[name]
    with open(os.path.join(folder, path), encoding="utf-8") as file:
        return int(file.readline())


def cut(installation, trials, count, random, report):
    for trial in trials:
        proxy = trial.engine.proxy
        trial.begin()
        installation.run(trial.operation.words)
        total = proxy.passed
        for _ in range(count):
            trial.begin()
            limit = random.randrange(total)
            proxy.reset(limit)
            outcome = installation.run(trial.operation.words)
            reached, faults = trial.verdict(outcome)
            report.add("connection cut", trial.operation.name, outcome, reached, faults,
                       f"after {limit} of {total} bytes")


def stop_server(installation, trial, report):
    """The operation slowed down, and no server any more in the middle of it."""
    trial.begin()
    trial.engine.proxy.delay = 0.05
    started = time.monotonic()
    process = installation.start(trial.operation.words)
    try:
        process.wait(timeout=0.6)
    except subprocess.TimeoutExpired:
        # For PostgreSQL the stop that waits for nobody; it would leave its workers behind otherwise.
        os.kill(trial.engine.process, signal.SIGQUIT if trial.engine.name == "PostgreSQL" else signal.SIGKILL)
    trial.is_up = False
    outcome = installation.finish(process, started)
    trial.engine.proxy.delay = 0.0
    reached, faults = trial.verdict(outcome, again=False)
    if outcome.status == 0:
        faults.append("it got through before the server was stopped")
    report.add("server stopped", trial.operation.name, outcome, reached, faults)


def fail_servers(installation, count, random, report):
    engines = [Engine("PostgreSQL", "Sybase"), Engine("MariaDB", "DB2 Universal Database")]
    installation.restore()
    with running(installation, engines):
        for engine in engines:
            engine.define(installation)
        installation.keep_as_template()
        trials = [ServerTrial(installation, operation, engine) for engine in engines
                  for operation in engine.operations()]
        kills.kill_at_moments(installation, trials, max(4, count // 5), random, report)
        cut(installation, trials, max(1, count // 20), random, report)
        for trial in trials[1::2]:
            stop_server(installation, trial, report)
    with running(installation, engines):
        for trial in trials[0::2]:
            stop_server(installation, trial, report)
    for engine in engines:
        engine.proxy.close()
