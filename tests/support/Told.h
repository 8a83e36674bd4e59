#pragma once

#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// What the host is told of one task's dates, in the orders of those who tell it:
///
///     EXPECT_EQ(plan.Heard(), Told{.key = 2, .start = Monday, .end = Friday, .duration = 5}.Moved());
struct Told {
    int key = 0;
    Date start;
    Date end;
    double duration = 0;
    String unit = "days";
    Boolean milestone = False;
    Boolean parent = False;

    /// A task that moved by itself or along a link.
    String Moved() const { return Start() + End() + Duration("DurationChange") + Duration("TaskDurationChange"); }
    /// A summary that was rebuilt from its children.
    String Summed() const {
        Told summary = *this;
        summary.parent = True;
        return summary.Duration("DurationChange") + summary.Duration("TaskDurationChange") + summary.End() +
               summary.Start();
    }
    /// A task that was shifted with the project: what is told once more behind all that its move raised.
    String Shifted() const {
        Told task = *this;
        task.unit = "days";
        return task.Start() + task.End();
    }

    String Start() const { return Line("DateStartChange", DayName(start), Flags()); }
    String End() const { return Line("DateEndChange", DayName(end), Flags() + ", " + unit); }

private:
    String Duration(const char* event) const {
        return Line(event, Conversions::DoubleToString(duration), unit + ", " + Flags());
    }
    String Flags() const { return Word(milestone) + ", " + Word(parent); }
    static String Word(Boolean flag) { return flag ? "True" : "False"; }
    String Line(const char* event, const String& value, const String& rest) const {
        return String(event) + "(" + std::to_string(key) + ", " + value + ", " + rest + ")\n";
    }
};

/// The four events of a task without children, a duration in days.
inline String Moved(int key, Date start, Date end, double duration) {
    return Told{.key = key, .start = start, .end = end, .duration = duration}.Moved();
}
inline String MovedMilestone(int key, Date day) {
    return Told{.key = key, .start = day, .end = day, .milestone = True}.Moved();
}
inline String Summed(int key, Date start, Date end, double duration) {
    return Told{.key = key, .start = start, .end = end, .duration = duration}.Summed();
}
inline String Shifted(int key, Date start, Date end) {
    return Told{.key = key, .start = start, .end = end}.Shifted();
}

}  // namespace mrlxmlclass::testing
