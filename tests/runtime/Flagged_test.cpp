#include "mrlxmlclass/runtime/Flagged.h"

#include <gtest/gtest.h>

namespace mrlxmlclass {
namespace {

TEST(Flagged, IsEmptyAndInvalidAtFirst) {
    const Flagged<Long> lag;
    EXPECT_EQ(lag.value, 0);
    EXPECT_EQ(lag.valid, False);
}

TEST(Flagged, BecomesValidByAnyValue) {
    Flagged<Long> lag;
    lag.Let(0);
    EXPECT_EQ(lag.valid, True);
    lag.Let(5);
    EXPECT_EQ(lag.value, 5);
}

TEST(Flagged, LosesItsValueWhenTheFlagChanges) {
    Flagged<String> name;
    name.Let("Design");
    name.LetFlag(False);
    EXPECT_EQ(name.value, "");
    EXPECT_EQ(name.valid, False);

    name.value = "stored directly";
    name.LetFlag(True);
    EXPECT_EQ(name.value, "");
    EXPECT_EQ(name.valid, True);
}

TEST(Flagged, KeepsItsValueWhenTheFlagStays) {
    Flagged<String> name;
    name.Let("Design");
    name.LetFlag(True);
    EXPECT_EQ(name.value, "Design");
}

TEST(Flagged, TakesAnotherRawValueOfTrueForAChange) {
    Flagged<String> name;
    name.Let("Design");
    name.LetFlag(Boolean::Raw(1));
    EXPECT_EQ(name.value, "");
    EXPECT_EQ(name.valid.raw(), 1);
}

}  // namespace
}  // namespace mrlxmlclass
