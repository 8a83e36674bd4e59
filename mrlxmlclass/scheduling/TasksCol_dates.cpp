#include "mrlxmlclass/scheduling/DateWalk_internal.h"
#include "mrlxmlclass/scheduling/Units.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = kTasksColTail;

}  // namespace

Boolean TasksCol::DependsDateChanged(const Variant& TaskKey, ByRef<Date> aDateChanged, Integer StartFinishDate,
                                     Boolean LeadTimeCalc, Boolean SummaryCalc, Double /*p_number_to_shift*/,
                                     Boolean p_not_same_parent, Boolean p_calc_date, ByRef<Ref<Dictionary>> p_changeds,
                                     ByRef<Integer> p_diff, const String& /*p_task_pr*/, Date /*p_preview_date*/) {
    return kTail.Run<Boolean>("DependsDateChanged", [&](Boolean& result) {
        DateWalk walk(*this, p_changeds);
        const DateWalk::Change change{StartFinishDate, LeadTimeCalc, SummaryCalc, p_not_same_parent, p_calc_date};
        result = walk.DependsDateChanged(TaskKey.Key(), *aDateChanged, change, *p_diff).Run();
    });
}

Boolean TasksCol::AdjustDate(const String& Key, const Ref<TasksCls>& oChangedTask, Integer theLeadTime,
                             Boolean LeadTimeCalc, Boolean AdjustOtherDate, Boolean adjustParent,
                             ByRef<Ref<Dictionary>> p_changeds, Boolean p_do_same_parent, ByRef<Integer> p_diff,
                             ByRef<Date> p_preview_date) {
    return kTail.Run<Boolean>("AdjustDate", [&, oChangedTask](Boolean& result) {
        DateWalk walk(*this, p_changeds);
        const DateWalk::Follow follow{theLeadTime, LeadTimeCalc, AdjustOtherDate, adjustParent, p_do_same_parent};
        result = walk.AdjustDate(Key, oChangedTask, follow, *p_diff, *p_preview_date);
    });
}

Boolean TasksCol::DurationChanged(const Variant& TaskKey, ByRef<Double> duration, const String& Unit) {
    return kTail.Run<Boolean>("DurationChanged", [&, TaskKey](Boolean& result) {
        const Ref<TasksCol> held(this);  // a listener may let go of the collection
        const KeyText key = TaskKey.Key();
        if (!In(*this).isParent(key) && *duration > kMostUnits) *duration = kMostUnits;
        const Ref<TasksCls> task = In(*this).Item(key);
        Integer shift;
        if (*duration == 0) {
            task->TaskMilstones(True);
        } else {
            if (!Unit.empty()) task->TaskDurationUnit(Gloabal::unitvalid(Unit));
            const Date old_end = task->TaskEDate();
            task->TaskDuration(*duration);  // Kept: while it is a milestone still, which lasts a day then
            shift = DaysBetween(old_end, task->TaskEDate());
            task->TaskMilstones(False);
        }
        const bool milestone = *duration == 0;
        result = DependsDateChanged(TaskKey, milestone ? task->TaskBDate() : task->TaskEDate(), milestone ? 1 : 2,
                                    /*LeadTimeCalc=*/True, /*SummaryCalc=*/True, {}, /*p_not_same_parent=*/False,
                                    /*p_calc_date=*/True, {}, shift);
        RollUpDateChanged(TaskKey, Double(task->TaskDuration()));
    });
}

Boolean TasksCol::SummaryTaskDateChanged(const String& TaskKey, ByRef<Date> stDate, ByRef<Date> UsethisDate,
                                         Boolean CalcLead, Date p_preview_date, ByRef<Ref<Dictionary>> p_changeds,
                                         Boolean p_form_scheduler) {
    return kTail.Run<Boolean>("SummaryTaskDateChanged", [&](Boolean& result) {
        result = SummaryTaskDateChanged2(TaskKey, stDate, UsethisDate, CalcLead, p_preview_date, p_changeds,
                                         p_form_scheduler);
    });
}

Boolean TasksCol::SummaryTaskDateChanged2(const String& TaskKey, ByRef<Date> stDate, ByRef<Date> UsethisDate,
                                          Boolean /*CalcLead*/, Date /*p_preview_date*/,
                                          ByRef<Ref<Dictionary>> p_changeds, Boolean /*p_form_scheduler*/,
                                          Integer p_diff, const String& /*p_task_pr*/) {
    return kTail.Run<Boolean>("SummaryTaskDateChanged2", [&](Boolean& result) {
        DateWalk walk(*this, p_changeds);
        OutlineWalk below(*this);
        result = walk.SummaryTaskDateChanged2(TaskKey, *stDate, *UsethisDate, p_diff, below).Run();
    });
}

}  // namespace mrlxmlclass
