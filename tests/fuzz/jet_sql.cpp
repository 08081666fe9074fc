#include "platform/dao/jet_sql.h"

#include "input.h"
#include "memory_database.h"
#include "platform/error.h"
#include "platform/text.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

using dao::Database;

void CheckTextInQuotes(const Database& database, std::string_view text) {
    if (text.find('\0') != text.npos)
        return;
    for (const char* quote : {"\"", "'"}) {
        const std::string doubled = platform::Replace(text, quote, std::string(quote) + quote);
        const std::string sql = std::string("select ") + quote + doubled + quote + " as [a]";
        ExpectSame(database.OpenRecordset(sql).Text("a"), text, "a text in quotes");
    }
}

void CheckName(const Database& database, std::string_view name) {
    if (name.empty() || name.find('\0') != name.npos)
        return;
    const dao::Statement statement = database.Prepare("select 1 as " + dao::Bracketed(name));
    ExpectSame(statement.ColumnName(0), name, "a name in brackets");
}

void Run(const Database& database, const std::string& sql) {
    const dao::Transaction neverCommitted(database);
    try {
        if (!dao::IsSelect(sql))
            return database.Execute(sql);
        const auto rows = database.OpenCursor(sql);
        for (int count = 0; count < 100 && rows->Next(); ++count)
            for (std::size_t field = 0; field < rows->FieldNames().size(); ++field)
                rows->Text(field);
    } catch (const platform::Error& error) {
        Expect(!error.Description().empty(), "a reason");
    }
}

// Statements that are neither begun nor ended by hand.
bool StaysInTransaction(std::string_view sql) {
    for (const char* word : {"commit", "rollback", "end", "release", "savepoint", "begin"})
        if (platform::ContainsIgnoringCase(sql, word))
            return false;
    return true;
}

}  // namespace

// A line of any text, and a statement in the data engine's dialect.
void FuzzJetSql(std::string_view bytes) {
    static const MemoryDatabase memory(
        "create table [Order Line] ([Id] LONG primary key, [Name] TEXT(20), [Paid] YESNO, [On] DATE);"
        "insert into [Order Line] values (1, 'it''s', -1, '2001-02-03'), (2, 'a*b', 0, null)");
    Input input(bytes);
    const std::string text(input.Line());
    const std::string sql(input.Rest());
    CheckTextInQuotes(memory.database, text);
    CheckName(memory.database, text);
    const std::string translated = dao::TranslateJetSql(sql);
    Expect(translated.size() <= 2 * sql.size() + 2, "a translation is not much longer");
    ExpectSame(dao::TranslateJetSql(translated), translated, "a translation needs none");
    if (StaysInTransaction(sql))
        Run(memory.database, sql);
}

}  // namespace vellumark::fuzz
