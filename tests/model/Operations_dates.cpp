#include "tests/model/Invariants.h"
#include "tests/model/Operations.h"
#include "tests/model/Span.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::model {
namespace {

namespace day_by_day = testing::day_by_day;

/// A task and the known span on paper, before its dates are set.
struct Paper {
    explicit Paper(const Edit& edit) {
        const TasksCls& task = *edit.task;
        row.start = task.TaskBDate();
        row.end = task.TaskEDate();
        row.duration = task.TaskDuration();
        row.start_valid = bool(task.TaskBDateValid());
        row.end_valid = bool(task.TaskEDateValid());
        row.duration_valid = bool(task.TaskDurationValid());
        row.unit = edit.task->TaskDurationUnit();
        row.lag = long(task.TaskLag().value());
        row.milestone = bool(task.TaskMilstones());
        row.has_parent = task.ParentID() != 0;
        row.has_children = In(edit.task).HasChildren();
        row.key = long(task.TaskKey().value());
        span = Known();
    }
    static day_by_day::Caches Known() {
        const ModuleState& module = Module();
        return {module.g_MinDate, module.g_MaxDate, long(module.g_MinDateTaskKey.value()),
                long(module.g_MaxDateTaskKey.value())};
    }
    void Compare(const Edit& edit) const {
        const TasksCls& task = *edit.task;
        if (task.TaskBDate() != row.start || task.TaskEDate() != row.end || task.TaskDuration() != row.duration) {
            edit.world.Complain("setters", Named(task) + " has other dates than day by day");
        }
        if (Known() != span) edit.world.Complain("setters", "the span is known otherwise than day by day");
    }

    day_by_day::Row row;
    day_by_day::Caches span;
};

bool Start(const Edit& edit) {
    Paper paper(edit);
    edit.task->TaskBDate(edit.Day());
    paper.row.Start(edit.Day(), paper.span);
    paper.Compare(edit);
    return true;
}
bool End(const Edit& edit) {
    Paper paper(edit);
    edit.task->TaskEDate(edit.Day());
    paper.row.End(edit.Day(), paper.span);
    paper.Compare(edit);
    return true;
}
bool Duration(const Edit& edit) {
    Paper paper(edit);
    edit.task->TaskDuration(edit.number());
    paper.row.Duration(edit.number());
    paper.Compare(edit);
    return true;
}
bool Lag(const Edit& edit) {
    edit.task->TaskLag(edit.number());
    return true;
}
bool Unit(const Edit& edit) {
    static constexpr const char* kUnits[] = {"days", "days", "wks", "mons"};
    edit.task->TaskDurationUnit(kUnits[edit.number()]);
    return true;
}
/// As a task that was never dated.
bool Undate(const Edit& edit) {
    return edit.task->InitDate().full();
}

/// The date in the lower part of the number, the options in the upper one.
constexpr int kDays = 64;
Date DayOf(int number) {
    return Monday + (number % kDays - kDays / 4);
}
Boolean Option(int number, int bit) {
    return ((number / kDays) >> bit & 1) != 0;
}
constexpr int WithOptions(int bits) {
    return kDays * (1 << bits) - 1;
}

/// Where a task without children has but one successor, that one has no other predecessor, and no children either, it
/// starts on the next working day behind its predecessor, or on its last day by a lead of -1; and all above it follow.
class Follower {
public:
    explicit Follower(const Edit& edit) : edit_(edit) {
        const std::vector<String> successors = In(edit.task).SuccessorKeys();
        if (!edit.world.setting.links || AnyUndated(edit.world) || In(edit.task).HasChildren()) return;
        if (successors.size() != 1) return;
        const Ref<TasksCls> successor = edit.col().Item(successors.front());
        if (In(successor).HasChildren() || In(successor).PredecessorKeys().size() != 1) return;
        lead_ = edit.col().GetLeadTime(edit.key(), successor->TaskLeadTime());
        if (lead_ == 0 || lead_ == -1) successor_ = successor;
    }
    void Check() const {
        if (!successor_) return;
        const Date end = edit_.task->TaskEDate();
        const Date due = lead_ == 0 ? day_by_day::NextWorkingDay(end + 1, 1) : day_by_day::NextWorkingDay(end, -1);
        if (successor_->TaskBDate() != due) {
            edit_.world.Complain("follower", Named(*successor_) + " does not start on " + testing::DayName(due));
        }
        const bool turns_back = !In(successor_).SuccessorKeys().empty();
        const Ref<TasksCls> parent = edit_.col().Item(successor_->ParentID());
        if (parent && !turns_back) CheckSummaries(edit_.world, *parent);
    }

private:
    const Edit& edit_;
    Integer lead_;
    Ref<TasksCls> successor_;  ///< nothing where it is another case
};

bool MoveStart(const Edit& edit) {
    const int number = edit.number();
    const Follower follower(edit);
    edit.col().DependsDateChanged(edit.key(), DayOf(number), Option(number, 4) ? -1 : 1,
                                  /*LeadTimeCalc=*/Option(number, 0), /*SummaryCalc=*/!Option(number, 1), 0,
                                  /*p_not_same_parent=*/Option(number, 2), /*p_calc_date=*/!Option(number, 3));
    if (!Option(number, 2)) follower.Check();
    return true;
}
bool MoveEnd(const Edit& edit) {
    const int number = edit.number();
    const Follower follower(edit);
    edit.col().DependsDateChanged(edit.key(), DayOf(number), 2, /*LeadTimeCalc=*/Option(number, 0),
                                  /*SummaryCalc=*/!Option(number, 1), 0, /*p_not_same_parent=*/Option(number, 2),
                                  /*p_calc_date=*/!Option(number, 3));
    if (!Option(number, 2)) follower.Check();
    return true;
}
bool ChangeDuration(const Edit& edit) {
    const Follower follower(edit);
    edit.col().DurationChanged(edit.key(), Double(edit.number() / 2), edit.Is(0) ? "d" : "");
    follower.Check();
    return true;
}
bool Milestone(const Edit& edit) {
    edit.col().SeTAsMilstones(Ref<TasksCol>(&edit.col()), edit.key());
    return true;
}

bool AdjustSummary(const Edit& edit) {
    // Without a fresh start a span only grows.
    edit.col().AdjustSummary(edit.key(), /*InitDate=*/edit.Is(0));
    if (edit.Is(0)) CheckSummaries(edit.world, *edit.task);
    return true;
}
bool MoveSummary(const Edit& edit) {
    const int number = edit.number();
    Date start = DayOf(number);
    Date exactly = Option(number, 0) ? start : Date();
    const int shift = Option(number, 1) ? number % kDays - kDays / 2 : 0;
    const bool undated = AnyUndated(edit.world);
    Boolean moved;
    if (Option(number, 2)) {
        moved = edit.col().SummaryTaskDateChanged(edit.key(), start, exactly);
    } else {
        moved = edit.col().SummaryTaskDateChanged2(edit.key(), start, exactly, True, {}, {}, False, shift);
    }
    if (!moved) return true;
    CheckSummaries(edit.world, *edit.task);
    const ModuleState& module = Module();
    if (!undated && (module.g_MinDate.set() || module.g_MaxDate.set())) {
        edit.world.Complain("span", "it is taken for known after a summary moved");
    }
    return true;
}
bool RollUp(const Edit& edit) {
    Double sum = 0;
    edit.col().RollUpDateChanged(edit.key(), sum);
    if (edit.task->ParentID() != 0) CheckSummaries(edit.world, *edit.col().Item(edit.task->ParentID()));
    return true;
}
bool RollUpOne(const Edit& edit) {
    if (edit.task->ParentID() == 0) return false;
    edit.col().RolUpOneDate(edit.key(), edit.parent_key(), /*Minus=*/edit.Is(0));
    return true;
}
bool Follow(const Edit& edit) {
    const Integer lead = edit.col().GetLeadTime(edit.other_key(), edit.task->TaskLeadTime());
    edit.col().AdjustDate(edit.key(), edit.other, lead, /*LeadTimeCalc=*/edit.Is(0), /*AdjustOtherDate=*/edit.Is(1),
                          /*adjustParent=*/edit.Is(2), {}, /*p_do_same_parent=*/edit.Is(3));
    return true;
}
bool FollowUnlinked(const Edit& edit) {
    edit.col().AdjustDateNoLink(edit.key(), edit.other_key(), edit.number());
    return true;
}

/// With live links a shift leaves the span of the plan counted.
bool Shift(const Edit& edit) {
    edit.col().ResetStartDate(edit.number());
    if (!edit.world.setting.links) return true;
    if (Module().g_MinDate != FirstDay(edit.world)) edit.world.Complain("span", "a shift leaves another first day");
    if (Module().g_MaxDate != LastDay(edit.world)) edit.world.Complain("span", "a shift leaves another last day");
    return true;
}
bool ShiftAlongLinks(const Edit& edit) {
    edit.col().ResetStartDatefordependency(edit.number());
    return true;
}
bool ShiftOneByOne(const Edit& edit) {
    edit.col().ResetStartDatefordependency2(edit.number());
    return true;
}

/// Counts the span, by force or where none is known.
bool AskSpan(const Edit& edit) {
    const bool counts = edit.Is(0) || !Module().g_MinDate.set();
    const Date first = edit.col().GetMinDate(edit.Is(0));
    if (counts && first != FirstDay(edit.world)) edit.world.Complain("span", "another first day is told");
    const bool counts_last = !Module().g_MaxDate.set();
    const Date last = edit.world.app->MaxDate();
    if (counts_last && last != LastDay(edit.world)) edit.world.Complain("span", "another last day is told");
    return true;
}

}  // namespace

