#include "schema/screens/connectionTest.h"

#include <optional>
#include <string>

#include "platform/dialogs.h"
#include "platform/screens/screen.h"
#include "schema/modConnectionTables.h"

namespace vellumark {

void ShowConnectionTest(const ConnectionDetails& details) {
    std::optional<std::string> server;
    {
        const WaitPointer wait;
        server = TestConnection(details);
    }
    if (server)
        platform::ShowInformation("Connected to " + *server);
}

}  // namespace vellumark
