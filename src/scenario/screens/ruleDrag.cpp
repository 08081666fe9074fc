#include "scenario/screens/ruleDrag.h"

#include <QCoreApplication>

namespace vellumark {

namespace {

constexpr const char* kMimeType = "application/x-vellumark-rule";

QByteArray ProcessWord() {
    return QByteArray::number(QCoreApplication::applicationPid());
}

}  // namespace

std::unique_ptr<QMimeData> EncodeRuleDrag(const RuleDrag& drag) {
    auto data = std::make_unique<QMimeData>();
    data->setData(kMimeType, QByteArrayList{ProcessWord(), drag.source == RuleSide::TSO ? "TSO" : "TTR",
                                            QByteArray::number(drag.place.ruleId),
                                            QByteArray::number(drag.place.columnId)}
                                 .join(' '));
    return data;
}

std::optional<RuleDrag> DecodeRuleDrag(const QMimeData& data) {
    const QByteArrayList words = data.data(kMimeType).split(' ');
    if (words.size() != 4 || words[0] != ProcessWord())
        return std::nullopt;
    return RuleDrag{words[1] == "TSO" ? RuleSide::TSO : RuleSide::TTR, {words[2].toInt(), words[3].toInt()}};
}

}  // namespace vellumark
