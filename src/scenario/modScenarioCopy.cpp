#include "scenario/modScenarioCopy.h"

#include <string>
#include <string_view>
#include <vector>

#include "repository/modVellumark.h"
#include "scenario/modRowCopy.h"

namespace vellumark {

namespace {

using FieldNames = std::vector<std::string_view>;

const FieldNames kConnectionFields = {
    "Database",
    "DSN",
    "MDB File",
    "Password",
    "UserId",
    "Server",
    "Owner",
    "Access Method",
    "Type",
    "Description",
    "Table",
    "Column",
    "Connection String",
    "Flag VM Connection String",
    "VB Data Access Objects",
    "Ignore Table Prefix",
    "Ignore Owner Prefix",
};

// Without the row's own end cell and its Conversion Code, which a copy loses.
const FieldNames kValueSourceFields = {
    "Id",
    "Type",
    "Name and Path",
    "Sheet",
    "Start from Column",
    "End at Column",
    "Start from Row",
    "End at Row",
    "Delimited Field Number",
    "If End of File",
    "Sheet End of File",
    "Read File Order",
    "Delimiter",
    "File Read Interval",
    "File Read Hold Frequency",
    "Code Input Datetime Edit Pattern",
    "Code Input Value In Quotes",
    "Status",
    "FK CAT Id",
    "FK TCR Id",
    "FK TTR Id",
    "FK COL Id",
    "FK TAB Id",
    "FK DBS Id",
};

struct CopiedTable {
    std::string_view name;
    FieldNames fields;
};

const std::vector<CopiedTable> kCopiedTables = {
    {"resolver TTR dependency",
     {"Id", "FK DBS Id", "FK Child TTR Id", "FK Child TAB Id", "FK Child COL Id", "FK Parent TTR Id",
      "FK Parent TAB Id", "FK Parent COL Id", "Increment parent count", "Quantity children per parent"}},
    {"TSO Insert Column Rule",
     {"Id",
      "Code Generate Data Type",
      "Flag Exclude",
      "Flag column unique",
      "Flag compound column unique",
      "Constant Value",
      "Status",
      "Fill the column",
      "Concat Value with Id",
      "generated value too large",
      "date time increment",
      "Code Output Datetime Edit Pattern",
      "flag user defined foreign key",
      "Code Output Textfile in Quotes",
      "Char Output Textfile in Quotes",
      "Sort Order",
      "Start Range",
      "End Range",
      "Range order",
      "FK TTR Id",
      "FK TAB Id",
      "FK DBS Id",
      "FK COL Id"}},
    {"TSO Insert Table Rule",
     {"Id", "Flag use generated data", "Quantity", "Retry Count Data Unique", "Start Range", "End Range",
      "Range order", "Status", "Sort order", "FK TAB Id", "FK DBS Id"}},
    {"TSO Delete Table Rule", {"Id", "Where Clause", "Sort order", "Status", "FK TAB Id", "FK DBS Id"}},
    {"resolver Test Scenario Table", {"FK TAB Id", "FK DBS Id"}},
};

dao::Recordset RowsOf(std::string_view table, int scenarioId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [" + std::string(table) + "] where [FK DBS Id] = ? and [FK TSO Id] = ?",
        {CurrentDBSId, scenarioId});
}

// The Id of a new row that equals the connection, or 0 when it is gone.
int DuplicateConnection(int id) {
    const dao::Recordset source =
        RepositoryDatabase.OpenRecordset("select * from [Database Connection] where [Id] = ?", {id});
    if (source.IsEOF())
        return 0;
    const int newId = NextId(RepositoryDatabase, "select max([Id]) from [Database Connection]");
    dao::Recordset target = RepositoryDatabase.OpenForAppend("Database Connection");
    target.AddNew();
    target.Set("Id", newId);
    CopyFields(source, target, kConnectionFields);
    target.Update();
    return newId;
}

void CopyValueSources(int sourceTSOId, int targetTSOId) {
    dao::Recordset sources = RowsOf("Value Source", sourceTSOId);
    dao::Recordset targets = RepositoryDatabase.OpenForAppend("Value Source");
    for (; !sources.IsEOF(); sources.MoveNext()) {
        const int connectionId = sources.Long("FK CON Id");
        const int ownConnection = connectionId > 0 ? DuplicateConnection(connectionId) : 0;
        targets.AddNew();
        CopyFields(sources, targets, kValueSourceFields);
        targets.Set("Column end Cell", sources.Get("End at Column"))
            .Set("FK CON Id", ownConnection)
            .Set("FK TSO Id", targetTSOId);
        targets.Update();
    }
}

void CopyTable(const CopiedTable& table, int sourceTSOId, int targetTSOId) {
    dao::Recordset sources = RowsOf(table.name, sourceTSOId);
    dao::Recordset targets = RepositoryDatabase.OpenForAppend(table.name);
    for (; !sources.IsEOF(); sources.MoveNext()) {
        targets.AddNew();
        CopyFields(sources, targets, table.fields);
        targets.Set("FK TSO Id", targetTSOId);
        targets.Update();
    }
}

}  // namespace

void CopyScenarioRows(int sourceTSOId, int targetTSOId) {
    CopyValueSources(sourceTSOId, targetTSOId);
    for (const CopiedTable& table : kCopiedTables)
        CopyTable(table, sourceTSOId, targetTSOId);
}

}  // namespace vellumark
