#include "tests/reference/ReferenceWalks.h"
#include "tests/support/DayByDay.h"

namespace mrlxmlclass::reference {

namespace day_by_day = testing::day_by_day;

Integer ReferenceWalks::CalcLeadTime(const String& key) {
    return kTasksColTail.Run<Integer>("CalcLeadTime", [&](Integer& result) {
        if (!Module().BVersion) return;
        const Ref<TasksCls> task = Task(key);
        if (!task) return;
        std::vector<Date> ends;
        for (const String& predecessor : Predecessors(task)) {
            ends.push_back(Task(predecessor)->TaskEDate());
            const day_by_day::Leads leads = day_by_day::MeasureLeads(task->TaskBDate(), ends);
            if (leads.gaps.empty()) return;
            const Integer gap = leads.gaps.back();
            result = leads.largest;
            col_.AddLeadTime(KeyOf(task), predecessor, gap);
        }
    });
}

Integer ReferenceWalks::GetLeadTimeNoLink(Date start, Date end) {
    return kTasksColTail.Run<Integer>("GetLeadTimeNoLink",
                                      [&](Integer& result) { result = day_by_day::GapBetween(start, end); });
}

Integer ReferenceWalks::CalcLeadTimeNoLink(const String& key, Date end) {
    const Ref<TasksCls> task = Task(key);
    return task && task->TaskBDate().set() ? GetLeadTimeNoLink(task->TaskBDate(), end) : Integer(0);
}

Boolean ReferenceWalks::AdjustDateNoLink(const String& key, const String& previous_key, Integer lead) {
    return kTasksColTail.Run<Boolean>("AdjustDateNoLink", [&](Boolean& result) {
        const Ref<TasksCls> task = Task(key);
        if (task->TaskBDate().set()) {
            const Date end = Task(previous_key)->TaskEDate();
            if (end.set()) {
                task->TaskBDate(end + static_cast<double>(lead.value()));
            } else {
                task->TaskBDate(Date());
                task->TaskEDate(Date());
                task->TaskDuration(0);
            }
        }
        result = True;
    });
}

void ReferenceWalks::AdjustDateForSummary(Date& start, Date preview, Date old_preview, Integer& p_diff) {
    kTasksColTail.Run("AdjustDateForSummary", [&] {
        const Date came_in = start;
        const Integer wanted = GetLeadTimeNoLink(start, old_preview);
        start = wanted == 0 ? preview : preview + static_cast<double>(wanted.value());
        int days = 0;
        while (GetLeadTimeNoLink(start, preview) != wanted) {
            if (++days > kMostDaysSought) Raise(failure::kEndlessWalk);
            start += wanted < 0 ? -1 : 1;
        }
        const long idle = day_by_day::NumberOfNonWorking(came_in, start);
        p_diff = p_diff < 0 ? p_diff + idle : p_diff - idle;
    });
}

}  // namespace mrlxmlclass::reference
