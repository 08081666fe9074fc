#include "scenario/screens/codeLists.h"

#include "platform/screens/qtText.h"

namespace vellumark {

void Offer(QComboBox& list, std::span<const CodeWord> words) {
    list.clear();
    for (const CodeWord& word : words)
        list.addItem(word.word, QString(word.code));
}

void ShowCode(QComboBox& list, const std::string& code, const char* otherwise) {
    const int index = list.findData(ToQt(code), Qt::UserRole, Qt::MatchFixedString);
    list.setCurrentIndex(index >= 0 ? index : list.findData(QString(otherwise)));
}

std::string CodeIn(const QComboBox& list) {
    return FromQt(list.currentData().toString());
}

}  // namespace vellumark
