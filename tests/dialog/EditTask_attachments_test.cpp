#include <gtest/gtest.h>

#include "tests/support/TaskDialog.h"

namespace mrlxmlclass::testing {
namespace {

/// A task "Design" with whatever notes a test gives it.
class Attachments : public ::testing::Test {
protected:
    Attachments() { plan.Task("Design").From(Monday).Lasting(1); }
    void InDialog(const std::function<void(EditTask&)>& person) { EditInDialog(plan, "Design", person); }
    RecordingShell& shell() { return plan.platform.shell; }
    /// The texts that show, joined by ", ".
    static String Shown(const EditTask& form) {
        String shown;
        for (Long row = 0; row < form.gridattachement.Rows(); ++row) {
            if (row > 0) shown += ", ";
            shown += form.gridattachement.TextMatrix(row, 0);
        }
        return shown;
    }

    Plan plan;
};

TEST_F(Attachments, ShowTheNameOfAFileAndOtherwiseTheLink) {
    plan.platform.Write("plan of the roof.pdf", "x");
    const String file = plan.platform.Path("plan of the roof.pdf");
    AddNote(plan, "Design", "first", file);
    AddNote(plan, "Design", "second");
    AddNote(plan, "Design", "third", "http://www.example.org/a|b");
    AddNote(plan, "Design", "fourth", "/no/longer/there.pdf");
    InDialog([&](EditTask& form) {
        EXPECT_EQ(form.txtNote.Text(), "first");
        EXPECT_EQ(Shown(form), "plan of the roof.pdf, http://www.example.org/a|b, /no/longer/there.pdf");
        EXPECT_EQ(form.gridattachement.RowData(0), file + "|1");
        EXPECT_EQ(form.gridattachement.ShowsLink(2), True);
    });
}

TEST_F(Attachments, ShowALinkThatNoFileCanBeCalled) {
    const String link = "/" + String(10'000, 'a');
    AddNote(plan, "Design", "", link);
    InDialog([&](EditTask& form) { EXPECT_EQ(Shown(form), link); });
}

TEST_F(Attachments, ShowAFolderWhole) {
    AddNote(plan, "Design", "", plan.platform.folder.path());
    InDialog([&](EditTask& form) { EXPECT_EQ(Shown(form), plan.platform.folder.path()); });
}

// --- Adding ----------------------------------------------------------------------------------------------------------

TEST_F(Attachments, TakeAFileThatIsChosen) {
    plan.platform.Write("plan.pdf", "x");
    plan.platform.screens.file = plan.platform.Path("plan.pdf");
    plan.platform.files.special_folders[5] = "/documents";
    InDialog([&](EditTask& form) {
        form.CmdAttach_Click();
        EXPECT_EQ(Shown(form), "plan.pdf");
        EXPECT_EQ(form.gridattachement.RowData(0), plan.platform.Path("plan.pdf") + "|");
        plan.platform.screens.file = "";
        form.mnuLinkNote_Click();
        EXPECT_EQ(form.gridattachement.Rows(), 1);
    });
    EXPECT_EQ(plan.platform.screens.files_asked,
              (std::vector<String>{"T10659, /documents, *.*|*.*", "T10659, /documents, *.*|*.*"}));
}

TEST_F(Attachments, TakeAnAddressOfTheWeb) {
    struct Row {
        const char* typed;
        const char* shown;
    };
    const String long_address = "http://www.example.org/" + String(10'000, 'a');
    for (const Row& row :
         {Row{"http://www.example.org", "http://www.example.org"},
          Row{"https://www.example.org/?a='b'&c;$(id)", "https://www.example.org/?a='b'&c;$(id)"},
          Row{"http://example.org", "http://example.org"}, Row{"HTTP://example.org", ""}, Row{"http://www.", ""},
          Row{"HTTP://WWW.", ""}, Row{"ftp://example.org", ""}, Row{"www.example.org", ""}, Row{"", ""},
          Row{"https://example.org", ""}, Row{"ftp://www.example.org", "ftp://www.example.org"},
          Row{"http://www. b", ""}, Row{"-http://www", ""}, Row{"http:www", ""}, Row{"http://www\"x\"", ""},
          Row{long_address.c_str(), long_address.c_str()}}) {
        SCOPED_TRACE(row.typed);
        plan.platform.screens.at_address = [&](frmurl& form) {
            EXPECT_EQ(form.txturl.Text(), "http://www.");
            form.txturl.Text(row.typed);
            form.CmdOK_Click();
        };
        InDialog([&](EditTask& form) {
            form.Cmdlink_Click();
            EXPECT_EQ(Shown(form), row.shown);
        });
    }
    EXPECT_TRUE(shell().targets.empty());
}

TEST_F(Attachments, TakeNoAddressThatIsNoMoreThanItsBeginning) {
    plan.platform.screens.at_address = [](frmurl&) { Module().g_UrlResult = "Http://www."; };
    InDialog([](EditTask& form) {
        form.Cmdlink_Click();
        EXPECT_EQ(form.gridattachement.Rows(), 0);
    });
}

TEST_F(Attachments, AskForEachAddressFromTheBeginning) {
    plan.platform.screens.at_address = [](frmurl& form) {
        EXPECT_EQ(form.txturl.Text(), "http://www.");
        form.txturl.Text("http://www.example.org");
        form.CmdOK_Click();
    };
    InDialog([](EditTask& form) {
        form.Cmdlink_Click();
        form.Cmdlink_Click();
        EXPECT_EQ(form.gridattachement.Rows(), 2);
    });
}

TEST_F(Attachments, TakeNoAddressWhenItsFormIsCancelled) {
    plan.platform.screens.at_address = [](frmurl& form) {
        form.txturl.Text("http://www.example.org");
        form.CmdCancel_Click();
    };
    InDialog([](EditTask& form) {
        form.Cmdlink_Click();
        EXPECT_EQ(form.gridattachement.Rows(), 0);
    });
}

// --- Opening ---------------------------------------------------------------------------------------------------------

TEST_F(Attachments, OpenByTheShell) {
    for (int note = 1; note < 10; ++note) AddNote(plan, "Design", "");
    AddNote(plan, "Design", "", "/tenth; rm -rf $(here)");
    InDialog([&](EditTask& form) {
        form.gridattachement_DblClick();  // none is current
        form.MoveTo(form.gridattachement, 0, 0);
        plan["Design"].TaskNotes()->Item("10")->NoteLink("-moved");
        form.gridattachement_DblClick();
    });
    EXPECT_EQ(shell().targets, std::vector<String>{"-moved"});
    EXPECT_TRUE(plan.platform.ui.messages.empty());
}

TEST_F(Attachments, KeepsOpeningANoteOfOneDigitByTheLinkThatShows) {
    AddNote(plan, "Design", "", "/shown");
    InDialog([&](EditTask& form) {
        form.MoveTo(form.gridattachement, 0, 0);
        plan["Design"].TaskNotes()->Item("1")->NoteLink("/moved");
        form.gridattachement_DblClick();
    });
    EXPECT_EQ(shell().targets, std::vector<String>{"/shown"});
}

TEST_F(Attachments, TakeAKeyThatIsNoNoteForTheLink) {
    for (int note = 1; note < 10; ++note) AddNote(plan, "Design", "");
    AddNote(plan, "Design", "", "/tenth");
    InDialog([&](EditTask& form) {
        form.MoveTo(form.gridattachement, 0, 0);
        plan["Design"].TaskNotes()->Remove(10);
        form.gridattachement_DblClick();
        form.gridattachement.RowData(0, "/x|some/file");
        form.gridattachement_DblClick();
    });
    EXPECT_EQ(shell().targets, (std::vector<String>{"10", "some/file"}));
}

TEST_F(Attachments, TellThatAFileIsGone) {
    AddNote(plan, "Design", "", "/no/longer/there.pdf");
    shell().answer = 2;
    InDialog([](EditTask& form) {
        form.MoveTo(form.gridattachement, 0, 0);
        form.gridattachement_DblClick();
    });
    EXPECT_EQ(plan.platform.ui.messages, std::vector<String>{"T10351"});
}

TEST_F(Attachments, TellNothingOfASuccess) {
    AddNote(plan, "Design", "", "/there.pdf");
    for (const int answer : {33, 32}) {
        shell().answer = answer;
        InDialog([](EditTask& form) {
            form.MoveTo(form.gridattachement, 0, 0);
            form.gridattachement_DblClick();
        });
    }
    EXPECT_EQ(plan.platform.ui.messages.size(), 1);
}

TEST_F(Attachments, TellThatANoteHasLostItsLink) {
    for (int note = 1; note < 10; ++note) AddNote(plan, "Design", "");
    AddNote(plan, "Design", "", "/tenth");
    InDialog([&](EditTask& form) {
        form.MoveTo(form.gridattachement, 0, 0);
        plan["Design"].TaskNotes()->Item("10")->NoteLink("");
        form.gridattachement_DblClick();
    });
    EXPECT_TRUE(shell().targets.empty());
    EXPECT_EQ(plan.platform.ui.messages.size(), 1);
}

// --- Removing --------------------------------------------------------------------------------------------------------

TEST_F(Attachments, GoOnOkOnly) {
    AddNote(plan, "Design", "first");
    AddNote(plan, "Design", "", "/a");
    AddNote(plan, "Design", "", "/b");
    const auto remove = [](EditTask& form) {
        form.gridattachement_KeyDown(int{'x'});
        form.gridattachement_KeyDown(EditTask::kDelete);  // none is current: the first that shows
        EXPECT_EQ(Shown(form), "/b");
    };
    InDialog(remove);
    EXPECT_EQ(NotesOf(plan, "Design"), "1:first:, 2::/a, 3::/b");
    InDialog([&](EditTask& form) {
        remove(form);
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(NotesOf(plan, "Design"), "1:first:, 3::/b");
    EXPECT_EQ(MasterNotes(plan), "1:first:, 3::/b");
}

TEST_F(Attachments, LoseTheFirstThatShowsWhereNoneIsCurrent) {
    AddNote(plan, "Design", "", "/a");
    AddNote(plan, "Design", "", "/b");
    InDialog([](EditTask& form) {
        form.gridattachement.TopRow(1);
        form.CmdRemove_Click();
        EXPECT_EQ(Shown(form), "/a");
    });
}

TEST_F(Attachments, LeaveNothingToDoWhenANewOneIsRemoved) {
    plan.platform.screens.file = "/x";
    InDialog([](EditTask& form) {
        form.CmdAttach_Click();
        form.CmdRemove_Click();
        EXPECT_EQ(form.gridattachement.Rows(), 0);
        form.CmdRemove_Click();
        form.CmdOK_Click(0);
    });
    EXPECT_EQ(MasterNotes(plan), "");
    EXPECT_EQ(plan.Heard(), "");
}

// --- The note --------------------------------------------------------------------------------------------------------

using NoteText = Attachments;

TEST_F(NoteText, TakesTextAloneFromTheClipboard) {
    InDialog([&](EditTask& form) {
        const auto press = [&](int key, int shift) {
            Integer code = key;
            form.txtNote_KeyDown(code, shift);
            return code;
        };
        EXPECT_EQ(press(EditTask::kV, EditTask::kControlDown), EditTask::kNoKey);
        EXPECT_EQ(form.txtNote.Text(), "");  // no text in the clipboard
        plan.platform.screens.clipboard = "Mind the roof";
        EXPECT_EQ(press(EditTask::kV, 0), EditTask::kV);
        EXPECT_EQ(press(int{'C'}, EditTask::kControlDown), int{'C'});
        EXPECT_EQ(form.txtNote.Text(), "");
        press(EditTask::kV, EditTask::kControlDown);
        EXPECT_EQ(form.txtNote.Text(), "Mind the roof");
        form.txtNote_RightButton();
    });
    EXPECT_EQ(plan.platform.screens.menus, 1);
}

TEST_F(NoteText, RecordsNothingOfAClipboardThatFails) {
    plan.platform.screens.clipboard_fails = true;
    InDialog([](EditTask& form) {
        Integer code = EditTask::kV;
        form.txtNote_KeyDown(code, EditTask::kControlDown);
        EXPECT_EQ(code, EditTask::kNoKey);
    });
    EXPECT_EQ(plan.failures.Taken(), "");
}

}  // namespace
}  // namespace mrlxmlclass::testing
