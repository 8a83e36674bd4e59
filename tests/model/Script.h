#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass::model {

/// One edit: its name in the table of operations, the tasks that it is about, and a number that means what the
/// operation makes of it. Tasks have numbers of their own, in the order in which a script adds them; a step whose task
/// is gone, or that makes no sense where it stands, does nothing. So steps can be left out of a script.
struct Step {
    std::string_view operation;
    int task = 0;
    int other = 0;
    int number = 0;
};

/// How the session is started.
struct Setting {
    bool links = true;      ///< links are live
    bool auto_link = true;  ///< every link that is made is stored
    bool silent = false;    ///< the host hears nearly nothing
};

struct Script {
    Setting setting;
    std::vector<Step> steps;
};

/// What did not hold.
struct Complaint {
    std::string_view check;  ///< the name of what was looked at
    String text;
};

/// As it is written in C++: pasted into a test, RunScript replays it.
String Written(const Script& script);

}  // namespace mrlxmlclass::model
