#include "servers.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <unistd.h>

#include "platform/connection_string.h"
#include "platform/dao/database.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::test {

namespace {

// The connection string that the start of the servers has left for an engine.
std::string StartedServer(const std::string& engine) {
    const char* path = std::getenv("VELLUMARK_SERVERS");
    std::ifstream file(path == nullptr ? "" : path);
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(engine + "="))
            return line.substr(engine.size() + 1);
    throw std::runtime_error("No server for " + engine + " is running: run these tests by ctest.");
}

using Values = std::map<std::string, std::string>;

std::string With(const std::string& connectionString, const Values& values) {
    std::string text;
    const platform::ConnectionString parts(connectionString);
    for (const auto& part : parts.Parts()) {
        const auto found = values.find(part.key);
        text += part.key + "=" +
                (found == values.end() ? part.written : platform::WrittenValue(found->second)) + ";";
    }
    return text;
}

}  // namespace

std::string EngineName(Engine engine) {
    return engine == Engine::PostgreSQL ? "PostgreSQL" : engine == Engine::MariaDB ? "MariaDB" : "SQLite";
}

void PrintTo(Engine engine, std::ostream* out) {
    *out << EngineName(engine);
}

void PrintTo(const ServerRoute& route, std::ostream* out) {
    *out << EngineName(route.engine) << " " << route.protocol;
}

ServerDatabase::ServerDatabase(Engine engine)
    : engine_(engine), name_("vellumark_" + std::to_string(getpid())) {
    if (engine == Engine::SQLite) {
        folder_ = std::make_unique<TempFolder>();
        dao::CreateDatabase(folder_->Path("x.db"));
        connectionString_ = "DRIVER={SQLite3};DATABASE=" + folder_->Path("x.db");
        connection_.Open(connectionString_);
        connection_.Execute("drop table MSysProperties");
        return;
    }
    const std::string server = StartedServer(EngineName(engine));
    ado::Connection administrator;
    administrator.Open(server);
    administrator.Execute("create database " + name_);
    connectionString_ = With(server, {{"DATABASE", name_}});
    connection_.Open(connectionString_);
    if (engine == Engine::MariaDB)
        connection_.Execute("set session sql_mode = concat(@@sql_mode, ',ANSI_QUOTES')");
}

ServerDatabase::~ServerDatabase() {
    connection_.Close();
    if (engine_ == Engine::SQLite)
        return;
    try {
        ado::Connection administrator;
        administrator.Open(StartedServer(EngineName(engine_)));
        administrator.Execute("drop database " + name_ +
                              (engine_ == Engine::PostgreSQL ? " with (force)" : ""));
    } catch (const platform::Error& error) {
        ADD_FAILURE() << error.Line();
    }
}

std::string ServerDatabase::ConnectionStringWith(const Values& values) const {
    return With(connectionString_, values);
}

int ServerDatabase::Port() const {
    return std::stoi(platform::ConnectionString(connectionString_).Value("PORT"));
}

void ServerDatabase::Run(const std::string& statements) {
    for (std::string_view statement : platform::Split(statements, ';')) {
        statement.remove_prefix(std::min(statement.find_first_not_of(" \n"), statement.size()));
        if (!statement.empty())
            connection_.Execute(statement);
    }
}

std::string TextOf(platform::Cursor& rows) {
    std::string text;
    while (rows.Next()) {
        text += text.empty() ? "" : "\n";
        for (std::size_t column = 0; column < rows.FieldNames().size(); ++column)
            text.append(column == 0 ? "" : "|").append(rows.IsNull(column) ? "null" : rows.Text(column));
    }
    return text;
}

}  // namespace vellumark::test
