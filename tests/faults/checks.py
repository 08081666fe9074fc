"""What must hold in the stores and folders after whatever was done to the program."""
import os
import re
import sqlite3

# Columns that any start, open or run writes; they tell nothing about the definitions.
VOLATILE = {
    "Schema": {"Date Installed", "Date Last Executed", "Number of Executions"},
    "Database": {"DateTime Last Accessed"},
}
# Marks and reading states, which each run makes anew.
RUN_STATE = re.compile(r"^(Status|temp .*)$", re.IGNORECASE)

# The table behind the abbreviation in a column FK ... Id, and the abbreviations that complete its key.
PARENTS = {
    "DBS": ("Database", ()),
    "CON": ("Database Connection", ()),
    "TAB": ("Table", ("DBS",)),
    "COL": ("Column", ("DBS", "TAB")),
    "TSO": ("Test Scenario", ("DBS",)),
    "TTR": ("TSO Insert Table Rule", ("DBS", "TSO")),
    "TCR": ("TSO Insert Column Rule", ("DBS", "TSO", "TTR")),
    "CAT": ("Category", ()),
    "VLE": ("Value", ("CAT",)),
    "CNV": ("Conversion Code", ()),
}
LINK = re.compile(r"^FK (?:(\w+) )?(\w{3}) Id\b", re.IGNORECASE)


def connect(path):
    return sqlite3.connect(f"file:{path}?mode=rw", uri=True, timeout=5)


def tables_of(database):
    return [name for name, in database.execute("select name from sqlite_master where type = 'table'")]


def columns_of(database, table):
    return [row[1] for row in database.execute(f"pragma table_info([{table}])")]


def dump(path):
    """All rows of a store as a comparable value; None where there is no store."""
    if not os.path.exists(path):
        return None
    database = connect(path)
    try:
        found = {}
        for table in tables_of(database):
            kept = [f"[{name}]" for name in columns_of(database, table)
                    if name not in VOLATILE.get(table, ()) and not RUN_STATE.match(name)]
            found[table] = sorted(database.execute(f"select {', '.join(kept)} from [{table}]"), key=repr)
        return found
    finally:
        database.close()


def is_intact(path):
    """What the store itself says is wrong with it."""
    if not os.path.exists(path):
        return []
    try:
        database = connect(path)
        try:
            result = [text for text, in database.execute("pragma integrity_check")]
            broken = list(database.execute("pragma foreign_key_check"))
        finally:
            database.close()
    except sqlite3.Error as error:
        return [f"{os.path.basename(path)}: {error}"]
    name = os.path.basename(path)
    return [f"{name}: {text}" for text in result if text != "ok"] + \
           [f"{name}: {len(broken)} rows without their parent" for _ in broken[:1]]


def key_columns(columns, role, abbreviation):
    """Pairs of the parent's key column and the child's column that names it."""
    def named(part):
        wanted = [f"FK {prefix}{part} Id" for prefix in (f"{abbreviation} ", f"{role} " if role else "", "")]
        known = {column.lower(): column for column in columns}
        return next(known[name.lower()] for name in wanted if name.lower() in known)
    return [(f"FK {part} Id", named(part)) for part in PARENTS[abbreviation][1]]


def orphans(repository, values):
    """Rows whose FK ... Id column leads nowhere, and connections that nobody owns."""
    database = connect(repository)
    found = []
    try:
        database.execute("attach ? as v", (values,))
        for schema in ("main", "v"):
            tables = [name for name, in
                      database.execute(f"select name from {schema}.sqlite_master where type = 'table'")]
            for table in tables:
                found += orphans_in(database, schema, table)
        used = " union ".join(f"select [{column}] from [{table}]" for table, column in
                              (("Database", "FK CON Id Source"), ("Database", "FK CON Id Target"),
                               ("Value Source", "FK CON Id")))
        count, = database.execute(
            f"select count(*) from [Database Connection] where [Id] not in ({used})").fetchone()
        return found + ([f"{count} connections that nobody uses"] if count else [])
    finally:
        database.close()


def orphans_in(database, schema, table):
    columns = [row[1] for row in database.execute(f"pragma {schema}.table_info([{table}])")]
    found = []
    for column in columns:
        match = LINK.match(column)
        if not match or match[2].upper() not in PARENTS:
            continue
        role, abbreviation = match[1] or "", match[2].upper()
        parent = PARENTS[abbreviation][0]
        keys = "".join(f" and p.[{of_parent}] = c.[{of_child}]"
                       for of_parent, of_child in key_columns(columns, role, abbreviation))
        count, = database.execute(
            f"select count(*) from {schema}.[{table}] c where coalesce(c.[{column}], 0) <> 0 and not exists"
            f" (select 1 from [{parent}] p where p.[Id] = c.[{column}]{keys})").fetchone()
        if count:
            found.append(f"{count} rows of [{table}] whose [{column}] leads nowhere")
    return found


def folder_faults(installation):
    """Schemas and Scenarios without their folder, and folders that belong to none."""
    database = connect(installation.repository())
    try:
        rows = database.execute("select d.[Name], s.[Name] from [Database] d left join [Test Scenario] s"
                                " on s.[FK DBS Id] = d.[Id] and s.[Id] > 0").fetchall()
    finally:
        database.close()
    root = installation.path("databases")
    wanted = {}
    for schema, scenario in rows:
        wanted.setdefault(f"{schema}.dbs".lower(), set()).update([f"{scenario}.tso".lower()] if scenario else [])
    found = []
    for schema, scenarios in wanted.items():
        folder = next((name for name in os.listdir(root) if name.lower() == schema), None)
        present = {name.lower() for name in os.listdir(os.path.join(root, folder))} if folder else set()
        found += [] if folder else [f"no folder {schema}"]
        found += [f"no folder {name}" for name in scenarios - present]
        found += [f"folder {name} belongs to no Scenario" for name in present - scenarios if ".tso" in name]
    return found
