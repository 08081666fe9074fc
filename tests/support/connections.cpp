#include "connections.h"

namespace vellumark::test {

ConnectionDetails FilledConnection(std::string_view dbms, char protocol, bool useODBC) {
    ConnectionDetails details;
    details.schemaName = "Shop";
    details.dbmsType = dbms;
    details.protocol = protocol;
    details.useODBC = useODBC;
    details.mdbFile = "/data/a;b.mdb";
    details.server = "srv";
    details.database = "db";
    details.dsn = "ds";
    details.userId = "me";
    details.password = "pw";
    return details;
}

}  // namespace vellumark::test
