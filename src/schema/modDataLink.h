#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark {

struct LinkPart {
    int id = 0;
    std::string name;
    std::string value;
};

// A connection string taken apart, to be edited by its parts.
class DataLink {
 public:
    // An empty text gives the parts that most strings need, without values.
    explicit DataLink(std::string_view connectionString);

    // The text as it came when nothing has changed, else the parts that have a value.
    std::string ConnectionString() const;

    // The driver without its braces. Empty when the string names none.
    std::string Driver() const;
    void SetDriver(std::string_view name);
    std::string Password() const;
    void SetPassword(std::string_view password);

    // All parts but driver and password.
    std::vector<LinkPart> OtherParts() const;
    // Returns the new part's id.
    int AddPart(std::string_view name, std::string_view value);
    void ChangePart(const LinkPart& part);
    void RemovePart(int id);

 private:
    struct Part : LinkPart {
        std::string written;  // the value as the string carries it
    };
    using Names = std::span<const std::string_view>;

    const Part* Find(Names names) const;
    void Set(Names names, std::string_view value, std::string_view written);

    std::vector<Part> parts_;
    std::string original_;
    bool changed_ = false;
    int lastId_ = 0;
};

// Whether a part besides driver and password can have that name; false behind a message.
bool fLinkPartNameOK(std::string_view name);

}  // namespace vellumark
