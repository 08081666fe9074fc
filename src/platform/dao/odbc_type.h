#pragma once

#include "platform/dao/declared_type.h"
#include "platform/odbc/catalog.h"

namespace vellumark::dao {

// A column's type as both protocols see it through ODBC.
ColumnType ReadOdbcType(const odbc::CatalogColumn& column);

}  // namespace vellumark::dao
