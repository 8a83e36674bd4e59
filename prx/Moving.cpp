#include "prx/Moving.h"

#include <fmt/core.h>

#include <algorithm>

#include "mrlxmlclass/scheduling/KeptLengths.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "prx/Outline.h"
#include "prx/Refusal.h"
#include "prx/Values.h"

namespace prx {

using namespace mrlxmlclass;

namespace {

constexpr const char* kSource = "prx";

/// The library tells nothing while it lives: rows that are on their way stand in no outline yet.
class Silence {
public:
    Silence() { Module().g_SourcePrima = True; }
    ~Silence() { Module().g_SourcePrima = before_; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    Boolean before_ = Module().g_SourcePrima;
};

Long LastRow(const Project& project, const TasksCls& task) {
    return project.tasks()->GetTaskAndSubNumber(KeyOf(task));
}

/// The tasks of one level under one parent, this one among them, by row.
std::vector<Ref<TasksCls>> Siblings(const Project& project, const TasksCls& task) {
    std::vector<Ref<TasksCls>> siblings;
    for (const OutlineRow& row : Outline(project.tasks())) {
        if (row.task->ParentID() == task.ParentID()) siblings.push_back(row.task);
    }
    return siblings;
}

/// The neighbour on its level; nothing at the end.
Ref<TasksCls> Neighbour(const Project& project, const TasksCls& task, Direction direction) {
    const std::vector<Ref<TasksCls>> siblings = Siblings(project, task);
    const auto self = std::find_if(siblings.begin(), siblings.end(),
                                   [&](const auto& other) { return other->TaskKey() == task.TaskKey(); });
    if (direction == Direction::kUp) return self == siblings.begin() ? nullptr : *std::prev(self);
    return std::next(self) == siblings.end() ? nullptr : *std::next(self);
}

bool StandsIn(const TasksCls& task, const TasksCls& top, const Project& project) {
    return task.TaskPosition() >= top.TaskPosition() && task.TaskPosition() <= LastRow(project, top);
}

/// Numbers the rows anew so that a task and all below it stand in front of the row that is `before` now: row by row,
/// way is made in the new place and the hole in the old one closed.
void MoveRows(const Project& project, const TasksCls& task, Long before) {
    const Long first = task.TaskPosition();
    const Long behind = LastRow(project, task) + 1;
    if (before >= first && before <= behind) return;
    const Silence silence;
    std::vector<Ref<TasksCls>> rows;
    for (const OutlineRow& row : Outline(project.tasks())) {
        if (row.task->TaskPosition() >= first && row.task->TaskPosition() < behind) rows.push_back(row.task);
    }
    const bool down = before > first;
    Long moved = 0;
    for (const Ref<TasksCls>& row : rows) {
        row->TaskPosition(down ? before : Long(before + moved));
        project.tasks()->ArrangePositionAfterInsert(KeyOf(*row));
        project.tasks()->ArrangePositionAfterInsert(KeyOf(*row), {}, Integer(down ? first : Long(first + moved + 1)));
        moved += 1;
    }
}

void RefuseTooDeep(const Project& project, const TasksCls& task, const TasksCls& parent) {
    if (project.tasks()->CanbeLeveled(KeyOf(task), KeyOf(parent))) return;
    throw Refusal(fmt::format("{} does not go below {}: the outline cannot get any deeper than that", Quoted(task),
                              Quoted(parent)));
}

/// A parent cannot wait for what stands below it.
void FreeParentsOf(const Project& project, const TasksCls& task, Ref<TasksCls> parent) {
    for (; parent; parent = project.tasks()->Item(parent->ParentID())) {
        if (!parent->TaskPredecessorValid()) continue;
        for (const auto& entry : parent->TaskPredecessor()->Snapshot()) {
            const Ref<TasksCls> predecessor = project.tasks()->Item(entry.item);
            if (predecessor && StandsIn(*predecessor, task, project)) {
                project.tasks()->RemoveTaskPredecessor(KeyOf(*parent), KeyOf(*predecessor));
            }
        }
    }
}

/// A phase is a task of the top level; the list of phases follows a task that comes or goes.
void KeepPhases(const Project& project, const TasksCls& task, Long old_parent) {
    if ((task.ParentID() == 0) == (old_parent == 0)) return;
    if (old_parent == 0) {
        project.tasks()->RemovePhase(Variant(task.TaskKey()));
    } else {
        project.tasks()->AddPhase(Variant(task.TaskKey()));
    }
}

/// The task stands in its new rows already. Its dates and links stay; parents, costs and spans follow.
void Reparent(const Project& project, TasksCls& task, Long parent) {
    const Ref<TasksCol> tasks = project.tasks();
    const Long old_parent = task.ParentID();
    if (parent != 0) {
        tasks->RemoveAllTaskPredecessor(Text(parent));  // nothing waits for a summary
        FreeParentsOf(project, task, tasks->Item(parent));
        CountInDays(*tasks->Item(parent));
    }
    tasks->ChangeTaskParent(KeyOf(task), Text(parent), Text(old_parent), {}, {}, /*Indent=*/False, {}, kSource,
                            /*p_first_time=*/True);
    KeepPhases(project, task, old_parent);
    if (old_parent != 0) {
        tasks->RemoveParentTask(old_parent, task.TaskKey(), /*p_raise=*/True);
        if (tasks->isParent(Text(old_parent))) tasks->AdjustSummary(Text(old_parent));
    }
    AdjustDatesAbove(project, task);
    AdjustCostFrom(project, task);
}

/// In front of the row that is `before` now, among its siblings.
void MoveAmongSiblings(const Project& project, TasksCls& task, Long before) {
    const bool up = before < task.TaskPosition();
    MoveRows(project, task, before);
    const std::string parent = Text(task.ParentID());
    project.tasks()->MoveTaskUpOrDown(KeyOf(task), up, parent, parent, /*ChangingParent=*/False, kSource);
}

}  // namespace

Remarks IndentTask(const Project& project, const Ref<TasksCls>& task) {
    RefuseWithoutWayUp(project, *task);
    const Ref<TasksCls> parent = Neighbour(project, *task, Direction::kUp);
    if (!parent) throw Refusal(fmt::format("{} stands first on its level: there is no task above it", Quoted(*task)));
    RefuseTooDeep(project, *task, *parent);
    const KeptLengths aside(project.tasks());
    const Long old_parent = task->ParentID();
    Remarks lost = LostAsSummary(project, *parent);
    FreeParentsOf(project, *task, parent);
    CountInDays(*parent);
    project.tasks()->ChangeTaskParent(KeyOf(*task), KeyOf(*parent), {}, {}, {}, /*Indent=*/True, "indent", kSource);
    KeepPhases(project, *task, old_parent);
    return lost;
}

void OutdentTask(const Project& project, const Ref<TasksCls>& task) {
    RefuseWithoutWayUp(project, *task);
    const Ref<TasksCls> parent = project.tasks()->Item(task->ParentID());
    if (!parent) throw Refusal(fmt::format("{} stands at the top already", Quoted(*task)));
    const KeptLengths aside(project.tasks());
    const Long old_parent = task->ParentID();
    MoveRows(project, *task, LastRow(project, *parent) + 1);
    project.tasks()->ChangeRemoveTaskParent(KeyOf(*task), Text(parent->ParentID()), KeyOf(*parent), {}, {}, kSource);
    KeepPhases(project, *task, old_parent);
}

void MoveTask(const Project& project, const Ref<TasksCls>& task, Direction direction) {
    const Ref<TasksCls> neighbour = Neighbour(project, *task, direction);
    if (!neighbour) {
        const bool up = direction == Direction::kUp;
        throw Refusal(fmt::format("{} stands {} on its level", Quoted(*task), up ? "first" : "last"));
    }
    MoveAmongSiblings(project, *task,
                      direction == Direction::kUp ? neighbour->TaskPosition() : Long(LastRow(project, *neighbour) + 1));
}

Remarks MoveTask(const Project& project, const Ref<TasksCls>& task, const Place& place) {
    const TasksCls& anchor = place.after ? *place.after : *place.under;
    RefuseWithoutWayUp(project, *task);
    RefuseWithoutWayUp(project, anchor);
    if (StandsIn(anchor, *task, project)) {
        throw Refusal(fmt::format("{} cannot go to a place that moves along with it", Quoted(*task)));
    }
    const Long parent = place.after ? anchor.ParentID() : anchor.TaskKey();
    const Long before = LastRow(project, anchor) + 1;
    if (parent == task->ParentID()) {
        MoveAmongSiblings(project, *task, before);
        return {};
    }
    Remarks lost;
    if (const Ref<TasksCls> new_parent = project.tasks()->Item(parent)) {
        RefuseTooDeep(project, *task, *new_parent);
        lost = LostAsSummary(project, *new_parent);
    }
    MoveRows(project, *task, before);
    Reparent(project, *task, parent);
    return lost;
}

void TakeToTop(const Project& project, const Ref<TasksCls>& task) {
    if (task->ParentID() == 0) throw Refusal(fmt::format("{} is a phase already", Quoted(*task)));
    RefuseWithoutWayUp(project, *task);
    const std::string top = project.tasks()->GetFirstLevelParentPosKey(KeyOf(*task), /*keys=*/True);
    MoveTask(project, task, Place{.under = {}, .after = project.tasks()->Item(top)});
}

}  // namespace prx
