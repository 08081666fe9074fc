#include "tools/modSchemaEditor.h"

#include <string_view>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "repository/storeChange.h"

namespace vellumark {

namespace {

constexpr std::string_view kSchema = " where [FK DBS Id] = ?";
constexpr std::string_view kTable = " where [FK DBS Id] = ? and [FK TAB Id] = ?";
constexpr std::string_view kForeignKey = "Foreign Key";

ColumnKey KeyOf(const EditedColumn& column) {
    return {CurrentDBSId, column.tableId, column.id};
}

std::optional<int> Number(const dao::Recordset& row, std::string_view field) {
    return row.IsNull(field) ? std::nullopt : std::optional(row.Long(field));
}

dao::Value Stored(std::optional<int> number) {
    return number ? dao::Value(std::int64_t{*number}) : dao::Value();
}

EditedColumn ReadColumn(const dao::Recordset& row) {
    EditedColumn column;
    column.id = row.Long("Id");
    column.tableId = row.Long("FK TAB Id");
    column.name = row.Text("Name");
    column.attributeName = row.Text("COOLGen Attribute Name");
    column.dataType = ParseDataType(row.Text("Vellumark Data Type")).value_or(DataType::Character);
    column.maximumLength = Number(row, "Vellumark Character Maximum Length");
    column.precision = Number(row, "Vellumark Numeric Precision");
    column.scale = Number(row, "Vellumark Numeric Scale");
    column.size = Number(row, "Vellumark Size");
    column.identifier = row.Boolean("Flag Identifier");
    column.optional = row.Boolean("Flag Optional");
    column.role = row.Text("Role");
    column.parentTableId = row.Long("FK COL TAB Id");
    column.parentColumnId = row.Long("FK COL Id");
    column.parentTable = row.Text("Parent Table");
    column.parentColumn = row.Text("Parent Column");
    return column;
}

// With the names of each column's parent, in one statement.
std::vector<EditedColumn> ReadColumns(const std::string& rest, const dao::Parameters& parameters) {
    const RepositoryScope repository;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select c.*, t.[Name] as [Parent Table], p.[Name] as [Parent Column] from [Column] c"
        " left join [Table] t on c.[Role] = 'Foreign Key' and t.[FK DBS Id] = c.[FK DBS Id] and t.[Id] = "
        "c.[FK COL TAB Id]"
        " left join [Column] p on p.[FK DBS Id] = t.[FK DBS Id] and p.[FK TAB Id] = t.[Id] and p.[Id] = "
        "c.[FK COL Id]"
        " where c.[FK DBS Id] = ?" +
            rest,
        parameters);
    std::vector<EditedColumn> columns;
    for (; !rows.IsEOF(); rows.MoveNext())
        columns.push_back(ReadColumn(rows));
    return columns;
}

bool NameIsTaken(std::string_view table, std::string_view where, dao::Parameters keys,
                 const std::string& name, int id) {
    const RepositoryScope repository;
    keys.emplace_back(name);
    keys.emplace_back(id);
    return !RepositoryDatabase
                .OpenRecordset("select * from [" + std::string(table) + "]" + std::string(where) +
                                   " and [Name] = ? and [Id] <> ?",
                               keys)
                .IsEOF();
}

bool ShowFault(const std::string& message) {
    platform::ShowExclamation(message);
    return true;
}

int HighestPrecision(DataType type) {
    switch (type) {
        case DataType::TinyInteger:
            return 3;
        case DataType::Integer:
            return 5;
        case DataType::LongInteger:
            return 10;
        default:
            return 0;
    }
}

bool WholeNumberFault(const EditedColumn& column) {
    if (column.precision.value_or(0) <= 0)
        return ShowFault("Numeric Precision must be greater than zero");
    const int highest = HighestPrecision(column.dataType);
    if (highest == 0 || *column.precision <= highest)
        return false;
    const std::string article = column.dataType == DataType::Integer ? "an " : "a ";
    return ShowFault("Numeric Precision must be less than or equal to " + std::to_string(highest) + " for " +
                     article + std::string(DataTypeName(column.dataType)));
}

bool RealNumberFault(const EditedColumn& column) {
    const int precision = column.precision.value_or(0), scale = column.scale.value_or(0);
    if (precision <= 0 && scale == 0)
        return ShowFault("Numeric Precision must be greater than zero if the Scale is zero");
    if (TakesScale(column.dataType) && scale <= 0 && precision == 0)
        return ShowFault("Numeric Scale must be greater than zero if the Numeric Precision is zero");
    return false;
}

bool NumberFault(const EditedColumn& column) {
    switch (column.dataType) {
        case DataType::Integer:
        case DataType::LongInteger:
        case DataType::TinyInteger:
        case DataType::BigInteger:
            return WholeNumberFault(column);
        case DataType::Currency:
        case DataType::Single:
        case DataType::Double:
        case DataType::Variant:
            return RealNumberFault(column);
        default:
            return false;
    }
}

int TypeSize(DataType type) {
    switch (type) {
        case DataType::Character:
        case DataType::Blob:
            return 1;
        case DataType::Boolean:
        case DataType::Integer:
        case DataType::TinyInteger:
            return 2;
        case DataType::LongInteger:
        case DataType::Single:
        case DataType::BigInteger:
            return 4;
        default:
            return 8;
    }
}

dao::Recordset TableRow(int id) {
    return RepositoryDatabase.OpenRecordset("select * from [Table]" + std::string(kSchema) + " and [Id] = ?",
                                            {CurrentDBSId, id});
}

dao::Recordset ColumnRow(const EditedColumn& column) {
    return RepositoryDatabase.OpenRecordset("select * from [Column]" + std::string(kTable) + " and [Id] = ?",
                                            {CurrentDBSId, column.tableId, column.id});
}

void SetTableFields(dao::Recordset& row, const EditedTable& table) {
    row.Set("Name", table.name).Set("Owner", table.owner).Set("COOLGen Entity Name", table.entityName);
}

void SetColumnFields(dao::Recordset& row, const EditedColumn& column) {
    row.Set("Name", column.name)
        .Set("COOLGen Attribute Name", column.attributeName)
        .Set("Vellumark Data Type", DataTypeName(column.dataType))
        .Set("Vellumark Character Maximum Length", Stored(column.maximumLength))
        .Set("Vellumark Numeric Precision", Stored(column.precision))
        .Set("Vellumark Numeric Scale", Stored(column.scale))
        .Set("Vellumark Size", Stored(column.size))
        .Set("Flag Identifier", column.identifier)
        .Set("Flag Optional", column.optional);
}

void InsertTable(EditedTable& table) {
    const int id =
        NextId(RepositoryDatabase, "select max([Id]) from [Table]" + std::string(kSchema), {CurrentDBSId});
    dao::Recordset rows = RepositoryDatabase.OpenForAppend("Table");
    rows.AddNew();
    rows.Set("Id", id).Set("FK DBS Id", CurrentDBSId);
    SetTableFields(rows, table);
    rows.Update();
    AddTableToScenarios(CurrentDBSId, id);
    table.id = id;
}

void InsertColumn(EditedColumn& column) {
    const dao::Parameters keys{CurrentDBSId, column.tableId};
    const int id = NextId(RepositoryDatabase, "select max([Id]) from [Column]" + std::string(kTable), keys);
    const int order =
        NextId(RepositoryDatabase, "select max([Sort Order]) from [Column]" + std::string(kTable), keys);
    dao::Recordset rows = RepositoryDatabase.OpenForAppend("Column");
    rows.AddNew();
    rows.Set("Id", id)
        .Set("FK DBS Id", CurrentDBSId)
        .Set("FK TAB Id", column.tableId)
        .Set("Sort Order", order)
        .Set("Role", column.role)
        .Set("FK COL Id", 0)
        .Set("FK COL TAB Id", 0);
    SetColumnFields(rows, column);
    rows.Update();
    AddColumnToRules({CurrentDBSId, column.tableId, id});
    column.id = id;
}

void UpdateColumn(const EditedColumn& column) {
    dao::Recordset row = ColumnRow(column);
    const bool typeChanged = row.Text("Vellumark Data Type") != DataTypeName(column.dataType);
    row.Edit();
    SetColumnFields(row, column);
    row.Update();
    CorrectColumnRules(KeyOf(column), typeChanged);
}

void StoreParent(const EditedColumn& child, const EditedColumn& parent, std::string_view role) {
    dao::Recordset row = ColumnRow(child);
    row.Edit();
    row.Set("FK COL Id", parent.id).Set("FK COL TAB Id", parent.tableId).Set("Role", role);
    row.Update();
    DeleteColumnDependencies(KeyOf(child));
}

// Columns that refer to what goes become plain data.
void ForgetParents(std::string_view where, const dao::Parameters& parameters) {
    RepositoryDatabase.Execute(
        "update [Column] set [FK COL Id] = 0, [FK COL TAB Id] = 0, [Role] = 'Data' where [Role] = 'Foreign "
        "Key'"
        " and [FK DBS Id] = ?" +
            std::string(where),
        parameters);
}

}  // namespace

