#include "access_file.h"

#include <algorithm>
#include <array>

#include "input.h"
#include "platform/dao/database.h"
#include "platform/error.h"
#include "targets.h"
#include "temp_folder.h"

namespace vellumark::fuzz {

namespace {

using test::AccessFile;
using test::AccessVersion;
using test::Stored;

constexpr int kMostRows = 2000;

const test::TempFolder& Folder() {
    static const test::TempFolder folder;
    return folder;
}

// A sound file with rows of every kind, to be damaged.
std::string Sound(AccessVersion version) {
    using LongValue = AccessFile::LongValue;
    const int wide = version == AccessVersion::Access97 ? 1 : 2;
    AccessFile file(version);
    file.AddTable({"Parent",
                   {{"Id", 4}, {"Name", 10, 20 * wide}, {"Yes", 1}, {"Born", 8}, {"Note", 12}, {"Price", 5}},
                   {{{0}, true}},
                   {{"PrimaryKey", 1, 0}}});
    for (int row = 0; row < 3; ++row)
        file.AddRow({Stored(row), file.Text("name"), "", Stored(36925.5 + row),
                     file.Long(file.Text(std::string(800, 'm')),
                               std::array{LongValue::OneRow, LongValue::Chain, LongValue::OneRow}[row % 3]),
                     Stored(std::int64_t{12500})});
    file.AddRow({Stored(9), file.Text("moved"), std::nullopt, std::nullopt, std::nullopt, std::nullopt},
                AccessFile::Row::Moved);
    test::AccessTable child{"Child", {{"Id", 4}, {"Parent", 4}, {"Guid", 15}, {"Bytes", 9, 20}}};
    if (version != AccessVersion::Access97)
        child.columns.push_back({"Dec", 16, 0, false, true, 28, 2});
    child.mapOnPages = true;
    file.AddTable(child);
    std::vector<test::AccessField> fields = {Stored(1), Stored(1), std::string(16, 'g'), "bytes",
                                             std::string(17, '\1')};
    fields.resize(child.columns.size());
    file.AddRow(fields);
    file.AddRelation({"Parents", "Parent", "Child", {{"Id", "Parent"}}});
    file.Save(Folder().Path("sound.mdb"));
    return test::ReadFile(Folder().Path("sound.mdb"));
}

// Page, place on the page, count and the bytes to put there, again and again.
void Damage(std::string& file, Input& input) {
    while (!input.AtEnd()) {
        std::size_t at = input.Byte() * std::size_t{2048};
        at += input.Byte() * std::size_t{256};
        at += input.Byte();
        const std::string_view bytes = input.Bytes(1U + input.Byte() % 8U);
        if (file.empty() || bytes.empty())
            return;
        at %= file.size();
        std::copy_n(bytes.begin(), std::min(bytes.size(), file.size() - at),
                    file.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

std::string FileOf(Input& input) {
    static const std::array sound = {Sound(AccessVersion::Access97), Sound(AccessVersion::Access2000),
                                     Sound(AccessVersion::Access2007)};
    const std::size_t kind = input.Choice(sound.size() + 1);
    if (kind == sound.size())
        return std::string(input.Rest());
    std::string file = sound[kind];
    if (input.Flag())
        file.resize(file.size() * input.Byte() / 256);
    Damage(file, input);
    return file;
}

void ReadRows(const dao::Database& database, const std::string& table) {
    const auto rows = database.OpenCursor("select * from " + ("[" + table + "]"));
    for (int count = 0; count < kMostRows && rows->Next(); ++count)
        for (std::size_t i = 0; i < rows->FieldNames().size(); ++i)
            rows->Text(i);
}

// Of a table whose name no statement can hold the definition says enough.
bool TakesBrackets(std::string_view name) {
    return name.find_first_of(std::string_view("]\0", 2)) == name.npos;
}

}  // namespace

// A sound file of one of three versions with damage to it, or a file of its own.
void FuzzAccessFile(std::string_view bytes) {
    Input input(bytes);
    const std::string path = Folder().Write("in.mdb", FileOf(input));
    try {
        const dao::Database database = dao::OpenDatabase(path);
        database.Relations();
        for (const dao::TableDef& table : database.TableDefs()) {
            for (const dao::Index& index : table.indexes)
                Expect(!index.fields.empty(), "an index has fields");
            if (TakesBrackets(table.name))
                ReadRows(database, table.name);
        }
    } catch (const platform::Error& error) {
        Expect(!error.Description().empty(), "a reason");
    }
}

}  // namespace vellumark::fuzz
