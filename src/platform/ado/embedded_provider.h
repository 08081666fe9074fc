#pragma once

#include <vector>

#include "platform/ado/connection_string.h"
#include "platform/ado/provider.h"
#include "platform/dao/database.h"

namespace vellumark::ado {

// The embedded database, asked for by the Access driver's name and DBQ=path.
class EmbeddedProvider : public Provider {
 public:
    static bool Serves(const ConnectionString& parts);

    // Throws what dao::OpenDatabase throws.
    explicit EmbeddedProvider(const ConnectionString& parts);

    Rowset OpenSchema(SchemaKey key, const Restrictions& restrictions) const override;

 private:
    Rowset Tables(const Restrictions& restrictions) const;
    Rowset Columns(const Restrictions& restrictions) const;
    Rowset Indexes(const Restrictions& restrictions) const;
    Rowset ForeignKeys(const Restrictions& restrictions) const;
    std::vector<dao::TableDef> TableDefs(const Restrictions& restrictions, std::size_t tablePosition) const;
    const std::vector<dao::Relation>& Relations() const;

    dao::Database database_;
    // Keys are asked for table by table but can only be read all at once.
    mutable std::vector<dao::Relation> relations_;
    mutable dao::Value relationsVersion_;
};

}  // namespace vellumark::ado
