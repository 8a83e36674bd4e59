#pragma once

#include "mrlxmlclass/runtime/FrameStack.h"
#include "mrlxmlclass/runtime/NumberedPlaces.h"
#include "mrlxmlclass/tasks/TasksCls.h"
#include "mrlxmlclass/tasks/TasksColEvents.h"

namespace mrlxmlclass {

class peopleCls;

/// All tasks of a project: those of the outline, and the candidates that were taken out of it but are still tied to a
/// person, goal or obstacle. Every change to the structure of a plan goes through this one object.
///
/// A task's key may be given as a number or as its decimal text. To `Item`, `isParent`, `Summary`, `GetTasksAsKeys`,
/// `GetTasks`, `GetTaskKeyByPosition`, `ArrangePositionAfterDelete`, `RemovePhase`, `RemoveAssigendObstacles`,
/// `CalcLeadTime`, `CalcLeadTimeNoLink`, `GetLinkedTask`, to the second argument of `CanbeLeveled`, and to what removes
/// or files a single task an unknown key is an ordinary answer: nothing, 0, empty or False, without any report.
/// `ValidPredecessor` finds nothing against it, nor, where a link would be stored, `AddTaskPredecessor` against an
/// unknown predecessor (True, no link).
/// The others need the task: its absence is recorded (91) and gives the empty result. A refusal is a plain False.
///
/// Contents (each group in the file that is named)
///   Storage                  tasks/TasksCol.cpp
///   Removing                 tasks/TasksCol_remove.cpp
///   Outline: questions       tasks/TasksCol_outline.cpp
///   Outline: positions       tasks/TasksCol_positions.cpp
///   Moving                   tasks/TasksCol_moving.cpp, tasks/TasksCol_outdent.cpp, tasks/TasksCol_updown.cpp
///   Phases and names         tasks/TasksCol_phases.cpp
///   Sorting                  tasks/TasksCol_sorting.cpp
///   Links                    scheduling/TasksCol_links.cpp, scheduling/TasksCol_linked.cpp
///   Links as rows            scheduling/TasksCol_rows.cpp
///   Lead times               scheduling/TasksCol_leads.cpp
///   Gaps without a link      scheduling/TasksCol_gaps.cpp
///   Dates along links        scheduling/TasksCol_dates.cpp
///   Summary dates            scheduling/TasksCol_summary.cpp, scheduling/TasksCol_rollup.cpp
///   Cost and progress        scheduling/TasksCol_cost.cpp
///   Shifting the project     scheduling/TasksCol_shift.cpp
///   Relations                items/TasksCol_relations.cpp
///   Reading and writing      xml/TasksCol_xml.cpp
class TasksCol : public Counted {
public:
    using Store = OrderedStore<KeyText, Ref<TasksCls>, NumberedPlaces>;

    TasksCol();

    /// Key counters and freed keys of the session; nothing on a copy.
    Ref<StaticCls> oPublicStaticCls;
    /// Carried for the host; stands in the file as the attribute `scheduler`.
    Boolean GanttVisted;
    /// Whether linking a task stores the link.
    Boolean AutoLink() const { return auto_link_; }
    void AutoLink(Boolean value) { auto_link_ = value; }

    // --- Storage ----------------------------------------------------------------------------------------------------

