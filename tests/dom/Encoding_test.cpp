#include "mrlxmlclass/dom/Encoding.h"

#include <gtest/gtest.h>

#include "tests/support/NumberOf.h"

namespace mrlxmlclass::dom {
namespace {

using namespace std::string_literals;

TEST(DeclaredEncoding, ReadsTheDeclarationInAnyLetterCaseAndQuotes) {
    EXPECT_EQ(DeclaredEncoding("<?xml version=\"1.0\" encoding=\"UTF-16\" ?>"), Encoding::Utf16);
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0' encoding = 'utf-8'?>"), Encoding::Utf8);
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0' encoding='iso-8859-1'?>"), Encoding::Latin1);
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0' encoding='Windows-1252'?>"), Encoding::Windows1252);
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0' encoding='koi8-r'?>"), Encoding::Unknown);
}

TEST(DeclaredEncoding, IsUtf8WhenNothingIsNamed) {
    EXPECT_EQ(DeclaredEncoding(""), Encoding::Utf8);
    EXPECT_EQ(DeclaredEncoding("<?xml version=\"1.0\" ?>"), Encoding::Utf8);
    EXPECT_EQ(DeclaredEncoding("<a encoding='utf-16'/>"), Encoding::Utf8);
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0'?><a encoding='utf-16'/>"), Encoding::Utf8);
}

TEST(Decode, LeavesTheByteOrderMarkOut) {
    EXPECT_EQ(Decode("\xEF\xBB\xBF<a/>").text, "<a/>");
    EXPECT_EQ(Decode("\xFF\xFE<\0a\0/\0>\0"s).text, "<a/>");
    EXPECT_EQ(Decode("\xFE\xFF\0<\0a\0/\0>"s).text, "<a/>");
}

TEST(Decode, ReadsPairsOfBothOrders) {
    EXPECT_EQ(Decode("\xFF\xFE\x3D\xD8\x00\xDE"s).text, "\xF0\x9F\x98\x80");
    EXPECT_EQ(Decode("\xFE\xFF\xD8\x3D\xDE\x00"s).text, "\xF0\x9F\x98\x80");
}

TEST(Decode, RefusesHalfCharacters) {
    for (const String& bytes : {"\xFF\xFE<\0a"s, "\xFF\xFE\x3D\xD8"s, "\xFF\xFE\x00\xDE<\0"s, "\xFE\xFF\xD8\x3D\0<"s}) {
        SCOPED_TRACE(::testing::PrintToString(bytes));
        EXPECT_STREQ(Decode(bytes).flaw, "The UTF-16 text holds half a character");
    }
}

TEST(Decode, ReadsEightBitFilesByDeclaration) {
    const String latin = "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9\x80</a>";
    EXPECT_TRUE(Decode(latin).text.ends_with("<a>\xC3\xA9\xC2\x80</a>"));
    const String windows = "<?xml version='1.0' encoding='windows-1252'?><a>\xE9\x80\x9F\x81</a>";
    EXPECT_TRUE(Decode(windows).text.ends_with("<a>\xC3\xA9\xE2\x82\xAC\xC5\xB8\xC2\x81</a>"));
}

TEST(Decode, LetsAByteOrderMarkDecideBeforeTheDeclaration) {
    const Decoded decoded = Decode("\xEF\xBB\xBF<?xml version='1.0' encoding='windows-1252'?><a>\xC3\xA9</a>");
    EXPECT_EQ(decoded.flaw, nullptr);
    EXPECT_TRUE(decoded.text.ends_with("<a>\xC3\xA9</a>"));
}

TEST(Decode, RefusesADeclarationThatCannotBe) {
    EXPECT_NE(Decode("<?xml version='1.0' encoding='utf-16'?><a/>").flaw, nullptr);
    EXPECT_NE(Decode("<?xml version='1.0' encoding='koi8-r'?><a/>").flaw, nullptr);
}

TEST(Encode, WritesUtf16LowByteFirstBehindAMark) {
    EXPECT_EQ(Encode("<\xC3\xA9\xF0\x9F\x98\x80", Encoding::Utf16), "\xFF\xFE<\0\xE9\0\x3D\xD8\x00\xDE"s);
}

TEST(Encode, WritesAReferenceForWhatEightBitsLack) {
    EXPECT_EQ(Encode("\xC3\xA9\xE2\x82\xAC", Encoding::Windows1252), "\xE9\x80");
    EXPECT_EQ(Encode("\xC3\xA9\xE2\x82\xAC", Encoding::Latin1), "\xE9&#8364;");
    EXPECT_EQ(Encode("\xE4\xB8\xAD\xC2\x81", Encoding::Windows1252), "&#20013;\x81");
}

TEST(Encode, FailsForAnUnknownEncoding) {
    EXPECT_EQ(NumberOf([] { Encode("<a/>", Encoding::Unknown); }), failure::kUnknownKey);
}

}  // namespace
}  // namespace mrlxmlclass::dom
