#include "mrlxmlclass/xml/StatusCls.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

Ref<StatusCls> SomeStatus() {
    auto status = Make<StatusCls>();
    status->StatusDone(3);
    status->StatusInProgress(70000);
    return status;
}

TEST(StatusCls, ComesBackFromItsOwnFile) {
    TestSession session;
    SomeStatus()->ToXmlFile(session.Path("status.xml"));
    EXPECT_EQ(session.Read("status.xml"),
              "<?xml version=\"1.0\" encoding=\"utf-8\" ?>"
              "<Status><StatusDone>3</StatusDone><StatusInProgress>70000</StatusInProgress></Status>");
    const auto status = Make<StatusCls>();
    EXPECT_EQ(status->FromXmlFile(session.Path("status.xml")), True);
    EXPECT_EQ(status->StatusDone(), 3);
    EXPECT_EQ(status->StatusInProgress(), 70000);
}

TEST(StatusCls, ReplacesAFileThatIsThere) {
    TestSession session;
    session.Write("status.xml", "<Old/>");
    SomeStatus()->ToXmlFile(session.Path("status.xml"), False);
    EXPECT_EQ(session.Read("status.xml"),
              "<Status><StatusDone>3</StatusDone><StatusInProgress>70000</StatusInProgress></Status>");
}

TEST(StatusCls, ComesBackFromAUtf16File) {
    TestSession session;
    SomeStatus()->ToXmlFile(session.Path("status.xml"), True, False, True);
    EXPECT_TRUE(session.Read("status.xml").starts_with("\xFF\xFE"));
    const auto status = Make<StatusCls>();
    EXPECT_EQ(status->FromXmlFile(session.Path("status.xml")), True);
    EXPECT_EQ(status->StatusInProgress(), 70000);
}

TEST(StatusCls, PutsItsRootIntoANamespaceOnRequest) {
    TestSession session;
    const String text = SomeStatus()->ToXml(False, True);
    EXPECT_EQ(text,
              "<Status xmlns=\"urn:mrlxmlclass:status\"><StatusDone>3</StatusDone>"
              "<StatusInProgress>70000</StatusInProgress></Status>");
    const auto status = Make<StatusCls>();
    EXPECT_EQ(status->FromXml(text), True);
    EXPECT_EQ(status->StatusInProgress(), 70000);
    EXPECT_EQ(SomeStatus()->ToXml(False).find("xmlns"), String::npos);
}

TEST(StatusCls, TakesTheNameOfTheRootThatItReads) {
    TestSession session;
    const auto status = Make<StatusCls>();
    status->FromXml("<State><StatusDone>1</StatusDone></State>");
    EXPECT_EQ(status->ToXml(False), "<State><StatusDone>1</StatusDone><StatusInProgress>0</StatusInProgress></State>");
}

TEST(StatusCls, StartsFromItsDefaultsAtEachRead) {
    TestSession session;
    const auto status = SomeStatus();
    EXPECT_EQ(status->FromXml("<Status><StatusInProgress>5</StatusInProgress></Status>"), True);
    EXPECT_EQ(status->StatusDone(), 0);
    EXPECT_EQ(status->StatusInProgress(), 5);
}

TEST(StatusCls, KeepsWhatStoodBeforeABadField) {
    TestSession session;
    const auto status = Make<StatusCls>();
    EXPECT_EQ(status->FromXml("<Status><StatusDone>3</StatusDone><StatusInProgress/></Status>"), False);
    EXPECT_EQ(status->StatusDone(), 3);
    EXPECT_EQ(session.failures.Taken(), "StatusCls/FromXml 13\n");
    session.Write("status.xml", "<Status><StatusDone>many</StatusDone></Status>");
    EXPECT_EQ(status->FromXmlFile(session.Path("status.xml")), False);
    EXPECT_EQ(session.failures.Taken(), "StatusCls/FromXmlFile 13\n");
}

TEST(StatusCls, RecordsAFileThatCannotBeReadOrWritten) {
    TestSession session;
    EXPECT_EQ(Make<StatusCls>()->FromXmlFile(session.Path("none.xml")), False);
    EXPECT_EQ(session.failures.Taken(), "StatusCls/FromXmlFile 91\n");
    SomeStatus()->ToXmlFile(session.Path("no/such/folder.xml"));
    EXPECT_EQ(session.failures.Taken(), "StatusCls/ToXmlFile 76\n");
}

TEST(StatusCls, ClonesItsFields) {
    TestSession session;
    const auto status = SomeStatus();
    const auto copy = status->Clone();
    status->StatusDone(4);
    EXPECT_EQ(copy->StatusDone(), 3);
    EXPECT_EQ(copy->StatusInProgress(), 70000);
}

}  // namespace
}  // namespace mrlxmlclass
