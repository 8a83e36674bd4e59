#pragma once

#include <gtest/gtest.h>

#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "tests/support/Failures.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {

/// A platform and module values of the test's own, for what needs no plan. Failures that were recorded and that the
/// test does not take fail it.
class TestSession : public TestPlatform {
    struct FreshModule {
        FreshModule() { Module() = ModuleState(); }
        ~FreshModule() { Module() = ModuleState(); }
        FreshModule(const FreshModule&) = delete;
        FreshModule& operator=(const FreshModule&) = delete;
    };
    FreshModule module_;

public:
    Failures failures;
};

}  // namespace mrlxmlclass::testing
