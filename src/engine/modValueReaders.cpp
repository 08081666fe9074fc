#include "engine/modValueReaders.h"

#include <array>
#include <string_view>

#include "platform/dialogs.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

struct SourceKind {
    std::string_view type;
    std::string_view atEnd;
    std::string_view atError;
};

constexpr std::array<SourceKind, 5> kKinds = {{
    {"V", "No more data found when reading Generic Value for ", "Error occurred reading Generic Value for "},
    {"D", "End of File occurred reading values from a Delimited Text File for ",
     "Error occurred reading values from a Delimited Text File for "},
    {"P", "End Of File occurred reading values from a Positional Text File for ",
     "Error occurred reading values from a Positional Text File for "},
    {"X", "End Of File occurred reading values from an Excel Spreadsheet for ",
     "Error occurred reading values from an Excel Spreadsheet for "},
    {"O", "No more data found when reading values from an Other Database for ",
     "Error occurred reading values from an Other Database for "},
}};

// Says why there is no value. A type that nobody knows says nothing.
void ShowReadingFailure(const ReaderColumn& column, std::string_view type) {
    for (const SourceKind& kind : kKinds)
        if (kind.type == type)
            platform::ShowCritical(std::string(ReadEndMarker == "EOF" ? kind.atEnd : kind.atError) +
                                   "\n\nTable: " + column.tableName + "\nColumn: " + column.columnName);
}

class MissingSource : public ValueReader {
 public:
    explicit MissingSource(const ReaderColumn& column)
        : tableId_(column.tableId), columnName_(column.columnName) {}

    bool fGetAlternateValue(int, std::string&) override {
        platform::ShowExclamation("Error: Cannot find [Value Source] for Table: " + std::to_string(tableId_) +
                                  " Column: " + columnName_);
        return false;
    }

 private:
    int tableId_;
    std::string columnName_;
};

class UnreadableSource : public ValueReader {
 public:
    UnreadableSource(const ReaderColumn& column, std::string type)
        : column_(column), type_(std::move(type)) {}

    bool fGetAlternateValue(int, std::string&) override {
        ShowReadingFailure(column_, type_);
        return false;
    }

 private:
    ReaderColumn column_;
    std::string type_;
};

dao::Recordset OpenSource(const ReaderColumn& column) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Value Source] where [FK TCR Id] = ? and [FK TTR Id] = ? and [FK COL Id] = ?"
        " and [FK TAB Id] = ? and [FK DBS Id] = ? and [FK TSO Id] = ?",
        {column.columnRuleId, column.tableRuleId, column.columnId, column.tableId, CurrentDBSId,
         CurrentTSOId});
}

}  // namespace

std::unique_ptr<ValueReader> MakeValueReader(const ReaderColumn& column) {
    const dao::Recordset source = OpenSource(column);
    if (source.IsEOF())
        return std::make_unique<MissingSource>(column);
    return std::make_unique<UnreadableSource>(column, source.Text("Type"));
}

}  // namespace vellumark
