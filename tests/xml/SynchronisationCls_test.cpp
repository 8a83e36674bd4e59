#include "mrlxmlclass/xml/SynchronisationCls.h"

#include <gtest/gtest.h>

#include "tests/support/TestSession.h"

namespace mrlxmlclass {
namespace {

using testing::TestSession;

Ref<SynchronisationCls> SomeSynchronisation() {
    auto record = Make<SynchronisationCls>();
    record->SynchronisationID(3);
    record->ProjectID(4);
    record->SynchronisationApp("Diary");
    record->SynchronisationLastDate(Date(Date::Of(2026, 3, 2).days() + 0.5));
    record->SynchronisationFile("C:\\plans\\house.prx");
    return record;
}

constexpr const char* kBody =
    "<SynchronisationID>3</SynchronisationID><ProjectID>4</ProjectID><SynchronisationApp>Diary</SynchronisationApp>"
    "<SynchronisationLastDate>3/2/2026 12:00:00</SynchronisationLastDate>"
    "<SynchronisationFile>C:\\plans\\house.prx</SynchronisationFile>";

void ExpectSame(const Ref<SynchronisationCls>& record) {
    EXPECT_EQ(record->SynchronisationID(), 3);
    EXPECT_EQ(record->ProjectID(), 4);
    EXPECT_EQ(record->SynchronisationApp(), "Diary");
    EXPECT_EQ(record->SynchronisationLastDate(), Date(Date::Of(2026, 3, 2).days() + 0.5));
    EXPECT_EQ(record->SynchronisationFile(), "C:\\plans\\house.prx");
}

TEST(SynchronisationCls, ComesBackFromItsOwnFile) {
    TestSession session;
    SomeSynchronisation()->ToXmlFile(session.Path("sync.xml"));
    EXPECT_EQ(session.Read("sync.xml"),
              String("<?xml version=\"1.0\" encoding=\"utf-8\" ?><Synchronisation>") + kBody + "</Synchronisation>");
    const auto record = Make<SynchronisationCls>();
    EXPECT_EQ(record->FromXmlFile(session.Path("sync.xml")), True);
    ExpectSame(record);
}

TEST(SynchronisationCls, ComesBackFromItsText) {
    TestSession session;
    const String text = SomeSynchronisation()->ToXml(False, True);
    EXPECT_EQ(text, String("<Synchronisation>") + kBody + "</Synchronisation>");
    const auto record = Make<SynchronisationCls>();
    EXPECT_EQ(record->FromXml(text), True);
    ExpectSame(record);
}

TEST(SynchronisationCls, WritesEveryFieldOfAFreshRecord) {
    TestSession session;
    EXPECT_EQ(Make<SynchronisationCls>()->ToXml(False),
              "<Synchronisation><SynchronisationID>0</SynchronisationID><ProjectID>0</ProjectID><SynchronisationApp/>"
              "<SynchronisationLastDate>12/30/1899</SynchronisationLastDate><SynchronisationFile/></Synchronisation>");
}

TEST(SynchronisationCls, RecordsABadFieldUnderTheReaderAndKeepsWhatStoodBefore) {
    TestSession session;
    const auto record = Make<SynchronisationCls>();
    EXPECT_EQ(
        record->FromXml("<S><ProjectID>4</ProjectID><SynchronisationLastDate>never</SynchronisationLastDate></S>"),
        False);
    EXPECT_EQ(record->ProjectID(), 4);
    EXPECT_EQ(session.failures.Taken(), "SynchronisationCls/FromXml 13\n");
    EXPECT_EQ(record->FromXmlFile(session.Path("none.xml")), False);
    EXPECT_EQ(session.failures.Taken(), "SynchronisationCls/FromXmlFile 91\n");
    record->ToXmlFile(session.Path("no/such/folder.xml"));
    EXPECT_EQ(session.failures.Taken(), "SynchronisationCls/ToXmlFile 76\n");
}

TEST(SynchronisationCls, ClonesItsFields) {
    TestSession session;
    ExpectSame(SomeSynchronisation()->Clone());
}

}  // namespace
}  // namespace mrlxmlclass
