#include <gtest/gtest.h>

#include "mrlxmlclass/dom/Document.h"
#include "tests/dom/MemoryFiles.h"
#include "tests/support/NumberOf.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::dom {
namespace {

using namespace std::string_literals;

/// A document that grows section by section, and the plain save of its equal beside it.
struct Growing {
    Growing() { EXPECT_TRUE(doc.LoadXML("<?xml version=\"1.0\" ?><Project><Name>x</Name></Project>")); }

    void Add(int records) {
        const Node section = doc.AppendElement(doc.documentElement(), "Section");
        doc.SetAttribute(section, "scheduler", "true");
        for (int n = 0; n < records; ++n) {
            const Node record = doc.AppendElement(section, "Record");
            doc.AppendText(record, "Key", std::to_string(n));
            doc.AppendText(record, "Name", "a & b");
        }
    }
    String Plain() {
        Document equal;
        EXPECT_TRUE(equal.LoadXML(doc.xml()));
        equal.Save("/plain.prx");
        return disk.At("/plain.prx");
    }

    MemoryDisk disk;
    Document doc;
};

TEST(Save, WritesUtf8WithoutAMark) {
    MemoryDisk disk;
    for (const char* source : {"<?xml version=\"1.0\" ?><a>\xC3\xA9</a>", "<a>\xC3\xA9</a>",
                               "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xC3\xA9</a>"}) {
        Document doc;
        ASSERT_TRUE(doc.LoadXML(source));
        doc.Save("/p.prx");
        EXPECT_EQ(disk.At("/p.prx"), source);
    }
}

TEST(Save, WritesTheDeclaredEncoding) {
    MemoryDisk disk;
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<?xml version=\"1.0\" encoding=\"utf-16\" ?><a>\xC3\xA9</a>"));
    doc.Save("/p.prx");
    EXPECT_TRUE(disk.At("/p.prx").starts_with("\xFF\xFE<\0?\0x\0"s));
    EXPECT_TRUE(disk.At("/p.prx").ends_with(">\0\xE9\0<\0/\0a\0>\0"s));
    Document back;
    ASSERT_TRUE(back.Load("/p.prx")) << back.error_text();
    EXPECT_EQ(back.xml(), doc.xml());

    ASSERT_TRUE(doc.LoadXML("<?xml version=\"1.0\" encoding=\"windows-1252\" ?><a>\xE2\x82\xAC\xE4\xB8\xAD</a>"));
    doc.Save("/p.prx");
    EXPECT_TRUE(disk.At("/p.prx").ends_with("<a>\x80&#20013;</a>"));
    ASSERT_TRUE(back.Load("/p.prx")) << back.error_text();
    EXPECT_EQ(back.xml(), doc.xml());
}

TEST(Save, FailsForAnEncodingThatIsNotKnown) {
    MemoryDisk disk;
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<?xml version=\"1.0\" encoding=\"koi8-r\" ?><a/>"));
    disk.Put("/p.prx", "old");
    EXPECT_EQ(NumberOf([&] { doc.Save("/p.prx"); }), failure::kUnknownKey);
    EXPECT_EQ(disk.At("/p.prx"), "old");
}

TEST(Save, PassesOnWhatTheSystemRefuses) {
    MemoryDisk disk;
    Document doc;
    doc.AppendRoot("a");
    EXPECT_EQ(NumberOf([&] { doc.Save(""); }), failure::kPathAccess);
    disk.PutFolder("/folder");
    EXPECT_EQ(NumberOf([&] { doc.Save("/folder"); }), failure::kPathAccess);
    disk.Put("/p.prx", "old");
    disk.SetMode("/p.prx", 0444);
    EXPECT_EQ(NumberOf([&] { doc.Save("/p.prx"); }), failure::kPermissionDenied);
    EXPECT_EQ(disk.At("/p.prx"), "old");
    disk.SetMode("/p.prx", 0644);
    disk.refused_closing = failure::kDeviceFailure;
    EXPECT_EQ(NumberOf([&] { doc.Save("/p.prx"); }), failure::kDeviceFailure);
    disk.refused_closing.reset();
    disk.room = 2;
    EXPECT_EQ(NumberOf([&] { doc.Save("/p.prx"); }), failure::kDeviceFailure);
    disk.room.reset();
    doc.Save("/p.prx");
    EXPECT_EQ(disk.At("/p.prx"), "<a/>");
}

