#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "tools/tableShape.h"

namespace vellumark {

// Reads a table from its first row to its last, piece by piece and sorted by its key where it has one.
// Between the pieces the connection is free for other statements, unless the database gives rows only as one
// long answer: then nothing may be written before all has been read. Must not outlive the connection.
class TableReader {
 public:
    TableReader(const dao::RowAccess& access, TableShape shape);

    // Hands on the next rows, `most` at most; false when there are no more. Throws the database's error.
    bool Read(std::size_t most, const std::function<void(const HeldRow&)>& take);

 private:
    bool SeeksBehindKeys() const;
    std::string PageStatement(std::size_t rows) const;
    std::string BehindLast() const;
    std::vector<dao::Value> LastKey() const;
    bool ReadOn(std::size_t most, const std::function<void(const HeldRow&)>& take);
    bool ReadPage(std::size_t most, const std::function<void(const HeldRow&)>& take);

    const dao::RowAccess& access_;
    TableShape shape_;
    RowDialect dialect_;
    bool seeks_;
    std::string select_;
    std::string orderBy_;
    std::unique_ptr<platform::Cursor> rows_;  // of the one long answer
    std::size_t read_ = 0;
    HeldRow last_;
};

}  // namespace vellumark
