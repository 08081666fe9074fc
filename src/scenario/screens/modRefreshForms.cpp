#include "scenario/screens/modRefreshForms.h"

#include <QApplication>

#include "engine/screens/frmGenerateData.h"
#include "scenario/screens/frmParentChildDiagram.h"
#include "scenario/screens/frmTTR.h"

namespace vellumark {

void ShowRuleScreen(QWidget* parent) {
    ShowSingle<frmTTR>(parent).ShowData();
}

void ShowParentChildDiagram(QWidget* parent) {
    frmParentChildDiagram diagram(parent);
    diagram.OnGenerate([&diagram] { ShowGenerateData(&diagram); });
    diagram.exec();
}

void ShowGenerateData(QWidget* parent) {
    if (QApplication::activeModalWidget() == nullptr)
        ShowSingle<frmGenerateData>(parent);
    else
        frmGenerateData(parent).exec();
}

}  // namespace vellumark
