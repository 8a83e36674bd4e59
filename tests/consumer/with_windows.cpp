// Makes the view of a task dialog, in a program that includes nothing of Qt.
#include <cstdio>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/QtTaskScreens.h"
#include "qt/QtUi.h"

using namespace mrlxmlclass;

int main() {
    const auto form = Make<EditTask>();
    QtTaskScreens screens;
    if (!QtTaskScreens::CanShow()) return 1;
    const auto view = screens.NewView(*form);
    if (!QtUi::CanShow()) return 2;
    std::puts("The installed windows work.");
    return 0;
}
