#include "engine/modWorkingDatabase.h"

#include <filesystem>

#include "platform/dao/declared_type.h"
#include "platform/dao/jet_sql.h"
#include "repository/modJetDatabaseServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr int kMemoSize = 1024;
constexpr int kDefaultSize = 80;

const std::string kScenario = " where [FK DBS Id] = ? and [FK TSO Id] = ?";

bool HasRow(const std::string& sql, const dao::Parameters& parameters) {
    return !dao::IsNull(RepositoryDatabase.Lookup("select 1 " + sql + " limit 1", parameters));
}

bool IsKept(int tableId, int columnId) {
    const dao::Parameters key{CurrentDBSId, CurrentTSOId, tableId, columnId};
    const std::string dependency = "from [resolver TTR dependency]" + kScenario;
    return HasRow(dependency + " and [FK Parent TAB Id] = ? and [FK Parent COL Id] = ?", key) ||
           HasRow(dependency + " and [FK Child TAB Id] = ? and [FK Child COL Id] = ?", key) ||
           HasRow("from [TSO Insert Column Rule]" + kScenario +
                      " and [FK TAB Id] = ? and [FK COL Id] = ?"
                      " and ([Flag Column Unique] = -1 or [Flag Compound Column Unique] = -1)",
                  key);
}

struct MomentSizes {
    int date, time, timestamp;  // 0 for the size that any column gets
};

MomentSizes SizesIn(TargetFormat format) {
    switch (format) {
        case TargetFormat::Oracle:
            return {18, 18, 18};
        case TargetFormat::SqlServer:
        case TargetFormat::Jet:
            return {19, 19, 19};
        case TargetFormat::Sybase:
            return {11, 7, 19};
        case TargetFormat::Delimited:
            return {50, 50, 50};
        default:
            return {0, 0, 26};
    }
}

int MomentSize(std::string_view dataType, TargetFormat format) {
    const MomentSizes sizes = SizesIn(format);
    return dataType == "Date"        ? sizes.date
           : dataType == "Time"      ? sizes.time
           : dataType == "TimeStamp" ? sizes.timestamp
                                     : 0;
}

int SizeOf(const dao::Recordset& column, TargetFormat format) {
    if (const int size = MomentSize(column.Text("Vellumark Data Type"), format); size > 0)
        return size;
    for (const char* width : {"Vellumark Character Maximum Length", "Vellumark Numeric Precision"})
        if (const int size = column.Long(width); size > 0)
            return size;
    return kDefaultSize;
}

bool fAddField(const dao::Database& database, dao::TableDef& table, const std::string& name, int type,
               int size) {
    return Table_Create(database, table, {kAddField, "", std::to_string(type), size, name});
}

bool fAddFixedFields(const dao::Database& database, dao::TableDef& table, const std::string& name) {
    return Table_Create(database, table, {kCreateTable, name, "", 0, ""}) &&
           fAddField(database, table, "Vellumark Id", dao::dbLong, 0) &&
           fAddField(database, table, "Vellumark FK TTR Id", dao::dbLong, 0) &&
           fAddField(database, table, "Vellumark flag use generated data", dao::dbBoolean, 0);
}

bool fCreateWorkingTable(const dao::Database& database, const dao::Recordset& table, TargetFormat format) {
    dao::Recordset columns = RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ?", {CurrentDBSId, table.Long("Id")});
    dao::TableDef definition;
    for (; !columns.IsEOF(); columns.MoveNext()) {
        if (!IsKept(table.Long("Id"), columns.Long("Id")))
            continue;
        if (definition.fields.empty() &&
            !fAddFixedFields(database, definition, WorkingTableName(table.Text("Owner"), table.Text("Name"))))
            return false;
        const int size = SizeOf(columns, format);
        if (!fAddField(database, definition, columns.Text("Name"),
                       size >= kMemoSize ? dao::dbMemo : dao::dbText, size))
            return false;
    }
    return true;
}

