#include <set>

#include "mrlxmlclass/items/PeopleCol.h"
#include "tests/dom/SmallStack.h"
#include "tests/session/HostileFile.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr int kMostKeys = 32767;

String Text(int number) {
    return std::to_string(number);
}

TEST(LoadDamagedOutline, WithATaskThatIsItsOwnParentEnds) {
    HostileFiles files;
    const Outcome outcome =
        files.Open(FileOfTasks(TaskText("1", "1", "1") + TaskText("2", "0", "2")), "its own parent");
    EXPECT_EQ(outcome.loaded, True);
    EXPECT_EQ(files.tasks().Count(True), 2);
    files.tasks().GetLevel("1");
    EXPECT_EQ(files.host().failures.Taken(), "TasksCol/GetLevel 28\n");
}

TEST(LoadDamagedOutline, WithTwoTasksThatAreEachOthersParentEnds) {
    for (const bool first_above : {true, false}) {
        SCOPED_TRACE(first_above);
        HostileFiles files;
        const Outcome outcome = files.Open(
            FileOfTasks(TaskText("1", "2", first_above ? "1" : "2") + TaskText("2", "1", first_above ? "2" : "1")),
            "each other's parent");
        EXPECT_EQ(outcome.loaded, True);
        EXPECT_NE(outcome.recorded.find(" 28\n"), String::npos) << outcome.recorded;
        EXPECT_EQ(files.tasks().Count(True), 2);
    }
}

TEST(LoadDamagedOutline, WithARingOfParentsOfAnyLengthEnds) {
    for (const int length : {3, 7, 60}) {
        for (const bool descending : {false, true}) {
            SCOPED_TRACE(Text(length) + (descending ? " down" : " up"));
            String tasks;
            for (int key = 1; key <= length; ++key) {
                const int row = descending ? length + 1 - key : key;
                tasks += TaskText(Text(key), Text(key == 1 ? length : key - 1), Text(row));
            }
            HostileFiles files;
            EXPECT_EQ(files.Open(FileOfTasks(tasks), "a ring of parents").loaded, True);
            EXPECT_EQ(files.tasks().Count(True), length);
        }
    }
}

TEST(LoadDamagedOutline, WithAWholePlanWhoseParentsAreMixedUpEnds) {
    HostileFiles files;
    constexpr int kTasks = 60;
    for (int step = 1; step < kTasks; step += 9) {
        SCOPED_TRACE(step);
        String tasks;
        for (int key = 1; key <= kTasks; ++key) {
            tasks += TaskText(Text(key), Text(key * step % (kTasks + 1)), Text(key * 7 % kTasks - 3));
        }
        EXPECT_EQ(files.Open(FileOfTasks(tasks), "mixed up parents").loaded, True);
        EXPECT_EQ(files.tasks().Count(True), kTasks);
    }
}

TEST(LoadDamagedOutline, StopsRebuildingAtATaskWhoseParentIsMissingButStillNumbersTheRows) {
    HostileFiles files;
    const Outcome outcome = files.Open(
        FileOfTasks(TaskText("1", "0", "5") + TaskText("2", "99", "6") + TaskText("3", "1", "7")), "a missing parent");
    EXPECT_EQ(outcome.loaded, True);
    EXPECT_EQ(outcome.recorded, "TasksCol/AddTaskParentForAll 91\n");
    EXPECT_EQ(files.tasks().Item("1")->TaskPosition(), 1);
    EXPECT_EQ(files.tasks().Item("3")->TaskPosition(), 3);
}

TEST(LoadDamagedOutline, KeepsTheTasksBeforeAKeyThatComesTwice) {
    HostileFiles files;
    const Outcome outcome = files.Open(FileOfTasks(TaskText("1", "0", "1") + TaskText("2", "0", "2") +
                                                   TaskText("1", "0", "3") + TaskText("4", "0", "4")),
                                       "a key twice");
    EXPECT_EQ(outcome.loaded, True);
    EXPECT_EQ(outcome.recorded, "TasksCol/FromXmlInt 457\n");
    EXPECT_EQ(files.tasks().Count(True), 2);
}

TEST(LoadDamagedOutline, RefusesAKeyThatNoCounterCanFollow) {
    HostileFiles files;
    EXPECT_EQ(files.Open(FileOfTasks(TaskText("32767", "0", "1")), "the last key").recorded, "");
    EXPECT_EQ(files.tasks().Count(), 1);
    for (const char* key : {"32768", "2147483647"}) {
        EXPECT_EQ(files.Open(FileOfTasks(TaskText(key, "0", "1")), key).recorded, "TasksCol/FromXmlInt 6\n");
        EXPECT_EQ(files.tasks().Count(), 0);
    }
    EXPECT_EQ(files.Open(FileOfTasks(TaskText("99999999999999999999", "0", "1")), "huge").recorded,
              "TasksCol/FromXmlInt 6\n");
    EXPECT_EQ(files.Open(FileOfTasks(TaskText("1e300", "0", "1")), "1e300").recorded, "TasksCol/FromXmlInt 6\n");
    EXPECT_EQ(files.Open(FileOfTasks(TaskText("nan", "0", "1")), "nan").recorded, "TasksCol/FromXmlInt 13\n");
}

