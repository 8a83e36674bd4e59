#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "mrlxmlclass/dialog/EditTask.h"
#include "mrlxmlclass/platform/TaskScreens.h"

namespace mrlxmlclass::testing {

/// A screen without a screen: while the dialog "shows", the test is the person.
class FakeTaskScreens : public TaskScreens {
public:
    std::unique_ptr<EditTaskView> NewView(EditTask& form) override;

    /// What the person does; leaving without closing counts as closing the window.
    std::function<void(EditTask&)> person = [](EditTask& form) { form.CmdCancel_Click(0); };
    /// What the person does with the form for a web address.
    std::function<void(frmurl&)> at_address = [](frmurl& form) { form.CmdCancel_Click(); };
    std::optional<String> clipboard;
    bool clipboard_fails = false;
    /// What the person chooses in the file dialog; "" = nothing.
    String file;

    /// What happens while a view is made.
    std::function<void()> on_new_view = [] {};

    // What the views were asked for.
    int shown = 0;
    int closed = 0;
    std::vector<String> refreshed;  ///< names of controls
    std::vector<String> focused;
    int pointer_resets = 0;
    int menus = 0;
    std::vector<String> files_asked;  ///< title, folder and filter, joined by ", "

private:
    class View;
};

/// A host's help that writes down what it is asked.
class RecordingHelp : public HelpSystems {
public:
    Ref<HelpSystem> NewHelpSystem() override;

    bool missing = false;
    int made = 0;
    std::vector<String> calls;
};

}  // namespace mrlxmlclass::testing
