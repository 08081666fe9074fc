#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"
#include "schema/modDatabaseConnection.h"

// SQL that the user wrote, run as it stands on an open connection.
namespace vellumark {

// Where the rows of a statement go, one at a time as they come.
class SQLRowSink {
 public:
    virtual ~SQLRowSink() = default;

    // Once, before the rows; not called for a statement that has only its effect.
    virtual void TakeFields(const std::vector<std::string>& names) = 0;
    // Whether to go on. The row is valid during the call.
    virtual bool TakeRow(const platform::Cursor& row) = 0;
};

enum class SQLOutcome {
    Rows,     // all of them have been taken; there may be none
    Done,     // the statement had its effect and has no rows
    Stopped,  // the sink had enough
    Failed,   // rows before the failure have been taken
};

struct SQLResult {
    SQLOutcome outcome = SQLOutcome::Done;
    std::size_t rowCount = 0;  // rows taken
    int errorNumber = 0;
    std::string errorDescription;

    // "SQL statement processed", "Error 3075: ..." or, behind rows, nothing.
    std::string Line() const;
};

// Sends the text once, as one statement; what several statements in it mean is for the database to decide.
// `protocol` is 'A' or 'D'. A failure of the database's comes back in the result; what the sink throws as
// platform::Error does too.
SQLResult RunSQL(const OpenConnections& connections, char protocol, std::string_view text, SQLRowSink& sink);

}  // namespace vellumark