    /// A new task. Left out, the ID is issued and the task gets the row behind the last and ends on the next working
    /// day; "" issues the key only; any other ID files the task under it, its `TaskKey` staying 0.
    Ref<TasksCls> Add(const Variant& ID = Variant::Missing{});
    /// Stores and gives a clone; a task without a key gets one. A key that is taken is recorded and gives nothing.
    Ref<TasksCls> AddItem(const Ref<TasksCls>& newProperty);
    /// The task under that key; nothing for "", 0, "0" and an unknown key.
    Ref<TasksCls> Item(const Variant& Index) const;
    /// The tasks of the outline, or all of them.
    Long Count(Boolean p_all = False) const;
    Integer GetCount();
    Integer GetValidTaskNumber();
    /// Gives nothing, and records a failure (91) when the outline has a task; see GetValidTaskNumber.
    Ref<TasksCol> GetValidTasks();
    /// Clones of the tasks whose parent that is, candidates among them; never nothing.
    Ref<TasksCol> GetTasks(const Variant& TaskId);
    /// Keys of the children, as numbers, in ascending position; nothing for an unknown task.
    Ref<Dictionary> GetTasksAsKeys(const Variant& TaskId);
    /// The tasks as they stand now, in the order that SortMe sets.
    Store NewEnum() const { return tasks_; }
    /// A snapshot with clones of all tasks.
    Ref<TasksCol> Clone();
    /// True from 999 tasks in the outline on. Nothing enforces it: it is for the host to ask before Add.
    Boolean TaskCanNotBeAdd();
    /// Takes a key out of the freed ones; False when it is not among them.
    Boolean IamNotAvailable(const String& p_key);
    /// Counts candidates when the host flips `TaskCondidat` itself: False one more, True one less.
    Variant SetNumberOFCondidat(Boolean p_Condidat);

    // --- Removing ---------------------------------------------------------------------------------------------------

    /// Deletes a task for good (`ForceDelete`) or makes it a candidate. Deleting takes it out of the relation
    /// collections and item lists that are given, and live links off it; a candidate keeps all that ties it.
    /// `p_arrange` closes the outline first, as ArrangePositionAfterDelete does; without it deleting with live links
    /// lets the last successor wait for a parent that is left childless, told by `IamASummary`, and adjusts any other.
    /// `p_sort` sorts by position. Raises `TaskDeleted`; with `p_arrange` a second one, raised earlier, carries the
    /// real parent and position.
    void Remove(const Variant& Index, ByRef<Ref<TaskAssigmentRelationCol>> oTaskPeopleRelation,
                const Ref<PeopleCol>& oPeopleCol, ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation,
                const Ref<GoalsCol>& oGoalGoal, ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation,
                const Ref<obstaclesCol>& oObstacleCol, Boolean ForceDelete = False, Boolean p_sort = False,
                Boolean p_arrange = False);
    /// Only unties the relations, as Remove does, and nothing without `ForceDelete`; the task stays.
    void RemoveRelation(const Variant& Index, ByRef<Ref<TaskAssigmentRelationCol>> oTaskPeopleRelation,
                        const Ref<PeopleCol>& oPeopleCol, ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation,
                        const Ref<GoalsCol>& oGoalGoal, ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation,
                        const Ref<obstaclesCol>& oObstacleCol, Boolean ForceDelete = False);
    /// Takes the task out and touches nothing else.
    void RemoveForLib(const Variant& Index);
    /// Removes a task with all below it, bottom up; what a relation still holds becomes a candidate, whatever
    /// `ForceDelete` says. Gives the keys of the direct children.
    Ref<Collection> DeleteAllSubTasks(const Variant& aTaskKey, const Ref<TaskAssigmentRelationCol>& oTaskAssigRelation,
                                      const Ref<PeopleCol>& oPeopleCol,
                                      const Ref<TaskGoalRelationCol>& oTaskGoalRelation, const Ref<GoalsCol>& oGoalsCol,
                                      const Ref<TaskObstaclesRelationCol>& oTaskObstacleRelation,
                                      const Ref<obstaclesCol>& oobstaclesCol, Boolean ForceDelete, Boolean p_arrange);

    // --- Outline: questions -----------------------------------------------------------------------------------------

