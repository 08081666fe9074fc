#pragma once

#include <string>
#include <vector>

namespace vellumark {

enum class CellKind { Text, Number, Check, Choice };

struct GridColumn {
    std::string title;
    CellKind kind = CellKind::Text;
    bool readOnly = false;
    std::vector<std::string> choices{};  // of a Choice
};

inline constexpr const char* kChecked = "1";

// A row as a grid shows it: one text a column, a Check's being kChecked or empty, and the key that its owner
// knows it by.
struct GridRow {
    int id = 0;
    std::vector<std::string> cells;
};

// Where a grid's rows come from and go to, with the hooks of its editing. A hook that returns false has shown
// why.
class GridRows {
 public:
    virtual ~GridRows() = default;

    virtual std::vector<GridColumn> Columns() const = 0;
    virtual std::vector<GridRow> Load() = 0;

    // Whether there is an empty row at the end to type a new one into.
    virtual bool CanInsert() const { return false; }
    virtual bool CanDelete() const { return false; }
    // Fills the fields that a new row starts with, before its first cell is typed.
    virtual void BeforeInsert(GridRow& /*row*/) {}
    virtual bool CellOpen(const GridRow& /*row*/, int /*column*/) const { return true; }
    // The user has changed that cell of a row not yet written: other cells may follow.
    virtual void CellChanged(GridRow& /*row*/, int /*column*/) {}
    // Judges a changed row before it is written; false keeps it open.
    virtual bool Validate(const GridRow& /*row*/) { return true; }
    // Write a row; Insert sets its id. False keeps the row open.
    virtual bool Insert(GridRow& /*row*/) { return false; }
    virtual bool Update(const GridRow& /*row*/) { return false; }
    // Asks what there is to ask and deletes the row; false leaves it.
    virtual bool Delete(const GridRow& /*row*/) { return false; }
};

}  // namespace vellumark
