#include "engine/columnInput.h"
#include "engine/connectionSlots.h"
#include "engine/valueInput.h"
#include "platform/dialogs.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

namespace {

std::string QueryOf(const ConnectionDetails& connection) {
    if (connection.dbmsType == kDbmsJet)
        return "select [" + connection.column + "] from [" + connection.table + "]";
    return "select " + connection.column + " from " + connection.table;
}

// Opens the found connection for the rest of the run. Nothing behind a message.
OpenConnections* OpenSlot(char protocol) {
    const bool open = protocol == 'A' ? fOpenADOConnection(FoundConnection.connectionString)
                                      : fOpenDAODatabase(FoundConnection.connectionString,
                                                         FoundConnection.useODBC, FoundConnection.dsn);
    return open ? &AddConnectionSlot(protocol) : nullptr;
}

// A column of a table in a user's database.
class DatabaseInput : public ColumnInput {
 public:
    explicit DatabaseInput(const ValueSource& source)
        : ColumnInput(source), connectionId_(source.connectionId) {}

 private:
    bool fLoad(platform::TextList& values, int count) override {
        char protocol = 'A';
        OpenConnections* connections = Connect(protocol);
        if (connections == nullptr)
            return false;
        try {
            LoadColumn(values, *connections, protocol, count);
            return true;
        } catch (const platform::Error& error) {
            platform::ShowCritical("Error no: " + std::to_string(error.Number()) + " " + error.Description());
            return false;
        }
    }

    // Nothing behind a message.
    OpenConnections* Connect(char& protocol) const {
        ValueConnectionId = connectionId_;
        ConnectMode = kConnectGetValue;
        OpenConnections* connections = nullptr;
        if (connectionId_ > 0 && fDatabase_Connect_Main(protocol, true)) {
            connections = FindConnectionSlot();
            if (connections == nullptr)
                connections = OpenSlot(protocol);
        }
        if (connections == nullptr) {
            const auto details = ReadConnection(connectionId_);
            platform::ShowExclamation("Cannot connect to Input Value Database: " +
                                      (details ? details->description : std::string()));
        }
        return connections;
    }

    static void LoadColumn(platform::TextList& values, const OpenConnections& connections, char protocol,
                           int count) {
        const std::string query = QueryOf(FoundConnection);
        const auto rows =
            protocol == 'A' ? connections.ado.OpenRecordset(query) : connections.dao.OpenCursor(query);
        while (count-- > 0 && rows->Next())
            values.Append(rows->Text(0));
    }

    int connectionId_;
};

}  // namespace

std::unique_ptr<ValueInput> OtherDatabaseInput(const ValueSource& source) {
    return std::make_unique<DatabaseInput>(source);
}

}  // namespace vellumark
