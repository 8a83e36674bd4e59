#include "mrlxmlclass/dom/Document.h"

#include <gtest/gtest.h>

#include "tests/dom/MemoryFiles.h"
#include "tests/dom/SmallStack.h"
#include "tests/support/NumberOf.h"

namespace mrlxmlclass::dom {
namespace {

using namespace std::string_literals;

String Nested(int depth) {
    String source;
    for (int n = 0; n < depth; ++n) source += "<a>";
    source += "x";
    for (int n = 0; n < depth; ++n) source += "</a>";
    return source;
}

TEST(Load, ReadsAFile) {
    MemoryDisk disk;
    disk.Put("/p.prx", "<?xml version=\"1.0\" ?>\n<Project><Name>x</Name></Project>\n");
    Document doc;
    EXPECT_TRUE(doc.Load("/p.prx"));
    EXPECT_EQ(doc.error_code(), 0);
    EXPECT_EQ(doc.documentElement().selectSingleNode("Name").Text(), "x");
}

TEST(Load, ReadsEveryEncoding) {
    MemoryDisk disk;
    for (const String& bytes :
         {"\xEF\xBB\xBF<a>\xC3\xA9</a>"s, "\xFF\xFE<\0a\0>\0\xE9\0<\0/\0a\0>\0"s,
          "\xFE\xFF\0<\0a\0>\0\xE9\0<\0/\0a\0>"s, "<?xml version='1.0' encoding='iso-8859-1'?><a>\xE9</a>"s,
          "<?xml version='1.0' encoding='windows-1252'?><a>\xE9</a>"s}) {
        SCOPED_TRACE(::testing::PrintToString(bytes));
        disk.Put("/p.prx", bytes);
        Document doc;
        EXPECT_TRUE(doc.Load("/p.prx")) << doc.error_text();
        EXPECT_EQ(doc.documentElement().Text(), "\xC3\xA9");
    }
}

TEST(Load, TellsWhyAFileCannotBeRead) {
    MemoryDisk disk;
    Document doc;
    EXPECT_FALSE(doc.Load("/absent.prx"));
    EXPECT_EQ(doc.error_code(), failure::kFileNotFound);
    disk.PutFolder("/folder");
    EXPECT_FALSE(doc.Load("/folder"));
    EXPECT_EQ(doc.error_code(), failure::kPathAccess);
    disk.Put("/p.prx", "<a/>");
    disk.refused_reading = failure::kPermissionDenied;
    EXPECT_FALSE(doc.Load("/p.prx"));
    EXPECT_EQ(doc.error_code(), failure::kDeviceFailure);
    EXPECT_NE(doc.error_text(), "");
}

TEST(Load, LeavesTheDocumentEmptyWhenItFails) {
    MemoryDisk disk;
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<?xml version='1.0'?><a/>"));
    EXPECT_FALSE(doc.Load("/absent.prx"));
    EXPECT_FALSE(doc.documentElement());
    EXPECT_EQ(doc.node().childCount(), 0);
    EXPECT_EQ(doc.xml(), "");
    EXPECT_TRUE(doc.LoadXML("<b/>"));
    EXPECT_EQ(doc.error_code(), 0);
    EXPECT_EQ(doc.error_text(), "");
}

TEST(Load, RefusesWhatIsNotWellFormed) {
    MemoryDisk disk;
    for (const String& bytes :
         {""s, "\xEF\xBB\xBF"s, "<a>\xE9</a>"s, "<a/><b/>"s, "<a/>x"s, "<a>&</a>"s, "<a><b></a>"s, "<a b='' b=''/>"s,
          "<a>\0</a>"s, "\xFF\xFE<\0a"s, "<?xml version='1.0' encoding='koi8-r'?><a/>"s}) {
        SCOPED_TRACE(::testing::PrintToString(bytes));
        disk.Put("/p.prx", bytes);
        Document doc;
        EXPECT_FALSE(doc.Load("/p.prx"));
        EXPECT_EQ(doc.error_code(), Document::kNotWellFormed);
        EXPECT_FALSE(doc.documentElement());
    }
}

TEST(Load, TellsThePlaceOfAFlaw) {
    Document doc;
    EXPECT_FALSE(doc.LoadXML("<a>\n <b>&nbsp;</b>\n</a>"));
    EXPECT_EQ(doc.error_text(), "An entity is not known (line 2, column 5)");
}

TEST(Load, ExpandsNoEntityOfADocumentType) {
    Document doc;
    EXPECT_TRUE(doc.LoadXML("<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><a>1</a>"));
    EXPECT_EQ(doc.documentElement().Text(), "1");
    EXPECT_FALSE(doc.LoadXML("<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><a>&x;</a>"));
    EXPECT_FALSE(doc.LoadXML("<!DOCTYPE a [<!ENTITY x '1'><!ENTITY y '&x;&x;&x;'>]><a>&y;</a>"));
}

TEST(LoadXML, IgnoresTheDeclaredEncoding) {
    Document doc;
    for (const char* name : {"utf-16", "windows-1252", "koi8-r"}) {
        EXPECT_TRUE(doc.LoadXML("<?xml version='1.0' encoding='"s + name + "'?><a>\xC3\xA9</a>")) << name;
        EXPECT_EQ(doc.documentElement().Text(), "\xC3\xA9");
    }
}

TEST(LoadXML, TakesADeclarationWithItsBlanks) {
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<?xml version=\"1.0\" ?><Project/>"));
    EXPECT_EQ(doc.node().childNodes(0).nodeType(), 7);
    EXPECT_EQ(doc.xml(), "<?xml version=\"1.0\" ?><Project/>");
}

