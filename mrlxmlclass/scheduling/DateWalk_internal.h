#pragma once

#include <optional>

#include "mrlxmlclass/runtime/Walk.h"
#include "mrlxmlclass/scheduling/ReachedTasks.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

/// One change of a date on its way through the plan: along the links to the tasks that wait, down into summaries, and
/// up again to the parents. The three operations call each other to any depth; each is recorded under its own name.
/// What only passes through is left out here; `p_diff` is one variable for all that a call reaches but for the
/// summaries below.
class DateWalk {
public:
    DateWalk(TasksCol& tasks, ByRef<Ref<Dictionary>> p_changeds)
        : frames(In(tasks).frames()), held_(&tasks), col_(tasks), tasks_(tasks), reached_(std::move(p_changeds)) {}

    /// How a task takes a new date: see TasksCol::DependsDateChanged.
    struct Change {
        Integer StartFinishDate;
        Boolean LeadTimeCalc;
        Boolean SummaryCalc;
        Boolean p_not_same_parent;
        Boolean p_calc_date;
    };
    Walk<Boolean> DependsDateChanged(KeyText key, Date& changed_date, const Change& how, Integer& p_diff);

    /// How a successor follows: see TasksCol::AdjustDate.
    struct Follow {
        Integer theLeadTime;
        Boolean LeadTimeCalc;
        Boolean AdjustOtherDate;
        Boolean adjustParent;
        Boolean p_do_same_parent;
    };
    /// Only outermost: inside a walk, its parts stand one by one.
    Boolean AdjustDate(KeyText key, const Ref<TasksCls>& changed, const Follow& how, Integer& p_diff,
                       Date& p_preview_date);

    /// `below` bounds the way down from the summary at which it began.
    Walk<Boolean> SummaryTaskDateChanged2(KeyText key, Date& stDate, Date& UsethisDate, Integer p_diff,
                                          OutlineWalk& below);

    FrameStack& frames;  ///< for the suspended calls

private:
    /// A successor that stands behind the task that changed, and what is left to do for it.
    struct Follower {
        Date start;
        std::optional<Change> onward;  ///< how it moves with all that waits for it, if it does
        Ref<TasksCls> whose_parent;    ///< is adjusted at last; none: nobody's
        Boolean result;
    };
    Follower PutFollower(KeyText key, const Ref<TasksCls>& changed, const Follow& how, Integer& p_diff,
                         Date& p_preview_date);
    void AdjustParentOf(const Follower& follower);
    Walk<Boolean> MoveSuccessors(Ref<TasksCls> task, Date remembered, const Change& how, Integer& p_diff);
    Date SetDate(const Ref<TasksCls>& task, Date& changed_date, const Change& how, Integer& p_diff);
    bool SetTarget(const Ref<TasksCls>& summary, Date& stDate, Date& UsethisDate, Integer& p_diff);
    Date PlaceBehind(const Ref<TasksCls>& child, Long lag, const Ref<TasksCls>& previous, Date& previous_end,
                     Integer& p_diff);
    /// The turn of a successor, one after the other.
    struct Turn {
        explicit Turn(bool with_siblings) : eligible(with_siblings) {}
        void Next(KeyText next);
        bool first() const { return previous.none(); }

        KeyText key;
        KeyText previous;
        bool eligible;
        bool summary = false;  ///< what it is, and how it follows, once it takes its turn
        bool adjusts = false;
        Follow follow{};
    };
    bool Takes(Turn& turn, const Ref<TasksCls>& changed, const Change& how);
    bool IsDue(const Turn& turn, const Ref<TasksCls>& task);
    /// How a summary follows: see TasksCol::SummaryTaskDateChanged2.
    struct SummaryMove {
        Date stDate;
        Date UsethisDate;
        Integer p_diff;
    };
    SummaryMove MoveBehind(const Turn& turn, const Ref<TasksCls>& changed, Date remembered, Integer& p_diff);
    Walk<Boolean> MoveSummary(KeyText key, SummaryMove move);
    void AdjustParentOf(const Ref<TasksCls>& task);

    Ref<TasksCol> held_;  // a listener may let go of the collection
    TasksCol& col_;
    TasksCol::Internal tasks_;
    ModuleState& module_ = Module();
    ReachedTasks reached_;
};

}  // namespace mrlxmlclass
