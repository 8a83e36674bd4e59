#include <gtest/gtest.h>

#include "tests/prx/PlanFolder.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design, 3 Build, 4 Test, each waits for the one before); one text of the file replaced.
class Links : public testing::Test {
protected:
    Links() {
        plan_.Output({"new", "a.prx"});
        plan_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        for (const char* name : {"Design", "Build", "Test"}) {
            plan_.Output({"add", "a.prx", name, "--under", "Phase", "--start", "2026-03-02", "--duration", "3"});
        }
        plan_.Output({"link", "a.prx", "Build", "Design", "--lag", "2"});
        plan_.Output({"link", "a.prx", "Test", "Build"});
        plan_.Output({"check", "a.prx"});
        days_ = plan_.Days("Design") + plan_.Days("Build") + plan_.Days("Test");
    }

    void Damage(const std::string& from, const std::string& to) const {
        const std::string whole = plan_.Read("a.prx");
        plan_.Write("a.prx", Replaced(whole, from, to));
        EXPECT_NE(plan_.Read("a.prx"), whole) << from << "\n" << whole;
    }
    /// What check finds, and that a repair mends it in a new file alone.
    void ExpectMended(const std::string& fault, const std::string& how) const {
        const std::string before = plan_.Read("a.prx");
        const Result found = plan_.Prx({"check", "a.prx"});
        EXPECT_EQ(found.status, 1);
        EXPECT_EQ(found.out, "Linked wrongly; --repair mends it in a new file:\n  " + fault + "\n");
        EXPECT_EQ(plan_.Output({"check", "a.prx", "--repair", "b.prx"}),
                  "Mended:\n  " + fault + ": " + how + "\n" + plan_.Path("b.prx") + ": written\n");
        EXPECT_EQ(plan_.Read("a.prx"), before);
        plan_.Output({"check", "b.prx"});
        plan_.Write("a.prx", plan_.Read("b.prx"));
        EXPECT_EQ(plan_.Days("Design") + plan_.Days("Build") + plan_.Days("Test"), days_) << "no day moves";
    }

    std::string days_;
    const PlanFolder plan_;
};

/// With a lead time that tells no days.
class LinksWithoutDays : public Links, public testing::WithParamInterface<const char*> {
protected:
    LinksWithoutDays() {
        Damage("<TaskLeadTime>2|2</TaskLeadTime>", std::string("<TaskLeadTime>") + GetParam() + "</TaskLeadTime>");
    }
};

}  // namespace

TEST_F(Links, ToAPredecessorThatIsGone) {
    Damage("<TaskPredecessor>2</TaskPredecessor>", "<TaskPredecessor>2;500</TaskPredecessor>");
    ExpectMended("task 3 \"Build\" waits for task 500, which is not there", "taken off");
    EXPECT_EQ(plan_.Predecessors("Build"), "2");
}

TEST_F(Links, ToASuccessorThatIsGone) {
    Damage("<TaskSuccessor>4</TaskSuccessor>", "<TaskSuccessor>4;500</TaskSuccessor>");
    ExpectMended("task 3 \"Build\" lists task 500, which is not there", "taken off");
}

TEST_F(Links, ThatOnlyTheSuccessorKnows) {
    Damage("<TaskSuccessor>4</TaskSuccessor>", "");
    ExpectMended("task 4 \"Test\" waits for task 3 \"Build\", which does not list it", "put on");
    EXPECT_NE(plan_.Read("b.prx").find("<TaskSuccessor>4</TaskSuccessor>"), std::string::npos);
}

TEST_F(Links, ThatOnlyThePredecessorKnows) {
    Damage("<TaskSuccessor>3</TaskSuccessor>", "<TaskSuccessor>3;4</TaskSuccessor>");
    ExpectMended("task 2 \"Design\" lists task 4 \"Test\", which does not wait for it", "taken off");
}

TEST_F(Links, OfWhichOnlyALeadTimeIsLeft) {
    Damage("<TaskLeadTime>2|2</TaskLeadTime>", "<TaskLeadTime>2|2;1|7</TaskLeadTime>");
    ExpectMended("task 3 \"Build\" keeps a lead time for task 1, for which it does not wait", "taken out");
    EXPECT_NE(plan_.Read("b.prx").find("<TaskLeadTime>2|2</TaskLeadTime>"), std::string::npos);
}