std::vector<EditedTable> ListEditedTables() {
    const RepositoryScope repository;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select * from [Table]" + std::string(kSchema) + " order by [Name] asc", {CurrentDBSId});
    std::vector<EditedTable> tables;
    for (; !rows.IsEOF(); rows.MoveNext())
        tables.push_back(
            {rows.Long("Id"), rows.Text("Name"), rows.Text("Owner"), rows.Text("COOLGen Entity Name")});
    return tables;
}

std::vector<EditedColumn> ListEditedColumns(int tableId) {
    return ReadColumns(" and c.[FK TAB Id] = ? order by c.[Sort Order] asc", {CurrentDBSId, tableId});
}

std::vector<EditedColumn> ListAllColumns() {
    return ReadColumns(" order by c.[FK TAB Id] asc, c.[Sort Order] asc", {CurrentDBSId});
}

std::vector<EditedColumn> ListParentColumns(const EditedColumn& child, int parentTableId) {
    return ReadColumns(
        " and c.[FK TAB Id] = ? and c.[Vellumark Data Type] = ? and c.[Vellumark Size] = ?"
        " and not (c.[FK TAB Id] = ? and c.[Id] = ?) order by c.[Name] asc",
        {CurrentDBSId, parentTableId, DataTypeName(child.dataType), child.size.value_or(0), child.tableId,
         child.id});
}

