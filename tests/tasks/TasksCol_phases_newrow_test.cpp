#include <gtest/gtest.h>

#include "tests/support/Links.h"
#include "tests/support/Told.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(SetNewCondidat, GivesATaskTheStartOfItsParent) {
    Plan plan;
    plan.Task("Phase").From(Tuesday).Lasting(3).Task("Design").Under("Phase").From(Friday);
    plan.Task("Build").Under("Phase").From(Friday).Lasting(2);
    EXPECT_TRUE(plan.col().SetNewCondidat(2));
    EXPECT_EQ(plan.Heard(), Moved(2, Tuesday, Tuesday, 1)) << "its parent stands in the row above";
    EXPECT_TRUE(plan.col().SetNewCondidat(3));
    EXPECT_EQ(plan.Heard(), Moved(3, Tuesday, Wednesday, 2)) << "and here another task";
}

TEST(SetNewCondidat, StartsATaskAtTheTopToday) {
    Plan plan;
    plan.Task("Design").From(Tuesday).Task("Build").From(Friday);
    EXPECT_TRUE(plan.col().SetNewCondidat(2));
    EXPECT_EQ(plan.Heard(), Moved(2, Monday, Monday, 1));
    plan.platform.clock.now = Saturday + 0.75;
    plan.col().SetNewCondidat(2);
    EXPECT_EQ(plan.Heard(), Moved(2, Monday + 7, Monday + 7, 1)) << "on the next day that is worked";
}

TEST(SetNewCondidat, KeepsTellingTheTopThatItIsASummaryForTheFirstRow) {
    Plan plan;
    plan.Task("Design").From(Friday).Task("Build").From(Friday).After("Design");
    EXPECT_TRUE(plan.col().SetNewCondidat(1));
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + "IamASummary(0, True)\n");
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|0\n") << "there is no parent to free";
}

TEST(SetNewCondidat, KeepsAFreshTaskWithoutAnEnd) {
    Plan plan;
    plan.Task("Design");
    plan.col().SetNewCondidat(1);
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Date(), 1) + "IamASummary(0, True)\n");
}

TEST(SetNewCondidat, AppliesTheLagInForce) {
    Plan plan;
    plan.Task("Phase").From(Tuesday).Task("Design").Under("Phase").From(Friday);
    plan["Design"].TaskLag(1);
    plan.col().SetNewCondidat(2);
    EXPECT_EQ(plan.Heard(), Moved(2, Wednesday, Wednesday, 1));
}

TEST(SetNewCondidat, KeepsTheEndWhereTheParentHasNoStart) {
    Plan plan;
    plan.Task("Phase").Task("Design").Under("Phase").From(Friday);
    plan.col().SetNewCondidat(2);
    EXPECT_EQ(plan.Heard(), Moved(2, Date(), Friday, 1));
}

TEST(SetNewCondidat, TakesTheTaskThatIsNamedAndTheRowAboveThatRow) {
    Plan plan;
    plan.Task("Phase").From(Tuesday).Task("Design").Under("Phase").From(Friday);
    EXPECT_TRUE(plan.col().SetNewCondidat(9, "2"));
    EXPECT_EQ(plan.Heard(), Moved(2, Tuesday, Tuesday, 1) + "IamASummary(1, True)\n") << "row 8 is empty";
    EXPECT_TRUE(plan.col().SetNewCondidat(3, "1"));
    EXPECT_EQ(plan.Heard(), (Told{.key = 1, .start = Monday, .end = Monday, .duration = 1, .parent = True}.Moved()));
}

/// 1 Phase, which others wait for
/// 3   Design
/// 4 Build
/// 5 Test
class FirstChild : public Plan {
public:
    explicit FirstChild(Date phase) {
        Task("Phase");
        if (phase.set()) From(phase);
        Task("Design").Under("Phase").From(Friday).Task("Build").From(Friday).After("Phase");
        Task("Test").From(Friday).After("Phase").After("Build");
        for (const char* name : {"Design", "Build", "Test"})
            (*this)[name].TaskPosition((*this)[name].TaskPosition() + 1);
    }

    String freed =
        "SucessorChange(1, 5)\nPredecessorChange(3, )\nPredecessorKeyChange(3, 1, remove)\n"
        "SucessorChange(1, )\nPredecessorChange(4, 4)\nPredecessorKeyChange(4, 1, remove)\n";
};

TEST(SetNewCondidat, FreesWhatWaitsForAParentOfAFirstChild) {
    FirstChild plan(Tuesday);
    EXPECT_TRUE(plan.col().SetNewCondidat(3));
    EXPECT_EQ(plan.Heard(), plan.freed + Moved(2, Tuesday, Tuesday, 1) + "IamASummary(1, True)\n");
    EXPECT_EQ(Links(plan), "Build -> Test\nTest <- Build|0\n");
    EXPECT_EQ(plan.platform.ui.yields, 2);
}

TEST(SetNewCondidat, StartsAParentWithoutDatesToday) {
    FirstChild plan((Date()));
    EXPECT_TRUE(plan.col().SetNewCondidat(3));
    EXPECT_EQ(plan.Heard(),
              Summed(1, Monday, Monday, 1) + plan.freed + Moved(2, Monday, Monday, 1) + "IamASummary(1, True)\n");
}

TEST(SetNewCondidat, LeavesACandidateACandidate) {
    Plan plan;
    plan.Task("Aside").From(Friday).Candidate();
    EXPECT_TRUE(plan.col().SetNewCondidat(0));
    EXPECT_EQ(plan.Heard(), Moved(1, Monday, Monday, 1) + "IamASummary(0, True)\n");
    EXPECT_FALSE(plan["Aside"].TaskCondidat());
}

TEST(SetNewCondidat, IsSilentForASilencedHost) {
    Plan plan;
    plan.Silenced().Task("Phase").Task("Design").Under("Phase").From(Friday);
    plan["Design"].TaskPosition(3);
    EXPECT_TRUE(plan.col().SetNewCondidat(3));
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), DayName(Monday));
    EXPECT_EQ(plan.Heard(), "TaskDurationChange(1, 1, days, False, True)\n") << "as every summary that is rebuilt";
}

TEST(SetNewCondidat, RecordsARowWithoutATask) {
    Plan plan;
    plan.Task("Design").From(Friday);
    for (const auto& [row, key] : std::multimap<int, String>{{2, ""}, {9, ""}, {-1, ""}, {2, "77"}, {1, "Design"}}) {
        EXPECT_FALSE(plan.col().SetNewCondidat(row, key));
        EXPECT_EQ(plan.failures.Taken(), "TasksCol/SetNewCondidat 91\n") << row << key;
    }
    EXPECT_EQ(plan.Heard(), "");
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), DayName(Friday));
}

TEST(SetNewCondidat, RecordsARowWithoutARowAbove) {
    Plan plan;
    plan.Task("Design").From(Friday);
    EXPECT_FALSE(plan.col().SetNewCondidat(-32768));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SetNewCondidat 6\n");
}

TEST(SetNewCondidat, RecordsAParentThatIsNoTask) {
    Plan plan;
    plan.Task("Other").Task("Design").From(Friday);
    plan["Design"].ParentID(77);
    EXPECT_FALSE(plan.col().SetNewCondidat(2));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/SetNewCondidat 91\n");
    EXPECT_EQ(DayName(plan["Design"].TaskBDate()), DayName(Friday));
    EXPECT_EQ(plan.Heard(), "");
}

}  // namespace
}  // namespace mrlxmlclass
