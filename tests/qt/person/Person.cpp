// Loaded into a program before it starts, this uses the task dialog that the program opens: types $PERSON_TYPES over
// the duration and $PERSON_KNOWS as a new person's name, opens the first attachment for $PERSON_OPENS, where they are
// set, and presses the button of the name $PERSON_PRESSES. What a message box says goes to the output.
#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableView>
#include <QTimer>
#include <cstdio>

namespace {

void Press(QWidget& field, int key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&field, &press);
}

void Type(QLineEdit& field, const QString& text) {
    field.setFocus();
    field.selectAll();
    for (const QChar character : text) Press(field, character.unicode(), character);
}

void AddSomebody(const QWidget& window, const QString& name) {
    auto* people = window.findChild<QTableView*>("VSFlexGridResource");
    const QModelIndex last = people->model()->index(people->model()->rowCount() - 1, 1);
    people->setCurrentIndex(last);
    people->edit(last);
    auto* editor = people->findChild<QLineEdit*>();
    Type(*editor, name);
    Press(*editor, Qt::Key_Return, "\r");
}

void AnswerBox() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    std::printf("box: %s\n", qPrintable(box->text()));
    box->button(QMessageBox::Ok)->click();
}

void OpenAttachment(const QWidget& window) {
    QTimer::singleShot(0, qApp, AnswerBox);
    auto* attachments = window.findChild<QTableView*>("gridattachement");
    attachments->setCurrentIndex(attachments->model()->index(0, 0));
    Press(*attachments, Qt::Key_Space, " ");
}

void UseDialog() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    Type(*window->findChild<QLineEdit*>("TxtDurtion"), qEnvironmentVariable("PERSON_TYPES"));
    if (qEnvironmentVariableIsSet("PERSON_KNOWS")) AddSomebody(*window, qEnvironmentVariable("PERSON_KNOWS"));
    if (qEnvironmentVariableIsSet("PERSON_OPENS")) OpenAttachment(*window);
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
