#pragma once

#include <vector>

#include "mrlxmlclass/scheduling/ToldTasks.h"

namespace mrlxmlclass {

/// Made around an edit, for hosts whose users are to hear of every task that moves: taking a task away links those
/// around it, and where one of them waits for another task, too, it is put behind the start of that, or even at the
/// beginning of time, without a word.
///
/// When this goes, the tasks of the outline that were moved and not told stand where they stood, with the lead times
/// that the dates of their links tell, and their summaries follow.
class HeldDates {
public:
    explicit HeldDates(const Ref<TasksCol>& tasks);
    ~HeldDates();
    HeldDates(const HeldDates&) = delete;
    HeldDates& operator=(const HeldDates&) = delete;

private:
    struct Held {
        Ref<TasksCls> task;
        Date start, end;
    };
    bool PutBack(const Held& held) const;
    void MeasureLeads(const Ref<TasksCls>& task) const;

    Ref<TasksCol> tasks_;
    std::vector<Held> held_;  ///< tasks without children that have a start
    ToldTasks told_;
};

}  // namespace mrlxmlclass
