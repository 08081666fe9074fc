#pragma once

#include <QWidget>

// Screens that several places open, each of them once: made when they don't exist, and shown.
namespace vellumark {

// The rules of the current Scenario, beside the main window.
void ShowRuleScreen(QWidget* parent);

// The Dependencies of the current Scenario, on the rule of CurrentTTRId, until they are left.
void ShowParentChildDiagram(QWidget* parent);

// The run of the current Scenario: beside the others, or above a screen that holds them.
void ShowGenerateData(QWidget* parent);

}  // namespace vellumark
