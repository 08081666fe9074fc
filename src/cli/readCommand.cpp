#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "cli/commands.h"
#include "cli/connectionWords.h"
#include "repository/modVellumark.h"
#include "scenario/modNewSchema.h"
#include "schema/modCOOLGenExtract.h"
#include "schema/modCOOLGenFiles.h"
#include "schema/modSisterFiles.h"

namespace vellumark {

namespace {

struct ReadWords {
    std::string kind = "connection";
    NewSchemaDetails schema;
    ConnectionWords connection;
    std::string file;
};

// A kind of schema and the options that describe its source; none for a schema made by hand.
struct Kind {
    std::string word;
    NewSchemaKind kind;
    CLI::App* options;
};

std::string AbsolutePath(std::string_view path) {
    return std::filesystem::absolute(path).lexically_normal().string();
}

bool fIsReadOnly(const NewSchemaDetails& schema) {
    return schema.description == kReadOnlyWord;
}

// What the screens see to before their OK button can be pressed.
bool fCompleteDetails(ReadWords& words) {
    NewSchemaDetails& schema = words.schema;
    if (schema.kind == NewSchemaKind::Connection) {
        std::optional<ConnectionDetails> connection = CompleteConnection(words.connection);
        if (connection)
            schema.connection = std::move(*connection);
        return connection.has_value();
    }
    if (schema.kind == NewSchemaKind::CaseWeaver) {
        schema.sisterFile = AbsolutePath(words.file.empty() ? kCaseWeaverFile : words.file);
        return ReadCaseWeaverHead(schema.sisterFile).has_value();
    }
    if (schema.kind == NewSchemaKind::SheetWeaver) {
        schema.sisterFile = AbsolutePath(words.file.empty() ? kSheetWeaverFile : words.file);
        return ReadSheetWeaverHead(schema.sisterFile).has_value();
    }
    if (schema.kind == NewSchemaKind::COOLGen && !fIsReadOnly(schema)) {
        schema.model.modelFile = AbsolutePath(schema.model.modelFile);
        if (!fCOOLGenAPIPresent()) {
            ShowCOOLGenAPIMissing();
            return false;
        }
    }
    return true;
}

bool ReadSchema(ReadWords words) {
    if (!fCompleteDetails(words) || !fNewSchema(words.schema))
        return false;
    RepositoryScope repository;
    const dao::Value tables =
        RepositoryDatabase.Lookup("select count(*) from [Table] where [FK DBS Id] = ?", {CurrentDBSId});
    std::cout << "read " << dao::ToLong(tables) << " tables into " << CurrentDBSName << "\n";
    return true;
}

void Require(const CLI::App& read, const ReadWords& words, const char* option) {
    if (read.get_option(option)->count() == 0)
        throw CLI::RequiredError(std::string(option) + " (of --kind " + words.kind + ")");
}

// Refuses options that belong to another kind than the chosen one.
void CheckWords(const CLI::App& read, const std::vector<Kind>& kinds, ReadWords& words) {
    const auto chosen = std::ranges::find(kinds, words.kind, &Kind::word);
    for (const Kind& kind : kinds) {
        if (kind.options == nullptr || kind.options == chosen->options)
            continue;
        for (const CLI::Option* option : kind.options->get_options())
            if (option->count() > 0)
                throw CLI::ValidationError(option->get_name(), "does not go with --kind " + words.kind);
    }
    words.schema.kind = chosen->kind;
    if (chosen->kind == NewSchemaKind::Connection)
        Require(read, words, "--type");
    if (chosen->kind == NewSchemaKind::COOLGen) {
        Require(read, words, "--dbms");
        if (!fIsReadOnly(words.schema))
            Require(read, words, "--model");
    }
}

CLI::App* AddModelOptions(CLI::App& read, ReadWords& words) {
    CLI::App* group = read.add_option_group("--kind coolgen");
    group->add_option("--model", words.schema.model.modelFile, "File IEF0000.dat in the model's folder")
        ->type_name("FILE");
    const std::vector<std::string> names(kCOOLGenDBMSNames.begin(), kCOOLGenDBMSNames.end());
    group->add_option("--dbms", words.schema.model.dbmsName, "Database system of the model's tables")
        ->type_name("NAME")
        ->check(CLI::IsMember(names, CLI::ignore_case));
    group->add_flag("--permitted-values", words.schema.model.permittedValues,
                    "Make Categories of the values that the model permits");
    return group;
}

CLI::App* AddSisterOptions(CLI::App& read, ReadWords& words) {
    CLI::App* group = read.add_option_group("--kind caseweaver, --kind sheetweaver");
    group
        ->add_option("--file", words.file,
                     "File that the tool wrote (default: " + std::string(kCaseWeaverFile) + " or " +
                         std::string(kSheetWeaverFile) + " in the current folder)")
        ->type_name("FILE");
    return group;
}

}  // namespace

void AddReadCommand(CLI::App& app, CommandLine& line) {
    const auto words = std::make_shared<ReadWords>();
    CLI::App* read = app.add_subcommand(
        "read", "Make a new schema of a database, a model or a sister tool's file, or an empty one");
    read->add_option("NAME", words->schema.name, "Name of the new Database schema")->required();
    read->add_option("--description", words->schema.description,
                     "Free text; KELPSHORE reads a model's text files that stand in the schema's folder");
    CLI::App* connection = read->add_option_group("--kind connection");
    AddConnectionOptions(*connection, words->connection);
    CLI::App* model = AddModelOptions(*read, *words);
    CLI::App* sister = AddSisterOptions(*read, *words);
    const std::vector<Kind> kinds = {{"connection", NewSchemaKind::Connection, connection},
                                     {"manual", NewSchemaKind::Manual, nullptr},
                                     {"coolgen", NewSchemaKind::COOLGen, model},
                                     {"caseweaver", NewSchemaKind::CaseWeaver, sister},
                                     {"sheetweaver", NewSchemaKind::SheetWeaver, sister}};
    std::vector<std::string> kindWords;
    std::ranges::transform(kinds, std::back_inserter(kindWords), &Kind::word);
    read->add_option("--kind", words->kind, "Where the tables come from; manual makes a schema without any")
        ->check(CLI::IsMember(kindWords))
        ->capture_default_str();
    read->callback([&line, read, kinds, words] {
        CheckWords(*read, kinds, *words);
        line.run = [words] { return ReadSchema(*words); };
    });
}

}  // namespace vellumark
