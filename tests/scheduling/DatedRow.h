#pragma once

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/CalendarSession.h"

namespace mrlxmlclass::testing {

/// A task on a calendar with the usual weekend; nothing is set on it yet.
struct DatedRow : CalendarSession {
    DatedRow() { task.TaskKey(7); }

    /// Dates and duration as they are told, by no rule.
    DatedRow& Holding(Date start, Date end, Double duration, const String& unit = "days") {
        In(task).StoreStart(start);
        In(task).StoreEnd(end);
        In(task).StoreDuration(duration);
        task.TaskDurationUnit(unit);
        return *this;
    }
    /// Start, end and duration: "2026-03-02 2026-03-04 3".
    String Drawn() const {
        return DayName(task.TaskBDate()) + " " + DayName(task.TaskEDate()) + " " +
               Conversions::DoubleToString(task.TaskDuration());
    }
    /// The cached ends of the plan with the keys that hold them.
    static String Caches() {
        const ModuleState& module = Module();
        return "min " + DayName(module.g_MinDate) + " of " + std::to_string(module.g_MinDateTaskKey.value()) +
               ", max " + DayName(module.g_MaxDate) + " of " + std::to_string(module.g_MaxDateTaskKey.value());
    }
    static void SetCaches(Date min, int min_key, Date max, int max_key) {
        ModuleState& module = Module();
        module.g_MinDate = min;
        module.g_MinDateTaskKey = min_key;
        module.g_MaxDate = max;
        module.g_MaxDateTaskKey = max_key;
    }

    Ref<TasksCls> held = Make<TasksCls>();
    TasksCls& task = *held;
};

/// What a row with these values is drawn as.
inline String Drawing(Date start, Date end, int duration) {
    return DayName(start) + " " + DayName(end) + " " + std::to_string(duration);
}

}  // namespace mrlxmlclass::testing
