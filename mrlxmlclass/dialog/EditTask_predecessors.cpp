#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/dialog/LooseNumber.h"
#include "mrlxmlclass/dialog/TaskCombos.h"
#include "mrlxmlclass/scheduling/WorkingDays.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

using dialog::NoteRemoved;

namespace {

constexpr auto kTail = dialog::kEditTaskTail;
constexpr int kLagDigits = 3;
constexpr const char* kFinishToStart = "FS";

/// The table keeps one empty row at its end.
void EndWithAnEmptyRow(GridControl& grid) {
    const Long last = grid.Rows() - 1;
    if (last < grid.FixedRows() || !grid.RowData(last).empty()) grid.Rows(grid.Rows() + 1);
}

}  // namespace

void EditTask::LoadPredecessor(GridControl& grid) {
    predecessor_positions_ = "";  // which are added to what stands there
    predecessor_names_ = Gloabal::SetComboTask(tasks_, KeyAsText(), predecessor_positions_);
    grid.Rows(1);
    for (const auto& entry : tasks_->NewEnum()) {
        TasksCls& task = *entry.item;
        const String key = Conversions::LongToString(task.TaskKey());
        if (!task_->isPredecessor(key)) continue;
        const Long row = grid.AddRow();
        grid.TextMatrix(row, dialog::kName, task.TaskName());
        grid.TextMatrix(row, dialog::kPosition, Conversions::LongToString(task.TaskPosition()));
        grid.RowData(row, key);
        grid.TextMatrix(row, dialog::kType, kFinishToStart);
        // Kept: a clone has no lead times, so every lag shows as 0.
        const Integer lag = tasks_->GetLeadTime(key, task_->TaskLeadTime());
        grid.TextMatrix(row, dialog::kLag, Conversions::IntegerToString(lag));
    }
    grid.Rows(grid.Rows() + 1);
    grid.Row(grid.Rows() - 1);
}

void EditTask::VSFlexGridPredecessor_BeforeEdit(Long Row, Long Col, ByRef<Boolean> Cancel) {
    kTail.Run("VSFlexGridPredecessor_BeforeEdit", [&] {
        GridControl& grid = VSFlexGridPredecessor;
        grid.ComboList("");
        grid.EditMaxLength(0);
        const bool editable = Row >= grid.FixedRows();
        bool begins = false;  // from a lag
        if (Col == dialog::kPosition && editable) {
            grid.ComboList(predecessor_positions_);
            previous_row_key_ = grid.RowData(Row);
        } else if (Col == dialog::kName && editable) {
            if (predecessor_names_.empty()) {
                *Cancel = True;
            } else {
                grid.ComboList(predecessor_names_);
                previous_row_key_ = grid.RowData(Row);
            }
        } else if (Col == dialog::kLag && editable) {
            const String lag = grid.TextMatrix(Row, Col);
            if (grid.RowData(Row).empty()) {
                *Cancel = True;
            } else if (lag == "-") {
                grid.TextMatrix(Row, Col, "0");
            } else {
                begins = IsNumeric(lag);
            }
        } else if (Col == dialog::kType) {
            *Cancel = True;
        }
        const bool signed_lag = grid.TextMatrix(Row, Col).find('-') != String::npos;
        grid.EditMaxLength(signed_lag ? kLagDigits + 1 : kLagDigits);
        if (begins) previous_lag_ = Conversions::StringToInteger(grid.TextMatrix(Row, Col));
    });
}

void EditTask::VSFlexGridPredecessor_KeyPressEdit(Long, Long Col, ByRef<Integer> KeyAscii) {
    if (Col != dialog::kLag) return;
    const bool digit = *KeyAscii >= '0' && *KeyAscii <= '9';
    const bool first_sign = *KeyAscii == '-' && VSFlexGridPredecessor.EditText().find('-') == String::npos;
    if (!digit && !first_sign && *KeyAscii != kBackspace && *KeyAscii != kEnter) *KeyAscii = kNoKey;
}

void EditTask::VSFlexGridPredecessor_ComboCloseUp(Long Row, Long Col, ByRef<Boolean>) {
    kTail.Run("VSFlexGridPredecessor_ComboCloseUp", [&] {
        GridControl& grid = VSFlexGridPredecessor;
        const String key = grid.ComboData();
        if (key.empty()) return;
        const Ref<TasksCls> chosen = tasks_->Item(key);
        if (Col == dialog::kName) {
            grid.TextMatrix(Row, dialog::kPosition, Conversions::LongToString(chosen->TaskPosition()));
        } else if (Col == dialog::kPosition) {
            grid.TextMatrix(Row, dialog::kName, chosen->TaskName());
        }
        grid.TextMatrix(Row, dialog::kType, kFinishToStart);
        grid.TextMatrix(Row, dialog::kLag, "0");
        grid.RowData(Row, "");
        if (grid.FindRow(key) == -1) {
            grid.RowData(Row, key);
        } else {
            grid.RemoveItem(Row);  // a predecessor already
        }
        EndWithAnEmptyRow(grid);
    });
}

void EditTask::VSFlexGridPredecessor_AfterEdit(Long Row, Long Col) {
    kTail.Run("VSFlexGridPredecessor_AfterEdit", [&] {
        GridControl& grid = VSFlexGridPredecessor;
        if (Col == dialog::kLag && !grid.RowData(Row).empty() && IsNumeric(grid.TextMatrix(Row, Col))) {
            StartBehind(*tasks_->Item(grid.RowData(Row)), Conversions::StringToInteger(grid.TextMatrix(Row, Col)));
        } else if (Col == dialog::kLag) {
            grid.TextMatrix(Row, Col, grid.RowData(Row).empty() ? "" : "0");
        } else if (Col == dialog::kPosition || Col == dialog::kName) {
            if (!previous_row_key_.empty() && previous_row_key_ != grid.RowData(Row)) {
                NoteRemoved(removed_predecessors_, previous_row_key_);
            }
        }
        predecessors_changed_ = True;
    });
}

// Kept: a lag that is not negative is measured from the predecessor's start, a negative one from its end.
void EditTask::StartBehind(TasksCls& predecessor, Integer lag) {
    const Date shown = DTPickerStart.Value().As<Date>();
    const int step = lag < 0 ? -1 : 1;
    const Integer free_days = Gloabal::NumberOFNonWorkingDay(predecessor.TaskEDate(), shown + double(lag + step));
    const Date from = lag < 0 ? predecessor.TaskEDate() : predecessor.TaskBDate();

    task_->TaskLag(0);
    task_->TaskBDate(from + double(lag + free_days + step));
    task_->TaskLag(lag);
    lag_difference_ = lag - previous_lag_;
    ShowDates();
}

void EditTask::VSFlexGridPredecessor_KeyDown(Integer KeyCode, Integer) {
    kTail.Run("VSFlexGridPredecessor_KeyDown", [&] {
        GridControl& grid = VSFlexGridPredecessor;
        const Long row = grid.Row();
        if (KeyCode != kDelete || row < grid.FixedRows() || grid.TextMatrix(row, dialog::kName).empty()) return;
        NoteRemoved(removed_predecessors_, grid.RowData(row));
        grid.RemoveItem(row);
    });
}

}  // namespace mrlxmlclass
