#pragma once

#include <memory>
#include <vector>

#include "platform/screens/screen.h"
#include "tools/modSchemaEditor.h"

class QPrinter;
class QTreeWidgetItem;

namespace Ui {
class frmDatabaseTree;
}

namespace vellumark {

// The open schema as a tree of tables and columns, to look at and to print.
class frmDatabaseTree : public Screen {
 public:
    explicit frmDatabaseTree(QWidget* parent = nullptr);
    ~frmDatabaseTree() override;

    // Prints the tree as it is opened on the screen: the columns of closed tables are left out.
    void PrintTo(QPrinter& printer) const;

 private:
    void ShowTables();
    void ShowDetails(QTreeWidgetItem* item);
    void Find(const QString& text);
    void Print();

    std::unique_ptr<Ui::frmDatabaseTree> ui_;
    std::vector<EditedColumn> columns_;
};

}  // namespace vellumark