TEST_P(LinksWithoutDays, AreMeasuredAnew) {
    ExpectMended(std::string("task 3 \"Build\" keeps the lead time \"") + GetParam() +
                     "\" for task 2, which is no number of days",
                 "measured anew");
    EXPECT_NE(plan_.Read("b.prx").find("<TaskLeadTime>2|2</TaskLeadTime>"), std::string::npos);
    plan_.Edit({"set", "Design", "duration=7"});
}

TEST_P(LinksWithoutDays, AreMeasuredAnewBeforeAForcedEdit) {
    plan_.Output({"set", "a.prx", "Design", "duration=7", "--force"});
    plan_.Output({"check", "a.prx"});
    EXPECT_NE(plan_.Read("a.prx").find("<TaskLeadTime>2|2</TaskLeadTime>"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Texts, LinksWithoutDays, testing::Values("2|x", "2", "2|", "2|99999"));

TEST_F(Links, WithoutALeadTimeAreMeasuredAnew) {
    Damage("<TaskLeadTime>2|2</TaskLeadTime>", "<TaskLeadTime/>");
    ExpectMended("task 3 \"Build\" keeps no lead time for task 2, for which it waits", "measured anew");
    EXPECT_TRUE(Has(plan_.Read("b.prx"), "<TaskLeadTime>2|2</TaskLeadTime>"));
}

TEST_F(Links, WithoutALeadTimeKeepTheirGapThroughAnEdit) {
    Damage("<TaskLeadTime>2|2</TaskLeadTime>", "<TaskLeadTime/>");
    const Result edited = plan_.Prx({"set", "a.prx", "Design", "duration=4"});
    EXPECT_EQ(edited.status, 0);
    EXPECT_TRUE(Has(edited.err, "task 3 \"Build\" keeps no lead time for task 2, for which it waits: measured anew\n"))
        << edited.err;
    EXPECT_EQ(plan_.Days("Build"), "2026-03-10 2026-03-12");
    EXPECT_TRUE(Has(plan_.Read("a.prx"), "<TaskLeadTime>2|2</TaskLeadTime>"));
}

TEST_F(Links, HaveALeadTimeWhereTheyBridgeOverATask) {
    for (const char* name : {"First", "Other", "Middle", "Last"}) plan_.Edit({"add", name, "--start", "2026-03-02"});
    plan_.Edit({"link", "Middle", "First"});
    plan_.Edit({"link", "Last", "Other", "--lag", "4"});
    plan_.Edit({"link", "Last", "Middle", "--lag", "9"});
    plan_.Edit({"remove", "Middle"});
    EXPECT_EQ(plan_.Predecessors("Last"), "5 6");
    EXPECT_TRUE(Has(plan_.Read("a.prx"), "<TaskLeadTime>5|10;6|10</TaskLeadTime>"));
}

TEST_F(Links, HaveTheLeadTimeThatTheirDatesTell) {
    plan_.Edit({"add", "Month", "--start", "2026-12-10", "--duration", "1mons"});
    plan_.Edit({"add", "Next", "--start", "2027-01-12"});
    plan_.Edit({"link", "Next", "Month"});
    EXPECT_EQ(plan_.Days("Month"), "2026-12-10 2027-01-10") << "a Sunday";
    EXPECT_TRUE(Has(plan_.Row("Next"), R"("predecessors": [{"key": 5, "lag": 1}])")) << plan_.Row("Next");
    plan_.Edit({"set", "Month", "start=2026-12-11"});
    EXPECT_EQ(plan_.Days("Next"), "2027-01-13 2027-01-13");
}

TEST_F(Links, KeepTheLeadTimeThatTheirDatesTellWhereAWalkStoresAnother) {
    plan_.Edit({"add", "Month", "--start", "2027-01-28", "--duration", "1mon"});
    plan_.Edit({"add", "Next", "--start", "2027-03-01", "--duration", "2"});
    plan_.Edit({"link", "Next", "Month"});
    EXPECT_EQ(plan_.Days("Month"), "2027-01-28 2027-02-28") << "a Sunday";
    for (const char* start : {"start=2027-01-29", "start=2027-01-28"}) {
        plan_.Edit({"set", "Month", start});
        EXPECT_TRUE(Has(plan_.Row("Next"), R"("lag": 0}])")) << plan_.Row("Next");
        EXPECT_EQ(plan_.Days("Next"), "2027-03-01 2027-03-02") << start;
    }
    plan_.Edit({"calendar", "--holiday", "2027-03-01"});
    EXPECT_EQ(plan_.Days("Next"), "2027-03-01 2027-03-02");
    EXPECT_TRUE(Has(plan_.Row("Next"), R"("lag": 0}])")) << plan_.Row("Next");
}

TEST_F(Links, HaveTheLeadTimeOfAChangedCalendar) {
    const std::string before = plan_.Row("Build");
    ASSERT_TRUE(Has(before, R"("predecessors": [{"key": 2, "lag": 2}])")) << before;
    ASSERT_EQ(plan_.Days("Build"), "2026-03-09 2026-03-11");
    plan_.Edit({"calendar", "--holiday", "2026-03-05"});
    EXPECT_EQ(plan_.Days("Build"), "2026-03-09 2026-03-11");
    EXPECT_TRUE(Has(plan_.Row("Build"), R"("predecessors": [{"key": 2, "lag": 1}])")) << plan_.Row("Build");
}

TEST_F(Links, ThatAnEditLeavesAloneKeepTheirLeadTimes) {
    const std::string whole = plan_.Read("a.prx");
    plan_.Write("a.prx", Replaced(whole, "<TaskLeadTime>2|2</TaskLeadTime>", "<TaskLeadTime>2|5</TaskLeadTime>"));
    plan_.Edit({"set", "Test", "name=Trial"});
    EXPECT_TRUE(Has(plan_.Read("a.prx"), "<TaskLeadTime>2|5</TaskLeadTime>"));
}

TEST_F(Links, WhoseOtherLeadTimesStay) {
    plan_.Output({"link", "a.prx", "Test", "Design", "--lag", "9"});
    Damage("<TaskLeadTime>2|9;3|4<", "<TaskLeadTime>2|x;3|4<");
    plan_.Output({"check", "a.prx", "--repair", "b.prx"});
    EXPECT_NE(plan_.Read("b.prx").find("<TaskLeadTime>3|4;2|9<"), std::string::npos) << plan_.Read("b.prx");
}

TEST_F(Links, OfWhichALeadTimeIsLeftThatNamesNoTask) {
    Damage("<TaskLeadTime>2|2</TaskLeadTime>", "<TaskLeadTime>2|2;|7</TaskLeadTime>");
    ExpectMended("task 3 \"Build\" keeps a lead time for no task, for which it does not wait", "taken out");
}

TEST_F(Links, OfATaskToItself) {
    Damage("<TaskSuccessor>3</TaskSuccessor>",
           "<TaskSuccessor>3;2</TaskSuccessor><TaskPredecessor>2</TaskPredecessor>");
    ExpectMended("task 2 \"Design\" waits for itself", "taken off");
    EXPECT_NE(plan_.Read("b.prx").find("<TaskSuccessor>3</TaskSuccessor>"), std::string::npos);
    plan_.Refused({"link", "Design", "Design"});
}

TEST_F(Links, OfTwoTasksThatWaitForEachOther) {
    Damage("<TaskSuccessor>3</TaskSuccessor>", "<TaskSuccessor>3</TaskSuccessor><TaskPredecessor>3</TaskPredecessor>");
    Damage("<TaskSuccessor>4</TaskSuccessor>", "<TaskSuccessor>4;2</TaskSuccessor>");
    ExpectMended("task 2 \"Design\" waits for task 3 \"Build\", which waits for it", "taken off");
    EXPECT_EQ(plan_.Predecessors("Build"), "2");
    plan_.Refused({"link", "Design", "Build"});
}

TEST_F(Links, OfTwoTasksThatWaitForEachOtherAndOneOfThemKnows) {
    Damage("<TaskSuccessor>3</TaskSuccessor>", "");
    Damage("<TaskSuccessor>4</TaskSuccessor>", "<TaskSuccessor>4;2</TaskSuccessor>");
    Damage("<TaskLeadTime/><TaskPosition>2<",
           "<TaskPredecessor>3</TaskPredecessor><TaskLeadTime>3|0</TaskLeadTime><TaskPosition>2<");
    Damage("<TaskLeadTime>2|2</TaskLeadTime>", "<TaskLeadTime/>");
    ExpectMended("task 3 \"Build\" waits for task 2 \"Design\", which waits for it", "taken off");
    EXPECT_EQ(plan_.Predecessors("Design"), "3");
}

TEST_F(Links, OfOneSideToATaskThatWaitsAlready) {
    Damage("<TaskSuccessor>3</TaskSuccessor>", "<TaskSuccessor>3</TaskSuccessor><TaskPredecessor>3</TaskPredecessor>");
    ExpectMended("task 2 \"Design\" waits for task 3 \"Build\", which waits for it", "taken off");
}

TEST_F(Links, OfASummaryToItsChild) {
    Damage("<TaskLeadTime/><TaskPosition>1<", "<TaskPredecessor>4</TaskPredecessor><TaskLeadTime/><TaskPosition>1<");
    ExpectMended("task 1 \"Phase\" waits for task 4 \"Test\", which stands below it", "taken off");
    plan_.Refused({"link", "Phase", "Test"});
}

TEST_F(Links, OfASummaryToWhatStandsFurtherBelowIt) {
    plan_.Output({"add", "a.prx", "Part", "--under", "Test", "--start", "2026-03-16", "--duration", "3"});
    plan_.Output({"check", "a.prx"});
    Damage("<TaskLeadTime/><TaskPosition>1<",
           "<TaskPredecessor>5</TaskPredecessor><TaskLeadTime>5|0</TaskLeadTime><TaskPosition>1<");
    const std::string fault = "task 1 \"Phase\" waits for task 5 \"Part\", which stands below it";

    EXPECT_TRUE(Has(plan_.Prx({"check", "a.prx"}).out, "  " + fault + "\n"));
    EXPECT_TRUE(Has(plan_.Output({"check", "a.prx", "--repair", "b.prx"}), "  " + fault + ": taken off\n"));
    plan_.Output({"check", "b.prx"});
}

TEST_F(Links, OfATaskWhoseRecordIsLost) {
    const std::string whole = plan_.Read("a.prx");
    const std::size_t key = whole.find("<TaskKey>3</TaskKey>");
    const std::size_t from = whole.rfind("<Task>", key);
    plan_.Write("a.prx", whole.substr(0, from) + whole.substr(whole.find("</Task>", key) + 7));

    const Result result = plan_.Prx({"check", "a.prx", "--repair", "b.prx"});

    EXPECT_EQ(result.status, 0) << result.out << result.err;
    EXPECT_NE(result.out.find("task 2 \"Design\" lists task 3, which is not there: taken off"), std::string::npos);
    EXPECT_NE(result.out.find("task 4 \"Test\" waits for task 3, which is not there: taken off"), std::string::npos);
    plan_.Output({"check", "b.prx"});
    EXPECT_EQ(plan_.Read("b.prx").find("<TaskPredecessor>3<"), std::string::npos);
}

TEST_F(Links, StayInOrderThroughEdits) {
    for (const std::vector<std::string>& edit :
         std::vector<std::vector<std::string>>{{"move", "Test", "--up"},
                                               {"shift", "7"},
                                               {"unlink", "Test", "Build"},
                                               {"link", "Test", "Design", "--lag", "-1"},
                                               {"unlink", "Test", "Design"},
                                               {"link", "Test", "Build", "--lag", "3"},
                                               {"outdent", "Build"},
                                               {"remove", "Build"},
                                               {"remove", "Phase"}}) {
        plan_.Edit(edit);
        EXPECT_EQ(plan_.Prx({"check", "a.prx"}).status, 0) << edit[0] << " " << edit[1];
    }
}

TEST_F(Links, ThatAreDamagedAreMendedBeforeAForcedEdit) {
    Damage("<TaskPredecessor>2</TaskPredecessor>", "<TaskPredecessor>2;500</TaskPredecessor>");
    plan_.Output({"rename", "a.prx", "Design", "Draw", "--force"});
    plan_.Output({"check", "a.prx"});
}

}  // namespace prx_test
