#include "engine/modTableStatistics.h"

#include <algorithm>

#include "platform/text.h"
#include "repository/modTargetFormats.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

void CountType(const std::string& name, TableStatistics& counts) {
    const auto type = ParseDataType(name);
    if (!type)
        return;
    switch (*type) {
        case DataType::Character:
            ++counts.character;
            break;
        case DataType::Boolean:
            ++counts.boolean;
            break;
        case DataType::Date:
            ++counts.date;
            break;
        case DataType::Time:
            ++counts.time;
            break;
        case DataType::TimeStamp:
            ++counts.timestamp;
            break;
        case DataType::Blob:
            ++counts.blob;
            break;
        case DataType::Variant:
            break;
        default:
            ++counts.numeric;
    }
}

void CountColumn(const dao::Recordset& column, TableStatistics& counts) {
    constexpr int kTrue = -1;
    constexpr int kFalse = 0;
    ++counts.columns;
    if (column.Boolean("Flag Identifier"))
        ++counts.identifier;
    if (column.Text("Role") == "Foreign Key")
        ++counts.foreignKey;
    // A flag that was never set counts as neither.
    if (!column.IsNull("Flag Optional")) {
        const int optional = column.Long("Flag Optional");
        if (optional == kFalse)
            ++counts.mandatory;
        else if (optional == kTrue)
            ++counts.optional;
    }
    CountType(column.Text("Vellumark Data Type"), counts);
}

}  // namespace

std::vector<std::string> StatisticsTables() {
    const RepositoryScope repository;
    std::vector<std::string> names;
    for (dao::Recordset tables =
             RepositoryDatabase.OpenRecordset("select * from [Table] where [FK DBS Id] = ?", {CurrentDBSId});
         !tables.IsEOF(); tables.MoveNext())
        names.push_back(tables.Text("Name"));
    std::sort(names.begin(), names.end(), platform::LessIgnoringCase);
    return names;
}

TableStatistics CountTableColumns(std::string_view table) {
    const RepositoryScope repository;
    TableStatistics counts;
    for (dao::Recordset columns =
             RepositoryDatabase.OpenRecordset("select * from [Column] where [FK DBS Id] = ?1 and [FK TAB Id] "
                                              "= (select [Id] from [Table] where "
                                              "[FK DBS Id] = ?1 and [Name] = ?2)",
                                              {CurrentDBSId, table});
         !columns.IsEOF(); columns.MoveNext())
        CountColumn(columns, counts);
    return counts;
}

}  // namespace vellumark
