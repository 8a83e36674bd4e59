#pragma once

#include <QEventLoop>
#include <memory>

#include "mrlxmlclass/dialog/EditTask.h"
#include "qt/Desktop.h"
#include "qt/TaskWindow.h"

namespace mrlxmlclass::qt {

/// The view of the task dialog in Qt Widgets.
class TaskView : public EditTaskView {
public:
    explicit TaskView(EditTask& form) : form_(form) {}

    void ShowModally() override;
    void Close() override;

    void Refresh(const Control& control) override;
    void SetFocus(const Control& control) override;
    void ResetMousePointer() override;
    void PopupMenu() override;

    bool ClipboardHasText() override;
    void PasteIntoNote() override;
    String ChooseFile(const String& title, const String& folder, const String& filter) override;
    void ShowModally(frmurl& form) override;

private:
    EditTask& form_;
    Desktop desktop_;  // outlives all widgets
    std::unique_ptr<TaskWindow> window_;
    QEventLoop showing_;
    bool closed_ = false;
};

}  // namespace mrlxmlclass::qt
