#pragma once

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Dictionary.h"
#include "mrlxmlclass/runtime/EventSource.h"
#include "mrlxmlclass/runtime/Flagged.h"
#include "mrlxmlclass/runtime/Guarded.h"

namespace mrlxmlclass {

class GoalsCol;
class NotesCol;
class ObstaclesCls;
class PeopleCol;
class StaticCls;
class TaskAssigmentRelationCol;
class TaskGoalRelationCol;
class TaskNoteRelationCol;
class TaskObstaclesRelationCol;
class NotesCls;
class obstaclesCol;

/// Declared for hosts that bind it; date changes are told by `TasksColEvents`.
class TasksClsEvents {
public:
    virtual ~TasksClsEvents() = default;
    virtual void DateChanged(Integer /*TaskKey*/, Date /*DateChanged*/) {}
};

/// One row of the plan: identity, place in the outline, dates, links, relations, cost and progress. Behaviour that
/// touches more than one task lives in `TasksCol`.
///
/// Most values have a companion ending in `Valid` that tells whether they were ever set: the value's setter raises it,
/// and where the comment says so a change of the flag clears the value. A value whose flag is down is not written to
/// the file.
///
/// Contents
///   Identity and row flags        Dates and durations (setters: scheduling/TasksCls_dates.cpp)
///   Links                         Relations and copies of the items
///   Progress, cost, display       Texts and questions
///   Copying, reading, writing (xml/TasksCls_xml.cpp)
class TasksCls : public Counted {
public:
    TasksCls();

    // --- Identity and row flags -------------------------------------------------------------------------------------

    Long ProjectID() const { return f_.ProjectID; }
    void ProjectID(Long value) { f_.ProjectID = value; }
    /// Key of the parent; 0 is the top of the outline. A change of the flag clears it.
    Long ParentID() const { return f_.ParentID.value; }
    void ParentID(Long value) { f_.ParentID.Let(value); }
    Boolean ParentIDValid() const { return f_.ParentID.valid; }
    void ParentIDValid(Boolean flag) { f_.ParentID.LetFlag(flag); }
    /// False for a phase or a row that may own children, True for a plain row.
    Boolean TaskType() const { return f_.TaskType; }
    void TaskType(Boolean value) { f_.TaskType = value; }
    /// True for a row of the plan, False for one that is kept beside it because a relation still holds it.
    Boolean TaskCondidat() const { return f_.TaskCondidat; }
    void TaskCondidat(Boolean value);
    /// Unique in the project; 0 until one is issued.
    Long TaskKey() const { return f_.TaskKey; }
    void TaskKey(Long value) { f_.TaskKey = value; }
    /// A milestone starts where it ends and lasts 0.
    Boolean TaskMilstones() const { return f_.TaskMilstones; }
    void TaskMilstones(Boolean value) { f_.TaskMilstones = value; }
    /// The setter keeps the first 160 characters.
    String TaskName() const { return f_.TaskName; }
    void TaskName(const String& name);
    /// Row in the outline, from 1; 0 off the outline.
    Long TaskPosition() const { return f_.TaskPosition.value; }
    void TaskPosition(Long value);
    Boolean TaskPositionValid() const { return f_.TaskPosition.valid; }
    void TaskPositionValid(Boolean flag) { f_.TaskPosition.valid = flag; }
    /// Place within the parent, kept for the host.
    Long TaskSubPosition() const { return f_.TaskSubPosition.value; }
    void TaskSubPosition(Long value) { f_.TaskSubPosition.Let(value); }
    Boolean TaskSubPositionValid() const { return f_.TaskSubPosition.valid; }
    void TaskSubPositionValid(Boolean flag) { f_.TaskSubPosition.valid = flag; }
    /// Place within the owning item of a converted project.
    Long TaskPositionInitem() const { return f_.TaskPositionInitem.value; }
    void TaskPositionInitem(Long value) { f_.TaskPositionInitem.Let(value); }
    Boolean TaskPositionInitemValid() const { return f_.TaskPositionInitem.valid; }
    void TaskPositionInitemValid(Boolean flag) { f_.TaskPositionInitem.valid = flag; }

