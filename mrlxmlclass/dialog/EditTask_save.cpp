#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/dialog/GridPeople.h"
#include "mrlxmlclass/items/NotesCol.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/items/Relation_internal.h"
#include "mrlxmlclass/items/TaskNotes.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr auto kTail = dialog::kEditTaskTail;

}  // namespace

Boolean EditTask::SaveTaskInfo() {
    return kTail.Run<Boolean>("SaveTaskInfo", [&](Boolean& result) {
        SaveNameAndDates();
        SaveProgressAndCost();
        if (resources_changed_) {
            Gloabal::AssignAllPeopleInTheGrid(VSFlexGridResource, people_, Integer(task_->TaskKey()), plan_,
                                              assignments_);
        }
        SavePredecessors();
        AddAllLink();
        RemoveAllLink();
        SaveNoteText();
        result = True;
    });
}

// --- Fields ----------------------------------------------------------------------------------------------------------

void EditTask::SaveNameAndDates() {
    const Ref<TasksCls> stored = Stored();
    if (stored->TaskName() != task_->TaskName()) tasks_->ChangeName(KeyAsText(), task_->TaskName());

    // Kept: each overwrites the flag, so that the duration alone decides it.
    if (stored->TaskBDate() != task_->TaskBDate()) {
        In(stored).StoreStart(task_->TaskBDate());
        stored->TaskLag(task_->TaskLag());
    } else {
        unchanged_ = True;
    }
    unchanged_ = stored->TaskEDate() == task_->TaskEDate();
    if (!unchanged_) In(stored).StoreEnd(task_->TaskEDate());
    unchanged_ = stored->TaskDuration() == task_->TaskDuration();
    if (!unchanged_) In(stored).StoreDuration(task_->TaskDuration());
}

void EditTask::SaveProgressAndCost() {
    const Ref<TasksCls> stored = Stored();
    if (stored->TaskPercentDone() != task_->TaskPercentDone()) {
        stored->TaskPercentDone(task_->TaskPercentDone());
        tasks_->ChangePercentDone(KeyAsText(), Integer(task_->TaskPercentDone()));
    }
    if (stored->TaskMilstones() != task_->TaskMilstones()) stored->TaskMilstones(task_->TaskMilstones());
    if (stored->TaskCost() != task_->TaskCost()) {
        tasks_->RollUpCostChanged(task_->TaskKey(), task_->TaskCost() - stored->TaskCost(), True, True);
    }
}

// --- Predecessors ----------------------------------------------------------------------------------------------------

void EditTask::SavePredecessors() {
    if (removed_predecessors_) {
        for (const auto& removed : removed_predecessors_->Snapshot()) {
            tasks_->RemoveTaskPredecessor(KeyAsText(), removed.item.As<String>());
        }
    }
    if (!predecessors_changed_) return;
    GridControl& grid = VSFlexGridPredecessor;
    const Ref<TasksCls> stored = Stored();
    grid.Rows(grid.Rows() - 1);
    grid.Col(dialog::kPosition);
    grid.SortAscending();
    Long lag;
    for (Long row = 1; row < grid.Rows() && !grid.RowData(row).empty(); ++row) {
        const String key = grid.RowData(row);
        if (!stored->isPredecessor(key)) tasks_->AddTaskPredecessor(KeyAsText(), key);
        lag = Conversions::StringToLong(grid.TextMatrix(row, dialog::kLag));
    }
    stored->TaskLag(lag);
}

// --- Attachments -----------------------------------------------------------------------------------------------------

Boolean EditTask::AddAllLink() {
    for (Long row = 0; row < gridattachement.Rows(); ++row) {
        const dialog::Attachment attachment = dialog::AttachmentIn(gridattachement.RowData(row));
        if (!attachment.note_key.empty()) continue;
        AddNote([&](NotesCls& note) {
            note.NoteLink(attachment.link);
            note.NoteDescription("");
        });
    }
    return True;
}

Boolean EditTask::RemoveAllLink() {
    if (!removed_attachments_) return True;
    for (const auto& removed : removed_attachments_->Snapshot()) {
        const String note_key = removed.item.As<String>();
        RemoveNote(note_key);
        const Integer place = Stored()->NoteIndex(note_key);
        if (place != -1) Stored()->TaskNotes()->Remove(place);
    }
    return True;
}

Boolean EditTask::RemoveFirstNote() {
    const Ref<class TaskNotes> notes = Stored()->TaskNotes();
    RemoveNote(notes->Item(1)->NoteKey());
    notes->Remove(1);
    return True;
}

// --- Notes -----------------------------------------------------------------------------------------------------------

void EditTask::SaveNoteText() {
    const bool has_notes = Stored()->TaskNotes()->Count() > 0;
    if (!txtNote.Text().empty() && has_notes) {
        DescribeFirstNote(txtNote.Text());
    } else if (!txtNote.Text().empty()) {
        AddNote([&](NotesCls& note) { note.NoteDescription(txtNote.Text()); });
    } else if (has_notes && gridattachement.Rows() == 0) {
        RemoveFirstNote();
    } else if (has_notes) {
        DescribeFirstNote("");
    }
}

void EditTask::DescribeFirstNote(const String& text) {
    const Ref<NotesCls> note = Stored()->TaskNotes()->Item(1);
    const Ref<NotesCls> master = notes_->Item(note->NoteKey());
    note->NoteDescription(text);
    master->NoteDescription(text);
    master->NoteLink(note->NoteLink());
}

template <class Describe>
void EditTask::AddNote(Describe&& describe) {
    const auto note = Make<NotesCls>();
    describe(*note);
    const Ref<TaskNoteRelationCls> relation = note_relations_->Add("");
    const Ref<NotesCls> stored = notes_->AddItem(note);
    relation->NoteKey(stored->NoteKey());
    relation->TaskKey(task_->TaskKey());
    tasks_->AddNote(KeyAsText(), relation, stored);
}

// Takes out the relation, both the project's and the task's, and the project's note; the task's copy stays.
void EditTask::RemoveNote(const String& note_key) {
    for (const auto& entry : note_relations_->NewEnum()) {
        if (entry.item->NoteKey() != note_key) continue;
        const KeyText key(entry.item->elementKey());
        In(note_relations_).RemoveOrRaise(key);
        In(Stored()->TaskNoteRelation()).RemoveOrRaise(key);
        break;
    }
    notes_->Remove(1, note_key);
}

}  // namespace mrlxmlclass
