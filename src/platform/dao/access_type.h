#pragma once

#include "platform/access/definition.h"
#include "platform/dao/declared_type.h"

namespace vellumark::dao {

// A column's type as the two protocols report it of an Access file. Text of Access 97 is no Unicode to them.
ColumnType TypeOf(const access::Column& column, bool isJet3);

}  // namespace vellumark::dao
