#pragma once

#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/model/SavedPlan.h"
#include "tests/model/Script.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::model {

using testing::Monday;

class Listener;

/// A plan that a script edits: its tasks by the numbers that the script gives them, and what was found wrong.
class World : public testing::Plan {
public:
    explicit World(const Setting& setting);
    ~World();

    const Setting setting;

    // --- Tasks by the numbers of the script -------------------------------------------------------------------------

    /// Nothing when it is gone.
    Ref<TasksCls> Numbered(int number) const;
    void Remember(int number, const TasksCls& task) { keys_[number] = task.TaskKey(); }
    int NextNumber() const { return keys_.empty() ? 1 : keys_.rbegin()->first + 1; }
    std::vector<int> InOutline() const { return Numbers(True); }
    std::vector<int> Candidates() const { return Numbers(False); }
    /// Forgets the numbers of tasks that are gone: their keys are given out again.
    void ForgetGone();

    // --- The outline ------------------------------------------------------------------------------------------------

    std::vector<Ref<TasksCls>> Rows() const;
    /// The task and all below it, by row.
    std::vector<Ref<TasksCls>> Block(const TasksCls& task) const;
    std::vector<Ref<TasksCls>> Siblings(const TasksCls& task) const;
    /// The neighbour on its level, that many places on; nothing beyond the end.
    Ref<TasksCls> Neighbour(const TasksCls& task, int places) const;
    /// Numbers the rows as they will be when a task with all below it stands right behind another's last row.
    void PutRowsBehind(const TasksCls& task, const TasksCls& other);

    // --- Faults -----------------------------------------------------------------------------------------------------

    /// The first one counts.
    void Complain(std::string_view check, const String& text);
    const std::optional<Complaint>& complaint() const { return complaint_; }

    /// The operation that runs; events are heard in the middle of it.
    std::string_view running;

    /// What the host was told last of a task's dates by the operation that runs.
    struct Heard {
        std::optional<Date> start;
        std::optional<Date> end;
    };
    std::map<std::int64_t, Heard> heard;

    /// Saves, loads what was saved, and saves again; listens to the plan that was loaded.
    void SaveLoadSave();

private:
    std::vector<int> Numbers(Boolean in_outline) const;
    void Listen();
    SavedPlan Saved();

    int files_ = 0;
    std::map<int, Long> keys_;
    std::optional<Complaint> complaint_;
    std::unique_ptr<Listener> listener_;
};

inline String KeyOf(const TasksCls& task) {
    return KeyText(task.TaskKey()).text();
}
inline String Named(const TasksCls& task) {
    return "task " + KeyOf(task) + " \"" + task.TaskName() + "\"";
}

}  // namespace mrlxmlclass::model
