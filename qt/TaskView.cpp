#include "qt/TaskView.h"

namespace mrlxmlclass::qt {

void TaskView::ShowModally() {
    if (closed_) return;
    window_ = std::make_unique<TaskWindow>(form_);
    window_->setWindowModality(Qt::ApplicationModal);
    window_->show();
    form_.Form_Activate();
    if (closed_) return;
    QEventLoop loop;
    showing_ = &loop;
    loop.exec();
    showing_ = nullptr;
}

void TaskView::Close() {
    closed_ = true;
    if (window_) window_->hide();
    if (showing_ != nullptr) showing_->quit();
}

void TaskView::Refresh(const Control& control) {
    if (window_) window_->bindings().Show(control);
}

void TaskView::SetFocus(const Control& control) {
    if (QWidget* widget = window_->bindings().WidgetOf(control)) widget->setFocus();
}

void TaskView::ResetMousePointer() {
    while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
}

void TaskView::PopupMenu() {}
bool TaskView::ClipboardHasText() {
    return false;
}
void TaskView::PasteIntoNote() {}
String TaskView::ChooseFile(const String&, const String&, const String&) {
    return {};
}
void TaskView::ShowModally(frmurl&) {}

}  // namespace mrlxmlclass::qt
