#pragma once

#include "mrlxmlclass/runtime/OrderedStore.h"
#include "mrlxmlclass/tasks/TasksCls.h"
#include "mrlxmlclass/tasks/TasksColEvents.h"

namespace mrlxmlclass {

class peopleCls;

/// All tasks of a project: those of the outline, and the candidates that were taken out of it but are still tied to a
/// person, goal or obstacle. Every change to the structure of a plan goes through this one object.
///
/// A task's key may be given as a number or as its decimal text. To `Item`, `isParent`, `Summary`, `GetTasksAsKeys` and
/// to what removes or files a single task an unknown key is an ordinary answer: nothing or False, without any report.
/// The others need the task: its absence is recorded (91) and gives the empty result. Refusals are a False result and
/// nothing else.
///
/// Contents (each group in the file that is named)
///   Storage                  tasks/TasksCol.cpp
///   Removing                 tasks/TasksCol_remove.cpp
///   Outline: questions       tasks/TasksCol_outline.cpp
///   Outline: positions       tasks/TasksCol_positions.cpp
///   Phases and names         tasks/TasksCol_phases.cpp
///   Sorting                  tasks/TasksCol_sorting.cpp
///   Lead times               scheduling/TasksCol_links.cpp
///   Dates along links        scheduling/TasksCol_dates.cpp
///   Summary dates            scheduling/TasksCol_summary.cpp
///   Cost                     scheduling/TasksCol_cost.cpp
///   Relations                items/TasksCol_relations.cpp
///   Reading and writing      xml/TasksCol_xml.cpp
class TasksCol : public Counted {
public:
    using Store = OrderedStore<KeyText, Ref<TasksCls>>;

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
    /// collections and item lists that are given; a candidate keeps all that ties it. `p_arrange` closes the gap in the
    /// outline, `p_sort` sorts by position. Raises `TaskDeleted`; with `p_arrange` a second one, raised earlier,
    /// carries the real parent and position.
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
    /// Closes the outline around a task that leaves it; the task keeps its row and loses its parent. Raises
    /// for the parent what AdjustSummary and AdjustCost raise while it has other children, else `RoolUpCostChange` with
    /// 0; then `IamASummary` for it, then `TaskDeleted`.
    Boolean ArrangePositionAfterDelete(const String& TaskId);
    /// Makes way for a task that already carries its new row. Raises `TaskInserted` if the task has a name.
    Boolean ArrangePositionAfterInsert(const String& TaskId, ByRef<Integer> oldPos = {}, Integer Descending = 0,
                                       Integer Assending = 0, Boolean p_undo = False);

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

    // --- Lead times, dates along links ------------------------------------------------------------------------------

    Boolean AddLeadTime(const String& TaskKey, const String& PredecessorKey, Integer LeadTime);
    /// Days towards that predecessor; 0 where there is no entry.
    Integer GetLeadTime(const String& thePredecessor, const Ref<Collection>& LeadCol);
    /// Measures the gap in working days to each predecessor and stores it. Gives the largest, at least 0.
    /// Without live links, or without a start, it gives 0 and stores nothing.
    Integer CalcLeadTime(ByRef<String> TaskKey);

    // --- Summary dates, cost ----------------------------------------------------------------------------------------

    /// Rebuilds a summary's span from its children, then that of each parent up to the top. Raises for each
    /// `DurationChange`, `TaskDurationChange`, `DateEndChange`, `DateStartChange`. A copy of the collection can be kept
    /// in step.
    Variant AdjustSummary(ByRef<String> TaskKey, ByRef<Boolean> InitDate = True, ByRef<Ref<TasksCol>> oTaskCol = {});
    /// The earliest start of the outline, cached unless `p_force`; today when there is none.
    Date GetMinDate(ByRef<Boolean> p_force = False);
    /// Rebuilds a summary's cost from its children, then that of each parent up to the top. Raises `RoolUpCostChange`
    /// for each. Without `Initcost` the children's costs are added to what the task has.
    Variant AdjustCost(ByRef<String> TaskKey, ByRef<Boolean> Initcost = True);

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
};

}  // namespace mrlxmlclass
