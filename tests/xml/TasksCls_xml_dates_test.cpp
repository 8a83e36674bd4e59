#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "tests/support/Plan.h"
#include "tests/xml/TaskText.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(TasksClsFromXml, MovesAStartBeyondTheLastYearIntoItOnAWorkingDay) {
    Plan plan;
    ASSERT_EQ(Module().g_MaxYear, 2036);
    const auto task = Read(TaskWith("<TaskBDate>3/1/2050</TaskBDate><TaskEDate>3/1/2050</TaskEDate>"));
    EXPECT_EQ(task->TaskBDate(), Date::Of(2036, 3, 3)) << "1 March 2036 is a Saturday";
    EXPECT_EQ(task->TaskEDate(), Date::Of(2036, 3, 3));
    EXPECT_EQ(task->TaskBDateValid(), True);
    EXPECT_EQ(task->TaskEDateValid(), True);
    EXPECT_TRUE(plan.platform.ui.messages.empty()) << "a repair tells nobody";
}

TEST(TasksClsFromXml, MovesAStartBeforeTheYear2000IntoIt) {
    Plan plan;
    const auto task = Read(TaskWith("<TaskBDate>6/1/1999</TaskBDate>"));
    EXPECT_EQ(task->TaskBDate(), Date::Of(2000, 6, 1));
    EXPECT_EQ(Read(TaskWith("<TaskBDate>7/1/1999</TaskBDate>"))->TaskBDate(), Date::Of(2000, 7, 3)) << "a Saturday";
}

TEST(TasksClsFromXml, KeepsAnEndBeforeTheYear2000) {
    Plan plan;
    EXPECT_EQ(Read(TaskWith("<TaskEDate>6/1/1999</TaskEDate>"))->TaskEDate(), Date::Of(1999, 6, 1));
    const auto task =
        Read(TaskWith("<TaskBDate>6/1/1999</TaskBDate><TaskEDate>6/1/1999</TaskEDate>"
                      "<TaskDuration>2</TaskDuration>"));
    EXPECT_EQ(task->TaskBDate(), Date::Of(2000, 6, 1));
    EXPECT_EQ(task->TaskEDate(), Date::Of(2000, 6, 5)) << "before its start: the duration tells, past the weekend";
}

TEST(TasksClsFromXml, LeavesADateThatIsNotSetAlone) {
    Plan plan;
    const auto task = Read(TaskWith("<TaskBDate>12/30/1899</TaskBDate>"));
    EXPECT_EQ(task->TaskBDate(), Date());
    EXPECT_EQ(task->TaskBDateValid(), True);
}

TEST(TasksClsFromXml, RefusesALeapDayThatTheLastYearWouldNotHave) {
    Plan plan;
    Module().g_MaxYear = 2035;
    auto task = Make<TasksCls>();
    EXPECT_EQ(task->FromXml(TaskWith("<TaskBDate>2/29/2040</TaskBDate>"), {}), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCls/FromXml 13\n");
}

TEST(TasksClsFromXml, PutsAnEndBeforeItsStartBehindTheDuration) {
    Plan plan;
    const auto task =
        Read(TaskWith("<TaskBDate>3/2/2026</TaskBDate><TaskEDate>2/2/2026</TaskEDate>"
                      "<TaskDuration>3</TaskDuration>"));
    EXPECT_EQ(task->TaskEDate(), Thursday);
    EXPECT_EQ(Read(TaskWith("<TaskBDate>3/4/2026</TaskBDate><TaskEDate>2/2/2026</TaskEDate>"
                            "<TaskDuration>3</TaskDuration>"))
                  ->TaskEDate(),
              Monday + 7)
        << "on a working day";

    const auto without_end = Read(TaskWith("<TaskBDate>3/2/2026</TaskBDate><TaskDuration>3</TaskDuration>"));
    EXPECT_EQ(without_end->TaskEDate(), Thursday);
    EXPECT_EQ(without_end->TaskEDateValid(), False) << "the flag is only for what stands in the file";
}

TEST(TasksClsFromXml, StoresDatesWithoutAnyOtherRule) {
    Plan plan;
    const auto task =
        Read(TaskWith("<TaskBDate>3/7/2026</TaskBDate><TaskEDate>3/8/2026</TaskEDate>"
                      "<TaskDuration>500</TaskDuration>"));
    EXPECT_EQ(task->TaskBDate(), Saturday) << "not even a working day";
    EXPECT_EQ(task->TaskEDate(), Sunday);
    EXPECT_EQ(task->TaskDuration(), 500);
    EXPECT_EQ(Module().g_MinDate, Date()) << "the span is not touched";
}

}  // namespace
}  // namespace mrlxmlclass
