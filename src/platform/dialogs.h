#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"

// Where a module asks or tells the user. The desktop shows boxes, the command-line program prints, tests
// record. Texts break lines with "\n"; the title of a box is "Vellumark" unless it is given.
namespace vellumark::platform {

enum class Icon { None, Information, Exclamation, Critical, Question };

// "information", "exclamation", "critical" or "question"; empty for a box without an icon.
std::string_view IconWord(Icon icon);

struct Prompt {
    std::string text;
    std::string title = "Vellumark";
    std::string defaultAnswer;
};

// A question with up to three answers. An empty button caption hides that button.
struct Choice {
    std::string text;
    std::string button1;
    std::string button2;
    std::string cancel;
};

class Dialogs {
 public:
    virtual ~Dialogs() = default;

    virtual void Message(Icon icon, const std::string& text) = 0;
    // A box with a title of its own; without boxes there is none.
    virtual void TitledMessage(Icon icon, const std::string& title, const std::string& text);
    virtual bool AskYesNo(Icon icon, const std::string& text) = 0;
    // The typed text, or nothing when the user cancelled.
    virtual std::optional<std::string> Ask(const Prompt& prompt) = 0;
    // 0 cancel, 1 or 2 for the buttons.
    virtual int Choose(const Choice& choice) = 0;
    // The progress text of a long operation; an empty text clears it.
    virtual void Status(const std::string& text) = 0;
};

// Sets where messages go; the caller keeps `dialogs` alive until another is set.
void UseDialogs(Dialogs& dialogs);
Dialogs& CurrentDialogs();

void ShowInformation(const std::string& text);
void ShowExclamation(const std::string& text);
void ShowCritical(const std::string& text);
// Tells why something isn't done; false, for the caller to return.
bool Refuse(const std::string& reason);
bool AskYesNo(const std::string& text);
void ShowStatus(const std::string& text);
// A failure that no step of an operation foresees: what was being done, an empty line and the error's line.
void ShowUnexpectedError(std::string_view doing, const Error& error);

}  // namespace vellumark::platform
