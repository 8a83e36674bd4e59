#pragma once

#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {

/// The library's own view of the task collection.
class TasksCol::Internal {
public:
    explicit Internal(TasksCol& self) : self_(self) {}

    String elementName() const { return self_.element_name_; }
    Store& tasks() { return self_.tasks_; }
    Long& candidates() { return self_.candidates_; }
    Ref<Collection>& phases() { return self_.phases_; }
    /// Where walks keep their suspended calls.
    FrameStack& frames() { return self_.frames_; }

    /// The task under that key, whatever the key; nothing when there is none.
    Ref<TasksCls> Find(KeyText key) const {
        const Ref<TasksCls>* task = self_.tasks_.Find(key);
        return task != nullptr ? *task : Ref<TasksCls>();
    }
    Ref<TasksCls> Find(Long key) const { return Find(KeyText(key)); }
    /// As the public Item: a task without a key is never found.
    Ref<TasksCls> Item(KeyText key) const { return key == KeyText(Long(0)) ? Ref<TasksCls>() : Find(key); }
    /// The same for a look that lasts no longer than the collection stands; none fails (91).
    const TasksCls& Existing(KeyText key) const {
        const Ref<TasksCls>* task = key == KeyText(Long(0)) ? nullptr : self_.tasks_.Find(key);
        return task != nullptr ? **task : *Ref<TasksCls>();
    }
    bool isParent(KeyText key) const {
        const Ref<TasksCls> task = key.Number() != 0 ? Item(key) : Ref<TasksCls>();
        return task && IsParent(task, key);
    }
    /// The same of a task that stands under that key.
    static bool IsParent(const Ref<TasksCls>& task, KeyText key) { return In(task).HasChildren() && key.Number() != 0; }

    /// The number of tasks with `TaskCondidat` True, counted anew only when a task or such a flag changed.
    Long ValidTasks();
    /// Files a task under a key; a key that is taken fails (457).
    void File(const KeyText& key, const Ref<TasksCls>& task);
    /// Puts the same tasks in another order.
    void PutInOrder(Store sorted);
    /// What `SortMe(True)` does where nobody takes its result.
    void SortRows();
    /// Takes a task out of the collection and touches nothing else; false when there is none under that key.
    bool TakeOut(KeyText key);
    /// The keys of a task's children in ascending position. Nothing without a task, and, recorded, when one of several
    /// children is none.
    Ref<ChildOrder> Children(const Ref<TasksCls>& parent) const;

    /// The stored days towards a predecessor; 0 where there is no entry.
    Integer LeadTowards(const Ref<TasksCls>& task, KeyText predecessor) const;
    /// What the public operations of these names do, without a look-up by text. AdjustSummary gives false when the
    /// parents lead back into themselves.
    Integer CalcLeadTime(const Ref<TasksCls>& task);
    bool AdjustSummary(KeyText key, Boolean InitDate = True, Ref<TasksCol> oTaskCol = {});
    void AdjustCost(KeyText key, Boolean Initcost = True);
    Boolean AdjustDateNoLink(const Ref<TasksCls>& task, const Ref<TasksCls>& previous, Integer p_lead_time);
    void AdjustDateForSummary(Date& p_start_date, Date p_preview_date, Date p_old_prev_date, Integer& p_diff);

    /// Takes all links of a task off, its predecessors' first.
    struct LastLinks {
        String last_predecessor;  ///< "" where there was none
        String last_successor;
    };
    LastLinks TakeLinksOff(const Ref<TasksCls>& task, const String& key);
    /// Tell the host a task's links as they show now, unless it is silenced; "" tells one side only.
    void NotifyLinkChange(const String& TaskKey, const String& otherKey);
    void NotifyPredecessorChange(const String& TaskKey);
    /// The children of a task, but `successorKey`, that it does not follow: key and item alike.
    Ref<Dictionary> GetNonChildSuccessor(const String& key, const String& successorKey);
    /// Empties the `TaskLink` of the tasks that GetLinkedTask finds.
    Boolean RemoveLinkedTask(const String& TaskId, const String& ParentID = {}, const Variant& ForSimilair = False,
                             const String& SupKey = {});

    /// Tell the host a task's dates, duration and flags as they stand, unless it is silenced: under the key that the
    /// operation was asked for, and as a parent, a `summary` always.
    void TellStart(const Ref<TasksCls>& task, KeyText key, bool summary = false);
    void TellEnd(const Ref<TasksCls>& task, KeyText key, bool summary = false);
    void TellDuration(const Ref<TasksCls>& task, KeyText key, bool summary = false);
    /// Whether a silenced host hears this one is the caller's matter.
    void TellTaskDuration(const Ref<TasksCls>& task, KeyText key, bool summary = false);
    /// These four in this order, the last one to a silenced host too.
    void TellDates(const Ref<TasksCls>& task, KeyText key);

    /// The highest row in the outline; 0 when it is empty.
    Integer GetMaxPos();
    /// The latest end of the outline, cached; today when there is none.
    Date GetMaxDate();
    /// Takes all tasks out; leaves the candidate count and the phases alone.
    Boolean RemoveALL();
    /// Sorts by position and numbers the rows of the outline from 1.
    Boolean FixProject();

    Boolean SetPeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                const Ref<PeopleCol>& oPeopleCol);
    Boolean SetNoteCollection(const Ref<TaskNoteRelationCol>& oTaskNotesRelationcol, const Ref<NotesCol>& oNoteCol);
    Boolean SetGoalCollection(const Ref<TaskGoalRelationCol>& oTaskGoalRelationcol, const Ref<GoalsCol>& oGoalCol);
    Boolean SetobstaclesCollection(const Ref<TaskObstaclesRelationCol>& oTaskObstaclesRelationcol,
                                   const Ref<obstaclesCol>& oObstaclesCol);

private:
    TasksCol& self_;
};

/// True while the host wants to hear events.
inline bool Loud() {
    return !Module().g_SourcePrima;
}

/// The tail of every member of `TasksCol`: an unknown key is an ordinary answer, and silent. A body that raises events
/// or yields before it last uses a text captures the text by copy: a handler may write to the caller's variable.
inline constexpr FailureTail kTasksColTail{"TasksCol", FailureTail::Gives::Empty, failure::kUnknownKey};

/// Bounds a climb or a descent along the outline: damaged parents or children may form a ring. It may take a step a
/// task, and one to a task that is not there; more fail (28).
class OutlineWalk {
public:
    explicit OutlineWalk(const TasksCol& tasks) : left_(tasks.Count(True) + 1) {}
    void Step(SourceLine where = SourceLine::Here()) {
        if (--left_ < 0) Raise(failure::kEndlessWalk, where);
    }
    /// A step to a task, up or down: the same task once more fails before long.
    void Climb(KeyText key, SourceLine where = SourceLine::Here()) {
        if (key == landmark_) left_ = 0;
        Step(where);
        if (++steps_ == next_landmark_) {
            landmark_ = key;
            next_landmark_ *= 2;
        }
    }
    /// True once a step has failed: what is left of the walk would fail again at every step.
    bool over() const { return left_ < 0; }

private:
    std::int64_t left_;
    KeyText landmark_;
    std::int64_t steps_ = 0;
    std::int64_t next_landmark_ = 1;
};

}  // namespace mrlxmlclass
