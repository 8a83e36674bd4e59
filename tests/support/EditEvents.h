#pragma once

#include "mrlxmlclass/tasks/TasksColEvents.h"

/// Declares the handlers of every event that edits of tasks and links raise, in a class that hears them all.
#define MRLXMLCLASS_HEARS_EDITS                                                                                     \
    void DateStartChange(Long key, Date start, Boolean milestone, Boolean parent) override;                         \
    void DateEndChange(Long key, Date end, Boolean milestone, Boolean parent, const String& unit) override;         \
    void DurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent) override; \
    void TaskDurationChange(Long key, Double duration, const String& unit, Boolean milestone, Boolean parent)       \
        override;                                                                                                   \
    void RoolUpCostChange(Long key, const Variant& cost) override;                                                  \
    void PredecessorChange(Long key, const String& predecessors) override;                                          \
    void SucessorChange(Long key, const String& successors) override;                                               \
    void PredecessorKeyChange(Long key, const String& predecessor, const String& action) override;                  \
    void IamASummary(Long key, Boolean summary) override;                                                           \
    void TaskInserted(Long key, const String& parent, Long position) override;                                      \
    void TaskDeleted(Long key, const String& parent, Long position, Boolean arrange) override;                      \
    void TaskNameChanged(Long key, const String& name) override;                                                    \
    void Indented(Long key, const String& parent, const String& source) override;                                   \
    void Outented(Long key, const String& parent, const String& old_parent, const String& source) override;         \
    void UpDown(Boolean up, Long key, const String& parent, const String& old_parent, Boolean changed,              \
                const String& source) override;                                                                     \
    void CompletedChange(Long key, Integer percent) override;
