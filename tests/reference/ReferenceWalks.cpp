#include "tests/reference/ReferenceWalks.h"

#include <algorithm>

#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass::reference {

std::vector<String> ReferenceWalks::Children(const String& key) const {
    std::vector<String> children;
    const Ref<Dictionary> keys = col_.GetTasksAsKeys(key);
    for (const Variant& child : keys->Keys()) children.push_back(child.Key().text());
    return children;
}

std::vector<String> ReferenceWalks::AllTasks() const {
    std::vector<String> keys;
    for (const auto& entry : col_.NewEnum()) keys.push_back(KeyOf(entry.item));
    return keys;
}

bool ReferenceWalks::WaitsFor(const Ref<TasksCls>& task, const String& predecessor) {
    return std::ranges::count(Predecessors(task), predecessor) > 0;
}

bool ReferenceWalks::IsFollowedBy(const Ref<TasksCls>& task, const String& successor) {
    return std::ranges::count(Successors(task), successor) > 0;
}

Integer ReferenceWalks::StoredLead(const String& predecessor, const Ref<TasksCls>& task) {
    return kTasksColTail.Run<Integer>("GetLeadTime", [&](Integer& result) {
        const Ref<Collection> leads = In(task).PeekLeadTime();
        if (!leads) return;
        for (const auto& entry : leads->Snapshot()) {
            const String text = entry.item.As<String>();
            const std::size_t bar = text.find('|');
            if (text.substr(0, bar) != predecessor) continue;
            result = Conversions::StringToInteger(text.substr(bar + 1));
            return;
        }
    });
}

bool ReferenceWalks::HasPlainUnit(const Ref<TasksCls>& task) {
    const String unit = task->TaskDurationUnit();
    return unit == "mons" || unit == "wks";
}

// --- Telling the host ------------------------------------------------------------------------------------------------

void ReferenceWalks::TellStart(const String& key, Boolean parent) {
    const Ref<TasksCls> task = Task(key);
    if (!Loud()) return;
    col_.Events.Raise(&TasksColEvents::DateStartChange, KeyNumber(key), task->TaskBDate(), task->TaskMilstones(),
                      parent);
}

void ReferenceWalks::TellEnd(const String& key, Boolean parent) {
    TellEnd(key, parent, Task(key)->TaskDurationUnit());
}

void ReferenceWalks::TellEnd(const String& key, Boolean parent, const String& unit) {
    const Ref<TasksCls> task = Task(key);
    if (!Loud()) return;
    col_.Events.Raise(&TasksColEvents::DateEndChange, KeyNumber(key), task->TaskEDate(), task->TaskMilstones(), parent,
                      unit);
}

void ReferenceWalks::TellDuration(const String& key, Boolean parent) {
    const Ref<TasksCls> task = Task(key);
    if (!Loud()) return;
    col_.Events.Raise(&TasksColEvents::DurationChange, KeyNumber(key), task->TaskDuration(), task->TaskDurationUnit(),
                      task->TaskMilstones(), parent);
}

void ReferenceWalks::TellTaskDuration(const String& key, Boolean parent) {
    const Ref<TasksCls> task = Task(key);
    col_.Events.Raise(&TasksColEvents::TaskDurationChange, KeyNumber(key), task->TaskDuration(),
                      task->TaskDurationUnit(), task->TaskMilstones(), parent);
}

void ReferenceWalks::TellSummary(const String& key, Boolean summary) {
    if (Loud()) col_.Events.Raise(&TasksColEvents::IamASummary, KeyNumber(key), summary);
}

void ReferenceWalks::TellCost(const String& key, Currency cost) {
    if (Loud()) col_.Events.Raise(&TasksColEvents::RoolUpCostChange, KeyNumber(key), Variant(cost));
}

void ReferenceWalks::TellLinks(const String& key) {
    if (Loud()) col_.Events.Raise(&TasksColEvents::PredecessorChange, KeyNumber(key), PredessorAsString(key));
}

void ReferenceWalks::TellFollowers(const String& key) {
    if (Loud()) col_.Events.Raise(&TasksColEvents::SucessorChange, KeyNumber(key), SucessorAsString(key));
}

}  // namespace mrlxmlclass::reference
