#include "mrlxmlclass/scheduling/WorkingDayTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "tests/support/Days.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

constexpr int kSunday = 1;
constexpr int kSaturday = 7;
constexpr int kFirstDay = -657434;  // 1 January 100
constexpr int kLastDay = 2958465;   // 31 December 9999

DayRules Weekend() {
    DayRules rules;
    rules.free_weekday[kSunday] = rules.free_weekday[kSaturday] = true;
    return rules;
}

DayRules NeverWorking() {
    DayRules rules;
    rules.free_weekday.fill(true);
    return rules;
}

int Day(Date day) {
    return day.number();
}

TEST(DayRules, WeighWeekdayExceptionAndHoliday) {
    DayRules rules = Weekend();
    rules.holidays = {Friday.days(), Saturday.days()};
    rules.exceptions = {Thursday.days(), Friday.days(), Saturday.days(), Sunday.days()};
    EXPECT_FALSE(rules.NonWorking(Day(Wednesday)));
    EXPECT_FALSE(rules.NonWorking(Day(Thursday))) << "an exception on a working weekday";
    EXPECT_TRUE(rules.NonWorking(Day(Friday))) << "a holiday on an exception day";
    EXPECT_TRUE(rules.NonWorking(Day(Saturday))) << "a holiday on a free weekday that is an exception";
    EXPECT_FALSE(rules.NonWorking(Day(Sunday))) << "a free weekday that is an exception";
    EXPECT_TRUE(rules.NonWorking(Day(Sunday + 7)));
}

TEST(DayRules, KnowTheWeekdayOfEveryDay) {
    for (int weekday = 1; weekday <= 7; ++weekday) {
        DayRules rules;
        rules.free_weekday[static_cast<std::size_t>(weekday)] = true;
        for (const int day : {kFirstDay, -10, -8, -7, -6, -1, 0, 1, 6, 7, 8, Day(Monday), kLastDay - 3, kLastDay}) {
            EXPECT_EQ(rules.NonWorking(day), Date(day).weekday() == weekday) << day << " and weekday " << weekday;
        }
    }
}

TEST(DayRules, TakeAMomentForNoDay) {
    DayRules rules;
    rules.holidays = {Monday.days() + 0.5};
    EXPECT_FALSE(rules.NonWorking(Day(Monday)));
}

TEST(WorkingDayTable, AnswersAsItsRulesDo) {
    DayRules rules = Weekend();
    rules.holidays = {kFirstDay + 2.0, -511, -1, 0, 1, 511, 512, 513, Monday.days(), kLastDay - 1.0};
    rules.exceptions = {kFirstDay + 1.0, -512, -7, 0, 7, 1024, Saturday.days(), kLastDay * 1.0};
    WorkingDayTable table(rules);
    for (const int around : {Day(Monday), 0, kLastDay - 600, -512, kFirstDay + 600, 512}) {  // back and forth
        for (int day = around - 600; day <= around + 600; ++day) {
            ASSERT_EQ(table.NonWorking(day), rules.NonWorking(day)) << day;
        }
    }
}

TEST(CountNonWorking, CountsBothEnds) {
    WorkingDayTable table(Weekend());
    EXPECT_EQ(table.CountNonWorking(Day(Monday), Day(Monday)), 0);
    EXPECT_EQ(table.CountNonWorking(Day(Saturday), Day(Saturday)), 1);
    EXPECT_EQ(table.CountNonWorking(Day(Monday), Day(Sunday)), 2);
    EXPECT_EQ(table.CountNonWorking(Day(Sunday), Day(Saturday + 7)), 2);
    EXPECT_EQ(table.CountNonWorking(Day(Saturday), Day(Sunday + 7)), 4);
}

TEST(CountNonWorking, CountsNothingWhereTheLastComesFirst) {
    WorkingDayTable table(NeverWorking());
    EXPECT_EQ(table.CountNonWorking(Day(Sunday), Day(Saturday)), 0);
    EXPECT_EQ(table.CountNonWorking(Day(Sunday), Day(Monday - 1000)), 0);
}

