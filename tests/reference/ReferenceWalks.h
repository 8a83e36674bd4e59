#pragma once

#include "mrlxmlclass/tasks/TasksCol_internal.h"

namespace mrlxmlclass::reference {

/// The walks of a task collection, plainly: functions that call themselves, look each task up again at each step, and
/// ask day by day whether it is worked. They are slow, deep, and stop at nothing that only damage or a host in the
/// middle of a walk brings; the collection's own are held against them.
///
/// Members have the names, the arguments and the failures of those of `TasksCol`. Of the collection they use the
/// records with their setters, the child lists, the rows, the entries of lead times, and the events.
class ReferenceWalks {
public:
    explicit ReferenceWalks(TasksCol& col) : col_(col) {}

    // --- Links: ReferenceWalks_links.cpp ----------------------------------------------------------------------------

    Boolean AddTaskPredecessor(const String& key, const String& predecessor_key, Boolean FirstTime = False,
                               Boolean setforNonDepend = False, Boolean p_force_linking = False);
    Boolean RemoveTaskPredecessor(const String& key, const String& predecessor_key);
    Boolean RemoveAllTaskPredecessor(const String& key);
    Boolean ReplacePredecessor(const String& old_key, const String& new_key);
    Boolean cleanPredcessor(const String& key);
    Boolean SetPredSucByPos(Integer row, String key = {}, Boolean p_first_time = False);

    // --- Links as rows: ReferenceWalks_rows.cpp ---------------------------------------------------------------------

    String PredessorAsString(const String& key, Boolean Name = False);
    String SucessorAsString(const String& key, Boolean Name = False);
    Boolean ValidPredecessor(const String& key, const String& predecessor_key);
    Boolean ValidPredecessors(const String& key, const String& rows, Boolean l_succ);
    Boolean ArrangePred(const String& rows, const String& key);
    Boolean ArrangeSuccessor(const String& rows, const String& key);

    // --- Gaps: ReferenceWalks_leads.cpp -----------------------------------------------------------------------------

    Integer CalcLeadTime(const String& key);
    Integer GetLeadTimeNoLink(Date start, Date end);
    Integer CalcLeadTimeNoLink(const String& key, Date end);
    Boolean AdjustDateNoLink(const String& key, const String& previous_key, Integer lead);
    void AdjustDateForSummary(Date& start, Date preview, Date old_preview, Integer& p_diff);

    // --- Dates along links: ReferenceWalks_dates.cpp ----------------------------------------------------------------

    Boolean DependsDateChanged(const String& key, Date& changed_date, Integer StartFinishDate, Boolean LeadTimeCalc,
                               Boolean SummaryCalc, Double p_number_to_shift, Boolean p_not_same_parent,
                               Boolean p_calc_date, Ref<Dictionary>& p_changeds, Integer& p_diff);
    Boolean AdjustDate(const String& key, Ref<TasksCls> changed, Integer theLeadTime, Boolean LeadTimeCalc,
                       Boolean AdjustOtherDate, Boolean adjustParent, Ref<Dictionary>& p_changeds,
                       Boolean p_do_same_parent, Integer& p_diff, Date& p_preview_date);
    Boolean DurationChanged(const String& key, Double& duration, const String& unit);

    // --- Summaries: ReferenceWalks_summary.cpp ----------------------------------------------------------------------

    void AdjustSummary(const String& key, Boolean InitDate = True);
    Boolean SummaryTaskDateChanged2(const String& key, Date& stDate, Date& UsethisDate, Boolean CalcLead,
                                    Date p_preview_date, Ref<Dictionary>& p_changeds, Boolean p_form_scheduler,
                                    Integer p_diff);
    Boolean RollUpDateChanged(const String& key, Double& diff);
    Boolean RolUpOneDate(const String& key, const String& parent_key, Boolean Minus);

    // --- Costs: ReferenceWalks_cost.cpp -----------------------------------------------------------------------------

    void AdjustCost(const String& key, Boolean Initcost = True);
    Boolean RollUpCostChanged(const String& key, Currency difference, Boolean ChangeCost, Boolean AddValue);
    Boolean RolUpOneTask(const String& key, Currency difference, Boolean Minus);
    Boolean RollUpCostChangedImdParent(const String& key, Currency difference, Boolean Change);

    // --- The whole plan: ReferenceWalks_shift.cpp -------------------------------------------------------------------

    Boolean ResetStartDate(Double shift);
    Boolean ResetStartDatefordependency(Double shift);
    Boolean ResetStartDatefordependency2(Double shift);

    // --- Moving: ReferenceWalks_moving.cpp --------------------------------------------------------------------------

