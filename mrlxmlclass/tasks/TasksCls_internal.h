#pragma once

#include <vector>

#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCls.h"
#include "mrlxmlclass/xml/DateText.h"

namespace mrlxmlclass {

class RecordReader;

/// The same day in the last year that a task date may have, where it lies beyond it.
Date NoLaterThanMaxYear(Date date);

/// The keys of a task's children in ascending position. It stands until a child comes or goes, or any row changes.
class ChildOrder : public Counted {
public:
    explicit ChildOrder(const Ref<Dictionary>& source)
        : source_(source), source_stamp_(source ? source->Stamp() : 0), outline_stamp_(Module().outline_stamp) {}

    bool Sorts(const Ref<Dictionary>& source) const {
        return source_ == source && (!source || source_stamp_ == source->Stamp()) &&
               outline_stamp_ == Module().outline_stamp;
    }

    std::vector<Long> keys;

private:
    Ref<Dictionary> source_;  // held, so that no other dictionary can stand in its place
    std::uint64_t source_stamp_;
    std::uint64_t outline_stamp_;
};

/// The library's own view of a task. What ends in `_Int` stores without any rule and touches no flag; what starts with
/// `Store` stores and raises the flag, again without any rule; what starts with `Peek` reads without making anything.
class TasksCls::Internal {
public:
    explicit Internal(TasksCls& self) : f_(self.f_) {}

    void ProjectID_Int(Long value) { f_.ProjectID = value; }
    void ParentID_Int(Long value) { f_.ParentID.value = value; }
    void ParentIDValid_Int(Boolean flag) { f_.ParentID.valid = flag; }
    void TaskType_Int(Boolean value) { f_.TaskType = value; }
    void TaskCondidat_Int(Boolean value);
    void TaskKey_Int(Long value) { f_.TaskKey = value; }
    void TaskMiliston_Int(Boolean value) { f_.TaskMilstones = value; }
    void TaskBDate_Int(Date value) { f_.TaskBDate.value = value; }
    void TaskBDateValid_Int(Boolean flag) { f_.TaskBDate.valid = flag; }
    void TaskEDate_Int(Date value) { f_.TaskEDate.value = value; }
    void TaskEDateValid_Int(Boolean flag) { f_.TaskEDate.valid = flag; }
    void TaskDuration_Int(Double value) { f_.TaskDuration.value = value; }
    void TaskDurationValid_Int(Boolean flag) { f_.TaskDuration.valid = flag; }
    void TaskLag_Int(Long value) { f_.TaskLag.value = value; }
    void TaskLagValid_Int(Boolean flag) { f_.TaskLag.valid = flag; }
    void TaskNoteRelation_Int(const Ref<TaskNoteRelationCol>& value) { f_.TaskNoteRelation.LetInside(value); }
    void TaskNoteValid_Int(Boolean flag) { f_.TaskNoteRelation.valid = flag; }
    void TaskStatusKey_Int(Long value) { f_.TaskStatusKey = value; }
    void TaskPercentDone_Int(Long value) { f_.TaskPercentDone.value = value; }
    void TaskPercentDoneValid_Int(Boolean flag) { f_.TaskPercentDone.valid = flag; }
    void TaskObstaclesRelation_Int(const Ref<TaskObstaclesRelationCol>& value) {
        f_.TaskObstaclesRelation.LetInside(value);
    }
    void TaskObstaclesRelationValid_Int(Boolean flag) { f_.TaskObstaclesRelation.valid = flag; }
    void TaskPoepleRelation_Int(const Ref<TaskAssigmentRelationCol>& value) { f_.TaskPeopleRelation.LetInside(value); }
    void TaskPeopleRelationValid_Int(Boolean flag) { f_.TaskPeopleRelation.valid = flag; }
    void TaskGoalRelation_Int(const Ref<TaskGoalRelationCol>& value) { f_.TaskGoalRelation.LetInside(value); }
    void TaskGoalRelationValid_Int(Boolean flag) { f_.TaskGoalRelation.valid = flag; }
    void TaskLink_Int(const String& text) { f_.TaskLink.value = text; }
    void TaskLinkValid_Int(Boolean flag) { f_.TaskLink.valid = flag; }
    void TaskModifiedDate_Int(Date value) { f_.TaskModifiedDate.value = value; }
    void TaskModifiedDateValid_Int(Boolean flag) { f_.TaskModifiedDate.valid = flag; }
    void TaskModified_Int(Boolean value) { f_.TaskModified.value = value; }
    void TaskModifiedValid_Int(Boolean flag) { f_.TaskModified.valid = flag; }
    void TaskSuccessor_Int(const Ref<Collection>& keys) { f_.TaskSuccessor.LetInside(keys); }
    void TaskSuccessorValid_Int(Boolean flag) { f_.TaskSuccessor.valid = flag; }
    void TaskPredecessor_Int(const Ref<Collection>& keys) { f_.TaskPredecessor.LetInside(keys); }
    void TaskPredecessorValid_Int(Boolean flag) { f_.TaskPredecessor.valid = flag; }
    void TaskLeadTime_Int(const Ref<Collection>& entries) { f_.TaskLeadTime = entries; }

