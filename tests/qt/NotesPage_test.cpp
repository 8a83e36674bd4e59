#include "qt/NotesPage.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextDocumentFragment>
#include <QTimer>

#include "tests/qt/QtDialog.h"

namespace mrlxmlclass::testing {
namespace {

class NotesPage : public ::testing::Test {
protected:
    NotesPage() { plan.Task("Design").From(Monday).Lasting(3); }
    ~NotesPage() override { plan.Heard(); }

    void Use(const std::function<void(QWidget&)>& person) {
        plan.Edit(
            "Design",
            [&](QWidget& window) {
                person(window);
                Click(Find(window, "CmdOK"));
            },
            9);
    }
    /// The person does this in the next window in front.
    static void Then(std::function<void(QWidget&)> person) {
        QTimer::singleShot(0, [person = std::move(person)] { person(*QApplication::activeModalWidget()); });
    }

    OffscreenApplication application;
    QtPlan plan;
};

QMenu& OpenMenu(QWidget& window) {
    auto& note = Find<QTextEdit>(window, "txtNote");
    QContextMenuEvent right(QContextMenuEvent::Mouse, {5, 5}, note.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(note.viewport(), &right);
    return Find<QMenu>(window, "mnuFile");
}

QTableView& Attachments(QWidget& window) {
    return Find<QTableView>(window, "gridattachement");
}

// --- The note --------------------------------------------------------------------------------------------------------

TEST_F(NotesPage, StoresTypedTextInLines) {
    Use([](QWidget& window) {
        QWidget& note = Find(window, "txtNote");
        note.setFocus();
        QTest::keyClicks(&note, "Ask");
        QTest::keyClick(&note, Qt::Key_Return);
        QTest::keyClicks(&note, "twice");
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:Ask\r\ntwice:");
}

TEST_F(NotesPage, LeavesANoteAsItIsThatNobodyTouches) {
    AddNote(plan, "Design", "two\r\nlines, a hard\xC2\xA0space, <b>no markup</b>");
    Use([](QWidget& window) {
        EXPECT_EQ(Find<QTextEdit>(window, "txtNote").toPlainText().count('\n'), 1);
        EXPECT_TRUE(Find<QTextEdit>(window, "txtNote").toPlainText().contains("<b>"));
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:two\r\nlines, a hard\xC2\xA0space, <b>no markup</b>:");
}

TEST_F(NotesPage, KeepsHardSpacesWhenOtherTextIsTyped) {
    AddNote(plan, "Design", "a\xC2\xA0space");
    Use([](QWidget& window) {
        QTest::keyClick(&Find(window, "txtNote"), Qt::Key_End);
        QTest::keyClicks(&Find(window, "txtNote"), "!");
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:a\xC2\xA0space!:");
}

TEST_F(NotesPage, LeavesTheLinesAsTheyAreThatNobodyTypesIn) {
    AddNote(plan, "Design", "\r\none\ntwo\r\n\nthree\r\n");
    Use([this](QWidget& window) {
        auto& note = Find<QTextEdit>(window, "txtNote");
        EXPECT_EQ(note.document()->blockCount(), 6);
        for (int line = 0; line < 2; ++line) QTest::keyClick(&note, Qt::Key_Down);
        QTest::keyClicks(&note, "!");
        EXPECT_EQ(plan.form().txtNote.Text(), "\r\none\n!two\r\n\nthree\r\n");
        EXPECT_EQ(note.textCursor().positionInBlock(), 1) << "the person goes on there";
        QTest::keyClick(&note, Qt::Key_Return);
        EXPECT_EQ(plan.form().txtNote.Text(), "\r\none\n!\r\ntwo\r\n\nthree\r\n");
        for (int n = 0; n < 3; ++n) QTest::keyClick(&note, Qt::Key_Backspace);
        EXPECT_EQ(plan.form().txtNote.Text(), "\r\nonetwo\r\n\nthree\r\n");
        QTest::keyClick(&note, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&note, Qt::Key_Return, Qt::ShiftModifier);
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:\r\nonetwo\r\n\nthree\r\n\r\n:");
}

TEST_F(NotesPage, LeavesRareBreaksAsTheyAreToo) {
    const std::string note = "one\rtwo\u2029three\u2028four";
    AddNote(plan, "Design", note);
    Use([&](QWidget& window) {
        QTest::keyClick(&Find(window, "txtNote"), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&Find(window, "txtNote"), "!");
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:" + note + "!:");
}

TEST_F(NotesPage, GoesOnBehindALineThatShiftEnterBroke) {
    AddNote(plan, "Design", "one\ntwo");
    Use([](QWidget& window) {
        QWidget& note = Find(window, "txtNote");
        QTest::keyClick(&note, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&note, "a");
        QTest::keyClick(&note, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&note, "!");
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:\r\naone\ntwo!:");
}

TEST_F(NotesPage, PastesLinesIntoTheNote) {
    AddNote(plan, "Design", "one\ntwo");
    QGuiApplication::clipboard()->setText("a\nb\n");
    Use([](QWidget& window) {
        auto& note = Find<QTextEdit>(window, "txtNote");
        QTest::keyClick(&note, Qt::Key_Down);
        QTest::keyClick(&note, Qt::Key_V, Qt::ControlModifier);
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:one\na\r\nb\r\ntwo:");
}

TEST_F(NotesPage, TypesTheCharacterOfAKeyWithAltGr) {
    QGuiApplication::clipboard()->setText("pasted");
    Use([](QWidget& window) {
        QTest::sendKeyEvent(QTest::Click, &Find(window, "txtNote"), Qt::Key_V, "@",
                            Qt::ControlModifier | Qt::AltModifier);
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:@:");
}

TEST_F(NotesPage, PastesTheTextOfFormattedContent) {
    auto* content = new QMimeData;
    content->setText("plain");
    content->setHtml("<b>rich</b>");
    QGuiApplication::clipboard()->setMimeData(content);
    Use([](QWidget& window) { QTest::keyClick(&Find(window, "txtNote"), Qt::Key_V, Qt::ControlModifier); });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:plain:");
}

TEST_F(NotesPage, PastesNothingWhereTheClipboardHoldsNoText) {
    auto* content = new QMimeData;
    content->setData("application/octet-stream", QByteArray("\0\1\2\xFF", 4));
    QGuiApplication::clipboard()->setMimeData(content);
    Use([](QWidget& window) { QTest::keyClick(&Find(window, "txtNote"), Qt::Key_V, Qt::ControlModifier); });
    EXPECT_EQ(NotesOf(plan, "Design"), "");
}

TEST_F(NotesPage, OffersTheAttachmentsByTheRightButton) {
    AddNote(plan, "Design", "", "http://www.one.example");
    Use([](QWidget& window) {
        QMenu& menu = OpenMenu(window);
        ASSERT_TRUE(menu.isVisible());
        EXPECT_EQ(menu.actions().at(0)->text(), "Add &file...");
        menu.actions().at(1)->trigger();
        menu.close();
        EXPECT_EQ(Shown(Attachments(window)), "");
    });
    EXPECT_EQ(MasterNotes(plan), "");
}

TEST_F(NotesPage, AddsAFileByTheMenu) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    bool asked = false;
    Use([&](QWidget& window) {
        QMenu& menu = OpenMenu(window);
        Then([&](QWidget& files) {
            asked = qobject_cast<QFileDialog*>(&files) != nullptr;
            if (asked) files.close();
        });
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(0)).center());
    });
    EXPECT_TRUE(asked);
}

TEST_F(NotesPage, OffersInTheMenuWhatTheFormDoes) {
    Use([this](QWidget& window) {
        plan.form().mnuLinkNote.Enabled(False);
        plan.form().mnuunattach.Visible(False);
        QMenu& menu = OpenMenu(window);
        EXPECT_FALSE(menu.actions().at(0)->isEnabled());
        EXPECT_TRUE(menu.actions().at(0)->isVisible());
        EXPECT_FALSE(menu.actions().at(1)->isVisible());
        menu.close();
    });
}

// --- Attachments -----------------------------------------------------------------------------------------------------

TEST_F(NotesPage, AttachesATypedAddress) {
    Use([](QWidget& window) {
        Then([](QWidget& address) {
            EXPECT_EQ(address.objectName(), "frmurl");
            EXPECT_EQ(address.windowTitle(), "Web address");
            QTest::keyClicks(&Find(address, "txturl"), "one.example");
            QTest::keyClick(&Find(address, "txturl"), Qt::Key_Return);
        });
        Click(Find(window, "Cmdlink"));
        EXPECT_EQ(Shown(Attachments(window)), "http://www.one.example\n");
        EXPECT_FALSE(Attachments(window).model()->index(0, 0).data(Qt::DecorationRole).isNull());
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1::http://www.one.example");
}

TEST_F(NotesPage, AttachesAnAddressThatWasPastedWithTheEndOfItsLine) {
    for (const char* end : {"\n", "\r\n", ""}) {
        QGuiApplication::clipboard()->setText(QString("http://www.one.example/x") + end);
        Use([](QWidget& window) {
            Then([](QWidget& address) {
                auto& line = Find<QLineEdit>(address, "txturl");
                Type(line, "");
                QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
                Click(Find(address, "CmdOK"));
            });
            Click(Find(window, "Cmdlink"));
            EXPECT_EQ(Shown(Attachments(window)), "http://www.one.example/x\n");
            QTest::keyClick(&Attachments(window), Qt::Key_Down);
            Click(Find(window, "CmdRemove"));
        });
    }
}

TEST_F(NotesPage, ShowsTheAddressWithoutTheLinesThatWerePasted) {
    Use([](QWidget& window) {
        Then([](QWidget& address) {
            auto& line = Find<QLineEdit>(address, "txturl");
            const auto paste = [&line](const char* lines) {
                QGuiApplication::clipboard()->setText(lines);
                QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
            };
            paste("one.example\n");
            QTest::keyClicks(&line, "/y");
            EXPECT_EQ(line.text(), "http://www.one.example/y");
            line.cursorBackward(/*mark=*/false);
            paste("\r\nx\r\n");
            EXPECT_EQ(line.text(), "http://www.one.example/ x y");
            QTest::keyClick(&line, Qt::Key_Backspace);
            QTest::keyClick(&line, Qt::Key_Home);
            for (int n = 0; n < 23; ++n) QTest::keyClick(&line, Qt::Key_Right);
            QTest::keyClick(&line, Qt::Key_Delete);
            EXPECT_EQ(line.text(), "http://www.one.example/xy");
            Click(Find(address, "CmdOK"));
        });
        Click(Find(window, "Cmdlink"));
        EXPECT_EQ(Shown(Attachments(window)), "http://www.one.example/xy\n");
    });
}

TEST_F(NotesPage, GoesOnBetweenPastedLinesAndTheCharacterThatFollows) {
    constexpr char32_t kEmoji[] = U"\U0001F3E0";
    const QString house = QString::fromUcs4(kEmoji, 1);
    QGuiApplication::clipboard()->setText("\nx\r\ny");
    Use([&house](QWidget& window) {
        Then([&house](QWidget& address) {
            auto& line = Find<QLineEdit>(address, "txturl");
            line.setText(house);
            line.home(/*mark=*/false);
            QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
            QTest::keyClicks(&line, "!");
            EXPECT_EQ(line.text(), "x y!" + house);
            Click(Find(address, "CmdCancel"));
        });
        Click(Find(window, "Cmdlink"));
    });
}

TEST_F(NotesPage, AttachesNoAddressOfTwoLines) {
    QGuiApplication::clipboard()->setText("www.one.example\nwww.two.example");
    Use([](QWidget& window) {
        Then([](QWidget& address) {
            auto& line = Find<QLineEdit>(address, "txturl");
            QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
            Click(Find(address, "CmdOK"));
        });
        Click(Find(window, "Cmdlink"));
        EXPECT_EQ(Shown(Attachments(window)), "");
    });
}

TEST_F(NotesPage, AttachesNothingWhenTheAddressIsLeft) {
    for (const char* leave : {"CmdCancel", "Esc", "close"}) {
        SCOPED_TRACE(leave);
        Use([leave](QWidget& window) {
            Then([leave](QWidget& address) {
                QWidget& line = Find(address, "txturl");
                QTest::keyClicks(&line, "one.example");
                if (leave == std::string("Esc")) {
                    QTest::keyClick(&line, Qt::Key_Escape);
                } else if (leave == std::string("close")) {
                    address.close();
                } else {
                    Click(Find(address, leave));
                }
            });
            Click(Find(window, "Cmdlink"));
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(Shown(Attachments(window)), "");
        });
    }
}

TEST_F(NotesPage, AttachesAChosenFile) {
    plan.platform.Write("plan.txt", "");
    plan.platform.files.special_folders[5] = plan.platform.folder.path();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Use([this](QWidget& window) {
        Then([this](QWidget& window_of_files) {
            auto& dialog = dynamic_cast<QFileDialog&>(window_of_files);
            EXPECT_EQ(dialog.windowTitle(), "Choose a file to attach");
            EXPECT_EQ(dialog.directory().canonicalPath().toStdString(), plan.platform.folder.path());
            EXPECT_EQ(dialog.nameFilters(), QStringList("*.* (*)"));
            QTest::keyClicks(dialog.findChild<QLineEdit*>("fileNameEdit"), "plan.txt");
            QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        Click(Find(window, "CmdAttach"));
        EXPECT_EQ(Shown(Attachments(window)), "plan.txt\n");
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1::" + plan.platform.Path("plan.txt"));
}

TEST_F(NotesPage, OpensAnAttachmentByTheShellAlone) {
    AddNote(plan, "Design", "", "http://www.one.example/$(rm -rf ~)?q='\";");
    Use([](QWidget& window) {
        QTableView& table = Attachments(window);
        ClickCell(table, 0, 0);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(0, 0)).center());
    });
    EXPECT_EQ(plan.platform.shell.targets, (std::vector<String>{"http://www.one.example/$(rm -rf ~)?q='\";"}));
}

TEST_F(NotesPage, OpensAnAttachmentWithTheSpaceBarAndWithEnter) {
    AddNote(plan, "Design", "", "http://www.one.example");
    Use([this](QWidget& window) {
        ClickCell(Attachments(window), 0, 0);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyClick(&Attachments(window), key);
            EXPECT_EQ(plan.platform.shell.targets, (std::vector<String>{"http://www.one.example"})) << key;
            EXPECT_TRUE(window.isVisible()) << key;
            plan.platform.shell.targets.clear();
        }
    });
}

TEST_F(NotesPage, RemovesAnAttachmentByItsButtonAndByDelete) {
    for (const char* link : {"http://www.one.example", "http://www.two.example", "http://www.three.example"}) {
        AddNote(plan, "Design", "", link);
    }
    Use([](QWidget& window) {
        ClickCell(Attachments(window), 1, 0);
        Click(Find(window, "CmdRemove"));
        EXPECT_EQ(Shown(Attachments(window)), "http://www.one.example\nhttp://www.three.example\n");
        ClickCell(Attachments(window), 0, 0);
        QTest::keyClick(&Attachments(window), Qt::Key_Delete);
        EXPECT_EQ(Shown(Attachments(window)), "http://www.three.example\n");
    });
    EXPECT_EQ(MasterNotes(plan), "3::http://www.three.example");
}

TEST_F(NotesPage, RemovesWhatIsAddedAfterAllWereRemoved) {
    for (int n = 0; n < 40; ++n) AddNote(plan, "Design", "", "http://www." + std::to_string(n) + ".example");
    Use([](QWidget& window) {
        QTableView& table = Attachments(window);
        table.setCurrentIndex(table.model()->index(39, 0));
        for (int n = 0; n < 40; ++n) QTest::keyClick(&table, Qt::Key_Delete);
        EXPECT_EQ(Shown(table), "");
        Then([](QWidget& address) {
            QTest::keyClicks(&Find(address, "txturl"), "one.example");
            QTest::keyClick(&Find(address, "txturl"), Qt::Key_Return);
        });
        Click(Find(window, "Cmdlink"));
        EXPECT_EQ(Shown(table), "http://www.one.example\n");
        Click(Find(window, "CmdRemove"));
        EXPECT_EQ(Shown(table), "");
    });
    EXPECT_EQ(MasterNotes(plan), "");
}

TEST_F(NotesPage, RemovesTheTopmostAttachmentWhereNoneIsCurrent) {
    for (int n = 0; n < 40; ++n) AddNote(plan, "Design", "", "http://www." + std::to_string(n) + ".example");
    Use([](QWidget& window) {
        QTableView& table = Attachments(window);
        table.verticalScrollBar()->setValue(table.verticalScrollBar()->maximum() / 2);
        Settle();
        EXPECT_FALSE(table.currentIndex().isValid());
        const int top = table.rowAt(0);
        EXPECT_GT(top, 0);
        Click(Find(window, "CmdRemove"));
        EXPECT_FALSE(Shown(table).contains("www." + QString::number(top) + ".example"));
        EXPECT_TRUE(Shown(table).contains("www.0.example"));
    });
}

TEST_F(NotesPage, TellsTheFormWhichAttachmentIsTheTopmostWhenFewAreLeft) {
    for (int n = 0; n < 40; ++n) AddNote(plan, "Design", "", "http://www." + std::to_string(n) + ".example");
    Use([this](QWidget& window) {
        QTableView& table = Attachments(window);
        table.setCurrentIndex(table.model()->index(39, 0));
        Settle();
        EXPECT_EQ(plan.form().gridattachement.TopRow(), table.rowAt(0));
        EXPECT_GT(table.rowAt(0), 0);
        for (int n = 0; n < 37; ++n) QTest::keyClick(&table, Qt::Key_Delete);
        Settle();
        EXPECT_EQ(table.rowAt(0), 0);
        EXPECT_EQ(plan.form().gridattachement.TopRow(), 0);
    });
}

TEST_F(NotesPage, TellsAnAddressAsItIs) {
    AddNote(plan, "Design", "", "http://www.one.example/?a=1&b=2");
    Use([](QWidget& window) {
        const QString tip = Attachments(window).model()->index(0, 0).data(Qt::ToolTipRole).toString();
        EXPECT_TRUE(Qt::mightBeRichText(tip));
        EXPECT_EQ(QTextDocumentFragment::fromHtml(tip).toPlainText(), "http://www.one.example/?a=1&b=2");
    });
}

TEST_F(NotesPage, WritesLinksSoThatTheyCanBeReadOnAnyPaper) {
    AddNote(plan, "Design", "", "http://www.one.example");
    for (const auto& [paper, text] : {std::pair(Qt::white, Qt::black), {Qt::black, Qt::white}, {Qt::blue, Qt::white}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, paper);
        palette.setColor(QPalette::Text, text);
        QApplication::setPalette(palette);
        Use([&](QWidget& window) {
            const auto link = Attachments(window).model()->index(0, 0).data(Qt::ForegroundRole).value<QBrush>();
            EXPECT_GE(std::abs(qGray(link.color().rgb()) - qGray(QColor(paper).rgb())), 80);
        });
    }
}

}  // namespace
}  // namespace mrlxmlclass::testing
