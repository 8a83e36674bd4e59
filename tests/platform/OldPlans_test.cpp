#include "mrlxmlclass/platform/OldPlans.h"

#include <gtest/gtest.h>

#include "tests/support/OldPlan.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(OldPlans, FailWhereNoComponentIs) {
    EXPECT_EQ(NumberOf([] { Platform().old_plans.NewProgressBar(); }), 429);
    EXPECT_EQ(NumberOf([] { Platform().old_plans.NewProject(); }), 429);
}

TEST(OldPlans, AreTheHostsWhereItPutItsOwnInPlace) {
    {
        OldPlan old;
        old.name = "Mine";
        EXPECT_EQ(Platform().old_plans.NewProject()->Name(), "Mine");
    }
    EXPECT_EQ(&Platform().old_plans, &NoOldPlans());
}

}  // namespace
}  // namespace mrlxmlclass
