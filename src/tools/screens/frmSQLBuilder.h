#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "platform/screens/screen.h"
#include "tools/gatheredRows.h"
#include "tools/modSQLBuilder.h"
#include "tools/screens/builderOpeners.h"
#include "tools/screens/resultLines.h"
#include "tools/sqlRunner.h"

class QListView;
class QListWidget;
class QListWidgetItem;

namespace Ui {
class frmSQLBuilder;
}

namespace vellumark {

// Helps to write SQL and runs it. While a text runs the screen stays open and can only be looked at, or the
// text stopped.
class frmSQLBuilder : public Screen {
 public:
    frmSQLBuilder(BuilderCaller caller, const std::string& text, QWidget* parent = nullptr);
    ~frmSQLBuilder() override;

    // As it stands in the box.
    std::string SQLText() const;

    // Puts the text at the caret, in place of any selection; the caret goes behind it.
    void fUpdateSQLStatement(const QString& text);

    void accept() override;
    void reject() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void Connect();
    void ConnectPicking();
    void PrepareResults();
    void FillWords();
    void FillTables();
    void FillColumns(int table);
    void ShowDatabase();

    void Pick(QListWidget& list);
    QString TextOfPick(const QListWidget& list);

    void LoadFile();
    void SaveFile();
    void Clear();
    void Run();
    void Stop();
    void Look();
    void ShowRows();
    void Finish();
    void Enable();
    void CopyResults();

    std::unique_ptr<Ui::frmSQLBuilder> ui_;
    BuilderCaller caller_;
    std::vector<BuilderTable> tables_;
    ResultLines results_;
    QTimer looks_;
    bool stopping_ = false;
    std::optional<SQLConnection> connection_;
    std::unique_ptr<GatheredRows> rows_;
    std::unique_ptr<SQLRunner> runner_;  // uses the connection and the rows
};

}  // namespace vellumark
