#include "mrlxmlclass/platform/Locale.h"

#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {
namespace {

TEST(NewStamp, DiffersAfterEveryChangeAndBetweenLocales) {
    SettableLocale one;
    SettableLocale other;
    EXPECT_NE(one.Stamp(), other.Stamp());
    EXPECT_NE(one.Stamp(), SystemServices().locale.Stamp());
    const std::uint64_t before = one.Stamp();
    EXPECT_EQ(one.Stamp(), before);
    one.Use("dd.MM.yyyy", ",", ".");
    EXPECT_NE(one.Stamp(), before);
    EXPECT_NE(one.Stamp(), other.Stamp());
}

}  // namespace
}  // namespace mrlxmlclass::testing
