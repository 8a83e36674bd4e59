#include "mrlxmlclass/dialog/EditTask.h"

#include "mrlxmlclass/dialog/Desktop.h"
#include "mrlxmlclass/dialog/EditTask_internal.h"
#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/tasks/TasksCol.h"
#include "mrlxmlclass/wizard/Steps.h"

namespace mrlxmlclass {

namespace {

constexpr auto kTail = dialog::kEditTaskTail;

/// The tab on which the dialog opens.
Long StartTabFor(Integer Fromwhere) {
    switch (Fromwhere.value()) {
        case 5:
        case 6:
        case 7:
            return 3;
        case 8:
        case 9:
            return 2;
        default:
            return 0;
    }
}

}  // namespace

Long EditTask::Prepare(Integer Fromwhere, Boolean has_children, const Ref<Application>& oApplication) {
    const auto show = [](Boolean flag, auto&... controls) { (controls.Visible(flag), ...); };
    const auto show_all = [](Boolean flag, auto&... arrays) {
        const auto each = [&](auto& array) {
            for (auto& control : array) control.Visible(flag);
        };
        (each(arrays), ...);
    };
    const auto enable_duration = [&](Boolean flag) {
        for (auto& field : TxtDurtion) field.Enabled(flag);
        for (auto& arrows : VScrollDuration) arrows.Enabled(flag);
    };
    const auto show_dates = [&](Boolean flag) {
        show(flag, DTPickerStart, DTPickerEnd, chkAsMilistones, LblStartDate, LblEndDate);
        show_all(flag, LblDuration, TxtDurtion, VScrollDuration);
    };

    switch (Fromwhere.value()) {
        case 1:
            TabTask.TabEnabled(0, True);
            TabTask.TabEnabled(1, False);
            show_dates(False);
            show(False, TxtPercentComplet, VScrollPercentComplete, lblPercentComplet);
            break;
        case 2:
        case 9: {
            const Boolean leaf = !has_children;
            TabTask.TabEnabled(2, True);
            show_dates(True);
            DTPickerEnd.Enabled(leaf);
            chkAsMilistones.Enabled(leaf);
            LblEndDate.Enabled(leaf);
            enable_duration(leaf);
            break;
        }
        case 3:
        case 5:
        case 8:
            TabTask.TabEnabled(1, False);
            show(False, DTPickerStart, DTPickerEnd, chkAsMilistones, VScrollPercentComplete);
            show(True, LblStartDate, LblEndDate, TxtPercentComplet, lblPercentComplet);
            show_all(True, LblDuration, TxtDurtion, VScrollDuration);
            FrStartDate.Visible(StepVisited(oApplication->xStep()->GantStep()));
            break;
        case 4:
            TabTask.TabEnabled(1, False);
            show_dates(True);
            break;
        default:
            break;
    }
    if (has_children) {
        DTPickerStart.Enabled(False);
        DTPickerEnd.Enabled(False);
        chkAsMilistones.Enabled(False);
        enable_duration(False);
        Txtcost.Enabled(False);
    }
    return StartTabFor(Fromwhere);
}

void EditTask::ShowModally() {
    if (closed_) return;  // the host may have had a word while the form was filled
    view_ = Platform().task_screens.NewView(*this);
    struct Ended {
        std::unique_ptr<EditTaskView>& view;
        ~Ended() { view.reset(); }
    } const ended{view_};
    if (!closed_) view_->ShowModally();  // or while the screen was made
}

void EditTask::Unload() {
    closed_ = true;
    if (view_) view_->Close();
}

void EditTask::Form_Closed() {
    if (saving_) return;  // while the host is heard: what is saved decides
    unchanged_ = True;
    Unload();
}

void EditTask::Form_Activate() {
    kTail.Run("Form_Activate", [&] {
        const Boolean priced = !Module().g_SourcePrima;
        lblcost[0].Visible(priced);
        Txtcost.Visible(priced);
        for (auto& help : CmdHelp) help.Visible(priced);
        TabTask.CurrTab(start_tab_);
        Txtcost.SelStart(0);
        View().ResetMousePointer();
        if (VSFlexGridResource.SelectedRows() > 0) VSFlexGridResource.TopRow(1);
        View().SetFocus(TabTask);
    });
}

void EditTask::TabTask_Click() {
    start_tab_ = TabTask.CurrTab();
}

void EditTask::CmdOK_Click(Integer) {
    if (saving_ || closed_) return;  // a person presses twice while the host is heard, or the host has closed it
    const dialog::Raised saving(saving_);
    kTail.Run("CmdOK_Click", [&] {
        const Long failures = RecordedFailures();
        const Boolean saved = SaveTaskInfo();
        ending_ = saved && RecordedFailures() == failures ? Ending::Saved : Ending::Failed;
        Unload();
    });
}

void EditTask::CmdCancel_Click(Integer) {
    kTail.Run("CmdCancel_Click", [&] { Form_Closed(); });
}

void EditTask::CmdHelp_Click(Integer) {
    kTail.Run("CmdHelp_Click", [&] { Gloabal::ShowHelp(Ref<EditTask>(this), "editing1"); });
}

void EditTask::Refresh(const Control& control) {
    if (view_) view_->Refresh(control);
}

// What the program fills is answered as what the person types: the rules of a field follow its content.
void EditTask::Changed(Control& control) {
    if (&control == &chkAsMilistones) {
        chkAsMilistones_Click();
    } else if (&control == &TxtPercentComplet) {
        TxtPercentComplet_Change();
    } else if (&control == &Txtcost) {
        Txtcost_Change();
    } else if (TxtDurtion.Holds(control)) {
        TxtDurtion_Change(control.Index());
    }
}

Ref<TasksCls> EditTask::Stored() const {
    return tasks_->Item(key_);
}

String EditTask::KeyAsText() const {
    return key_.Text();
}

EditTaskView& EditTask::View() const {
    if (!view_) Raise(failure::kNothing);
    return *view_;
}

}  // namespace mrlxmlclass
