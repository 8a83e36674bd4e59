#include <fmt/core.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// A plan of three levels whose tasks are linked across them.
class Summaries : public testing::Test {
protected:
    Summaries() { plan_.CopyExample("house.prx", "a.prx"); }

    void Damage(const std::string& from, const std::string& to) const {
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, from, to));
        EXPECT_NE(plan_.Read("a.prx"), whole) << from;
    }
    /// What a command prints that finds faults.
    std::string Faults(const std::vector<std::string>& arguments) const {
        const Result result = plan_.Prx(arguments);
        EXPECT_EQ(result.status, 1) << result.out << result.err;
        return result.out;
    }
    const PlanFolder plan_;
};

const std::string kServices =
    "<TaskName>Services</TaskName><TaskBDate>8/10/2026</TaskBDate><TaskEDate>11/2/2026</TaskEDate>"
    "<TaskDuration>62</TaskDuration><TaskLag>0</TaskLag><TaskDurationUnit>days<";

}  // namespace

TEST_F(Summaries, SpanTheirTasksWhateverMovesAlong) {
    for (const std::vector<std::string>& edit : {std::vector<std::string>{"set", "15", "start=2026-06-15"},
                                                 {"set", "15", "duration=20"},
                                                 {"remove", "52"},
                                                 {"shift", "1"},
                                                 {"indent", "3"},
                                                 {"milestone", "2"},
                                                 {"link", "25", "49"},
                                                 {"move", "3", "--under", "19"}}) {
        SCOPED_TRACE(edit.front());
        plan_.CopyExample("house.prx", "a.prx");
        plan_.Edit(edit);
    }
}

TEST_F(Summaries, FollowFromTheDeepestUp) {
    const std::string events = plan_.Edit({"set", "15", "start=2026-06-15"});

    EXPECT_EQ(plan_.Days("Plumbing"), "2026-09-14 2026-12-04");
    const std::size_t plumbing = events.rfind("DateStartChange(39, 2026-09-14, False, True)\n");
    ASSERT_NE(plumbing, std::string::npos) << events;
    EXPECT_NE(events.find("DateStartChange(38, ", plumbing), std::string::npos) << events;
}

TEST_F(Summaries, AreNotToldWhereNothingIsWrong) {
    EXPECT_EQ(plan_.Edit({"done", "3", "5"}), "CompletedChange(3, 5)\n");
}

TEST_F(Summaries, AreCheckedAndRepaired) {
    Damage("<TaskName>Plumbing</TaskName><TaskBDate>8/10/2026</TaskBDate>",
           "<TaskName>Plumbing</TaskName><TaskBDate>8/3/2026</TaskBDate>");
    Damage("<TaskCost>41600</TaskCost>", "<TaskCost>5</TaskCost>");
    const std::string services =
        "  task 38 \"Services\" runs from 2026-08-10 to 2026-11-02, the tasks below it from 2026-08-03 to 2026-11-02";
    const std::string cost = "  task 38 \"Services\" costs 5, the tasks below it 41600";
    const std::string plumbing =
        "  task 39 \"Plumbing\" runs from 2026-08-03 to 2026-10-29, the tasks below it from 2026-08-10 to 2026-10-29";

    EXPECT_EQ(Faults({"check", "a.prx"}),
              "Added up wrongly; --repair mends it in a new file:\n" + services + "\n" + cost + "\n" + plumbing + "\n");

    const std::string mended = ": added up anew\n";
    EXPECT_EQ(
        plan_.Output({"check", "a.prx", "--repair", "b.prx"}),
        "Mended:\n" + services + mended + cost + mended + plumbing + mended + plan_.Path("b.prx") + ": written\n");
    plan_.Output({"check", "b.prx"});
    plan_.Write("a.prx", plan_.Read("b.prx"));
    EXPECT_EQ(plan_.WrongSummaries(), "");
    EXPECT_EQ(plan_.Days("Plumbing"), "2026-08-10 2026-10-29");
}

TEST_F(Summaries, AreMendedByAnyEdit) {
    Damage("<TaskCost>41600</TaskCost>", "<TaskCost>5</TaskCost>");
    EXPECT_EQ(plan_.Edit({"done", "3", "5"}), "CompletedChange(3, 5)\nRoolUpCostChange(38, 41600)\n");
}

TEST_F(Summaries, AreNotWaitedFor) {
    Damage("<TaskSuccessor>22</TaskSuccessor>", "");
    Damage("<TaskPredecessor>21</TaskPredecessor><TaskLeadTime>21|0</TaskLeadTime>",
           "<TaskPredecessor>19</TaskPredecessor><TaskLeadTime>19|0</TaskLeadTime>");
    const std::string fault =
        "  task 22 \"Pour the concrete\" waits for task 19 \"Foundation slab\", which is a summary";
    EXPECT_TRUE(Has(Faults({"check", "a.prx"}), fault + "\n"));
    EXPECT_TRUE(Has(plan_.Output({"check", "a.prx", "--repair", "b.prx"}), fault + ": taken off\n"));
    plan_.Output({"check", "b.prx"});
}

