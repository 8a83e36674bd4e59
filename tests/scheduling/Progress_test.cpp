#include "mrlxmlclass/scheduling/Progress.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using namespace testing;

using Gloabal::AdjustComplte;

TEST(AdjustComplte, RoundsAPercentageAndEndsAtAHundred) {
    const TestSession session;
    struct Row {
        double typed;
        int percent;
    };
    for (const Row& row : {Row{100.4, 100}, Row{99.6, 100}, Row{150, 100}, Row{100, 100}, Row{99.4, 99}, Row{0, 0},
                           Row{0.4, 0}, Row{33.3, 33}, Row{1e300, 100}}) {
        EXPECT_EQ(AdjustComplte(row.typed), row.percent) << row.typed;
    }
}

TEST(AdjustComplte, RoundsHalvesToTheEvenNumber) {
    const TestSession session;
    EXPECT_EQ(AdjustComplte(0.5), 0);
    EXPECT_EQ(AdjustComplte(1.5), 2);
    EXPECT_EQ(AdjustComplte(2.5), 2);
    EXPECT_EQ(AdjustComplte(99.5), 100);
    EXPECT_EQ(AdjustComplte(-2.5), -2);
}

TEST(AdjustComplte, KeepsANegativeNumberRounded) {
    const TestSession session;
    EXPECT_EQ(AdjustComplte(-0.4), 0);
    EXPECT_EQ(AdjustComplte(-17.6), -18);
    EXPECT_EQ(AdjustComplte(-32768), -32768);
}

TEST(AdjustComplte, RecordsWhatNoIntegerHolds) {
    TestSession session;
    for (const double typed : {-32769.0, -1e300, -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(AdjustComplte(typed), 0) << typed;
        EXPECT_EQ(session.failures.Taken(), "Gloabal/AdjustComplte 6\n") << typed;
    }
}

}  // namespace
}  // namespace mrlxmlclass
