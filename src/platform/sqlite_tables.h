#pragma once

#include <string_view>

namespace vellumark::platform {

// Name and kind, as ADO and ODBC call it, of everything in an SQLite database that has columns, in the order
// of its making. What other tables keep their indexes in belongs to the engine, and so does a table whose
// module is missing, since nobody can look inside.
inline constexpr std::string_view kSqliteTables =
    "with listed as materialized (select * from pragma_table_list where schema = 'main')"
    " select m.name, case when m.type = 'view' then 'VIEW'"
    " when l.type = 'shadow' or m.name like 'sqlite\\_%' escape '\\' or m.name like 'MSys%'"
    " or (l.type = 'virtual' and not exists"
    " (select 1 from pragma_module_list o where instr(lower(m.sql), lower(o.name)) > 0))"
    " then 'SYSTEM TABLE' else 'TABLE' end as kind"
    " from sqlite_master m join listed l on l.name = m.name where m.type in ('table', 'view')"
    " order by m.rowid";

}  // namespace vellumark::platform
