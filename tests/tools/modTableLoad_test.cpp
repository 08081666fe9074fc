#include "tools/modTableLoad.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "embedded.h"
#include "platform/dao/database.h"
#include "recorder.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

class TableLoadTest : public testing::Test {
 protected:
    int Rows() const {
        return dao::ToLong(dao::OpenDatabase(database).Lookup("select count(*) from [Order Line]"));
    }

    test::TempFolder folder;
    test::Recorder recorder;
    std::string database = test::MakeEmbedded(folder.Path("shop.mdb"),
                                              "create table [Order Line] (Id INTEGER, Name VARCHAR(9));"
                                              "insert into [Order Line] values (1, 'there');");
    std::string file = folder.Write("rows.txt", "2|\"b\r\nb\"\r\n3|c\r\n");
};

TEST_F(TableLoadTest, ChecksItsFieldsInOrder) {
    const std::string missing = folder.Path("none.txt");
    const struct {
        TableLoad load;
        TableLoadField field;
        std::string message;
    } cases[] = {
        {{"", "", "", ""}, TableLoadField::Database, "Please enter the name and path of the database file"},
        {{missing, "", "", ""},
         TableLoadField::Table,
         "Please enter the name of the table to be loaded with data"},
        {{missing, "T", "", ""},
         TableLoadField::File,
         "Please enter the name and path of the delimited text data file"},
        {{missing, "T", missing, ""},
         TableLoadField::Delimiter,
         "Please enter the delimiter that is used in the delimited text data file"},
        {{missing, "T", missing, ","}, TableLoadField::File, "Cannot open the file: " + missing},
        {{missing, "T", file, ","}, TableLoadField::Database, "Cannot open the file: " + missing},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FindLoadFault(c.load), c.field) << c.message;
        EXPECT_EQ(recorder.Take(), "exclamation: " + c.message);
        EXPECT_EQ(fLoadTable(c.load), std::nullopt);
        EXPECT_EQ(recorder.Take(), "exclamation: " + c.message);
    }
}

TEST_F(TableLoadTest, LoadsAllRowsOrNone) {
    EXPECT_EQ(fLoadTable({database, "order line", file, "|"}), 2);
    EXPECT_EQ(recorder.Take(), "information: Table loaded");
    EXPECT_EQ(Rows(), 3);
    folder.Write("rows.txt", "4|d\r\nx|e\r\n");
    EXPECT_EQ(fLoadTable({database, "Order Line", file, "|"}), std::nullopt);
    EXPECT_EQ(
        recorder.Take(),
        "exclamation: Unexpected error occurred loading Jet table.\n\nError: 13 Row 2: column Id: 'x' is "
        "no whole number|exclamation: Table not loaded");
    EXPECT_EQ(Rows(), 3);
    folder.Write("rows.txt", "");
    EXPECT_EQ(fLoadTable({database, "Order Line", file, "|"}), 0);
}

TEST_F(TableLoadTest, TakesNamesWithoutAFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(fLoadTable({"shop.mdb", "Order Line", "rows.txt", "|"}), 2);
    std::filesystem::current_path(before);
    EXPECT_EQ(Rows(), 3);
}

}  // namespace
}  // namespace vellumark
