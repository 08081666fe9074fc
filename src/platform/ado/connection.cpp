#include "platform/ado/connection.h"

#include "platform/error.h"

namespace vellumark::ado {

void Connection::Open(std::string_view connectionString) {
    Close();
    provider_ = OpenProvider(connectionString);
}

Rowset Connection::OpenSchema(SchemaKey key, const Restrictions& restrictions) const {
    return Opened().OpenSchema(key, restrictions);
}

Provider& Connection::Opened() const {
    if (!IsOpen())
        throw platform::Error(kObjectIsClosed, "Operation is not allowed when the object is closed.");
    return *provider_;
}

}  // namespace vellumark::ado
