#pragma once

#include <QWidget>

// Commands of the main window that work on the session itself, with no screen of their own but a prompt or a
// question.
namespace vellumark {

void CloseSchema(QWidget* main);
void SaveSchemaAs(QWidget* main);
void Connect(QWidget* main);
void Disconnect(QWidget* main);
void Exit(QWidget* main);

void NewScenario(QWidget* main);
void CopyScenario(QWidget* main);
void RenameSelectedScenario(QWidget* main);
void DeleteSelectedScenario(QWidget* main);

void ShowHelpContents(QWidget* main);
void ShowHelpSearch(QWidget* main);
void ShowHelpOnHelp(QWidget* main);
void ShowMakerOnTheWeb(QWidget* main);
void ShowProductOnTheWeb(QWidget* main);

}  // namespace vellumark
