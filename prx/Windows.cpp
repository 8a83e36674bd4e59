#include "prx/Windows.h"

#ifdef PRX_WITH_WINDOWS
#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/QtTaskScreens.h"
#endif

namespace prx {

#ifdef PRX_WITH_WINDOWS

namespace {

/// Keeps the latest dialog until somebody asks how it was left.
class TaskWindows : public mrlxmlclass::QtTaskScreens {
public:
    std::unique_ptr<mrlxmlclass::EditTaskView> NewView(mrlxmlclass::EditTask& form) override {
        latest_ = mrlxmlclass::Ref<mrlxmlclass::EditTask>(&form);
        return QtTaskScreens::NewView(form);
    }
    mrlxmlclass::Ref<mrlxmlclass::EditTask> TakeLatest() { return std::exchange(latest_, {}); }

private:
    mrlxmlclass::Ref<mrlxmlclass::EditTask> latest_;
};

TaskWindows& TheWindows() {
    static TaskWindows windows;
    return windows;
}

}  // namespace

mrlxmlclass::TaskScreens& Windows() {
    return TheWindows();
}

bool LeftByOk() {
    const auto latest = TheWindows().TakeLatest();
    return latest && latest->Saved();
}

std::string WhyNoWindow() {
    return mrlxmlclass::QtTaskScreens::CanShow() ? "" : "there is no display to show a window on";
}

#else

mrlxmlclass::TaskScreens& Windows() {
    return mrlxmlclass::NoTaskScreens();
}

bool LeftByOk() {
    return false;
}

std::string WhyNoWindow() {
    return "this prx was built without windows; build it where Qt 6 Widgets is installed";
}

#endif

}  // namespace prx
