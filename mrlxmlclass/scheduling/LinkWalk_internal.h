#pragma once

#include "mrlxmlclass/runtime/Walk.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

/// Rows or names, joined by ", ".
struct LinkList {
    explicit LinkList(Boolean by_name) : by_name_(by_name) {}
    void Add(const TasksCls& task);

    String text;

private:
    Boolean by_name_;
    bool any_ = false;
};

/// Taking links off and telling what is left, which call each other: a text takes off what is stale, and taking off
/// tells the text. Many stale links of one task multiply; beyond a bound that ends in a failure (28), recorded once.
class LinkWalk {
public:
    explicit LinkWalk(TasksCol& tasks) : held_(&tasks), col_(tasks), tasks_(tasks) {}

    Walk<Boolean> RemoveTaskPredecessor(KeyText key, KeyText predecessor);
    Walk<String> PredessorAsString(KeyText key, Boolean Name = False);
    /// RemoveTaskPredecessor for one of many links; once the bound is met the rest go without a word.
    void TakeOff(KeyText key, KeyText predecessor);

private:
    void Cut(KeyText key, KeyText predecessor);
    bool over() const { return removals_ > kMostRemovals || gathered_ > kMostGathered; }

    static constexpr std::size_t kMostRemovals = 100'000;
    static constexpr std::size_t kMostGathered = 10'000'000;

    Ref<TasksCol> held_;  // a listener may let go of the collection
    TasksCol& col_;
    TasksCol::Internal tasks_;
    std::size_t removals_ = 0;
    std::size_t gathered_ = 0;  ///< stale links, once for each call that found them
};

}  // namespace mrlxmlclass
