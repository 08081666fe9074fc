#pragma once

#include <memory>

#include "platform/screens/screen.h"
#include "repository/screens/guide.h"

class QListWidgetItem;
class QTreeWidgetItem;

namespace Ui {
class frmHelp;
}

namespace vellumark {

// The user's guide beside its contents and a search. It stays usable while a screen that waits for an answer
// is up.
class frmHelp : public Screen {
 public:
    // Throws platform::Error when the guide is not there.
    explicit frmHelp(QWidget* parent = nullptr);
    ~frmHelp() override;

    // A page, "page.html" or "page.html#anchor".
    void ShowPlace(const QString& place);
    // The page of that screen, or the contents for one that has none.
    void ShowScreen(const QString& screen);
    // What the guide says of a message in a box; the whole list when it isn't there.
    void ShowMessage(const QString& text);
    void ShowSearch();

 protected:
    bool event(QEvent* event) override;

 private:
    void FillContents();
    void ConnectButtons();
    void AddShortcuts();
    void FollowSource(const QUrl& source);
    void Search();
    void OpenHit(const QListWidgetItem* item);
    void Highlight(const QStringList& texts);
    void Zoom(int steps);
    void Print();
    QTreeWidgetItem* EntryOf(const QString& place) const;

    std::unique_ptr<Ui::frmHelp> ui_;
    QString folder_;
    Guide guide_;
    int zoom_ = 0;
};

}  // namespace vellumark
