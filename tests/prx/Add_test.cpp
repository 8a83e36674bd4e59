#include <gtest/gtest.h>

#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

/// Three tasks: 1 Phase (2 Design), 3 Later.
class Add : public testing::Test {
protected:
    Add() {
        folder_.Output({"new", "a.prx"});
        folder_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        folder_.Output({"add", "a.prx", "Design", "--under", "1", "--start", "2026-03-02", "--duration", "5"});
        folder_.Output({"add", "a.prx", "Later", "--start", "2026-05-04"});
    }
    /// Names in the order of their rows, indented.
    std::string Names() const {
        const std::string json = folder_.Output({"show", "--json", "a.prx"});
        std::string names;
        for (std::size_t at = json.find("\"level\": "); at != std::string::npos;
             at = json.find("\"level\": ", at + 1)) {
            const std::size_t name = json.find("\"name\": \"", at) + 9;
            names += std::string(static_cast<std::size_t>(json[at + 9] - '0') * 2, ' ') +
                     json.substr(name, json.find('"', name) - name) + "\n";
        }
        return names;
    }

    const Folder folder_;
};

}  // namespace

TEST_F(Add, TellsTheKeyAndEveryEvent) {
    EXPECT_EQ(
        folder_.Output({"add", "a.prx", "Build", "--under", "Phase", "--start", "2026-03-09", "--duration", "2d"}),
        "Task 4 added in row 3\n"
        "TaskInserted(4, 1, 3)\n"
        "TaskNameChanged(4, Build)\n"
        "DateStartChange(4, 2026-03-09, False, False)\n"
        "DateEndChange(4, 2026-03-10, False, False, days)\n"
        "DurationChange(4, 2, days, False, False)\n"
        "TaskDurationChange(4, 2, days, False, False)\n"
        "DurationChange(1, 7, days, False, True)\n"
        "TaskDurationChange(1, 7, days, False, True)\n"
        "DateEndChange(1, 2026-03-10, False, True, days)\n"
        "DateStartChange(1, 2026-03-02, False, True)\n"
        "RoolUpCostChange(4, 0)\n"
        "RoolUpCostChange(1, 0)\n");
}

TEST_F(Add, PutsATaskLastBelowItsParent) {
    folder_.Output({"add", "a.prx", "Build", "--under", "Phase"});
    folder_.Output({"add", "a.prx", "Sketch", "--under", "Design"});
    folder_.Output({"add", "a.prx", "Test", "--under", "#1"});

    EXPECT_EQ(Names(), "Phase\n  Design\n    Sketch\n  Build\n  Test\nLater\n");
    folder_.Output({"check", "a.prx"});
}

TEST_F(Add, PutsATaskBehindASiblingAndAllBelowIt) {
    folder_.Output({"add", "a.prx", "Middle", "--after", "Phase"});
    folder_.Output({"add", "a.prx", "Build", "--after", "Design"});
    folder_.Output({"add", "a.prx", "Last", "--after", "Later"});

    EXPECT_EQ(Names(), "Phase\n  Design\n  Build\nMiddle\nLater\nLast\n");
    folder_.Output({"check", "a.prx"});
}

TEST_F(Add, MakesAParentOfALeaf) {
    folder_.Output({"add", "a.prx", "Inside", "--under", "Later", "--start", "2026-06-01", "--cost", "70"});

    EXPECT_NE(folder_.Output({"show", "a.prx"}).find("3    3  Later     2026-06-01  2026-06-01    1 days          70"),
              std::string::npos);
}

TEST_F(Add, TellsWhatALeafLosesThatBecomesASummary) {
    folder_.Output({"add", "a.prx", "Build", "--under", "Phase", "--start", "2026-03-09"});
    folder_.Output({"link", "a.prx", "Build", "Design"});
    folder_.Output({"cost", "a.prx", "Design", "70"});

    const Result result = folder_.Prx({"add", "a.prx", "Sketch", "--under", "Design"});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "prx: task 4 \"Build\" no longer waits for task 2 \"Design\", which is a summary now\n"
              "prx: \"Design\" cost 70; as a summary it costs what the tasks below it cost\n");
    const std::string json = folder_.Output({"show", "--json", "a.prx"});
    const std::size_t build = json.find(R"("name": "Build")");
    EXPECT_TRUE(Has(json.substr(build, json.find('\n', build) - build), R"("predecessors": [])")) << json;
    folder_.Output({"check", "a.prx"});
    EXPECT_EQ(folder_.Prx({"add", "a.prx", "Draw", "--under", "Design"}).err, "");
}

