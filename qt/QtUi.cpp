#include "qt/QtUi.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QThread>

#include "mrlxmlclass/platform/Services.h"
#include "qt/Texts.h"

namespace mrlxmlclass {
namespace {

void ShowBox(const QString& text) {
    QWidget* const dialog = QApplication::activeModalWidget();
    QWidget* const in_front = dialog != nullptr ? dialog : QApplication::activeWindow();
    // The window that it stands before may go, and takes it along.
    const QPointer<QMessageBox> box = new QMessageBox(in_front);
    box->setObjectName("Message");
    box->setWindowTitle(in_front != nullptr ? in_front->window()->windowTitle()
                                            : QGuiApplication::applicationDisplayName());
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setStandardButtons(QMessageBox::Ok);
    box->setAttribute(Qt::WA_QuitOnClose, false);  // a host without other windows goes on
    box->exec();
    delete box.data();
}

}  // namespace

bool QtUi::CanShow() {
    const auto* application = qobject_cast<const QApplication*>(QCoreApplication::instance());
    return application != nullptr && application->thread() == QThread::currentThread() &&
           !QCoreApplication::closingDown();
}

void QtUi::Message(const String& text) {
    if (!CanShow()) return SystemServices().ui.Message(text);
    ShowBox(qt::ToQt(text));
}

}  // namespace mrlxmlclass
