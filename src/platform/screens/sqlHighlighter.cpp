#include "platform/screens/sqlHighlighter.h"

#include <QEvent>
#include <QSet>

namespace vellumark {

namespace {

// What a line leaves open for the next one.
enum State { Nothing = -1, InComment, InText };

const QSet<QString>& Words(const char* text) {
    static QHash<const char*, QSet<QString>> known;
    QSet<QString>& words = known[text];
    if (words.isEmpty())
        for (const QString& word : QString(text).split(' '))
            words.insert(word);
    return words;
}

constexpr const char* kKeywords =
    "ALL ALTER AND ANY AS ASC BETWEEN BY CASE CHECK COLUMN COMMIT CONSTRAINT CREATE CROSS CURRENT_DATE "
    "CURRENT_TIME CURRENT_TIMESTAMP DATABASE DEFAULT DELETE DESC DISTINCT DROP ELSE END ESCAPE EXCEPT EXISTS "
    "FALSE FETCH FIRST FOR FOREIGN FROM FULL GROUP HAVING IN INDEX INNER INSERT INTERSECT INTO IS JOIN KEY "
    "LEFT LIKE LIMIT MERGE NATURAL NEXT NOT NULL OFFSET ON ONLY OR ORDER OUTER OVER PARTITION PERCENT "
    "PRIMARY "
    "RECURSIVE REFERENCES RETURNING RIGHT ROLLBACK ROW ROWS SELECT SET TABLE THEN TOP TRUE TRUNCATE UNION "
    "UNIQUE UPDATE USING VALUES VIEW WHEN WHERE WITH";

constexpr const char* kFunctions =
    "ABS AVG CAST CEIL CEILING COALESCE CONCAT CONVERT COUNT DATEADD DATEDIFF DATEPART DAY DECODE EXTRACT "
    "FLOOR GETDATE IFNULL ISNULL LEN LENGTH LOWER LTRIM MAX MIN MOD MONTH NOW NULLIF NVL POWER REPLACE ROUND "
    "RTRIM SQRT STDDEV SUBSTR SUBSTRING SUM SYSDATE TO_CHAR TO_DATE TO_NUMBER TRIM TRUNC UPPER VARIANCE YEAR";

bool IsWordPart(QChar c) {
    return c.isLetterOrNumber() || c == '_';
}

}  // namespace

SqlHighlighter::SqlHighlighter(QPlainTextEdit& box) : QSyntaxHighlighter(box.document()), box_(box) {
    box.installEventFilter(this);
    ChooseColours();
}

bool SqlHighlighter::eventFilter(QObject* box, QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        ChooseColours();
        rehighlight();
    }
    return QSyntaxHighlighter::eventFilter(box, event);
}

void SqlHighlighter::ChooseColours() {
    const bool dark = box_.palette().color(QPalette::Base).lightness() < 128;
    formats_[Keyword].setForeground(dark ? QColor(0x7f, 0xb2, 0xf0) : QColor(0x1a, 0x4f, 0xa3));
    formats_[Keyword].setFontWeight(QFont::Bold);
    formats_[Function].setForeground(dark ? QColor(0xc8, 0x9b, 0xe6) : QColor(0x7a, 0x2e, 0x9c));
    formats_[Text].setForeground(dark ? QColor(0x9c, 0xcb, 0x86) : QColor(0x2c, 0x6e, 0x1f));
    formats_[Number].setForeground(dark ? QColor(0xe0, 0xa9, 0x6d) : QColor(0x9c, 0x4a, 0x00));
    formats_[Comment].setForeground(dark ? QColor(0x93, 0x97, 0x9e) : QColor(0x66, 0x6b, 0x73));
    formats_[Comment].setFontItalic(true);
}

qsizetype SqlHighlighter::Paint(qsizetype from, qsizetype end, Kind kind) {
    setFormat(static_cast<int>(from), static_cast<int>(end - from), formats_[kind]);
    return end;
}

void SqlHighlighter::highlightBlock(const QString& line) {
    const int before = previousBlockState();
    setCurrentBlockState(Nothing);
    qsizetype at = 0;
    if (before == InComment)
        at = PaintUpTo(line, 0, 0, "*/", InComment);
    else if (before == InText)
        at = PaintUpTo(line, 0, 0, "'", InText);
    while (at < line.size())
        at = PaintToken(line, at);
}

// Paints from `from` to behind the close that stands at `at` or later; where there is none, the rest of the
// line, and the next line goes on.
qsizetype SqlHighlighter::PaintUpTo(const QString& line, qsizetype from, qsizetype at, const QString& close,
                                    int state) {
    const qsizetype found = line.indexOf(close, at);
    if (found < 0)
        setCurrentBlockState(state);
    const qsizetype end = found < 0 ? line.size() : found + close.size();
    return Paint(from, end, state == InComment ? Comment : Text);
}

qsizetype SqlHighlighter::PaintToken(const QString& line, qsizetype at) {
    const QChar c = line[at];
    if (line.mid(at, 2) == "--")
        return Paint(at, line.size(), Comment);
    if (line.mid(at, 2) == "/*")
        return PaintUpTo(line, at, at + 2, "*/", InComment);
    if (c == '\'')
        return PaintUpTo(line, at, at + 1, "'", InText);
    // A name stays as it is, whatever words are in it; in double quotes it may be a text as well.
    if (c == '[' || c == '"' || c == '`') {
        const qsizetype close = line.indexOf(c == '[' ? QChar(']') : c, at + 1);
        const qsizetype end = close < 0 ? line.size() : close + 1;
        return c == '"' ? Paint(at, end, Text) : end;
    }
    return IsWordPart(c) ? PaintWord(line, at) : at + 1;
}

qsizetype SqlHighlighter::PaintWord(const QString& line, qsizetype at) {
    qsizetype end = at;
    const bool number = line[at].isDigit();
    while (end < line.size() && (IsWordPart(line[end]) || (number && line[end] == '.')))
        ++end;
    const QString word = line.mid(at, end - at).toUpper();
    if (number)
        Paint(at, end, Number);
    else if (Words(kKeywords).contains(word))
        Paint(at, end, Keyword);
    else if (Words(kFunctions).contains(word))
        Paint(at, end, Function);
    return end;
}

}  // namespace vellumark
