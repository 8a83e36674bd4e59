// Loaded into a program before it starts, this uses the task dialog that the program opens: types $PERSON_TYPES over
// the duration, $PERSON_KNOWS as a new person's name and $PERSON_LAGS as the lag of the first predecessor while there
// is no start, opens the first attachment for $PERSON_OPENS, where they are set, and presses the buttons of the names
// $PERSON_PRESSES one after the other. What a message box says goes to the output.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
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

void TypeLagWithoutStart(const QWidget& window, const QString& lag) {
    auto* has_start = window.findChild<QWidget*>("DTPickerStart")->findChild<QCheckBox*>();
    auto* predecessors = window.findChild<QTableView*>("VSFlexGridPredecessor");
    const QModelIndex cell = predecessors->model()->index(0, 3);
    has_start->click();
    predecessors->setCurrentIndex(cell);
    predecessors->edit(cell);
    auto* editor = predecessors->findChild<QLineEdit*>();
    Type(*editor, lag);
    Press(*editor, Qt::Key_Return, "\r");
    has_start->click();
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
    if (qEnvironmentVariableIsSet("PERSON_LAGS")) TypeLagWithoutStart(*window, qEnvironmentVariable("PERSON_LAGS"));
    if (qEnvironmentVariableIsSet("PERSON_OPENS")) OpenAttachment(*window);
    for (const QString& button : qEnvironmentVariable("PERSON_PRESSES").split(' ')) {
        QTimer::singleShot(0, qApp, AnswerBox);
        window->findChild<QAbstractButton*>(button)->click();
    }
}

void Begin() {
    constexpr int kLater = 200;  // milliseconds, again and again until there is a dialog
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, UseDialog);
    timer->start(kLater);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Begin)
