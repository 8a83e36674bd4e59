#include "mrlxmlclass/dom/Node.h"

#include <gtest/gtest.h>

#include "mrlxmlclass/dom/Document.h"
#include "tests/dom/SmallStack.h"

namespace mrlxmlclass::dom {
namespace {

struct Parsed : Document {
    explicit Parsed(std::string_view source) { EXPECT_TRUE(LoadXML(source)) << error_text(); }
    Node root() const { return documentElement(); }
};

TEST(Node, AnswersNothingWhenItIsNull) {
    const Node none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.nodeType(), 0);
    EXPECT_EQ(none.baseName(), "");
    EXPECT_EQ(none.Text(), "");
    EXPECT_FALSE(none.firstChild() || none.nextSibling() || none.parentNode() || none.childNodes(0));
    EXPECT_EQ(none.childCount(), 0);
    EXPECT_FALSE(none.selectSingleNode("a"));
    EXPECT_FALSE(none.HasAttribute("a"));
    EXPECT_EQ(none.Attribute("a"), "");
    EXPECT_EQ(none.attributeCount(), 0);
}

TEST(NodeType, TellsEveryKind) {
    const Parsed doc("<?xml version='1.0'?><!DOCTYPE a><?p q?><!--c--><a>t<![CDATA[d]]></a>");
    EXPECT_EQ(doc.node().nodeType(), 9);
    String kinds;
    for (Node node = doc.node().firstChild(); node; node = node.nextSibling()) {
        kinds += std::to_string(node.nodeType()) + " ";
    }
    EXPECT_EQ(kinds, "7 10 7 8 1 ");
    EXPECT_EQ(doc.root().childNodes(0).nodeType(), 3);
    EXPECT_EQ(doc.root().childNodes(1).nodeType(), 4);
}

TEST(BaseName, LeavesThePrefixOut) {
    const Parsed doc("<a xmlns:p='u'><p:b/></a>");
    EXPECT_EQ(doc.root().baseName(), "a");
    EXPECT_EQ(doc.root().firstChild().baseName(), "b");
    EXPECT_EQ(doc.root().selectSingleNode("b"), doc.root().firstChild());
}

TEST(NodeText, JoinsAllTextsBelow) {
    const Parsed doc("<a>one<b> two<c>&amp;</c></b><!-- no --><?no no?><![CDATA[<3>]]>four</a>");
    EXPECT_EQ(doc.root().Text(), "one two&<3>four");
    EXPECT_EQ(doc.node().Text(), "one two&<3>four");
}

TEST(NodeText, SkipsCommentsInsideAField) {
    EXPECT_EQ(Parsed("<a>x<!-- c -->y</a>").root().Text(), "xy");
    EXPECT_EQ(Parsed("<a><!-- c -->y</a>").root().Text(), "y");
    EXPECT_EQ(Parsed("<a><!-- c --></a>").root().Text(), "");
}

TEST(NodeText, KeepsBlanksInsideALeaf) {
    EXPECT_EQ(Parsed("<a>  </a>").root().Text(), "  ");
    EXPECT_EQ(Parsed("<a> x\t\n</a>").root().Text(), " x\t\n");
    EXPECT_EQ(Parsed("<a>  <!-- c -->x<!-- d --> </a>").root().Text(), "  x ");
    EXPECT_EQ(Parsed("<a> <![CDATA[x]]>\n</a>").root().Text(), " x\n");
    EXPECT_EQ(Parsed("<a> <!-- c --></a>").root().Text(), " ");
}

TEST(NodeText, IsTheOwnTextOfANodeWithoutChildren) {
    const Parsed doc("<a>x<!--c--><?p q?></a>");
    EXPECT_EQ(doc.root().childNodes(0).Text(), "x");
    EXPECT_EQ(doc.root().childNodes(1).Text(), "c");
    EXPECT_EQ(doc.root().childNodes(2).Text(), "q");
}

TEST(NodeText, GivesLineEndsAsLineFeeds) {
    EXPECT_EQ(Parsed("<a>x\r\ny\rz</a>").root().Text(), "x\ny\nz");
}

TEST(Children, HoldNoBlanksBetweenElements) {
    const Parsed plain("<a>\n  <b/>\n  <c> </c>\n</a>");
    EXPECT_EQ(plain.root().childCount(), 2);
    EXPECT_EQ(plain.root().childNodes(1).Text(), " ");
    const Parsed commented("<a>\n  <!-- x -->\n  <b/>\n  <c>\n <!-- y --> <d/> </c>\n</a>");
    EXPECT_EQ(commented.root().childCount(), 3);
    EXPECT_EQ(commented.root().childNodes(0).nodeType(), 8);
    EXPECT_EQ(commented.root().childNodes(2).childCount(), 2);
}

TEST(Children, AreCountedFromZero) {
    const Parsed doc("<a><b/><c/></a>");
    EXPECT_EQ(doc.root().childNodes(0).baseName(), "b");
    EXPECT_EQ(doc.root().childNodes(1).baseName(), "c");
    EXPECT_FALSE(doc.root().childNodes(2));
    EXPECT_FALSE(doc.root().childNodes(-1));
    EXPECT_EQ(doc.root().childNodes(1).parentNode(), doc.root());
    EXPECT_EQ(doc.root().parentNode(), doc.node());
    EXPECT_FALSE(doc.node().parentNode());
}

TEST(SelectSingleNode, GivesTheFirstOfTheNameAmongTheChildren) {
    const Parsed doc("<a>text<x><b n='0'/></x><b n='1'/><b n='2'/></a>");
    EXPECT_EQ(doc.root().selectSingleNode("b").Attribute("n"), "1");
    EXPECT_FALSE(doc.root().selectSingleNode("B"));
}

TEST(Attribute, TellsAnAbsentFromAnEmptyOne) {
    const Parsed doc("<a b='' c='1&#10;&quot;'/>");
    EXPECT_TRUE(doc.root().HasAttribute("b"));
    EXPECT_EQ(doc.root().Attribute("b"), "");
    EXPECT_EQ(doc.root().Attribute("c"), "1\n\"");
    EXPECT_FALSE(doc.root().HasAttribute("d"));
    EXPECT_EQ(doc.root().Attribute("d"), "");
    EXPECT_EQ(doc.root().attributeCount(), 2);
}

TEST(NodeText, GoesDownAnyDepth) {
    OnSmallStack([] {
        constexpr int kDepth = 100000;
        String source;
        for (int n = 0; n < kDepth; ++n) source += "<a>";
        source += "deep";
        for (int n = 0; n < kDepth; ++n) source += "</a>";
        EXPECT_EQ(Parsed(source).root().Text(), "deep");
    });
}

}  // namespace
}  // namespace mrlxmlclass::dom
