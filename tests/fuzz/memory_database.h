#pragma once

#include "platform/dao/database.h"

namespace vellumark::fuzz {

// A database without a file, that touches no other file, and whose statements end before long.
struct MemoryDatabase {
    explicit MemoryDatabase(const char* statements);

    dao::Database database;
};

}  // namespace vellumark::fuzz
