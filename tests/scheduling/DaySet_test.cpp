#include "mrlxmlclass/scheduling/DaySet.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/xml/Conversions.h"
#include "tests/support/Days.h"
#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

TEST(DaySet, FindsEveryDayByItsShortDateUnderAnyPattern) {
    TestSession session;
    for (const char* pattern : {"M/d/yyyy", "dd.MM.yyyy", "yyyy-MM-dd", "d-M-yyyy", "MM/dd/yyyy"}) {
        SCOPED_TRACE(pattern);
        session.locale.Use(pattern);
        const auto days = Make<Dictionary>();
        DaySet set(DaySet::Keys::Texts);
        const Date wanted[] = {Date::Of(100, 1, 1),   Date(), Date::Of(1999, 12, 31),
                               Date::Of(2028, 2, 29), Monday, Date::Of(9999, 12, 31)};
        for (const Date day : wanted) days->Add(Conversions::DateToString(day), "");
        for (const Date day : wanted) EXPECT_TRUE(set.Has(days, day)) << DayName(day);
        EXPECT_FALSE(set.Has(days, Tuesday));
    }
}

TEST(DaySet, TakesDatesWhereTheyCount) {
    TestSession session;
    const auto days = Make<Dictionary>();
    days->Add(Monday, True);
    days->Add(Tuesday + 0.5, True);
    days->Add(Long(Wednesday.days()), True);
    DaySet with_dates(DaySet::Keys::TextsAndDates);
    DaySet texts(DaySet::Keys::Texts);
    EXPECT_TRUE(with_dates.Has(days, Monday));
    EXPECT_FALSE(with_dates.Has(days, Tuesday)) << "a moment is not its day";
    EXPECT_FALSE(with_dates.Has(days, Wednesday)) << "a number is not a date";
    EXPECT_FALSE(texts.Has(days, Monday));
}

TEST(DaySet, FollowsEveryChange) {
    TestSession session;
    DaySet set(DaySet::Keys::Texts);
    auto days = Make<Dictionary>();
    EXPECT_FALSE(set.Has(days, Monday));
    days->Add("3/2/2026", "");
    EXPECT_TRUE(set.Has(days, Monday));
    session.locale.Use("dd.MM.yyyy");
    EXPECT_FALSE(set.Has(days, Monday));
    session.locale.Use("M/d/yyyy");
    EXPECT_TRUE(set.Has(days, Monday));
    days->Remove("3/2/2026");
    EXPECT_FALSE(set.Has(days, Monday));
    auto others = Make<Dictionary>();
    others->Add("3/3/2026", "");
    EXPECT_TRUE(set.Has(others, Tuesday));
    EXPECT_FALSE(set.Has(days, Tuesday));
}

TEST(DaySet, FailsOnNoDictionary) {
    TestSession session;
    DaySet set(DaySet::Keys::Texts);
    EXPECT_EQ(NumberOf([&] { set.Has({}, Monday); }), failure::kNothing);
    const auto days = Make<Dictionary>();
    days->Add("3/2/2026", "");
    EXPECT_TRUE(set.Has(days, Monday));
    EXPECT_EQ(NumberOf([&] { set.Has({}, Monday); }), failure::kNothing);
}

}  // namespace
}  // namespace mrlxmlclass
