#include "prx/Windows.h"

#ifdef PRX_WITH_WINDOWS
#include "qt/QtTaskScreens.h"
#endif

namespace prx {

#ifdef PRX_WITH_WINDOWS

mrlxmlclass::TaskScreens& Windows() {
    static mrlxmlclass::QtTaskScreens windows;
    return windows;
}

std::string WhyNoWindow() {
    return mrlxmlclass::QtTaskScreens::CanShow() ? "" : "there is no display to show a window on";
}

#else

mrlxmlclass::TaskScreens& Windows() {
    return mrlxmlclass::NoTaskScreens();
}

std::string WhyNoWindow() {
    return "this prx was built without windows; build it where Qt 6 Widgets is installed";
}

#endif

}  // namespace prx
