#pragma once

namespace vellumark {

// Reads the settings file again while the program runs. The open Database schema is closed when the
// Repository or the folder of schemas is another one now. False, behind a message, for a Repository that
// can't be used; the settings in use stay then.
bool fReloadSettings();

}  // namespace vellumark
