#include "mrlxmlclass/scheduling/PlanShift.h"

#include <algorithm>
#include <unordered_set>

#include "mrlxmlclass/scheduling/KeptLengths.h"
#include "mrlxmlclass/scheduling/TaskEdit.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass {

namespace {

constexpr FailureTail kTail{"PlanShift", FailureTail::Gives::Empty};

/// The day that a lead time allows.
Date StartBehind(TasksCls& task, Date end, std::int64_t lead) {
    task.TaskLag(lead);
    task.TaskBDate(lead < 0 ? end : end + 1);
    return task.TaskBDate();
}

/// As the dates have it; `unknown` where they have none.
std::int64_t MeasuredLead(const Wait& wait, std::int64_t unknown) {
    const LinkDates dates{wait.predecessor->TaskEDate(), wait.waiting->TaskBDate()};
    return dates.measurable() ? dates.Gap() : unknown;
}

}  // namespace

PlanShift::PlanShift(const Ref<TasksCol>& tasks, Long days) : tasks_(tasks), days_(days) {
    for (const auto& entry : tasks->NewEnum()) {
        const Ref<TasksCls>& task = entry.item;
        if (!task->TaskCondidat() || !task->TaskBDate().set()) continue;
        if (TasksCol::Internal::IsParent(task, entry.key)) continue;
        Leaf leaf{.task = task,
                  .start = task->TaskBDate(),
                  .end = task->TaskEDate(),
                  .waits = WaitsOf(tasks, task),
                  .leads = {}};
        for (const Wait& wait : leaf.waits) leaf.leads.push_back(MeasuredLead(wait, LeadOf(tasks, wait)));
        leaves_.push_back(std::move(leaf));
    }
    std::ranges::stable_sort(leaves_, {}, [](const Leaf& leaf) { return leaf.task->TaskPosition(); });
    for (std::size_t i = 0; i < leaves_.size(); ++i) places_.emplace(leaves_[i].task->TaskKey(), i);
}

Date PlanShift::first() const {
    Date first;
    for (const Leaf& leaf : leaves_) first = first.set() ? std::min(first, leaf.start) : leaf.start;
    return first.set() ? ByDays(first) : first;
}

Date PlanShift::last() const {
    Date last;
    for (const Leaf& leaf : leaves_) last = std::max({last, leaf.start, leaf.end});
    return last.set() ? last + static_cast<double>(days_.value()) : last;
}

Boolean PlanShift::Run() {
    return kTail.Run<Boolean>("Run", [&](Boolean& result) {
        {
            const KeptLengths aside(tasks_, nullptr, KeptLengths::Tells::kNothing);
            for (Leaf& leaf : leaves_) PlaceBehindOthers(leaf);
        }
        for (const Leaf& leaf : leaves_) Follow(leaf);
        AdjustSummaries();
        result = True;
    });
}

std::vector<Ref<TasksCls>> PlanShift::Stayed() const {
    std::vector<Ref<TasksCls>> stayed;
    for (const Leaf& leaf : leaves_) {
        if (!leaf.moved()) stayed.push_back(leaf.task);
    }
    return stayed;
}

Date PlanShift::ByDays(Date start) const {
    return Gloabal::NextWorkingDay(start + static_cast<double>(days_.value()), days_ < 0 ? -1 : 1);
}

/// Nothing for a summary, and for a task without dates.
PlanShift::Leaf* PlanShift::LeafOf(const TasksCls& task) {
    const auto found = places_.find(task.TaskKey());
    return found == places_.end() ? nullptr : &leaves_[found->second];
}

/// What a task waits for comes before it, to any depth. In a circle, the one that closes it does not wait for the
/// first.
void PlanShift::PlaceBehindOthers(Leaf& leaf) {
    if (leaf.reached) return;
    leaf.reached = true;
    std::vector<Leaf*> open = {&leaf};
    while (!open.empty()) {
        Leaf& next = *open.back();
        if (next.looked_at == next.waits.size()) {
            Place(next);
            open.pop_back();
            continue;
        }
        Leaf* before = LeafOf(*next.waits[next.looked_at++].predecessor);
        if (before == nullptr || before->reached) continue;
        before->reached = true;
        open.push_back(before);
    }
}

void PlanShift::Place(Leaf& leaf) {
    TasksCls& task = *leaf.task;
    leaf.placed = true;
    StoreStart(task, ByDays(leaf.start));
    Date latest;
    bool waits = false;  // itself
    for (std::size_t i = 0; i < leaf.waits.size(); ++i) {
        const auto& [waiting, predecessor] = leaf.waits[i];
        const Leaf* before = LeafOf(*predecessor);
        if (before == nullptr || before == &leaf || !before->placed || !predecessor->TaskEDate().set()) continue;
        latest = std::max(latest, StartBehind(task, predecessor->TaskEDate(), leaf.leads[i]));
        waits |= waiting == leaf.task;
    }
    StoreStart(task, waits ? latest : std::max(latest, ByDays(leaf.start)));
}

/// Its lead times are measured anew, and where it moved it is told.
void PlanShift::Follow(const Leaf& leaf) const {
    const KeyText key(leaf.task->TaskKey());
    leaf.task->TaskLag(In(*tasks_).CalcLeadTime(leaf.task));
    for (std::size_t i = 0; i < leaf.waits.size(); ++i) {
        const Wait& wait = leaf.waits[i];
        if (wait.waiting != leaf.task) continue;
        // CalcLeadTime counts the free day on which a predecessor of weeks or months may end.
        tasks_->AddLeadTime(key.text(), KeyText(wait.predecessor->TaskKey()).text(),
                            Integer(MeasuredLead(wait, leaf.leads[i])));
    }
    if (leaf.moved()) In(*tasks_).TellDates(leaf.task, key);
}

void PlanShift::AdjustSummaries() const {
    std::unordered_set<std::int64_t> adjusted;
    for (const Leaf& leaf : leaves_) {
        const Long parent = leaf.task->ParentID();
        if (parent != 0 && adjusted.insert(parent).second) tasks_->AdjustSummary(KeyText(parent).text());
    }
    ModuleState& module = Module();
    module.g_MinDate = module.g_MaxDate = Date();
    tasks_->GetMinDate();
    In(*tasks_).GetMaxDate();
}

}  // namespace mrlxmlclass
