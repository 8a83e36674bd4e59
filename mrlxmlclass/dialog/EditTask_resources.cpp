#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/dialog/GridPeople.h"
#include "mrlxmlclass/items/PeopleCol.h"
#include "mrlxmlclass/platform/Locale.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/tasks/TasksCls.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

using dialog::kPersonMark;

namespace {

constexpr auto kTail = dialog::kEditTaskTail;

/// Adds a row that shows its own number.
Long AddNumbered(GridControl& grid, const String& text) {
    const String number = Conversions::LongToString(grid.Rows());
    const Long row = grid.AddRow();
    grid.TextMatrix(row, dialog::kNumber, number);
    grid.TextMatrix(row, dialog::kPerson, text);
    return row;
}

}  // namespace

void EditTask::LoadResourceAsList(GridControl& grid, const Ref<PeopleCol>& people) {
    grid.ComboList("");
    grid.Rows(1);
    for (const auto& entry : people->NewEnum()) {
        const peopleCls& person = *entry.item;
        const String name = person.PersonName().empty() ? person.PersonCompany() : person.PersonName();
        grid.RowData(AddNumbered(grid, name), Conversions::LongToString(person.personkey()) + kPersonMark);
    }
    grid.IsSelected(0, False);
    grid.RowData(AddNumbered(grid, new_person_caption_), kNewPerson);
    for (const auto& entry : task_->TasksPeople()->NewEnum()) {
        const Long row = grid.FindRow(Conversions::LongToString(entry.item->personkey()) + kPersonMark);
        if (row < 0) continue;
        grid.IsSelected(row, True);
        grid.Row(row);
    }
}

void EditTask::VSFlexGridResource_Click(Long Row) {
    kTail.Run("VSFlexGridResource_Click", [&] {
        GridControl& grid = VSFlexGridResource;
        if (Row == -1 || grid.RowData(Row).empty() || grid.RowData(Row) == kNewPerson) return;
        grid.IsSelected(Row, !grid.IsSelected(Row));
        resources_changed_ = True;
    });
}

void EditTask::VSFlexGridResource_BeforeEdit(Long Row, Long Col, ByRef<Boolean> Cancel) {
    kTail.Run("VSFlexGridResource_BeforeEdit", [&] {
        if (VSFlexGridResource.RowData(Row) != kNewPerson || Col != dialog::kPerson) {
            *Cancel = True;
            return;
        }
        VSFlexGridResource.TextMatrix(Row, dialog::kPerson, "");
    });
}

void EditTask::VSFlexGridResource_AfterEdit(Long Row, Long Col) {
    kTail.Run("VSFlexGridResource_AfterEdit", [&] {
        GridControl& grid = VSFlexGridResource;
        const String name = grid.TextMatrix(Row, Col);
        // Kept: somebody called as the row's own data is nobody.
        if (LowerCaseOfAnyScript(name) != LowerCaseOfAnyScript(new_person_caption_) && !Trim(name).empty() &&
            grid.RowData(Row) == kNewPerson && name != kNewPerson) {
            const String person = Gloabal::AddPeople(people_, /*personkey=*/{}, name, {}, {}, {}, {}, {}, True);
            grid.RowData(Row, person + kPersonMark);
            grid.TextMatrix(Row, dialog::kNumber, Conversions::LongToString(grid.Rows()));
            grid.IsSelected(Row, True);
            resources_changed_ = True;
        }
        // Kept: an edit that leaves the last row empty gets a further row too.
        const Long last = grid.Rows() - 1;
        if (grid.TextMatrix(last, dialog::kPerson) == new_person_caption_) return;
        grid.Rows(grid.Rows() + 1);
        grid.TextMatrix(last + 1, dialog::kPerson, new_person_caption_);
        grid.RowData(last + 1, kNewPerson);
    });
}

void EditTask::VSFlexGridResource_BeforeRowColChange(Long OldRow, Long, Long, Long, ByRef<Boolean>) {
    kTail.Run("VSFlexGridResource_BeforeRowColChange", [&] {
        GridControl& grid = VSFlexGridResource;
        if (OldRow < 0 || OldRow >= grid.Rows() || grid.RowData(OldRow) != kNewPerson) return;
        if (grid.TextMatrix(OldRow, dialog::kPerson).empty()) {
            grid.TextMatrix(OldRow, dialog::kPerson, new_person_caption_);
        }
    });
}

void EditTask::VSFlexGridResource_ComboCloseUp(Long Row, Long, ByRef<Boolean>) {
    kTail.Run("VSFlexGridResource_ComboCloseUp",
              [&] { VSFlexGridResource.RowData(Row, VSFlexGridResource.ComboData()); });
}

void EditTask::VSFlexGridResource_LostFocus() {
    MoveTo(VSFlexGridResource, -1, VSFlexGridResource.Col());
}

}  // namespace mrlxmlclass
