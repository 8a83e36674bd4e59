// Makes the view of a task dialog, in a program that includes nothing of Qt.
#include <cstdio>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/QtTaskScreens.h"

using namespace mrlxmlclass;

int main() {
    const auto form = Make<EditTask>();
    QtTaskScreens screens;
    if (!QtTaskScreens::CanShow() || !screens.NewView(*form)) return 1;
    std::puts("The installed windows work.");
    return 0;
}
