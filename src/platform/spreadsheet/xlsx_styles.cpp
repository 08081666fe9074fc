#include "platform/spreadsheet/xlsx_styles.h"

#include <map>

#include "platform/spreadsheet/xml_stream.h"

namespace vellumark::platform {

namespace {

class StyleReader : public XmlHandler {
 public:
    void StartElement(std::string_view name, const XmlAttributes& attributes) override {
        const std::string_view local = LocalName(name);
        if (local == "numFmt")
            codes_[attributes.Number("numFmtId", -1)] = FormatOfCode(attributes.Get("formatCode"));
        else if (local == "cellXfs")
            inCellStyles_ = true;
        else if (local == "xf" && inCellStyles_)
            styles.push_back(FormatOf(attributes.Number("numFmtId", 0)));
    }
    void EndElement(std::string_view name) override {
        if (LocalName(name) == "cellXfs")
            Stop();
    }

    std::vector<CellFormat> styles;

 private:
    CellFormat FormatOf(int id) const {
        const auto code = codes_.find(id);
        return code == codes_.end() ? BuiltInFormat(id) : code->second;
    }

    std::map<int, CellFormat> codes_;
    bool inCellStyles_ = false;
};

}  // namespace

std::vector<CellFormat> ReadStyles(const ZipArchive& archive, const std::string& entry) {
    StyleReader reader;
    ReadXml(archive, entry, reader);
    return std::move(reader.styles);
}

}  // namespace vellumark::platform
