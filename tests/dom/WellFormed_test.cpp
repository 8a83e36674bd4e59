#include "mrlxmlclass/dom/WellFormed.h"

#include <gtest/gtest.h>

namespace mrlxmlclass::dom {
namespace {

String FlawOf(const String& source) {
    const SourceCheck check = CheckWellFormed(source);
    return check.flaw == nullptr ? "" : check.flaw + (" at " + std::to_string(check.place));
}

TEST(CheckWellFormed, TakesWhatXmlTakes) {
    for (const char* source : {
             "<a/>",
             "<a></a >",
             "  <a/>\n",
             "<?xml version=\"1.0\" ?><a/>",
             "<?xml version='1.0' encoding='utf-8' standalone='yes'?>\n<a/>",
             "<?xml version='1.0' standalone='yes'?><a/>",
             "<a b='1' c = \"2>'\"\n d='&lt;&#10;'/>",
             "<a>&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;&#0000000065;</a>",
             "<a>] ]] > ]]&gt;</a>",
             "<a><![CDATA[ <b> & ]] ]]></a>",
             "<!-- - -><a> --><a/><!-- behind -->",
             "<?p?><?p <a>?><a><?q r?></a><?xml-style x?>",
             "<!DOCTYPE a><a/>",
             "<!DOCTYPE a SYSTEM 'x>.dtd'><a/>",
             "<!DOCTYPE a [<!ENTITY x \"<b>'\"><!-- ' ]> --><?p ]>?><!ELEMENT a (b)>]><a/>",
             "<p:a xmlns:p='u'><p:b/></p:a>",
             "<\xC3\xA4 \xC3\xB6='1'></\xC3\xA4>",
         }) {
        EXPECT_EQ(FlawOf(source), "") << source;
    }
}

/// A text, and what is wrong with it.
struct Flawed {
    const char* source;
    const char* flaw;
};

TEST(CheckWellFormed, TellsWhatIsWrongWithElementsAndWhere) {
    for (const Flawed& row : {
             Flawed{"", "There is no root element at 0"},
             Flawed{" \n", "There is no root element at 2"},
             Flawed{"<!-- a -->", "There is no root element at 10"},
             Flawed{"<a/><b/>", "There is more than one root element at 4"},
             Flawed{"<a></a><b>", "There is more than one root element at 7"},
             Flawed{"x<a/>", "There is text outside the root element at 0"},
             Flawed{"<a/> x", "There is text outside the root element at 5"},
             Flawed{"<a/>&#65;", "There is text outside the root element at 4"},
             Flawed{"<a/><![CDATA[]]>", "There is text outside the root element at 4"},
             Flawed{"<a>", "An element is not closed at 3"},
             Flawed{"<a><b></b>", "An element is not closed at 10"},
             Flawed{"<a><b></a></b>", "An end tag does not match its start tag at 6"},
             Flawed{"<a></ab>", "An end tag does not match its start tag at 3"},
             Flawed{"<ab></a>", "An end tag does not match its start tag at 4"},
             Flawed{"<a></a/>", "An end tag is not closed at 6"},
             Flawed{"<x:1/>", "A tag has no valid name at 1"},
             Flawed{"<a:/>", "A tag has no valid name at 1"},
             Flawed{"<a :b='1'/>", "An attribute has no valid name at 3"},
             Flawed{"</a>", "An end tag does not match its start tag at 0"},
             Flawed{"<a", "A tag is not closed at 2"},
             Flawed{"<a ", "A tag is not closed at 3"},
             Flawed{"<a/", "A tag holds what it must not at 2"},
             Flawed{"<", "A tag has no valid name at 1"},
             Flawed{"<1/>", "A tag has no valid name at 1"},
             Flawed{"<\xC3\x97/>", "A tag has no valid name at 1"},
             Flawed{"<a>< b/></a>", "A tag has no valid name at 4"},
             Flawed{"<a b='1'c='2'/>", "A tag holds what it must not at 8"},
             Flawed{"<a b/>", "An attribute has no value at 4"},
             Flawed{"<a b=1/>", "The value of an attribute is not quoted at 5"},
             Flawed{"<a b='1/>", "The value of an attribute does not end at 9"},
             Flawed{"<a b='<'/>", "\"<\" stands in the value of an attribute at 6"},
             Flawed{"<a ='1'/>", "An attribute has no valid name at 3"},
             Flawed{"<a b='1' c='2' b='3'/>", "An attribute stands twice in one tag at 22"},
             Flawed{"<a b='' b=''></a>", "An attribute stands twice in one tag at 13"},
         }) {
        EXPECT_EQ(FlawOf(row.source), row.flaw) << row.source;
    }
}

TEST(CheckWellFormed, TellsWhatIsWrongBetweenTagsAndWhere) {
    for (const Flawed& row : {
             Flawed{"<a>&</a>", "An entity is not known at 3"},
             Flawed{"<a>x & y</a>", "An entity is not known at 5"},
             Flawed{"<a>&nbsp;</a>", "An entity is not known at 3"},
             Flawed{"<a>&lt</a>", "An entity is not known at 3"},
             Flawed{"<a b='&x;'/>", "An entity is not known at 6"},
             Flawed{"<a>&#0;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#x;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#8;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#xD800;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#xFFFE;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#x110000;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#4294967361;</a>", "A reference names no valid character at 3"},
             Flawed{"<a>&#65</a>", "A reference names no valid character at 3"},
             Flawed{"<a>]]></a>", "\"]]>\" stands in text at 3"},
             Flawed{"<a><!-- b -- c --></a>", "\"--\" stands in a comment at 12"},
             Flawed{"<a><!-- b</a>", "A comment does not end at 7"},
             Flawed{"<a><![CDATA[</a>", "A CDATA section does not end at 3"},
             Flawed{"<a><![cdata[]]></a>", "Markup is not known at 3"},
             Flawed{"<a><?p</a>", "An instruction has no valid target at 6"},
             Flawed{"<a><?p </a>", "An instruction does not end at 7"},
             Flawed{"<?1?><a/>", "An instruction has no valid target at 2"},
             Flawed{"<?xml?><a/>", "A declaration is not valid or not at the start at 5"},
             Flawed{" <?xml version='1.0'?><a/>", "A declaration is not valid or not at the start at 6"},
             Flawed{"<a/><?XML version='1.0'?>", "A declaration is not valid or not at the start at 9"},
             Flawed{"<?xml encoding='utf-8'?><a/>", "The declaration has no version at 22"},
             Flawed{"<?xml version='1.0' version='1.0'?><a/>", "The declaration is not valid at 33"},
             Flawed{"<?xml version='1.0' standalone='no' encoding='utf-8'?><a/>", "The declaration is not valid at 52"},
             Flawed{"<?xml version='1.0'", "The declaration does not end at 19"},
             Flawed{"<a/><!DOCTYPE a>", "A document type stands where none may at 4"},
             Flawed{"<!DOCTYPE a><!DOCTYPE a><a/>", "A document type stands where none may at 12"},
             Flawed{"<!DOCTYPE a [<!ENTITY b 'c'>]", "A document type does not end at 29"},
             Flawed{"<!DOCTYPE a 'b><a/>", "A document type does not end at 13"},
             Flawed{"<!DOCTYPE a [%p;]><a/>", "A document type holds what is not taken at 13"},
             Flawed{"<!DOCTYPE a [<![INCLUDE[]]>]><a/>", "A document type holds what is not taken at 13"},
             Flawed{"<!DOCTYPE a [<b>]><a/>", "Markup is not known at 13"},
             Flawed{"<a>\x01</a>", "A character is not valid at 3"},
             Flawed{"<a>\xFF</a>", "A character is not valid at 3"},
         }) {
        EXPECT_EQ(FlawOf(row.source), row.flaw) << row.source;
    }
}

TEST(CheckWellFormed, KnowsNoEntityOfADocumentType) {
    EXPECT_EQ(FlawOf("<!DOCTYPE a [<!ENTITY x 'y'>]><a>&x;</a>"), "An entity is not known at 33");
    EXPECT_EQ(FlawOf("<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><a b='&x;'/>"),
              "An entity is not known at 60");
}

TEST(CheckWellFormed, SeesBlanksBesideMarks) {
    for (const char* source :
         {"<a> <!-- b --></a>", "<a><?b?>\n</a>", "<a><![CDATA[b]]> </a>", "<a> <![CDATA[b]]></a>"}) {
        EXPECT_TRUE(CheckWellFormed(source).blanks_beside_marks) << source;
    }
    for (const char* source : {"<a> <b/> </a>", "<a> </a>", "<!-- a --> <a/> <!-- b -->", "<a>b <!-- c --></a>"}) {
        EXPECT_FALSE(CheckWellFormed(source).blanks_beside_marks) << source;
    }
}

TEST(CheckWellFormed, TakesManyAttributesInNoTimeThatGrowsWithTheirPairs) {
    String source = "<a";
    for (int n = 0; n < 100000; ++n) source += " a" + std::to_string(n) + "=''";
    EXPECT_EQ(FlawOf(source + "/>"), "");
    EXPECT_NE(FlawOf(source + " a7=''/>"), "");
}

TEST(CheckWellFormed, EndsAtEveryCutOfADocument) {
    const String whole =
        "<?xml version='1.0'?><!DOCTYPE a [<!ENTITY b 'c'>]><!-- d --><a b='c&lt;'>d&#65;<![CDATA[e]]><?f g?></a>";
    ASSERT_EQ(FlawOf(whole), "");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_NE(FlawOf(whole.substr(0, length)), "") << whole.substr(0, length);
    }
}

TEST(PlaceInWords, CountsLinesAndColumnsFromOne) {
    EXPECT_EQ(PlaceInWords("abc", 0), "line 1, column 1");
    EXPECT_EQ(PlaceInWords("a\nbc\nd", 3), "line 2, column 2");
    EXPECT_EQ(PlaceInWords("a\nbc\nd", 5), "line 3, column 1");
}

}  // namespace
}  // namespace mrlxmlclass::dom
