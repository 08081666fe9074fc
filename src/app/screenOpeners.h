#pragma once

#include <QWidget>

// Commands of the main window that show a screen. Each opens its screen above the main window.
namespace vellumark {

// Database schemas
void ReadNewSchema(QWidget* main);
void CreateSchemaManually(QWidget* main);
void ChooseSchema(QWidget* main);
void EditSchema(QWidget* main);
void DeleteSchemas(QWidget* main);
void SetTargetConnection(QWidget* main);
void ShowSchemaTree(QWidget* main);
void ReportSchema(QWidget* main);
void ReportTables(QWidget* main);
void ShowTableStatistics(QWidget* main);
void ControlVersions(QWidget* main);
void MergeSchemas(QWidget* main);
void ReadCOOLGenModel(QWidget* main);
void ReadCaseWeaverFile(QWidget* main);
void ReadSheetWeaverFile(QWidget* main);

// Scenarios
void EditScenario(QWidget* main);
void SetForeignKeys(QWidget* main);
void SelectTables(QWidget* main);

// Data
void GenerateData(QWidget* main);
void ViewTargetData(QWidget* main);
void BuildSQL(QWidget* main);
void LoadJetTable(QWidget* main);

// Tools and help
void ShowOptions(QWidget* main);
void MaintainGenericValues(QWidget* main);
void MaintainConversionCodes(QWidget* main);
void ShowTechnicalSupport(QWidget* main);
void ShowAbout(QWidget* main);

}  // namespace vellumark
