#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
#include "tests/support/Links.h"
#include "tests/support/Outlines.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(AddLeadTime, StoresTheDaysUnderThePredecessorsKey) {
    Plan plan;
    plan.Task("Design").Task("Build");
    EXPECT_TRUE(plan.col().AddLeadTime("2", "1", 3));
    EXPECT_TRUE(plan.col().AddLeadTime("2", "7", -2));
    const Ref<Collection> leads = plan["Build"].TaskLeadTime();
    EXPECT_EQ(Listed(leads), "1|3 7|-2");
    EXPECT_EQ(leads->Item("7"), Variant("7|-2"));
}

TEST(AddLeadTime, PutsARenewedEntryLast) {
    Plan plan;
    plan.Task("Design").Task("Build");
    plan.col().AddLeadTime("2", "1", 3);
    plan.col().AddLeadTime("2", "7", -2);
    EXPECT_TRUE(plan.col().AddLeadTime("2", "1", 0));
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "7|-2 1|0");
}

TEST(AddLeadTime, TellsKeysApartToTheLetter) {
    Plan plan;
    plan.Task("Build");
    plan.col().AddLeadTime("1", "5", 1);
    plan.col().AddLeadTime("1", "05", 2);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "5|1 05|2");
}

TEST(AddLeadTime, RecordsAnUnknownTask) {
    Plan plan;
    EXPECT_FALSE(plan.col().AddLeadTime("77", "1", 3));
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/AddLeadTime 91\n");
}

TEST(GetLeadTime, ReadsTheDaysTowardsAPredecessor) {
    Plan plan;
    plan.Task("Build");
    plan.col().AddLeadTime("1", "12", -32768);
    plan.col().AddLeadTime("1", "2", 5);
    const Ref<Collection> leads = plan["Build"].TaskLeadTime();
    EXPECT_EQ(plan.col().GetLeadTime("12", leads), -32768);
    EXPECT_EQ(plan.col().GetLeadTime("2", leads), 5);
}

TEST(GetLeadTime, IsZeroWithoutAnEntry) {
    Plan plan;
    plan.Task("Build");
    plan.col().AddLeadTime("1", "12", 4);
    EXPECT_EQ(plan.col().GetLeadTime("1", plan["Build"].TaskLeadTime()), 0);
    EXPECT_EQ(plan.col().GetLeadTime("1", Make<Collection>()), 0);
}

TEST(GetLeadTime, TakesTheSecondPartOfAnEntry) {
    Plan plan;
    auto leads = Make<Collection>();
    leads->Add("1|4|9", "1");
    EXPECT_EQ(plan.col().GetLeadTime("1", leads), 4);
}

TEST(GetLeadTime, RecordsEntriesThatAreNone) {
    struct Row {
        Variant entry;
        const char* failure;
    };
    for (const Row& row : {Row{"1", "9"}, Row{"1|x", "13"}, Row{"1|", "13"}, Row{"1|40000", "6"}, Row{Long(1), "13"}}) {
        SCOPED_TRACE(row.failure);
        Plan plan;
        auto leads = Make<Collection>();
        leads->Add(row.entry, "1");
        EXPECT_EQ(plan.col().GetLeadTime("1", leads), 0);
        EXPECT_EQ(plan.failures.Taken(), String("TasksCol/GetLeadTime ") + row.failure + "\n");
    }
}

TEST(GetLeadTime, RecordsACollectionThatIsNothing) {
    Plan plan;
    EXPECT_EQ(plan.col().GetLeadTime("1", {}), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetLeadTime 91\n");
}

TEST(GetPredecessor, IsWhatStandsBeforeTheFirstBar) {
    Plan plan;
    EXPECT_EQ(plan.col().GetPredecessor("12|3"), "12");
    EXPECT_EQ(plan.col().GetPredecessor("12|-3|4"), "12");
    EXPECT_EQ(plan.col().GetPredecessor("12"), "12");
    EXPECT_EQ(plan.col().GetPredecessor("|3"), "");
}

TEST(RemoveLeadTime, TakesTheEntryOutWhateverItsDays) {
    Plan plan;
    plan.Task("Build");
    for (const char* key : {"1", "12", "2"}) plan.col().AddLeadTime("1", key, 3);
    EXPECT_EQ(plan.col().RemoveLeadTime("1", "12", 0), True);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "1|3 2|3");
    EXPECT_EQ(plan.col().RemoveLeadTime("1", "1", -32768), True);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "2|3");
}

