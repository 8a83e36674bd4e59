#pragma once

#include "mrlxmlclass/runtime/Failure.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {
class ErrorsHandler;
}

namespace mrlxmlclass::testing {

/// Watches the shared error log: a fresh one while it stands. Failures that no test took fail it at the end.
class Failures {
public:
    Failures();
    ~Failures();
    Failures(const Failures&) = delete;
    Failures& operator=(const Failures&) = delete;

    /// What was recorded since the last question, a line a failure: "TasksCol/Add 457".
    String Taken();
    /// What the latest one says, without the line and the time behind it; "" when none was recorded.
    String LatestWords() const;

private:
    Ref<ErrorsHandler> log_;
    int taken_ = 0;
};

}  // namespace mrlxmlclass::testing
