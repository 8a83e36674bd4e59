#include "bench/Floor.h"

#include <algorithm>

namespace mrlxmlclass::bench {
namespace {

constexpr int kWeek = 7;
constexpr int kWorkWeek = 5;

}  // namespace

Floor::Floor(int days) {
    std::int32_t worked = 0;
    for (int day = 0; day < days; ++day) {
        worked_before_.push_back(worked);
        if (day % kWeek >= kWorkWeek) continue;
        day_of_.push_back(day);
        ++worked;
    }
}

Floor Floor::Chain(int tasks, int gap) {
    Floor floor(2 * tasks + 100);
    // The first task waits for nothing, each other one for the task before it.
    for (int i = 0; i < tasks; ++i) {
        floor.tasks_.push_back({std::max(i - 1, 0), 1, 0, 0});
        if (i > 0) floor.links_.push_back({i - 1, gap});
    }
    return floor;
}

int Floor::Reschedule(int first_day) {
    const std::size_t count = tasks_.size();
    for (std::size_t i = 0; i < count; ++i) {
        Task& task = tasks_[i];
        const auto links_end = i + 1 < count ? static_cast<std::size_t>(tasks_[i + 1].first_link) : links_.size();
        std::int32_t number = worked_before_[static_cast<std::size_t>(first_day)];
        for (auto at = static_cast<std::size_t>(task.first_link); at < links_end; ++at) {
            const Task& before = tasks_[static_cast<std::size_t>(links_[at].predecessor)];
            number = std::max(number, worked_before_[static_cast<std::size_t>(before.end + 1)] + links_[at].gap);
        }
        task.start = day_of_[static_cast<std::size_t>(number)];
        task.end = day_of_[static_cast<std::size_t>(number + task.duration - 1)];
    }
    return tasks_.back().end;
}

}  // namespace mrlxmlclass::bench
