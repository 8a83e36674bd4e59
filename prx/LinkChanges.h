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
    using Pair = std::pair<mrlxmlclass::Long, mrlxmlclass::Long>;
    /// The links that have come beside what was asked for.
    std::vector<Pair> Come() const;
    /// The links that are new, lie between other days than before, have another lead time, or by the calendar another
    /// number of working days.
    std::vector<Pair> Changed() const;
    /// A line each, the worst first: a link that is gone although both tasks are there, or that has come; a task that
    /// starts sooner behind one that it waits for, where it overlaps with that one or was closest to it before; and one
    /// that starts later behind all that it waits for. Nothing where nothing was remembered.
    std::vector<std::string> Told() const;

private:
    /// Of a task, by the keys of those that it waits for.
    using Links = std::map<std::int64_t, mrlxmlclass::LinkDates>;
    using LinksOfTasks = std::map<std::int64_t, Links>;
    struct Lead {
        mrlxmlclass::LinkDates dates;
        mrlxmlclass::Integer stored;
        std::int64_t measured = 0;
        bool operator==(const Lead&) const = default;
    };
    std::map<Pair, Lead> Leads() const;
    static LinksOfTasks LinksOf(const mrlxmlclass::Ref<mrlxmlclass::TasksCol>& tasks);
    struct Lines {
        std::vector<std::string> links, sooner, later;
    };
    void TellLinks(std::int64_t task, const Links& before, const Links& after, Lines& lines) const;
    void TellGaps(std::int64_t task, const Links& before, const Links& after, Lines& lines) const;
    std::string Title(std::int64_t key) const;

    mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks_;
    LinksOfTasks before_;
    std::map<Pair, Lead> leads_before_;
    std::set<Pair> asked_;
    std::set<std::int64_t> asked_tasks_;
};

}  // namespace prx
