#include <unordered_map>

#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;
/// What was found damaged before a failure stays found.
constexpr FailureTail kFindingTail{"TasksCol", FailureTail::Gives::SoFar, failure::kUnknownKey};

/// Tells the tasks whose way up ends from those that stand in a ring of parents or below one.
class WaysUp {
public:
    explicit WaysUp(TasksCol& tasks) {
        for (const auto& entry : tasks.NewEnum()) Follow(tasks, entry.key);
    }
    bool End(KeyText key) const {
        const auto found = ends_.find(key);
        return found != ends_.end() && found->second;
    }

private:
    void Follow(TasksCol& tasks, KeyText key) {
        std::vector<KeyText> passed;
        bool ends = true;
        while (const Ref<TasksCls> task = In(tasks).Find(key)) {
            const auto [place, is_new] = ends_.emplace(key, false);  // a way that comes back to it has no end
            if (!is_new) {
                ends = place->second;
                break;
            }
            passed.push_back(key);
            if (task->ParentID() == 0) break;
            key = KeyText(task->ParentID());
        }
        for (const KeyText& step : passed) ends_[step] = ends;
    }

    std::unordered_map<KeyText, bool> ends_;
};

/// Children that stand above their parents are arranged one by one, each at the cost of a walk over the plan. Only a
/// damaged file has them. In a ring of parents, which no arranging cures, it must not take minutes: there it ends after
/// a while. Rows are numbered anew in any case.
class Arranging {
public:
    explicit Arranging(TasksCol& tasks) : tasks_(tasks), left_in_rings_(kMostWork / (tasks.Count(True) + 1) + 1) {}

    void Below(Long parent, Long child) {
        if (!ways_up_) ways_up_.emplace(tasks_);
        if (!ways_up_->End(parent) && --left_in_rings_ <= 0) {
            if (left_in_rings_ == 0) kTail.Run("AddTaskParentForAll", [] { Raise(failure::kEndlessWalk); });
        } else {
            tasks_.ArrangePosition(parent, child);
        }
    }

private:
    static constexpr std::int64_t kMostWork = 1'000'000;  // arrangements times tasks

    TasksCol& tasks_;
    std::optional<WaysUp> ways_up_;  // found when the first child stands above its parent
    std::int64_t left_in_rings_;
};

/// Widens the cached span of the project by one task of the outline.
void WidenSpan(const TasksCls& task) {
    ModuleState& module = Module();
    if (module.g_MinDate > task.TaskBDate() || !module.g_MinDate.set()) {
        module.g_MinDate = task.TaskBDate();
        module.g_MinDateTaskKey = task.TaskKey();
    }
    if (module.g_MaxDate < task.TaskEDate() || !module.g_MaxDate.set()) {
        module.g_MaxDate = task.TaskEDate();
        module.g_MaxDateTaskKey = task.TaskKey();
    }
}

/// The rows from 1 to the number of tasks that no task has taken yet.
class FreeRows {
public:
    explicit FreeRows(std::size_t count) : taken_(count + 1), free_(count) {}
    void Take(Long row) {
        if (row < 1 || row >= static_cast<std::int64_t>(taken_.size())) return;
        auto taken = taken_[static_cast<std::size_t>(row.value())];
        if (!taken) --free_;
        taken = true;
    }
    bool any() const { return free_ > 0; }

private:
    std::vector<bool> taken_;
    std::size_t free_;
};

}  // namespace

Boolean TasksCol::AddTaskParentForAll() {
    return kFindingTail.Run<Boolean>("AddTaskParentForAll", [&](Boolean& needs_repair) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        FreeRows rows(tasks_.size());
        Arranging arranging(*this);
        candidates_ = 0;  // so that a second call counts right
        for (const auto& entry : NewEnum()) {
            const Ref<TasksCls>& task = entry.item;
            if (const Long parent_key = task->ParentID(); parent_key != 0) {
                AddParentTask(parent_key, task->TaskKey());
                const Ref<TasksCls> parent = Item(parent_key);
                if (task->TaskPosition() < parent->TaskPosition()) {
                    parent->TaskPosition(task->TaskPosition());
                    arranging.Below(parent_key, task->TaskKey());
                    needs_repair = True;
                }
            } else if (task->TaskCondidat() && !task->TaskType()) {
                AddPhase(Variant(task->TaskKey()));
            }
            if (task->TaskCondidat()) {
                WidenSpan(*task);
                if (task->TaskPosition() == -1) needs_repair = True;
            } else {
                candidates_ += 1;
            }
            rows.Take(task->TaskPosition());
        }
        if (rows.any()) needs_repair = True;
    });
}

Boolean TasksCol::Internal::FixProject() {
    return kTail.Run<Boolean>("FixProject", [&](Boolean& result) {
        SortRows();
        Long position = 0;
        for (const auto& entry : self_.NewEnum()) {
            if (entry.item->TaskCondidat()) entry.item->TaskPosition(position += 1);
        }
        result = True;
    });
}

}  // namespace mrlxmlclass
