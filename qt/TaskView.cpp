#include "qt/TaskView.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMimeData>
#include <QWindow>

#include "qt/Texts.h"
#include "qt/UrlWindow.h"

namespace mrlxmlclass::qt {
namespace {

/// A name and a pattern, parted by "|", as Qt takes them. "*.*" means every file here, one without a point too.
QString NameFilter(const QString& filter) {
    const QStringList parts = filter.split('|');
    QStringList patterns = parts.value(1).split(';');
    patterns.replaceInStrings("*.*", "*");
    return parts.value(0) + " (" + patterns.join(' ') + ")";
}

/// The window stands before the one that the person is in, and goes to its place.
void StandBefore(const QWidget* host, QWidget& window) {
    window.winId();
    if (host != nullptr) window.windowHandle()->setTransientParent(host->window()->windowHandle());
}

}  // namespace

void TaskView::ShowModally() {
    if (closed_) return;
    const QWidget* host = QApplication::activeWindow();
    window_ = std::make_unique<TaskWindow>(form_);
    window_->setWindowModality(Qt::ApplicationModal);
    window_->setAttribute(Qt::WA_QuitOnClose, false);  // a host without other windows goes on
    StandBefore(host, *window_);
    window_->show();
    form_.Form_Activate();
    if (closed_) return;
    showing_.exec();
    if (!closed_) form_.Form_Closed();  // the host is quitting
}

void TaskView::Close() {
    closed_ = true;
    if (window_) window_->Leave();
    showing_.quit();
}

void TaskView::Refresh(const Control& control) {
    if (window_) window_->bindings().Show(control);
}

void TaskView::SetFocus(const Control& control) {
    if (!window_) return;
    if (QWidget* widget = window_->bindings().WidgetOf(control)) widget->setFocus();
}

void TaskView::ResetMousePointer() {
    while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
}

void TaskView::PopupMenu() {
    if (window_) window_->note().OpenMenu();
}

bool TaskView::ClipboardHasText() {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    return content != nullptr && content->hasText();
}

void TaskView::PasteIntoNote() {
    if (window_) window_->note().Paste(QGuiApplication::clipboard()->text());
}

String TaskView::ChooseFile(const String& title, const String& folder, const String& filter) {
    QFileDialog dialog(window_.get(), ToQt(title), ToQt(folder), NameFilter(ToQt(filter)));
    dialog.setObjectName("TaskCommonDialog");
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return FromQt(dialog.selectedFiles().front());
}

void TaskView::ShowModally(frmurl& form) {
    UrlWindow(form, window_.get()).exec();
}

}  // namespace mrlxmlclass::qt
