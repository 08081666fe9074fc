#include <filesystem>
#include <gmock/gmock.h>

#include "platform/dao/database.h"
#include "recorder.h"
#include "repository/modRepositoryStores.h"
#include "repository/modRepositoryUpgrade.h"
#include "repository/modVellumark.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

using testing::StartsWith;

constexpr const char* kFailure =
    "exclamation: Unexpected error upgrading repository from v1 to v2: \n\nError: ";

// Two stores of level 1, with just the tables that the upgrade looks at.
class Upgrade : public testing::Test {
 protected:
    Upgrade() {
        RepositoryPath = folder_.Path("Vellumark.mdb");
        ValuesPath = folder_.Path("Vellumark Values.mdb");
        dao::CreateDatabase(RepositoryPath, kRepositoryPassword, true);
        dao::CreateDatabase(ValuesPath, "", true);
        InRepository(
            "create table [Schema] ([Number of Executions] LONG, [Repository Version Number] SHORT)");
        InRepository("insert into [Schema] values (5, 1)");
        InRepository("create table [Options] ([Fill Digit] TEXT(1))");
        InRepository("insert into [Options] values ('9')");
        InRepository("create table [Value Source] ([FK CAT Id] LONG)");
        InRepository("insert into [Value Source] values (3)");
    }

    static void InRepository(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }
    static void InValues(const std::string& sql) {
        const ValuesScope values;
        ValuesDatabase.Execute(sql);
    }

    // Name, type and size of each field; "none" for a missing table.
    static std::string FieldsOf(const dao::Database& database, const std::string& table) {
        if (!database.HasTable(table))
            return "none";
        std::string text;
        for (const dao::Field& field : database.TableDefinition(table).fields)
            text += field.name + ":" + std::to_string(field.type.daoType) + "(" +
                    std::to_string(field.type.daoSize) + ") ";
        return text;
    }
    static std::string RepositoryFields(const std::string& table) {
        const RepositoryScope repository;
        return FieldsOf(RepositoryDatabase, table);
    }
    static std::string ValuesFields(const std::string& table) {
        const ValuesScope values;
        return FieldsOf(ValuesDatabase, table);
    }
    static int Level() {
        const RepositoryScope repository;
        return dao::ToLong(RepositoryDatabase.Lookup("select [Repository Version Number] from [Schema]"));
    }

    test::TempFolder folder_;
    test::Recorder boxes_;
};

TEST_F(Upgrade, AddsWhatLevelOneLacks) {
    UpgradeRepository();
    EXPECT_EQ(boxes_.Take(), "");
    EXPECT_EQ(ValuesFields("Conversion Code"), "Id:4(4) Name:10(100) ");
    EXPECT_EQ(ValuesFields("Conversion Code Value"), "Id:4(4) Code:10(200) Value:10(200) FK CNV Id:4(4) ");
    EXPECT_EQ(RepositoryFields("Value Source"), "FK CAT Id:4(4) FK CNV Id:4(4) ");
    EXPECT_EQ(RepositoryFields("Options"), "Fill Digit:10(1) flag DB Auto Connect:1(1) ");
    EXPECT_EQ(Level(), 2);

    const RepositoryScope repository;
    EXPECT_EQ(dao::ToText(RepositoryDatabase.Lookup("select [Fill Digit] from [Options]")), "9");
    EXPECT_EQ(dao::ToLong(RepositoryDatabase.Lookup("select [FK CAT Id] from [Value Source]")), 3);
    EXPECT_EQ(dao::ToLong(RepositoryDatabase.Lookup("select [Number of Executions] from [Schema]")), 5);
}

TEST_F(Upgrade, LeavesWhatIsThere) {
    InValues("create table [conversion code] ([Id] LONG, [Name] TEXT(50))");
    InValues("insert into [conversion code] values (1, 'States')");
    InRepository("alter table [Value Source] add column [FK CNV ID] LONG");
    InRepository("update [Value Source] set [FK CNV ID] = 8");
    InRepository("alter table [Options] add column [Flag DB Auto Connect] YESNO");
    UpgradeRepository();
    EXPECT_EQ(boxes_.Take(), "");
    EXPECT_EQ(Level(), 2);
    UpgradeRepository();
    EXPECT_EQ(ValuesFields("Conversion Code"), "Id:4(4) Name:10(50) ");
    EXPECT_EQ(RepositoryFields("Value Source"), "FK CAT Id:4(4) FK CNV ID:4(4) ");
    EXPECT_EQ(RepositoryFields("Options"), "Fill Digit:10(1) Flag DB Auto Connect:1(1) ");
    const RepositoryScope repository;
    EXPECT_EQ(dao::ToLong(RepositoryDatabase.Lookup("select [FK CNV Id] from [Value Source]")), 8);
    const ValuesScope values;
    EXPECT_EQ(dao::ToText(ValuesDatabase.Lookup("select [Name] from [Conversion Code]")), "States");
}

TEST_F(Upgrade, GoesOnWhereItFailed) {
    InRepository("alter table [Value Source] rename to [Elsewhere]");
    UpgradeRepository();
    EXPECT_THAT(boxes_.Take(), StartsWith(kFailure + std::string("3265 ")));
    EXPECT_EQ(Level(), 1);
    EXPECT_EQ(ValuesFields("Conversion Code Value"), "Id:4(4) Code:10(200) Value:10(200) FK CNV Id:4(4) ");
    EXPECT_EQ(RepositoryFields("Options"), "Fill Digit:10(1) ");

    InRepository("alter table [Elsewhere] rename to [Value Source]");
    UpgradeRepository();
    EXPECT_EQ(boxes_.Take(), "");
    EXPECT_EQ(Level(), 2);
}

TEST_F(Upgrade, TellsWhenTheValuesDatabaseIsMissing) {
    std::filesystem::remove(ValuesPath);
    UpgradeRepository();
    EXPECT_THAT(boxes_.Take(), StartsWith(kFailure + std::string("3024 ")));
    EXPECT_EQ(RepositoryFields("Value Source"), "FK CAT Id:4(4) ");
    EXPECT_EQ(Level(), 1);
}

}  // namespace
}  // namespace vellumark