    // --- Dates and durations ----------------------------------------------------------------------------------------

    /// First day; 0 = not set. The setter brings the date into range (2000 to ten years ahead), applies the lag, finds
    /// a working day and moves the end along; a date below 2000 is told by a message. Setting 0 stores 0 and raises the
    /// flag, without any of this.
    Date TaskBDate() const { return f_.TaskBDate.value.day(); }
    void TaskBDate(Date value);
    Boolean TaskBDateValid() const { return f_.TaskBDate.valid; }
    void TaskBDateValid(Boolean flag) { f_.TaskBDate.LetFlag(flag); }
    /// Last day, included; 0 = not set. The setter refuses, silently, an end before the start (the end then follows
    /// from the duration again) and, without children, where an end stands already, one more than 999 units after it;
    /// otherwise the duration follows.
    Date TaskEDate() const { return f_.TaskEDate.value.day(); }
    void TaskEDate(Date value);
    Boolean TaskEDateValid() const { return f_.TaskEDate.valid; }
    void TaskEDateValid(Boolean flag) { f_.TaskEDate.LetFlag(flag); }
    /// Length in units of `TaskDurationUnit`. The setter moves the end, or the start where only an end is known; below
    /// a parent it stops at 999; on a milestone it only stores.
    Double TaskDuration() const { return f_.TaskDuration.value; }
    void TaskDuration(Double value);
    Boolean TaskDurationValid() const { return f_.TaskDuration.valid; }
    void TaskDurationValid(Boolean flag) { f_.TaskDuration.LetFlag(flag); }
    /// "days", "wks", "hrs", "mins" or "mons". Reading repairs the record: an empty or unknown unit becomes "days".
    String TaskDurationUnit();
    void TaskDurationUnit(const String& unit) { f_.TaskDurationUnit = unit; }
    /// The text of a Boolean.
    String TaskDurationUnitValid() const { return f_.TaskDurationUnitValid; }
    void TaskDurationUnitValid(const String& text) { f_.TaskDurationUnitValid = text; }
    /// Working days between the governing predecessor's end and this start; negative overlaps. A change of the flag
    /// clears it.
    Long TaskLag() const { return f_.TaskLag.value; }
    void TaskLag(Long value) { f_.TaskLag.Let(value); }
    Boolean TaskLagValid() const { return f_.TaskLag.valid; }
    void TaskLagValid(Boolean flag) { f_.TaskLag.LetFlag(flag); }

    /// The end of a task that starts on `WeekDate`, or today when that is 0, and lasts `duration` of this task's unit;
    /// for weeks and months the task's own duration counts, here and in the next.
    Date SetDateWithoutWeekend(Date WeekDate, ByRef<Double> duration);
    /// The start of a task that ends on `WeekDate`. Not the inverse of SetDateWithoutWeekend.
    Date SetStartDateWithoutWeekend(Date WeekDate, ByRef<Double> duration);
    /// The duration from one date to the other; for weeks and months the task's own duration.
    Long SetDurationWithoutWeekend(Date DateStart, Date DateEnd);
    /// Moves the start in front of the non-working days before it, the end along; True when it moved.
    Boolean setBDatewithoutWeekend();
    /// Start, end and duration to 0.
    Boolean InitDate();
    /// True when the stored unit is one of the five, to the letter.
    Boolean IsVaildDuration();
    /// The letter of the unit's date step: "d", "ww", "h", "n" or "m"; "" for any other unit.
    String SetAddValue();

    // --- Links ------------------------------------------------------------------------------------------------------