TEST_F(Add, TakesNoLengthOfAMilestone) {
    for (const char* option : {"--duration=5", "--end=2026-03-09", "--unit=wks"}) {
        EXPECT_TRUE(Has(folder_.Refusal({"add", "a.prx", "X", "--milestone", option}), "a milestone is a day"))
            << option;
    }
}

TEST_F(Add, TakesNoEndOnAFreeDayAndNoLengthThatSetWouldRefuse) {
    for (const char* place : {"Phase", "Design"}) {
        SCOPED_TRACE(place);
        for (const char* end : {"2026-06-06", "2026-06-07"}) {
            EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--start", "2026-06-05", "--end", end, "--after", place}),
                      std::string("prx: end=") + end + " was not taken: it is not a working day\n");
        }
        EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--duration", "1000", "--after", place}),
                  "prx: duration=1000 was not taken: 999 days are the longest\n");
        EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--duration", "1000", "--unit=hrs", "--after", place}),
                  "prx: duration=1000hrs was not taken: 999 hrs are the longest\n");
    }
}

TEST_F(Add, SaysInOneLineWhichDayItCannotTake) {
    EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--start", "1999-12-31"}),
              "prx: start=1999-12-31 was not taken: the year is out of range\n");
    EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--under", "Phase", "--end", "2026-02-27"}),
              "prx: end=2026-02-27 was not taken: the task starts on 2026-03-02 where no start is given\n");
}

TEST_F(Add, MakesAMilestoneOfALengthOfNone) {
    folder_.Output({"add", "a.prx", "X", "--start", "2026-03-09", "--duration", "0"});
    EXPECT_TRUE(Has(folder_.Output({"show", "a.prx"}), "X         2026-03-09  2026-03-09  milestone"));
}

TEST_F(Add, FindsATaskWhoseNameBeginsWithTheSignOfARow) {
    folder_.Output({"add", "a.prx", "#5 pump"});
    folder_.Output({"add", "a.prx", "X", "--under", "#5 pump"});
    EXPECT_EQ(Names(), "Phase\n  Design\nLater\n#5 pump\n  X\n");
}

TEST_F(Add, RefusesAPlaceThatIsNotThere) {
    EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--under", "Nobody"}), "prx: there is no task \"Nobody\"\n");
    EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--under", "99"}), "prx: there is no task \"99\"\n");
    EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--after", "#9"}), "prx: there is no task \"#9\"\n");
    EXPECT_NE(folder_.Refusal({"add", "a.prx", "X", "--after", "#x"}), "");
    EXPECT_NE(folder_.Refusal({"add", "a.prx", "X", "--after", "1", "--under", "1"}), "");
}

TEST_F(Add, RefusesANameThatTwoTasksHave) {
    folder_.Output({"add", "a.prx", "Design", "--under", "Later"});

    EXPECT_NE(folder_.Refusal({"add", "a.prx", "X", "--under", "Design"}).find("more than one task \"Design\""),
              std::string::npos);
}

TEST_F(Add, RefusesNamesThatAProjectCannotHold) {
    const std::string before = folder_.Read("a.prx");

    for (const std::string& name : {std::string(), std::string("  "), std::string("a\nb"), std::string("\xFF"),
                                    std::string("\x01"), std::string(161, 'x')}) {
        EXPECT_NE(folder_.Refusal({"add", "a.prx", name}), "");
    }

    EXPECT_EQ(folder_.Read("a.prx"), before);
}

TEST_F(Add, RefusesAnEndBeforeTheStart) {
    EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--start", "2026-03-10", "--end", "2026-03-09"}),
              "prx: end=2026-03-09 was not taken: the task starts on 2026-03-10\n");
}

TEST_F(Add, StopsAtTheDepthThatAPlanCanHave) {
    std::string parent = "Later";
    int added = 0;
    for (; added < 20; ++added) {
        const std::string name = "Level " + std::to_string(added);
        if (folder_.Prx({"add", "a.prx", name, "--under", parent}).status != 0) break;
        parent = name;
    }
    EXPECT_GE(added, 8);
    EXPECT_LT(added, 12);
    folder_.Output({"check", "a.prx"});
}

}  // namespace prx_test