TEST(CountNonWorking, CountsOverManyYears) {
    WorkingDayTable none{DayRules{}};
    EXPECT_EQ(none.CountNonWorking(kFirstDay, kLastDay), 0);
    WorkingDayTable all(NeverWorking());
    EXPECT_EQ(all.CountNonWorking(kFirstDay, kLastDay), kLastDay - kFirstDay + 1);
    WorkingDayTable weekend(Weekend());
    EXPECT_EQ(weekend.CountNonWorking(Day(Monday), Day(Monday) + 7 * 100'000 - 1), 200'000);
}

TEST(WorkingDayAfter, CountsFromTheNextDay) {
    WorkingDayTable table(Weekend());
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 1, 100), Day(Tuesday));
    EXPECT_EQ(table.WorkingDayAfter(Day(Friday), 1, 100), Day(Monday + 7));
    EXPECT_EQ(table.WorkingDayAfter(Day(Saturday), 1, 100), Day(Monday + 7));
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 4, 100), Day(Friday));
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 5, 100), Day(Monday + 7));
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 5'000, 10'000), Day(Monday) + 7'000);
}

TEST(WorkingDayAfter, EndsWithItsReach) {
    WorkingDayTable table(Weekend());
    EXPECT_EQ(table.WorkingDayAfter(Day(Friday), 1, 3), Day(Monday + 7));
    EXPECT_EQ(table.WorkingDayAfter(Day(Friday), 1, 2), std::nullopt);
    EXPECT_EQ(table.WorkingDayAfter(Day(Friday), 1, 0), std::nullopt);
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 5'000, 6'999), std::nullopt);
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 1'000'000'000'000, 10'000), std::nullopt);
}

TEST(WorkingDayAfter, FindsNothingWhereNoDayIsWorked) {
    WorkingDayTable table(NeverWorking());
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 1, 10'000), std::nullopt);
    EXPECT_EQ(table.WorkingDayAfter(kFirstDay, 1, 10'000), std::nullopt);
}

TEST(WorkingDayAfter, FindsTheOneWorkedDayFarAhead) {
    DayRules rules = NeverWorking();
    rules.exceptions = {Monday.days() + 9'999};
    WorkingDayTable table(rules);
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 1, 9'999), Day(Monday) + 9'999);
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 1, 9'998), std::nullopt);
    EXPECT_EQ(table.WorkingDayAfter(Day(Monday), 2, 20'000), std::nullopt);
}

TEST(WorkingDayTable, AgreesWithCountingDayByDay) {
    std::mt19937 random(20260302);
    const auto draw = [&](int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const int middle = round % 4 == 0 ? 0 : Day(Monday);
        const auto any_days = [&](int most) {
            std::set<double> days;
            for (int n = draw(0, most); n > 0; --n) days.insert(middle + draw(-900, 900));
            return std::vector<double>(days.begin(), days.end());
        };
        DayRules rules;
        for (int n = draw(0, 7); n > 0; --n) rules.free_weekday[static_cast<std::size_t>(draw(1, 7))] = true;
        rules.holidays = any_days(200);
        rules.exceptions = any_days(200);
        WorkingDayTable table(rules);
        for (int question = 0; question < 30; ++question) {
            const int first = middle + draw(-1500, 1500);
            const int last = first + draw(-5, 1500);
            std::int64_t free = 0;
            for (int day = first; day <= last; ++day) free += rules.NonWorking(day) ? 1 : 0;
            ASSERT_EQ(table.CountNonWorking(first, last), free) << first << " to " << last;

            const int count = draw(1, draw(0, 1) == 0 ? 10 : 700);
            const int reach = draw(0, draw(0, 1) == 0 ? 20 : 1200);
            std::optional<int> wanted;
            int left = count;
            for (int day = first + 1; day <= first + reach && !wanted; ++day) {
                if (!rules.NonWorking(day) && --left == 0) wanted = day;
            }
            ASSERT_EQ(table.WorkingDayAfter(first, count, reach), wanted)
                << "working day " << count << " after " << first << " within " << reach;
        }
    }
}

}  // namespace
}  // namespace mrlxmlclass
