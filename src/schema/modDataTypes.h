#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "repository/modTargetFormats.h"

// How the column types that a database reports become the system's own.
namespace vellumark {

struct MappedType {
    std::string sourceName;  // the reported type's name, such as "adVarChar" or "dbText"
    DataType type = DataType::Character;
    int maximumLength = 0;
    int precision = 0;
    int size = 0;
};

// A column as an ADO provider reports it. An empty number is Null there.
struct AdoColumn {
    int code = 0;
    std::optional<int> maximumLength;
    std::optional<int> precision;
};

MappedType MapAdoType(const AdoColumn& column);

// A column as DAO reports it, with the names that a question about it shows.
struct DaoColumn {
    std::string_view table;
    std::string_view column;
    int code = 0;
    int size = 0;
};

// Asks the user where the reported type leaves open what a DB2 or MS/SQL Server column is.
MappedType MapDaoType(const DaoColumn& column, std::string_view dbmsType);

}  // namespace vellumark
