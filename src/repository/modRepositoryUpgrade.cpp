#include "repository/modRepositoryUpgrade.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modJetDatabaseServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr int kPresentLevel = 2;

struct NewField {
    std::string_view name;
    int type;
    int size = 0;
};

bool IsMissing(const dao::Database& database, std::string_view table) {
    try {
        database.Lookup("select count(*) from [" + std::string(table) + "]");
        return false;
    } catch (const platform::Error& error) {
        if (error.Number() != platform::kNoSuchTable)
            throw;
        return true;
    }
}

void MakeMissingTable(std::string_view table, const std::vector<NewField>& fields) {
    if (!IsMissing(ValuesDatabase, table))
        return;
    dao::Transaction transaction(ValuesDatabase);
    dao::TableDef definition;
    Table_Create(ValuesDatabase, definition, {.request = kCreateTable, .tableName = std::string(table)});
    for (const NewField& field : fields)
        Table_Create(ValuesDatabase, definition,
                     {.request = kAddField,
                      .fieldType = std::to_string(field.type),
                      .fieldSize = field.size,
                      .fieldName = std::string(field.name)});
    transaction.Commit();
}

bool HasField(const dao::TableDef& table, std::string_view name) {
    return std::ranges::any_of(table.fields, [&](const dao::Field& field) {
        return platform::EqualsIgnoringCase(field.name, name);
    });
}

void AddMissingField(std::string_view table, const NewField& added) {
    if (HasField(RepositoryDatabase.TableDefinition(table), added.name))
        return;
    dao::Field field;
    field.name = added.name;
    field.type = dao::ReadDeclaredType(dao::DeclarationOf(added.type, added.size));
    RepositoryDatabase.AddField(table, field);
}

void UpgradeValues() {
    const ValuesScope values;
    MakeMissingTable("Conversion Code", {{"Id", dao::dbLong}, {"Name", dao::dbText, 100}});
    MakeMissingTable("Conversion Code Value", {{"Id", dao::dbLong},
                                               {"Code", dao::dbText, 200},
                                               {"Value", dao::dbText, 200},
                                               {"FK CNV Id", dao::dbLong}});
}

void UpgradeDefinitions() {
    const RepositoryScope repository;
    AddMissingField("Value Source", {"FK CNV Id", dao::dbLong});
    AddMissingField("Options", {"flag DB Auto Connect", dao::dbBoolean});
    dao::Recordset schema = RepositoryDatabase.OpenRecordset("select * from [Schema]");
    schema.Edit();
    schema.Set("Repository Version Number", kPresentLevel);
    schema.Update();
}

}  // namespace

void UpgradeRepository() {
    try {
        UpgradeValues();
        UpgradeDefinitions();
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Unexpected error upgrading repository from v1 to v2: \n\n" + error.Line());
    }
}

}  // namespace vellumark
