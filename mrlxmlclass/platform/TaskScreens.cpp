#include "mrlxmlclass/platform/TaskScreens.h"

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

TaskScreens& NoTaskScreens() {
    class None : public TaskScreens {
    public:
        std::unique_ptr<EditTaskView> NewView(EditTask&) override { Raise(failure::kCannotCreate); }
    };
    static None none;
    return none;
}

HelpSystems& NoHelpSystems() {
    class None : public HelpSystems {
    public:
        Ref<HelpSystem> NewHelpSystem() override { Raise(failure::kCannotCreate); }
    };
    static None none;
    return none;
}

}  // namespace mrlxmlclass
