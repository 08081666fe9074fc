#pragma once

#include <string_view>

namespace vellumark {

// A database that takes statements. Every call may throw platform::Error.
class StatementTarget {
 public:
    virtual ~StatementTarget() = default;

    virtual void Execute(std::string_view statement) = 0;
    // Whether Execute takes several statements in one text, with semicolons between, which saves the way
    // there and back for each.
    virtual bool TakesSeveral() const { return false; }
    virtual void Begin() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
};

}  // namespace vellumark
