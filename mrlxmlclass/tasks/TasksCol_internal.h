#pragma once

#include <optional>
#include <vector>

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

    /// The task under that key, whatever the key; nothing when there is none.
    Ref<TasksCls> Find(KeyText key) const {
        const Ref<TasksCls>* task = self_.tasks_.Find(key);
        return task != nullptr ? *task : Ref<TasksCls>();
    }
    Ref<TasksCls> Find(Long key) const { return Find(KeyText(key)); }

    /// The number of tasks with `TaskCondidat` True, counted anew only when a task or such a flag changed.
    Long ValidTasks();
    /// Files a task under a key; a key that is taken fails (457).
    void File(const KeyText& key, const Ref<TasksCls>& task);
    /// Puts the same tasks in another order.
    void PutInOrder(Store sorted);
    /// The keys of a task's children in ascending position. Nothing, recorded, when one of several is no task.
    std::optional<std::vector<Long>> ChildrenInOrder(const Ref<TasksCls>& parent) const;

    /// Tell the host a task's dates and duration as they stand, unless it is silenced.
    void TellStart(const Ref<TasksCls>& task, Boolean is_parent);
    void TellEnd(const Ref<TasksCls>& task, Boolean is_parent);
    void TellDuration(const Ref<TasksCls>& task, Boolean is_parent);
    /// Whether a silenced host hears this one is the caller's matter.
    void TellTaskDuration(const Ref<TasksCls>& task, Boolean is_parent);

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

/// The tail of every member of `TasksCol`: an unknown key is an ordinary answer, and silent.
inline constexpr FailureTail kTasksColTail{"TasksCol", FailureTail::Gives::Empty, failure::kUnknownKey};

/// Bounds a climb or a descent along the outline: damaged parents or children may form a ring. It may take a step a
/// task, and one to a task that is not there; more fail (28).
class OutlineWalk {
public:
    explicit OutlineWalk(const TasksCol& tasks) : left_(tasks.Count(True) + 1) {}
    void Step(SourceLine where = SourceLine::Here()) {
        if (--left_ < 0) Raise(failure::kEndlessWalk, where);
    }
    /// True once a step has failed: what is left of the walk would fail again at every step.
    bool over() const { return left_ < 0; }

private:
    std::int64_t left_;
};

}  // namespace mrlxmlclass
