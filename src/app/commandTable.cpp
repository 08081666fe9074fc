#include "app/commandTable.h"

#include <array>

#include "app/screenOpeners.h"
#include "app/sessionCommands.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

using enum Availability;

constexpr std::array kCommands = {
    // Data&base
    Command{"ID_NewDB", "Read &New Schema from Database Connection...", Always, ReadNewSchema, "new-schema",
            "Ctrl+Shift+N"},
    Command{"ID_DBSNew", "&Manually create a New Database Schema...", Always, CreateSchemaManually},
    Command{"ID_Open", "&Open Database Schema...", Always, ChooseSchema, "open-schema", "Ctrl+O"},
    Command{"ID_DBSEdit", "&Edit Database Schema...", SchemaOpen, EditSchema},
    Command{"ID_Close", "&Close Database Schema", SchemaOpen, CloseSchema, "close-schema", "Ctrl+W"},
    Command{"ID_DBDelete", "&Delete Database Schema...", Always, DeleteSchemas},
    Command{"ID_DBSSaveAs", "Save Database Schema As...", SchemaOpen, SaveSchemaAs, "", "Ctrl+Alt+S"},
    Command{"ID_CONTarget", "Tar&get Database Connection...", SchemaOpen, SetTargetConnection,
            "target-connection"},
    Command{"ID_DBSConnect", "Connect to Target Database", Disconnected, Connect, "connect"},
    Command{"ID_DBSDisconnect", "Disconnect from Target Database", Connected, Disconnect, "disconnect"},
    Command{"ID_DBTree", "&Tree View...", SchemaOpen, ShowSchemaTree, "schema-tree", "Ctrl+T"},
    Command{"ID_DBReport", "&Database Definition Report...", SchemaOpen, ReportSchema, "schema-report"},
    Command{"ID_TableStats", "Table &Statistics...", Statistics, ShowTableStatistics},
    Command{"ID_VersionControl", "&Version Control...", SchemaOpen, ControlVersions},
    Command{"ID_DBSMerge", "Merge Database Sc&hemas...", SchemaOpen, MergeSchemas},
    Command{"ID_Exit", "E&xit", Always, Exit, "", "Ctrl+Q"},

    // Grid &Weaver
    Command{"ID_NewCOOLGen", "Read COOL:Gen &model...", Always, ReadCOOLGenModel, "new-coolgen"},
    Command{"ID_CaseWeaver", "Read &Case Weaver File...", Always, ReadCaseWeaverFile},
    Command{"ID_SheetWeaver", "Read &Sheet Weaver File...", Always, ReadSheetWeaverFile},
    Command{"ID_RepTable", "List Tables Report...", SchemaOpen, ReportTables},

    // &Scenario
    Command{"ID_NewTS", "&New Scenario...", SchemaOpen, NewScenario, "new-scenario", "Ctrl+N"},
    Command{"ID_TbtEdit", "&Edit Scenario...", ScenarioSelected, EditScenario, "edit-scenario", "Ctrl+E"},
    Command{"ID_ParentChildDiagram", "Set &Foreign Keys...", ScenarioSelected, SetForeignKeys, "foreign-keys",
            "Ctrl+K"},
    Command{"ID_SaveTSAs", "&Save As...", ScenarioSelected, CopyScenario, "save-as", "Ctrl+Shift+S"},
    Command{"ID_TSORename", "&Rename Scenario...", ScenarioSelected, RenameSelectedScenario, "rename", "F2"},
    Command{"ID_Delete", "&Delete Scenario", ScenarioSelected, DeleteSelectedScenario, "delete-scenario",
            "Del"},
    Command{"ID_TSOSelectTables", "Select Database &Tables...", ScenarioSelected, SelectTables},
    Command{"ID_ConsistencyCheck", "Consistenc&y Check", ScenarioSelected},

    // &Data
    Command{"ID_GenData", "&Generate SQL...", ScenarioSelected, GenerateData, "generate", "Ctrl+G"},
    Command{"ID_ViewData", "Edit &Data on Target Database...", SchemaOpen, ViewTargetData, "view-data",
            "Ctrl+D"},
    Command{"ID_SQLBuilder", "&SQL Builder", SchemaOpen, BuildSQL, "sql-builder", "Ctrl+B"},
    Command{"ID_LoadTable", "&Load Jet Table", Always, LoadJetTable},

    // &Tools
    Command{"ID_Options", "&Options...", Always, ShowOptions, "options", "Ctrl+,"},
    Command{"ID_ValMaint", "&Generic Values...", Always, MaintainGenericValues, "generic-values"},
    Command{"ID_CNVMaint", "&Conversion Codes...", Always, MaintainConversionCodes},

    // &Help
    Command{"ID_HelpContents...", "Help Contents...", Always, ShowHelpContents, "help", "F1"},
    Command{"ID_HelpSearch...", "Help Search...", Always, ShowHelpSearch, "", "Ctrl+F1"},
    Command{"ID_HelpUsingHelp...", "Help Using Help...", Always, ShowHelpOnHelp},
    Command{"ID_TechnicalSupport", "Technical Support...", Always, ShowTechnicalSupport},
    Command{"ID_WebHome", "Tarvo Software on the Web...", Always, ShowMakerOnTheWeb},
    Command{"ID_WebVM", "Vellumark on the Web...", Always, ShowProductOnTheWeb},
    Command{"ID_HelpAbout...", "Help About...", Always, ShowAbout},

    Command{"ID_btnIcon", "Icon View", Always, nullptr, "view-icons", "Ctrl+1"},
    Command{"ID_btnSmallIcon", "Small Icon View", Always, nullptr, "view-small-icons", "Ctrl+2"},
    Command{"ID_btnList", "List View", Always, nullptr, "view-list", "Ctrl+3"},
    Command{"ID_btnReport", "Report View", Always, nullptr, "view-report", "Ctrl+4"},
};

}  // namespace

