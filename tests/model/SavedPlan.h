#pragma once

#include <map>
#include <vector>

#include "mrlxmlclass/tasks/TasksCls.h"

namespace mrlxmlclass::model {

/// The records of a project file, each by its section and key, its fields in the order of the file.
struct SavedPlan {
    using Field = std::pair<String, String>;
    using Record = std::vector<Field>;
    std::map<String, Record> records;
};

SavedPlan ReadSaved(const String& file);

/// What a file fails to tell of a task as it is: "" when nothing.
String Untold(const SavedPlan& plan, TasksCls& task);

/// How a second file differs from a first that was loaded in between: "" when it doesn't. What a load mends is no
/// difference: an end in front of its start, a year that a plan may not have; nor is a list of links that was empty and
/// is not written again.
String Difference(const SavedPlan& first, const SavedPlan& second);

}  // namespace mrlxmlclass::model