TEST(GrowingSave, LeavesTheSameBytesAsAPlainSaveEachTime) {
    Growing it;
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
    for (int n = 1; n < 11; ++n) {
        SCOPED_TRACE(n);
        it.Add(n % 3 == 0 ? 0 : n);
        it.doc.Save("/p.prx");
        EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
    }
    EXPECT_EQ(it.disk.opened, 10);
}

TEST(GrowingSave, WritesNoMoreThanWhatIsNew) {
    Growing it;
    it.doc.Save("/p.prx");
    for (int n = 1; n < 11; ++n) {
        it.Add(100);
        it.doc.Save("/p.prx");
    }
    // Each of the ten writes the closing tag anew, and nothing else twice.
    const String closing = "</Project>";
    EXPECT_EQ(it.disk.written, it.disk.At("/p.prx").size() + 10 * closing.size());
}

TEST(GrowingSave, WritesNothingWhereNothingIsNew) {
    Growing it;
    it.doc.Save("/p.prx");
    const std::size_t written = it.disk.written;
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.written, written);
    EXPECT_EQ(it.disk.opened, 1);
    it.Add(1);
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
}

TEST(GrowingSave, CarriesWhatFollowsTheRoot) {
    MemoryDisk disk;
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<!-- before --><a><b/></a><!-- behind --><?p q?>"));
    doc.Save("/p.prx");
    doc.AppendText(doc.documentElement(), "c", "1");
    doc.Save("/p.prx");
    EXPECT_EQ(disk.At("/p.prx"), "<!-- before --><a><b/><c>1</c></a><!-- behind --><?p q?>");
    EXPECT_EQ(disk.opened, 1);
}

TEST(GrowingSave, SeesEveryChangeToWhatIsWritten) {
    struct Row {
        const char* what;
        void (*change)(Document& doc, Node root);
        bool grows;
    };
    for (const Row& row : {
             Row{"text", [](Document&doc, Node root) { doc.SetText(root.firstChild(), "y"); }, false},
             Row{"deep", [](Document&doc, Node root) { doc.AppendElement(root.childNodes(1).firstChild(), "n"); },
                 false},
             Row{"child", [](Document&doc, Node root) { doc.AppendElement(root.childNodes(1), "n"); }, false},
             Row{"attribute", [](Document&doc, Node root) { doc.SetAttribute(root.firstChild(), "n", "1"); }, false},
             Row{"of root", [](Document&doc, Node root) { doc.SetAttribute(root, "n", "1"); }, false},
             Row{"text of root", [](Document&doc, Node root) { doc.SetText(root, "y"); }, false},
             Row{"copy", [](Document&doc, Node root) { doc.AppendCopy(root.firstChild(), root.childNodes(1)); }, false},
             Row{"replaced",
                 [](Document&doc, Node root) { doc.ReplaceWithCopy(root, root.firstChild(), root.childNodes(1)); },
                 false},
             Row{"root", [](Document&doc, Node root) { doc.ReplaceWithCopy(doc.node(), root.firstChild(), root); },
                 false},
             Row{"instruction", [](Document&doc, Node) { doc.AppendProcessingInstruction("p", "q"); }, false},
             Row{"another text",
                 [](Document&doc, Node) { EXPECT_TRUE(doc.LoadXML("<?xml version=\"1.0\" ?><Other><x/></Other>")); },
                 false},
             Row{"new child", [](Document&doc, Node root) { doc.AppendText(root, "n", "1"); }, true},
             Row{"new copy", [](Document&doc, Node root) { doc.AppendCopy(root, root.firstChild()); }, true},
             Row{"new and changed",
                 [](Document&doc, Node root) {
                     const Node first = doc.AppendElement(root, "n");
                     doc.AppendElement(root, "m");
                     doc.SetAttribute(first, "k", "1");
                     doc.AppendText(doc.AppendElement(first, "o"), "q", "2");
                     doc.SetText(root.childNodes(3), "t");
                     doc.ReplaceWithCopy(root, root.firstChild(), root.childNodes(3));
                 },
                 true},
             Row{"new, then old",
                 [](Document&doc, Node root) {
                     doc.AppendText(doc.AppendElement(root, "n"), "m", "1");
                     doc.SetText(root.firstChild(), "y");
                 },
                 false},
         }) {
        SCOPED_TRACE(row.what);
        Growing it;
        it.Add(2);
        it.doc.Save("/p.prx");
        row.change(it.doc, it.doc.documentElement());
        it.doc.Save("/p.prx");
        EXPECT_EQ(it.disk.At("/p.prx"), it.doc.xml());
        EXPECT_EQ(it.disk.opened, row.grows ? 1 : 0);
        it.Add(1);
        it.doc.Save("/p.prx");
        EXPECT_EQ(it.disk.At("/p.prx"), it.doc.xml());
    }
}

