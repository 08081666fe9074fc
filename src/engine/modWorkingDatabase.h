#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/columnPlan.h"
#include "platform/dao/database.h"

// The Working database TestData.mdb in the Scenario's folder: for one run, the values of those columns that
// are looked at again.
namespace vellumark {

// True when a Dependency or a unique column of the current Scenario needs it. The Repository is open.
bool WorkingDatabaseNeeded();

// Makes the file anew with a table for each table of the Scenario that has such columns. False behind a
// message.
bool fCreateTestDataDB(TargetFormat format);

std::string WorkingDatabasePath();

// The name of a table there.
std::string WorkingTableName(std::string_view owner, std::string_view name);

// The rows that one Table rule keeps, in their order: its row n has the key `firstKey` + n - 1.
struct WorkingRows {
    std::int64_t firstKey = 0;
    int count = 0;
};

// The open Working database of a run. All its changes are one transaction until Commit.
class WorkingDatabase {
 public:
    WorkingDatabase();

    const dao::Database& Store() const { return store_; }
    void Commit();

    // What that rule has kept; nothing for a rule without kept columns.
    std::optional<WorkingRows> RowsOf(int ruleId) const;
    void Keep(int ruleId, const WorkingRows& rows) { rows_[ruleId] = rows; }

 private:
    dao::Database store_;
    std::optional<dao::Transaction> transaction_;
    std::map<int, WorkingRows> rows_;
};

// Writes the rows of one Table rule.
class WorkingWriter {
 public:
    WorkingWriter(WorkingDatabase& database, const TablePlan& table);

    // The values in the order of the plan's columns, valid until AddRow.
    void Set(std::size_t column, std::string_view value) {
        insert_.BindUnowned(static_cast<int>(column), value);
    }
    void AddRow();
    // Tells the database what the rule has kept.
    void Finish() { database_.Keep(ruleId_, rows_); }

 private:
    WorkingDatabase& database_;
    int ruleId_;
    int idParameter_;
    dao::Statement insert_;
    WorkingRows rows_;
};

// Reads columns of the rows that one Table rule kept, in their order.
class WorkingReader {
 public:
    WorkingReader(const WorkingDatabase& database, const TablePlan& table,
                  const std::vector<std::string>& columns);

    // Goes to the next row; false behind the last.
    bool Next() { return rows_.Step(); }
    // Valid until Next.
    std::string_view Value(std::size_t column) const { return rows_.ColumnText(static_cast<int>(column)); }

 private:
    dao::Statement rows_;
};

}  // namespace vellumark
