#pragma once

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/Bindings.h"

namespace mrlxmlclass::qt {

/// The second tab: what the task waits for.
QWidget* NewPredecessorPage(EditTask& form, Bindings& bindings);

/// The fourth tab: who works on the task.
QWidget* NewPeoplePage(EditTask& form, Bindings& bindings);

}  // namespace mrlxmlclass::qt