    /// True for a task that has children, a candidate with children left among them.
    Boolean isParent(const String& TaskId);
    /// True for a task of the outline that has children and is no plain row.
    Boolean Summary(const String& TaskId);
    /// Direct children only.
    Integer GetTaskNumber(Integer TaskId);
    /// 0 at the top.
    Integer GetLevel(const String& TaskId);
    /// The child that stands right behind its parent; "" when there is none.
    String GetFirstChildKey(const String& TaskId);
    Boolean FirstChildInParent(const String& TaskKey);
    /// The key of the first task at that row; "" when there is none. Row 0 finds a candidate.
    String GetTaskKeyByPosition(Integer p_pos);
    /// Key or position of the top-level ancestor, or of the task itself.
    String GetFirstLevelParentPosKey(const String& TaskKey, Boolean keys = False);
    /// Key or position of the ancestor on the level below `SharedParent`.
    String GetLastParentPosKey(const String& TaskKey, const String& SharedParent, Boolean keys = False);
    /// The highest position in a subtree, `oldPos` at least; with `keys` the key of its last leaf.
    Integer GetTaskAndSubNumber(const String& TaskId, Boolean keys = False, ByRef<Integer> oldPos = {});
    /// True while the task with its first children's line, put under `p_task_level_to`, stays below level 10.
    Boolean CanbeLeveled(const String& p_task_id, const String& p_task_level_to);

    // --- Outline: positions -----------------------------------------------------------------------------------------

    /// Files a child in its parent's list. True if the parent exists and its key is not 0; `ParentID` stays.
    Boolean AddParentTask(const Variant& p_parent_id, const Variant& p_task_id);
    /// Takes it out; with `p_raise` raises `IamASummary`, even while the host is silenced.
    Boolean RemoveParentTask(const Variant& p_parent_id, const Variant& p_task_id, Boolean p_raise = False);
    /// Finds a child that was just put under a parent its row behind the parent's subtree. Gives False.
    Boolean ArrangePosition(Integer ParentID, Integer TaskId, Integer oldPos = 0, Boolean InsertInPhase = False);
    /// Closes the outline around a task that leaves it; the task keeps its row and loses its parent. Raises for the
    /// parent what AdjustSummary and AdjustCost raise while it has other children, else `RoolUpCostChange` with 0; then
    /// `IamASummary` for it. Live links of the task then come off, and AddTaskPredecessor with `FirstTime` bridges the
    /// last pair, each with its events. `TaskDeleted` comes last.
    Boolean ArrangePositionAfterDelete(const String& TaskId);
    /// Makes way for a task that already carries its new row. Raises `TaskInserted` if the task has a name.
    Boolean ArrangePositionAfterInsert(const String& TaskId, ByRef<Integer> oldPos = {}, Integer Descending = 0,
                                       Integer Assending = 0, Boolean p_undo = False);

    // --- Moving -----------------------------------------------------------------------------------------------------
    // The host decides the target and numbers the rows; these keep parents, dates, costs and links in step with it.
    // `NewParentID` "0" is the top level. `p_first_time`: one of a batch, links and dates are left to the caller.

    /// Hands the children that stand behind `NewParentID` over to it. Gives False.
    Boolean ChangeParent(const String& oldParentID, const String& NewParentID);
    /// Puts a task under another parent, by default out of its present one. A `PredecessorKey` beside the task under
    /// the same parent becomes the parent instead, with `Indent` and live links: `NewParentID` is replaced and 1 is
    /// given. Raises `IamASummary` for the parent, what links, dates and costs raise, and for the `Action` "indent"
    /// last `Indented`.
    Integer ChangeTaskParent(const String& TaskId, ByRef<String> NewParentID, const String& oldParentID = {},
                             const String& SuccessorKey = {}, const String& PredecessorKey = {}, Boolean Indent = {},
                             const String& Action = {}, const String& source = {}, Boolean p_first_time = {});
    /// The outdent: as ChangeTaskParent, then the chain around the old place is mended. Raises `IamASummary` for the
    /// old parent and `Outented`. Gives 0.
    Integer ChangeRemoveTaskParent(const String& TaskId, const String& NewParentID, const String& oldParentID = {},
                                   const String& SuccessorKey = {}, const String& PredecessorKey = {},
                                   const String& source = {}, Boolean p_first_time = {});
    /// Moves a task one row up (`UpDown` True) or down. With live links it is MoveTaskUpOrDowndepend.
    Variant MoveTaskUpOrDown(const String& TaskId, Boolean UpDown, const String& ParentID = {},
                             const String& oldParentID = {}, Boolean ChangingParent = {}, const String& source = {},
                             Boolean p_first_time = {});
    /// The same with the links left as they are: the host is told of each one whose rows show differently. Raises
    /// `UpDown` last, but for one of a batch.
    Variant MoveTaskUpOrDowndepend(const String& TaskId, Boolean UpDown, const String& ParentID = {},
                                   const String& oldParentID = {}, Boolean ChangingParent = {},
                                   const String& source = {}, Boolean p_first_time = {});

