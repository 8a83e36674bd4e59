#pragma once

#include "mrlxmlclass/platform/TaskScreens.h"

namespace mrlxmlclass {

/// The task dialog in Qt Widgets. A host puts it into its Services:
///
///     QtTaskScreens screens;
///     Services services{system.clock, system.locale, system.files, system.shell, ui, NoOldPlans(), screens};
///
/// In a process without a QApplication the dialog makes one for as long as it stands, on the thread that calls: all
/// dialogs of a process stand on one thread, which to Qt is the main one. What includes this needs no header of Qt.
class QtTaskScreens : public TaskScreens {
public:
    /// Whether a dialog can be shown here: on the thread of the QApplication, or, where there is none, on a display
    /// that answers. Without a QApplication the answer takes a fraction of a second, and forks: not for a process in
    /// which other threads run.
    static bool CanShow();

    /// Fails (429) where nothing can be shown.
    std::unique_ptr<EditTaskView> NewView(EditTask& form) override;
};

}  // namespace mrlxmlclass
