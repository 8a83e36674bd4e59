#include "tests/model/Operations.h"

// The host numbers the rows as they will be, then calls the library.
namespace mrlxmlclass::model {
namespace {

/// A row with a parent is a plain one, at the top it is none.
void CheckType(const Edit& edit) {
    if (bool(edit.task->TaskType()) != (edit.task->ParentID() != 0)) {
        edit.world.Complain("kind of row", Named(*edit.task) + " has another kind than its level asks for");
    }
}

/// Below the task above it on its level.
bool Indent(const Edit& edit) {
    const Ref<TasksCls> above = edit.world.Neighbour(*edit.task, -1);
    if (!above) return false;
    const String predecessor = edit.Is(0) ? KeyOf(*above) : String();
    String parent = KeyOf(*above);
    edit.col().ChangeTaskParent(edit.key(), parent, {}, {}, predecessor, /*Indent=*/edit.Is(1), "indent", "model",
                                /*p_first_time=*/edit.Is(2));
    CheckType(edit);
    return true;
}

/// To its parent's level, right behind what is left below the parent.
bool Outdent(const Edit& edit) {
    const Ref<TasksCls> parent = edit.col().Item(edit.task->ParentID());
    if (!parent) return false;
    edit.world.PutRowsBehind(*edit.task, *parent);
    const String below =
        edit.col().GetTaskKeyByPosition(Integer(edit.world.Block(*edit.task).back()->TaskPosition() + 1));
    edit.col().ChangeRemoveTaskParent(edit.key(), KeyText(parent->ParentID()).text(), KeyOf(*parent),
                                      /*SuccessorKey=*/edit.Is(0) ? below : String(),
                                      /*PredecessorKey=*/edit.Is(1) ? KeyOf(*parent) : String(), "model",
                                      /*p_first_time=*/edit.Is(2));
    CheckType(edit);
    return true;
}

bool Move(const Edit& edit, bool up) {
    const Ref<TasksCls> neighbour = edit.world.Neighbour(*edit.task, up ? -1 : 1);
    if (!neighbour) return false;
    if (up) {
        edit.world.PutRowsBehind(*neighbour, *edit.task);
    } else {
        edit.world.PutRowsBehind(*edit.task, *neighbour);
    }
    const auto move = edit.Is(1) ? &TasksCol::MoveTaskUpOrDowndepend : &TasksCol::MoveTaskUpOrDown;
    (edit.col().*move)(edit.key(), up, edit.parent_key(), edit.parent_key(), /*ChangingParent=*/False, "model",
                       /*p_first_time=*/edit.Is(0));
    CheckType(edit);
    return true;
}
bool MoveUp(const Edit& edit) {
    return Move(edit, true);
}
bool MoveDown(const Edit& edit) {
    return Move(edit, false);
}

/// Down past the next task on its level, to stand first below it.
bool MoveInto(const Edit& edit) {
    const Ref<TasksCls> next = edit.world.Neighbour(*edit.task, 1);
    if (!next) return false;
    Long row = edit.task->TaskPosition();
    const std::vector<Ref<TasksCls>> block = edit.world.Block(*edit.task);
    next->TaskPosition(row);
    for (const Ref<TasksCls>& moved : block) moved->TaskPosition(row += 1);
    edit.col().MoveTaskUpOrDown(edit.key(), /*UpDown=*/False, KeyOf(*next), edit.parent_key(), /*ChangingParent=*/True,
                                "model", /*p_first_time=*/edit.Is(0));
    CheckType(edit);
    return true;
}

/// Those behind a task on its level become its children.
bool TakeRest(const Edit& edit) {
    if (edit.task->ParentID() == 0) return false;
    edit.col().ChangeParent(edit.parent_key(), edit.key());
    return true;
}

}  // namespace

std::span<const Operation> MoveOperations() {
    static constexpr Operation kOperations[] = {
        {"Indent", 22, About::kTask, 0, 7, Indent},    {"Outdent", 12, About::kTask, 0, 7, Outdent},
        {"MoveUp", 7, About::kTask, 0, 3, MoveUp},     {"MoveDown", 7, About::kTask, 0, 3, MoveDown},
        {"MoveInto", 6, About::kTask, 0, 1, MoveInto}, {"TakeRest", 3, About::kTask, 0, 0, TakeRest},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
