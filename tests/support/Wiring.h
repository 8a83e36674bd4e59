#pragma once

#include "mrlxmlclass/session/Application.h"
#include "tests/support/SavedRecords.h"

namespace mrlxmlclass::testing {

/// Where the copies that a load makes (of people, goals, obstacles and notes on tasks, of tasks on people, goals and
/// obstacles) are not those to which the keys in its file lead; empty where all are.
String WrongCopies(Application& app, const SavedRecords& file);

}  // namespace mrlxmlclass::testing
