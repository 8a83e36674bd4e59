#pragma once

#include <cstdint>
#include <unordered_set>

#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {

/// Hears, while it lives, whose dates and lengths a plan tells.
class ToldTasks : TasksColEvents {
public:
    explicit ToldTasks(const Ref<TasksCol>& tasks) : tasks_(tasks) { tasks_->Events.Add(*this); }
    ~ToldTasks() override { tasks_->Events.Remove(*this); }
    ToldTasks(const ToldTasks&) = delete;
    ToldTasks& operator=(const ToldTasks&) = delete;

    bool Has(const TasksCls& task) const { return keys_.contains(task.TaskKey()); }

private:
    void DateStartChange(Long TaskKey, Date /*BDate*/, Boolean /*Milstones*/, Boolean /*isParent*/) override {
        keys_.insert(TaskKey);
    }
    void DateEndChange(Long TaskKey, Date /*EDate*/, Boolean /*Milstones*/, Boolean /*isParent*/,
                       const String& /*Unit*/) override {
        keys_.insert(TaskKey);
    }
    void TaskDurationChange(Long TaskKey, Double /*duration*/, const String& /*Unit*/, Boolean /*Milstones*/,
                            Boolean /*isParent*/) override {
        keys_.insert(TaskKey);
    }

    Ref<TasksCol> tasks_;
    std::unordered_set<std::int64_t> keys_;
};

}  // namespace mrlxmlclass
