#pragma once

#include "tests/model/World.h"
#include "tests/support/EditEvents.h"

namespace mrlxmlclass::model {

/// Hears every event of a plan, and looks in the middle of the operation whether the plan holds already what it tells.
class Listener : public TasksColEvents {
public:
    explicit Listener(World& world) : world_(world) {}

    MRLXMLCLASS_HEARS_EDITS
    void AssigmentChange(Long key, const String& people) override;
    void GoalChange(Long key, const String& goals) override;
    void ObstaclesChange(Long key, const String& obstacles) override;
    void NoteChange(Long key, const String& note) override;

private:
    /// The task that an event is about; complains where there is none, and of an event that a silenced host hears.
    Ref<TasksCls> About(const char* event, Long key, bool although_silent = false);
    void Check(const char* event, Long key, bool holds, const String& told);
    void CheckFlags(const char* event, const TasksCls& task, Boolean milestone, Boolean parent);
    void CheckDuration(const char* event, const Ref<TasksCls>& task, Double duration, const String& unit,
                       Boolean milestone, Boolean parent);

    World& world_;
};

}  // namespace mrlxmlclass::model
