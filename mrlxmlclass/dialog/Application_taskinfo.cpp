#include "mrlxmlclass/dialog/EditTask.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"Application"};
constexpr const char* kFontName = "Arial";
constexpr const char* kFontSize = "10";
constexpr int kNamesOnly = 1;  // the screen that shows nothing of a task but its name

}  // namespace

Boolean Application::showtaskinfo(const Variant& aTaskKey, const Ref<TasksCol>& oTaskCol, Integer Fromwhere,
                                  const Ref<Collection>& Ressource, const String& p_date_format) {
    const Ref<Application> self(this);  // a listener may let go of it
    bool stays_open = false;
    const Boolean changed_duration = kTail.Run<Boolean>("showtaskinfo", [&](Boolean& result) {
        const auto form = Make<EditTask>();
        open_dialog_ = form;
        const String key = aTaskKey.Text();
        const Long start_tab = form->Prepare(Fromwhere, oTaskCol->isParent(key), self);
        Boolean changed;
        if (!key.empty()) {
            changed =
                form->GetTaskInfo(aTaskKey, self, oTaskCol, Ressource, start_tab, p_date_format, kFontName, kFontSize);
        }
        ModuleState& module = Module();
        if (module.g_TaskInfoUnloading) {
            // Kept: the form stays the open one, so that unloading it again unloads the next.
            module.g_TaskInfoUnloading = False;
            stays_open = true;
            return;
        }
        // Kept: whatever the person chose, Cancel too.
        if (Fromwhere == kNamesOnly) oTaskCol->ChangeName(key, oTaskCol->Item(key)->TaskName());
        result = changed;
    });
    if (!stays_open) open_dialog_ = {};
    return changed_duration;
}

Boolean Application::unloadtaskinfo() {
    return kTail.Run<Boolean>("unloadtaskinfo", [&](Boolean&) {
        const Ref<EditTask> form = open_dialog_;
        if (!form) return;
        Module().g_TaskInfoUnloading = True;
        form->Unload();
    });
}

}  // namespace mrlxmlclass
