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
    bool nullable = false;               // a cell can be Null, which isn't the same as empty
};

inline constexpr const char* kChecked = "1";

enum class CellState : char {
    Text,
    Null,
    Unset,  // of a new row: left to the database
};

// A row as a grid shows it: one text a column, a Check's being kChecked or empty, and the key that its owner
// knows it by.
struct GridRow {
    int id = 0;
    std::vector<std::string> cells;
    std::vector<CellState> states{};  // one a cell; none at all where every cell is a text

    CellState State(std::size_t column) const { return states.empty() ? CellState::Text : states[column]; }
    void SetState(std::size_t column, CellState state) {
        if (states.empty())
            states.resize(cells.size(), CellState::Text);
        states[column] = state;
    }
};

enum class RowWrite {
    Done,
    Open,    // refused; the row stays open as it was typed
    Undone,  // refused, and the row is again as it is stored
    Gone,    // refused, since the row was no longer there; it isn't among the rows any more
};

// Where a grid's rows come from and go to, by their place, with the hooks of its editing. A hook that returns
// false, or anything but Done, has shown why.
class GridSource {
 public:
    virtual ~GridSource() = default;

    virtual std::vector<GridColumn> Columns() const = 0;
    // Reads the rows anew.
    virtual void Reload() = 0;
    virtual int Count() const = 0;
    // Valid until another row is asked for.
    virtual const GridRow& RowAt(int place) const = 0;
    // -1 when it isn't there.
    virtual int FindId(int id) const = 0;

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

    // Write a row. What has been inserted is the last one then.
    virtual RowWrite InsertAtEnd(GridRow& row) = 0;
    virtual RowWrite UpdateAt(int place, const GridRow& row) = 0;
    // Asks what there is to ask and deletes the row.
    virtual RowWrite DeleteAt(int place) = 0;
};

// Rows of which memory holds all.
class GridRows : public GridSource {
 public:
    virtual std::vector<GridRow> Load() = 0;
    // Write a row; Insert sets its id. False keeps the row open.
    virtual bool Insert(GridRow& /*row*/) { return false; }
    virtual bool Update(const GridRow& /*row*/) { return false; }
    // Asks what there is to ask and deletes the row; false leaves it.
    virtual bool Delete(const GridRow& /*row*/) { return false; }

    void Reload() final { held_ = Load(); }
    int Count() const final { return static_cast<int>(held_.size()); }
    const GridRow& RowAt(int place) const final { return held_[static_cast<std::size_t>(place)]; }
    int FindId(int id) const final;
    RowWrite InsertAtEnd(GridRow& row) final;
    RowWrite UpdateAt(int place, const GridRow& row) final;
    RowWrite DeleteAt(int place) final;

 private:
    std::vector<GridRow> held_;
};

}  // namespace vellumark
