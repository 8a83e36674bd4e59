#include "mrlxmlclass/dom/Characters.h"

#include <gtest/gtest.h>

namespace mrlxmlclass::dom {
namespace {

String Text(char32_t character) {
    String text;
    AppendCharacter(text, character);
    return text;
}

TEST(NextCharacter, ReadsBackWhatWasAppended) {
    for (const char32_t c : {U'A', U'\x7F', U'\x80', U'\u07FF', U'\u0800', U'\uD7FF', U'\uE000', U'\uFFFF',
                             U'\U00010000', U'\U0010FFFF'}) {
        SCOPED_TRACE(static_cast<unsigned>(c));
        const String text = Text(c);
        std::size_t at = 0;
        EXPECT_EQ(NextCharacter(text, at), c);
        EXPECT_EQ(at, text.size());
    }
}

TEST(NextCharacter, PassesInvalidBytesOneByOne) {
    for (const char* bytes :
         {"\x80", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8", "\xFF", "\xE2\x82", "\xC3"}) {
        SCOPED_TRACE(::testing::PrintToString(bytes));
        std::size_t at = 0;
        EXPECT_EQ(NextCharacter(bytes, at), kNoCharacter);
        EXPECT_EQ(at, 1U);
    }
}

TEST(FirstForbidden, TellsTheOffsetWhereverItStands) {
    for (std::size_t before = 0; before < 20; ++before) {
        SCOPED_TRACE(before);
        const String clean(before, 'x');
        EXPECT_EQ(FirstForbidden(clean + "\x01" + "zzzzzzzzzz"), before);
        EXPECT_EQ(FirstForbidden(clean + "\xFF" + "zzzzzzzzzz"), before);
        EXPECT_EQ(FirstForbidden(clean + Text(0xFFFE)), before);
    }
}

TEST(FirstForbidden, TakesTabsLineEndsAndLongCharacters) {
    EXPECT_EQ(FirstForbidden("a\tb\r\nc d~\x7F" + Text(0x20AC) + Text(0x1F600)), String::npos);
    EXPECT_EQ(FirstForbidden(""), String::npos);
}

TEST(FirstForbidden, SeesANullCharacter) {
    EXPECT_EQ(FirstForbidden(std::string_view("0123456789\0x", 12)), 10U);
}

TEST(Cleaned, MakesEveryLineEndALineFeed) {
    EXPECT_EQ(Cleaned("a\r\nb\rc\nd\r\r\n"), "a\nb\nc\nd\n\n");
}

TEST(Cleaned, DropsWhatADocumentCannotHold) {
    EXPECT_EQ(Cleaned(std::string_view("a\0b\x08"
                                       "c\x1F"
                                       "d",
                                       8)),
              "abcd");
    EXPECT_EQ(Cleaned("x" + Text(0xFFFE) + Text(0xFFFF) + "y"), "xy");
    EXPECT_EQ(Cleaned("x\xED\xA0\x80y\xED\xB0\x80z"), "xyz");
    EXPECT_EQ(Cleaned("caf\xE9 \xC3\xA9"), "caf \xC3\xA9");
}

TEST(Cleaned, LeavesCleanTextAsItIs) {
    EXPECT_EQ(Cleaned("  \t caf\xC3\xA9\n "), "  \t caf\xC3\xA9\n ");
    EXPECT_EQ(Cleaned(""), "");
}

TEST(IsName, TakesWhatXmlTakes) {
    for (const char* name : {"a", "Task", "_x", "p:b", "a-b.c1",
                             "\xC3\xA4"
                             "b",
                             "\xE4\xB8\xAD", "a\xC2\xB7"}) {
        EXPECT_TRUE(IsName(name)) << name;
    }
    for (const char* name : {"", "1a", "-a", ".a", "a b", "a>", "a\n", "a&b", "\xC3\x97", "a\xFF", "\xC2\xB7", ":",
                             ":a", "a:", "a:1", "a:b:c", "1:a"}) {
        EXPECT_FALSE(IsName(name)) << name;
    }
}

}  // namespace
}  // namespace mrlxmlclass::dom