    /// Keys of the tasks that wait for this one, and of those that it waits for; made on first read, which raises the
    /// flag. A change of the flag drops the collection. A collection that was filled from inside while its flag is down
    /// is not handed out: that is recorded, and nothing comes back.
    Ref<Collection> TaskSuccessor();
    void TaskSuccessor(const Ref<Collection>& keys) { f_.TaskSuccessor.Let(keys); }
    Boolean TaskSuccessorValid() const { return f_.TaskSuccessor.valid; }
    void TaskSuccessorValid(Boolean flag) { f_.TaskSuccessor.LetFlag(flag); }
    Ref<Collection> TaskPredecessor();
    void TaskPredecessor(const Ref<Collection>& keys) { f_.TaskPredecessor.Let(keys); }
    Boolean TaskPredecessorValid() const { return f_.TaskPredecessor.valid; }
    void TaskPredecessorValid(Boolean flag) { f_.TaskPredecessor.LetFlag(flag); }
    /// Lead times, each as predecessor key, "|" and days. Made on first read.
    Ref<Collection> TaskLeadTime();
    void TaskLeadTime(const Ref<Collection>& entries) { f_.TaskLeadTime = entries; }
    Boolean PredecessorDirty() const { return f_.PredecessorDirty; }
    void PredecessorDirty(Boolean value) { f_.PredecessorDirty = value; }
    /// True for a direct link only.
    Boolean isPredecessor(const Variant& PredecessorKey);
    Boolean isSucesser(const Variant& p_succ);

    // --- Relations and copies of the items --------------------------------------------------------------------------

    /// This task's relation records, guarded and made on first read as the links are.
    Ref<TaskNoteRelationCol> TaskNoteRelation();
    void TaskNoteRelation(const Ref<TaskNoteRelationCol>& relations);
    Boolean TaskNoteValid() const { return f_.TaskNoteRelation.valid; }
    void TaskNoteValid(Boolean flag) { f_.TaskNoteRelation.LetFlag(flag); }
    Ref<TaskObstaclesRelationCol> TaskObstaclesRelation();
    void TaskObstaclesRelation(const Ref<TaskObstaclesRelationCol>& relations);
    Boolean TaskObstaclesRelationValid() const { return f_.TaskObstaclesRelation.valid; }
    void TaskObstaclesRelationValid(Boolean flag) { f_.TaskObstaclesRelation.LetFlag(flag); }
    Ref<TaskGoalRelationCol> TaskGoalRelation();
    void TaskGoalRelation(const Ref<TaskGoalRelationCol>& relations);
    Boolean TaskGoalRelationValid() const { return f_.TaskGoalRelation.valid; }
    void TaskGoalRelationValid(Boolean flag) { f_.TaskGoalRelation.LetFlag(flag); }
    Ref<TaskAssigmentRelationCol> TaskPeopleRelation();
    void TaskPeopleRelation(const Ref<TaskAssigmentRelationCol>& relations);
    Boolean TaskPeopleRelationValid() const { return f_.TaskPeopleRelation.valid; }
    void TaskPoepleRelationValid(Boolean flag) { f_.TaskPeopleRelation.LetFlag(flag); }

    /// Copies of the items that the relations name, made on first read. Only `TasksPeople` is shared with clones.
    Ref<PeopleCol> TasksPeople();
    void TasksPeople(const Ref<PeopleCol>& people);
    Ref<GoalsCol> TasksGoals();
    void TasksGoals(const Ref<GoalsCol>& goals);
    Ref<class TaskNotes> TaskNotes();
    void TaskNotes(const Ref<class TaskNotes>& notes);
    Ref<obstaclesCol> TaskObstacles();
    void TaskObstacles(const Ref<obstaclesCol>& obstacles);

