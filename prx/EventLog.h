#pragma once

#include <string>
#include <vector>

#include "mrlxmlclass/tasks/TasksCol.h"

namespace prx {

/// Hears what an edit raises and keeps it as texts, one an event: `DateStartChange(12, 2026-03-02, False, True)`.
class EventLog : public mrlxmlclass::TasksColEvents {
public:
    explicit EventLog(mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks) : tasks_(std::move(tasks)) {
        tasks_->Events.Add(*this);
    }
    ~EventLog() override { tasks_->Events.Remove(*this); }
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    /// A line each on the standard output.
    void Print() const;

    void DateStartChange(mrlxmlclass::Long TaskKey, mrlxmlclass::Date BDate, mrlxmlclass::Boolean Milstones,
                         mrlxmlclass::Boolean isParent) override;
    void DateEndChange(mrlxmlclass::Long TaskKey, mrlxmlclass::Date EDate, mrlxmlclass::Boolean Milstones,
                       mrlxmlclass::Boolean isParent, const std::string& Unit) override;
    void DurationChange(mrlxmlclass::Long TaskKey, double duration, const std::string& Unit,
                        mrlxmlclass::Boolean Milstones, mrlxmlclass::Boolean isParent) override;
    void TaskDurationChange(mrlxmlclass::Long TaskKey, double duration, const std::string& Unit,
                            mrlxmlclass::Boolean Milstones, mrlxmlclass::Boolean isParent) override;
    void AssigmentChange(mrlxmlclass::Long TaskKey, const std::string& sPeoples) override;
    void GoalChange(mrlxmlclass::Long TaskKey, const std::string& sGoal) override;
    void ObstaclesChange(mrlxmlclass::Long TaskKey, const std::string& sObstacles) override;
    void NoteChange(mrlxmlclass::Long TaskKey, const std::string& sNote) override;
    void RoolUpCostChange(mrlxmlclass::Long TaskKey, const mrlxmlclass::Variant& Cost) override;
    void PredecessorChange(mrlxmlclass::Long TaskKey, const std::string& Predecessor) override;
    void SucessorChange(mrlxmlclass::Long TaskKey, const std::string& Sucessor) override;
    void PredecessorKeyChange(mrlxmlclass::Long TaskKey, const std::string& Predecessor,
                              const std::string& Action) override;
    void IamASummary(mrlxmlclass::Long TaskKey, mrlxmlclass::Boolean IamNot) override;
    void TaskInserted(mrlxmlclass::Long TaskKey, const std::string& ParentID, mrlxmlclass::Long Position) override;
    void TaskDeleted(mrlxmlclass::Long TaskKey, const std::string& ParentID, mrlxmlclass::Long Position,
                     mrlxmlclass::Boolean p_arrange) override;
    void TaskNameChanged(mrlxmlclass::Long TaskKey, const std::string& TaskName) override;
    void Indented(mrlxmlclass::Long TaskKey, const std::string& ParentID, const std::string& source) override;
    void Outented(mrlxmlclass::Long TaskKey, const std::string& ParentID, const std::string& oldParentID,
                  const std::string& source) override;
    void UpDown(mrlxmlclass::Boolean UpDown, mrlxmlclass::Long TaskKey, const std::string& ParentID,
                const std::string& oldParentID, mrlxmlclass::Boolean parentChanged, const std::string& source) override;
    void CompletedChange(mrlxmlclass::Long TaskKey, mrlxmlclass::Integer PercentDone) override;

private:
    template <class... Values>
    void Heard(const char* event, const Values&... values);

    mrlxmlclass::Ref<mrlxmlclass::TasksCol> tasks_;
    std::vector<std::string> lines_;
};

}  // namespace prx
