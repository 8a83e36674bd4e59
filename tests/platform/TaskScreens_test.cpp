#include "mrlxmlclass/platform/TaskScreens.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/dialog/EditTask.h"
#include "tests/support/NumberOf.h"

namespace mrlxmlclass::testing {
namespace {

TEST(NoTaskScreens, Fails) {
    const auto form = Make<EditTask>();
    EXPECT_EQ(NumberOf([&] { NoTaskScreens().NewView(*form); }), failure::kCannotCreate);
}

TEST(NoHelpSystems, Fails) {
    EXPECT_EQ(NumberOf([] { NoHelpSystems().NewHelpSystem(); }), failure::kCannotCreate);
}

}  // namespace
}  // namespace mrlxmlclass::testing
