#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/dialog/LooseNumber.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/scheduling/Progress.h"
#include "mrlxmlclass/scheduling/RowText.h"
#include "mrlxmlclass/scheduling/Units.h"
#include "mrlxmlclass/tasks/TasksCls_internal.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

namespace {

constexpr auto kTail = dialog::kEditTaskTail;
constexpr double kCostLimit = 99'999'999;
constexpr const char* kNewPhase = "<New Phase>";

struct TypedDuration {
    Double number = 0;
    String unit;
};
TypedDuration DurationIn(String text) {
    TypedDuration typed;
    typed.unit = Gloabal::SetTaskUnit(text, typed.number);
    return typed;
}

/// What a picker shows for a date of the task.
Variant DateOrNull(Date date) {
    return date.set() ? Variant(date) : Variant(Variant::Null{});
}

}  // namespace

// --- The milestone's box and the dates -------------------------------------------------------------------------------

void EditTask::chkAsMilistones_Click() {
    Answer(chkAsMilistones, "chkAsMilistones_Click", [&] {
        if (chkAsMilistones.Value()) {
            task_->TaskMilstones(True);
            const bool stood_there = TxtDurtion[0].Text() == "0";
            TxtDurtion[0].Text("0");
            if (stood_there) SetTxtValue(0);
        } else {
            TxtDurtion[0].Text("1");
            task_->TaskMilstones(False);
        }
    });
}

void EditTask::DTPickerStart_Change() {
    Answer(DTPickerStart, "DTPickerStart_Change", [&] {
        if (DTPickerStart.Value().is_null()) return PutDatenull();
        task_->TaskLag(0);
        task_->TaskBDate(DTPickerStart.Value().As<Date>());
        tasks_->CalcLeadTime(KeyAsText());
        if (!task_->TaskEDate().set()) In(task_).StoreEnd(task_->TaskBDate());
        DTPickerEnd.Value(DateOrNull(task_->TaskEDate()));
        ShowDuration(0);
    });
}

void EditTask::DTPickerEnd_Change() {
    Answer(DTPickerEnd, "DTPickerEnd_Change", [&] {
        if (DTPickerEnd.Value().is_null()) return PutDatenull();
        task_->TaskEDate(DTPickerEnd.Value().As<Date>());
        if (!task_->TaskBDate().set()) In(task_).StoreStart(task_->TaskEDate());
        ShowDates();
        ShowDuration(0);
    });
}

Boolean EditTask::StandsIn(const DateControl& picker) const {
    const Date of_task = &picker == &DTPickerStart ? task_->TaskBDate() : task_->TaskEDate();
    return !of_task.set() && !picker.Value().is_null();
}

void EditTask::PutDatenull() {
    // Past the rules, which would refuse an end before the start, and find a start for the end.
    In(task_).StoreEnd(Date());
    In(task_).StoreStart(Date());
    In(task_).StoreDuration(0);
    task_->TaskDurationUnit("");
    DTPickerStart.Value(Variant::Null{});
    DTPickerEnd.Value(Variant::Null{});
    TxtDurtion[0].Text("0");
}

void EditTask::ShowDates() {
    DTPickerEnd.Value(DateOrNull(task_->TaskEDate()));
    DTPickerStart.Value(DateOrNull(task_->TaskBDate()));
}

void EditTask::ShowDuration(Integer Index) {
    TxtDurtion[Index].Text(Conversions::DoubleToString(task_->TaskDuration()));
}

// --- The duration ----------------------------------------------------------------------------------------------------

void EditTask::TakeDuration(Integer Index) {
    TextControl& field = TxtDurtion[Index];
    if (field.Text().empty()) field.Text("0");
    const auto is_short = [&] { return LooseNumber(field.Text()) <= dialog::kMostShortDuration; };
    if (!is_short()) field.Text(Left(field.Text(), static_cast<std::size_t>(field.MaxLength().value())));
    if (is_short()) SetTxtValue(Index);
}

void EditTask::TxtDurtion_Change(Integer Index) {
    Answer(TxtDurtion[Index], "TxtDurtion_Change", [&] { TakeDuration(Index); });
}

void EditTask::TxtDurtion_Validate(Integer Index) {
    Answer(TxtDurtion[Index], "TxtDurtion_Validate", [&] { TakeDuration(Index); });
}

void EditTask::TxtDurtion_KeyPress(Integer, ByRef<Integer> KeyAscii) {
    const bool passes = (*KeyAscii >= '0' && *KeyAscii <= '9') || *KeyAscii == kBackspace;
    if (!passes) *KeyAscii = kNoKey;
}

