#include "embedded.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform/dao/database.h"

namespace vellumark::test {

std::string MakeEmbedded(const std::string& path, const std::string& statements) {
    if (!std::filesystem::exists(path))
        dao::CreateDatabase(path);
    const dao::Database database = dao::OpenDatabase(path);
    const int code = sqlite3_exec(database.Handle(), statements.c_str(), nullptr, nullptr, nullptr);
    EXPECT_EQ(code, SQLITE_OK) << sqlite3_errmsg(database.Handle());
    return path;
}

std::string AccessString(const std::string& path) {
    return "driver={Microsoft Access Driver (*.mdb)};UID=;PWD=;DBQ=" + path;
}

}  // namespace vellumark::test
