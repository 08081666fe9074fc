#pragma once

#include <string_view>

namespace vellumark {

// A database that takes statements. Every call may throw platform::Error.
class StatementTarget {
 public:
    virtual ~StatementTarget() = default;

    virtual void Execute(std::string_view statement) = 0;
    virtual void Begin() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
};

}  // namespace vellumark
