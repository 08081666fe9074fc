#pragma once

#include <string>
#include <string_view>

#include "platform/spreadsheet/zip_archive.h"

namespace vellumark::platform {

// The attributes of an element, under their names as written.
class XmlAttributes {
 public:
    explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}

    // Empty text when the attribute is missing.
    std::string_view Get(std::string_view name) const;
    // The same by the name without its prefix.
    std::string_view Local(std::string_view name) const;
    // A whole number, or `other` when there is none.
    int Number(std::string_view name, int other) const;

 private:
    const char** pairs_;
};

// The name without its prefix.
std::string_view LocalName(std::string_view name);

// Receives the pieces of an XML text.
class XmlHandler {
 public:
    virtual ~XmlHandler() = default;

    virtual void StartElement(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void EndElement(std::string_view) {}
    // Text may come in several pieces.
    virtual void Text(std::string_view) {}

    // No more pieces are wanted.
    void Stop() { stopped_ = true; }
    bool IsStopped() const { return stopped_; }

 private:
    bool stopped_ = false;
};

// Reads an entry of an archive as XML. Throws what ZipArchive::Read and the handler throw, and
// kUnrecognizedFormat for text that is no XML.
void ReadXml(const ZipArchive& archive, const std::string& entry, XmlHandler& handler);

}  // namespace vellumark::platform