TEST(RemoveLeadTime, SaysTrueWithoutAnEntry) {
    Plan plan;
    plan.Task("Build");
    plan.col().AddLeadTime("1", "12", 3);
    EXPECT_EQ(plan.col().RemoveLeadTime("1", "1", 3), True);
    EXPECT_EQ(plan.col().RemoveLeadTime("1", "", 3), True);
    EXPECT_EQ(Listed(plan["Build"].TaskLeadTime()), "12|3");
    EXPECT_EQ(plan.Heard(), "");
}

TEST(RemoveLeadTime, RecordsAnUnknownTask) {
    Plan plan;
    EXPECT_EQ(plan.col().RemoveLeadTime("77", "1", 3), False);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/RemoveLeadTime 91\n");
}

TEST(AddLeadTime, LeavesLinksAndLagAlone) {
    Plan plan;
    plan.WithLinks().Task("Design").Task("Build").After("Design", 1);
    plan.col().AddLeadTime("2", "1", -4);
    EXPECT_EQ(Links(plan), "Design -> Build\nBuild <- Design|-4\n");
    EXPECT_EQ(plan["Build"].TaskLag(), 0);
    EXPECT_EQ(plan.Heard(), "");
}

/// A task that waits for nothing and yet has entries, the first of 4 days.
class Entries : public Plan {
public:
    Entries() {
        WithLinks().Task("Build");
        col().AddLeadTime("1", "7", 4);
        col().AddLeadTime("1", "8", -2);
    }
};

TEST(GetFirstLeadTime, IsThatOfTheFirstEntry) {
    Entries plan;
    EXPECT_EQ(plan.col().GetFirstLeadTime("1"), 4);
    plan.col().AddLeadTime("1", "7", 5);
    EXPECT_EQ(plan.col().GetFirstLeadTime("1"), -2) << "the renewed entry is the last now";
}

TEST(GetFirstLeadTime, LooksForPredecessorsOnlyWhenItIsTold) {
    Entries plan;
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "", False), 4);
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "", True), 0);
    EXPECT_EQ(plan["Build"].TaskPredecessorValid(), False) << "asking makes no list";
    plan["Build"].TaskPredecessor()->Add("9", "9");
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "", True), 4) << "of whichever predecessor";
}

TEST(GetFirstLeadTime, KeepsToTheTwoFullAnswers) {
    Entries plan;
    plan["Build"].TaskPredecessor()->Add("7", "7");
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "", Boolean::Raw(1)), 0);
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "", Boolean::Raw(-1)), 4);
}

TEST(GetFirstLeadTime, IsZeroWithALeadThatIsGivenAndWithoutEntries) {
    Entries plan;
    plan.Task("Free");
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "7|4"), 0);
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "x"), 0);
    EXPECT_EQ(plan.col().GetFirstLeadTime("2"), 0);
    EXPECT_EQ(plan.col().GetFirstLeadTime("1", "", False, 32767), 4) << "the adjuster plays no part";
}

TEST(GetFirstLeadTime, RecordsAnUnknownTask) {
    Plan plan;
    EXPECT_EQ(plan.col().GetFirstLeadTime("77"), 0);
    EXPECT_EQ(plan.failures.Taken(), "TasksCol/GetFirstLeadTime 91\n");
}

TEST(DoWeChangeNow, IsAlwaysTrue) {
    Plan plan;
    plan.Task("Build");
    for (const char* key : {"1", "", "0", "77", "x"}) EXPECT_EQ(plan.col().DoWeChangeNow(key, "1"), True);
}

}  // namespace
}  // namespace mrlxmlclass
