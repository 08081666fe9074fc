#include "engine/targetConnection.h"

#include "platform/dao/text_runner.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

class AdoTarget : public StatementTarget {
 public:
    explicit AdoTarget(ado::Connection& connection) : connection_(connection) {}

    void Execute(std::string_view statement) override { connection_.Execute(statement); }
    bool TakesSeveral() const override { return connection_.TakesSeveral(); }
    void Begin() override { connection_.Begin(); }
    void Commit() override { connection_.Commit(); }
    void Rollback() override { connection_.Rollback(); }

 private:
    ado::Connection& connection_;
};

class DaoTarget : public StatementTarget {
 public:
    explicit DaoTarget(const dao::Database& database) : database_(database), runner_(database) {}

    void Execute(std::string_view statement) override { runner_.Execute(statement); }
    void Begin() override { database_.BeginTrans(); }
    void Commit() override { database_.CommitTrans(); }
    void Rollback() override { database_.Rollback(); }

 private:
    const dao::Database& database_;
    dao::TextRunner runner_;
};

}  // namespace

std::unique_ptr<StatementTarget> SessionTarget() {
    OpenConnections& target = TargetConnections;
    if (DatabaseProtocol == 'A' ? !target.ado.IsOpen() : !target.dao.IsOpen())
        throw platform::Error(ado::kObjectIsClosed, "Operation is not allowed when the object is closed.");
    if (DatabaseProtocol == 'A')
        return std::make_unique<AdoTarget>(target.ado);
    return std::make_unique<DaoTarget>(target.dao);
}

bool fTargetTakesData() {
    const OpenConnections& target = TargetConnections;
    try {
        if (DatabaseProtocol == 'A' && target.ado.IsOpen())
            target.ado.CheckWritable();
        else if (DatabaseProtocol == 'D')
            target.dao.CheckWritable();
        return true;
    } catch (const platform::Error& error) {
        return platform::Refuse(error.Description());
    }
}

}  // namespace vellumark