    /// What TaskDurationUnit names, repaired as it is read.
    const DurationUnit& Unit() { return IsDays(f_.TaskDurationUnit) ? kDays : OtherUnit(); }
    /// What the public operation of that name does.
    Date SetDateWithoutWeekend(Date WeekDate, Double duration);
    void StoreStart(Date day) { f_.TaskBDate.Let(day); }
    void StoreEnd(Date day) { f_.TaskEDate.Let(day); }
    void StoreDuration(Double duration) { f_.TaskDuration.Let(duration); }

    Ref<Collection> PeekSuccessor() const { return f_.TaskSuccessor.cell.Peek(); }
    bool HasSuccessors() const {
        const Ref<Collection>& successors = f_.TaskSuccessor.cell.Glance();
        return successors && !successors->empty();
    }
    Ref<Collection> PeekPredecessor() const { return f_.TaskPredecessor.cell.Peek(); }
    const Ref<Collection>& PeekLeadTime() const { return f_.TaskLeadTime; }
    Ref<TaskNoteRelationCol> PeekNoteRelation() const { return f_.TaskNoteRelation.cell.Peek(); }
    Ref<TaskObstaclesRelationCol> PeekObstaclesRelation() const { return f_.TaskObstaclesRelation.cell.Peek(); }
    Ref<TaskGoalRelationCol> PeekGoalRelation() const { return f_.TaskGoalRelation.cell.Peek(); }
    Ref<TaskAssigmentRelationCol> PeekPeopleRelation() const { return f_.TaskPeopleRelation.cell.Peek(); }
    Ref<PeopleCol> PeekPeople() const { return f_.TasksPeople.Peek(); }
    Ref<class TaskNotes> PeekNotes() const { return f_.TaskNotes; }
    Ref<GoalsCol> PeekGoals() const { return f_.TasksGoals; }
    Ref<obstaclesCol> PeekObstacles() const { return f_.TaskObstacles; }

    String elementName() const { return f_.elementName; }
    void elementName(const String& name) { f_.elementName = name; }
    /// Keys of the direct children, key and item alike, in the order in which they came. Made on first read.
    Ref<Dictionary> Tasks() {
        return f_.Tasks.ReadOr([] { return Make<Dictionary>(); });
    }
    void Tasks(const Ref<Dictionary>& children) { f_.Tasks.Set(children); }
    Ref<Dictionary> PeekTasks() const { return f_.Tasks.Peek(); }
    bool HasChildren() const {
        const Ref<Dictionary>& children = f_.Tasks.Glance();
        return children && !children->empty();
    }
    Ref<ChildOrder>& child_order() { return f_.child_order; }
    /// The keys of the linked tasks as they stand now, to walk while links come and go.
    std::vector<String> SuccessorKeys() const { return KeysOf(PeekSuccessor()); }
    std::vector<String> PredecessorKeys() const { return KeysOf(PeekPredecessor()); }
    /// Direct links only.
    bool HasPredecessor(KeyText key) const;
    bool HasSuccessor(KeyText key) const;

    /// Gives the task a key: the first freed one, else the next. Past 32767 it fails, recorded under the labels that
    /// the error file knows for it.
    Boolean IncrementID(const Ref<StaticCls>& oPublicStaticCls);
    /// Reads the fields from `xmlChild` on; gives the element at which it stopped. Failures are the caller's.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Ref<StaticCls>& oPublicStaticCls,
                         Boolean p_for_lib = False, const DateAdjustment& dates = {});

private:
    static std::vector<String> KeysOf(const Ref<Collection>& links);
    const DurationUnit& OtherUnit();
    void Reset();
    void ReadDates(RecordReader& in, const DateAdjustment& dates);
    void ReadLeadTimes(RecordReader& in);
    void ReadPosition(RecordReader& in);
    template <class Relations, class... Prefix>
    void ReadKeys(RecordReader& in, const char* wrapper, Guarded<Relations>& relations, Prefix... prefix);

    Fields& f_;
};

}  // namespace mrlxmlclass
