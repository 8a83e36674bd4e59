#pragma once

#include <string>

#include "mrlxmlclass/dialog/EditTask.h"
#include "mrlxmlclass/platform/TaskScreens.h"

/// The windows of this program, which it has when it was built with them.
namespace prx {

/// Goes on as the program that has them, with the same command line. Comes back where this is it, or there is none.
void GoOnWithWindows(char** arguments);

mrlxmlclass::TaskScreens& Windows();
/// Why no window can be shown now, in plain words; "" when one can.
std::string WhyNoWindow();
/// Shows a message in front of the window that stands. False when none does: then it is not shown.
bool ShowMessage(const std::string& text);
/// How the latest dialog was left; it counts as failed where none could be shown.
mrlxmlclass::EditTask::Ending EndingOfDialog();

}  // namespace prx
