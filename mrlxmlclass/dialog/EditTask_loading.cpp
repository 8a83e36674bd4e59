#include "mrlxmlclass/dialog/Desktop.h"
#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/TaskAssigmentRelationCol.h"
#include "mrlxmlclass/items/TaskNoteRelationCol.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

namespace {

constexpr auto kTail = dialog::kEditTaskTail;
constexpr int kDurationDigits = 3;

/// What a picker shows for a date of the task: today where it has none.
Variant DateOrToday(Date date) {
    return date.set() ? date : Platform().clock.Today();
}

}  // namespace

Boolean EditTask::GetTaskInfo(const Variant& aTaskKey, const Ref<Application>& oApplication,
                              const Ref<TasksCol>& oTaskCol, const Ref<Collection>& Ressource, Long start_tab,
                              const String& p_date_format, const String& font_name, const String& font_size) {
    const Ref<EditTask> self(this);  // the host may let go of the session meanwhile
    return kTail.Run<Boolean>("GetTaskInfo", [&](Boolean& result) {
        key_ = aTaskKey;
        const Boolean summary = oTaskCol->Summary(KeyAsText());
        tasks_ = oTaskCol;
        plan_ = oApplication->xTaskCol();
        people_ = oApplication->xPeopleCol();
        assignments_ = oApplication->xTaskPeopleRelationcol();
        notes_ = oApplication->xNoteCol();
        note_relations_ = oApplication->xTaskNotesRelationcol();
        if (KeyAsText().empty()) return;
        {
            const dialog::Raised loading(loading_);
            task_ = Stored()->Clone();
            PutFields(summary);
            PutNotes();
            PutTexts(*Ressource);
            PutFonts({font_name, font_size});
            if (Module().BVersion) {
                LoadPredecessor(VSFlexGridPredecessor);
            } else {
                TabTask.TabEnabled(1, False);
            }
            Txtcost.Text(Conversions::CurrencyToString(task_->TaskCost()));
            LoadResourceAsList(VSFlexGridResource, people_);
            for (const char* percent : {"0", "25", "50", "75", "100"}) TxtPercentComplet.AddItem(percent);
            start_tab_ = start_tab;
            if (!p_date_format.empty() && !Module().g_SourcePrima) {
                DTPickerStart.CustomFormat(p_date_format);
                DTPickerEnd.CustomFormat(p_date_format);
            }
        }
        ShowModally();
        result = !unchanged_;
    });
}

void EditTask::PutFields(Boolean read_only_name) {
    const String duration = Conversions::DoubleToString(task_->TaskDuration());
    for (TextControl& field : TxtDurtion) {
        field.MaxLength(task_->TaskDuration() > dialog::kMostShortDuration ? Long(Length(duration))
                                                                           : Long(kDurationDigits));
        field.Text(duration);
    }
    for (TextControl& field : TxtName) {
        field.MaxLength(dialog::kNameCharacters);
        field.Text(task_->TaskName());
        field.Locked(read_only_name);
    }
    if (!task_->TaskPercentDoneValid()) task_->TaskPercentDone(0);
    TxtPercentComplet.Text(Conversions::LongToString(task_->TaskPercentDone()));
    DTPickerEnd.Value(DateOrToday(task_->TaskEDate()));
    DTPickerStart.Value(DateOrToday(task_->TaskBDate()));
    if (task_->TaskMilstones()) chkAsMilistones.Value(True);
}

void EditTask::PutNotes() {
    gridattachement.Rows(0);
    const Ref<class TaskNotes> notes = Stored()->TaskNotes();
    if (notes->Count() == 0) return;
    txtNote.Text(notes->Item(1)->NoteDescription());
    for (const auto& note : notes->NewEnum()) {
        const String link = note.item->NoteLink();
        if (!link.empty()) FormatCellLink(link, note.item->NoteKey(), Gloabal::PathIsURL(link));
    }
}

void EditTask::PutTexts(const Collection& texts) {
    const auto text = [&](const char* key) { return texts.Item(key).Text(); };
    const auto caption_all = [](auto& array, const String& caption) {
        for (auto& control : array) control.Caption(caption);
    };

    Caption = text("10350");
    const char* const tabs[] = {"10320", "10328", "10619", "10334"};
    for (int tab = 0; tab < kTabs; ++tab) TabTask.TabCaption(tab, text(tabs[tab]));
    caption_all(frmTaskPro, text("10657"));
    caption_all(lblName, text("10321"));
    caption_all(CmdOK, text("10336"));
    caption_all(CmdCancel, text("10337"));
    caption_all(CmdHelp, text("10638"));

    chkAsMilistones.Caption(text("10327"));
    lblcost[0].Caption(text("10644"));
    caption_all(LblDuration, text("10322"));
    lblPercentComplet.Caption(text("10323"));
    LblStartDate.Caption(text("10325"));
    LblEndDate.Caption(text("10326"));
    FrStartDate.Caption(text("10652"));

    frpred.Caption(text("10718"));
    VSFlexGridPredecessor.TextMatrix(0, dialog::kPosition, text("10329"));
    VSFlexGridPredecessor.TextMatrix(0, dialog::kName, text("10330"));
    VSFlexGridPredecessor.TextMatrix(0, dialog::kType, text("10331"));
    VSFlexGridPredecessor.TextMatrix(0, dialog::kLag, text("10332"));
    VSFlexGridPredecessor.ColHidden(dialog::kType, True);

    FrAssi.Caption(text("10653"));
    VSFlexGridResource.TextMatrix(0, dialog::kPerson, text("10333"));
    new_person_caption_ = text("10658");

    FrNote.Caption(text("10654"));
    Frattach.Caption(text("10655"));
    CmdAttach.Caption(text("10656"));
    mnuLinkNote.Caption(CmdAttach.Caption());
    CmdRemove.Caption(text("10661"));
    mnuunattach.Caption(CmdRemove.Caption());
    Cmdlink.Caption(text("10675"));
    choose_file_title_ = text("10659");
    link_failed_message_ = text("10351");
    url_form_.caption = text("10676");
    url_form_.lblLabels.Caption(text("10677"));
    url_form_.CmdOK.Caption(CmdOK[0].Caption());
    url_form_.CmdCancel.Caption(CmdCancel[0].Caption());
}

void EditTask::PutFonts(const ControlFont& font) {
    for (TextControl& field : TxtDurtion) field.Font(font);
    for (TextControl& field : TxtName) field.Font(font);
    for (TextControl* field : {&TxtPercentComplet, &Txtcost, &txtNote}) field->Font(font);
    for (DateControl* picker : {&DTPickerStart, &DTPickerEnd}) picker->Font(font);
    for (GridControl* grid : {&VSFlexGridPredecessor, &VSFlexGridResource, &gridattachement}) grid->Font(font);
}

}  // namespace mrlxmlclass
