#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/dao/database.h"
#include "recorder.h"
#include "temp_folder.h"

namespace vellumark::test {

// A session on two fresh stores in a folder of its own, with every box recorded.
class SessionTest : public ::testing::Test {
 protected:
    void SetUp() override;
    void TearDown() override;

    // A schema row with its folder, open, whose Source is `source`.
    void MakeSchema(const std::string& name, char source = 'D');
    // A table of the open schema with columns given as "Name Data Type" texts; returns the table's Id.
    int AddTable(const std::string& name, const std::vector<std::string>& columns);

    // The rows of a statement on the Repository: fields joined by "|", rows by line ends.
    std::string Rows(const std::string& sql);
    int Count(const std::string& table, const std::string& where = "1");

    Recorder recorder;
    TempFolder folder;
};

// The rows of a statement on any open database, as Rows gives them.
std::string RowsOf(const dao::Database& database, const std::string& sql);

}  // namespace vellumark::test
