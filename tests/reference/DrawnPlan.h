#pragma once

#include "tests/support/Plan.h"
#include "tests/support/RandomCalendars.h"

namespace mrlxmlclass::reference {

/// A plan that a seed draws: an outline, links both ways across it with and without lead times, units, milestones,
/// tasks off the outline, a calendar, links live or not, a host silenced or not. Some have tasks without dates,
/// some what only damage brings: links known to one side alone, to nobody, to the task itself.
class DrawnPlan : public testing::Plan {
public:
    explicit DrawnPlan(testing::Draws& draws) : DrawnPlan(draws, Setting(draws)) {}

    /// The key of a task; now and then of none.
    String AnyKey() { return draws_.OneIn(40) ? "88" : Existing(); }
    String Existing() { return std::to_string(draws_.From(1, size_)); }
    int size() const { return size_; }
    Date AnyDay();
    /// Whether a task is that one or stands below it.
    bool Below(const String& key, const String& top) const;

    /// All that the tasks hold, a line a task, and what is known of the whole plan.
    String Stored() const;

private:
    struct Setting {
        explicit Setting(testing::Draws& draws);
        bool links;
        bool silent;
        bool auto_link;
        bool usual_week;
        Ref<CalendarCls> calendar;
    };
    DrawnPlan(testing::Draws& draws, const Setting& setting);

    void AddTasks();
    void FillTask(const String& name);
    void AddLinks();
    void AddLink(const String& successor, const String& predecessor);
    bool OddlyOneIn(int count) { return odd_ && draws_.OneIn(count); }

    testing::Draws& draws_;
    int size_;
    bool odd_;
    bool undated_;
    int last_day_;  ///< of a start, from Monday on
};

}  // namespace mrlxmlclass::reference
