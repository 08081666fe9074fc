#include "tools/screens/resultLines.h"

#include <algorithm>
#include <limits>

#include "platform/error.h"
#include "platform/screens/qtText.h"
#include "tools/modSQLBuilder.h"

namespace vellumark {

namespace {

// What is painted of a line; a longer one is there when it is copied.
constexpr qsizetype kPaintedCharacters = 5000;

// A line stays one line.
QString Painted(const QString& line) {
    QString shown = line.left(kPaintedCharacters);
    for (const char16_t blank : {u'\r', u'\n', u'\t', u'\u2028'})
        shown.replace(QChar(blank), ' ');
    return line.size() > kPaintedCharacters ? shown + QChar(0x2026) : shown;
}

}  // namespace

void ResultLines::Clear() {
    beginResetModel();
    rows_.reset();
    shown_ = 0;
    said_.clear();
    endResetModel();
}

void ResultLines::ShowRows(std::shared_ptr<const platform::RowStore> rows) {
    constexpr std::size_t most = std::numeric_limits<int>::max() - 1000;
    const int count = static_cast<int>(std::min(rows->RowCount(), most));
    rows_ = std::move(rows);
    if (count <= shown_)
        return;
    beginInsertRows({}, shown_, count - 1);
    shown_ = count;
    endInsertRows();
}

void ResultLines::Say(const QString& text) {
    const QStringList lines = text.split('\n');
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(lines.size()) - 1);
    said_ += lines;
    endInsertRows();
}

void ResultLines::SetLineSize(const QSize& size) {
    if (size == lineSize_)
        return;
    lineSize_ = size;
    emit layoutChanged();
}

QString ResultLines::Line(int place) const {
    if (place >= shown_)
        return said_.value(place - shown_);
    try {
        return ToQt(ResultLine(rows_->Row(static_cast<std::size_t>(place))));
    } catch (const platform::Error& error) {
        return ToQt(error.Line());
    }
}

QString ResultLines::Lines(QItemSelection selection) const {
    std::ranges::sort(selection, {}, &QItemSelectionRange::top);
    QString text;
    for (const QItemSelectionRange& range : selection)
        for (int place = range.top(); place <= range.bottom(); ++place)
            text += Line(place) + "\n";
    text.chop(1);
    return text;
}

int ResultLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_ + static_cast<int>(said_.size());
}

QVariant ResultLines::data(const QModelIndex& index, int role) const {
    if (role == Qt::SizeHintRole)
        return lineSize_;
    if (role == Qt::DisplayRole)
        return Painted(Line(index.row()));
    return {};
}

}  // namespace vellumark
