#pragma once

// Captures the tables, columns and foreign keys of a live database into the current Database schema.
namespace vellumark {

// Connect to the current schema's Source, add its [Table] and [Column] rows, and close the Source again.
// Owner, prefixes and DBMS are those of ConnectionForm. A failure shows its message and adds no row.
bool fReadSchemaDAO();
bool fReadSchemaADO();

}  // namespace vellumark
