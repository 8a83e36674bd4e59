#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/scheduling/SummaryMove.h"
#include "tests/support/Interruption.h"
#include "tests/support/Outlines.h"

/// Hosts that come back into a walk, that throw out of it, or that let go of the plan meanwhile.
namespace mrlxmlclass {
namespace {

using namespace testing;

/// House |###..  |  Garden |#....  |
/// Walls |##...  |  Shed   |#....  |
/// Roof  |..#..  |
class Houses : public Plan {
public:
    Houses() {
        WithLinks().Task("House").Task("Walls").Under("House").From(Monday).Lasting(2);
        Task("Roof").Under("House").From(Wednesday);
        Task("Garden").Task("Shed").Under("Garden").From(Monday);
        col().AdjustSummary(Key("House"));
        col().AdjustSummary(Key("Garden"));
        Heard();
    }
};

/// Build and Test wait for Design.
class Fork : public Plan {
public:
    Fork() {
        WithLinks().Task("Design").From(Monday).Task("Build").From(Tuesday).After("Design");
        Task("Test").From(Tuesday).After("Design");
    }
};

// --- Coming back in --------------------------------------------------------------------------------------------------

TEST(SummaryTaskDateChanged2, EndsAtAChildThatTheHostTookAwayMeanwhile) {
    Houses plan;
    {
        const Interruption host(plan, "DateStartChange", 2, [&] { plan.col().RemoveForLib("3"); });
        EXPECT_FALSE(SummaryMove{.stDate = Wednesday}.Of(plan, "House"));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SummaryTaskDateChanged2 91\n");
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Thursday, 2)) << "what was moved stays";
    EXPECT_EQ(Span(plan["House"]), "2026-03-02 2026-03-04 3") << "and its parent waits for the next change";
}

TEST(SummaryTaskDateChanged2, MovesTheChildrenOfASummaryThatTheHostTookAway) {
    Houses plan;
    {
        const Interruption host(plan, "DateStartChange", 2, [&] { plan.col().RemoveForLib("1"); });
        EXPECT_TRUE(SummaryMove{.stDate = Wednesday}.Of(plan, "House"));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AdjustSummary 91\n");
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Thursday, 2) + Moved(3, Friday, Friday, 1));
}

TEST(SummaryTaskDateChanged2, GoesThroughTheRowsAsTheyStoodWhenItBegan) {
    Houses plan;
    plan.Task("Paint").Under("House").From(Thursday);
    {
        const Interruption host(plan, "DateStartChange", 2, [&] { plan["Paint"].TaskPosition(3); });
        EXPECT_TRUE(SummaryMove{.stDate = Wednesday}.Of(plan, "House"));
    }
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Thursday, 2) + Moved(3, Friday, Friday, 1) +
                                Moved(6, Monday + 7, Monday + 7, 1) + Summed(1, Wednesday, Monday + 7, 4));
}

TEST(SummaryTaskDateChanged2, LetsTheHostMoveAnotherSummaryInside) {
    Houses plan;
    {
        const Interruption host(plan, "DateStartChange", 2, [&] {
            plan.Heard();
            EXPECT_TRUE(SummaryMove{.stDate = Friday}.Of(plan, "Garden"));
            EXPECT_EQ(plan.Heard(), Moved(5, Friday, Friday, 1) + Summed(4, Friday, Friday, 1));
        });
        EXPECT_TRUE(SummaryMove{.stDate = Wednesday}.Of(plan, "House"));
    }
    EXPECT_EQ(Weeks(plan, 1),
              "House  |..###  |\n"
              "Walls  |..##.  |\n"
              "Roof   |....#  |\n"
              "Garden |....#  |\n"
              "Shed   |....#  |\n");
}

TEST(SummaryTaskDateChanged2, LetsTheHostMoveTheSameSummaryInside) {
    Houses plan;
    {
        const Interruption host(plan, "DateStartChange", 2,
                                [&] { EXPECT_TRUE(SummaryMove{.p_diff = 1}.Of(plan, "House")); });
        EXPECT_TRUE(SummaryMove{.p_diff = 1}.Of(plan, "House"));
    }
    EXPECT_EQ(plan.failures.Taken(), "");
    EXPECT_EQ(DayName(plan["Walls"].TaskBDate()), DayName(Wednesday)) << "a day by each";
}

