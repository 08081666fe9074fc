#pragma once

#include <QTextBrowser>

namespace vellumark {

// Shows a page of the guide. Pictures wider than the text are made smaller without losing their lettering.
class GuidePage : public QTextBrowser {
    Q_OBJECT

 public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override;
};

}  // namespace vellumark
