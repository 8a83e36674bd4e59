#pragma once

#include <cstdint>

#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

/// The values that deep code reaches without a path to `Application`: shared by all sessions of a thread, the latest
/// `Init` wins. Each thread has its own, so that a server can run one session per worker thread.
struct ModuleState {
    Ref<class ErrorsHandler> g_ErrorsHandler;
    Boolean BVersion;                         ///< links between tasks are live
    Boolean g_SourcePrima;                    ///< the host is told nothing
    Ref<class CalendarCls> g_PublicCalendar;  ///< nothing: every day is a working day
    Integer g_MaxYear;                        ///< 0 = not taken yet: ask MaxYear()
    Boolean g_TaskInfoUnloading;
    Boolean g_InAddOrRemove;
    Date g_MaxDate;  ///< 0 = not known
    Long g_MaxDateTaskKey;
    Date g_MinDate;  ///< 0 = not known
    Long g_MinDateTaskKey;
    String g_FileDateSeparator;
    String g_SystemDateSeparator;
    Integer g_LockFileNumber;  ///< 0 = no lock file was ever opened
    String g_LockFileName;     ///< "" = none is held
    Boolean g_ReadOnly;
    String g_UrlResult;  ///< what the form for a web address gave

    /// The host's help, once it was asked for.
    Ref<class HelpSystem> help_system;
    /// Moves whenever a task's `TaskCondidat` changes, so that counts of candidates know when they are stale.
    std::uint64_t candidacy_stamp = 1;
    /// Moves whenever a task's row changes, or a task leaves its collection: what was sorted by row is stale then.
    std::uint64_t outline_stamp = 1;
};

/// Use Module().
namespace module_state {
extern constinit thread_local ModuleState* of_thread;
ModuleState& Make();
}  // namespace module_state

/// This thread's values, made at first use.
inline ModuleState& Module() {
    return module_state::of_thread != nullptr ? *module_state::of_thread : module_state::Make();
}

/// The first year that a task date may have.
inline constexpr int kMinYear = 2000;
/// Takes the last year anew from today.
void TakeMaxYear();
/// The last year that a task date may have: ten years from the day on which it was first needed.
inline Integer MaxYear() {
    const Integer& year = Module().g_MaxYear;
    if (year == 0) TakeMaxYear();
    return year;
}

/// Makes the shared error log where it is absent.
void EnsureErrorsHandler();
/// How many failures it holds.
Long RecordedFailures();

}  // namespace mrlxmlclass
