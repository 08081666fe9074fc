"""Stores that can't be used as they are: locked, read-only, damaged, too new, missing."""
import os
import shutil
import sqlite3
import subprocess

import checks
from operations import DELETES, INSERTS

NOBODY = ("setpriv", "--reuid=65534", "--regid=65534", "--clear-groups")


def commands(installation):
    path = installation.path
    return {
        "list schemas": ("schemas",),
        "list rules": ("rules", "Shop", INSERTS),
        "list Categories": ("categories",),
        "read": ("read", "New", "--type", "Jet", "--mdb", path("now.mdb")),
        "copy": ("scenario", "copy", "Shop", INSERTS, "Copy"),
        "drop": ("drop", "Shop"),
        "import": ("category", "import", "Many", "--type", "character", path("names.txt")),
        "run into a file": ("generate", "Shop", INSERTS, "--file", path("out.sql"), "--format", "Oracle"),
        "run into a database": ("generate", "Shop", INSERTS, "--database"),
        "delete": ("generate", "Shop", DELETES, "--database"),
    }


def damaged_files(installation):
    return {"repository": installation.repository(), "values": installation.values(),
            "target": installation.path("shop.mdb"),
            "working database": installation.path("databases", "Shop.dbs", f"{INSERTS}.tso", "TestData.mdb")}


# What another process or the disk may have done to a file. Each takes the path and a stream of random numbers.

