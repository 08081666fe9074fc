#pragma once

#include <QPlainTextEdit>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>
#include <array>

namespace vellumark {

// Colours SQL in a box: keywords, functions, texts, numbers and comments, in colours that suit the palette.
// It belongs to the box.
class SqlHighlighter : public QSyntaxHighlighter {
 public:
    explicit SqlHighlighter(QPlainTextEdit& box);

    bool eventFilter(QObject* box, QEvent* event) override;

 protected:
    void highlightBlock(const QString& line) override;

 private:
    enum Kind { Keyword, Function, Text, Number, Comment, kKinds };

    void ChooseColours();
    qsizetype Paint(qsizetype from, qsizetype end, Kind kind);
    qsizetype PaintToken(const QString& line, qsizetype at);
    qsizetype PaintWord(const QString& line, qsizetype at);
    qsizetype PaintUpTo(const QString& line, qsizetype from, qsizetype at, const QString& close, int state);

    QPlainTextEdit& box_;
    std::array<QTextCharFormat, kKinds> formats_;
};

}  // namespace vellumark
