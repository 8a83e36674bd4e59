#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QPalette>
#include <QTableView>
#include <QTest>
#include <QWidget>
#include <functional>
#include <memory>
#include <stdexcept>

#include "qt/QtTaskScreens.h"
#include "tests/support/TaskDialog.h"

class QLineEdit;

namespace mrlxmlclass::testing {

/// A QApplication without a screen, for as long as a test needs one; the looks are the same on every machine. Where
/// everything is twice as large, so is the screen.
class OffscreenApplication {
public:
    OffscreenApplication();

private:
    int count_ = 1;
    char name_[9] = "qt_tests";
    char* arguments_[2] = {name_, nullptr};
    ScopedEnvironment platform_;
    std::unique_ptr<QApplication> application_;
};

/// A plan whose task dialog shows in Qt.
class QtPlan : public Plan {
public:
    /// Opens the dialog on a task; once it stands there, `person(window)` is what the person does, with the mouse and
    /// the keys. Whoever leaves it open closes the window, and that fails the test. Events of building the plan are
    /// forgotten first.
    Boolean Edit(const String& task, const std::function<void(QWidget& window)>& person, int from_where = 2,
                 const String& date_format = {});

    /// Of the dialog that stands.
    EditTask& form() const { return *screens_.form; }

private:
    struct Screens : QtTaskScreens {
        std::unique_ptr<EditTaskView> NewView(EditTask& form_to_show) override;
        std::function<void()> on_view;
        EditTask* form = nullptr;
    };

    Screens screens_;
    Services services_{platform.clock, platform.locale, platform.files, platform.shell,
                       platform.ui,    NoOldPlans(),    screens_,       platform.help};
    InstalledServices installed_{services_};
};

/// The widget of a control.
template <class Widget = QWidget>
Widget& Find(const QWidget& window, const char* name) {
    auto* widget = window.findChild<Widget*>(QString::fromLatin1(name));
    if (widget == nullptr) throw std::runtime_error(std::string("there is no such widget: ") + name);
    return *widget;
}

/// The parts of a field for a date.
inline QDateEdit& DateIn(QWidget& window, const char* name) {
    return *Find(window, name).findChild<QDateEdit*>();
}
inline QCheckBox& BoxIn(QWidget& window, const char* name) {
    return *Find(window, name).findChild<QCheckBox*>();
}

/// Turns the mouse wheel over a widget, away from the person; whether the widget has a use for it.
bool Wheel(QWidget& widget, int notches);
/// Gives the keys to the field, in place of what stands in it.
void Type(QWidget& field, const char* keys);
void Click(QWidget& button);
/// The rows of a table as they show, a line a row; a ticked cell ends with "*".
QString Shown(const QTableView& table);
void ClickCell(QTableView& table, int row, int col);
/// Makes the cell the current one and begins an edit by the keyboard.
void EditCell(QTableView& table, int row, int col);
/// The field or the list of the cell that is being edited.
QLineEdit& OpenLine(const QTableView& table);
void Choose(const QTableView& table, const char* text);

/// The person is in another window, does that, and comes back.
void InAnotherWindow(QWidget& window, const std::function<void()>& there = {});

/// A plan with a task "Foundation" that has something on every tab.
void Furnish(QtPlan& plan);

/// Made of a few colours, as hosts do.
QPalette DarkPalette();
/// The desktop's font, 1.8 times as large.
QFont LargeFont();

/// What a person sees next: all that waits to be done is done.
void Settle();

}  // namespace mrlxmlclass::testing
