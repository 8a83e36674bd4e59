#include "mrlxmlclass/platform/Ui.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(YieldToHost, LetsTheHostProcessItsEventsOnce) {
    TestPlatform plat;
    int seen = 0;
    plat.ui.on_yield = [&] { ++seen; };
    Platform().ui.YieldToHost();
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(plat.ui.yields, 1);
}

TEST(YieldToHost, EndsWhateverAHandlerThrows) {
    RecordingUi ui;
    ui.on_yield = [] { throw std::runtime_error("a handler's own"); };
    ui.YieldToHost();
    ui.on_yield = [] { Raise(failure::kOverflow); };
    ui.YieldToHost();
    ui.on_yield = [] { throw 5; };
    ui.YieldToHost();
    EXPECT_EQ(ui.yields, 3);
}

TEST(YieldToHost, DoesNothingOnTheSystemsOwn) {
    SystemServices().ui.YieldToHost();
}

}  // namespace
}  // namespace mrlxmlclass::testing