    // --- Phases and names -------------------------------------------------------------------------------------------

    /// Files a key in the phase list; the argument becomes its text. Gives False.
    Boolean AddPhase(ByRef<Variant> p_phase_id);
    Boolean RemovePhase(ByRef<Variant> p_phases_id);
    /// The phases' keys in ascending `TaskSubPosition`.
    Ref<Collection> Phases();
    /// Makes the phase list anew from the tasks.
    Variant SetPhases();
    /// Raises, for a new task of the outline first of all `TaskInserted`, then `TaskNameChanged`, `DateStartChange`,
    /// `DateEndChange`, `DurationChange` and `TaskDurationChange`. Gives False.
    Boolean ChangeName(const String& TaskKey, const String& NewName, Boolean NewTask = False);
    /// Gives the task that has just come to a row its start: its parent's, else today. Raises the four events of
    /// ChangeName's dates; for a first row also `IamASummary` of the parent, whose successors are freed.
    Boolean SetNewCondidat(Integer p_pos, const String& p_task_key = {});
    /// Turns a task without children, looked up in `oTaskCol`, into a milestone. Raises `DateStartChange`,
    /// `DateEndChange`, `DurationChange`, `TaskDurationChange`; then its successors and parents follow. False for a
    /// task with children.
    Boolean SeTAsMilstones(const Ref<TasksCol>& oTaskCol, const Variant& oTaskKey);

    // --- Sorting ----------------------------------------------------------------------------------------------------

    /// Puts the tasks in the order of their position (True) or of `TaskPositionInitem`; candidates, at row 0, first.
    /// Gives the tasks of the outline in that order.
    Ref<Collection> SortMe(const Variant& byPos = Variant::Missing{});
    /// All tasks sorted; this collection keeps its order.
    Ref<Collection> Sort(const Variant& byPos = Variant::Missing{});
    /// The keys of a dictionary as an array from 0.
    void BuildArray(const Variant& objDict, ByRef<Variant> aTempArray);
    /// Sorts texts ascending, unit by unit, in place.
    void SortArray(ByRef<Variant> aTempArray);

    // --- Links ------------------------------------------------------------------------------------------------------

    /// Makes a task wait for another. Refused (False, nothing changes) without a key, for the key "0", in a loop of
    /// two, for a predecessor with children, for one whose parent the task is, and for the task itself; longer loops
    /// are not found. Also False when an existing predecessor, or one that the new one waits for, makes the link
    /// redundant; `FirstTime` moves the task all the same. Without live links none is stored; with `setforNonDepend`
    /// the start then goes one day behind the predecessor's start. Without `AutoLink` only `p_force_linking` stores a
    /// link; the start alone goes behind the predecessor's end, that of its child to its start. `FirstTime` moves the
    /// task behind its predecessor. Raises, after what the dates raise, `PredecessorChange`, `PredecessorKeyChange`
    /// ("add") and `SucessorChange`.
    Boolean AddTaskPredecessor(const String& TaskKey, const String& PredecssorKey, Boolean FirstTime = False,
                               Boolean setforNonDepend = False, Boolean p_force_linking = False);
    /// Takes a link off either side, wherever it stands, with its lead time, and sets the lag to 0. The host may come
    /// back in before `SucessorChange`, `PredecessorChange` and `PredecessorKeyChange` ("remove") are raised.
    Boolean RemoveTaskPredecessor(const String& TaskKey, const String& PredecssorKey);
    /// In spite of its name frees the task's successors. Gives False.
    Boolean RemoveAllTaskPredecessor(const String& TaskKey);
    /// Lets the successors of one task wait for another as well; the old links stay. Gives False.
    Boolean ReplacePredecessor(const String& ToReplaceTaskKey, const String& NewTaskKey);
    /// Whether AddTaskPredecessor would not refuse the pair.
    Boolean ValidPredecessor(const String& p_task, const String& p_pred);
    /// Drops the links of a subtree that point backward in the outline. Gives False.
    Boolean cleanPredcessor(const String& TaskId);
    /// Splices the task at a row into the chain of its neighbours: behind the row above unless that is its parent.
    /// The first under its parent starts with it, a first of all today; raises `DateStartChange` and `DateEndChange`
    /// then.
    Boolean SetPredSucByPos(Integer p_pos, const String& p_task_key = {}, Boolean p_first_time = {});
    /// Adds the keys of all tasks below one, in outline order; makes the collection where there is none.
    Boolean GetALLRelatedTask(const String& p_task, ByRef<Ref<Collection>> p_Result);
    /// Clones of the tasks whose `TaskLink` names a task, of those below `ParentID` only if given; with `ForSimilair`
    /// True it must name "fs", the task and `SupKey` instead.
    Ref<TasksCol> GetLinkedTask(const String& TaskId, const String& ParentID = {}, const Variant& ForSimilair = False,
                                const String& SupKey = {});

