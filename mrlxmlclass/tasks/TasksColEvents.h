#pragma once

#include "mrlxmlclass/runtime/Variant.h"

namespace mrlxmlclass {

/// What `TasksCol` tells the host, synchronously, in the middle of the operation and with the value already in the
/// record. A task's own key comes as a number, the key of a parent as text ("0" is the top, "" where nobody tells).
/// `Milstones` and `isParent` are the task's flags at that moment.
class TasksColEvents {
public:
    virtual ~TasksColEvents() = default;
    virtual void DateStartChange(Long /*TaskKey*/, Date /*BDate*/, Boolean /*Milstones*/, Boolean /*isParent*/) {}
    virtual void DateEndChange(Long /*TaskKey*/, Date /*EDate*/, Boolean /*Milstones*/, Boolean /*isParent*/,
                               const String& /*Unit*/) {}
    virtual void DurationChange(Long /*TaskKey*/, Double /*duration*/, const String& /*Unit*/, Boolean /*Milstones*/,
                                Boolean /*isParent*/) {}
    /// As DurationChange; the date engine and the roll-up raise it even while the host is silenced.
    virtual void TaskDurationChange(Long /*TaskKey*/, Double /*duration*/, const String& /*Unit*/,
                                    Boolean /*Milstones*/, Boolean /*isParent*/) {}
    virtual void AssigmentChange(Long /*TaskKey*/, const String& /*sPeoples*/) {}
    virtual void GoalChange(Long /*TaskKey*/, const String& /*sGoal*/) {}
    virtual void ObstaclesChange(Long /*TaskKey*/, const String& /*sObstacles*/) {}
    virtual void NoteChange(Long /*TaskKey*/, const String& /*sNote*/) {}
    /// `Cost` holds a Currency.
    virtual void RoolUpCostChange(Long /*TaskKey*/, const Variant& /*Cost*/) {}
    virtual void PredecessorChange(Long /*TaskKey*/, const String& /*Predecessor*/) {}
    virtual void SucessorChange(Long /*TaskKey*/, const String& /*Sucessor*/) {}
    /// Never raised.
    virtual void LagTimeChange(Long /*TaskKey*/, const Variant& /*LagTime*/) {}
    /// `Action` is "add" or "remove".
    virtual void PredecessorKeyChange(Long /*TaskKey*/, const String& /*Predecessor*/, const String& /*Action*/) {}
    /// In spite of its name `IamNot` True means that the task is a summary.
    virtual void IamASummary(Long /*TaskKey*/, Boolean /*IamNot*/) {}
    virtual void TaskInserted(Long /*TaskKey*/, const String& /*ParentID*/, Long /*Position*/) {}
    virtual void TaskDeleted(Long /*TaskKey*/, const String& /*ParentID*/, Long /*Position*/, Boolean /*p_arrange*/) {}
    virtual void TaskNameChanged(Long /*TaskKey*/, const String& /*TaskName*/) {}
    virtual void Indented(Long /*TaskKey*/, const String& /*ParentID*/, const String& /*source*/) {}
    virtual void Outented(Long /*TaskKey*/, const String& /*ParentID*/, const String& /*oldParentID*/,
                          const String& /*source*/) {}
    virtual void UpDown(Boolean /*UpDown*/, Long /*TaskKey*/, const String& /*ParentID*/, const String& /*oldParentID*/,
                        Boolean /*parentChanged*/, const String& /*source*/) {}
    virtual void CompletedChange(Long /*TaskKey*/, Integer /*PercentDone*/) {}
};

}  // namespace mrlxmlclass
