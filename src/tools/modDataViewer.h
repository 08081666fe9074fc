#pragma once

#include <optional>
#include <string>
#include <vector>

#include "schema/modDatabaseConnection.h"
#include "schema/modTableList.h"

// The connection of the data viewer.
namespace vellumark {

// Who calls the viewer decides which database it shows.
enum class ViewerCaller {
    Target,  // the session's Target, which stays open
    Value,   // the connection of the current Value Source
    Form,    // what the connection screen holds, in ConnectionForm
};

// For as long as it stands, the viewer's database is open; one that was opened for it is closed at the end
// and the session's Target is back as it was.
class ViewerConnection {
 public:
    // Not open behind a message of the failure.
    explicit ViewerConnection(ViewerCaller caller);
    ~ViewerConnection();
    ViewerConnection(const ViewerConnection&) = delete;
    ViewerConnection& operator=(const ViewerConnection&) = delete;

    bool IsOpen() const { return open_; }
    char Protocol() const { return protocol_; }
    const OpenConnections& Connections() const { return TargetConnections; }
    // What the header shows.
    const ConnectionDetails& Details() const { return details_; }
    const std::vector<TableEntry>& Tables() const { return tables_; }

 private:
    bool fOpenTarget();
    bool fOpenOther(ViewerCaller caller);

    std::string mode_;
    std::optional<TargetAside> aside_;
    bool open_ = false;
    char protocol_ = 'A';
    ConnectionDetails details_;
    std::vector<TableEntry> tables_;
};

}  // namespace vellumark