bool fTABValidateError(const EditedTable& table) {
    if (table.name.empty())
        return ShowFault("Please enter a Table Name");
    return NameIsTaken("Table", kSchema, {CurrentDBSId}, table.name, table.id) &&
           ShowFault("There is already a table '" + table.name + "' in this Database schema.");
}

bool fCOLValidateError(const EditedColumn& column) {
    if (column.name.empty())
        return ShowFault("Please enter a Column Name");
    if (NameIsTaken("Column", kTable, {CurrentDBSId, column.tableId}, column.name, column.id))
        return ShowFault("There is already a column '" + column.name + "' in this table.");
    if (column.size.value_or(0) <= 0)
        return ShowFault("Size must be greater than zero");
    return NumberFault(column);
}

EditedColumn NewColumn(int tableId) {
    EditedColumn column;
    column.tableId = tableId;
    SetTypeDefaults(column);
    return column;
}

void SetTypeDefaults(EditedColumn& column) {
    column.size = TypeSize(column.dataType);
    if (column.dataType == DataType::Character) {
        column.maximumLength = 1;
        column.precision.reset();
        column.scale.reset();
    }
}

bool TakesMaximumLength(DataType type) {
    return type == DataType::Character || type == DataType::Blob;
}

bool TakesPrecision(DataType type) {
    switch (type) {
        case DataType::Integer:
        case DataType::LongInteger:
        case DataType::Single:
        case DataType::Double:
        case DataType::Currency:
        case DataType::BigInteger:
        case DataType::TinyInteger:
        case DataType::Variant:
            return true;
        default:
            return false;
    }
}

bool TakesScale(DataType type) {
    return type == DataType::Single || type == DataType::Double || type == DataType::Currency;
}

bool fSaveTable(EditedTable& table) {
    if (fTABValidateError(table))
        return false;
    return fChangeRepository("saving the table", [&table] {
        if (table.id == 0) {
            InsertTable(table);
            return;
        }
        dao::Recordset row = TableRow(table.id);
        row.Edit();
        SetTableFields(row, table);
        row.Update();
    });
}

bool fSaveColumn(EditedColumn& column) {
    if (fCOLValidateError(column))
        return false;
    return fChangeRepository("saving the column", [&column] {
        if (column.id == 0)
            InsertColumn(column);
        else
            UpdateColumn(column);
    });
}

bool fDeleteTable(const EditedTable& table) {
    return platform::AskYesNo("Do you really want to delete this table?") &&
           fChangeRepository("deleting the table", [&table] {
               TableRow(table.id).Delete();
               DeleteTableRules(CurrentDBSId, table.id);
               ForgetParents(" and [FK COL TAB Id] = ?", {CurrentDBSId, table.id});
           });
}

bool fDeleteColumn(const EditedColumn& column) {
    return platform::AskYesNo("Do you really want to delete this column?") &&
           fChangeRepository("deleting the column", [&column] {
               ColumnRow(column).Delete();
               DeleteColumnRules(KeyOf(column));
               ForgetParents(" and [FK COL TAB Id] = ? and [FK COL Id] = ?",
                             {CurrentDBSId, column.tableId, column.id});
           });
}

bool fSetForeignKey(const EditedColumn& child, const EditedColumn& parent) {
    if (child.dataType != parent.dataType)
        return !ShowFault("Selected datatype is not the same as the foreign key's datatype");
    if (child.size != parent.size)
        return !ShowFault("Selected size is not the same as the foreign key's size");
    return fChangeRepository("setting the foreign key", [&] { StoreParent(child, parent, kForeignKey); });
}

bool fClearForeignKey(const EditedColumn& child) {
    return fChangeRepository("clearing the foreign key", [&child] { StoreParent(child, {}, "Data"); });
}

std::string ReadSchemaDescription() {
    const RepositoryScope repository;
    return dao::ToText(
        RepositoryDatabase.Lookup("select [Description] from [Database] where [Id] = ?", {CurrentDBSId}));
}

bool fSaveSchemaDescription(const std::string& description) {
    try {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Database] set [Description] = ? where [Id] = ?",
                                   {description, CurrentDBSId});
        ShownSchemaDescription = description;
        return true;
    } catch (const platform::Error& error) {
        return platform::Refuse("Unexpected error occurred closing Vellumark repository.\nError: " +
                                error.Description());
    }
}

}  // namespace vellumark