TEST_F(Summaries, CountInDaysWhateverTheyCountedInBefore) {
    for (const char* length : {"8hrs", "30mins", "2wks", "1mons"}) {
        for (const std::vector<std::string>& edit :
             {std::vector<std::string>{"add", "X", "--under", "58", "--start", "2026-11-17", "--duration", "30"},
              {"indent", "60"},
              {"move", "60", "--under", "58"}}) {
            SCOPED_TRACE(length + edit.front());
            plan_.CopyExample("house.prx", "a.prx");
            plan_.Edit({"set", "58", std::string("duration=") + length});
            plan_.Edit({"move", "60", "--after", "58"});
            plan_.Edit(edit);
            EXPECT_TRUE(Has(plan_.Row("Lawn and hedges"), "\"unit\": \"days\"")) << plan_.Row("Lawn and hedges");
        }
    }
}

TEST_F(Summaries, OfHoursArePutRight) {
    Damage(kServices, Replaced(kServices, "days", "hrs"));
    const std::string fault = "  task 38 \"Services\" counts in hrs, a summary in days";
    EXPECT_EQ(Faults({"check", "a.prx"}), "Added up wrongly; --repair mends it in a new file:\n" + fault + "\n");
    EXPECT_EQ(plan_.Output({"check", "a.prx", "--repair", "b.prx"}),
              "Mended:\n" + fault + ": added up anew\n" + plan_.Path("b.prx") + ": written\n");
    plan_.Output({"check", "b.prx"});
    plan_.Edit({"set", "41", "duration=40"});
    EXPECT_TRUE(Has(plan_.Row("Services"), "\"unit\": \"days\"")) << plan_.Row("Services");
}

TEST_F(Summaries, TakeTheDaysThatTheyRun) {
    struct Row {
        const char* from;
        const char* to;
        const char* told;
    };
    for (const Row& row : {Row{"<TaskDuration>62<", "<TaskDuration>3<", "takes 3 days"},
                           Row{"<TaskDuration>62<", "<TaskDuration>999<", "takes 999 days"},
                           Row{"<TaskMilstones>false</TaskMilstones><TaskKey>38<",
                               "<TaskMilstones>true</TaskMilstones><TaskKey>38<", "is a milestone"}}) {
        SCOPED_TRACE(row.told);
        plan_.CopyExample("house.prx", "a.prx");
        Damage(row.from, row.to);
        const std::string fault = fmt::format("  task 38 \"Services\" {}, from 2026-08-10 to 2026-11-02", row.told);
        EXPECT_EQ(Faults({"check", "a.prx"}), "Added up wrongly; --repair mends it in a new file:\n" + fault + "\n");
        EXPECT_EQ(plan_.Output({"check", "a.prx", "--repair", "b.prx"}),
                  "Mended:\n" + fault + ": added up anew\n" + plan_.Path("b.prx") + ": written\n");
        plan_.Output({"check", "b.prx"});
        EXPECT_TRUE(Has(plan_.Edit({"done", "3", "5"}), "DurationChange(38, 62, days, False, True)\n"));
        std::filesystem::remove(plan_.Path("b.prx"));
    }
}

TEST_F(Summaries, CostAsMuchAsThereIsAnAmountFor) {
    plan_.Edit({"cost", "3", "900000000000000"});
    EXPECT_EQ(
        plan_.Refused({"cost", "2", "900000000000000"}),
        "prx: nothing was saved: the tasks below task 1 \"Planning and permits\" cost more than can be added up\n");
    plan_.Edit({"cost", "57", "900000000000000"});
    EXPECT_EQ(
        plan_.Refused({"move", "57", "--under", "1"}),
        "prx: nothing was saved: the tasks below task 1 \"Planning and permits\" cost more than can be added up\n");
}

TEST_F(Summaries, BeyondAllAmountsAreTold) {
    plan_.Edit({"cost", "3", "900000000000000"});
    Damage("<TaskCost>1800</TaskCost>", "<TaskCost>900000000000000</TaskCost>");
    const std::string told =
        "Still wrong:\n  the tasks below task 1 \"Planning and permits\" cost more than can be added up\n";
    EXPECT_EQ(Faults({"check", "a.prx"}), told);
    EXPECT_EQ(Faults({"check", "a.prx", "--repair", "b.prx"}), plan_.Path("b.prx") + ": written\n" + told);
    plan_.Output({"rename", "a.prx", "2", "Survey"});
    plan_.Output({"set", "a.prx", "15", "duration=20"});
    EXPECT_EQ(Faults({"check", "a.prx"}), told);
    plan_.Edit({"cost", "3", "0"});
}

}  // namespace prx_test
