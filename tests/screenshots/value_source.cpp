#include <QAbstractButton>

#include "album.h"
#include "engine/modValuePreview.h"
#include "scenario/screens/frmValuePreview.h"
#include "scenario/screens/frmValueSource.h"

namespace vellumark::test {

void ShootValueSource(const Album& album) {
    const ColumnRuleDetails rule = ReadColumnRule(1, "LastName").value();
    frmValueSource category(rule, nullptr);
    album.Take("frmValueSource", category);
    frmValueSource text(rule, nullptr);
    text.findChild<QAbstractButton*>("optTxtDelF")->click();
    album.Take("frmValueSource-delimited", text);
    frmValuePreview preview(PreviewValues(ReadValueSource(rule).value(), rule, 100), nullptr);
    album.Take("frmValuePreview", preview);
}

}  // namespace vellumark::test
