#pragma once

#include "mrlxmlclass/platform/Clock.h"
#include "mrlxmlclass/platform/Files.h"
#include "mrlxmlclass/platform/Locale.h"
#include "mrlxmlclass/platform/OldPlans.h"
#include "mrlxmlclass/platform/Shell.h"
#include "mrlxmlclass/platform/TaskScreens.h"
#include "mrlxmlclass/platform/Ui.h"

namespace mrlxmlclass {

/// What the library asks of the system it runs on. A host or a test may put its own in place of each.
struct Services {
    Clock& clock;
    Locale& locale;
    Files& files;
    Shell& shell;
    Ui& ui;
    OldPlans& old_plans = NoOldPlans();
    TaskScreens& task_screens = NoTaskScreens();
    HelpSystems& help_systems = NoHelpSystems();
};

/// The services of the system itself, to build a set of one's own from.
Services& SystemServices();

/// Use Platform().
namespace platform {
extern constinit thread_local Services* of_thread;
Services& TakeSystemServices();
}  // namespace platform

/// The services of this thread: those of the system until others are installed.
inline Services& Platform() {
    return platform::of_thread != nullptr ? *platform::of_thread : platform::TakeSystemServices();
}

/// Puts services in place for this thread until it goes out of scope; the services must live as long.
class InstalledServices {
public:
    explicit InstalledServices(Services& services);
    ~InstalledServices();
    InstalledServices(const InstalledServices&) = delete;
    InstalledServices& operator=(const InstalledServices&) = delete;

private:
    Services* before_;
};

/// Keeps an object of the library for this thread and ends it with the thread. `end` must be ready for any thread.
void KeepForThread(void* object, void (*end)(void*));

}  // namespace mrlxmlclass
