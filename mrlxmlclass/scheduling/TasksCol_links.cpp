#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/scheduling/LinkWalk_internal.h"
#include "mrlxmlclass/scheduling/ReachedTasks.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

/// Puts a start behind a predecessor's end.
void StartBehind(const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor) {
    task->TaskBDate(predecessor->TaskEDate() + 1);
}

/// Dates a predecessor needs to be waited for. Kept: an undated milestone gets only an end, which starts it too.
void EnsureDates(const Ref<TasksCls>& predecessor) {
    if (!predecessor->TaskMilstones() && !predecessor->TaskBDate().set()) {
        predecessor->TaskBDate(Platform().clock.Today());
    }
    if (!predecessor->TaskEDate().set()) predecessor->TaskEDate(Platform().clock.Today());
}

/// What a link to be made is about.
struct NewLink {
    TasksCol& col;
    const String& task_key;
    const String& predecessor_key;
    Ref<TasksCls> task;
    Ref<TasksCls> predecessor;
    Boolean first_time;
    Long shift;  ///< days by which the first predecessor moved the task

    bool Refused() const {
        return col.isParent(predecessor_key) || predecessor->ParentID() == KeyNumber(task_key) ||
               KeyNumber(predecessor_key) == KeyNumber(task_key);
    }

    /// Whether an existing predecessor is the new one, or is waited for by it.
    bool Redundant() const {
        for (const auto& entry : task->TaskPredecessor()->Snapshot()) {
            const KeyText existing = entry.item.Key();
            if (existing == KeyText(predecessor_key) || In(predecessor).HasPredecessor(existing)) return true;
        }
        return false;
    }

    void File(const Ref<Collection>& predecessors) {
        if (predecessors->Count() == 0) {
            predecessors->Add(predecessor_key, predecessor_key);
            if (first_time) {
                shift = DaysBetween(task->TaskBDate(), predecessor->TaskEDate() + 1);
                StartBehind(task, predecessor);
            }
            return;
        }
        // Kept: only the last one is compared, so the list is not sorted throughout.
        const Long last = predecessors->Count();
        const String last_key = predecessors->Item(last).Key().text();
        if (predecessor->TaskPosition() < col.Item(last_key)->TaskPosition()) {
            predecessors->Add(predecessor_key, predecessor_key, last);
        } else {
            predecessors->Add(predecessor_key, predecessor_key);
        }
    }

    /// The start of the nearest predecessor above the task in the outline; 0 when there is none. Kept: the first of
    /// several in one row, the new one being one of them.
    Date BaseAbove() const {
        Ref<TasksCls> nearest;
        for (const auto& entry : task->TaskPredecessor()->Snapshot()) {
            const Ref<TasksCls> other = col.Item(entry.item);
            const bool above = other->TaskPosition() < task->TaskPosition();
            if (above && (!nearest || other->TaskPosition() > nearest->TaskPosition())) nearest = other;
        }
        return nearest ? nearest->TaskBDate() : Date();
    }

    /// Kept: one more predecessor puts the task behind the nearest one's start, not its end.
    void MoveBehindNearest() const {
        const Date base = BaseAbove();
        if (col.isParent(task_key)) {
            col.SummaryTaskDateChanged2(task_key, base);
        } else {
            task->TaskBDate(base + 1);
        }
    }

    void MoveAlong() const {
        if (col.isParent(task_key)) {
            col.SummaryTaskDateChanged2(task_key, task->TaskBDate(), {}, /*CalcLead=*/True, {}, {},
                                        /*p_form_scheduler=*/False, shift);
        } else {
            col.DependsDateChanged(task_key, task->TaskBDate(), 1);
        }
    }

    void Tell() const {
        if (!Loud()) return;
        const Long number = KeyNumber(task_key);
        // This tells of what it takes off, and whoever is told may silence the rest.
        const String predecessors = col.PredessorAsString(task_key);
        if (Loud()) col.Events.Raise(&TasksColEvents::PredecessorChange, number, predecessors);
        if (Loud()) col.Events.Raise(&TasksColEvents::PredecessorKeyChange, number, predecessor_key, String("add"));
        if (!Loud()) return;
        col.Events.Raise(&TasksColEvents::SucessorChange, KeyNumber(predecessor_key),
                         col.SucessorAsString(predecessor_key));
    }
};

/// What becomes of a link that is not stored.
void SetStartOnly(const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor, const String& predecessor_key) {
    if (task->ParentID() == KeyNumber(predecessor_key)) {
        task->TaskBDate(predecessor->TaskBDate());
    } else {
        StartBehind(task, predecessor);
    }
}

}  // namespace