    // --- Links as rows ----------------------------------------------------------------------------------------------

    /// Rows, or names, of the tasks that a task waits for, joined by ", ". Reading it takes off links to tasks that are
    /// gone or candidates, with the events of RemoveTaskPredecessor.
    String PredessorAsString(const String& TaskId, Boolean Name = False);
    /// The same of the tasks that wait for it; those that are gone are dropped silently, candidates show.
    String SucessorAsString(const String& TaskId, Boolean Name = False);
    /// Whether a list of rows ("3,7") names valid predecessors, or with `l_succ` successors, throughout.
    Boolean ValidPredecessors(const String& p_task, const String& p_preds, Boolean l_succ = False);
    /// Make a task's predecessors, or successors, those of a list of rows; what is no row is passed by, and a list
    /// without any number removes nothing. Give False.
    Boolean ArrangePred(const String& newvalue, const String& TaskKey);
    Boolean ArrangeSuccessor(const String& newvalue, const String& TaskKey);

    // --- Lead times -------------------------------------------------------------------------------------------------

    /// The key in a lead entry, which is the predecessor's key, "|" and days.
    String GetPredecessor(const String& thePredecessor);
    /// Replaces the entry towards a predecessor; it comes last then.
    Boolean AddLeadTime(const String& TaskKey, const String& PredecessorKey, Integer LeadTime);
    Boolean RemoveLeadTime(const String& TaskKey, const String& PredecessorKey, Integer LeadTime);
    /// Days towards that predecessor; 0 where there is no entry.
    Integer GetLeadTime(const String& thePredecessor, const Ref<Collection>& LeadCol);
    /// Days of the task's first entry; 0 when `p_pred_lead` has a text, and for a task without predecessors with
    /// `p_do_no_pred`.
    Long GetFirstLeadTime(const String& p_task_key, const String& p_pred_lead = {}, Boolean p_do_no_pred = {},
                          Integer p_adjuster = {});
    /// Measures the gap in working days to each predecessor and stores it: 0 is the next working day, -1 its last
    /// day. Gives the largest, at least 0. Without live links, or without a start, it gives 0 and stores nothing.
    Integer CalcLeadTime(const String& TaskKey);
    /// Always True: every pair of tasks may move.
    Boolean DoWeChangeNow(const String& TaskKey, const String& PredKey);

    // --- Gaps without a link ----------------------------------------------------------------------------------------

