#pragma once

#include <QWidget>

// The screens that the Generate Data screen leads to.
namespace vellumark {

// The Target Connection of the current schema.
void OpenTargetConnection(QWidget* parent);

// The data on the Target Connection.
void OpenTargetData(QWidget* parent);

// Loads the delimited text that a run has written into a table of the sister tool.
void OpenTableLoad(QWidget* parent);

}  // namespace vellumark
