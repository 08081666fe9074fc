#include "platform/spreadsheet/ods_workbook.h"

#include "platform/error.h"
#include "platform/spreadsheet/ods_sheet.h"

namespace vellumark::platform {

namespace {

const std::string kContent = "content.xml";
const std::string kManifest = "META-INF/manifest.xml";
const std::string kKindOfFile = "mimetype";
constexpr std::string_view kSpreadsheetKind = "application/vnd.oasis.opendocument.spreadsheet";

class EncryptionFinder : public XmlHandler {
 public:
    void StartElement(std::string_view name, const XmlAttributes&) override {
        if (LocalName(name) != "encryption-data")
            return;
        found = true;
        Stop();
    }

    bool found = false;
};

class SheetLister : public XmlHandler {
 public:
    void StartElement(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "table:table" && depth_++ == 0)
            names.emplace_back(attributes.Get("table:name"));
    }
    void EndElement(std::string_view name) override {
        if (name == "table:table")
            --depth_;
    }

    std::vector<std::string> names;

 private:
    int depth_ = 0;
};

bool IsEncrypted(const ZipArchive& archive) {
    if (!archive.Has(kManifest))
        return false;
    EncryptionFinder finder;
    ReadXml(archive, kManifest, finder);
    return finder.found;
}

}  // namespace

bool OdsWorkbook::Serves(const ZipArchive& archive) {
    if (!archive.Has(kKindOfFile))
        return false;
    std::string kind;
    archive.Read(kKindOfFile, [&](std::string_view piece) {
        kind += piece.substr(0, kSpreadsheetKind.size());
        return false;
    });
    return kind == kSpreadsheetKind;
}

OdsWorkbook::OdsWorkbook(std::unique_ptr<ZipArchive> archive) : archive_(std::move(archive)) {
    if (IsEncrypted(*archive_))
        throw Error(kPermissionDenied, "The file is protected by a password.");
    SheetLister lister;
    ReadXml(*archive_, kContent, lister);
    names_ = std::move(lister.names);
    if (names_.empty())
        throw Error(kUnrecognizedFormat, "The file holds no worksheets.");
}

void OdsWorkbook::ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) {
    ReadOdsSheet(*archive_, kContent, sheet, range, use);
}

}  // namespace vellumark::platform
