#include "mrlxmlclass/runtime/Text.h"

#include <gtest/gtest.h>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

constexpr const char* kSmile = "\xF0\x9F\x98\x80";    // U+1F600, two units
constexpr const char* kEuro = "\xE2\x82\xAC";         // U+20AC
constexpr const char* kPrivate = "\xEE\x80\x80";      // U+E000
constexpr const char* kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr const char* kLastBelow = "\xED\x9F\xBF";    // U+D7FF
constexpr const char* kHighest = "\xF4\x8F\xBF\xBF";  // U+10FFFF

String Smiling(const String& before, const String& behind) {
    return before + kSmile + behind;
}

TEST(IsDigit, TakesTheTenDigitsAlone) {
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(IsDigit(static_cast<char>(code)),
                  std::string_view("0123456789").find(static_cast<char>(code)) != std::string_view::npos)
            << code;
    }
}

TEST(Length, CountsSixteenBitUnits) {
    EXPECT_EQ(Length(""), 0U);
    EXPECT_EQ(Length("abc"), 3U);
    EXPECT_EQ(Length(kEuro), 1U);
    EXPECT_EQ(Length(kSmile), 2U);
    EXPECT_EQ(Length(Smiling(kEuro, "b")), 4U);
    EXPECT_EQ(Length(std::string_view("a\0b", 3)), 3U);
}

TEST(Left, CutsByUnits) {
    EXPECT_EQ(Left("abc", 2), "ab");
    EXPECT_EQ(Left("abc", 0), "");
    EXPECT_EQ(Left("abc", 99), "abc");
    EXPECT_EQ(Left("", 5), "");
    EXPECT_EQ(Left(String(kEuro) + "b", 1), kEuro);
}

TEST(Left, DropsAPairThatItWouldHalve) {
    const String text = Smiling("a", "b");
    EXPECT_EQ(Left(text, 1), "a");
    EXPECT_EQ(Left(text, 2), "a");
    EXPECT_EQ(Left(text, 3), Smiling("a", ""));
    EXPECT_EQ(Left(text, 4), text);
    EXPECT_EQ(Left(kSmile, 1), "");
}

TEST(Mid, TakesFromAOneBasedUnitOn) {
    EXPECT_EQ(Mid("abcdef", 3), "cdef");
    EXPECT_EQ(Mid("abcdef", 3, 2), "cd");
    EXPECT_EQ(Mid("abcdef", 1, 99), "abcdef");
    EXPECT_EQ(Mid("abcdef", 6), "f");
    EXPECT_EQ(Mid("abcdef", 7), "");
    EXPECT_EQ(Mid("abcdef", static_cast<std::size_t>(-1)), "");
    EXPECT_EQ(Mid("abcdef", 2, 0), "");
    EXPECT_EQ(Mid("", 1), "");
}

TEST(Mid, DropsAPairThatEitherCutWouldHalve) {
    const String text = Smiling("a", "bc");  // units: a, high, low, b, c
    EXPECT_EQ(Mid(text, 2, 2), kSmile);
    EXPECT_EQ(Mid(text, 2, 1), "");
    EXPECT_EQ(Mid(text, 2), Smiling("", "bc"));
    EXPECT_EQ(Mid(text, 3), "bc");
    EXPECT_EQ(Mid(text, 3, 2), "b");
    EXPECT_EQ(Mid(text, 3, 1), "");
    EXPECT_EQ(Mid(text, 3, 0), "");
    EXPECT_EQ(Mid(text, 4, 1), "b");
    EXPECT_EQ(Mid(kSmile, 2), "");
}

TEST(Mid, FailsAtTheStartZero) {
    EXPECT_EQ(NumberOf([] { Mid("abc", 0); }), failure::kUnknownKey);
}

TEST(CompareUnits, OrdersByUnits) {
    EXPECT_EQ(CompareUnits("", ""), 0);
    EXPECT_EQ(CompareUnits("abc", "abc"), 0);
    EXPECT_LT(CompareUnits("", "a"), 0);
    EXPECT_GT(CompareUnits("ab", "a"), 0);
    EXPECT_LT(CompareUnits("Z", "a"), 0);
    EXPECT_LT(CompareUnits("z", kEuro), 0);
    EXPECT_LT(CompareUnits("10", "9"), 0);
}

TEST(CompareUnits, PutsPairsBetweenTheirNeighboursInUnits) {
    // In ascending order of 16-bit units; by code point the pairs would come last.
    const String ascending[] = {"a", kEuro, kLastBelow, kSmile, kHighest, kPrivate, kReplacement};
    for (std::size_t i = 0; i < std::size(ascending); ++i) {
        for (std::size_t k = 0; k < std::size(ascending); ++k) {
            SCOPED_TRACE(testing::Message() << i << " " << k);
            const int order = CompareUnits("x" + ascending[i] + "y", "x" + ascending[k] + "y");
            EXPECT_EQ(order < 0, i < k);
            EXPECT_EQ(order > 0, i > k);
        }
    }
}

TEST(Trim, TakesBlanksAndNothingElse) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\ta\n"), "\ta\n");
}

TEST(LowerCase, LowersAsciiAlone) {
    EXPECT_EQ(LowerCase("ABC xyz @[`{ 09"), "abc xyz @[`{ 09");
    EXPECT_EQ(LowerCase("\xC3\x84"), "\xC3\x84");
}

TEST(EqualsIgnoringCase, SeesPastAsciiCaseAlone) {
    EXPECT_TRUE(EqualsIgnoringCase("True", "tRUE"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
    EXPECT_FALSE(EqualsIgnoringCase("true", "true "));
    EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
    EXPECT_FALSE(EqualsIgnoringCase("\xC3\x84", "\xC3\xA4"));
}

TEST(Replace, TakesEveryOccurrenceOnce) {
    EXPECT_EQ(Replace("1/2/3", "/", "."), "1.2.3");
    EXPECT_EQ(Replace("aaaa", "aa", "a"), "aa");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("abc", "b", ""), "ac");
    EXPECT_EQ(Replace("ab", "b", "bb"), "abb");
    EXPECT_EQ(Replace("", "a", "b"), "");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

TEST(Split, GivesThePiecesBetweenSeparators) {
    using Pieces = std::vector<String>;
    EXPECT_EQ(Split("1;2;3", ";"), (Pieces{"1", "2", "3"}));
    EXPECT_EQ(Split("1", ";"), (Pieces{"1"}));
    EXPECT_EQ(Split(";1;;", ";"), (Pieces{"", "1", "", ""}));
    EXPECT_EQ(Split("a, b", ", "), (Pieces{"a", "b"}));
    EXPECT_EQ(Split("a b", ""), (Pieces{"a b"}));
}

TEST(Split, GivesNoPiecesOfTheEmptyText) {
    EXPECT_TRUE(Split("", ";").empty());
}

}  // namespace
}  // namespace mrlxmlclass