Boolean TasksCol::AddTaskPredecessor(const String& TaskKey, const String& PredecssorKey, Boolean FirstTime,
                                     Boolean setforNonDepend, Boolean p_force_linking) {
    return kTail.Run<Boolean>("AddTaskPredecessor", [&, TaskKey, PredecssorKey](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        if (TaskKey.empty() || PredecssorKey.empty() || PredecssorKey == "0") return;
        NewLink link{*this, TaskKey, PredecssorKey, Item(TaskKey), Item(PredecssorKey), FirstTime, 0};
        if (link.predecessor && link.predecessor->isPredecessor(TaskKey)) return;
        if (!Module().BVersion) {
            // Kept: one day behind the predecessor's start, not its end.
            if (setforNonDepend) link.task->TaskBDate(link.predecessor->TaskBDate() + 1);
            result = True;
            return;
        }
        if (!AutoLink() && !p_force_linking) {
            SetStartOnly(link.task, link.predecessor, PredecssorKey);
            result = True;
            return;
        }
        if (!link.predecessor) {
            result = True;
            return;
        }
        if (link.Refused()) return;

        EnsureDates(link.predecessor);
        const Ref<Collection> predecessors = link.task->TaskPredecessor();
        const bool another = predecessors->Count() > 0;
        if (another && link.Redundant()) {
            if (FirstTime) StartBehind(link.task, link.predecessor);  // Kept: refused, and moved all the same
            return;
        }
        link.File(predecessors);
        if (another && FirstTime) link.MoveBehindNearest();
        // Kept: a link that the other side has already ends it here (457), and the task's side stays.
        link.predecessor->TaskSuccessor()->Add(TaskKey, TaskKey);
        if (!another || !FirstTime) {
            if (FirstTime) link.MoveAlong();
            CalcLeadTime(TaskKey);
        }
        link.Tell();
        result = True;
    });
}

Boolean TasksCol::RemoveTaskPredecessor(const String& TaskKey, const String& PredecssorKey) {
    return kTail.Run<Boolean>("RemoveTaskPredecessor", [&](Boolean& result) {
        result = LinkWalk(*this).RemoveTaskPredecessor(TaskKey, PredecssorKey).Run();
    });
}

// Kept: the name; it is the successors that are freed.
Boolean TasksCol::RemoveAllTaskPredecessor(const String& TaskKey) {
    return kTail.Run<Boolean>("RemoveAllTaskPredecessor", [&, TaskKey](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        for (const String& successor : In(Item(TaskKey)).SuccessorKeys()) RemoveTaskPredecessor(successor, TaskKey);
    });
}

Boolean TasksCol::ReplacePredecessor(const String& ToReplaceTaskKey, const String& NewTaskKey) {
    return kTail.Run<Boolean>("ReplacePredecessor", [&, NewTaskKey](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        for (const String& successor : In(Item(ToReplaceTaskKey)).SuccessorKeys()) {
            if (successor != NewTaskKey) AddTaskPredecessor(successor, NewTaskKey);
        }
    });
}

Boolean TasksCol::ValidPredecessor(const String& p_task, const String& p_pred) {
    return kTail.Run<Boolean>("ValidPredecessor", [&](Boolean& result) {
        const Ref<TasksCls> predecessor = Item(p_pred);
        if (isParent(p_pred) || KeyNumber(p_task) == KeyNumber(p_pred)) return;
        if (predecessor && predecessor->ParentID() == KeyNumber(p_task)) return;
        result = !predecessor || !predecessor->isPredecessor(p_task);
    });
}

Boolean TasksCol::cleanPredcessor(const String& TaskId) {
    return kTail.Run<Boolean>("cleanPredcessor", [&](Boolean&) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        struct BackwardLinks {
            TasksCol& col;
            OutlineWalk walk;

            Walk<Boolean> DropBelow(KeyText key) {
                co_await kTail.Begin("cleanPredcessor");
                if (walk.over()) co_return;
                walk.Step();
                const Ref<ChildOrder> children = In(col).Children(In(col).Item(key));
                const std::vector<Long> keys = children->keys;
                for (const Long number : keys) {
                    const KeyText child_key(number);
                    const Ref<TasksCls> child = In(col).Item(child_key);
                    for (const String& successor : In(child).SuccessorKeys()) {
                        if (col.Item(successor)->TaskPosition() < child->TaskPosition()) {
                            col.RemoveTaskPredecessor(successor, child_key.text());
                        }
                    }
                    auto below = DropBelow(child_key);
                    co_await std::move(below);
                }
            }
        };
        BackwardLinks links{*this, OutlineWalk(*this)};
        links.DropBelow(TaskId).Run();
    });
}

