#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ado/provider.h"
#include "platform/odbc/catalog.h"
#include "platform/odbc/connection.h"

namespace vellumark::ado {

// A database behind an ODBC driver.
class OdbcProvider : public Provider {
 public:
    // Takes a string for the driver manager. Throws the driver's error.
    explicit OdbcProvider(const std::string& connectionString);

    std::string ServerName() const override { return connection_.ServerName(); }
    void Execute(std::string_view statement) override { connection_.Execute(statement); }
    std::unique_ptr<platform::Cursor> OpenRecordset(std::string_view sql) const override {
        return connection_.Stream(sql);
    }
    bool TakesSeveral() const override { return connection_.TakesSeveral(); }
    void Begin() override { connection_.Begin(); }
    void Commit() override { connection_.Commit(); }
    void Rollback() override { connection_.Rollback(); }
    std::unique_ptr<dao::RowAccess> OpenRowAccess() const override {
        return std::make_unique<dao::OdbcRowAccess>(connection_, *catalog_);
    }

 private:
    Rowset Tables(const Restrictions& restrictions) const override;
    Rowset Columns(const Restrictions& restrictions) const override;
    Rowset Indexes(const Restrictions& restrictions) const override;
    Rowset ForeignKeys(const Restrictions& restrictions) const override;
    std::vector<odbc::CatalogTable> FindTables(const Restrictions& restrictions, std::size_t ownerPosition,
                                               std::size_t tablePosition) const;

    odbc::Connection connection_;
    std::unique_ptr<odbc::Catalog> catalog_;
    // A reader lists the tables and then asks for one after the other.
    mutable std::optional<std::vector<odbc::CatalogTable>> tables_;
};

}  // namespace vellumark::ado