    Boolean ChangeParent(const String& old_parent, const String& new_parent);
    Integer ChangeTaskParent(const String& key, String& new_parent, String old_parent, const String& SuccessorKey,
                             const String& PredecessorKey, Boolean Indent, const String& Action, const String& source,
                             Boolean p_first_time);
    Integer ChangeRemoveTaskParent(const String& key, const String& new_parent, const String& old_parent,
                                   const String& SuccessorKey, const String& PredecessorKey, const String& source,
                                   Boolean p_first_time);
    Boolean SeTAsMilstones(const Ref<TasksCol>& tasks, const String& key);

private:
    Ref<TasksCls> Task(const String& key) const { return col_.Item(key); }
    bool IsParent(const String& key) const { return bool(col_.isParent(key)); }
    static String KeyOf(const Ref<TasksCls>& task) { return KeyText(task->TaskKey()).text(); }
    static String ParentOf(const Ref<TasksCls>& task) { return KeyText(task->ParentID()).text(); }
    /// The keys of the children in ascending position.
    std::vector<String> Children(const String& key) const;
    std::vector<String> AllTasks() const;
    static std::vector<String> Predecessors(const Ref<TasksCls>& task) { return In(task).PredecessorKeys(); }
    static std::vector<String> Successors(const Ref<TasksCls>& task) { return In(task).SuccessorKeys(); }
    static bool WaitsFor(const Ref<TasksCls>& task, const String& predecessor);
    static bool IsFollowedBy(const Ref<TasksCls>& task, const String& successor);
    /// What is stored towards a predecessor; 0 where nothing is.
    static Integer StoredLead(const String& predecessor, const Ref<TasksCls>& task);
    static bool HasPlainUnit(const Ref<TasksCls>& task);

    /// The task's values of this moment, to a host that is not silenced.
    void TellStart(const String& key, Boolean parent);
    void TellEnd(const String& key, Boolean parent);
    void TellEnd(const String& key, Boolean parent, const String& unit);
    void TellDuration(const String& key, Boolean parent);
    /// The same to a silenced host too.
    void TellTaskDuration(const String& key, Boolean parent);
    void TellSummary(const String& key, Boolean summary);
    void TellCost(const String& key, Currency cost);
    void TellLinks(const String& key);
    void TellFollowers(const String& key);

    void LinkAnew(const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor, Boolean FirstTime);
    Boolean LinkOneMore(const Ref<TasksCls>& task, const Ref<TasksCls>& predecessor, Boolean FirstTime);
    void MoveBehindNearest(const Ref<TasksCls>& task);
    void MoveFirst(const Ref<TasksCls>& task, Long shift);
    void StartWithParent(const String& key);
    void Arrange(const String& rows, const String& key, bool successors);

    Date SetChangedDate(const String& key, Date& changed_date, Integer kind, Boolean LeadTimeCalc, Boolean p_calc_date,
                        Integer& p_diff);
    void SetStartFreely(const String& key, Date date, Integer direction, Integer& p_diff);
    void MoveFirstSuccessor(const String& key, const Ref<TasksCls>& changed, Date remembered, Boolean LeadTimeCalc,
                            Boolean SummaryCalc, Boolean p_not_same_parent, Ref<Dictionary>& p_changeds,
                            Integer& p_diff);
    void MoveLaterSuccessor(const String& key, const Ref<TasksCls>& changed, Boolean LeadTimeCalc, Boolean SummaryCalc,
                            Boolean p_not_same_parent, Ref<Dictionary>& p_changeds, Integer& p_diff);
    /// A walk of its own from a task that starts on that day.
    void WalkFrom(const String& key, Date start, Boolean LeadTimeCalc);
    /// A walk of its own from a summary.
    void MoveSummary(const String& key, Date start, Integer p_diff = 0);
    /// The same within a walk.
    void MoveSummary(const String& key, Date start, Date exact, Ref<Dictionary>& p_changeds, Integer p_diff);
    void AdjustParentOf(const Ref<TasksCls>& task);

    void SeekGap(const String& key, Date previous_end, Integer gap);
    static std::int64_t ShiftFrom(Date old_end, Date start);

    void MoveAnchors(Double shift, Boolean only_first);
    void TellInDays(const String& key);

    struct Reparenting;
    void TakeUnder(Reparenting& move);
    void MoveDates(const Reparenting& move);
    void DropCost(const String& key);
    void MendAroundOldPlace(const String& key, const String& old_parent);
    void TieBehind(const String& key, const String& new_parent, const String& old_parent, const String& PredecessorKey);

    TasksCol& col_;
};

/// Dictionaries of tasks reached: texts, each once.
inline bool Reached(const Ref<Dictionary>& reached, const String& key) {
    return bool(reached->Exists(key));
}
inline void Reach(const Ref<Dictionary>& reached, const String& key) {
    if (!Reached(reached, key)) reached->Add(key, key);
}

/// How far a search goes before no day can end it.
inline constexpr int kMostDaysSought = 366'000;

}  // namespace mrlxmlclass::reference
