#include "schema/modForeignKeyMap.h"

#include <gtest/gtest.h>
#include <memory>

#include "embedded.h"
#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

std::vector<SchemaTable> Tables() {
    const auto columns = [](std::initializer_list<const char*> names) {
        std::vector<SchemaColumn> made;
        for (const char* name : names)
            made.emplace_back().name = name;
        return made;
    };
    return {{"Country", "a", columns({"Code", "Name"})},
            {"Orders", "a", columns({"Id", "Ship", "Bill"})},
            {"orders", "b", columns({"Id", "Ship", "Extra"})}};
}

// "table.column>parent table.parent column" for each link, by Ids.
std::string Links(const std::vector<SchemaTable>& tables) {
    std::string text;
    for (std::size_t t = 0; t < tables.size(); ++t)
        for (std::size_t c = 0; c < tables[t].columns.size(); ++c)
            if (const SchemaColumn& column = tables[t].columns[c]; column.parentColumnId != 0)
                text += std::to_string(t + 1) + "." + std::to_string(c + 1) + ">" +
                        std::to_string(column.parentTableId) + "." + std::to_string(column.parentColumnId) +
                        " ";
    return text;
}

TEST(ForeignKeyMapTest, NeedsAllFourNames) {
    const struct {
        std::string_view parentTable, parentColumn, childTable, childColumn;
        std::string links;
    } cases[] = {
        {"Country", "Code", "Orders", "Ship", "2.2>1.1 "},
        {"COUNTRY", "name", "ORDERS", "BILL", "2.3>1.2 "},
        {"Orders", "Id", "Orders", "Bill", "2.3>2.1 "},
        {"Nowhere", "Code", "Orders", "Ship", ""},
        {"Country", "Codes", "Orders", "Ship", ""},
        {"Country", "Code", "Order", "Ship", ""},
        {"Country", "Code", "Orders", "", ""},
        {"Country", "Code", "Orders", "Extra", ""},
        {"Country", "Code", "orders", "Extra", "3.3>1.1 "},
    };
    for (const auto& c : cases) {
        std::vector<SchemaTable> tables = Tables();
        ForeignKeyMap(tables).SetForeignKey(c.parentTable, c.parentColumn, c.childTable, c.childColumn);
        EXPECT_EQ(Links(tables), c.links) << c.parentTable << "." << c.parentColumn;
    }
}

TEST(ForeignKeyMapTest, TheLastKeyOfAColumnHolds) {
    std::vector<SchemaTable> tables = Tables();
    ForeignKeyMap map(tables);
    map.SetForeignKey("Country", "Code", "Orders", "Ship");
    map.SetForeignKey("Orders", "Id", "Orders", "Ship");
    EXPECT_EQ(Links(tables), "2.2>2.1 ");
}

enum class Keys { Reported, Unknown, LostOnTheWay };

// A database with the tables Country of owner a and Orders of owner b.
class FakeProvider : public ado::Provider {
 public:
    explicit FakeProvider(Keys keys) : keys_(keys) {}

    ado::Rowset Tables(const ado::Restrictions&) const override {
        if (isLost_)
            throw platform::Error(platform::kQueryFailed, "Connection lost.");
        ado::Rowset tables({"TABLE_SCHEMA", "TABLE_NAME", "TABLE_TYPE"});
        tables.Add({std::string("a"), std::string("Country"), std::string("TABLE")});
        tables.Add({std::string("b"), std::string("Orders"), std::string("TABLE")});
        tables.Add({std::string("a"), std::string("Names"), std::string("VIEW")});
        return tables;
    }
    ado::Rowset ForeignKeys(const ado::Restrictions& restrictions) const override {
        isLost_ = keys_ == Keys::LostOnTheWay;
        if (keys_ != Keys::Reported)
            throw platform::Error(platform::kQueryFailed, "Object or provider is not capable.");
        ado::Rowset keys({"PK_TABLE_NAME", "PK_COLUMN_NAME", "FK_TABLE_NAME", "FK_COLUMN_NAME"});
        if (restrictions.at(2) == "Country")
            keys.Add(
                {std::string("Country"), std::string("Code"), std::string("Orders"), std::string("Ship")});
        else if (restrictions.at(2) == "Orders")
            keys.Add({std::string("Orders"), std::string("Id"), std::string("Orders"), std::string("Bill")});
        else
            ADD_FAILURE() << "keys of a view";
        return keys;
    }
    // Reading foreign keys needs no more.
    ado::Rowset Columns(const ado::Restrictions&) const override { return ado::Rowset({}); }
    ado::Rowset Indexes(const ado::Restrictions&) const override { return ado::Rowset({}); }
    std::string ServerName() const override { return "Fake"; }
    void Execute(std::string_view) override { ADD_FAILURE(); }
    std::unique_ptr<platform::Cursor> OpenRecordset(std::string_view) const override { return nullptr; }
    std::unique_ptr<dao::RowAccess> OpenRowAccess() const override { return nullptr; }
    void Begin() override { ADD_FAILURE(); }
    void Commit() override { ADD_FAILURE(); }
    void Rollback() override { ADD_FAILURE(); }

 private:
    Keys keys_;
    mutable bool isLost_ = false;
};

TEST(ForeignKeyMapTest, AsksTheSourceTableByTable) {
    std::vector<SchemaTable> tables = Tables();
    ForeignKeyMap map(tables);
    const ado::Connection source(std::make_unique<FakeProvider>(Keys::Reported));
    EXPECT_TRUE(fMapForeignKeys(source, "", "", map));
    EXPECT_EQ(Links(tables), "2.2>1.1 2.3>2.1 ");

    std::vector<SchemaTable> owned = Tables();
    ForeignKeyMap ownedMap(owned);
    EXPECT_TRUE(fMapForeignKeysSchema(source, "A", ownedMap));
    EXPECT_EQ(Links(owned), "2.2>1.1 ");
}

TEST(ForeignKeyMapTest, FallsBackToTheCatalog) {
    const test::TempFolder folder;
    const std::string path = test::MakeEmbedded(folder.Path("x.mdb"), R"(
        create table Country (Code CHAR(2) primary key, Name TEXT);
        create table Orders (Id LONG primary key, Ship CHAR(2) references Country);
        create table EcoSystem (Ship CHAR(2) references Country);)");
    const ado::Connection source(std::make_unique<FakeProvider>(Keys::Unknown));
    std::vector<SchemaTable> tables = Tables();
    tables.push_back({"EcoSystem", "", {SchemaColumn{}}});
    tables.back().columns.front().name = "Ship";
    ForeignKeyMap map(tables);
    EXPECT_FALSE(fMapForeignKeysSchema(source, "", map));
    EXPECT_FALSE(fMapForeignKeys(source, "", folder.Path("none.mdb"), map));
    EXPECT_FALSE(fMapForeignKeys(source, "", "", map));
    EXPECT_EQ(Links(tables), "");
    EXPECT_TRUE(fMapForeignKeys(source, "", path, map));
    EXPECT_EQ(Links(tables), "2.2>1.1 ");

    const ado::Connection lost(std::make_unique<FakeProvider>(Keys::LostOnTheWay));
    EXPECT_THROW(fMapForeignKeys(lost, "", path, map), platform::Error);
}

}  // namespace
}  // namespace vellumark
