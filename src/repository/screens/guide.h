#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vellumark {

// A line of the guide's list of contents. Places are "page.html" or "page.html#anchor".
struct GuideEntry {
    QString title;
    QString place;
    int depth = 0;  // 0 for the outermost lines
};

// A heading with an anchor, or a page's first one, and the text below it.
struct GuideSection {
    QString place;
    QString pageTitle;
    QString title;
    QString text;
};

// The user's guide: a folder of well-formed HTML pages, all of which its index.html leads to.
class Guide {
 public:
    // Throws platform::Error when there is no guide in the folder.
    explicit Guide(const QString& folder);

    const std::vector<GuideEntry>& Contents() const { return contents_; }
    const std::vector<GuideSection>& Sections() const { return sections_; }

    // The sections in which all words occur, those with the words in their title first.
    std::vector<GuideSection> Search(const QString& words) const;

    // Where the screen of that object name is told: the heading that has the name as its anchor. Empty when
    // there is none.
    QString PlaceOfScreen(const QString& screen) const;

    // The words of the list of messages that are found in the text of a box, without what varies in it.
    // Empty when no message is like it.
    QString MessageIn(const QString& text) const;

 private:
    void ReadContents(const QString& index);
    void ReadPage(const QString& folder, const QString& page);

    std::vector<GuideEntry> contents_;
    std::vector<GuideSection> sections_;
    QStringList messages_;  // the parts of messages that don't vary
};

}  // namespace vellumark
