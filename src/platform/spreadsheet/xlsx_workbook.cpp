#include "platform/spreadsheet/xlsx_workbook.h"

#include <algorithm>
#include <map>

#include "platform/error.h"
#include "platform/spreadsheet/xlsx_strings.h"
#include "platform/spreadsheet/xlsx_styles.h"

namespace vellumark::platform {

namespace {

constexpr std::string_view kPackageRelations = "_rels/.rels";

struct Relation {
    std::string type;  // the last word of its address, such as "worksheet"
    std::string entry;
};

std::string_view LastPart(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::string_view FolderOf(std::string_view entry) {
    return entry.substr(0, entry.rfind('/') + 1);
}

// The entry that a path means from a folder of the archive, which ends with its separator.
std::string Resolve(std::string_view folder, std::string_view target) {
    if (target.starts_with('/'))
        return std::string(target.substr(1));
    std::string base(folder);
    while (target.starts_with("../")) {
        target.remove_prefix(3);
        if (!base.empty())
            base.pop_back();
        base.resize(base.rfind('/') + 1);
    }
    return base.append(target);
}

// The relations of a part of the file, by their Ids.
class RelationReader : public XmlHandler {
 public:
    explicit RelationReader(std::string_view folder) : folder_(folder) {}

    void StartElement(std::string_view name, const XmlAttributes& attributes) override {
        if (LocalName(name) == "Relationship")
            relations[std::string(attributes.Get("Id"))] = {std::string(LastPart(attributes.Get("Type"))),
                                                            Resolve(folder_, attributes.Get("Target"))};
    }

    std::map<std::string, Relation> relations;

 private:
    std::string folder_;
};

using Relations = std::map<std::string, Relation>;

Relations ReadRelations(const ZipArchive& archive, const std::string& entry, std::string_view folder) {
    RelationReader reader(folder);
    ReadXml(archive, entry, reader);
    return std::move(reader.relations);
}

// Empty text when there is none of that type.
std::string EntryOfType(const Relations& relations, std::string_view type) {
    const auto found =
        std::ranges::find_if(relations, [&](const auto& relation) { return relation.second.type == type; });
    return found == relations.end() ? std::string() : found->second.entry;
}

class WorkbookReader : public XmlHandler {
 public:
    struct Sheet {
        std::string name;
        std::string relation;
    };

    void StartElement(std::string_view name, const XmlAttributes& attributes) override {
        const std::string_view local = LocalName(name);
        if (local == "workbookPr") {
            const std::string_view flag = attributes.Get("date1904");
            from1904 = flag == "1" || flag == "true" || flag == "on";
        } else if (local == "sheet") {
            sheets.push_back({std::string(attributes.Get("name")), std::string(attributes.Local("id"))});
        }
    }

    std::vector<Sheet> sheets;
    bool from1904 = false;
};

}  // namespace

bool XlsxWorkbook::Serves(const ZipArchive& archive) {
    if (!archive.Has(std::string(kPackageRelations)))
        return false;
    const std::string entry =
        EntryOfType(ReadRelations(archive, std::string(kPackageRelations), ""), "officeDocument");
    return entry.ends_with(".xml") && archive.Has(entry);
}

XlsxWorkbook::XlsxWorkbook(std::unique_ptr<ZipArchive> archive) : archive_(std::move(archive)) {
    const std::string entry =
        EntryOfType(ReadRelations(*archive_, std::string(kPackageRelations), ""), "officeDocument");
    const std::string folder(FolderOf(entry));
    const Relations relations =
        ReadRelations(*archive_, folder + "_rels/" + std::string(LastPart(entry)) + ".rels", folder);
    WorkbookReader reader;
    ReadXml(*archive_, entry, reader);
    from1904_ = reader.from1904;
    stringsEntry_ = EntryOfType(relations, "sharedStrings");
    stylesEntry_ = EntryOfType(relations, "styles");
    for (WorkbookReader::Sheet& sheet : reader.sheets) {
        const auto relation = relations.find(sheet.relation);
        if (relation == relations.end() || relation->second.type != "worksheet")
            continue;
        names_.push_back(std::move(sheet.name));
        entries_.push_back(relation->second.entry);
    }
    if (names_.empty())
        throw Error(kUnrecognizedFormat, "The file holds no worksheets.");
}

void XlsxWorkbook::ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) {
    ReadXlsxSheet(*archive_, entries_.at(sheet), Shared(), range, use);
}

const XlsxShared& XlsxWorkbook::Shared() {
    if (shared_)
        return *shared_;
    XlsxShared shared;
    shared.from1904 = from1904_;
    if (!stringsEntry_.empty())
        shared.strings = ReadSharedStrings(*archive_, stringsEntry_);
    if (!stylesEntry_.empty())
        shared.styles = ReadStyles(*archive_, stylesEntry_);
    return shared_.emplace(std::move(shared));
}

}  // namespace vellumark::platform