    /// Working days from an end to a task's start, without the step of one day: the next working day is 1 less the
    /// non-working days from the end on. 0 for a task without a start.
    Integer CalcLeadTimeNoLink(const String& TaskKey, Date p_end_date);
    Integer GetLeadTimeNoLink(Date p_start_date, Date p_end_date);
    /// `p_task_date` becomes `p_preview_date` and plain days more.
    Boolean GetDateNoLink(ByRef<Date> p_task_date, Date p_preview_date, Integer p_lead_time);
    /// Puts a task that has a start plain days behind another's end; where that is not set, clears its dates.
    Boolean AdjustDateNoLink(const String& p_key, const String& p_prev_key, Integer p_lead_time);
    /// Moves `p_start_date` so that it keeps its distance in working days from a date that moved from `p_old_prev_date`
    /// to `p_preview_date`, and brings `p_diff` nearer to 0, or beyond it, by the non-working days passed. A distance
    /// that is never met fails (28); the start then stands where the search ended.
    Variant AdjustDateForSummary(ByRef<Date> p_start_date, Date p_preview_date, Date p_old_prev_date,
                                 ByRef<Variant> p_diff);

    // --- Dates along links ------------------------------------------------------------------------------------------

    /// Moves a task and with it all that waits for it. `StartFinishDate` says what the date is: 1 the new start, -1 the
    /// new start looked for backward from a non-working day, 2 the new end. Raises for each task that is reached
    /// `DateStartChange`, `DateEndChange`, `DurationChange` and `TaskDurationChange`, then moves its successors in the
    /// order of their links, each once, and adjusts their parents.
    ///
    /// `LeadTimeCalc`: the gaps to the task's predecessors are measured anew, not kept. `SummaryCalc` False: successors
    /// with children stay. `p_not_same_parent`: only successors from the first one in another parent, or at the top,
    /// on. `p_calc_date` False: nothing is set, only the events and the walk run. `p_changeds`: the tasks reached so
    /// far, keys as text; made where the caller has none. `p_diff`: the walk's shift in days. The others are carried
    /// for the host. Tasks in weeks or months take no new start.
    Boolean DependsDateChanged(const Variant& TaskKey, ByRef<Date> aDateChanged, Integer StartFinishDate,
                               Boolean LeadTimeCalc = False, Boolean SummaryCalc = True, Double p_number_to_shift = {},
                               Boolean p_not_same_parent = False, Boolean p_calc_date = True,
                               ByRef<Ref<Dictionary>> p_changeds = {}, ByRef<Integer> p_diff = {},
                               const String& p_task_pr = {}, Date p_preview_date = {});
    /// Moves one successor behind a task that changed, with the gap stored for it, and walks on from there if
    /// `AdjustOtherDate`. A successor without a start stays; a predecessor without an end clears its dates. A key that
    /// finds no task is taken off the changed task. `p_preview_date` receives the start before the move.
    Boolean AdjustDate(const String& Key, const Ref<TasksCls>& oChangedTask, Integer theLeadTime, Boolean LeadTimeCalc,
                       Boolean AdjustOtherDate = True, Boolean adjustParent = True,
                       ByRef<Ref<Dictionary>> p_changeds = {}, Boolean p_do_same_parent = False,
                       ByRef<Integer> p_diff = {}, ByRef<Date> p_preview_date = {});
    /// Gives a task a new duration, 999 at most without children, in a new unit if one is given; 0 makes a milestone of
    /// it. Walks its successors and adjusts its parents.
    Boolean DurationChanged(const Variant& TaskKey, ByRef<Double> duration, const String& Unit = {});

    // --- Summary dates ----------------------------------------------------------------------------------------------