void EditTask::SetTxtValue(Integer Index) {
    if (TxtDurtion[Index].Text().empty()) {
        for (TextControl& field : TxtDurtion) field.Text("");
    }
    const auto [duration, unit] = DurationIn(TxtDurtion[Index].Text());
    task_->TaskDurationUnit(unit);  // Kept: a plain number takes the unit away.
    task_->TaskDuration(duration);
    if (task_->TaskEDate().set()) {
        chkAsMilistones.Value(duration == 0);
        if (duration == 0) In(task_).StoreEnd(task_->TaskBDate());
    }
    ShowDates();
    for (TextControl& field : TxtDurtion) field.Text(Conversions::DoubleToString(task_->TaskDuration()));
}

void EditTask::VScrollDuration_DownClick(Integer Index) {
    Answer(TxtDurtion[Index], "VScrollDuration_DownClick", [&] {
        auto [number, unit] = DurationIn(TxtDurtion[Index].Text());
        if (number > 0) {
            --number;
            if (number == 0) SetTxtValue(Index);
        }
        TxtDurtion[Index].Text(Conversions::DoubleToString(number) + " " + unit);
        SetTxtValue(Index);
    });
}

void EditTask::VScrollDuration_UpClick(Integer Index) {
    Answer(TxtDurtion[Index], "VScrollDuration_UpClick", [&] {
        auto [number, unit] = DurationIn(TxtDurtion[Index].Text());
        if (number < dialog::kMostShortDuration) ++number;
        TxtDurtion[Index].Text(Conversions::DoubleToString(number) + " " + unit);
        SetTxtValue(Index);
    });
}

// --- Progress --------------------------------------------------------------------------------------------------------

void EditTask::TxtPercentComplet_Click() {
    TxtPercentComplet_Change();
}

void EditTask::TxtPercentComplet_Change() {
    Answer(TxtPercentComplet, "TxtPercentComplet_Change", [&] {
        const Double value = LooseNumber(TxtPercentComplet.Text());
        if (Gloabal::isNumber(Conversions::DoubleToString(value)))
            task_->TaskPercentDone(Gloabal::AdjustComplte(value));
        TxtPercentComplet.Text(Conversions::LongToString(task_->TaskPercentDone()) + kPercentTail);
    });
}

void EditTask::VScrollPercentComplete_DownClick() {
    kTail.Run("VScrollPercentComplete_DownClick", [&] { ShowProgress(task_->TaskPercentDone() - 1); });
}

void EditTask::VScrollPercentComplete_UpClick() {
    kTail.Run("VScrollPercentComplete_UpClick", [&] { ShowProgress(task_->TaskPercentDone() + 1); });
}

void EditTask::ShowProgress(std::int64_t percent) {
    TxtPercentComplet.Text(std::to_string(std::clamp<std::int64_t>(percent, 0, 100)));
}

// --- The name --------------------------------------------------------------------------------------------------------

void EditTask::TxtName_Validate(Integer Index) {
    kTail.Run("TxtName_Validate", [&] {
        const String& text = TxtName[Index].Text();
        const std::size_t characters =
            Length(std::string_view(text).substr(std::min(text.find_first_not_of(' '), text.size())));
        if (characters > 0 && characters < dialog::kNameCharacters && text != kNewPhase) {
            task_->TaskName(text);
        } else {
            TxtName[Index].Text(task_->TaskName());
        }
        const String name = TxtName[Index].Text().substr(0, TxtName[Index].Text().find("\r\n"));
        for (TextControl& field : TxtName) field.Text(name);
    });
}

// --- The cost --------------------------------------------------------------------------------------------------------

void EditTask::Txtcost_Change() {
    Answer(Txtcost, "Txtcost_Change", [&] { ChangeCost(); });
}

void EditTask::Txtcost_KeyPress(ByRef<Integer> KeyAscii) {
    if (*KeyAscii == kEnter) Txtcost_Change();
}

Boolean EditTask::ChangeCost() {
    const String typed = Replace(Txtcost.Text(), "$", "");
    const Double value = LooseNumber(typed);
    if (value == task_->TaskCost().ToDouble()) return True;
    if (typed.empty()) {
        task_->TaskCost(0);
    } else if (value < kCostLimit && IsNumeric(typed)) {
        const String cost = FormatWhole(typed);
        if (Conversions::isCurrency(cost) && LooseNumber(cost) < kCostLimit) {
            task_->TaskCost(Conversions::StringToCurrency(cost));
        }
    }
    Txtcost.Text(Conversions::CurrencyToString(task_->TaskCost()));
    Txtcost.SelStart(Length(Txtcost.Text()));
    return True;
}

}  // namespace mrlxmlclass
