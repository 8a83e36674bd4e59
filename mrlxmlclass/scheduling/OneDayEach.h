#pragma once

#include <vector>

#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {

/// For hosts that want parts of a day to stay on their day. A walk that moves a task of a part of one day ends it on
/// the day behind, be that free or not, and one of most of a week or month, which got a day, at the end of that. While
/// this lives, such tasks last a day; then they have their lengths again, and those that moved tell them
/// (`DateEndChange` where they count in weeks or months, `DurationChange`, `TaskDurationChange`).
class OneDayEach {
public:
    enum class Told { kWhatMoved, kNothing };
    /// `but`, if any, keeps its length.
    explicit OneDayEach(const Ref<TasksCol>& tasks, const TasksCls* but = nullptr, Told told = Told::kWhatMoved);
    ~OneDayEach();
    OneDayEach(const OneDayEach&) = delete;
    OneDayEach& operator=(const OneDayEach&) = delete;

private:
    struct ShortTask {
        Ref<TasksCls> task;
        Double length;
        String unit;
        Date start;
    };
    void GiveLengthBack(const ShortTask& short_task) const;

    Ref<TasksCol> tasks_;
    std::vector<ShortTask> short_tasks_;
    Told told_;
};

}  // namespace mrlxmlclass
