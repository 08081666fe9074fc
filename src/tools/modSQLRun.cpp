#include "tools/modSQLRun.h"

#include <memory>

#include "platform/dao/jet_sql.h"
#include "platform/dao/text_runner.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark {

namespace {

// As a recordset, a table's name alone stands for its rows.
std::string RecordsetSource(const dao::Database& database, std::string_view text) {
    const std::string_view name = platform::Trim(text);
    return database.IsEmbedded() && database.HasTable(name) ? "select * from " + dao::Bracketed(name)
                                                            : std::string(text);
}

std::unique_ptr<platform::Cursor> Open(const OpenConnections& connections, char protocol,
                                       std::string_view text) {
    if (protocol == 'A')
        return connections.ado.OpenRecordset(text);
    return dao::OpenText(connections.dao, RecordsetSource(connections.dao, text));
}

void TakeRows(platform::Cursor& rows, SQLRowSink& sink, SQLResult& result) {
    sink.TakeFields(rows.FieldNames());
    result.outcome = SQLOutcome::Rows;
    while (rows.Next()) {
        ++result.rowCount;
        if (!sink.TakeRow(rows)) {
            result.outcome = SQLOutcome::Stopped;
            return;
        }
    }
}

}  // namespace

std::string SQLResult::Line() const {
    if (outcome == SQLOutcome::Failed)
        return "Error " + std::to_string(errorNumber) + ": " + errorDescription;
    return outcome == SQLOutcome::Done ? "SQL statement processed" : "";
}

SQLResult RunSQL(const OpenConnections& connections, char protocol, std::string_view text, SQLRowSink& sink) {
    SQLResult result;
    try {
        const std::unique_ptr<platform::Cursor> rows = Open(connections, protocol, text);
        if (!rows->FieldNames().empty())
            TakeRows(*rows, sink, result);
    } catch (const platform::Error& error) {
        result.outcome = SQLOutcome::Failed;
        result.errorNumber = error.Number();
        result.errorDescription = error.Description();
    }
    return result;
}

}  // namespace vellumark
