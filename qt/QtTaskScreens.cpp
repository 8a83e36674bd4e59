#include "qt/QtTaskScreens.h"

#include "mrlxmlclass/runtime/Failure.h"
#include "qt/Desktop.h"
#include "qt/TaskView.h"

namespace mrlxmlclass {

bool QtTaskScreens::CanShow() {
    return qt::CanShowWidgets();
}

std::unique_ptr<EditTaskView> QtTaskScreens::NewView(EditTask& form) {
    if (!CanShow()) Raise(failure::kCannotCreate);
    return std::make_unique<qt::TaskView>(form);
}

}  // namespace mrlxmlclass
