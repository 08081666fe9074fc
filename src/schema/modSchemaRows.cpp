#include "schema/modSchemaRows.h"

namespace vellumark {

namespace {

void AddColumn(dao::Recordset& columns, const SchemaColumn& column) {
    columns.Set("Name", column.name)
        .Set("COOLGen Attribute Name", column.attribute)
        .Set("ADO Data Type", column.adoDataType)
        .Set("ADO Character Maximum Length", column.adoMaximumLength)
        .Set("ADO Numeric Precision", column.adoPrecision)
        .Set("ADO Numeric Scale", column.adoScale)
        .Set("Vellumark Data Type", DataTypeName(column.dataType))
        .Set("Vellumark Character Maximum Length", column.maximumLength)
        .Set("Vellumark Numeric Precision", column.precision)
        .Set("Vellumark Numeric Scale", column.scale)
        .Set("Vellumark Size", column.size)
        .Set("Flag Identifier", column.identifier)
        .Set("Flag Optional", column.optional)
        .Set("Sort Order", column.sortOrder)
        .Set("Role", column.parentColumnId > 0 ? "Foreign Key" : "Data")
        .Set("FK COL Id", column.parentColumnId)
        .Set("FK COL TAB Id", column.parentTableId)
        .Set("Status", "");
    columns.Update();
}

}  // namespace

void AddSchemaRows(const dao::Database& repository, int schemaId, const std::vector<SchemaTable>& tables) {
    dao::Transaction transaction(repository);
    dao::Recordset tableRows = repository.OpenForAppend("Table");
    dao::Recordset columnRows = repository.OpenForAppend("Column");
    int tableId = 0;
    for (const SchemaTable& table : tables) {
        tableRows.AddNew();
        tableRows.Set("Id", ++tableId)
            .Set("FK DBS Id", schemaId)
            .Set("Name", table.name)
            .Set("Owner", table.owner)
            .Set("COOLGen Entity Name", table.entity)
            .Set("Status", "");
        tableRows.Update();
        int columnId = 0;
        for (const SchemaColumn& column : table.columns) {
            columnRows.AddNew();
            columnRows.Set("Id", ++columnId).Set("FK TAB Id", tableId).Set("FK DBS Id", schemaId);
            AddColumn(columnRows, column);
        }
    }
    transaction.Commit();
}

}  // namespace vellumark
