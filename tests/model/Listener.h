#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// Hears every event of a plan, and looks in the middle of the operation whether the plan holds already what it tells.
class Listener : public TasksColEvents {
public:
    explicit Listener(World& world) : world_(world) {}

    void DateStartChange(Long key, Date start, Boolean milestone, Boolean parent) override;
    void DateEndChange(Long key, Date end, Boolean milestone, Boolean parent, const String& unit) override;
    void DurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) override;
    void TaskDurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) override;
    void RoolUpCostChange(Long key, const Variant& cost) override;
    void PredecessorChange(Long key, const String& predecessors) override;
    void SucessorChange(Long key, const String& successors) override;
    void PredecessorKeyChange(Long key, const String& predecessor, const String& action) override;
    void IamASummary(Long key, Boolean summary) override;
    void TaskInserted(Long key, const String& parent, Long position) override;
    void TaskDeleted(Long key, const String& parent, Long position, Boolean arrange) override;
    void TaskNameChanged(Long key, const String& name) override;
    void Indented(Long key, const String& parent, const String& source) override;
    void Outented(Long key, const String& parent, const String& old_parent, const String& source) override;
    void UpDown(Boolean up, Long key, const String& parent, const String& old_parent, Boolean changed,
                const String& source) override;
    void CompletedChange(Long key, Integer percent) override;

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
