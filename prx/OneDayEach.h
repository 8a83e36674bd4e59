#pragma once

#include <vector>

#include "prx/Project.h"

namespace prx {

/// A walk of the library that moves a task of a part of one day ends it on the day behind, be that free or not, and one
/// of most of a week or month, which got a day, at the end of that. While this lives, such tasks last a day; then they
/// have their lengths again, and those that moved tell them.
class OneDayEach {
public:
    /// `but`, if any, keeps its length. What moved is not told where the caller does so.
    explicit OneDayEach(const Project& project, const mrlxmlclass::TasksCls* but = nullptr, bool tells = true);
    ~OneDayEach();
    OneDayEach(const OneDayEach&) = delete;
    OneDayEach& operator=(const OneDayEach&) = delete;

private:
    struct ShortTask {
        mrlxmlclass::Ref<mrlxmlclass::TasksCls> task;
        mrlxmlclass::Double length;
        mrlxmlclass::String unit;
        mrlxmlclass::Date start;
    };
    mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks_;
    std::vector<ShortTask> short_tasks_;
    bool tells_;
};

}  // namespace prx
