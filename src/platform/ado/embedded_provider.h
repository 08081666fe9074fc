#pragma once

#include <vector>

#include "platform/ado/provider.h"
#include "platform/connection_string.h"
#include "platform/dao/database.h"
#include "platform/dao/text_runner.h"

namespace vellumark::ado {

// The embedded database or a Microsoft Access file, asked for by the Access driver's name and DBQ=path.
class EmbeddedProvider : public Provider {
 public:
    static bool Serves(const platform::ConnectionString& parts);
    // Throws what dao::OpenDatabase throws.
    static dao::Database OpenFile(const platform::ConnectionString& parts);

    explicit EmbeddedProvider(const platform::ConnectionString& parts);

    std::string ServerName() const override { return database_.ServerName(); }
    void Execute(std::string_view statement) override { runner_.Execute(statement); }
    std::unique_ptr<platform::Cursor> OpenRecordset(std::string_view sql) const override {
        return dao::OpenText(database_, sql);
    }
    void Begin() override { database_.BeginTrans(); }
    void Commit() override { database_.CommitTrans(); }
    void Rollback() override { database_.Rollback(); }
    void CheckWritable() const override { database_.CheckWritable(); }
    std::unique_ptr<dao::RowAccess> OpenRowAccess() const override { return database_.OpenRowAccess(); }

 private:
    Rowset Tables(const Restrictions& restrictions) const override;
    Rowset Columns(const Restrictions& restrictions) const override;
    Rowset Indexes(const Restrictions& restrictions) const override;
    Rowset ForeignKeys(const Restrictions& restrictions) const override;
    std::vector<dao::TableDef> TableDefs(const Restrictions& restrictions, std::size_t tablePosition) const;
    const std::vector<dao::Relation>& Relations() const;

    dao::Database database_;
    dao::TextRunner runner_{database_};
    // Keys are asked for table by table but can only be read all at once.
    mutable std::vector<dao::Relation> relations_;
    mutable dao::Value relationsVersion_;
};

}  // namespace vellumark::ado
