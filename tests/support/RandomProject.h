#pragma once

#include "tests/support/Draws.h"
#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// A session with a drawn project: an outline with candidates and links, people, goals, obstacles and notes with the
/// four families of relations, a calendar, and holes in the keys of all. Texts hold what a file has to escape.
class RandomProject : public Plan {
public:
    /// `format` is the short date format of the system.
    RandomProject(unsigned seed, const char* format);
    ~RandomProject();

    /// Saves as a file of the test's folder, and gives its text.
    String Saved(const String& name);

private:
    void FillProject();
    void FillTasks();
    void FillTask(TasksCls& task);
    void FillLinks();
    void FillPeople();
    void FillGoals();
    void FillObstacles();
    void FillNotes();
    void Assign();
    void FillCalendar();
    void TakeSomeBack();

    String Text();
    Date Day() { return Date::Of(2024, 1, 1) + draws_.From(0, 2000); }
    /// Some of the tasks, candidates among them.
    std::vector<Ref<TasksCls>> SomeTasks();

    Draws draws_;
    std::vector<String> names_;
};

}  // namespace mrlxmlclass::testing