    /// Rebuilds a summary's span from its children, then that of each parent up to the top. Raises for each
    /// `DurationChange`, `TaskDurationChange`, `DateEndChange`, `DateStartChange`. A copy of the collection can be kept
    /// in step.
    Variant AdjustSummary(const String& TaskKey, Boolean InitDate = True, const Ref<TasksCol>& oTaskCol = {});
    /// Moves a summary to a new start, or by `p_diff` days, with all below it: the gaps in working days between its
    /// children stay, and what waits for them elsewhere follows. A non-working `stDate` goes to the next working day,
    /// in the caller's variable too; `UsethisDate` is an exact date for the first child. Children in `p_changeds` are
    /// passed over. The other arguments are carried for the host.
    Boolean SummaryTaskDateChanged(const String& TaskKey, ByRef<Date> stDate, ByRef<Date> UsethisDate = {},
                                   Boolean CalcLead = True, Date p_preview_date = {},
                                   ByRef<Ref<Dictionary>> p_changeds = {}, Boolean p_form_scheduler = False);
    Boolean SummaryTaskDateChanged2(const String& TaskKey, ByRef<Date> stDate, ByRef<Date> UsethisDate = {},
                                    Boolean CalcLead = True, Date p_preview_date = {},
                                    ByRef<Ref<Dictionary>> p_changeds = {}, Boolean p_form_scheduler = False,
                                    Integer p_diff = 0, const String& p_task_pr = {});
    /// Widens the parents of a task to its dates, adjusts them, and adds up the durations on the way in `diff`. Raises
    /// `DateStartChange` and `DateEndChange` for what it widens, and from the top down `IamASummary`. Gives False.
    Boolean RollUpDateChanged(const Variant& TaskKey, ByRef<Double> diff);
    /// Gives a parent, and each one above it, the duration, end and start of a task, or takes its duration off. Raises
    /// for each `TaskDurationChange`, `DurationChange`, `DateEndChange`, `DateStartChange`. Gives False.
    Boolean RolUpOneDate(const Variant& TaskKey, const Variant& ParentKey, Boolean Minus = False);
    /// The earliest start of the outline, cached unless `p_force`; today when there is none.
    Date GetMinDate(Boolean p_force = False);

    // --- Cost and progress ------------------------------------------------------------------------------------------

    /// Rebuilds a summary's cost from its children, then that of each parent up to the top. Raises `RoolUpCostChange`
    /// for each. Without `Initcost` the children's costs are added to what the task has.
    Variant AdjustCost(const String& TaskKey, Boolean Initcost = True);
    /// Adds a difference to a task's cost and to that of each parent; raises `RoolUpCostChange` for each. With either
    /// flag False nothing changes. Gives False, as the next three do.
    Boolean RollUpCostChanged(const Variant& TaskKey, Currency CostDiff, Boolean ChangeCost = True,
                              Boolean AddValue = True);
    /// Replaces a task's cost, or with `Minus` adds to it whatever the name says; raises `RoolUpCostChange`.
    Boolean RolUpOneTask(const Variant& TaskKey, const Variant& CostDiff, Boolean Minus = False);
    /// Adds to `TaskCostUp` of that task alone and raises `RoolUpCostChange` with it.
    Boolean RollUpCostChangedImdParent(const Variant& TaskKey, Currency CostDiff, Boolean Change = True);
    /// Sets a task's progress, unchecked, and raises `CompletedChange`; parents keep theirs.
    Boolean ChangePercentDone(const String& p_task_id, Integer p_TaskPercentDone);

    // --- Shifting the project ---------------------------------------------------------------------------------------

    /// Shifts the whole plan by calendar days: the tasks at the top (with live links only those that wait for nothing)
    /// move, and take along what is below and behind them. A task next to non-working days steps over them. Sorts by
    /// position first. Raises what the moves raise, and `DateStartChange` and `DateEndChange` (unit "days") once more
    /// for each moved task without children. Gives False.
    Boolean ResetStartDate(Double p_shift_time);
    Boolean ResetStartDatefordependency(Double p_shift_time);
    /// Moves the tasks of the outline without children one by one, then adjusts the summaries. Kept: a gap that the
    /// move changed is mended where it is too short and the first step meets it; any other search leaves the range of
    /// dates, which ends all in a failure (6).
    Boolean ResetStartDatefordependency2(Double p_shift_time);

    // --- Relations --------------------------------------------------------------------------------------------------

