#include "platform/spreadsheet/xml_stream.h"

#include <exception>
#include <expat.h>
#include <memory>
#include <type_traits>

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::platform {

namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserHandle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

// What the parser's callbacks work on. Exceptions must not pass through its frames.
struct Parsing {
    XML_Parser parser;
    XmlHandler& handler;
    std::exception_ptr failure = nullptr;

    template <typename Work>
    void Run(Work work) {
        if (failure || handler.IsStopped())
            return;
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        if (failure || handler.IsStopped())
            XML_StopParser(parser, XML_FALSE);
    }
};

void OnStart(void* data, const char* name, const char** attributes) {
    auto& parsing = *static_cast<Parsing*>(data);
    parsing.Run([&] { parsing.handler.StartElement(name, XmlAttributes(attributes)); });
}

void OnEnd(void* data, const char* name) {
    auto& parsing = *static_cast<Parsing*>(data);
    parsing.Run([&] { parsing.handler.EndElement(name); });
}

void OnText(void* data, const char* text, int length) {
    auto& parsing = *static_cast<Parsing*>(data);
    parsing.Run([&] { parsing.handler.Text({text, static_cast<std::size_t>(length)}); });
}

// False when the handler wants no more.
bool Feed(Parsing& parsing, std::string_view piece, bool last, const std::string& entry) {
    const XML_Status status =
        XML_Parse(parsing.parser, piece.data(), static_cast<int>(piece.size()), last ? XML_TRUE : XML_FALSE);
    if (parsing.failure)
        std::rethrow_exception(parsing.failure);
    if (parsing.handler.IsStopped())
        return false;
    if (status != XML_STATUS_OK)
        throw Error(kUnrecognizedFormat, "The file is damaged: '" + entry + "' in it is no valid XML (" +
                                             XML_ErrorString(XML_GetErrorCode(parsing.parser)) + ").");
    return true;
}

}  // namespace

std::string_view XmlAttributes::Get(std::string_view name) const {
    for (const char** pair = pairs_; *pair != nullptr; pair += 2)
        if (name == *pair)
            return pair[1];
    return {};
}

std::string_view XmlAttributes::Local(std::string_view name) const {
    for (const char** pair = pairs_; *pair != nullptr; pair += 2)
        if (name == LocalName(*pair))
            return pair[1];
    return {};
}

int XmlAttributes::Number(std::string_view name, int other) const {
    return ParseLong(Get(name)).value_or(other);
}

std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

void ReadXml(const ZipArchive& archive, const std::string& entry, XmlHandler& handler) {
    const ParserHandle parser(XML_ParserCreate(nullptr));
    Parsing parsing{parser.get(), handler};
    XML_SetUserData(parser.get(), &parsing);
    XML_SetElementHandler(parser.get(), OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser.get(), OnText);
    bool wanted = true;
    archive.Read(entry, [&](std::string_view piece) {
        wanted = Feed(parsing, piece, false, entry);
        return wanted;
    });
    if (wanted)
        Feed(parsing, {}, true, entry);
}

}  // namespace vellumark::platform
