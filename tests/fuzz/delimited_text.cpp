#include "platform/delimited_text.h"

#include <algorithm>
#include <sstream>

#include "input.h"
#include "memory_database.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modJetTextDriver.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

using Rows = std::vector<std::vector<std::string>>;

struct Reading {
    Rows rows;
    bool complete = false;  // no error ended it
};

Reading Read(const std::string& text, std::string_view delimiter) {
    Reading reading;
    try {
        std::istringstream stream(text);
        platform::DelimitedReader reader(stream, delimiter);
        while (reader.ReadRow()) {
            auto& row = reading.rows.emplace_back();
            for (const platform::DelimitedField& field : reader.Fields())
                row.push_back(field.text);
            Expect(!row.empty(), "a row has a field");
            Expect(reader.LineNumber() >= reader.RowNumber(), "a row has a line");
        }
        reading.complete = true;
    } catch (const platform::Error&) {
    }
    return reading;
}

std::string Written(const Rows& rows, std::string_view delimiter) {
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            text.append(i == 0 ? "" : delimiter)
                .append("\"" + platform::Replace(row[i], "\"", "\"\"") + "\"");
        text += "\r\n";
    }
    return text;
}

void CheckLoad(const std::string& text, std::string_view delimiter, const Reading& reading) {
    static const MemoryDatabase memory(
        "create table [T] ([Id] LONG, [Name] TEXT(10) not null, [Born] DATE, [At] DATETIME, [Price] "
        "CURRENCY, "
        "[Weight] DOUBLE, [Yes] YESNO, [Note] MEMO)");
    static const dao::TableDef table = memory.database.TableDefinition("T");
    const dao::Transaction neverCommitted(memory.database);
    const auto count = [] { return dao::ToLong(memory.database.Lookup("select count(*) from [T]")); };
    try {
        std::istringstream stream(text);
        const int rows = AppendDelimitedText(memory.database, table, stream, delimiter);
        Expect(reading.complete, "what can't be read can't be loaded");
        Expect(rows == count(), "each row is in the table");
    } catch (const platform::Error& error) {
        Expect(!error.Description().empty(), "a reason");
    }
    SchemaIni(table, "in.txt", delimiter);
}

}  // namespace

// The delimiter, a line of its own, and the text.
void FuzzDelimitedText(std::string_view bytes) {
    Input input(bytes);
    const std::string delimiter(platform::LeftCharacters(input.Line(), 1));
    const std::string text(input.Rest());
    const Reading first = Read(text, delimiter);
    if (first.complete) {
        const Reading second = Read(Written(first.rows, delimiter), delimiter);
        Expect(second.complete && second.rows == first.rows, "fields written in quotes and read");
    }
    CheckLoad(text, delimiter, first);
}

}  // namespace vellumark::fuzz
