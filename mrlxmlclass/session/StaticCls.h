#pragma once

#include <array>

#include "mrlxmlclass/runtime/Collection.h"

namespace mrlxmlclass {

/// The key counters of one session and the pools of keys that deleted objects left behind. A counter is the last key
/// issued; a project issues 32767 keys of a kind at most.
class StaticCls : public Counted {
public:
    Integer TaskKeyValue() const { return counters_[kTask]; }
    void TaskKeyValue(Integer value) { counters_[kTask] = value; }
    Integer PersonKeyValue() const { return counters_[kPerson]; }
    void PersonKeyValue(Integer value) { counters_[kPerson] = value; }
    Integer GoalKeyValue() const { return counters_[kGoal]; }
    void GoalKeyValue(Integer value) { counters_[kGoal] = value; }
    Integer CalendarKeyValue() const { return counters_[kCalendar]; }
    void CalendarKeyValue(Integer value) { counters_[kCalendar] = value; }
    Integer GoalTaskRelationKeyValue() const { return counters_[kGoalRelation]; }
    void GoalTaskRelationKeyValue(Integer value) { counters_[kGoalRelation] = value; }
    Integer AssigmentTaskRelationKeyValue() const { return counters_[kAssigmentRelation]; }
    void AssigmentTaskRelationKeyValue(Integer value) { counters_[kAssigmentRelation] = value; }
    Integer ObstalcesTaskRelationKeyValue() const { return counters_[kObstacleRelation]; }
    void ObstalcesTaskRelationKeyValue(Integer value) { counters_[kObstacleRelation] = value; }

    /// True when a pool holds the key; keys compare as texts. No pool holds nothing.
    Boolean KeyExist(const Ref<Collection>& oCol, const Variant& aKey);

    class Internal;

private:
    enum Kind {
        kTask,
        kPerson,
        kGoal,
        kCalendar,
        kGoalRelation,
        kAssigmentRelation,
        kObstacleRelation,
        kNote,
        kObstacle,
        kNoteRelation,
        kKinds
    };

    std::array<Integer, kKinds> counters_;
    std::array<Ref<Collection>, kKinds> pools_;
};

}  // namespace mrlxmlclass
