#pragma once

namespace vellumark {

// Makes frmHelp the program's help, behind the Help menu and F1 of every screen and box.
void UseHelpWindow();

}  // namespace vellumark
