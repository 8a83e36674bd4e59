#include "mrlxmlclass/session/StaticCls_internal.h"
#include "tests/model/Operations.h"
#include "tests/tasks/Removals.h"

namespace mrlxmlclass::model {
namespace {

Long LastRow(const Edit& edit, const TasksCls& task) {
    return edit.world.Block(task).back()->TaskPosition();
}

void GiveDates(TasksCls& task, int number) {
    task.TaskBDate(Monday + number % 10);
    task.TaskBDate(task.TaskBDate());  // the first one leaves a fresh task without an end
    task.TaskDuration(1 + number % 4);
}

/// A new task, last below another, right behind another on its level, or last of all. Most get a start.
bool Add(const Edit& edit) {
    enum { kBelow, kBehind, kLast };
    const int place = edit.other ? edit.number() % 3 : kLast;
    const bool dated = edit.number() < 27;
    const Ref<TasksCls> task = edit.col().Add();
    if (!task) return false;
    edit.world.Remember(edit.step.task, *task);
    const Long last_row = task->TaskPosition();
    const Long parent = place == kBelow ? edit.other->TaskKey() : place == kBehind ? edit.other->ParentID() : Long(0);
    if (parent != 0) {
        task->ParentID(parent);
        task->TaskType(True);
        edit.col().Item(parent)->TaskType(False);
        edit.col().AddParentTask(parent, task->TaskKey());
    }
    if (place == kBelow) {
        task->TaskPosition(0);  // a row of its own would count as the end of the parent's subtree
        edit.col().ArrangePosition(Integer(parent), Integer(task->TaskKey()), Integer(last_row));
    } else if (place == kBehind) {
        task->TaskPosition(Long(LastRow(edit, *edit.other) + 1));
        edit.col().ArrangePositionAfterInsert(KeyOf(*task));
    }
    if (dated) GiveDates(*task, edit.number());
    edit.col().ChangeName(KeyOf(*task), "T" + std::to_string(edit.step.task), /*NewTask=*/True);
    if (parent != 0) edit.col().AdjustSummary(KeyText(parent).text());
    return true;
}

/// Makes way for a new task anywhere: it stands in the last row first, and moves up from there.
bool Insert(const Edit& edit) {
    if (!edit.other || edit.other->ParentID() != 0) return false;
    const Ref<TasksCls> task = edit.col().Add();
    edit.world.Remember(edit.step.task, *task);
    task->TaskName("T" + std::to_string(edit.step.task));
    const Integer last_row = task->TaskPosition();
    task->TaskPosition(edit.other->TaskPosition());
    edit.col().ArrangePositionAfterInsert(KeyOf(*task), last_row);
    return edit.col().SetNewCondidat(Integer(task->TaskPosition()), KeyOf(*task)).full();
}

/// A task that the host made itself, in the last row, under a key that was freed before if it asks for one.
bool Store(const Edit& edit) {
    const auto task = Make<TasksCls>();
    const Ref<Collection> freed = In(edit.col().oPublicStaticCls).PeekPool(StaticCls::Internal::Task);
    const bool reserves = edit.Is(0) && freed && freed->Count() > 0;
    if (reserves) task->TaskKey((*freed->Snapshot().begin()).item.Key().Number());
    const bool taken = edit.col().IamNotAvailable(reserves ? KeyOf(*task) : "none").full();
    if (taken != reserves) edit.world.Complain("keys", "a freed key is told otherwise");
    task->TaskName("T" + std::to_string(edit.step.task));
    task->TaskPosition(edit.col().Count(False) + 1);
    const Ref<TasksCls> stored = edit.col().AddItem(task);
    if (!stored || stored == task) edit.world.Complain("keys", "no copy of the task is stored");
    if (!stored) return true;
    edit.world.Remember(edit.step.task, *stored);
    GiveDates(*stored, edit.number());
    return true;
}

/// A task without children: for good, or as a candidate.
bool Remove(const Edit& edit) {
    if (edit.col().isParent(edit.key())) return false;
    edit.col().Remove(edit.key(), {}, {}, {}, {}, {}, {}, /*ForceDelete=*/edit.Is(0), /*p_sort=*/edit.Is(1),
                      /*p_arrange=*/True);
    return true;
}

/// The same with the rows left to the host, which closes the hole itself.
bool RemoveAndClose(const Edit& edit) {
    if (edit.col().isParent(edit.key())) return false;
    const Long row = edit.task->TaskPosition();
    edit.col().Remove(edit.key(), {}, {}, {}, {}, {}, {}, /*ForceDelete=*/True);
    const std::vector<Ref<TasksCls>> rows = edit.world.Rows();
    if (!rows.empty()) edit.col().ArrangePositionAfterInsert(KeyOf(*rows.front()), {}, Integer(row));
    return true;
}

/// A task without children and links, taken out by hand: the host tells its parent, and closes the hole.
bool Drop(const Edit& edit) {
    const ModuleState& module = Module();
    const Long key = edit.task->TaskKey();
    if (edit.col().isParent(edit.key()) || module.g_MinDateTaskKey == key || module.g_MaxDateTaskKey == key)
        return false;
    if (!In(edit.task).PredecessorKeys().empty() || !In(edit.task).SuccessorKeys().empty()) return false;
    const Long row = edit.task->TaskPosition();
    const bool below = edit.task->ParentID() != 0;
    // This is told even to a host that is silenced.
    const Boolean tell = !edit.world.setting.silent;
    if (edit.col().RemoveParentTask(edit.task->ParentID(), key, tell) != below) {
        edit.world.Complain("children", "a parent is told otherwise");
    }
    edit.col().RemoveForLib(key);
    const std::vector<Ref<TasksCls>> rows = edit.world.Rows();
    if (!rows.empty()) edit.col().ArrangePositionAfterInsert(KeyOf(*rows.front()), {}, Integer(row));
    edit.col().SetPhases();
    return true;
}

/// A task without children leaves its place, and comes back into the last row.
bool PutLast(const Edit& edit) {
    if (edit.col().isParent(edit.key())) return false;
    if (!edit.col().ArrangePositionAfterDelete(edit.key())) edit.world.Complain("rows", "they were not closed");
    edit.task->TaskPosition(edit.col().Count(False));
    edit.task->TaskType(False);
    return true;
}

/// Ties a task to something that makes a candidate of it when it is deleted.
bool Tie(const Edit& edit) {
    testing::Tie(edit.world.app->xTaskPeopleRelationcol(), edit.task->TaskKey());
    return true;
}

bool DeleteAll(const Edit& edit) {
    return bool(edit.col().DeleteAllSubTasks(edit.key(), edit.world.app->xTaskPeopleRelationcol(), {}, {}, {}, {}, {},
                                             /*ForceDelete=*/edit.Is(0), /*p_arrange=*/True));
}

/// A candidate comes back into the last row.
bool Return(const Edit& edit) {
    edit.task->TaskCondidat(True);
    edit.col().SetNumberOFCondidat(True);
    edit.task->TaskType(False);
    edit.task->TaskPosition(edit.col().Count(False));
    return edit.col().SetNewCondidat(Integer(edit.task->TaskPosition()), edit.key()).full();
}

/// A task that stands in its row already gets its dates as a new one.
bool NewRow(const Edit& edit) {
    edit.col().SetNewCondidat(Integer(edit.task->TaskPosition()), edit.Is(0) ? edit.key() : String());
    return true;
}

bool Rename(const Edit& edit) {
    const String name = "T" + std::to_string(edit.step.task);
    edit.col().ChangeName(edit.key(), edit.Is(0) ? name : name + "*", /*NewTask=*/edit.Is(1));
    return true;
}

bool Sort(const Edit& edit) {
    edit.col().SortMe(edit.Is(0));
    return true;
}

/// What a load makes of the plan anew, which stands already. Candidates leave rows that nobody has.
bool Rebuild(const Edit& edit) {
    const bool candidates = edit.col().Count(True) > edit.col().Count(False);
    if (edit.col().AddTaskParentForAll() != candidates)
        edit.world.Complain("rows", "they are told otherwise to be mended");
    return true;
}

bool AddPhase(const Edit& edit) {
    edit.task->TaskSubPosition(edit.number());
    edit.col().AddPhase(Variant(edit.task->TaskKey()));
    return true;
}

bool RemovePhase(const Edit& edit) {
    edit.col().RemovePhase(Variant(edit.task->TaskKey()));
    return true;
}

bool SetPhases(const Edit& edit) {
    edit.col().SetPhases();
    return true;
}

}  // namespace

std::span<const Operation> OutlineOperations() {
    static constexpr Operation kOperations[] = {
        {"Add", 20, About::kNewTask, 0, 29, Add},
        {"Insert", 6, About::kNewTask, 0, 0, Insert},
        {"Store", 4, About::kNewTask, 0, 19, Store},
        {"Remove", 8, About::kTask, 0, 3, Remove},
        {"RemoveAndClose", 4, About::kTask, 0, 0, RemoveAndClose},
        {"Drop", 3, About::kTask, 0, 0, Drop},
        {"PutLast", 3, About::kTask, 0, 0, PutLast},
        {"Tie", 3, About::kTask, 0, 0, Tie},
        {"DeleteAll", 5, About::kTask, 0, 1, DeleteAll},
        {"Return", 6, About::kCandidate, 0, 0, Return},
        {"NewRow", 3, About::kTask, 0, 1, NewRow},
        {"Rename", 3, About::kTask, 0, 3, Rename},
        {"Sort", 2, About::kNone, 0, 1, Sort},
        {"Rebuild", 2, About::kNone, 0, 0, Rebuild},
        {"AddPhase", 4, About::kTask, 0, 9, AddPhase},
        {"RemovePhase", 2, About::kTask, 0, 0, RemovePhase},
        {"SetPhases", 3, About::kNone, 0, 0, SetPhases},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
