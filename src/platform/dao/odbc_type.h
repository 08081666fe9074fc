#pragma once

#include <vector>

#include "platform/dao/table_def.h"
#include "platform/odbc/catalog.h"

namespace vellumark::dao {

// A column's type as both protocols see it through ODBC.
ColumnType ReadOdbcType(const odbc::CatalogColumn& column);
// The columns of a table, in their order.
std::vector<Field> ReadOdbcFields(std::vector<odbc::CatalogColumn> columns);

}  // namespace vellumark::dao
