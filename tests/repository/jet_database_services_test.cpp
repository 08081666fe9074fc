#include <filesystem>
#include <gmock/gmock.h>

#include "platform/error.h"
#include "recorder.h"
#include "repository/modJetDatabaseServices.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class JetServices : public testing::Test {
 protected:
    JetServices() : path_(folder_.Path("test.mdb")) {}

    dao::Database Open() {
        if (!fs::exists(path_))
            dao::CreateDatabase(path_);
        return dao::OpenDatabase(path_);
    }

    test::TempFolder folder_;
    test::Recorder boxes_;
    std::string path_;
};

// Name, type and size of each field.
std::string FieldsOf(const dao::TableDef& table) {
    std::string text;
    for (const dao::Field& field : table.fields)
        text += field.name + ":" + std::to_string(field.type.daoType) + "(" +
                std::to_string(field.type.daoSize) + ") ";
    return text;
}

TEST_F(JetServices, CreatesAnEmptyDatabaseInThePlaceOfAnOlderOne) {
    { Open().Execute("create table [Old] ([Id] LONG)"); }
    folder_.Write("test.mdb-journal", "stale");
    EXPECT_TRUE(fCreateJetDatabase(path_));
    EXPECT_FALSE(fs::exists(path_ + "-journal"));
    EXPECT_FALSE(Open().HasTable("Old"));
    EXPECT_EQ(boxes_.Take(), "");
}

TEST_F(JetServices, KeepsADatabaseThatIsOpen) {
    const dao::Database open = Open();
    open.Execute("create table [Old] ([Id] LONG)");
    EXPECT_FALSE(fCreateJetDatabase(path_));
    EXPECT_TRUE(Open().HasTable("Old"));
    EXPECT_THAT(boxes_.Take(),
                StartsWith("exclamation: Unexpected error occurred creating Jet database.\n\nError: 70 "));
}

TEST_F(JetServices, CreatesNoDatabaseInAMissingFolder) {
    EXPECT_FALSE(fCreateJetDatabase(folder_.Path("missing/test.mdb")));
    EXPECT_THAT(boxes_.Take(), StartsWith("exclamation: Unexpected error occurred creating Jet database."));
}

TEST_F(JetServices, MakesATableWithItsFirstField) {
    const dao::Database database = Open();
    dao::TableDef table;
    EXPECT_TRUE(Table_Create(database, table, {.request = "Create Table", .tableName = "T"}));
    EXPECT_FALSE(database.HasTable("T"));
    EXPECT_TRUE(Table_Create(database, table, {.request = "Add Field", .fieldType = "4", .fieldName = "Id"}));
    EXPECT_TRUE(database.HasTable("T"));
    EXPECT_TRUE(
        Table_Create(database, table,
                     {.request = "Add Field", .fieldType = "10", .fieldSize = 30, .fieldName = "Full Name"}));
    EXPECT_EQ(FieldsOf(database.TableDefinition("T")), "Id:4(4) Full Name:10(30) ");
    EXPECT_EQ(FieldsOf(table), "Id:4(4) Full Name:10(30) ");

    EXPECT_TRUE(Table_Create(database, table, {.request = "Create Table", .tableName = "T"}));
    EXPECT_FALSE(database.HasTable("T"));
    EXPECT_THAT(table.fields, IsEmpty());
    EXPECT_EQ(boxes_.Take(), "");
}

TEST_F(JetServices, AcceptsTheFieldTypesOfTheEngine) {
    const dao::Database database = Open();
    dao::TableDef table;
    Table_Create(database, table, {.request = "Create Table", .tableName = "T"});
    std::string refused;
    for (int type = -1; type <= 25; ++type) {
        const std::string number = std::to_string(type);
        if (!Table_Create(
                database, table,
                {.request = "Add Field", .fieldType = number, .fieldSize = 5, .fieldName = "F" + number})) {
            EXPECT_EQ(boxes_.Take(),
                      "critical: procedure Table_Create: invalid NewField_Type value: " + number);
            refused += number + " ";
        }
    }
    EXPECT_EQ(refused, "-1 0 13 14 24 25 ");
    EXPECT_EQ(database.TableDefinition("T").fields.size(), 21u);
}

TEST_F(JetServices, RefusesRequestsItCannotCarryOut) {
    const dao::Database database = Open();
    dao::TableDef table;
    Table_Create(database, table, {.request = "Create Table", .tableName = "T"});
    Table_Create(database, table, {.request = "Add Field", .fieldType = "4", .fieldName = "Id"});
    const TableRequest requests[] = {
        {.request = "Add Field", .fieldType = "10", .fieldSize = 0, .fieldName = "Name"},
        {.request = "Add Field", .fieldType = "18", .fieldSize = -1, .fieldName = "Code"},
        {.request = "Add Field", .fieldType = "Text", .fieldSize = 9, .fieldName = "Name"},
        {.request = "Drop Table", .tableName = "T"},
    };
    for (const TableRequest& request : requests)
        EXPECT_FALSE(Table_Create(database, table, request));
    EXPECT_THAT(boxes_.shown,
                ElementsAre("critical: procedure Table_Create: invalid NewField_Size value: 0 for Name",
                            "critical: procedure Table_Create: invalid NewField_Size value: -1 for Code",
                            "critical: procedure Table_Create: invalid NewField_Type value: Text",
                            "critical: procedure Table_Create: invalid Request value: Drop Table"));
    EXPECT_THROW(Table_Create(database, table, {.request = "Add Field", .fieldType = "4", .fieldName = "ID"}),
                 platform::Error);
    EXPECT_EQ(FieldsOf(table), "Id:4(4) ");
    EXPECT_EQ(FieldsOf(database.TableDefinition("T")), "Id:4(4) ");
}

TEST_F(JetServices, DeletesOnlyTheTableOfExactlyThatName) {
    const dao::Database database = Open();
    database.Execute("create table [Order Lines] ([Id] LONG)");
    database.Execute("create table [Orders] ([Id] LONG)");
    DeleteTableIfPresent(database, "orders");
    DeleteTableIfPresent(database, "Order");
    EXPECT_TRUE(database.HasTable("Orders"));
    DeleteTableIfPresent(database, "Orders");
    EXPECT_FALSE(database.HasTable("Orders"));
    EXPECT_TRUE(database.HasTable("Order Lines"));
    EXPECT_EQ(boxes_.Take(), "");
}

}  // namespace
}  // namespace vellumark
