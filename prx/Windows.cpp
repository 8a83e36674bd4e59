#include "prx/Windows.h"

#include <utility>

#include "qt/QtTaskScreens.h"
#include "qt/QtUi.h"

namespace prx {
namespace {

/// Keeps the latest dialog until somebody asks how it was left.
class TaskWindows : public mrlxmlclass::QtTaskScreens {
public:
    std::unique_ptr<mrlxmlclass::EditTaskView> NewView(mrlxmlclass::EditTask& form) override {
        auto view = QtTaskScreens::NewView(form);
        latest_ = mrlxmlclass::Ref<mrlxmlclass::EditTask>(&form);
        return view;
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

void GoOnWithWindows(char** /*arguments*/) {}

mrlxmlclass::TaskScreens& Windows() {
    return TheWindows();
}

mrlxmlclass::EditTask::Ending EndingOfDialog() {
    const auto latest = TheWindows().TakeLatest();
    return latest ? latest->ending() : mrlxmlclass::EditTask::Ending::Failed;
}

bool ShowMessage(const std::string& text) {
    if (!mrlxmlclass::QtUi::CanShow()) return false;
    mrlxmlclass::QtUi().Message(text);
    return true;
}

std::string WhyNoWindow() {
    return mrlxmlclass::QtTaskScreens::CanShow() ? "" : "there is no display to show a window on";
}

}  // namespace prx
