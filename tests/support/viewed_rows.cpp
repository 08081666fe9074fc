#include "viewed_rows.h"

#include "embedded.h"
#include "repository/modVellumark.h"
#include "tools/fieldText.h"

namespace vellumark::test {

namespace {

ViewTraits TraitsOf(const ViewRoute& route) {
    if (route.engine == Engine::PostgreSQL)
        return {"bytea",
                "timestamp",
                "boolean",
                "serial primary key",
                "Error 1: [23505] ERROR: duplicate key",
                "Error 1: [23502] ERROR: null value",
                "Error 1: [22007] ERROR: invalid input syntax"};
    if (route.engine == Engine::MariaDB)
        return {"longblob",      "datetime",      "boolean",       "integer auto_increment primary key",
                "Error 1062: [", "Error 1048: [", "Error 1292: [", true};
    const std::string driver = "[HY000] [SQLite]";
    if (!route.embedded)
        return {"blob",
                "datetime",
                "boolean",
                "integer primary key",
                "Error 19: " + driver + "UNIQUE constraint failed",
                "Error 19: " + driver + "NOT NULL constraint failed",
                ""};
    return {"blob",
            "datetime",
            "boolean",
            "integer primary key",
            "Error 3022: UNIQUE constraint failed",
            "Error 3314: NOT NULL constraint failed",
            "Error 3421: Data type conversion error. 'soon' is no date"};
}

}  // namespace

void PrintTo(const ViewRoute& route, std::ostream* out) {
    *out << EngineName(route.engine) << (route.embedded ? " embedded " : " ") << route.protocol;
}

std::string RouteName(const ::testing::TestParamInfo<ViewRoute>& route) {
    return (route.param.embedded ? "Embedded" : EngineName(route.param.engine)) +
           (route.param.protocol == 'A' ? "ADO" : "DAO");
}

void ViewedRowsTest::SetUp() {
    SessionTest::SetUp();
    const ViewRoute route = GetParam();
    traits = TraitsOf(route);
    ConnectMode = kConnectTarget;
    const std::string string = !route.embedded         ? database.ConnectionString()
                               : route.protocol == 'A' ? AccessString(database.Path())
                                                       : database.Path();
    ASSERT_TRUE(route.protocol == 'A' ? fOpenADOConnection(string)
                                      : fOpenDAODatabase(string, !route.embedded, ""))
        << recorder.Take();
    data = std::make_unique<ViewedData>(TargetConnections, route.protocol);
}

void ViewedRowsTest::TearDown() {
    data.reset();
    TargetConnections.Close();
    SessionTest::TearDown();
}

void ViewedRowsTest::Show(const std::string& table) {
    ASSERT_TRUE(data->fShowTable({table, GetParam().engine == Engine::PostgreSQL ? "public" : ""}))
        << recorder.Take();
    while (data->HasMore())
        ASSERT_TRUE(data->fReadMore(1000)) << recorder.Take();
}

std::string ViewedRowsTest::RowText(std::size_t place) const {
    std::string text;
    for (const HeldField& field : data->Row(place))
        text.append(text.empty() ? "" : "|")
            .append(field.kind == HeldField::Kind::Null ? "null" : FieldText(field));
    return text;
}

std::string ViewedRowsTest::Shown() const {
    std::string text;
    for (std::size_t place = 0; place < data->Count(); ++place)
        text.append(text.empty() ? "" : "\n").append(RowText(place));
    return text;
}

std::string ViewedRowsTest::Seen(const std::string& sql) {
    ado::Connection other;
    other.Open(database.ConnectionString());
    return TextOf(*other.OpenRecordset(sql));
}

}  // namespace vellumark::test
