#include <stdlib.h>

namespace vellumark::test {

namespace {

// Drivers and data sources are those of the tests, on every machine. ODBC looks where they are only once.
[[maybe_unused]] const bool kSet = [] {
    setenv("ODBCSYSINI", VELLUMARK_TEST_ODBC, 1);
    setenv("ODBCINI", "/dev/null", 1);
    return true;
}();

}  // namespace

}  // namespace vellumark::test
