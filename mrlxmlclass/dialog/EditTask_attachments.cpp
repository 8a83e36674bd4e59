#include "mrlxmlclass/dialog/Desktop.h"
#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass {

using dialog::NoteRemoved;

namespace {

constexpr auto kTail = dialog::kEditTaskTail;
constexpr int kDocuments = 5;      // see GetSpecialfolder
constexpr int kLeastSuccess = 33;  // what the shell gives below it is a failure

}  // namespace

// --- The note --------------------------------------------------------------------------------------------------------

void EditTask::txtNote_KeyDown(ByRef<Integer> KeyCode, Integer Shift) {
    if (*KeyCode != kV || (Shift & kControlDown) == 0) return;
    *KeyCode = kNoKey;
    kTail.Silent().Run("txtNote_KeyDown", [&] {
        if (View().ClipboardHasText()) View().PasteIntoNote();
    });
}

void EditTask::txtNote_RightButton() {
    kTail.Run("txtNote_MouseDown", [&] { View().PopupMenu(); });
}

// --- Adding ----------------------------------------------------------------------------------------------------------

Variant EditTask::FormatCellLink(const String& link, const String& NoteKey, Boolean isUrl) {
    // What the system cannot even be asked about is no file.
    const bool is_file = !isUrl && kTail.Silent().Run<Boolean>("FormatCellLink", [&](Boolean& result) {
        const FileFacts facts = Platform().files.Facts(link);
        result = facts.exists && !facts.folder;
    });
    const Long row = gridattachement.AddRow();
    gridattachement.TextMatrix(row, 0, is_file ? FileNameOf(link) : link);
    gridattachement.ShowsLink(row, True);
    gridattachement.RowData(row, link + "|" + NoteKey);
    return {};
}

void EditTask::mnuLinkNote_Click() {
    kTail.Run("mnuLinkNote_Click", [&] {
        const String file = View().ChooseFile(choose_file_title_, Gloabal::GetSpecialfolder(kDocuments), "*.*|*.*");
        if (!file.empty()) FormatCellLink(file, /*NoteKey=*/{}, /*isUrl=*/False);
    });
}

void EditTask::Cmdlink_Click() {
    kTail.Run("Cmdlink_Click", [&] {
        url_form_.Form_Load();
        View().ShowModally(url_form_);
        const String address = Module().g_UrlResult;
        if (address.empty() || LowerCase(address) == "http://www.") return;
        const bool of_the_web = address.find("www") != String::npos || address.find("http://") != String::npos;
        if (!Gloabal::PathIsURL(address) || !of_the_web || !Gloabal::IsValidURL(address)) return;
        FormatCellLink(address, /*NoteKey=*/{}, /*isUrl=*/True);
    });
}

// --- Opening ---------------------------------------------------------------------------------------------------------

void EditTask::gridattachement_DblClick() {
    kTail.Run("gridattachement_DblClick", [&] {
        if (gridattachement.Row() < 0) return;
        const dialog::Attachment chosen = dialog::AttachmentIn(gridattachement.RowData(gridattachement.Row()));
        // Kept: a note with a key of one digit is opened by the link that shows, not by the one that it has now.
        const Long opened =
            Length(chosen.note_key) > 1 ? ExecuteLInk(chosen.note_key) : Platform().shell.Open(chosen.link);
        if (opened < kLeastSuccess) Platform().ui.Message(link_failed_message_);
    });
}

Long EditTask::ExecuteLInk(const String& key) {
    const Ref<TasksCls> task = Stored();
    if (!task->NoteExist(key)) return Platform().shell.Open(key);
    const String link = task->TaskNotes()->Item(key)->NoteLink();
    return link.empty() ? Long(0) : Platform().shell.Open(link);
}

// --- Removing --------------------------------------------------------------------------------------------------------

void EditTask::gridattachement_KeyDown(Integer KeyCode) {
    if (KeyCode == kDelete) mnuunattach_Click();
}

void EditTask::mnuunattach_Click() {
    kTail.Run("mnuunattach_Click", [&] {
        GridControl& grid = gridattachement;
        if (grid.Row() < 0 && grid.Rows() > 0) grid.Row(grid.TopRow());
        if (grid.Row() < 0) return;
        const String note_key = dialog::AttachmentIn(grid.RowData(grid.Row())).note_key;
        if (!note_key.empty()) NoteRemoved(removed_attachments_, note_key);
        grid.RemoveItem(grid.Row());
    });
}

}  // namespace mrlxmlclass
