#pragma once

#include <memory>

#include "platform/screens/screen.h"
#include "scenario/modValueSources.h"

class QLineEdit;

namespace Ui {
class frmValueSource;
}

namespace vellumark {

// Edits the alternate data source of a Column rule of CurrentTSOId.
class frmValueSource : public Screen {
 public:
    frmValueSource(const ColumnRuleDetails& rule, QWidget* parent);
    ~frmValueSource() override;

    void accept() override;
    void reject() override;

 private:
    void FillLists();
    void Connect();
    void ShowData();
    void ShowNames();
    void ChooseKind(char type);
    void ChooseOrder();
    void EnableDisable();
    void BrowseCategory();
    void BrowseConversion();
    void BrowseFile();
    void BrowseDatabase();
    void ChoosePattern();
    // Lists the worksheets; false, behind a message, when the file can't be opened or lacks the named one.
    bool OpenExcel();
    void View();
    ValueSourceDetails Entered() const;
    void GoTo(ValueSourceField field);
    bool fValidate();
    void ForgetChosenConnection();

    std::unique_ptr<Ui::frmValueSource> ui_;
    ColumnRuleDetails rule_;
    ValueSourceDetails details_;  // kind and Ids as they stand on the screen
    int storedConnectionId_ = 0;  // what the rule's row has
};

}  // namespace vellumark
