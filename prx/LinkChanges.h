#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mrlxmlclass/scheduling/Waits.h"

namespace prx {

/// Remembers how tasks wait for each other, and tells what an edit made of that beside what was asked for.
class LinkChanges {
public:
    /// Takes the links and dates of now for those before the edit.
    void Remember(const mrlxmlclass::Ref<mrlxmlclass::TasksCol>& tasks);
    /// The edit was asked to make or to take off that link.
    void AskedFor(const mrlxmlclass::TasksCls& task, const mrlxmlclass::TasksCls& predecessor);
    /// The edit was asked to change when the task starts, or what it waits for.
    void AskedFor(const mrlxmlclass::TasksCls& task);

    /// A task, and one that it waits for.
    using Pairs = std::vector<std::pair<mrlxmlclass::Long, mrlxmlclass::Long>>;
    /// The links that have come beside what was asked for.
    Pairs Come() const;
    /// The links that are new or lie between other days than before.
    Pairs Moved() const;
    /// A line each, the worst first: a link that is gone although both tasks are there, or that has come; a task that
    /// starts sooner behind one that it waits for, where it overlaps with that one or was closest to it before; and one
    /// that starts later behind all that it waits for. Nothing where nothing was remembered.
    std::vector<std::string> Told() const;

private:
    /// Of a task, by the keys of those that it waits for.
    using Links = std::map<std::int64_t, mrlxmlclass::LinkDates>;
    using LinksOfTasks = std::map<std::int64_t, Links>;
    template <class Wanted>
    Pairs Select(Wanted&& wanted) const;
    static LinksOfTasks LinksOf(const mrlxmlclass::Ref<mrlxmlclass::TasksCol>& tasks);
    struct Lines {
        std::vector<std::string> links, sooner, later;
    };
    void TellLinks(std::int64_t task, const Links& before, const Links& after, Lines& lines) const;
    void TellGaps(std::int64_t task, const Links& before, const Links& after, Lines& lines) const;
    std::string Title(std::int64_t key) const;

    mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks_;
    LinksOfTasks before_;
    std::set<std::pair<std::int64_t, std::int64_t>> asked_;
    std::set<std::int64_t> asked_tasks_;
};

}  // namespace prx
