#pragma once

#include "tests/support/Plan.h"

namespace mrlxmlclass::testing {

/// A session with something of every kind that a project file can hold: an outline of three levels with a milestone, a
/// candidate and a chain of links, people, goals, obstacles and notes with their relations, holidays, and the record of
/// the project. Its file name is set.
class WholeProject : public Plan {
public:
    WholeProject();
    ~WholeProject();

    /// Saves under a name in the test's folder.
    Boolean SaveAs(const String& name);
    /// Loads a file of the test's folder and lets go of the lock again.
    Boolean Load(const String& name, Boolean only_tasks = False, Boolean for_lib = False);

private:
    void FillTasks();
    void FillItems();
};

/// Every record of a session as it would be written, tasks in the order of their keys: two sessions hold the same when
/// the texts are equal, whatever the order of their tasks.
String Told(Application& app);
/// The tasks alone.
String ToldTasks(const TasksCol& tasks);

/// The bytes of a file under tests/golden.
String Golden(const String& name);

}  // namespace mrlxmlclass::testing
