#include "repository/screens/helpOpeners.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/screens/qtText.h"
#include "platform/screens/screenHelp.h"
#include "repository/modSequentialFileServices.h"
#include "repository/screens/frmHelp.h"

namespace vellumark {

namespace {

// Brings the window up and lets `show` choose its page.
void Open(const std::function<void(frmHelp&)>& show) {
    try {
        show(ShowSingle<frmHelp>(nullptr));
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Cannot show the help.\n\n" + error.Line());
    }
}

void OpenPage(HelpTopic topic, const std::string& page) {
    Open([&](frmHelp& help) {
        help.ShowPlace(ToQt(FileNameOnly(page)));
        if (topic == HelpTopic::Search)
            help.ShowSearch();
    });
}

}  // namespace

void UseHelpWindow() {
    HelpViewer = OpenPage;
    HelpOnScreen = [](const QString& screen) { Open([&](frmHelp& help) { help.ShowScreen(screen); }); };
    HelpOnMessage = [](const QString& text) { Open([&](frmHelp& help) { help.ShowMessage(text); }); };
}

}  // namespace vellumark