TEST(Xml, WritesBackWhatWasRead) {
    Document doc;
    for (const char* source :
         {"<a/>", "<?xml version='1.0'  encoding=\"utf-16\" ?><a b=\"1&amp;&lt;&quot;\">x &lt;&amp;&gt; y</a>",
          "<?xml-stylesheet href='x'?><!--c--><a> <!-- d -->x<![CDATA[<e>]]></a><?f g?>", "<!DOCTYPE a><a>  </a>",
          "<p:a xmlns:p=\"u\"><p:b/></p:a>"}) {
        ASSERT_TRUE(doc.LoadXML(source)) << doc.error_text();
        EXPECT_EQ(doc.xml(), source);
    }
}

TEST(Xml, IsTheSameAfterASecondReading) {
    Document first;
    ASSERT_TRUE(first.LoadXML("<a>\r\n <b> x </b>\n <!--c--> <d>&#9;&#13;</d> </a>"));
    Document second;
    ASSERT_TRUE(second.LoadXML(first.xml()));
    EXPECT_EQ(second.documentElement().childCount(), first.documentElement().childCount());
    EXPECT_EQ(first.xml().find("&#13;"), String::npos);
}

TEST(AppendElement, RefusesANameThatXmlDoesNotAllow) {
    Document doc;
    const Node root = doc.AppendRoot("Root");
    for (const char* name : {"", "1a", "a b", "a/b", "a<", "a&", "\xFF"}) {
        EXPECT_EQ(NumberOf([&] { doc.AppendElement(root, name); }), failure::kUnknownKey) << name;
    }
    EXPECT_EQ(doc.xml(), "<Root/>");
}