std::span<const Command> Commands() {
    return kCommands;
}

bool IsAvailable(Availability availability) {
    const bool open = SessionState != kNotOpen;
    const bool selected = SessionState == kOpenWithScenario;
    const bool connected = TargetConnectionState == 'C';
    switch (availability) {
        case Always:
            return true;
        case SchemaOpen:
            return open;
        case ScenarioSelected:
            return selected;
        case Disconnected:
            return open && !connected;
        case Connected:
            return open && connected;
        case Statistics:
            return open && !(selected && CurrentScenarioTab == ScenarioTab::Delete);
    }
    return false;
}

const std::vector<CommandBar>& Menus() {
    static const std::vector<CommandBar> menus = {
        {"mnuDatabase",
         "Data&base",
         {"ID_GridWeaver",
          "-",
          "ID_NewDB",
          "ID_DBSNew",
          "-",
          "ID_Open",
          "ID_DBSEdit",
          "ID_Close",
          "ID_DBDelete",
          "-",
          "ID_CONTarget",
          "ID_DBSConnect",
          "ID_DBSDisconnect",
          "-",
          "ID_DBTree",
          "ID_DBReport",
          "ID_TableStats",
          "-",
          "ID_VersionControl",
          "ID_DBSMerge",
          "-",
          "ID_Exit"}},
        {"mnuScenario",
         "&Scenario",
         {"ID_NewTS", "ID_TbtEdit", "ID_ParentChildDiagram", "ID_SaveTSAs", "ID_TSORename", "ID_Delete", "-",
          "ID_TSOSelectTables"}},
        {"mnuData", "&Data", {"ID_GenData", "ID_ViewData", "ID_SQLBuilder", "-", "ID_LoadTable"}},
        {"mnuTools", "&Tools", {"ID_Options", "-", "ID_ValMaint", "ID_CNVMaint"}},
        {"mnuHelp",
         "&Help",
         {"ID_HelpContents...", "ID_HelpUsingHelp...", "-", "ID_TechnicalSupport", "ID_WebHome", "ID_WebVM",
          "-", "ID_HelpAbout..."}},
    };
    return menus;
}

const CommandBar& GridWeaverMenu() {
    static const CommandBar menu = {"ID_GridWeaver",
                                    "Grid &Weaver",
                                    {"ID_NewCOOLGen", "ID_CaseWeaver", "ID_SheetWeaver", "-", "ID_RepTable"}};
    return menu;
}

const std::vector<CommandBar>& ToolBars() {
    static const std::vector<CommandBar> bars = {
        {"tbrDatabase",
         "",
         {"ID_NewDB", "ID_NewCOOLGen", "ID_Open", "ID_DBTree", "ID_DBReport", "ID_Close", "-", "ID_CONTarget",
          "ID_DBSConnect", "ID_DBSDisconnect"}},
        {"tbrScenario",
         "",
         {"ID_NewTS", "ID_TbtEdit", "ID_ParentChildDiagram", "ID_Delete", "-", "ID_GenData", "ID_ViewData",
          "ID_SQLBuilder", "-", "ID_ValMaint", "-", "ID_btnIcon", "ID_btnList", "ID_btnSmallIcon"}},
    };
    return bars;
}

const std::vector<std::string_view>& ScenarioMenu() {
    static const std::vector<std::string_view> entries = {"ID_TbtEdit",
                                                          "ID_ParentChildDiagram",
                                                          "ID_GenData",
                                                          "-",
                                                          "ID_NewTS",
                                                          "ID_SaveTSAs",
                                                          "ID_TSORename",
                                                          "ID_Delete",
                                                          "-",
                                                          "ID_btnIcon",
                                                          "ID_btnSmallIcon",
                                                          "ID_btnList",
                                                          "ID_btnReport"};
    return entries;
}

}  // namespace vellumark
