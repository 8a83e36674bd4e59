#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCol_internal.h"
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

}  // namespace
}  // namespace mrlxmlclass
