#pragma once

#include <QWidget>

#include "tools/modDataViewer.h"

// The data viewer, shown until it is closed.
namespace vellumark {

// Shows nothing behind the message of a connect that was refused.
void ViewData(ViewerCaller caller, QWidget* parent);

}  // namespace vellumark
