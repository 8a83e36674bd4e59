#include <algorithm>

#include "mrlxmlclass/session/StaticCls.h"
#include "tests/model/Operations.h"
#include "tests/support/DayByDay.h"
#include "tests/support/WholeProject.h"

// Questions about the plan, and copies of it.
namespace mrlxmlclass::model {
namespace {

namespace day_by_day = testing::day_by_day;

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

/// The children by their rows, and what the texts of their keys are sorted to.
void CheckChildKeys(const Edit& edit) {
    TasksCol& col = edit.col();
    const bool summary = col.isParent(edit.key()) && !edit.task->TaskType();
    if (col.Summary(edit.key()) != summary) edit.world.Complain("questions", "a summary is told otherwise");
    VariantArray children;
    VariantArray sorted;
    for (const Ref<TasksCls>& row : edit.world.Rows()) {
        if (row->ParentID() != edit.task->TaskKey()) continue;
        children.emplace_back(row->TaskKey());
        sorted.emplace_back(row->TaskKey());
    }
    Variant told;
    col.BuildArray(col.GetTasksAsKeys(edit.key()), told);
    if (told != Variant(children)) edit.world.Complain("questions", "other children are told");
    col.SortArray(told);
    std::ranges::sort(sorted, {}, [](const Variant& key) { return key.Key().text(); });
    if (told != Variant(sorted)) edit.world.Complain("questions", "keys are sorted otherwise");
}

/// The outline by row, asked for without sorting it.
void CheckOrders(const Edit& edit) {
    String rows;
    for (const Ref<TasksCls>& row : edit.world.Rows()) rows += " " + KeyOf(*row);
    String told;
    for (const auto& entry : edit.col().Sort(True)->Snapshot()) {
        const Ref<TasksCls> task = entry.item.Object<TasksCls>();
        if (task->TaskCondidat()) told += " " + KeyOf(*task);
    }
    if (told != rows) edit.world.Complain("questions", "sorted by row stand" + told);
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
    CheckChildKeys(edit);
    CheckOrders(edit);
    if (col.Clone()->Count(True) != col.Count(True)) edit.world.Complain("questions", "a copy has other tasks");
    col.FirstChildInParent(edit.key());
    col.GetFirstLevelParentPosKey(edit.key(), True);
    col.GetLastParentPosKey(edit.key(), edit.parent_key(), True);
    col.CanbeLeveled(edit.key(), top);
    col.GetLinkedTask(edit.key());
    col.ValidPredecessor(edit.key(), top);
    col.ValidPredecessors(edit.key(), "1,2", edit.Is(0));
    col.GetFirstLeadTime(edit.key());
    col.CalcLeadTimeNoLink(edit.key(), Monday);
    if (!col.DoWeChangeNow(edit.key(), top)) edit.world.Complain("questions", "a task may not move");
    if (col.GetPredecessor(edit.key() + "|2") != edit.key()) edit.world.Complain("questions", "another key is told");
    if (col.TaskCanNotBeAdd()) edit.world.Complain("questions", "so few tasks are too many");
    edit.world.app->xPhases();
    if (testing::ToldTasks(col) != before) edit.world.Complain("questions", "they changed the plan");
    return true;
}

/// Those listed, each once, by their places in the outline.
bool AskPhases(const Edit& edit) {
    const Ref<Collection> phases = edit.col().Phases();
    if (!phases) return true;
    Long place = 0;
    for (const auto& entry : phases->Snapshot()) {
        const Long next = edit.col().Item(entry.item.As<String>())->TaskSubPosition();
        if (next < place) edit.world.Complain("questions", "phases stand in another order");
        place = next;
    }
    return true;
}

/// The list that nobody makes: it ends in a failure at the first task of the outline.
bool AskValidTasks(const Edit& edit) {
    const Ref<TasksCol> valid = edit.col().GetValidTasks();
    const String recorded = edit.world.failures.Taken();
    if (valid || recorded != "TasksCol/GetValidTasks 91\n") edit.world.Complain("questions", "valid tasks are told");
    return true;
}

/// Gaps without a link, and a start that keeps one.
bool AskGap(const Edit& edit) {
    const Date start = edit.task->TaskBDate();
    const Date end = edit.other->TaskEDate();
    if (!start.set() || !end.set()) return false;
    const auto complain = [&](const char* text) { edit.world.Complain("gap", text); };
    const Integer gap = edit.col().GetLeadTimeNoLink(start, end);
    if (gap != day_by_day::GapBetween(start, end)) complain("it is another than day by day");
    if (edit.col().CalcLeadTimeNoLink(edit.key(), end) != gap) complain("a task has another one");
    Date later = start;
    edit.col().GetDateNoLink(later, end, edit.number());
    if (later != end + edit.number()) complain("plain days come out elsewhere");
    Date moved = start;
    Variant shift{Long(edit.number())};
    edit.col().AdjustDateForSummary(moved, edit.Day(), end, shift);
    const String failed = edit.world.failures.Taken();
    if (failed.empty() ? day_by_day::GapBetween(moved, edit.Day()) != gap
                       : failed != "TasksCol/AdjustDateForSummary 28\n") {
        complain("it is not kept");
    }
    return true;
}

/// The plan written as a text, whole or one subtree of it, and read into a list of its own.
bool CopyByText(const Edit& edit) {
    TasksCol& col = edit.col();
    const auto copy = Make<TasksCol>();
    const auto part = Make<TasksCol>();
    if (!copy->FromXml(col.ToXml(), Make<StaticCls>())) edit.world.Complain("copy", "it does not read");
    Ref<Collection> below;
    col.GetALLRelatedTask(edit.key(), below);
    if (!part->FromXml(col.ToXmlPart(below), Make<StaticCls>())) edit.world.Complain("copy", "a part does not read");
    if (copy->Count(True) != col.Count(True)) edit.world.Complain("copy", "it has another number of tasks");
    if (part->Count(True) != below->Count()) edit.world.Complain("copy", "a part has another number of tasks");
    return true;
}

}  // namespace

std::span<const Operation> QuestionOperations() {
    static constexpr Operation kOperations[] = {
        {"Ask", 3, About::kTask, 0, 1, Ask},
        {"AskPhases", 2, About::kNone, 0, 0, AskPhases},
        {"AskValidTasks", 1, About::kTask, 0, 0, AskValidTasks},
        {"AskGap", 3, About::kTwoTasks, -9, 20, AskGap},
        {"CopyByText", 2, About::kTask, 0, 0, CopyByText},
    };
    return kOperations;
}

}  // namespace mrlxmlclass::model
