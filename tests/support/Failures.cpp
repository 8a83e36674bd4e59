#include "tests/support/Failures.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass::testing {

Failures::Failures() {
    Module().g_ErrorsHandler = {};
    EnsureErrorsHandler();
    log_ = Module().g_ErrorsHandler;
}

Failures::~Failures() {
    EXPECT_EQ(Taken(), "") << "failures that the test did not expect";
}

String Failures::Taken() {
    String lines;
    const Ref<ErrorEntries> entries = log_->Log()->Error_Col();
    while (taken_ < entries->Count()) {
        const ErrorEntry entry = entries->Item(++taken_);
        lines += entry.ClassSource() + "/" + entry.FunctionSource() + " " + entry.ID() + "\n";
    }
    return lines;
}

String Failures::LatestWords() const {
    const Ref<ErrorEntries> entries = log_->Log()->Error_Col();
    if (entries->Count() == 0) return "";
    const String description = entries->Item(entries->Count()).ErrDescription();
    return description.substr(0, description.find(",Line: "));
}

}  // namespace mrlxmlclass::testing
