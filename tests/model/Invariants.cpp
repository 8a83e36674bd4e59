#include "tests/model/Invariants.h"

#include <algorithm>
#include <ranges>
#include <set>

#include "tests/model/Span.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::model {
namespace {

namespace day_by_day = testing::day_by_day;
using Rows = std::vector<Ref<TasksCls>>;

void CheckKeys(World& world) {
    std::int64_t candidates = 0;
    for (const auto& entry : world.col().NewEnum()) {
        TasksCls& task = *entry.item;
        if (entry.key != KeyText(task.TaskKey())) world.Complain("keys", Named(task) + " is filed under another key");
        if (In(task).elementName() != "Task") world.Complain("keys", Named(task) + " has another element name");
        if (task.TaskCondidat()) continue;
        ++candidates;
        if (task.TaskPosition() != 0 || task.ParentID() != 0 || !task.TaskType()) {
            world.Complain("candidates", Named(task) + " is a candidate with a row, a parent or another kind");
        }
    }
    if (world.col().Count(True) - world.col().Count(False) != candidates) {
        world.Complain("candidates", "there are " + std::to_string(candidates) + ", counted are " +
                                         std::to_string(world.col().Count(True) - world.col().Count(False)));
    }
}

/// Rows 1 to the number of tasks in the outline, each once.
void CheckRows(World& world, const Rows& rows) {
    Long due = 0;
    for (const Ref<TasksCls>& task : rows) {
        due += 1;
        if (task->TaskPosition() == due) continue;
        world.Complain("rows", Named(*task) + " stands in row " + KeyText(task->TaskPosition()).text() +
                                   ", where row " + KeyText(due).text() + " is due");
    }
    if (world.col().Count(False) != due) world.Complain("rows", "the outline is counted wrong");
}

/// Each task stands behind its parent with only the parent's other descendants in between.
void CheckSubtrees(World& world, const Rows& rows) {
    std::vector<Ref<TasksCls>> open;  // the last row and its parents, from the top
    for (const Ref<TasksCls>& task : rows) {
        const Long parent = task->ParentID();
        while (!open.empty() && open.back()->TaskKey() != parent) open.pop_back();
        if (parent != 0 && open.empty()) {
            world.Complain("subtrees", Named(*task) + " does not stand below task " + KeyText(parent).text());
        }
        if (world.col().GetLevel(KeyOf(*task)) != std::ssize(open)) {
            world.Complain("subtrees", Named(*task) + " stands on another level than is told");
        }
        open.push_back(task);
    }
}

/// A task with a parent is in that parent's list of children, and nowhere else.
void CheckChildren(World& world) {
    for (const auto& entry : world.col().NewEnum()) {
        TasksCls& parent = *entry.item;
        std::set<String> listed;
        if (const Ref<Dictionary> children = In(parent).PeekTasks()) {
            for (const Variant& key : children->Keys()) listed.insert(key.Key().text());
        }
        std::set<String> due;
        for (const auto& other : world.col().NewEnum()) {
            if (other.item->ParentID() == parent.TaskKey()) due.insert(KeyOf(*other.item));
        }
        if (listed != due)
            world.Complain("children", Named(parent) + " lists other children than call it their parent");
    }
}

/// The keys of a list of links, each once and each under itself.
std::set<String> Linked(World& world, const TasksCls& task, const Ref<Collection>& links) {
    std::set<String> keys;
    if (!links) return keys;
    for (const auto& entry : links->Snapshot()) {
        const String key = entry.item.As<String>();
        const bool filed = links->Has(key) && keys.insert(key).second;
        if (!filed) world.Complain("links", Named(task) + " holds a link to " + key + " twice or under another key");
        if (!world.col().Item(key))
            world.Complain("links", Named(task) + " holds a link to " + key + ", which is gone");
    }
    return keys;
}

void CheckLinks(World& world) {
    std::map<String, std::set<String>> waits_for;
    std::map<String, std::set<String>> followed_by;
    for (const auto& entry : world.col().NewEnum()) {
        TasksCls& task = *entry.item;
        const String key = KeyOf(task);
        const auto predecessors = Linked(world, task, In(task).PeekPredecessor());
        const auto successors = Linked(world, task, In(task).PeekSuccessor());
        if (!predecessors.empty()) waits_for[key] = predecessors;
        for (const String& successor : successors) followed_by[successor].insert(key);
        if (!world.setting.links && (!predecessors.empty() || !successors.empty())) {
            world.Complain("links", Named(task) + " is linked, though links are not live");
        }
    }
    for (const auto& entry : world.col().NewEnum()) {
        const String key = KeyOf(*entry.item);
        if (waits_for[key] != followed_by[key]) {
            world.Complain("links", Named(*entry.item) + " waits for others than those that it follows");
        }
    }
}

bool IsUndated(const Ref<TasksCls>& task) {
    return !task->TaskBDate().set() || !task->TaskEDate().set();
}

}  // namespace

bool AnyUndated(const World& world) {
    return std::ranges::any_of(world.Rows(), IsUndated);
}

void CheckSummaries(World& world, const TasksCls& task) {
    for (Ref<TasksCls> summary = world.col().Item(task.TaskKey()); summary;
         summary = world.col().Item(summary->ParentID())) {
        Rows children = world.Rows();
        std::erase_if(children, [&](const auto& row) { return row->ParentID() != summary->TaskKey(); });
        if (children.empty() || std::ranges::any_of(children, IsUndated)) continue;
        const auto starts = children | std::views::transform([](const auto& child) { return child->TaskBDate(); });
        const auto ends = children | std::views::transform([](const auto& child) { return child->TaskEDate(); });
        if (summary->TaskBDate() != std::ranges::min(starts) || summary->TaskEDate() != std::ranges::max(ends)) {
            world.Complain("summaries", Named(*summary) + " has another span than its children");
        }
        if (summary->TaskDuration() != day_by_day::SummaryDuration(summary->TaskBDate(), summary->TaskEDate())) {
            world.Complain("summaries", Named(*summary) + " lasts longer or shorter than day by day");
        }
    }
}

void CheckPlan(World& world) {
    const Rows rows = world.Rows();
    CheckKeys(world);
    CheckRows(world, rows);
    CheckSubtrees(world, rows);
    CheckChildren(world);
    CheckLinks(world);
    CheckSpan(world);
}

}  // namespace mrlxmlclass::model
