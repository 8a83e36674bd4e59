#include "mrlxmlclass/session/ErrorsCls.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

void AddEntry(const Ref<ErrorsCls>& log, const String& text) {
    ErrorEntry entry = log->Error_Col()->Add();
    entry.ClassSource("C" + text);
    entry.ErrDescription("E" + text);
    entry.FunctionSource("F" + text);
    entry.genre("G" + text);
    entry.ID("I" + text);
}

String ElementOf(const String& text) {
    return "<Error><ClassSource>C" + text + "</ClassSource><ErrDescription>E" + text +
           "</ErrDescription><FunctionSource>F" + text + "</FunctionSource><genre>G" + text + "</genre><ID>I" + text +
           "</ID></Error>";
}

const String kStart = "<?xml version=\"1.0\" encoding=\"utf-8\" ?>";

TEST(ErrorsCls, CountsItsEntriesFromOne) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    EXPECT_EQ(log->Error_Col()->Count(), 0);
    AddEntry(log, "1");
    AddEntry(log, "2");
    EXPECT_EQ(log->Error_Col()->Count(), 2);
    EXPECT_EQ(log->Error_Col()->Item(1).ClassSource(), "C1");
    const ErrorEntry last = log->Error_Col()->Item(2);
    EXPECT_EQ(last.ClassSource(), "C2");
    EXPECT_EQ(last.ErrDescription(), "E2");
    EXPECT_EQ(last.FunctionSource(), "F2");
    EXPECT_EQ(last.genre(), "G2");
    EXPECT_EQ(last.ID(), "I2");
}

TEST(ErrorsCls, StartsAnEntryEmpty) {
    TestSession session;
    const ErrorEntry entry = Make<ErrorsCls>()->Error_Col()->Add();
    EXPECT_EQ(entry.ClassSource() + entry.ErrDescription() + entry.FunctionSource() + entry.genre() + entry.ID(), "");
}

TEST(ErrorsCls, FailsOutsideItsEntries) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, "1");
    EXPECT_EQ(NumberOf([&] { log->Error_Col()->Item(0); }), failure::kIndexOutOfRange);
    EXPECT_EQ(NumberOf([&] { log->Error_Col()->Item(2); }), failure::kIndexOutOfRange);
}

TEST(ErrorsClsToXmlFile, WritesOneErrorAnEntryWithItsFiveFields) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, "1");
    AddEntry(log, "2");
    log->ToXmlFile(session.Path("errors.xml"));
    EXPECT_EQ(session.Read("errors.xml"), kStart + "<Errors>" + ElementOf("1") + ElementOf("2") + "</Errors>");
}

TEST(ErrorsClsToXmlFile, WritesAnEmptyLogToo) {
    TestSession session;
    Make<ErrorsCls>()->ToXmlFile(session.Path("errors.xml"));
    const auto document = Make<dom::Document>();
    EXPECT_TRUE(document->Load(session.Path("errors.xml")));
    EXPECT_EQ(document->documentElement().baseName(), "Errors");
}

TEST(ErrorsClsToXmlFile, StaysReadableWhateverTheTextsHold) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, String("<&>\"'\x01\x00 ]]> \xFF ä", 17));
    log->ToXmlFile(session.Path("errors.xml"));
    const auto document = Make<dom::Document>();
    EXPECT_TRUE(document->Load(session.Path("errors.xml"))) << document->error_text();
}

TEST(ErrorsClsToXmlFile, WritesTheFileWholeAfterItWasDeletedChangedOrReplaced) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, "1");
    log->ToXmlFile(session.Path("errors.xml"));
    String expected = ElementOf("1");
    const auto next = [&](const String& text) {
        AddEntry(log, text);
        log->ToXmlFile(session.Path("errors.xml"));
        expected += ElementOf(text);
        EXPECT_EQ(session.Read("errors.xml"), kStart + "<Errors>" + expected + "</Errors>");
    };
    next("2");
    session.files.Delete(session.Path("errors.xml"));
    next("3");
    session.Write("errors.xml", "somebody else's");
    next("4");
    session.files.Rename(session.Path("errors.xml"), session.Path("sent.xml"));
    const String sent = session.Read("sent.xml");
    next("5");
    EXPECT_EQ(session.Read("sent.xml"), sent);
    session.Write("copy.xml", session.Read("errors.xml"));
    session.files.Rename(session.Path("copy.xml"), session.Path("errors.xml"));
    next("6");
}

TEST(ErrorsClsToXmlFile, WritesTheFileWholeUnderAnotherName) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, "1");
    log->ToXmlFile(session.Path("a.xml"));
    AddEntry(log, "2");
    log->ToXmlFile(session.Path("b.xml"));
    EXPECT_EQ(session.Read("b.xml"), kStart + "<Errors>" + ElementOf("1") + ElementOf("2") + "</Errors>");
}

TEST(ErrorsClsToXmlFile, WritesAnEntryAnewThatWasChangedAfterItStoodInTheFile) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, "1");
    AddEntry(log, "2");
    log->ToXmlFile(session.Path("a.xml"));
    log->Error_Col()->Item(1).genre("other");
    log->ToXmlFile(session.Path("a.xml"));
    EXPECT_NE(session.Read("a.xml").find("<genre>other</genre>"), String::npos);
}

TEST(ErrorsClsToXmlFile, GrowsAgainAfterAWriteThatFailed) {
    TestSession session;
    const auto log = Make<ErrorsCls>();
    AddEntry(log, "1");
    log->ToXmlFile(session.Path("a.xml"));
    AddEntry(log, "2");
    session.faults.FailAt(testing::FileCall::WriteAt, 1);
    session.faults.WriteShort();
    EXPECT_EQ(NumberOf([&] { log->ToXmlFile(session.Path("a.xml")); }), failure::kDeviceFailure);
    session.faults.Heal();
    AddEntry(log, "3");
    log->ToXmlFile(session.Path("a.xml"));
    EXPECT_EQ(session.Read("a.xml"),
              kStart + "<Errors>" + ElementOf("1") + ElementOf("2") + ElementOf("3") + "</Errors>");
}

}  // namespace
}  // namespace mrlxmlclass
