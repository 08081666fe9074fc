#include "app/screenOpeners.h"

#include "app/frmAbout.h"
#include "app/frmTechSupport.h"
#include "engine/screens/frmTableStatistics.h"
#include "repository/screens/frmOptions.h"
#include "scenario/modNewSchema.h"
#include "scenario/screens/frmCNVMaintenance.h"
#include "scenario/screens/frmTSOSelectTables.h"
#include "scenario/screens/frmVLEMaintenance.h"
#include "scenario/screens/modRefreshForms.h"
#include "schema/screens/frmCaseWeaver.h"
#include "schema/screens/frmDBSMaintenance.h"
#include "schema/screens/frmDatabaseConnection.h"
#include "schema/screens/frmDatabaseOpen.h"
#include "schema/screens/frmDatabaseTree.h"
#include "schema/screens/frmNewCOOLGen.h"
#include "schema/screens/frmSheetWeaver.h"
#include "tools/screens/builderOpeners.h"
#include "tools/screens/frmLoadTable.h"
#include "tools/screens/frmVersionControl.h"
#include "tools/screens/reportOpeners.h"
#include "tools/screens/viewerOpeners.h"

namespace vellumark {

void ReadNewSchema(QWidget* main) {
    frmDatabaseConnection(kConnectNew, main).exec();
}

void CreateSchemaManually(QWidget* main) {
    if (fNewSchema({.kind = NewSchemaKind::Manual, .name = ""}))
        frmDBSMaintenance(main).exec();
}

void ChooseSchema(QWidget* main) {
    frmDatabaseOpen(SchemaListMode::Open, main).exec();
}

void EditSchema(QWidget* main) {
    frmDBSMaintenance(main).exec();
}

void DeleteSchemas(QWidget* main) {
    frmDatabaseOpen(SchemaListMode::Delete, main).exec();
}

void SetTargetConnection(QWidget* main) {
    frmDatabaseConnection(kConnectTarget, main).exec();
}

void ShowSchemaTree(QWidget* main) {
    frmDatabaseTree(main).exec();
}

void ReportSchema(QWidget* /*main*/) {
    ShowDefinitionReport();
}

void ReportTables(QWidget* /*main*/) {
    ShowTablesReport();
}

void ShowTableStatistics(QWidget* main) {
    frmTableStatistics(main).exec();
}

void ControlVersions(QWidget* main) {
    frmVersionControl(VersionControlMode::VersionControl, main).exec();
}

void MergeSchemas(QWidget* main) {
    frmVersionControl(VersionControlMode::Merge, main).exec();
}

void ReadCOOLGenModel(QWidget* main) {
    frmNewCOOLGen(main).exec();
}

void ReadCaseWeaverFile(QWidget* main) {
    frmCaseWeaver(main).exec();
}

void ReadSheetWeaverFile(QWidget* main) {
    frmSheetWeaver(main).exec();
}

void EditScenario(QWidget* main) {
    ShowRuleScreen(main);
}

void SetForeignKeys(QWidget* main) {
    ShowParentChildDiagram(main);
}

void SelectTables(QWidget* main) {
    frmTSOSelectTables(main).exec();
}

void GenerateData(QWidget* main) {
    ShowGenerateData(main);
}

void ViewTargetData(QWidget* main) {
    ViewData(ViewerCaller::Target, main);
}

void BuildSQL(QWidget* main) {
    BuildSQLText(main, BuilderCaller::Main);
}

void LoadJetTable(QWidget* main) {
    frmLoadTable(main).exec();
}

void ShowOptions(QWidget* main) {
    frmOptions(main).exec();
}

void MaintainGenericValues(QWidget* main) {
    frmVLEMaintenance(main).exec();
}

void MaintainConversionCodes(QWidget* main) {
    frmCNVMaintenance(main).exec();
}

void ShowTechnicalSupport(QWidget* main) {
    frmTechSupport(main).exec();
}

void ShowAbout(QWidget* main) {
    frmAbout(main).exec();
}

}  // namespace vellumark