    /// Resolve the task's relation keys through the project's relations and items, after a load. A person that is
    /// not there is passed by, and so is a note, which is recorded; a goal or an obstacle that is not there is recorded
    /// and ends it. Give False, whatever happens.
    Boolean SetNoteCollection(const Ref<TaskNoteRelationCol>& oTaskNoteRelationCol,
                              const Ref<class NotesCol>& NotesCol);
    Boolean SetGoalCollection(const Ref<TaskGoalRelationCol>& oTaskGoalRelationcol, const Ref<GoalsCol>& oGoalCol);
    Boolean SetPeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                const Ref<PeopleCol>& oPeopleCol);
    Boolean SetobstaclesCollection(const Ref<TaskObstaclesRelationCol>& oTaskobstaclesRelationcol,
                                   const Ref<obstaclesCol>& oobstaclesCol);
    /// Takes the copy of a person anew from the master list; False when the task has no such person. Without the
    /// relation or the person in the project the copy is gone, and that is recorded.
    Boolean UpdatePeopleCollection(const Ref<TaskAssigmentRelationCol>& oTaskPeopleRelationcol,
                                   const Ref<PeopleCol>& oPeopleCol, const Variant& personkey);
    /// Take the task's relations out of a master collection; the task keeps its own.
    Boolean RemoveTaskRelation(ByRef<Ref<TaskAssigmentRelationCol>> oTaskAssigRelation);
    Boolean RemoveGoalRelation(ByRef<Ref<TaskGoalRelationCol>> oTaskGoalRelation);
    Boolean RemoveObstacleRelation(ByRef<Ref<TaskObstaclesRelationCol>> oTaskObstacleRelation);
    Boolean isAssigned(const Variant& personkey);
    /// The key of the first assignment to that person; Empty when there is none.
    Variant GetTaskPeopleRelation(const Variant& personkey);
    Boolean NoteExist(const String& p_key);
    /// 1-based place of a note; -1 when the task does not have it.
    Integer NoteIndex(const String& p_key);
    /// The note with that key, or nothing.
    Ref<NotesCls> GetTaskNote(const String& p_key);

    // --- Progress, cost, display ------------------------------------------------------------------------------------

    /// Carried for the host, which alone knows what the number means.
    Long TaskStatusKey() const { return f_.TaskStatusKey; }
    void TaskStatusKey(Long value) { f_.TaskStatusKey = value; }
    /// Progress in whole percent. A change of the flag clears it.
    Long TaskPercentDone() const { return f_.TaskPercentDone.value; }
    void TaskPercentDone(Long value) { f_.TaskPercentDone.Let(value); }
    Boolean TaskPercentDoneValid() const { return f_.TaskPercentDone.valid; }
    void TaskPercentDoneValid(Boolean flag) { f_.TaskPercentDone.LetFlag(flag); }
    /// The task's cost; for a parent the sum of its children's. Once set it is written to the file.
    Currency TaskCost() const { return f_.TaskCost.value; }
    void TaskCost(Currency value) { f_.TaskCost.Let(value); }
    Currency TaskCostUp() const { return f_.TaskCostUp.value; }
    void TaskCostUp(Currency value) { f_.TaskCostUp.Let(value); }
    Long TaskColor() const { return f_.TaskColor.value; }
    void TaskColor(Long value) { f_.TaskColor.Let(value); }
    Boolean TaskcolorValid() const { return f_.TaskColor.valid; }
    void TaskcolorValid(Boolean flag) { f_.TaskColor.valid = flag; }
    /// Text between this task and a linked one; see SetTaskLink. A change of the flag clears it.
    String TaskLink() const { return f_.TaskLink.value; }
    void TaskLink(const String& text) { f_.TaskLink.Let(text); }
    Boolean TaskLinkValid() const { return f_.TaskLink.valid; }
    void TaskLinkValid(Boolean flag) { f_.TaskLink.LetFlag(flag); }
    /// Carried for the host. Reading one whose flag is down is recorded and gives 0 or False.
    Date TaskModifiedDate();
    void TaskModifiedDate(Date value) { f_.TaskModifiedDate.Let(value); }
    Boolean TaskModifiedDateValid() const { return f_.TaskModifiedDate.valid; }
    void TaskModifiedDateValid(Boolean flag) { f_.TaskModifiedDate.LetFlag(flag); }
    Boolean TaskModified();
    void TaskModified(Boolean value) { f_.TaskModified.Let(value); }
    Boolean TaskModifiedValid() const { return f_.TaskModified.valid; }
    void TaskModifiedValid(Boolean flag) { f_.TaskModified.LetFlag(flag); }

