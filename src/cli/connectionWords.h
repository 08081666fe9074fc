#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "schema/modConnectionDetails.h"

namespace vellumark {

// The words that describe a connection, as several commands take them.
struct ConnectionWords {
    ConnectionDetails details;
    std::string protocol = "ado";
    std::string access = "direct";
    bool askPassword = false;
    std::optional<std::string> tablePrefix;
    std::optional<std::string> ownerPrefix;
};

CLI::Option* AddConnectionOptions(CLI::App& command, ConnectionWords& words);

// The record that the words stand for, with its connection string; a password that was typed or lies in the
// environment goes into a given string as well unless it has one. Nothing, behind a message, when the
// protocol can't reach the system so or no password came.
std::optional<ConnectionDetails> CompleteConnection(const ConnectionWords& words);

}  // namespace vellumark
