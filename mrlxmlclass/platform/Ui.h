#pragma once

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

/// The two ways in which the library reaches the person at the screen without a dialog.
class Ui {
public:
    virtual ~Ui() = default;
    /// Shows a message with one OK button, or prints it where there is no screen. Never blocks a headless process.
    virtual void Message(const String& text) = 0;
    /// Lets the host process its pending events once. Whatever a handler throws ends here.
    void YieldToHost() noexcept;

protected:
    virtual void DoEvents() = 0;
};

}  // namespace mrlxmlclass
