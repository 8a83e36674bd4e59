#pragma once

#include <gtest/gtest.h>

#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {

/// A platform and module values of the test's own. Failures that were recorded and that the test does not take fail it.
class TestSession : public TestPlatform {
public:
    TestSession() {
        Module() = ModuleState();
        EnsureErrorsHandler();
    }
    ~TestSession() {
        EXPECT_EQ(TakeFailures(), "") << "recorded and not taken";
        Module() = ModuleState();
    }

    /// The failures recorded since the last call, each a line: class, member, number.
    String TakeFailures() {
        const Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
        if (handler.object() != watched_) taken_ = 0;
        watched_ = handler.object();
        if (!handler) return {};
        const Ref<ErrorEntries> entries = handler->Log()->Error_Col();
        String lines;
        for (; taken_ < entries->Count(); ++taken_) {
            const ErrorEntry entry = entries->Item(taken_ + 1);
            lines += entry.ClassSource() + " " + entry.FunctionSource() + " " + entry.ID() + "\n";
        }
        return lines;
    }

private:
    const Counted* watched_ = nullptr;  // not held: the log ends when the session lets go of it
    Long taken_;
};

}  // namespace mrlxmlclass::testing