TEST(GrowingSave, SeesAChangeToWhatTheLastOneAdded) {
    Growing it;
    it.doc.Save("/p.prx");
    const Node section = it.doc.AppendElement(it.doc.documentElement(), "Section");
    const Node record = it.doc.AppendText(section, "Record", "1");
    it.doc.Save("/p.prx");
    it.doc.SetText(record, "2");
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.doc.xml());
    it.doc.AppendElement(section, "Record");
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.doc.xml());
}

TEST(GrowingSave, WritesWholeWhenTheFileWasTouched) {
    struct Row {
        const char* what;
        void (*touch)(MemoryFiles& files);
    };
    for (const Row& row : {
             Row{"changed", [](MemoryFiles& files) { files.Put("/p.prx", "mine"); }},
             Row{"changed to the same length", [](MemoryFiles& files) { files.Put("/p.prx", files.At("/p.prx")); }},
             Row{"replaced",
                 [](MemoryFiles& files) {
                     files.Put("/q.prx", files.At("/p.prx"));
                     files.Rename("/q.prx", "/p.prx");
                 }},
             Row{"deleted", [](MemoryFiles& files) { files.Delete("/p.prx"); }},
             Row{"given other rights", [](MemoryFiles& files) { files.SetMode("/p.prx", 0666); }},
         }) {
        SCOPED_TRACE(row.what);
        Growing it;
        it.doc.Save("/p.prx");
        row.touch(it.disk);
        it.Add(1);
        it.doc.Save("/p.prx");
        EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
        EXPECT_EQ(it.disk.opened, 0);
    }
}

TEST(GrowingSave, WritesWholeToAnotherFile) {
    Growing it;
    it.doc.Save("/p.prx");
    it.Add(1);
    it.doc.Save("/q.prx");
    EXPECT_EQ(it.disk.At("/q.prx"), it.Plain());
    it.Add(1);
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
    EXPECT_EQ(it.disk.opened, 0);
}

TEST(GrowingSave, FailsAtAFileThatBecameReadOnly) {
    Growing it;
    it.doc.Save("/p.prx");
    const String before = it.disk.At("/p.prx");
    it.disk.SetMode("/p.prx", 0444);
    it.Add(1);
    EXPECT_EQ(NumberOf([&] { it.doc.Save("/p.prx"); }), failure::kPermissionDenied);
    EXPECT_EQ(it.disk.At("/p.prx"), before);
    it.disk.SetMode("/p.prx", 0644);
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
}

TEST(GrowingSave, LeavesTheFileOfTheLastSaveWhenTheDiskIsFull) {
    for (std::size_t room = 0; room < 60; room += 7) {
        SCOPED_TRACE(room);
        Growing it;
        it.doc.Save("/p.prx");
        const String before = it.disk.At("/p.prx");
        it.Add(1);
        it.disk.room = room;
        EXPECT_EQ(NumberOf([&] { it.doc.Save("/p.prx"); }), failure::kDeviceFailure);
        EXPECT_EQ(it.disk.At("/p.prx"), before);
        it.disk.room.reset();
        it.doc.Save("/p.prx");
        EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
        EXPECT_EQ(it.disk.opened, 1);
    }
}

