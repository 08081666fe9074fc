#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"
#include "platform/dao/database.h"
#include "platform/dao/insert_text.h"
#include "platform/dao/stored_date.h"

namespace vellumark::dao {

// Executes statements that others wrote. Text for a Date column of the embedded database is brought to the
// stored form. A row of the same insert as the one before costs no preparing. Must not outlive the database.
class TextRunner {
 public:
    explicit TextRunner(const Database& database) : database_(database) {}

    // Throws what Database::Execute throws.
    void Execute(std::string_view statement);

 private:
    bool Prepare(std::string_view statement);
    void ReadDateForms(const InsertHead& head);
    bool BindValues(std::string_view values);
    void BindText(int column, const Literal& literal);

    const Database& database_;
    std::string head_;  // of the prepared insert
    std::optional<Statement> insert_;
    std::vector<DateForm> dateForms_;  // of its columns
    std::vector<std::string> texts_;   // values that don't stand in the statement as they are
};

// The rows of one statement that others wrote, of whatever kind. One without rows is executed as TextRunner
// does it, and the cursor has no fields.
std::unique_ptr<platform::Cursor> OpenText(const Database& database, std::string_view statement);

}  // namespace vellumark::dao
