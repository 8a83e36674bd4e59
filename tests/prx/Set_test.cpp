#include <gtest/gtest.h>

#include "tests/prx/Prx.h"

namespace prx_test {
namespace {

/// 1 Phase (2 Design: Monday to Friday of the first week of March 2026).
class Set : public testing::Test {
protected:
    Set() {
        folder_.Output({"new", "a.prx"});
        folder_.Output({"add", "a.prx", "Phase", "--start", "2026-03-02"});
        folder_.Output({"add", "a.prx", "Design", "--under", "1", "--start", "2026-03-02", "--duration", "5"});
    }
    std::string Task(const std::string& key) const {
        const std::string json = folder_.Output({"show", "--json", "a.prx"});
        const std::size_t at = json.find("\"key\": " + key + ",");
        return json.substr(at, json.find('\n', at) - at);
    }
    void ExpectIn(const std::string& key, const std::string& member) const {
        EXPECT_NE(Task(key).find(member), std::string::npos) << member << " in " << Task(key);
    }

    const Folder folder_;
};

}  // namespace

TEST_F(Set, MovesATaskAndTheSummariesAbove) {
    EXPECT_EQ(folder_.Output({"set", "a.prx", "Design", "start=2026-03-09"}),
              "DateStartChange(2, 2026-03-09, False, False)\n"
              "DateEndChange(2, 2026-03-13, False, False, days)\n"
              "DurationChange(2, 5, days, False, False)\n"
              "TaskDurationChange(2, 5, days, False, False)\n"
              "DurationChange(1, 5, days, False, True)\n"
              "TaskDurationChange(1, 5, days, False, True)\n"
              "DateEndChange(1, 2026-03-13, False, True, days)\n"
              "DateStartChange(1, 2026-03-09, False, True)\n");
    ExpectIn("2", R"("start": "2026-03-09", "end": "2026-03-13", "duration": 5)");
}

TEST_F(Set, TakesEveryField) {
    folder_.Output({"set", "a.prx", "2", "name=Draft", "duration=2 wks", "done=35%", "cost=12.3456", "colour=255",
                    "start=2026-03-03"});

    ExpectIn("2", R"("name": "Draft")");
    ExpectIn("2", R"("start": "2026-03-03", "end": "2026-03-17", "duration": 2, "unit": "wks")");
    ExpectIn("2", R"("done": 35, "cost": 12.3456, "colour": 255)");
    ExpectIn("1", R"("cost": 12.3456)");
}

TEST_F(Set, MovesWhatWaitsForTheTask) {
    folder_.Output({"add", "a.prx", "Build", "--under", "1", "--start", "2026-03-09", "--duration", "2"});
    folder_.Output({"link", "a.prx", "Build", "Design"});
    struct Row {
        const char* field;
        const char* build;
    };
    for (const Row& row : {Row{"start=2026-03-03", R"("start": "2026-03-10", "end": "2026-03-11")"},
                           Row{"duration=3", R"("start": "2026-03-06", "end": "2026-03-09")"},
                           Row{"end=2026-03-12", R"("start": "2026-03-13", "end": "2026-03-16")"},
                           Row{"duration=2wks", R"("start": "2026-03-18", "end": "2026-03-19")"},
                           Row{"start=2026-03-05", R"("start": "2026-03-20", "end": "2026-03-23")"},
                           Row{"unit=days", R"("start": "2026-03-09", "end": "2026-03-10")"},
                           Row{"milestone=yes", R"("start": "2026-03-06", "end": "2026-03-09")"}}) {
        SCOPED_TRACE(row.field);
        folder_.Output({"set", "a.prx", "Design", row.field});
        ExpectIn("3", row.build);
    }
}

TEST_F(Set, KeepsPartsOfADayAndShortUnits) {
    folder_.Output({"set", "a.prx", "2", "duration=2.5"});
    ExpectIn("2", R"("duration": 2.5, "unit": "days")");

    folder_.Output({"set", "a.prx", "2", "duration=8hrs"});
    ExpectIn("2", R"("duration": 8, "unit": "hrs")");
}

TEST_F(Set, KnowsTheWordsForAUnitInAnyCase) {
    struct Row {
        const char* text;
        const char* unit;
    };
    for (const Row& row : {Row{"5 days", "days"},   {"5day", "days"},    {"5 D", "days"},   {"5DAYS", "days"},
                           Row{"5 wks", "wks"},     {"5wk", "wks"},      {"5w", "wks"},     {"5 Week", "wks"},
                           Row{"5Weeks", "wks"},    {"5mons", "mons"},   {"5 mon", "mons"}, {"5 month", "mons"},
                           Row{"5 Months", "mons"}, {"5hrs", "hrs"},     {"5 hr", "hrs"},   {"5h", "hrs"},
                           Row{"5 hour", "hrs"},    {"5 Hours", "hrs"},  {"5mins", "mins"}, {"5min", "mins"},
                           Row{"5 minute", "mins"}, {"5MINUTES", "mins"}}) {
        SCOPED_TRACE(row.text);
        folder_.Output({"set", "a.prx", "2", std::string("duration=") + row.text});
        ExpectIn("2", std::string(R"("duration": 5, "unit": ")") + row.unit + '"');
    }
}

TEST_F(Set, TakesTheLengthThatTheTableShows) {
    for (const char* length : {"1.5 wks", "2 mons", "8 hrs", "30 mins", "0.5 days"}) {
        folder_.Output({"set", "a.prx", "2", std::string("duration=") + length});
        EXPECT_TRUE(Has(folder_.Output({"show", "a.prx"}), std::string("  ") + length + "\n")) << length;
    }
}

TEST_F(Set, RefusesWhateverElseStandsBehindANumber) {
    const std::string before = folder_.Read("a.prx");
    for (const char* unit :
         {"m", "d4h", "days,3hrs", "day 3 wks", "mins2wks", "day/2", "dog", "wasser", "hund", "mx"}) {
        const std::string told = std::string("prx: \"") + unit +
                                 "\" is not a unit; there are days (day, d), wks (wk, w, week, weeks), "
                                 "mons (mon, month, months), hrs (hr, h, hour, hours), mins (min, minute, minutes)\n";
        EXPECT_EQ(folder_.Refusal({"set", "a.prx", "2", std::string("duration=5") + unit}), told);
        EXPECT_EQ(folder_.Refusal({"set", "a.prx", "2", std::string("unit=") + unit}), told);
        EXPECT_EQ(folder_.Refusal({"add", "a.prx", "X", "--duration", std::string("5") + unit}), told);
    }
    EXPECT_EQ(folder_.Read("a.prx"), before);
}

TEST_F(Set, LeavesADayThatHasBecomeFree) {
    folder_.Output({"add", "a.prx", "Party", "--start", "2026-03-10", "--duration", "2"});
    folder_.Output({"calendar", "a.prx", "--holiday", "2026-03-10"});
    const std::string plan = folder_.Read("a.prx");
    struct Row {
        const char* field;
        const char* end;
        const char* length;
    };
    for (const Row& row : {Row{"duration=1", "2026-03-11", R"(1, "unit": "days")"},
                           Row{"duration=3", "2026-03-13", R"(3, "unit": "days")"},
                           Row{"duration=0.5", "2026-03-11", R"(0.5, "unit": "days")"},
                           Row{"duration=3hrs", "2026-03-11", R"(3, "unit": "hrs")"},
                           Row{"unit=mins", "2026-03-11", R"(2, "unit": "mins")"},
                           Row{"duration=1wks", "2026-03-18", R"(1, "unit": "wks")"},
                           Row{"milestone=yes", "2026-03-11", R"(0, "unit": "days")"}}) {
        SCOPED_TRACE(row.field);
        folder_.Write("a.prx", plan);
        const Result result = folder_.Prx({"set", "a.prx", "Party", row.field});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "prx: 2026-03-10 is not a working day; the task starts on 2026-03-11\n");
        ExpectIn("3", std::string(R"("start": "2026-03-11", "end": ")") + row.end + R"(", "duration": )" + row.length);
        folder_.Output({"check", "a.prx"});
    }
    folder_.Write("a.prx", plan);
    EXPECT_EQ(folder_.Prx({"set", "a.prx", "Party", "unit=hrs", "start=2026-03-12"}).err, "");
    ExpectIn("3", R"("start": "2026-03-12", "end": "2026-03-12")");
}

TEST_F(Set, CutsNoLengthThatIsTooManyOfAnotherUnit) {
    folder_.Output({"add", "a.prx", "Long", "--start", "2026-03-02"});
    folder_.Write("a.prx", Replaced(folder_.Read("a.prx"), "<TaskDuration>1</TaskDuration>",
                                    "<TaskDuration>1200</TaskDuration>"));
    ExpectIn("3", R"("duration": 1200)");
    EXPECT_EQ(folder_.Refusal({"set", "a.prx", "Long", "unit=wks"}),
              "prx: unit=wks was not taken: 999 wks are the longest\n");
}

TEST_F(Set, EndsATaskOfLessThanADayOnItsDay) {
    for (const char* field : {"duration=0.5", "duration=0.3wks", "duration=0.9wks", "duration=0.5mons",
                              "duration=0.9mons", "duration=0.25hrs"}) {
        SCOPED_TRACE(field);
        folder_.Output({"set", "a.prx", "2", "duration=100 days"});
        folder_.Output({"set", "a.prx", "2", field});
        ExpectIn("2", R"("start": "2026-03-02", "end": "2026-03-02")");
        ExpectIn("1", R"("start": "2026-03-02", "end": "2026-03-02")");
        folder_.Output({"set", "a.prx", "2", "start=2026-03-04"});
        ExpectIn("2", R"("start": "2026-03-04", "end": "2026-03-04")");
        folder_.Output({"set", "a.prx", "2", "start=2026-03-02"});
        ExpectIn("2", R"("start": "2026-03-02", "end": "2026-03-02")");
    }
}

TEST_F(Set, MakesAMilestoneOfALengthOfNone) {
    for (const char* field : {"duration=0", "duration=0hrs", "duration=0wks"}) {
        SCOPED_TRACE(field);
        folder_.Output({"set", "a.prx", "2", "duration=5 days"});
        folder_.Output({"set", "a.prx", "2", field});
        ExpectIn("2", R"("milestone": true, "start": "2026-03-02", "end": "2026-03-02", "duration": 0)");
    }
}

TEST_F(Set, MakesAMilestoneOfATaskAtTheTop) {
    folder_.Output({"add", "a.prx", "Party", "--start", "2026-03-10", "--duration", "2"});
    folder_.Output({"set", "a.prx", "Party", "duration=0"});
    ExpectIn("3", R"("milestone": true, "start": "2026-03-10", "end": "2026-03-10", "duration": 0)");
}

TEST_F(Set, TakesNoEndOfATaskThatDoesNotCountInDays) {
    for (const char* unit : {"wks", "mons", "hrs", "mins"}) {
        SCOPED_TRACE(unit);
        folder_.Output({"set", "a.prx", "2", "duration=2" + std::string(unit)});
        EXPECT_EQ(folder_.Refusal({"set", "a.prx", "2", "end=2026-03-26"}),
                  "prx: end=2026-03-26 was not taken: the end of a task in " + std::string(unit) +
                      " follows from its duration; set that, or unit=days\n");
    }
    folder_.Output({"set", "a.prx", "2", "unit=days", "end=2026-03-26"});
    ExpectIn("2", R"("end": "2026-03-26", "duration": 19, "unit": "days")");
    EXPECT_NE(folder_.Refusal({"add", "a.prx", "X", "--start=2026-03-02", "--end=2026-03-20", "--unit=wks"}), "");
}

TEST_F(Set, SaysWhyAnEndIsTooFar) {
    EXPECT_EQ(folder_.Refusal({"set", "a.prx", "2", "end=2036-06-16"}),
              "prx: end=2036-06-16 was not taken: 999 days are the longest\n");
}

TEST_F(Set, LeavesAMilestoneItsDay) {
    EXPECT_TRUE(Has(folder_.Refusal({"set", "a.prx", "2", "milestone=yes", "duration=3"}), "a milestone is a day"));
    folder_.Output({"set", "a.prx", "2", "milestone=yes"});
    EXPECT_TRUE(Has(folder_.Refusal({"set", "a.prx", "2", "unit=wks"}), "a milestone is a day"));
    EXPECT_TRUE(Has(folder_.Refusal({"set", "a.prx", "2", "end=2026-03-05"}), "a milestone is a day"));
    folder_.Output({"set", "a.prx", "2", "unit=wks", "duration=2"});
    ExpectIn("2", R"("milestone": false, "start": "2026-03-02", "end": "2026-03-16", "duration": 2, "unit": "wks")");
}

TEST_F(Set, GivesAMilestoneADuration) {
    folder_.Output({"set", "a.prx", "2", "milestone=yes"});
    folder_.Output({"set", "a.prx", "2", "duration=3"});
    ExpectIn("2", R"("milestone": false, "start": "2026-03-02", "end": "2026-03-04", "duration": 3)");
}

TEST_F(Set, GivesATaskItsFirstDates) {
    const std::string dated = folder_.Read("a.prx");
    const std::string undated =
        Replaced(Replaced(dated, "<TaskBDate>3/2/2026</TaskBDate>", ""), "<TaskEDate>3/6/2026</TaskEDate>", "");
    ASSERT_NE(undated, dated);
    for (const char* field : {"start=2026-03-09", "end=2026-03-09", "duration=3", "milestone=yes", "unit=wks"}) {
        SCOPED_TRACE(field);
        folder_.Write("a.prx", undated);
        const Result result = folder_.Prx({"set", "a.prx", "2", field});
        EXPECT_EQ(result.status, 0) << result.err;
    }
    folder_.Write("a.prx", undated);
    folder_.Output({"set", "a.prx", "2", "start=2026-03-09"});
    ExpectIn("2", R"("start": "2026-03-09", "end": "2026-03-13", "duration": 5)");
}

TEST_F(Set, TellsTheProgress) {
    EXPECT_EQ(folder_.Output({"set", "a.prx", "2", "done=40%"}), "CompletedChange(2, 40)\n");
}

TEST_F(Set, TakesNoEndOnAFreeDay) {
    const std::string before = folder_.Read("a.prx");
    EXPECT_EQ(folder_.Refusal({"set", "a.prx", "2", "end=2026-03-14"}),
              "prx: end=2026-03-14 was not taken: it is not a working day\n");
    EXPECT_EQ(folder_.Read("a.prx"), before);
}

TEST_F(Set, CountsToAnEndFromAWorkingDay) {
    folder_.Output({"calendar", "a.prx", "--holiday", "2026-03-02"});
    const Result result = folder_.Prx({"set", "a.prx", "2", "end=2026-03-05"});
    EXPECT_EQ(result.err, "prx: 2026-03-02 is not a working day; the task starts on 2026-03-03\n");
    ExpectIn("2", R"("start": "2026-03-03", "end": "2026-03-05", "duration": 3)");
}

TEST_F(Set, LetsTheDurationFollowFromTheEnd) {
    folder_.Output({"set", "a.prx", "2", "end=2026-03-10"});
    ExpectIn("2", R"("end": "2026-03-10", "duration": 7)");
}

TEST_F(Set, MakesAMilestoneAndATaskAgain) {
    folder_.Output({"set", "a.prx", "2", "milestone=yes"});
    ExpectIn("2", R"("milestone": true, "start": "2026-03-02", "end": "2026-03-02", "duration": 0)");

    folder_.Output({"set", "a.prx", "2", "milestone=no"});
    ExpectIn("2", R"("milestone": false, "start": "2026-03-02", "end": "2026-03-02", "duration": 1)");
}

TEST_F(Set, TellsThatAStartWasMovedToAWorkingDay) {
    const Result result = folder_.Prx({"set", "a.prx", "2", "start=2026-03-07"});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "prx: 2026-03-07 is not a working day; the task starts on 2026-03-09\n");
}

TEST_F(Set, NamesTheFieldsWhenOneIsUnknown) {
    EXPECT_EQ(folder_.Refusal({"set", "a.prx", "2", "color=1"}),
              "prx: there is no field \"color\"; the fields are milestone, unit, start, duration, end, done, cost, "
              "colour, name\n");
    EXPECT_NE(folder_.Refusal({"set", "a.prx", "2", "start"}).find("write field=value"), std::string::npos);
}

TEST_F(Set, RefusesBadValuesAndSavesNothing) {
    const std::string before = folder_.Read("a.prx");

    for (const char* bad : {"start=3/2/2026", "start=2026-13-01", "end=",
                            "end=2026-03-01", "duration=long",    "duration=-1",
                            "duration=inf",   "duration=1000",    "duration=5 lightyears",
                            "unit=parsecs",   "done=101",         "done=half",
                            "cost=1,50",      "cost=1.23456",     "cost=99999999999999999999",
                            "cost=",          "colour=red",       "milestone=maybe",
                            "name=",          "start=1999-01-04", "start=2999-01-04",
                            "end=9999-12-31", "start=9999-12-31"}) {
        EXPECT_NE(folder_.Refusal({"set", "a.prx", "2", bad}), "") << bad;
    }
    EXPECT_NE(folder_.Refusal({"set", "a.prx", "2", "done=1", "done=2"}), "");
    EXPECT_NE(folder_.Refusal({"set", "a.prx", "2", "duration=2", "end=2026-03-04"}), "");

    EXPECT_EQ(folder_.Read("a.prx"), before);
}

TEST_F(Set, LeavesToASummaryWhatFollowsFromItsTasks) {
    for (const char* field : {"start=2026-04-01", "end=2026-04-01", "duration=3", "cost=5", "milestone=yes"}) {
        EXPECT_NE(folder_.Refusal({"set", "a.prx", "Phase", field}).find("follows from the tasks below it"),
                  std::string::npos);
    }
    folder_.Output({"set", "a.prx", "Phase", "name=First phase", "done=10"});
    ExpectIn("1", R"("name": "First phase")");
}

TEST_F(Set, TakesATaskByKeyRowOrName) {
    for (const char* task : {"2", "#2", "Design"}) folder_.Output({"set", "a.prx", task, "done=50"});
    EXPECT_NE(folder_.Refusal({"set", "a.prx", "design", "done=50"}), "");
}

}  // namespace prx_test