    /// Tie a task to an item, or untie them, on the task's side; raise `AssigmentChange`, `GoalChange`,
    /// `ObstaclesChange` or `NoteChange` with the task's new text. Only AddNote gives True.
    Boolean AddAssigment(const Variant& TaskKey, const Ref<class TaskAssigmentRelationCls>& OTPR,
                         const Ref<peopleCls>& oPerson);
    Boolean AddGoals(const Variant& TaskKey, const Ref<class TaskGoalRelationCls>& OTGR,
                     const Ref<class GoalsCls>& oGoal);
    Boolean AddObstacles(const Variant& TaskKey, const Ref<class TaskObstaclesRelationCls>& OTGR,
                         const Ref<ObstaclesCls>& oObstacle);
    Boolean AddNote(const Variant& TaskKey, const Ref<class TaskNoteRelationCls>& OTNR, const Ref<NotesCls>& Note);
    Boolean RemoveAssigment(const Variant& TaskKey, const Variant& OTPRK, const Variant& oPersonkey);
    Boolean RemoveAssigendGoals(const Variant& TaskKey, const Variant& OTGRK, const Variant& oGoalkey);
    Boolean RemoveAssigendObstacles(const Variant& TaskKey, const Variant& OTGRK, const Variant& oObstacleskey);
    Boolean RemoveNote(const Variant& TaskKey, const Variant& OTNK, const Variant& NoteKey);
    /// Takes the copies of a person anew on every task that has it; raises `AssigmentChange` for each. Gives the last
    /// task's answer.
    Boolean UpdatePeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                   const Ref<PeopleCol>& oPeopleCol, const Variant& personkey);

    // --- Reading and writing ----------------------------------------------------------------------------------------

    /// The section `Tasks`. Kept: writing sorts this collection by `TaskPositionInitem` first, so equal tasks change
    /// their order at each save.
    Ref<dom::Document> ToXmlFile(const String& FileName, const Ref<dom::Document>& xmlDoc,
                                 Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False,
                                 Boolean FileExist = False, Boolean Save = False);
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    /// As ToXml, for the tasks whose keys are in `p_col`; an unknown key ends it.
    String ToXmlPart(const Ref<Collection>& p_col, Boolean includeDocHeader = True, Boolean useNamespace = False,
                     Boolean unicode = False);
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    void ToXmlIntPartial(const Ref<Collection>& p_col, const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    /// Reads the section, rebuilds the outline's lists and, unless `p_for_lib`, repairs its rows.
    Ref<dom::Document> FromXmlFile(const String& FileName, Boolean loaded = True, ByRef<Ref<dom::Document>> xmlDoc = {},
                                   Boolean p_for_lib = False, Boolean p_adjust_date = False,
                                   const String& p_cur_date_format = {}, const String& p_sys_date_format = {},
                                   const String& p_date_spe = {}, const Ref<Dictionary>& p_cur = {},
                                   const Ref<Dictionary>& p_sys = {});
    /// Reads what ToXml and ToXmlPart give; rebuilds and repairs nothing.
    Boolean FromXml(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls);
    /// Reads sibling elements from `xmlChild` on; gives the node at which it stopped.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, Boolean p_for_lib = False,
                         Boolean p_adjust_date = False, const String& p_cur_date_format = {},
                         const String& p_sys_date_format = {}, const String& p_date_spe = {},
                         const Ref<Dictionary>& p_cur = {}, const Ref<Dictionary>& p_sys = {});
    /// Rebuilds from the parents what the file does not hold: child lists, phases, the count of candidates, the date
    /// caches; finds rows that are missing or out of order. Gives True when the rows need repair.
    Boolean AddTaskParentForAll();

    EventSource<TasksColEvents> Events;

    class Internal;

private:
    Store tasks_;
    String element_name_ = "Task";
    Long candidates_;
    Ref<Collection> phases_;
    Boolean auto_link_;
    /// Number of tasks with `TaskCondidat` True, and the moment at which it was counted.
    struct CountedTasks {
        std::int64_t valid = 0;
        std::uint64_t store_stamp = 0;
        std::uint64_t candidacy_stamp = 0;
    };
    CountedTasks counted_;
    FrameStack frames_;
};

}  // namespace mrlxmlclass
