#pragma once

#include <memory>

#include "mrlxmlclass/runtime/Ref.h"

/// What the task dialog needs of a toolkit. The library shows nothing itself: a host that has a screen puts its own in
/// place.
namespace mrlxmlclass {

class EditTask;
class EditTaskView;

/// Makes the screen side of a dialog.
class TaskScreens {
public:
    virtual ~TaskScreens() = default;
    /// A view of that form, which owns it from then on and outlives it. Nothing shows yet.
    virtual std::unique_ptr<EditTaskView> NewView(EditTask& form) = 0;
};

/// The pages of a host's help.
class HelpSystem : public Counted {
public:
    /// Comes before a page is opened; `owner` is the form that asks.
    virtual void loadSystem(const Ref<Counted>& owner) = 0;
    virtual void OpenHelpPage(const String& page) = 0;
};

/// Makes the help system at the first question; it is kept for the thread.
class HelpSystems {
public:
    virtual ~HelpSystems() = default;
    virtual Ref<HelpSystem> NewHelpSystem() = 0;
};

/// What stands where no toolkit is, and no help: they fail (429) whatever is asked for.
TaskScreens& NoTaskScreens();
HelpSystems& NoHelpSystems();

}  // namespace mrlxmlclass
