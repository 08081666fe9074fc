#pragma once

#include <memory>
#include <string>
#include <vector>

#include "servers.h"
#include "session.h"
#include "tools/viewedData.h"

namespace vellumark::test {

// How a test comes to its database.
struct ViewRoute {
    Engine engine;
    char protocol;
    bool embedded = false;  // the file itself, without the driver
};
void PrintTo(const ViewRoute& route, std::ostream* out);
std::string RouteName(const ::testing::TestParamInfo<ViewRoute>& route);

// What the engines do or say in ways of their own.
struct ViewTraits {
    std::string blob, moment, truth, counter;  // types; `counter` with the words of a primary key
    std::string duplicate, missing;            // how refusals begin
    std::string notADate;
    bool wholeRowsOnly = false;  // a table without keys: rows are known by their values alone
};

// The rows of tables on any of the engines, under either protocol, as the viewer reads and changes them.
class ViewedRowsTest : public SessionTest, public ::testing::WithParamInterface<ViewRoute> {
 protected:
    void SetUp() override;
    void TearDown() override;

    // Statements of another connection.
    void Run(const std::string& statements) { database.Run(statements); }
    // Shows the table with all its rows.
    void Show(const std::string& table);
    // Fields joined by "|" with Null as "null", rows by line ends.
    std::string Shown() const;
    std::string RowText(std::size_t place) const;
    // What another connection sees.
    std::string Seen(const std::string& sql);

    static TypedCell Cell(std::size_t column, const std::string& text) { return {column, false, text}; }
    static TypedCell Null(std::size_t column) { return {column, true, ""}; }

    ViewTraits traits;
    ServerDatabase database{GetParam().engine};
    std::unique_ptr<ViewedData> data;
};

}  // namespace vellumark::test
