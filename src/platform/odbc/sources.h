#pragma once

#include <string>
#include <vector>

namespace vellumark::odbc {

struct DataSource {
    std::string name;
    std::string driver;
};

// What is set up on this machine; empty where ODBC itself fails.
std::vector<DataSource> DataSources();
std::vector<std::string> Drivers();

}  // namespace vellumark::odbc
