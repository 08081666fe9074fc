#include "platform/connection_string.h"

#include <algorithm>
#include <array>
#include <utility>

#include "input.h"
#include "platform/error.h"
#include "platform/odbc/driver_string.h"
#include "platform/text.h"
#include "scene.h"
#include "schema/modConnectionString.h"
#include "schema/modDataLink.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

std::vector<LinkPart> Filled(const DataLink& link) {
    std::vector<LinkPart> parts = link.OtherParts();
    std::erase_if(parts, [](const LinkPart& part) { return part.value.empty(); });
    return parts;
}

void ExpectSameParts(const DataLink& a, const DataLink& b) {
    const std::vector<LinkPart> first = Filled(a), second = Filled(b);
    Expect(first.size() == second.size(), "as many parts in " + a.ConnectionString());
    for (std::size_t i = 0; i < first.size(); ++i) {
        ExpectSame(first[i].name, second[i].name, "a part's name");
        ExpectSame(first[i].value, second[i].value, "a part's value");
    }
}

void CheckDataLink(std::string_view text, std::string_view value) {
    DataLink link(text);
    ExpectSame(link.ConnectionString(), text, "a string that nobody changed");
    link.SetPassword(value);
    link.SetDriver("{" + std::string(value) + "}");
    link.AddPart("Added", value);
    const DataLink again(link.ConnectionString());
    ExpectSame(again.Password(), link.Password(), "a password set");
    ExpectSame(again.Driver(), link.Driver(), "a driver set");
    ExpectSameParts(link, again);
    fLinkPartNameOK(value);
}

void CheckWrittenValue(std::string_view value) {
    const platform::ConnectionString parts("a=" + platform::WrittenValue(value) + ";b=c");
    ExpectSame(parts.Value("A"), value, "a value written and read");
    ExpectSame(parts.Value("b"), "c", "the value behind it");
}

// A password that stands once in the string stands nowhere in the text for people. One with an asterisk may
// be found there by chance, made of the asterisks put over others.
void CheckMask(std::string_view text) {
    const platform::ConnectionString parts(text);
    for (const platform::ConnectionString::Part& part : parts.Parts()) {
        const bool isPassword = platform::EqualsIgnoringCase(part.key, "PWD") ||
                                platform::EqualsIgnoringCase(part.key, "Password");
        const bool isTelling = part.value.size() > 8 && part.value.find('*') == std::string::npos;
        if (isPassword && isTelling && text.find('\n') == text.npos)
            Expect(platform::MaskPasswords(text).find(part.value) == std::string::npos ||
                       text.find(part.value) != text.rfind(part.value),
                   "no password is shown: " + std::string(text));
    }
}

auto CountOf(const platform::ConnectionString& text, std::string_view key) {
    return std::ranges::count_if(text.Parts(), [&](const platform::ConnectionString::Part& part) {
        return platform::EqualsIgnoringCase(part.key, key);
    });
}

void CheckDriverString(std::string_view text) {
    static const odbc::Installed installed = {{"PostgreSQL Unicode", "MariaDB Unicode", "SQLite3", "FreeTDS",
                                               "ODBC Driver 18 for SQL Server", "Oracle"},
                                              {{"shop", "PostgreSQL Unicode"}, {"none", ""}}};
    try {
        const platform::ConnectionString out(odbc::DriverManagerString(text, installed));
        const platform::ConnectionString in(text);
        Expect(odbc::NamesSource(out), "a driver or a data source");
        for (const auto& [key, otherKey] : {std::pair("UID", "User Id"), std::pair("PWD", "Password")})
            if (CountOf(in, key) == 1 && CountOf(in, otherKey) == 0 && !in.Value(key).empty())
                ExpectSame(out.Value(key), in.Value(key), "what to log in with");
    } catch (const platform::Error& error) {
        Expect(error.Number() == platform::kProviderNotFound, error.Line());
    }
}

ConnectionDetails DetailsOf(Input& input) {
    constexpr std::array types = {kDbmsJet, kDbmsSqlServer, kDbmsOracle, kDbmsDB2, kDbmsOther};
    ConnectionDetails details;
    details.dbmsType = types[input.Choice(types.size())];
    details.protocol = input.Flag() ? 'A' : 'D';
    details.useODBC = input.Flag();
    details.useDefaultString = input.Flag();
    details.password = input.Line();
    details.server = details.dsn = details.database = details.mdbFile = input.Line();
    return details;
}

void CheckShownString(ConnectionDetails details, std::string_view text) {
    details.connectionString = text;
    fConnectionString(details);
    const std::string shown = ShownConnectionString(details);
    if (!details.useDefaultString || details.password.empty() || !HasConnectionString(details))
        return;
    details.password = "another";
    fConnectionString(details);
    ExpectSame(ShownConnectionString(details), shown, "what is shown does not hang on the password");
}

}  // namespace

// Kind of database, ways to reach it, password and server, then a connection string.
void FuzzConnectionString(std::string_view bytes) {
    UseCountingDialogs();
    Input input(bytes);
    const ConnectionDetails details = DetailsOf(input);
    const std::string_view text = input.Rest();
    CheckWrittenValue(details.password);
    CheckDataLink(text, details.password);
    CheckMask(text);
    CheckDriverString(text);
    CheckShownString(details, text);
}

}  // namespace vellumark::fuzz
