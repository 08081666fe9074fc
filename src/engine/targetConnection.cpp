#include "engine/targetConnection.h"

#include <optional>

#include "platform/error.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

class DaoTarget : public StatementTarget {
 public:
    explicit DaoTarget(const dao::Database& database) : database_(database) {}

    void Execute(std::string_view statement) override { database_.Execute(statement); }
    void Begin() override { transaction_.emplace(database_); }
    void Commit() override {
        transaction_->Commit();
        transaction_.reset();
    }
    void Rollback() override { transaction_.reset(); }

 private:
    const dao::Database& database_;
    std::optional<dao::Transaction> transaction_;
};

}  // namespace

std::unique_ptr<StatementTarget> SessionTarget() {
    if (!TargetConnections.dao.IsOpen())
        throw platform::Error(ado::kObjectIsClosed, "Operation is not allowed when the object is closed.");
    return std::make_unique<DaoTarget>(TargetConnections.dao);
}

}  // namespace vellumark