std::span<const Operation> DateOperations() {
    static constexpr Operation kOperations[] = {
        {"Start", 8, About::kTask, -5, 40, Start},
        {"End", 5, About::kTask, 0, 50, End},
        {"Duration", 5, About::kTask, 0, 9, Duration},
        {"Lag", 2, About::kTask, -2, 3, Lag},
        {"Unit", 2, About::kTask, 0, 3, Unit},
        {"Undate", 1, About::kTask, 0, 0, Undate},
        {"MoveStart", 22, About::kTask, 0, WithOptions(5), MoveStart},
        {"MoveEnd", 8, About::kTask, 0, WithOptions(4), MoveEnd},
        {"ChangeDuration", 12, About::kTask, 0, 17, ChangeDuration},
        {"Milestone", 4, About::kTask, 0, 0, Milestone},
        {"AdjustSummary", 5, About::kTask, 0, 1, AdjustSummary},
        {"MoveSummary", 12, About::kTask, 0, WithOptions(3), MoveSummary},
        {"RollUp", 4, About::kTask, 0, 0, RollUp},
        {"RollUpOne", 2, About::kTask, 0, 1, RollUpOne},
        {"Follow", 6, About::kLink, 0, 15, Follow},
        {"FollowUnlinked", 2, About::kTwoTasks, -2, 4, FollowUnlinked},
        {"Shift", 5, About::kNone, -20, 40, Shift},
        {"ShiftAlongLinks", 3, About::kNone, -20, 40, ShiftAlongLinks},
        {"ShiftOneByOne", 2, About::kNone, -20, 40, ShiftOneByOne},
        {"AskSpan", 4, About::kNone, 0, 1, AskSpan},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
