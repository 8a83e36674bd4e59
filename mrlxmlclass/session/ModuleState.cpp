#include "mrlxmlclass/session/ModuleState.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"

namespace mrlxmlclass {
namespace {

constexpr int kYearsAhead = 10;

constinit thread_local ModuleState* module_state = nullptr;

void EndModuleState(void* state) {
    delete static_cast<ModuleState*>(state);
    module_state = nullptr;
}

ModuleState& MakeModuleState() {
    module_state = new ModuleState;
    KeepForThread(module_state, EndModuleState);
    return *module_state;
}

}  // namespace

ModuleState& Module() {
    return module_state != nullptr ? *module_state : MakeModuleState();
}

Integer MaxYear() {
    if (Module().g_MaxYear == 0) TakeMaxYear();
    return Module().g_MaxYear;
}

void TakeMaxYear() {
    Module().g_MaxYear = DateAdd(Interval::Months, 12 * kYearsAhead, Platform().clock.Today()).year();
}

void EnsureErrorsHandler() {
    ModuleState& module = Module();
    if (!module.g_ErrorsHandler) module.g_ErrorsHandler = Make<ErrorsHandler>();
}

}  // namespace mrlxmlclass
