#pragma once

#include "tests/support/Told.h"
#include "tests/support/Weeks.h"

namespace mrlxmlclass::testing {

/// A call of DependsDateChanged by the names of its arguments; what it hands back stands here afterwards.
///
///     DateChange change{.LeadTimeCalc = True};
///     EXPECT_TRUE(change.Move(plan, "Design", Wednesday));
struct DateChange {
    Integer StartFinishDate = 1;
    Boolean LeadTimeCalc = False;
    Boolean SummaryCalc = True;
    Boolean p_not_same_parent = False;
    Boolean p_calc_date = True;
    Ref<Dictionary> p_changeds = {};
    Integer p_diff = 0;
    Date aDateChanged = {};

    Boolean Move(Plan& plan, const String& task, Date date) {
        aDateChanged = date;
        return plan.col().DependsDateChanged(plan.Key(task), aDateChanged, StartFinishDate, LeadTimeCalc, SummaryCalc,
                                             0, p_not_same_parent, p_calc_date, p_changeds, p_diff);
    }
};

/// The keys of a visited set in the order in which they came, texts in quotes: "1" 4 "2". A text that does not stand
/// for itself shows a "!".
inline String Visited(const Ref<Dictionary>& set) {
    if (!set) return "nothing";
    String list;
    for (const auto& entry : set->Snapshot()) {
        const Variant key = entry.key.value();
        const bool text = key.If<String>() != nullptr;
        const String shown = key.Key().text();
        list += (list.empty() ? "" : " ") + (text ? "\"" + shown + "\"" : shown);
        if (text && entry.item != key) list += "!";
    }
    return list;
}

/// Start, end and duration of a task: "2026-03-02 2026-03-04 3".
inline String Span(const TasksCls& task) {
    return DayName(task.TaskBDate()) + " " + DayName(task.TaskEDate()) + " " +
           Conversions::DoubleToString(task.TaskDuration());
}

/// Hears each change of a start and does something of the test's own then.
class OnStart : public TasksColEvents {
public:
    OnStart(Plan& plan, std::function<void(Long key)> act) : plan_(plan), act_(std::move(act)) {
        plan_.col().Events.Add(*this);
    }
    ~OnStart() override { plan_.col().Events.Remove(*this); }
    void DateStartChange(Long key, Date, Boolean, Boolean) override { act_(key); }

private:
    Plan& plan_;
    std::function<void(Long)> act_;
};

}  // namespace mrlxmlclass::testing
