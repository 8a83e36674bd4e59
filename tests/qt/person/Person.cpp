// Loaded into a program before it starts, this uses the task dialog that the program opens: types $PERSON_TYPES over
// the duration, where that is set, and presses the button of the name $PERSON_PRESSES.
#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

namespace {

void Press(QWidget& field, int key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&field, &press);
}

void UseDialog() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    auto* duration = window->findChild<QLineEdit*>("TxtDurtion");
    duration->setFocus();
    duration->selectAll();
    for (const QChar digit : qEnvironmentVariable("PERSON_TYPES")) Press(*duration, digit.unicode(), digit);
    window->findChild<QAbstractButton*>(qEnvironmentVariable("PERSON_PRESSES"))->click();
}

void Begin() {
    constexpr int kLater = 200;  // milliseconds, again and again until there is a dialog
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, UseDialog);
    timer->start(kLater);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Begin)
