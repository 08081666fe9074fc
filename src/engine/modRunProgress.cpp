#include "engine/modRunProgress.h"

#include <algorithm>

#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::chrono::milliseconds kBetweenTellings{33};

std::int64_t Count(std::string_view sql) {
    const dao::Value value = RepositoryDatabase.Lookup(sql, {CurrentDBSId, CurrentTSOId});
    const auto* number = std::get_if<std::int64_t>(&value);
    return number == nullptr ? 0 : *number;
}

}  // namespace

void fInitProgressInsertSQL(RunProgress& progress) {
    const std::int64_t total = Count(
        "select sum([Quantity]) from [TSO Insert Table Rule]"
        " where [FK DBS Id] = ? and [FK TSO Id] = ? and [Flag Use Generated Data] <> 0");
    const std::int64_t tables = Count(
        "select count(distinct [FK TAB Id]) from [TSO Insert Table Rule]"
        " where [FK DBS Id] = ? and [FK TSO Id] = ? and [Flag Use Generated Data] <> 0");
    progress.Start(total, static_cast<int>(tables));
}

void fInitProgressDeleteSQL(RunProgress& progress) {
    const std::int64_t total =
        Count("select count([Id]) from [TSO Delete Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ?");
    const std::int64_t tables = Count(
        "select count(distinct [FK TAB Id]) from [TSO Delete Table Rule]"
        " where [FK DBS Id] = ? and [FK TSO Id] = ?");
    progress.Start(total, static_cast<int>(tables));
}

int ProgressPoints(std::int64_t total, std::int64_t count) {
    const std::int64_t steps = std::max<std::int64_t>(total, 1);
    const std::int64_t pointsPerStep = steps < 100 ? 100 / steps : 1;
    const std::int64_t interval = steps < 100 ? 1 : steps / 100;
    return static_cast<int>(std::min<std::int64_t>(count / interval * pointsPerStep, 100));
}

bool Pacer::LookAtClock() {
    const auto now = std::chrono::steady_clock::now();
    if (now < due_)
        return false;
    due_ = now + kBetweenTellings;
    return true;
}

}  // namespace vellumark
