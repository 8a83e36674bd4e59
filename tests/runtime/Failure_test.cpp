#include "mrlxmlclass/runtime/Failure.h"

#include <gtest/gtest.h>

#include <set>

namespace mrlxmlclass {
namespace {

Failure Raised(int number) {
    try {
        Raise(number);
    } catch (const Failure& failed) {
        return failed;
    }
}

TEST(Raise, CarriesItsNumberDescriptionAndLine) {
    try {
        Raise(failure::kDeliberate, "The plan is locked", SourceLine{7});
        FAIL() << "nothing was raised";
    } catch (const Failure& failed) {
        EXPECT_EQ(failed.number(), 1);
        EXPECT_EQ(failed.description(), "The plan is locked");
        EXPECT_EQ(failed.where().line, 7);
        EXPECT_STREQ(failed.what(), "The plan is locked");
    }
}

TEST(Raise, KnowsTheLineOfItsCaller) {
    const auto line_of = [](auto raise) {
        try {
            raise();
        } catch (const Failure& failed) {
            return failed.where().line;
        }
        return 0;
    };
    const int first = line_of([] { Raise(failure::kOverflow); });
    const int second = line_of([] { Raise(failure::kDeliberate, "text"); });
    EXPECT_GT(first, 0);
    EXPECT_EQ(second, first + 1);
}

TEST(Raise, DescribesEveryNumberInItsOwnWords) {
    std::set<String> descriptions;
    const int numbers[] = {failure::kUnknownKey,      failure::kOverflow,      failure::kOutOfMemory,
                           failure::kIndexOutOfRange, failure::kTypeMismatch,  failure::kEndlessWalk,
                           failure::kFileNotFound,    failure::kDeviceFailure, failure::kPermissionDenied,
                           failure::kPathAccess,      failure::kPathNotFound,  failure::kNothing,
                           failure::kCannotCreate,    failure::kDuplicateKey};
    for (const int number : numbers) {
        const Failure failed = Raised(number);
        EXPECT_EQ(failed.number(), number);
        EXPECT_TRUE(descriptions.insert(failed.description()).second) << failed.description();
        EXPECT_NE(failed.description(), Raised(4711).description()) << number;
    }
}

TEST(Raise, DescribesAnUnknownNumberToo) {
    EXPECT_FALSE(Raised(4711).description().empty());
}

}  // namespace
}  // namespace mrlxmlclass
