#include "prx/LinkChanges.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>

#include "prx/Edit.h"
#include "prx/Outline.h"

namespace prx {

using namespace mrlxmlclass;

LinkChanges::LinksOfTasks LinkChanges::LinksOf(const Ref<TasksCol>& tasks) {
    LinksOfTasks links;
    for (const auto& entry : tasks->NewEnum()) {
        TasksCls& task = *entry.item;
        if (!task.TaskCondidat() || !task.TaskPredecessorValid()) continue;
        Links& of_task = links[task.TaskKey()];
        for (const auto& link : task.TaskPredecessor()->Snapshot()) {
            const Ref<TasksCls> predecessor = tasks->Item(link.item);
            if (!predecessor || !predecessor->TaskCondidat()) continue;
            of_task[predecessor->TaskKey()] = {predecessor->TaskEDate(), task.TaskBDate()};
        }
    }
    return links;
}

void LinkChanges::Remember(const Ref<TasksCol>& tasks) {
    tasks_ = tasks;
    before_ = LinksOf(tasks);
    leads_before_ = Leads();
}

std::map<LinkChanges::Pair, LinkChanges::Lead> LinkChanges::Leads() const {
    std::map<Pair, Lead> leads;
    for (const auto& [task, links] : LinksOf(tasks_)) {
        for (const auto& [key, dates] : links) {
            const Wait wait{tasks_->Item(Long(task)), tasks_->Item(Long(key))};
            leads.insert(
                {{Long(task), Long(key)}, {dates, LeadOf(tasks_, wait), dates.measurable() ? dates.Gap() : 0}});
        }
    }
    return leads;
}

void LinkChanges::AskedFor(const TasksCls& task, const TasksCls& predecessor) {
    asked_.emplace(task.TaskKey(), predecessor.TaskKey());
}

void LinkChanges::AskedFor(const TasksCls& task) {
    asked_tasks_.insert(task.TaskKey());
}

std::vector<LinkChanges::Pair> LinkChanges::Come() const {
    std::vector<Pair> come;
    if (!tasks_) return come;
    for (const auto& [link, lead] : Leads()) {
        if (!leads_before_.contains(link) && !asked_.contains(link)) come.push_back(link);
    }
    return come;
}

std::vector<LinkChanges::Pair> LinkChanges::Changed() const {
    std::vector<Pair> changed;
    if (!tasks_) return changed;
    for (const auto& [link, lead] : Leads()) {
        const auto before = leads_before_.find(link);
        if (before == leads_before_.end() || before->second != lead) changed.push_back(link);
    }
    return changed;
}

std::vector<std::string> LinkChanges::Told() const {
    if (!tasks_) return {};
    LinksOfTasks now = LinksOf(tasks_);
    for (const auto& [task, links] : before_) now.try_emplace(task);
    Lines lines;
    for (const auto& [task, after] : now) {
        if (asked_tasks_.contains(task) || !tasks_->Item(Long(task))) continue;
        const auto known = before_.find(task);
        const Links before = known == before_.end() ? Links() : known->second;
        if (before == after) continue;
        TellLinks(task, before, after, lines);
        TellGaps(task, before, after, lines);
    }
    std::vector<std::string> told = std::move(lines.links);
    for (const std::vector<std::string>& more : {lines.sooner, lines.later}) {
        told.insert(told.end(), more.begin(), more.end());
    }
    return told;
}

void LinkChanges::TellLinks(std::int64_t task, const Links& before, const Links& after, Lines& lines) const {
    for (const auto& [key, dates] : before) {
        if (after.contains(key) || asked_.contains({task, key}) || !tasks_->Item(Long(key))) continue;
        lines.links.push_back(fmt::format("{} no longer waits for {}{}", Title(task), Title(key),
                                          tasks_->isParent(std::to_string(key)) ? ", which is a summary now" : ""));
    }
    for (const auto& [key, dates] : after) {
        if (before.contains(key) || asked_.contains({task, key})) continue;
        const std::string lag = dates.measurable() ? fmt::format(" (lag {})", dates.Gap()) : "";
        lines.links.push_back(fmt::format("{} now waits for {}{}", Title(task), Title(key), lag));
    }
}

void LinkChanges::TellGaps(std::int64_t task, const Links& before, const Links& after, Lines& lines) const {
    struct Change {
        std::int64_t key = 0, was = 0, is = 0;
    };
    const auto line = [&](const Change& change, const char* how) {
        return fmt::format("{} waits for {} and now starts {} (lag {}, now {})", Title(task), Title(change.key), how,
                           change.was, change.is);
    };
    std::optional<std::int64_t> closest_before;
    for (const auto& [key, dates] : before) {
        if (dates.measurable()) closest_before = std::min(closest_before.value_or(dates.Gap()), dates.Gap());
    }
    std::vector<Change> changes;
    for (const auto& [key, dates] : after) {
        const auto known = before.find(key);
        if (known == before.end() || !known->second.measurable() || !dates.measurable()) continue;
        changes.push_back({key, known->second.Gap(), dates.Gap()});
    }
    for (const Change& change : changes) {
        if (change.is >= change.was || (change.is >= 0 && change.was != closest_before)) continue;
        lines.sooner.push_back(line(change, change.is >= 0    ? "sooner after it"
                                            : change.was >= 0 ? "before it ends"
                                                              : "even longer before it ends"));
    }
    const bool all_later = changes.size() == after.size() &&
                           std::ranges::all_of(changes, [](const Change& change) { return change.is > change.was; });
    if (changes.empty() || !all_later) return;
    lines.later.push_back(line(*std::ranges::min_element(changes, {}, &Change::is), "later after it"));
}

std::string LinkChanges::Title(std::int64_t key) const {
    return TitleOf(*tasks_->Item(Long(key)));
}

}  // namespace prx
