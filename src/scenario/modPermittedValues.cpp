#include "scenario/modPermittedValues.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modTargetFormats.h"
#include "repository/modValuesStore.h"
#include "repository/modVellumark.h"
#include "schema/modCOOLGenFiles.h"

namespace vellumark {

namespace {

constexpr int kLastRow = 999999999;
constexpr std::size_t kNumberLength = 4;

struct Column {
    int tableId;
    int columnId;
    int tableRuleId;
    int columnRuleId;
    char categoryType;
};

// The names of the Categories that models have brought so far.
class CategoryNames {
 public:
    CategoryNames() {
        dao::Recordset rows =
            ValuesDatabase.OpenRecordset("select [Name] from [Category] where [Type] = 'C'");
        for (; !rows.IsEOF(); rows.MoveNext())
            names_.insert(platform::ToLower(rows.Text("Name")));
    }

    // A new name for a column's Category, which counts from then on.
    std::string Next(std::string_view table, std::string_view column) {
        const std::string name = std::string(table) + " " + platform::ToLower(column);
        for (int number = NumberOf(LastStartingWith(platform::ToLower(name))) + 1;; ++number) {
            char text[16];
            std::snprintf(text, sizeof text, " %04d", number);
            if (names_.insert(platform::ToLower(name) + text).second)
                return name + text;
        }
    }

 private:
    // A longer column name counts as well.
    std::string_view LastStartingWith(const std::string& start) const {
        const auto behind = names_.upper_bound(start + '\xFF');
        if (behind == names_.begin() || !std::prev(behind)->starts_with(start))
            return {};
        return *std::prev(behind);
    }

    static int NumberOf(std::string_view name) {
        const std::string_view end = name.substr(name.size() - std::min(name.size(), kNumberLength));
        const bool digits =
            end.size() == kNumberLength && end.find_first_not_of("0123456789") == std::string_view::npos;
        return digits ? *platform::ParseLong(end) : 0;
    }

    std::set<std::string> names_;  // in lower case
};

char CategoryType(const dao::Recordset& column) {
    const std::string type = column.Text("Vellumark Data Type");
    if (type == DataTypeName(DataType::Character))
        return 'C';
    if (type == DataTypeName(DataType::Date))
        return 'D';
    if (type == DataTypeName(DataType::Time))
        return 'T';
    // Not the spelling of a time stamp column, which thus has Characters.
    if (type == "Timestamp")
        return 'S';
    if (column.Long("Vellumark Numeric Scale") > 0)
        return 'R';
    return column.Long("Vellumark Numeric Precision") > 0 ? 'I' : 'C';
}

int IdOrThrow(const dao::Value& id, const ExtractFile& file, const std::string& what) {
    if (dao::IsNull(id))
        file.Line().Fail(platform::kNoCurrentRecord, "No current record: " + what);
    return dao::ToLong(id);
}

Column FindColumn(const ExtractFile& file) {
    const std::string table(file.Line().Field(1));
    const std::string name(file.Line().Field(2));
    Column column = {};
    column.tableId =
        IdOrThrow(RepositoryDatabase.Lookup("select [Id] from [Table] where [FK DBS Id] = ? and [Name] = ?",
                                            {CurrentDBSId, table}),
                  file, "the model has no table '" + table + "'");
    const dao::Recordset row = RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Name] = ?",
        {CurrentDBSId, column.tableId, name});
    column.columnId = IdOrThrow(row.IsEOF() ? dao::Value() : row.Get("Id"), file,
                                "the table '" + table + "' has no column '" + name + "'");
    column.categoryType = CategoryType(row);
    return column;
}

// The rule that new Scenarios start from.
void FindSystemRule(const ExtractFile& file, Column& column) {
    column.tableRuleId = IdOrThrow(
        RepositoryDatabase.Lookup("select [Id] from [TSO Insert Table Rule] where [FK TSO ID] = 0 and [FK "
                                  "DBS Id] = ? and [FK TAB Id] = ?",
                                  {CurrentDBSId, column.tableId}),
        file, "the table has no default rule");
    column.columnRuleId = IdOrThrow(
        RepositoryDatabase.Lookup(
            "select [Id] from [TSO Insert Column Rule] where [FK TSO ID] = 0 and [FK DBS Id] = ? and [FK "
            "TAB Id] = ? and [FK COL Id] = ? and [FK TTR Id] = ?",
            {CurrentDBSId, column.tableId, column.columnId, column.tableRuleId}),
        file, "the column has no default rule");
}

void TakeValuesFromSource(const Column& column) {
    RepositoryDatabase.Execute(
        "update [TSO Insert Column Rule] set [Code Generate Data Type] = 'V' where [FK TSO ID] = 0 and [FK "
        "DBS Id] = ? and [FK TTR Id] = ? and [Id] = ?",
        {CurrentDBSId, column.tableRuleId, column.columnRuleId});
}

void AddSource(dao::Recordset& sources, const Column& column, int categoryId) {
    sources.AddNew();
    sources.Set("Type", "V")
        .Set("FK CAT Id", categoryId)
        .Set("FK CNV Id", 0)
        .Set("FK CON Id", 0)
        .Set("Name and Path", "")
        .Set("Sheet", "")
        .Set("Start from Column", 0)
        .Set("End at Column", 0)
        .Set("Column end Cell", 0)
        .Set("Start from Row", 1)
        .Set("End at Row", kLastRow)
        .Set("Row end Cell", 0)
        .Set("Delimited Field Number", 0)
        .Set("Delimiter", "")
        .Set("File Read Interval", 1)
        .Set("Read File Order", "R")
        .Set("File Read Hold Frequency", 1)
        .Set("Code Input Value In Quotes", "D")
        .Set("If End of File", "L")
        .Set("Code Input Datetime Edit Pattern", 0)
        .Set("FK TCR Id", column.columnRuleId)
        .Set("FK TTR Id", column.tableRuleId)
        .Set("FK COL Id", column.columnId)
        .Set("FK TAB Id", column.tableId)
        .Set("FK DBS Id", CurrentDBSId)
        .Set("FK TSO Id", 0);
    sources.Update();
}

std::vector<std::string_view> ValuesIn(const FieldFile& line) {
    std::vector<std::string_view> values;
    for (std::size_t field = 3; field < line.FieldCount(); ++field)
        if (!line.Field(field).empty())
            values.push_back(line.Field(field));
    return values;
}

void ReadLines(ExtractFile& file) {
    const RepositoryScope repository;
    const ValuesScope values;
    dao::Transaction rules(RepositoryDatabase);
    dao::Transaction categories(ValuesDatabase);
    CategoryNames names;
    dao::Recordset sources = RepositoryDatabase.OpenForAppend("Value Source");
    while (file.fNextLine()) {
        const FieldFile& line = file.Line();
        Column column = FindColumn(file);
        FindSystemRule(file, column);
        const int categoryId = AddCategory(ValuesDatabase, names.Next(line.Field(1), line.Field(2)),
                                           column.categoryType, ValuesIn(line), 'C');
        TakeValuesFromSource(column);
        AddSource(sources, column, categoryId);
    }
    categories.Commit();
    rules.Commit();
}

}  // namespace

bool fReadPermittedValues(std::string_view dbmsName) {
    platform::ShowStatus("Processing permitted values");
    try {
        std::optional<ExtractFile> file = OpenExtractFile(kPermittedValueFile, fDBMSCode(dbmsName));
        if (!file)
            return false;
        ReadLines(*file);
        return true;
    } catch (const platform::Error& error) {
        return platform::Refuse(error.Line());
    }
}

}  // namespace vellumark
