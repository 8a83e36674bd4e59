#include "mrlxmlclass/session/ModuleState.h"

#include <gtest/gtest.h>

#include <thread>

#include "mrlxmlclass/scheduling/CalendarCls.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

TEST(Module, StartsWithNothingSet) {
    TestSession session;
    const ModuleState& module = Module();
    EXPECT_EQ(module.BVersion, False);
    EXPECT_EQ(module.g_SourcePrima, False);
    EXPECT_FALSE(module.g_PublicCalendar);
    EXPECT_EQ(module.g_MaxYear, 0);
    EXPECT_EQ(module.g_TaskInfoUnloading, False);
    EXPECT_EQ(module.g_InAddOrRemove, False);
    EXPECT_EQ(module.g_MaxDate, Date());
    EXPECT_EQ(module.g_MaxDateTaskKey, 0);
    EXPECT_EQ(module.g_MinDate, Date());
    EXPECT_EQ(module.g_MinDateTaskKey, 0);
    EXPECT_EQ(module.g_FileDateSeparator, "");
    EXPECT_EQ(module.g_SystemDateSeparator, "");
    EXPECT_EQ(module.g_LockFileNumber, 0);
    EXPECT_EQ(module.g_LockFileName, "");
    EXPECT_EQ(module.g_ReadOnly, False);
}

TEST(Module, IsOneForAThreadAndAnotherForTheNext) {
    TestSession session;
    Module().g_MaxDateTaskKey = 7;
    EXPECT_EQ(&Module(), &Module());
    const ModuleState* here = &Module();
    const ModuleState* there = nullptr;
    Long key_there = -1;
    std::thread([&] {
        there = &Module();
        key_there = Module().g_MaxDateTaskKey;
    }).join();
    EXPECT_NE(here, there);
    EXPECT_EQ(key_there, 0);
    EXPECT_EQ(Module().g_MaxDateTaskKey, 7);
}

TEST(MaxYear, IsTenYearsFromTheDayOnWhichItIsFirstNeeded) {
    TestSession session;
    session.clock.now = Date::Of(2026, 12, 31);
    EXPECT_EQ(MaxYear(), 2036);
    session.clock.now = Date::Of(2027, 1, 1);
    EXPECT_EQ(MaxYear(), 2036);
    TakeMaxYear();
    EXPECT_EQ(MaxYear(), 2037);
}

TEST(MaxYear, CountsFromALeapDayToo) {
    TestSession session;
    session.clock.now = Date::Of(2028, 2, 29);
    EXPECT_EQ(MaxYear(), 2038);
}

TEST(EnsureErrorsHandler, MakesTheLogOnlyWhereItIsAbsent) {
    TestSession session;
    const Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
    EnsureErrorsHandler();
    EXPECT_EQ(Module().g_ErrorsHandler, handler);
    Module().g_ErrorsHandler = {};
    EnsureErrorsHandler();
    EXPECT_TRUE(Module().g_ErrorsHandler);
    EXPECT_FALSE(Module().g_ErrorsHandler == handler);
}

}  // namespace
}  // namespace mrlxmlclass
