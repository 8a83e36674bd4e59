#pragma once

#include "mrlxmlclass/platform/Ui.h"

namespace mrlxmlclass {

/// Messages in boxes of Qt Widgets, with one OK button. A host puts it into its Services in place of `system.ui`:
///
///     QtUi ui;
///     QtTaskScreens screens;
///     Services services{system.clock, system.locale, system.files, system.shell, ui, NoOldPlans(), screens};
///
/// A box stands where it can: on the thread of a QApplication, such as the one that the task dialog makes while it
/// stands. Elsewhere a message goes where the system's own does. A box that the task dialog raised goes with it when
/// the host unloads it. What includes this needs no header of Qt.
class QtUi : public Ui {
public:
    /// Whether a message would show in a box now.
    static bool CanShow();

    /// Returns when the person has answered the box.
    void Message(const String& text) override;

protected:
    void DoEvents() override {}
};

}  // namespace mrlxmlclass