def truncated(path, random):
    size = os.path.getsize(path)
    length = random.choice([0, 1, 15, 16, 99, 100, 512, 4095, 4096, 8192, size // 2, size - 4096, size - 1])
    os.truncate(path, max(0, min(length, size)))
    return f"to {length} bytes"


def overwrite(path, offset, content):
    with open(path, "r+b") as file:
        file.seek(offset)
        file.write(content)


def garbage_pages(path, random):
    pages = max(1, os.path.getsize(path) // 4096)
    chosen = sorted(random.sample(range(pages), min(pages, random.choice([1, 2, 5, 20]))))
    for page in chosen:
        overwrite(path, page * 4096, random.randbytes(4096))
    return f"at pages {chosen}"


def zeroed_pages(path, random):
    pages = max(1, os.path.getsize(path) // 4096)
    chosen = sorted(random.sample(range(pages), min(pages, random.choice([1, 3]))))
    for page in chosen:
        overwrite(path, page * 4096, bytes(4096))
    return f"at pages {chosen}"


def all_garbage(path, random):
    with open(path, "wb") as file:
        file.write(random.randbytes(random.choice([10, 5000, 100000])))
    return ""


def newer_format(path, _random):
    overwrite(path, 18, bytes([9, 9]))  # the versions of the engine that may write and read it
    return ""


def missing(path, _random):
    os.remove(path)
    return ""


def a_folder(path, _random):
    os.remove(path)
    os.mkdir(path)
    return ""


def another_database(path, _random):
    os.remove(path)
    database = sqlite3.connect(path)
    with database:
        database.execute("create table Other (Id INTEGER)")
    database.close()
    return ""


DAMAGES = (truncated, garbage_pages, zeroed_pages, all_garbage, newer_format, missing, a_folder,
           another_database)


def store_dump(path):
    try:
        return checks.dump(path)
    except sqlite3.Error:
        return None


def names_the_thing(text, installation):
    """A file, the table that isn't in it, or the step that the system's own words name."""
    words = (installation.folder, "Vellumark repository", "no such table: ", "fDatabase_Connect_Main")
    return any(word in text for word in words)


def try_commands(installation, kind, detail, allowed, report, prepare, prefix=()):
    """Runs the commands; `allowed(outcome, command)` gives what is wrong with how it ended."""
    every = commands(installation)
    for name in every if report.thorough else report.random.sample(list(every), 2):
        words = every[name]
        installation.restore()
        told = prepare()
        outcome = installation.run(words, prefix=prefix)
        faults = outcome.complaints() + allowed(outcome, name)
        if outcome.status == 1 and not names_the_thing(outcome.err, installation):
            faults.append(f"the message names nothing: {outcome.err}")
        report.add(kind, detail, outcome, None, faults, f"{told} ({name})")


def damage(installation, count, random, report):
    for detail, path in damaged_files(installation).items():
        for what in DAMAGES:
            for _ in range(max(1, count // 100) if what in (truncated, garbage_pages) else 1):
                def prepare(path=path, what=what):
                    shutil.copy(installation.values(), path) if not os.path.exists(path) else None
                    return what(path, random)

                def others_stay(_outcome, name, spoiled=path):
                    stays = {"repository": name not in ("read", "copy", "drop"),
                             "values": name != "import"}
                    return [f"the {store} changed" for store, stay in stays.items()
                            if stay and damaged_files(installation)[store] != spoiled
                            and store_dump(damaged_files(installation)[store]) != good[store]]
                installation.restore()
                good = {store: checks.dump(damaged_files(installation)[store])
                        for store in ("repository", "values")}
                try_commands(installation, what.__name__.replace("_", " "), detail, others_stay, report,
                             prepare)


def set_level(installation, level):
    database = checks.connect(installation.repository())
    with database:
        database.execute("update [Schema] set [Repository Version Number] = ?", (level,))
    database.close()


def levels(installation, report):
    for level in (0, 1, 3, 99):
        def prepare(level=level):
            set_level(installation, level)
            return f"level {level}"
        must_fail = level > 2
        try_commands(installation, "newer level" if must_fail else "older level", "repository",
                     lambda outcome, _, wrong=must_fail: ["it was used"] if wrong and outcome.status == 0 else [],
                     report, prepare)


def lock(installation, report):
    for detail, path in damaged_files(installation).items():
        if detail == "working database":
            continue
        holders = []

        def prepare(path=path, holders=holders):
            holders.append(sqlite3.connect(path, isolation_level=None))
            holders[-1].execute("begin exclusive")
            return ""

        def unchanged(outcome, _, holders=holders):
            for holder in holders:
                holder.close()
            holders.clear()
            return [fault for store in (installation.repository(), installation.values())
                    for fault in checks.is_intact(store)] + \
                   (["no word of the lock"] if outcome.status == 1 and
                    "being changed by another program" not in outcome.err else [])
        try_commands(installation, "locked", detail, unchanged, report, prepare)


def open_to_all(installation):
    for folder, _, files in os.walk(installation.folder):
        os.chmod(folder, 0o777)
        for name in files:
            os.chmod(os.path.join(folder, name), 0o666)


def read_only(installation, report):
    """A user who may read but not write: the store alone, or its folder too."""
    prefix = NOBODY if os.geteuid() == 0 else ()
    os.chmod(installation.base, 0o755)
    for detail, path in damaged_files(installation).items():
        for folder_too in (False, True):
            if detail == "working database":
                continue

            def prepare(path=path, folder_too=folder_too):
                open_to_all(installation)
                os.chmod(path, 0o444)
                if folder_too:
                    os.chmod(installation.folder, 0o555)
                return "with its folder" if folder_too else "alone"

            def back(_outcome, _name):
                os.chmod(installation.folder, 0o755)
                return [fault for store in (installation.repository(), installation.values())
                        for fault in checks.is_intact(store)]
            try_commands(installation, "read-only", detail, back, report, prepare, prefix)


def immutable(installation, report):
    """A file that not even root may change."""
    for detail, path in damaged_files(installation).items():
        if detail == "working database":
            continue

        def prepare(path=path):
            subprocess.run(["chattr", "+i", path], capture_output=True, check=False)
            return ""

        def back(_outcome, _name, path=path):
            subprocess.run(["chattr", "-i", path], capture_output=True, check=False)
            return [fault for store in (installation.repository(), installation.values())
                    for fault in checks.is_intact(store)]
        try_commands(installation, "immutable", detail, back, report, prepare)


def missing_folders(installation, report):
    for detail, names in (("settings file", ("Vellumark.INI",)), ("folder of schemas", ("databases",)),
                          ("folder of a schema", ("databases", "Shop.dbs")),
                          ("folder of a Scenario", ("databases", "Shop.dbs", f"{INSERTS}.tso"))):
        def prepare(names=names):
            path = installation.path(*names)
            os.remove(path) if os.path.isfile(path) else shutil.rmtree(path)
            return ""
        try_commands(installation, "missing", detail, lambda *_: [], report, prepare)


def spoil_stores(installation, count, random, report):
    damage(installation, count, random, report)
    levels(installation, report)
    lock(installation, report)
    read_only(installation, report)
    if os.geteuid() == 0:
        immutable(installation, report)
    missing_folders(installation, report)
