#pragma once

#include <map>

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "tests/support/Days.h"
#include "tests/support/EditEvents.h"
#include "tests/support/Failures.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {

/// Writes down every event of a task collection, a line an event.
class EventLog : public TasksColEvents {
public:
    /// What was heard since the last question.
    String Taken() { return std::exchange(heard_, {}); }

    MRLXMLCLASS_HEARS_EDITS
    void AssigmentChange(Long key, const String& people) override;
    void GoalChange(Long key, const String& goals) override;
    void ObstaclesChange(Long key, const String& obstacles) override;
    void NoteChange(Long key, const String& note) override;

private:
    String heard_;
};

/// A session on a platform of its own, with a plan that is built by saying what it is:
///
///     Plan plan;
///     plan.Task("Phase").Task("Design").Under("Phase").From(Monday).Lasting(3);
///
/// Everything that a test sets is back as it was when the plan goes. Failures that were recorded and not taken by the
/// test fail it.
class Plan {
public:
    Plan();
    ~Plan();

    /// Starts the session anew: with live links, silent, or as told. Comes before the first task.
    Plan& WithLinks();
    Plan& Silenced();
    /// The calendar without any non-working day.
    Plan& WithoutWeekends();

    /// Adds a task in the last row; what follows is said of it.
    Plan& Task(const String& name);
    /// Puts it under a task, as its last child; the rows are in the order in which tasks are added.
    Plan& Under(const String& parent);
    Plan& From(Date start);
    Plan& To(Date end);
    Plan& Lasting(Double duration, const String& unit = "days");
    Plan& Milestone();
    Plan& Costing(Currency cost);
    /// Stores a link on both sides, with its lead time: dates stay, and nobody is told.
    Plan& After(const String& predecessor, Integer lead = 0);
    Plan& Candidate();
    /// Dates and duration as they are told, by no rule.
    Plan& Holding(Date start, Date end, Double duration);
    /// What follows is said of a task that stands already.
    Plan& About(const String& name);

    String Key(const String& name) const;
    Long Number(const String& name) const { return KeyNumber(Key(name)); }
    TasksCls& operator[](const String& name) const;

    /// The events since the last question.
    String Heard() { return events_.Taken(); }
    /// The outline by row: row, indented name, start and end.
    String Drawn() const;

    TestPlatform platform;
    Ref<Application> app;
    Failures failures;
    TasksCol& col() const { return *app->xTaskCol(); }
    CalendarCls& calendar() const { return *app->xCalendar(); }

private:
    void Start();

    Boolean links_;
    Boolean silent_;
    EventLog events_;
    std::map<String, Long> keys_;
    Ref<TasksCls> last_;
};

}  // namespace mrlxmlclass::testing
