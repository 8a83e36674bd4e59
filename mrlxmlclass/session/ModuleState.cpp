#include "mrlxmlclass/session/ModuleState.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"

namespace mrlxmlclass {
namespace {

constexpr int kYearsAhead = 10;

void EndModuleState(void* state) {
    delete static_cast<ModuleState*>(state);
    module_state::of_thread = nullptr;
}

}  // namespace

constinit thread_local ModuleState* module_state::of_thread = nullptr;

ModuleState& module_state::Make() {
    of_thread = new ModuleState;
    KeepForThread(of_thread, EndModuleState);
    return *of_thread;
}

void TakeMaxYear() {
    Module().g_MaxYear = DateAdd(Interval::Months, 12 * kYearsAhead, Platform().clock.Today()).year();
}

void EnsureErrorsHandler() {
    ModuleState& module = Module();
    if (!module.g_ErrorsHandler) module.g_ErrorsHandler = Make<ErrorsHandler>();
}

Long RecordedFailures() {
    const Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
    return handler ? handler->Log()->Error_Col()->Count() : Long(0);
}

}  // namespace mrlxmlclass