TEST(AppendElement, FailsWhereNothingCanBeAppended) {
    Document doc;
    Document other;
    const Node root = doc.AppendRoot("Root");
    const Node text = doc.AppendText(root, "Name", "x").firstChild();
    EXPECT_EQ(NumberOf([&] { doc.AppendElement({}, "a"); }), failure::kNothing);
    EXPECT_EQ(NumberOf([&] { doc.AppendElement(text, "a"); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { other.AppendElement(root, "a"); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.SetText(text, "a"); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.SetAttribute({}, "a", "b"); }), failure::kNothing);
}

TEST(AppendRoot, IsRefusedASecondTime) {
    Document doc;
    doc.AppendRoot("Root");
    EXPECT_EQ(NumberOf([&] { doc.AppendRoot("Root"); }), failure::kUnknownKey);
    EXPECT_EQ(doc.xml(), "<Root/>");
}

TEST(AppendText, EscapesAndKeepsEveryBlank) {
    Document doc;
    const Node root = doc.AppendRoot("Root");
    doc.AppendText(root, "A", "<&>\"'");
    doc.AppendText(root, "B", "  ");
    doc.AppendText(root, "C", "");
    doc.AppendText(root, "D", "\tx\n");
    EXPECT_EQ(doc.xml(), "<Root><A>&lt;&amp;&gt;\"'</A><B>  </B><C/><D>\tx\n</D></Root>");
    Document back;
    ASSERT_TRUE(back.LoadXML(doc.xml()));
    EXPECT_EQ(back.documentElement().childNodes(1).Text(), "  ");
    EXPECT_EQ(back.documentElement().childNodes(3).Text(), "\tx\n");
}

TEST(AppendText, NormalisesLineEndsAndDropsWhatCannotStand) {
    Document doc;
    const Node root = doc.AppendRoot("Root");
    EXPECT_EQ(doc.AppendText(root, "A", "a\r\nb\rc").Text(), "a\nb\nc");
    EXPECT_EQ(doc.AppendText(root, "A", "a\x01\xFF\xED\xA0\x80z").Text(), "az");
    EXPECT_TRUE(Document().LoadXML(doc.xml()));
}

TEST(SetText, TakesThePlaceOfAllThatStood) {
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<a><b>1<c/>2</b><d>3</d><e><![CDATA[4]]></e></a>"));
    const Node a = doc.documentElement();
    for (int n = 0; n < 3; ++n) doc.SetText(a.childNodes(n), "new");
    EXPECT_EQ(doc.xml(), "<a><b>new</b><d>new</d><e>new</e></a>");
    doc.SetText(a.childNodes(1), "");
    EXPECT_EQ(doc.xml(), "<a><b>new</b><d/><e>new</e></a>");
    EXPECT_EQ(doc.node().childCount(), 1);
}

TEST(SetText, LeavesWhatItReplacedReadable) {
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<a><b><c>old</c></b></a>"));
    const Node c = doc.documentElement().firstChild().firstChild();
    doc.SetText(doc.documentElement(), "new");
    EXPECT_EQ(c.Text(), "old");
    EXPECT_EQ(doc.node().Text(), "new");
    EXPECT_EQ(doc.documentElement().nextSibling(), Node());
}

TEST(SetAttribute, AddsOrChanges) {
    Document doc;
    const Node root = doc.AppendRoot("Tasks");
    doc.SetAttribute(root, "scheduler", "false");
    doc.SetAttribute(root, "scheduler", "true");
    doc.SetAttribute(root, "note", "a\r\n<\"&\x02");
    EXPECT_EQ(doc.xml(), "<Tasks scheduler=\"true\" note=\"a&#10;&lt;&quot;&amp;\"/>");
    EXPECT_EQ(NumberOf([&] { doc.SetAttribute(root, "a b", ""); }), failure::kUnknownKey);
}

TEST(AppendProcessingInstruction, PutsTheDeclarationFirst) {
    Document doc;
    doc.AppendProcessingInstruction("xml", "version='1.0'");
    doc.AppendRoot("Persisting");
    doc.AppendProcessingInstruction("p", "q");
    EXPECT_EQ(doc.xml(), "<?xml version='1.0'?><Persisting/><?p q?>");
    EXPECT_EQ(doc.node().childNodes(0).nodeType(), 7);
    EXPECT_EQ(doc.node().childNodes(1).baseName(), "Persisting");
    EXPECT_EQ(NumberOf([&] { doc.AppendProcessingInstruction("xml", "version='1.0'"); }), failure::kUnknownKey);
}

TEST(AppendProcessingInstruction, RefusesWhatWouldSpoilTheDocument) {
    Document doc;
    EXPECT_EQ(NumberOf([&] { doc.AppendProcessingInstruction("xml", "encoding='utf-8'"); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.AppendProcessingInstruction("p", "x?><?y z"); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.AppendProcessingInstruction("p q", ""); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.AppendProcessingInstruction("", ""); }), failure::kUnknownKey);
    EXPECT_EQ(doc.xml(), "");
}

TEST(AppendCopy, TakesANodeOfAnotherDocument) {
    Document source;
    ASSERT_TRUE(source.LoadXML("<a b='1'><c>x</c></a>"));
    Document doc;
    const Node root = doc.AppendCopy(doc.node(), source.documentElement());
    doc.AppendCopy(root, source.documentElement().firstChild());
    EXPECT_EQ(doc.xml(), "<a b=\"1\"><c>x</c><c>x</c></a>");
    EXPECT_EQ(source.xml(), "<a b=\"1\"><c>x</c></a>");
    EXPECT_EQ(NumberOf([&] { doc.AppendCopy(doc.node(), source.documentElement()); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.AppendCopy(root, source.node()); }), failure::kUnknownKey);
    EXPECT_EQ(NumberOf([&] { doc.AppendCopy(root, {}); }), failure::kNothing);
}

TEST(AppendCopy, OfItsOwnParentEnds) {
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<a><b/></a>"));
    doc.AppendCopy(doc.documentElement().firstChild(), doc.documentElement());
    EXPECT_EQ(doc.xml(), "<a><b><a><b/></a></b></a>");
}

TEST(ReplaceWithCopy, StandsInThePlaceOfTheOld) {
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<a><b>1</b><c>2</c><d/></a>"));
    Document source;
    ASSERT_TRUE(source.LoadXML("<n>new</n>"));
    const Node root = doc.documentElement();
    const Node fresh = doc.ReplaceWithCopy(root, source.documentElement(), root.childNodes(1));
    EXPECT_EQ(fresh.Text(), "new");
    EXPECT_EQ(doc.xml(), "<a><b>1</b><n>new</n><d/></a>");
    EXPECT_EQ(NumberOf([&] { doc.ReplaceWithCopy(fresh, source.documentElement(), root.firstChild()); }),
              failure::kUnknownKey);
    doc.ReplaceWithCopy(doc.node(), source.documentElement(), root);
    EXPECT_EQ(doc.xml(), "<n>new</n>");
    EXPECT_EQ(doc.documentElement().Text(), "new");
    EXPECT_EQ(doc.node().childCount(), 1);
}

TEST(Document, HoldsElementsNestedToAnyDepth) {
    OnSmallStack([] {
        MemoryDisk disk;
        constexpr int kDepth = 100000;
        disk.Put("/p.prx", Nested(kDepth));
        Document doc;
        ASSERT_TRUE(doc.Load("/p.prx"));
        doc.Save("/q.prx");
        EXPECT_EQ(disk.At("/q.prx"), disk.At("/p.prx"));
        Document copy;
        const Node root = copy.AppendRoot("Root");
        copy.AppendCopy(root, doc.documentElement());
        copy.ReplaceWithCopy(root, doc.documentElement(), root.firstChild());
        EXPECT_EQ(root.Text(), "x");
        copy.SetText(root, "");
        EXPECT_EQ(copy.xml(), "<Root/>");
        EXPECT_FALSE(copy.LoadXML("<!---->" + Nested(kDepth) + "<"));
    });
}

TEST(Document, GrowsToAnyDepthAfterASave) {
    MemoryDisk disk;
    Document doc;
    Node node = doc.AppendRoot("Root");
    doc.AppendElement(node, "First");
    doc.Save("/p.prx");
    for (int n = 0; n < 20000; ++n) node = doc.AppendElement(node, "a");
    doc.Save("/p.prx");
    EXPECT_EQ(disk.At("/p.prx"), doc.xml());
}

TEST(Document, HoldsATextOfFiftyMegabytes) {
    MemoryDisk disk;
    const String text(std::size_t{50} << 20U, 'x');
    disk.Put("/p.prx", "<a><b>" + text + "</b></a>");
    Document doc;
    ASSERT_TRUE(doc.Load("/p.prx"));
    EXPECT_TRUE(doc.documentElement().Text() == text);
    doc.AppendText(doc.documentElement(), "c", text);
    doc.Save("/p.prx");
    EXPECT_EQ(disk.At("/p.prx").size(), 2 * text.size() + String("<a><b></b><c></c></a>").size());
}

TEST(Document, EndsAtEveryChangedByte) {
    const String whole =
        "<?xml version=\"1.0\" ?><!DOCTYPE P [<!ENTITY e 'f'>]><P a='b'><T k=\"1\">x&amp;&#65;</T> "
        "<!--c--><![CDATA[d]]></P>";
    ASSERT_TRUE(Document().LoadXML(whole));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int bit : {0x01, 0x02, 0x10, 0x20, 0x80}) {
            String changed = whole;
            changed[at] = static_cast<char>(changed[at] ^ bit);
            Document doc;
            if (!doc.LoadXML(changed)) continue;
            Document again;
            EXPECT_TRUE(again.LoadXML(doc.xml())) << changed << "\n" << doc.xml() << "\n" << again.error_text();
        }
    }
}

}  // namespace
}  // namespace mrlxmlclass::dom
