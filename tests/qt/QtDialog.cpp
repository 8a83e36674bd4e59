#include "tests/qt/QtDialog.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QTimer>
#include <QWheelEvent>

#include "examples/task_dialog_texts.h"

namespace mrlxmlclass::testing {

OffscreenApplication::OffscreenApplication()
    : platform_("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("QT_SCALE_FACTOR")
                                       ? "offscreen:configfile=" MRLXMLCLASS_SOURCE_DIR "/tests/qt/large_screen.json"
                                       : "offscreen"),
      application_((qunsetenv("QT_STYLE_OVERRIDE"), std::make_unique<QApplication>(count_, arguments_))) {
    QApplication::setStyle("fusion");
}

std::unique_ptr<EditTaskView> QtPlan::Screens::NewView(EditTask& form_to_show) {
    form = &form_to_show;
    std::unique_ptr<EditTaskView> view = QtTaskScreens::NewView(form_to_show);
    if (on_view) on_view();
    return view;
}

Boolean QtPlan::Edit(const String& task, const std::function<void(QWidget&)>& person, int from_where,
                     const String& date_format) {
    Heard();
    QPointer<QTimer> deadline;
    screens_.on_view = [&] {  // there may be no QApplication before
        // A dialog that nothing closes would stand there for ever.
        deadline = new QTimer(qApp);
        constexpr int kLongest = 20'000;
        QObject::connect(deadline, &QTimer::timeout, [] {
            ADD_FAILURE() << "the dialog stood open for too long";
            QApplication::closeAllWindows();
        });
        deadline->start(kLongest);
        QTimer::singleShot(0, deadline, [&person] {
            const QPointer<QWidget> window = QApplication::activeModalWidget();
            if (window == nullptr) return ADD_FAILURE() << "no dialog shows", void();
            EXPECT_TRUE(QTest::qWaitForWindowActive(window));
            person(*window);
            Settle();
            if (window.isNull() || QApplication::activeModalWidget() != window) return;
            ADD_FAILURE() << "the dialog was left open";
            window->close();
        });
    };
    const Boolean changed =
        app->showtaskinfo(Key(task), app->xTaskCol(), from_where, EnglishTaskDialogTexts(), date_format);
    screens_.on_view = nullptr;
    delete deadline.data();
    return changed;
}

bool Wheel(QWidget& widget, int notches) {
    constexpr int kNotch = 120;
    const QPoint middle = widget.rect().center();
    QWheelEvent turn(middle, widget.mapToGlobal(middle), {}, {0, kNotch * notches}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, /*inverted=*/false);
    QSpontaneKeyEvent::setSpontaneous(&turn);  // as one that comes from the screen: some fields take the focus by it
    qApp->notify(&widget, &turn);
    return turn.isAccepted();
}

void Type(QWidget& field, const char* keys) {
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, keys);
}

void Click(QWidget& button) {
    QTest::mouseClick(&button, Qt::LeftButton);
}

void ClickCell(QTableView& table, int row, int col) {
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(row, col)).center());
    Settle();
}

void EditCell(QTableView& table, int row, int col) {
    table.setFocus();
    table.setCurrentIndex(table.model()->index(row, col));
    QTest::keyClick(&table, Qt::Key_F2);
    Settle();
}

QString Shown(const QTableView& table) {
    QString shown;
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        QStringList texts;
        for (int col = 0; col < table.model()->columnCount(); ++col) {
            const QModelIndex cell = table.model()->index(row, col);
            if (!table.isColumnHidden(col)) texts << cell.data().toString();
            if (cell.data(Qt::CheckStateRole) == Qt::Checked) texts.back() += "*";
        }
        shown += texts.join(" | ") + "\n";
    }
    return shown;
}

QLineEdit& OpenLine(const QTableView& table) {
    return Find<QLineEdit>(*table.viewport(), "");
}

void Choose(const QTableView& table, const char* text) {
    auto& list = Find<QComboBox>(*table.viewport(), "");
    const int entry = list.findText(text);
    if (entry < 0) throw std::runtime_error(std::string("the list does not offer: ") + text);
    list.view()->setCurrentIndex(list.model()->index(entry, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
    Settle();
}

void InAnotherWindow(QWidget& window, const std::function<void()>& there) {
    QLineEdit other;
    other.setWindowModality(Qt::ApplicationModal);
    other.setFocus();
    other.show();
    QApplication::setActiveWindow(&other);
    Settle();
    EXPECT_TRUE(other.hasFocus());
    if (there) there();
    QApplication::setActiveWindow(&window);
    Settle();
}

QPalette DarkPalette() {
    const QColor paper(35, 38, 41);
    const QColor window(49, 54, 59);
    const QColor text(239, 240, 241);
    QPalette dark(text, window, window.lighter(140), window.darker(160), window.darker(), text, Qt::white, paper,
                  window);
    dark.setColor(QPalette::Button, window.lighter(110));
    dark.setColor(QPalette::AlternateBase, paper.lighter(120));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::ToolTipBase, paper);
    dark.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(140, 144, 148));
    }
    return dark;
}

void Furnish(QtPlan& plan) {
    plan.WithLinks();
    plan.Task("House").Task("Drawings").Under("House").From(Monday).Lasting(3);
    plan.Task("Permit").Under("House").From(Monday).Lasting(5);
    plan.Task("Foundation").Under("House").From(Monday + 7).Lasting(8).Costing(Currency(12400));
    plan.After("Drawings").After("Permit", 2);
    plan.Task("Walls").Under("House").From(Monday + 21).Lasting(10);
    plan.Task("Roof").Under("House").From(Monday + 35).Lasting(5);
    for (const char* name : {"Ann Becker", "Carlos Duarte", "Eve Falk", "Gino Hart", "Sun & Sons"})
        AddPerson(plan, name);
    Assign(plan, "2", "Foundation");
    Assign(plan, "5", "Foundation");
    AddNote(plan, "Foundation",
            "The ground is soft towards the road: ask for a second opinion before the pour.\n"
            "Concrete C25/30, delivery by 7 in the morning.");
    plan.platform.Write("soil report.pdf", "");
    AddNote(plan, "Foundation", "", plan.platform.Path("soil report.pdf"));
    AddNote(plan, "Foundation", "", "http://www.concrete.example/delivery?site=12");
    plan["Foundation"].TaskPercentDone(25);
    plan.Heard();
}

QFont LargeFont() {
    QFont large = QApplication::font();
    large.setPointSizeF(1.8 * large.pointSizeF());
    return large;
}

void Settle() {
    // Twice: what is done first may leave something to do.
    for (int round = 0; round < 2; ++round) QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace mrlxmlclass::testing
