#include "bench_session.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "repository/modOptionsMaintenance.h"
#include "repository/modRepositoryStores.h"
#include "repository/modVellumark.h"

namespace vellumark::bench {

namespace fs = std::filesystem;

namespace {

void Insert(const std::string& table, const Fields& fields, const Fields& others) {
    dao::Recordset rows = RepositoryDatabase.OpenForAppend(table);
    rows.AddNew();
    for (const Fields& group : {fields, others})
        for (const auto& [name, value] : group)
            rows.Set(name, value);
    rows.Update();
}

void AddColumn(int table, int id, const BenchColumn& column) {
    Insert("Column",
           {{"Id", id},
            {"FK DBS Id", CurrentDBSId},
            {"FK TAB Id", table},
            {"Name", column.name},
            {"Vellumark Data Type", column.type},
            {"Vellumark Character Maximum Length", column.length},
            {"Vellumark Numeric Precision", column.precision},
            {"Vellumark Numeric Scale", 0}},
           {});
    Insert("TSO Insert Column Rule",
           {{"Id", id},
            {"FK DBS Id", CurrentDBSId},
            {"FK TSO Id", CurrentTSOId},
            {"FK TTR Id", table},
            {"FK TAB Id", table},
            {"FK COL Id", id},
            {"Sort Order", id},
            {"Code Generate Data Type", "D"},
            {"Flag Exclude", false},
            {"Constant Value", ""},
            {"Fill the column", "N"},
            {"Concat Value with Id", "N"},
            {"generated value too large", "B"},
            {"Code Output Textfile in Quotes", "D"},
            {"Flag column unique", false},
            {"Flag compound column unique", false}},
           column.rule);
}

}  // namespace

void StderrDialogs::Message(platform::Icon, const std::string& text) {
    std::cerr << text << "\n";
}

bool StderrDialogs::AskYesNo(platform::Icon icon, const std::string& text) {
    Message(icon, text);
    return false;
}

std::optional<std::string> StderrDialogs::Ask(const platform::Prompt& prompt) {
    Message(platform::Icon::Question, prompt.text);
    return std::nullopt;
}

int StderrDialogs::Choose(const platform::Choice& choice) {
    Message(platform::Icon::Question, choice.text);
    return 0;
}

Session::Session() : folder_((fs::temp_directory_path() / "vellumark-bench-XXXXXX").string()) {
    if (mkdtemp(folder_.data()) == nullptr)
        throw fs::filesystem_error("no temporary folder", folder_, std::make_error_code(std::errc::io_error));
    platform::UseDialogs(dialogs_);
    LoadProgramPaths();
    RepositoryPath = Path("Vellumark.mdb");
    ValuesPath = Path("Vellumark Values.mdb");
    CurrentDBSId = CurrentTSOId = 1;
    CurrentTSOType = 'I';
    CurrentTSOFolder = DatabasesFolder = folder_;
    CreateRepository(RepositoryPath);
    CreateValuesDatabase(ValuesPath);
    EnsureOptions();
}

Session::~Session() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void AddRule(int id, const std::string& name, const std::vector<BenchColumn>& columns, int rows) {
    RepositoryScope repository;
    Insert("Table", {{"Id", id}, {"FK DBS Id", CurrentDBSId}, {"Name", name}, {"Owner", "SHOP"}}, {});
    Insert("TSO Insert Table Rule",
           {{"Id", id},
            {"FK DBS Id", CurrentDBSId},
            {"FK TSO Id", CurrentTSOId},
            {"FK TAB Id", id},
            {"Sort Order", id},
            {"Start Range", 1},
            {"End Range", rows},
            {"Quantity", rows},
            {"Flag Use Generated Data", true},
            {"Retry Count Data Unique", 1000}},
           {});
    int columnId = 0;
    for (const BenchColumn& column : columns)
        AddColumn(id, ++columnId, column);
}

void SetRows(int rows) {
    RepositoryScope repository;
    RepositoryDatabase.Execute("update [TSO Insert Table Rule] set [End Range] = ?, [Quantity] = ?",
                               {rows, rows});
}

}  // namespace vellumark::bench