// --- Throwing --------------------------------------------------------------------------------------------------------

TEST(DependsDateChanged, EndsAndRecordsWhereAListenerThrows) {
    Fork plan;
    {
        const Interruption host(plan, "DateStartChange", 1, [] { throw std::runtime_error("no more"); });
        EXPECT_FALSE(plan.col().DependsDateChanged("1", Wednesday, 1));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 51\n");
    EXPECT_EQ(plan.Heard(), "DateStartChange(1, 2026-03-04, False, False)\n");
    EXPECT_EQ(Span(plan["Design"]), "2026-03-04 2026-03-04 1") << "what was done stands";
    EXPECT_EQ(Span(plan["Build"]), "2026-03-03 2026-03-03 1");

    EXPECT_TRUE(plan.col().DependsDateChanged("1", Thursday, 1)) << "the next walk is whole";
    EXPECT_EQ(plan.Heard(),
              Moved(1, Thursday, Thursday, 1) + Moved(2, Friday, Friday, 1) + Moved(3, Friday, Friday, 1));
}

TEST(DependsDateChanged, EndsOnlyTheCallInWhichAListenerThrowsWhateverItThrows) {
    Fork plan;
    plan.Task("Late").From(Wednesday).After("Build");
    {
        const Interruption host(plan, "DateStartChange", 2, [] { throw 7; });
        EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 51\n");
    EXPECT_EQ(plan.Heard(), Moved(1, Wednesday, Wednesday, 1) + "DateStartChange(2, 2026-03-05, False, False)\n" +
                                Moved(3, Thursday, Thursday, 1))
        << "nothing behind Build moves, what waits for Design does";
}

TEST(SummaryTaskDateChanged2, GoesOnBehindAChildWhoseListenerThrows) {
    Houses plan;
    {
        const Interruption host(plan, "DateStartChange", 2, [] { throw std::runtime_error("no more"); });
        EXPECT_TRUE(SummaryMove{.stDate = Wednesday}.Of(plan, "House"));
    }
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/DependsDateChanged 51\n");
    EXPECT_EQ(plan.Heard(), "DateStartChange(2, 2026-03-04, False, False)\n" + Moved(3, Friday, Friday, 1) +
                                Summed(1, Wednesday, Friday, 3));
    EXPECT_TRUE(SummaryMove{.stDate = Thursday}.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(),
              Moved(2, Thursday, Friday, 2) + Moved(3, Monday + 7, Monday + 7, 1) + Summed(1, Thursday, Monday + 7, 3));
}

// --- Letting go ------------------------------------------------------------------------------------------------------

/// A host that starts another project when it hears of that start; the plan that is told of it has no other owner.
class NewProject : public TasksColEvents {
public:
    NewProject(Plan& plan, Long key) : plan_(plan), key_(key) { plan.col().Events.Add(*this); }
    void DateStartChange(Long key, Date, Boolean, Boolean) override {
        if (key == key_ && !std::exchange(done_, true)) plan_.app->Init(True);
    }

private:
    Plan& plan_;
    Long key_;
    bool done_ = false;
};

TEST(DependsDateChanged, GoesToItsEndUnderAHostThatStartsAnotherProject) {
    Fork plan;
    NewProject host(plan, 2);
    EXPECT_TRUE(plan.col().DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(plan.Heard(),
              Moved(1, Wednesday, Wednesday, 1) + Moved(2, Thursday, Thursday, 1) + Moved(3, Thursday, Thursday, 1));
    EXPECT_EQ(plan.col().Count(True), 0) << "the new project";
}

TEST(SummaryTaskDateChanged2, GoesToItsEndUnderAHostThatStartsAnotherProject) {
    Houses plan;
    NewProject host(plan, 2);
    EXPECT_TRUE(SummaryMove{.stDate = Wednesday}.Of(plan, "House"));
    EXPECT_EQ(plan.Heard(),
              Moved(2, Wednesday, Thursday, 2) + Moved(3, Friday, Friday, 1) + Summed(1, Wednesday, Friday, 3));
}

TEST(DurationChanged, GoesToItsEndUnderAHostThatStartsAnotherProject) {
    Houses plan;
    NewProject host(plan, 3);
    EXPECT_TRUE(plan.col().DurationChanged("3", 2.0));
    const String widened = "DateEndChange(1, 2026-03-05, False, True, days)\n";
    EXPECT_EQ(plan.Heard(),
              Moved(3, Wednesday, Thursday, 2) + widened + Summed(1, Monday, Thursday, 4) + "IamASummary(1, True)\n");
    EXPECT_EQ(plan.col().Count(True), 0);
}

TEST(DependsDateChanged, GoesToItsEndUnderAHostThatLetsGoOfTheSession) {
    Plan plan;
    auto app = Make<Application>();
    app->Init(True);
    TasksCol& col = *app->xTaskCol();
    for (const Date start : {Monday, Tuesday}) {
        col.Add()->TaskBDate(start);
    }
    col.Item(1)->TaskSuccessor()->Add("2", "2");
    col.Item(2)->TaskPredecessor()->Add("1", "1");
    struct LettingGo : TasksColEvents {
        explicit LettingGo(Ref<Application>& of) : app(of) { app->xTaskCol()->Events.Add(*this); }
        void DateStartChange(Long key, Date start, Boolean, Boolean) override {
            app = {};
            heard += std::to_string(key.value()) + " " + DayName(start) + "\n";
        }
        Ref<Application>& app;
        String heard;
    } host(app);
    EXPECT_TRUE(col.DependsDateChanged("1", Wednesday, 1));
    EXPECT_EQ(host.heard, "1 2026-03-04\n2 2026-03-05\n");
    EXPECT_FALSE(app);
}

// --- What an event tells ---------------------------------------------------------------------------------------------

TEST(DependsDateChanged, AsksAtEachEventWhetherTheTaskIsAParent) {
    Houses plan;
    const Interruption host(plan, "DateStartChange", 4, [&] { plan.col().RemoveParentTask("4", "5"); });
    plan.col().DependsDateChanged("4", Wednesday, 1);
    Told before{.key = 4, .start = Wednesday, .end = Wednesday, .duration = 1, .parent = True};
    Told after = before;
    after.parent = False;
    EXPECT_EQ(plan.Heard(), before.Start() + after.Moved().substr(after.Start().size()));
}

TEST(RollUpDateChanged, AsksAtEachEventWhetherTheTaskIsAParent) {
    Houses plan;
    plan.About("Shed").Holding(Monday - 7, Monday, 6);
    const Interruption host(plan, "DateStartChange", 4, [&] { plan.col().RemoveParentTask("4", "5"); });
    plan.col().RollUpDateChanged("5", {});
    const String heard = plan.Heard();
    EXPECT_TRUE(
        heard.starts_with("DateStartChange(4, 2026-02-23, False, True)\n"
                          "DateEndChange(4, 2026-03-02, False, False, days)\n"))
        << heard;
    plan.failures.Taken();
}

TEST(TasksColOperations, TellOfDatesTheKeyThatTheyWereAskedFor) {
    Plan plan;
    plan.WithLinks();
    plan.col().Add("77")->TaskBDate(Monday);
    plan.Heard();
    plan.col().DependsDateChanged("77", Wednesday, 1);
    EXPECT_EQ(plan.Heard(), Moved(77, Wednesday, Wednesday, 1));
    plan.col().AdjustSummary("77");
    EXPECT_EQ(plan.Heard(), Summed(77, Wednesday, Wednesday, 1));
    plan.Task("Child").From(Tuesday);
    plan["Child"].ParentID(77);
    plan.col().RolUpOneDate(plan.Key("Child"), "77");
    EXPECT_EQ(plan.Heard(),
              "TaskDurationChange(77, 1, days, False, True)\nDurationChange(77, 1, days, False, True)\n"
              "DateEndChange(77, 2026-03-03, False, True, days)\n"
              "DateStartChange(77, 2026-03-03, False, True)\n");
}

}  // namespace
}  // namespace mrlxmlclass