TEST(GrowingSave, WritesWholeAfterACloseThatFailed) {
    Growing it;
    it.doc.Save("/p.prx");
    it.Add(1);
    it.disk.refused_closing = failure::kDeviceFailure;
    EXPECT_EQ(NumberOf([&] { it.doc.Save("/p.prx"); }), failure::kDeviceFailure);
    it.disk.refused_closing.reset();
    it.doc.Save("/p.prx");
    EXPECT_EQ(it.disk.At("/p.prx"), it.Plain());
    EXPECT_EQ(it.disk.opened, 1);
}

TEST(GrowingSave, IsOnlyForUtf8AndARootThatHoldsSomething) {
    MemoryDisk disk;
    for (const char* source : {"<?xml version=\"1.0\" encoding=\"utf-16\" ?><a><b/></a>", "<a/>"}) {
        SCOPED_TRACE(source);
        Document doc;
        ASSERT_TRUE(doc.LoadXML(source));
        doc.Save("/p.prx");
        doc.AppendElement(doc.documentElement(), "c");
        doc.Save("/p.prx");
        Document back;
        ASSERT_TRUE(back.Load("/p.prx"));
        EXPECT_EQ(back.xml(), doc.xml());
        EXPECT_EQ(disk.opened, 0);
    }
}

TEST(GrowingSave, StaysLinearOverManyRecords) {
    MemoryDisk disk;
    Document doc;
    const Node root = doc.AppendRoot("Errors");
    constexpr int kRecords = 2000;
    for (int n = 0; n < kRecords; ++n) {
        doc.AppendText(doc.AppendElement(root, "Error"), "ID", std::to_string(n));
        doc.Save("/errors.xml");
    }
    EXPECT_EQ(disk.At("/errors.xml"), doc.xml());
    EXPECT_EQ(disk.written, doc.xml().size() + (kRecords - 1) * String("</Errors>").size());
}

TEST(GrowingSave, LeavesTheSameBytesOnARealDisk) {
    testing::TestPlatform platform;
    const String path = platform.Path("p.prx");
    Document doc;
    ASSERT_TRUE(doc.LoadXML("<?xml version=\"1.0\" ?><Project><Name>x</Name></Project>"));
    for (int n = 0; n < 11; ++n) {
        SCOPED_TRACE(n);
        doc.AppendText(doc.documentElement(), "Section", String(static_cast<std::size_t>(n) * 100, 's'));
        doc.Save(path);
        EXPECT_EQ(platform.Read("p.prx"), doc.xml());
    }
    platform.Write("p.prx", "mine");
    doc.AppendElement(doc.documentElement(), "Last");
    doc.Save(path);
    EXPECT_EQ(platform.Read("p.prx"), doc.xml());
    platform.files.SetMode(path, 0444);
    EXPECT_EQ(NumberOf([&] { doc.Save(path); }), failure::kPermissionDenied);
    EXPECT_EQ(platform.Read("p.prx"), doc.xml());
}

TEST(GrowingSave, LeavesAWholeFileWhicheverCallFails) {
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE(nth);
        testing::TestPlatform platform;
        const String path = platform.Path("p.prx");
        Document doc;
        ASSERT_TRUE(doc.LoadXML("<Project><Name>x</Name></Project>"));
        doc.Save(path);
        const String before = doc.xml();
        doc.AppendText(doc.documentElement(), "Section", "y");
        platform.faults.FailAt(nth, failure::kDeviceFailure);
        platform.faults.WriteShort();
        const int number = NumberOf([&] { doc.Save(path); });
        if (number == 0) {
            EXPECT_GT(nth, 4);  // facts, open, write, facts of what is open, close
            break;
        }
        EXPECT_EQ(number, failure::kDeviceFailure);
        const String left = platform.Read("p.prx");
        EXPECT_TRUE(left == before || left == doc.xml()) << left;
        platform.faults.Heal();
        doc.Save(path);
        EXPECT_EQ(platform.Read("p.prx"), doc.xml());
    }
}

}  // namespace
}  // namespace mrlxmlclass::dom
