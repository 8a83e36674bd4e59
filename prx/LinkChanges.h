#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mrlxmlclass/tasks/TasksCol.h"

namespace prx {

/// The days that a link lies between.
struct LinkDates {
    mrlxmlclass::Date predecessor_end;
    mrlxmlclass::Date start;
    bool operator==(const LinkDates&) const = default;
    /// Whether there are two days that can be compared.
    bool measurable() const;
    /// Working days in between, as a lag counts them: 0 on the next one, -1 on the predecessor's last. Measured,
    /// because a walk along the links may store another one than the dates keep.
    std::int64_t Gap() const;
};

/// Remembers how tasks wait for each other, and tells what an edit made of that beside what was asked for.
class LinkChanges {
public:
    /// Takes the links and dates of now for those before the edit.
    void Remember(const mrlxmlclass::Ref<mrlxmlclass::TasksCol>& tasks);
    /// The edit was asked to make or to take off that link.
    void AskedFor(const mrlxmlclass::TasksCls& task, const mrlxmlclass::TasksCls& predecessor);
    /// The edit was asked to change when the task starts, or what it waits for.
    void AskedFor(const mrlxmlclass::TasksCls& task);

    /// The links that have come beside what was asked for: a task, and one that it waits for.
    std::vector<std::pair<mrlxmlclass::Long, mrlxmlclass::Long>> Come() const;
    /// A line each, the worst first: a link that is gone although both tasks are there, or that has come; a task that
    /// starts sooner behind one that it waits for, where it overlaps with that one or was closest to it before; and one
    /// that starts later behind all that it waits for. Nothing where nothing was remembered.
    std::vector<std::string> Told() const;

private:
    using Links = std::map<std::int64_t, LinkDates>;  ///< of a task, by the keys of those that it waits for
    using LinksOfTasks = std::map<std::int64_t, Links>;
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