TEST(LoadDamagedOutline, TakesKeysBelowOneAndRowsThatAreNone) {
    HostileFiles files;
    EXPECT_EQ(files.Open(FileOfTasks(TaskText("0", "0", "1")), "key 0").loaded, True);
    EXPECT_EQ(files.tasks().Count(True), 1);
    EXPECT_EQ(files.Open(FileOfTasks(TaskText("-5", "0", "1") + TaskText("2", "-5", "2")), "key -5").loaded, True);
    EXPECT_EQ(files.tasks().Count(True), 2);
    for (const char* row : {"-1", "-2147483648", "0", "2147483647", "40000"}) {
        SCOPED_TRACE(row);
        EXPECT_EQ(
            files.Open(FileOfTasks(TaskText("1", "0", row) + TaskText("2", "1", row) + TaskText("3", "1", "1")), row)
                .loaded,
            True);
        EXPECT_EQ(files.tasks().Count(True), 3);
    }
}

TEST(LoadDamagedOutline, NumbersRowsAnewThatAreNegative) {
    HostileFiles files;
    files.Open(FileOfTasks(TaskText("1", "0", "-7") + TaskText("2", "0", "-1") + TaskText("3", "0", "-3")), "rows");
    EXPECT_EQ(files.tasks().Item("1")->TaskPosition(), 1);
    EXPECT_EQ(files.tasks().Item("3")->TaskPosition(), 2);
    EXPECT_EQ(files.tasks().Item("2")->TaskPosition(), 3);
}

/// The name in a tag, with the slash of one that closes.
String NameIn(std::string_view tag) {
    return String(tag.substr(1, tag.find_first_of(" >", 1) - 1));
}

/// Once between each two tags that stand side by side somewhere.
TEST(LoadDamagedOutline, WithAnUnknownElementAnywhereIsReadAsFarAsItGoes) {
    WholeProject plan;
    ASSERT_EQ(plan.SaveAs("whole.prx"), True);
    const String whole = plan.platform.Read("whole.prx");
    HostileFiles files;
    std::set<std::pair<String, String>> tried;
    for (std::size_t at = whole.find("><"); at != String::npos; at = whole.find("><", at + 1)) {
        const String before = NameIn(std::string_view(whole).substr(whole.rfind('<', at)));
        const String behind = NameIn(std::string_view(whole).substr(at + 1));
        if (!tried.emplace(before, behind).second) continue;
        SCOPED_TRACE("between " + before + " and " + behind);
        String bytes = whole;
        bytes.insert(at + 1, "<Unknown a='1'>\n <More/> text</Unknown>");
        const bool outside = at < whole.find("<Project>");
        EXPECT_EQ(files.Open(bytes, "an unknown element").loaded, Boolean(!outside));
    }
    EXPECT_GT(tried.size(), 100U);
}

TEST(LoadDamagedOutline, LeavesTheFieldsBehindAnUnknownElementAtTheirDefaults) {
    HostileFiles files;
    String first = TaskText("1", "0", "1");
    first.insert(first.find("<TaskBDate>"), "<Unknown/>");
    EXPECT_EQ(files.Open(FileOfTasks(first + TaskText("2", "0", "2")), "inside a task").recorded, "");
    const auto task = files.tasks().Item("1");
    EXPECT_EQ(task->TaskName(), "T1");
    EXPECT_EQ(task->TaskBDate(), Date());
    EXPECT_EQ(files.tasks().Item("2")->TaskBDate(), Monday);

    EXPECT_EQ(files.Open(FileOfTasks(TaskText("1", "0", "1") + "<Unknown/>" + TaskText("2", "0", "2")), "between tasks")
                  .recorded,
              "");
    EXPECT_EQ(files.tasks().Count(True), 1) << "the section ends there";
}

TEST(LoadDamagedOutline, OfThirtyThousandNestedTasksEndsOnASmallStack) {
    constexpr int kDepth = 30000;
    static_assert(kDepth < kMostKeys);
    String tasks;
    for (int key = 1; key <= kDepth; ++key) tasks += TaskText(Text(key), Text(key - 1), Text(key));
    dom::OnSmallStack([&] {
        const TimeLimit limit("thirty thousand nested tasks", std::chrono::seconds(100));
        Plan plan;
        plan.platform.Write("deep.prx", FileOfTasks(tasks));
        plan.app->xFileName(plan.platform.Path("deep.prx"));
        EXPECT_EQ(plan.app->LoadXML(), True);
        EXPECT_EQ(plan.col().Count(), kDepth);
        EXPECT_EQ(plan.col().GetLevel(Text(kDepth)), kDepth - 1);
        EXPECT_EQ(plan.col().GetTaskAndSubNumber("1"), kDepth);
        EXPECT_EQ(plan.col().GetFirstLevelParentPosKey(Text(kDepth), True), "1");
        EXPECT_EQ(plan.col().CanbeLeveled("1", ""), False);
        plan.col().AdjustSummary(Text(kDepth - 1));
        plan.col().AdjustCost(Text(kDepth - 1));
        plan.app->xFileName(plan.platform.Path("again.prx"));
        EXPECT_EQ(plan.app->SaveXml(), True);
        plan.app->endreadonly();
        EXPECT_EQ(plan.app->LoadXML(), True);
        EXPECT_EQ(plan.col().GetLevel(Text(kDepth)), kDepth - 1);
        plan.app->endreadonly();
    });
}

}  // namespace
}  // namespace mrlxmlclass