std::string InsertSql(const TablePlan& table) {
    std::string names, marks;
    for (const ColumnPlan& column : table.columns) {
        names += dao::Bracketed(column.name) + ", ";
        marks += "?, ";
    }
    return "insert into " + dao::Bracketed(WorkingTableName(table.owner, table.name)) + " (" + names +
           "[Vellumark Id], [Vellumark FK TTR Id], [Vellumark flag use generated data]) values (" + marks +
           "?, " + std::to_string(table.ruleId) + ", " + (table.usesGeneratedData ? "-1" : "0") + ")";
}

std::string SelectSql(const TablePlan& table, const std::vector<std::string>& columns,
                      const WorkingRows& rows) {
    std::string names;
    for (const std::string& column : columns)
        names += (names.empty() ? "" : ", ") + dao::Bracketed(column);
    return "select " + names + " from " + dao::Bracketed(WorkingTableName(table.owner, table.name)) +
           " where rowid between " + std::to_string(rows.firstKey) + " and " +
           std::to_string(rows.firstKey + rows.count - 1) + " order by rowid";
}

}  // namespace

bool WorkingDatabaseNeeded() {
    const dao::Parameters key{CurrentDBSId, CurrentTSOId};
    return HasRow("from [resolver TTR dependency]" + kScenario, key) ||
           HasRow("from [TSO Insert Column Rule]" + kScenario +
                      " and ([Flag Column Unique] = -1 or [Flag Compound Column Unique] = -1)",
                  key);
}

std::string WorkingDatabasePath() {
    return JoinPath(CurrentTSOFolder, "TestData.mdb");
}

std::string WorkingTableName(std::string_view owner, std::string_view name) {
    return std::string(owner).append(name);
}

bool fCreateTestDataDB(TargetFormat format) {
    if (!fCreateJetDatabase(WorkingDatabasePath()))
        return false;
    const dao::Database database = dao::OpenDatabase(WorkingDatabasePath());
    dao::Transaction transaction(database);
    dao::Recordset tables = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? and [Name] <> '' and [Id] in"
        " (select [FK TAB Id] from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ?)",
        {CurrentDBSId, CurrentDBSId, CurrentTSOId});
    for (; !tables.IsEOF(); tables.MoveNext())
        if (!fCreateWorkingTable(database, tables, format))
            return false;
    transaction.Commit();
    return true;
}

WorkingDatabase::WorkingDatabase() : store_(dao::OpenDatabase(WorkingDatabasePath())) {
    // The file is made anew by each run: nothing in it is worth waiting for the disk.
    store_.Prepare("pragma synchronous=off").Execute();
    transaction_.emplace(store_);
}

void WorkingDatabase::Commit() {
    transaction_->Commit();
    transaction_.reset();
}

std::optional<WorkingRows> WorkingDatabase::RowsOf(int ruleId) const {
    const auto found = rows_.find(ruleId);
    return found == rows_.end() ? std::nullopt : std::optional(found->second);
}

WorkingWriter::WorkingWriter(WorkingDatabase& database, const TablePlan& table)
    : database_(database),
      ruleId_(table.ruleId),
      idParameter_(static_cast<int>(table.columns.size())),
      insert_(database.Store().Prepare(InsertSql(table))) {
    rows_.firstKey =
        std::int64_t{
            dao::ToLong(database.Store().Lookup("select coalesce(max(rowid), 0) from " +
                                                dao::Bracketed(WorkingTableName(table.owner, table.name))))} +
        1;
}

void WorkingWriter::AddRow() {
    insert_.BindInteger(idParameter_, rows_.count + 1);
    insert_.Execute();
    ++rows_.count;
}

WorkingReader::WorkingReader(const WorkingDatabase& database, const TablePlan& table,
                             const std::vector<std::string>& columns)
    : rows_(database.Store().Prepare(
          SelectSql(table, columns, database.RowsOf(table.ruleId).value_or(WorkingRows{})))) {}

}  // namespace vellumark
