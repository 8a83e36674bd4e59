#include "tests/model/Operations.h"

// Costs, progress, the calendar, the file.
namespace mrlxmlclass::model {
namespace {

bool Cost(const Edit& edit) {
    edit.task->TaskCost(Currency(edit.number()));
    return true;
}

/// Every parent costs what its children cost, from the task up.
bool AdjustCost(const Edit& edit) {
    edit.col().AdjustCost(edit.key(), /*Initcost=*/edit.Is(0));
    for (Ref<TasksCls> parent = edit.col().Item(edit.task->ParentID()); parent;
         parent = edit.col().Item(parent->ParentID())) {
        Currency sum(0);
        for (const auto& entry : edit.col().NewEnum()) {
            if (entry.item->ParentID() == parent->TaskKey()) sum = sum + entry.item->TaskCost();
        }
        if (parent->TaskCost() != sum) edit.world.Complain("cost", Named(*parent) + " costs something else");
    }
    return true;
}
bool RollUpCost(const Edit& edit) {
    edit.col().RollUpCostChanged(edit.key(), Currency(edit.number()));
    return true;
}
bool ReplaceCost(const Edit& edit) {
    edit.col().RolUpOneTask(edit.key(), Variant(Currency(edit.number())), /*Minus=*/edit.Is(0));
    return true;
}
bool RollUpCostOfParent(const Edit& edit) {
    edit.col().RollUpCostChangedImdParent(edit.key(), Currency(edit.number()));
    return true;
}
bool Done(const Edit& edit) {
    edit.col().ChangePercentDone(edit.key(), edit.number());
    return true;
}

bool Weekday(const Edit& edit) {
    const Long weekday = edit.number() % 7 + 1;
    CalendarCls& calendar = edit.world.calendar();
    if (calendar.NonWorkingDay()->Exists(KeyText(weekday).text())) {
        calendar.SetAsWorkingDay(weekday);
    } else if (calendar.NonWorkingDay()->Count() < 5) {
        calendar.SetAsNonWorkingDay(weekday);
    }
    return true;
}
bool Holiday(const Edit& edit) {
    edit.world.calendar().SetADayAsHoliday(edit.Day());
    return true;
}
bool NoHoliday(const Edit& edit) {
    edit.world.calendar().SetADayAsNormalDay(edit.Day());
    return true;
}
bool Exception(const Edit& edit) {
    edit.world.calendar().SetADayAsExceptionDay(edit.Day());
    return true;
}

bool SaveLoadSave(const Edit& edit) {
    edit.world.SaveLoadSave();
    return true;
}

/// What no edit does, so that the model's own test sees it found: never drawn.
bool Damage(const Edit& edit) {
    switch (edit.number()) {
        case 0:
            edit.other->TaskPosition(edit.task->TaskPosition());
            break;
        case 1:
            edit.task->ParentID(edit.other->TaskKey());
            break;
        case 2:
            edit.task->TaskPredecessor()->Add(edit.other_key(), edit.other_key());
            break;
        case 3:
            edit.col().SetNumberOFCondidat(False);
            break;
        case 4:
            Module().g_MinDateTaskKey = 99;
            break;
        case 5:
            edit.col().Events.Raise(&TasksColEvents::DateStartChange, edit.task->TaskKey(), Monday - 1, False, False);
            break;
        case 6:
            edit.col().ChangePercentDone("99", 1);
            break;
        default:
            Module().g_MinDate = Monday - 1;
            break;
    }
    return true;
}

}  // namespace

std::span<const Operation> OtherOperations() {
    static constexpr Operation kOperations[] = {
        {"Cost", 4, About::kTask, 0, 90, Cost},
        {"AdjustCost", 3, About::kTask, 0, 1, AdjustCost},
        {"RollUpCost", 3, About::kTask, -20, 20, RollUpCost},
        {"ReplaceCost", 2, About::kTask, 0, 20, ReplaceCost},
        {"RollUpCostOfParent", 2, About::kTask, -9, 9, RollUpCostOfParent},
        {"Done", 2, About::kTask, 0, 100, Done},
        {"Weekday", 3, About::kNone, 0, 6, Weekday},
        {"Holiday", 4, About::kNone, -5, 40, Holiday},
        {"NoHoliday", 1, About::kNone, -5, 40, NoHoliday},
        {"Exception", 3, About::kNone, -5, 40, Exception},
        {"Damage", 0, About::kTwoTasks, 0, 0, Damage},
        {"SaveLoadSave", 2, About::kNone, 0, 0, SaveLoadSave},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
