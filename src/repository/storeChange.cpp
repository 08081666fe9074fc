#include "repository/storeChange.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

// The scope opens the store if it's closed, and comes first because opening can fail as well.
template <class Scope>
bool fChange(dao::Database& store, std::string_view doing, const std::function<void()>& change) {
    try {
        const Scope scope;
        dao::Transaction transaction(store);
        change();
        transaction.Commit();
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError(doing, error);
        return false;
    }
}

}  // namespace

bool fChangeRepository(std::string_view doing, const std::function<void()>& change) {
    return fChange<RepositoryScope>(RepositoryDatabase, doing, change);
}

bool fChangeValues(std::string_view doing, const std::function<void()>& change) {
    return fChange<ValuesScope>(ValuesDatabase, doing, change);
}

}  // namespace vellumark
