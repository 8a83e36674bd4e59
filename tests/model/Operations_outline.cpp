#include "tests/model/Operations.h"
#include "tests/support/WholeProject.h"
#include "tests/tasks/Removals.h"

namespace mrlxmlclass::model {
namespace {

Long LastRow(const Edit& edit, const TasksCls& task) {
    return edit.world.Block(task).back()->TaskPosition();
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
    if (dated) {
        task->TaskBDate(Monday + edit.number() % 10);
        task->TaskBDate(task->TaskBDate());  // the first one leaves a fresh task without an end
        task->TaskDuration(1 + edit.number() % 4);
    }
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

/// The rows below a task as its lists and its questions tell them.
void CheckBelow(const Edit& edit) {
    TasksCol& col = edit.col();
    const std::vector<Ref<TasksCls>> block = edit.world.Block(*edit.task);
    String below;
    for (const Ref<TasksCls>& row : block) below += row == edit.task ? "" : " " + KeyOf(*row);
    Ref<Collection> related;
    col.GetALLRelatedTask(edit.key(), related);
    String told;
    for (const auto& entry : related->Snapshot()) told += " " + entry.item.As<String>();
    const String last = KeyText(Long(col.GetTaskAndSubNumber(edit.key(), True))).text();
    if (told != below) edit.world.Complain("questions", "below " + Named(*edit.task) + " stand" + told);
    if (last != KeyOf(*block.back())) edit.world.Complain("questions", "the last leaf is told as " + last);
    if (col.GetTaskAndSubNumber(edit.key()) != block.back()->TaskPosition()) {
        edit.world.Complain("questions", "the last row below " + Named(*edit.task) + " is told wrong");
    }
    const String first = block.size() > 1 ? KeyOf(*block[1]) : String();
    if (col.GetFirstChildKey(edit.key()) != first) edit.world.Complain("questions", "another first child is told");
}

/// Questions change nothing.
bool Ask(const Edit& edit) {
    TasksCol& col = edit.col();
    const String before = testing::ToldTasks(col);
    CheckBelow(edit);
    const String top = KeyOf(*edit.world.Rows().front());
    if (Long(col.GetCount()) != col.Count(True)) edit.world.Complain("questions", "another count is told");
    if (Long(col.GetValidTaskNumber()) != col.Count(False)) edit.world.Complain("questions", "another count is told");
    if (col.GetTaskKeyByPosition(Integer(edit.task->TaskPosition())) != edit.key()) {
        edit.world.Complain("questions", "another task is told in the row of " + Named(*edit.task));
    }
    if (Long(col.GetTasks(edit.key())->Count(True)) != Long(col.GetTaskNumber(Integer(edit.task->TaskKey())))) {
        edit.world.Complain("questions", Named(*edit.task) + " is told to have two numbers of children");
    }
    if (testing::ToldTasks(*col.Clone()).empty()) edit.world.Complain("questions", "a copy is empty");
    col.FirstChildInParent(edit.key());
    col.GetFirstLevelParentPosKey(edit.key(), True);
    col.GetLastParentPosKey(edit.key(), edit.parent_key(), True);
    col.CanbeLeveled(edit.key(), top);
    col.GetLinkedTask(edit.key());
    col.ValidPredecessor(edit.key(), top);
    col.ValidPredecessors(edit.key(), "1,2", edit.Is(0));
    col.GetFirstLeadTime(edit.key());
    col.CalcLeadTimeNoLink(edit.key(), Monday);
    col.TaskCanNotBeAdd();
    edit.world.app->xPhases();
    if (testing::ToldTasks(col) != before) edit.world.Complain("questions", "they changed the plan");
    return true;
}

bool AddPhase(const Edit& edit) {
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
        {"Remove", 8, About::kTask, 0, 3, Remove},
        {"RemoveAndClose", 4, About::kTask, 0, 0, RemoveAndClose},
        {"Tie", 3, About::kTask, 0, 0, Tie},
        {"DeleteAll", 5, About::kTask, 0, 1, DeleteAll},
        {"Return", 6, About::kCandidate, 0, 0, Return},
        {"NewRow", 3, About::kTask, 0, 1, NewRow},
        {"Rename", 3, About::kTask, 0, 3, Rename},
        {"Sort", 2, About::kNone, 0, 1, Sort},
        {"Ask", 3, About::kTask, 0, 1, Ask},
        {"AddPhase", 2, About::kTask, 0, 0, AddPhase},
        {"RemovePhase", 2, About::kTask, 0, 0, RemovePhase},
        {"SetPhases", 3, About::kNone, 0, 0, SetPhases},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
