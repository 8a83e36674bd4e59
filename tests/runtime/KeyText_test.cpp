#include "mrlxmlclass/runtime/KeyText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include "mrlxmlclass/runtime/Variant.h"
#include "tests/support/NumberOf.h"

namespace mrlxmlclass {
namespace {

static_assert(sizeof(KeyText) == 4);
static_assert(!std::is_constructible_v<KeyText, std::nullptr_t>);

const char* const kTexts[] = {"",           "0",           "5",           "05",          "-1",  "-0",  "-5",
                              "00",         "+5",          " 5",          "5 ",          "5.0", "1e3", "2147483647",
                              "2147483648", "-2147483648", "99999999999", "02147483647", "Key", "key", "K\xC3\xB6y"};

TEST(KeyText, StandsForItsTextToTheLetter) {
    for (const char* text : kTexts) EXPECT_EQ(KeyText(text).text(), text);
    const String with_nul("5\0", 2);
    EXPECT_EQ(KeyText(with_nul).text(), with_nul);
    EXPECT_FALSE(KeyText(with_nul) == KeyText("5"));
}

TEST(KeyText, IsEqualForEqualTextsAlone) {
    for (const char* one : kTexts) {
        for (const char* other : kTexts) {
            EXPECT_EQ(KeyText(one) == KeyText(String(other)), String(one) == other) << one << " | " << other;
        }
    }
}

TEST(KeyText, IsANumberForCanonicalDecimalsAlone) {
    struct Row {
        const char* text;
        std::int32_t number;
    };
    for (const Row& row : {Row{"0", 0}, Row{"5", 5}, Row{"32767", 32767}, Row{"2147483647", INT32_MAX}}) {
        EXPECT_TRUE(KeyText(row.text).is_number()) << row.text;
        EXPECT_EQ(KeyText(row.text).number(), row.number) << row.text;
    }
    for (const char* text : {"", "05", "00", "-1", "-0", "+5", " 5", "5 ", "5.0", "2147483648", "99999999999", "5a"}) {
        EXPECT_FALSE(KeyText(text).is_number()) << text;
    }
}

TEST(KeyText, OfANumberIsThatOfItsDecimalText) {
    EXPECT_EQ(KeyText(Long(5)), KeyText("5"));
    EXPECT_EQ(KeyText(Long(-1)), KeyText("-1"));
    EXPECT_EQ(KeyText(Long(INT32_MIN)), KeyText("-2147483648"));
    EXPECT_EQ(KeyText(Long(INT32_MIN)).text(), "-2147483648");
    EXPECT_EQ(KeyText(Integer(7)), KeyText("7"));
    EXPECT_EQ(NumberOf([] { KeyText{std::int64_t{INT32_MAX} + 1}; }), failure::kOverflow);
}

TEST(KeyText, TakesALiteralZeroAsANumber) {
    EXPECT_EQ(KeyText(0), KeyText("0"));
}

TEST(KeyText, TellsNoKeyFromTheEmptyText) {
    EXPECT_TRUE(KeyText().none());
    EXPECT_EQ(KeyText().text(), "");
    EXPECT_FALSE(KeyText("").none());
    EXPECT_FALSE(KeyText("") == KeyText());
    EXPECT_FALSE(KeyText().is_number());
}

TEST(KeyText, HashesApartWhatDiffers) {
    std::unordered_set<KeyText> keys;
    for (const char* text : kTexts) keys.insert(text);
    for (const char* text : kTexts) keys.insert(text);
    EXPECT_EQ(keys.size(), std::size(kTexts));
}

TEST(KeyText, MeansTheSameOnEveryThread) {
    constexpr int kThreads = 4;
    constexpr int kKeys = 200;
    std::vector<std::vector<KeyText>> seen(kThreads);
    std::vector<std::thread> threads;
    for (auto& keys : seen) {
        threads.emplace_back([&keys] {
            for (int i = 0; i < kKeys; ++i) keys.emplace_back("thread key " + std::to_string(i));
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& keys : seen) EXPECT_EQ(keys, seen.front());
    for (int i = 0; i < kKeys; ++i) {
        EXPECT_EQ(seen.back()[static_cast<std::size_t>(i)].text(), "thread key " + std::to_string(i));
    }
}

TEST(KeyNumber, ReadsWholeNumbers) {
    struct Row {
        const char* text;
        std::int32_t number;
    };
    for (const Row& row : {Row{"5", 5}, Row{"05", 5}, Row{"+5", 5}, Row{"-5", -5}, Row{" 5 ", 5}, Row{"-0", 0},
                           Row{"2147483647", INT32_MAX}, Row{"-2147483648", INT32_MIN}}) {
        EXPECT_EQ(KeyNumber(row.text), row.number) << row.text;
    }
}

TEST(WholeNumberIn, TellsAZeroFromWhatIsNoNumber) {
    for (const char* text : {"0", "00", "+0", "-0", " 0 "}) EXPECT_EQ(WholeNumberIn(text), Long(0)) << text;
    for (const char* text : {"", " ", "+", "a", "0a", "1.5", "2147483648"}) {
        EXPECT_EQ(WholeNumberIn(text), std::nullopt) << text;
    }
    EXPECT_EQ(WholeNumberIn(" 05"), Long(5));
}

TEST(KeyNumber, CountsWhatIsNoNumberAsZero) {
    for (const char* text : {"", " ", "+", "-", "+-5", "-+5", "++5", "--5", "+ 5", "5a", "a5", "5 5", "2147483648",
                             "1e3", "0x10", "inf"}) {
        EXPECT_EQ(KeyNumber(text), 0) << text;
    }
}

TEST(KeyValue, ReadsAnyNumberToCompareBy) {
    struct Row {
        const char* text;
        double value;
    };
    for (const Row& row : {Row{"5", 5}, Row{"05", 5}, Row{"+5", 5}, Row{" -5 ", -5}, Row{"7.0", 7}, Row{"7.5", 7.5},
                           Row{"1e3", 1000}, Row{"99999999999", 99999999999}, Row{"1e999", HUGE_VAL}}) {
        EXPECT_EQ(KeyValue(row.text), row.value) << row.text;
        EXPECT_EQ(Variant(row.text).KeyValue(), row.value) << row.text;
    }
    for (const char* text : {"", " ", "-", "+-5", "5a", "a5", "5 5", "0x10", "inf", "nan", "-inf", "nan(1)", "NaN",
                             "INF", "+INFINITY", "1e-999"}) {
        EXPECT_EQ(KeyValue(text), 0) << text;
    }
}

TEST(KeyValue, OfAVariantThatIsANumberIsThat) {
    EXPECT_EQ(Variant(7).KeyValue(), 7);
    EXPECT_EQ(Variant(1.5).KeyValue(), 1.5);
    EXPECT_EQ(Variant(True).KeyValue(), -1);
    EXPECT_EQ(Variant().KeyValue(), 0);
}

TEST(KeyIn, FindsTheKeyThatANumberEquals) {
    for (const char* seven : {"7", "7.0", "07", " +7 ", "70e-1"}) EXPECT_EQ(KeyIn(seven), Long(7)) << seven;
    EXPECT_EQ(KeyIn("-0"), Long(0));
    EXPECT_EQ(KeyIn("2147483647"), Long(INT32_MAX));
    for (const char* none : {"", "a", "7.5", "2147483648", "-1e10", "1e999", "inf"}) {
        EXPECT_EQ(KeyIn(none), std::nullopt) << none;
    }
}

}  // namespace
}  // namespace mrlxmlclass