    // --- Texts and questions ----------------------------------------------------------------------------------------

    /// The link value behind the last field that contains `p_linked_to`; "" when there is none.
    String GetTaskLink(ByRef<String> p_linked_to);
    /// Replaces the whole link text by `p_linked_to`, ":|LINK|" and the value.
    Boolean SetTaskLink(const String& value, ByRef<String> p_linked_to);
    /// Names of the people on the task, joined by ", "; a person without a name shows as the company.
    String PeopleAsString();
    /// The notes' texts, and their links, one behind the other.
    String NoteAsString();
    String LinkAsString();
    Boolean HasAttachemt();
    /// Names of the goals, and of the obstacles, each followed by "; ".
    String GoalsAsString();
    String ObstaclesAsString();

    // --- Copying, reading, writing ----------------------------------------------------------------------------------

    /// A shallow copy: links, relations, people and children are shared with this task; lead times, notes, goals and
    /// obstacles start empty. A clone always counts its costs as set.
    Ref<TasksCls> Clone();

    void ToXmlFile(const String& FileName, Boolean includeDocHeader = True, Boolean useNamespace = False,
                   Boolean unicode = False);
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    Boolean FromXmlFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls);
    Boolean FromXml(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls, Boolean p_for_lib = False);

    class Internal;

private:
    /// The record's fields in their order.
    struct Fields {
        // What the walks over dates and links read stands together.
        Long TaskKey;
        Flagged<Long> ParentID;
        Boolean TaskCondidat = True;
        Boolean TaskMilstones;
        Flagged<Date> TaskBDate;
        Flagged<Date> TaskEDate;
        Flagged<Double> TaskDuration;
        Flagged<Long> TaskLag;
        String TaskDurationUnit;
        LazyCell<Dictionary> Tasks;
        Guarded<Collection> TaskSuccessor;
        Guarded<Collection> TaskPredecessor;
        Ref<Collection> TaskLeadTime;
        Ref<class ChildOrder> child_order;  ///< of this record alone

        Long ProjectID;
        Boolean TaskType;
        String TaskName;
        Guarded<TaskNoteRelationCol> TaskNoteRelation;
        Long TaskStatusKey;
        Flagged<Long> TaskPercentDone;
        Guarded<TaskObstaclesRelationCol> TaskObstaclesRelation;
        Guarded<TaskGoalRelationCol> TaskGoalRelation;
        Guarded<TaskAssigmentRelationCol> TaskPeopleRelation;
        Flagged<String> TaskLink;
        Flagged<Date> TaskModifiedDate;
        Flagged<Boolean> TaskModified;
        String elementName = "Tasks";
        Flagged<Currency> TaskCost;
        Flagged<Currency> TaskCostUp;
        Flagged<Long> TaskPosition;
        Flagged<Long> TaskSubPosition;
        Flagged<Long> TaskPositionInitem;
        Boolean PredecessorDirty;
        Ref<GoalsCol> TasksGoals;
        String TaskDurationUnitValid = "False";
        Ref<class TaskNotes> TaskNotes;
        Ref<obstaclesCol> TaskObstacles;
        LazyCell<PeopleCol> TasksPeople;
        Flagged<Long> TaskColor;
    };
    Fields f_;

public:
    EventSource<TasksClsEvents> Events;  // last, so that the fields that walks read share their few cache lines
};

}  // namespace mrlxmlclass
