"""The definitions that are maltreated, and the operations during which it happens."""
import sqlite3
from dataclasses import dataclass

INSERTS, DELETES = "Scenario to create data", "Scenario to delete data"
TABLES, COLUMNS, RULES = 40, 12, 8
ROWS = 3000


@dataclass(frozen=True)
class Operation:
    name: str
    words: tuple
    # What it fills beside the stores: a file or an embedded database below the installation, or nothing.
    output: str = ""
    # Whether the definitions must stay as they were.
    only_runs: bool = False


def table_sql(number, columns):
    parent = f", Up INTEGER references T{number // 2} (Id)" if number else ""
    texts = "".join(f", C{column} VARCHAR(20)" for column in range(columns))
    return f"create table T{number} (Id INTEGER primary key{texts}{parent})"


def schema_sql(changed=False):
    """The tables of the database; in the changed one some are gone, some new and some have other columns."""
    numbers = range(TABLES + 10) if changed else range(TABLES)
    return [table_sql(number, COLUMNS + (number % 3 - 1 if changed else 0)) for number in numbers]


def make_database(path, statements):
    database = sqlite3.connect(path)
    with database:
        for sql in statements:
            database.execute(sql)
    database.close()


def build(installation):
    """Makes the template: two schemas, and a Scenario with rules, Dependencies and Value Sources."""
    vm, path = installation.must, installation.path
    vm("init")
    for name, changed in (("shop.mdb", False), ("now.mdb", True)):
        make_database(path(name), schema_sql(changed))
    with open(path("names.txt"), "w", encoding="utf-8") as file:
        file.write("".join(f"Name {number}\n" for number in range(3000)))
    vm("read", "Shop", "--type", "Jet", "--mdb", path("shop.mdb"), "--protocol", "dao")
    vm("read", "Now", "--type", "Jet", "--mdb", path("now.mdb"))
    for table in range(RULES):
        vm("rule", "add", "Shop", INSERTS, f"T{table}", "--start", "1", "--end", str(ROWS))
    for rule in range(2, RULES + 1):
        vm("depend", "Shop", INSERTS, "--child", f"{rule}.Up", "--parent", str((rule - 1) // 2 + 1))
    vm("source", "Shop", INSERTS, "1", "C1", "--kind", "category", "--category", "Last names")
    vm("source", "Shop", INSERTS, "2", "C2", "--kind", "delimited", "--file", path("names.txt"))
    vm("source", "Shop", INSERTS, "3", "C3", "--kind", "database", "--type", "Jet", "--mdb", path("now.mdb"),
       "--table", "T1", "--source-column", "C1")
    vm("column", "Shop", INSERTS, "3", "C3", "Code Generate Data Type=D")
    vm("scenario", "copy", "Shop", INSERTS, "To be gone")
    vm("rule", "add", "Shop", DELETES, f"T{RULES - 1}")
    installation.keep_as_template()


def operations(installation):
    path = installation.path
    read = ("read", "New", "--type", "Jet", "--mdb", path("now.mdb"))
    return [
        Operation("read, ADO", read),
        Operation("read, DAO", (*read, "--protocol", "dao")),
        Operation("copy a Scenario", ("scenario", "copy", "Shop", INSERTS, "Copy")),
        Operation("merge", ("merge", "Now", "Shop", "--log", path("log.txt"))),
        Operation("version control", ("version-control", "Now", "Shop", "--log", path("log.txt"))),
        Operation("drop a schema", ("drop", "Shop")),
        Operation("delete a Scenario", ("scenario", "delete", "Shop", "To be gone")),
        Operation("rename a Scenario", ("scenario", "rename", "Shop", "To be gone", "Renamed")),
        Operation("new Scenario", ("scenario", "new", "Shop", "Fresh")),
        Operation("add a rule", ("rule", "add", "Shop", INSERTS, "T20")),
        Operation("set a column", ("column", "Shop", INSERTS, "4", "C1", "Constant Value=x", "Range order=R")),
        Operation("set a Dependency", ("depend", "Shop", INSERTS, "--child", "5.Up", "--parent", "new")),
        Operation("set a Value Source", ("source", "Shop", INSERTS, "5", "C4", "--kind", "database", "--type",
                                         "Jet", "--mdb", path("now.mdb"), "--table", "T2",
                                         "--source-column", "C2")),
        Operation("set a connection", ("connect", "Shop", "--type", "Jet", "--mdb", path("now.mdb"))),
        Operation("import a Category", ("category", "import", "Many", "--type", "character",
                                        path("names.txt"))),
        Operation("run into a file", ("generate", "Shop", INSERTS, "--file", path("out.sql"), "--format",
                                      "Oracle"), path("out.sql"), True),
        Operation("run into a database", ("generate", "Shop", INSERTS, "--database"), path("shop.mdb"), True),
        Operation("delete from a database", ("generate", "Shop", DELETES, "--database"), path("shop.mdb"),
                  True),
        Operation("first start", ("init",)),
    ]


FIRST_START = "first start"
