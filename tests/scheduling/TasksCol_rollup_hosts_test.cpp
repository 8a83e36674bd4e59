#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/scheduling/DateChange.h"
#include "tests/support/Interruption.h"

/// Hosts that come back in while dates are rolled up.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// SmallSite  |.##..  |
/// House |.##..  |
/// Walls |.##..  |
class SmallSite : public Plan {
public:
    SmallSite() {
        Task("SmallSite").Task("House").Under("SmallSite").Task("Walls").Under("House").From(Tuesday).Lasting(2);
        col().AdjustSummary("2");
        Heard();
    }
    String House() const { return Told{.key = 2, .start = Tuesday, .end = Wednesday, .duration = 2}.Summed(); }
    String Top() const { return Told{.key = 1, .start = Tuesday, .end = Wednesday, .duration = 2}.Summed(); }
};

TEST(RollUpDateChanged, EndsAtAParentThatTheHostTookAwayMeanwhile) {
    SmallSite plan;
    Double diff = 0;
    {
        const Interruption host(plan, "DateStartChange", 2, [&] { plan.col().RemoveForLib("1"); });
        EXPECT_FALSE(plan.col().RollUpDateChanged("3", diff));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 91\nTasksCol/RollUpDateChanged 91\n");
    EXPECT_EQ(plan.Heard(), plan.House() + "IamASummary(2, True)\n");
    EXPECT_EQ(diff, 2) << "up to there";
}

TEST(RollUpDateChanged, LetsTheHostRollUpAnotherTaskInside) {
    SmallSite plan;
    plan.Task("Roof").Under("House").From(Tuesday);
    Double diff = 0;
    Double inside = 0;
    {
        const Interruption host(plan, "IamASummary", 1, [&] { plan.col().RollUpDateChanged("4", inside); });
        plan.col().RollUpDateChanged("3", diff);
    }
    EXPECT_EQ(diff, 4) << "Walls and House";
    EXPECT_EQ(inside, 3) << "Roof and House";
    plan.Heard();
}

TEST(RollUpDateChanged, EndsAndRecordsWhereAListenerThrows) {
    SmallSite plan;
    Double diff = 0;
    {
        const Interruption host(plan, "IamASummary", 1, [] { throw std::runtime_error("no more"); });
        plan.col().RollUpDateChanged("3", diff);
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RollUpDateChanged 51\n");
    const String whole = plan.House() + plan.Top() + plan.Top() + "IamASummary(1, True)\nIamASummary(2, True)\n";
    EXPECT_EQ(plan.Heard(), whole) << "the call below it goes on";
    plan.col().RollUpDateChanged("3", diff);
    EXPECT_EQ(plan.Heard(), whole);
}

TEST(RolUpOneDate, EndsAtATaskThatTheHostTookAwayMeanwhile) {
    SmallSite plan;
    {
        const Interruption host(plan, "TaskDurationChange", 2, [&] { plan.col().RemoveForLib("2"); });
        EXPECT_FALSE(plan.col().RolUpOneDate("3", "2", True));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneDate 91\n");
    EXPECT_EQ(Span(plan["SmallSite"]), "2026-03-03 2026-03-04 2");
    const String heard = plan.Heard();
    EXPECT_NE(heard.find("DateStartChange(2,"), String::npos) << "it is told to the end";
    EXPECT_EQ(heard.find("(1,"), String::npos);
}

TEST(RolUpOneDate, GoesToTheParentThatTheHostGaveTheTaskMeanwhile) {
    SmallSite plan;
    plan.Task("Yard").From(Friday);
    {
        const Interruption host(plan, "TaskDurationChange", 2, [&] { plan["House"].ParentID(plan.Number("Yard")); });
        plan.col().RolUpOneDate("3", "2");
    }
    EXPECT_EQ(Span(plan["Yard"]), "2026-03-03 2026-03-04 2");
    plan.Heard();
}

TEST(RolUpOneDate, EndsAndRecordsWhereAListenerThrows) {
    SmallSite plan;
    plan["Walls"].TaskBDate(Thursday);
    {
        const Interruption host(plan, "TaskDurationChange", 2, [] { throw std::runtime_error("no more"); });
        plan.col().RolUpOneDate("3", "2");
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RolUpOneDate 51\n");
    EXPECT_EQ(DayName(plan["House"].TaskBDate()), DayName(Thursday)) << "what was done stands";
    EXPECT_EQ(DayName(plan["SmallSite"].TaskBDate()), DayName(Tuesday));
    plan.Heard();
    plan.col().RolUpOneDate("3", "2");
    EXPECT_EQ(DayName(plan["SmallSite"].TaskBDate()), DayName(Thursday)) << "the next one goes to the top";
    plan.Heard();
}

TEST(RollUpDateChanged, GoesToItsEndUnderAHostThatStartsAnotherProject) {
    SmallSite plan;
    struct NewProject : TasksColEvents {
        explicit NewProject(Plan& of) : plan(of) { plan.col().Events.Add(*this); }
        void DateStartChange(Long, Date, Boolean, Boolean) override {
            if (!std::exchange(done, true)) plan.app->Init();
        }
        Plan& plan;
        bool done = false;
    } host(plan);
    Double diff = 0;
    plan.col().RollUpDateChanged("3", diff);
    EXPECT_EQ(plan.Heard(), plan.House() + plan.Top() + plan.Top() + "IamASummary(1, True)\nIamASummary(2, True)\n");
    EXPECT_EQ(diff, 4);
    EXPECT_EQ(plan.col().Count(True), 0);
}

}  // namespace
}  // namespace mrlxmlclass