Boolean TasksCol::SetPredSucByPos(Integer p_pos, const String& p_task_key, Boolean p_first_time) {
    return kTail.Run<Boolean>("SetPredSucByPos", [&](Boolean& result) {
        const Ref<TasksCol> held(this);                                    // a listener may let go of the collection
        const String previous = GetTaskKeyByPosition(Integer(p_pos - 1));  // Kept: a candidate stands above row 1
        const String next = GetTaskKeyByPosition(Integer(p_pos + 1));
        const String key = p_task_key.empty() ? GetTaskKeyByPosition(p_pos) : p_task_key;
        const Ref<TasksCls> task = Item(key);
        if (!previous.empty() && KeyNumber(previous) != task->ParentID()) {
            if (!next.empty()) RemoveTaskPredecessor(next, previous);
            AddTaskPredecessor(key, previous, p_first_time);
            if (!next.empty()) AddTaskPredecessor(next, key);
        } else {
            task->TaskBDate(task->ParentID() != 0 ? Item(task->ParentID())->TaskBDate() : Platform().clock.Today());
            In(*this).TellStart(task, key);
            In(*this).TellEnd(task, key);
            if (!next.empty()) {
                const String parent_key = KeyText(task->ParentID()).text();
                if (Item(next)->isPredecessor(parent_key)) RemoveTaskPredecessor(next, parent_key);
                AddTaskPredecessor(next, key, p_first_time);
            }
        }
        result = True;
    });
}

Boolean TasksCol::GetALLRelatedTask(const String& p_task, ByRef<Ref<Collection>> p_Result) {
    return kTail.Run<Boolean>("GetALLRelatedTask", [&](Boolean& result) {
        struct Descendants {
            TasksCol& col;
            Ref<Collection> found;
            ReachedTasks reached;

            struct Step {
                KeyText key;
                const Step* above;

                bool Passed(KeyText other) const {
                    for (const Step* step = this; step != nullptr; step = step->above) {
                        if (step->key == other) return true;
                    }
                    return false;
                }
            };

            Walk<Boolean> AddBelow(KeyText key, const Step* above) {
                auto& result = co_await kTail.Begin("GetALLRelatedTask");
                const Step here{key, above};
                const Ref<ChildOrder> children = In(col).Children(In(col).Item(key));
                for (const Long number : children->keys) {
                    const KeyText child(number);
                    if (reached.Has(child)) Raise(here.Passed(child) ? failure::kEndlessWalk : failure::kDuplicateKey);
                    reached.Add(child);
                    found->Add(child.text(), child);
                    auto below = AddBelow(child, &here);
                    co_await std::move(below);
                }
                result = True;
            }
        };
        if (!*p_Result) *p_Result = Make<Collection>();
        Descendants descendants{*this, *p_Result, ReachedTasks({})};
        result = descendants.AddBelow(p_task, nullptr).Run();
    });
}

TasksCol::Internal::LastLinks TasksCol::Internal::TakeLinksOff(const Ref<TasksCls>& task, const String& key) {
    LastLinks last;
    LinkWalk walk(self_);
    for (const String& predecessor : In(task).PredecessorKeys()) {
        walk.TakeOff(key, predecessor);
        last.last_predecessor = predecessor;
    }
    for (const String& successor : In(task).SuccessorKeys()) {
        walk.TakeOff(successor, key);
        last.last_successor = successor;
    }
    return last;
}

Ref<Dictionary> TasksCol::Internal::GetNonChildSuccessor(const String& key, const String& successorKey) {
    return kTail.Run<Ref<Dictionary>>("GetNonChildSuccessor", [&](Ref<Dictionary>& result) {
        result = Make<Dictionary>();
        for (const Long child : Children(self_.Item(key))->keys) {
            if (child != KeyNumber(successorKey) && !self_.Item(child)->isSucesser(successorKey)) {
                result->Add(child, child);
            }
        }
    });
}

void TasksCol::Internal::NotifyLinkChange(const String& TaskKey, const String& otherKey) {
    kTail.Run("NotifyLinkChange", [&] {
        NotifyPredecessorChange(TaskKey);
        if (!Loud() || otherKey.empty()) return;
        self_.Events.Raise(&TasksColEvents::SucessorChange, KeyNumber(otherKey), self_.SucessorAsString(otherKey));
    });
}

void TasksCol::Internal::NotifyPredecessorChange(const String& TaskKey) {
    kTail.Run("NotifyPredecessorChange", [&] {
        if (!Loud()) return;
        const String predecessors =
            self_.PredessorAsString(TaskKey);  // a handler that hears of it may silence the rest
        if (Loud()) self_.Events.Raise(&TasksColEvents::PredecessorChange, KeyNumber(TaskKey), predecessors);
    });
}

}  // namespace mrlxmlclass
