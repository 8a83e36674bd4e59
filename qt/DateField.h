#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QList>
#include <QWidget>
#include <functional>
#include <optional>

#include "mrlxmlclass/dialog/EditTask.h"

class QCalendarWidget;
class QLineEdit;

namespace mrlxmlclass::qt {

/// A date with a check box before it: cleared, there is none.
class DateField : public QWidget {
public:
    /// `changed()` is called when the person has put another date into the control, or none.
    DateField(const EditTask& form, DateControl& control, std::function<void()> changed);

    void Show();
    /// Forgets what is half typed.
    void DropEdit();
    /// What the focus rests on.
    QList<QWidget*> parts() const { return {has_date_, date_}; }

protected:
    /// What leads to the field leads to its date, or, where there is none, to its box.
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Whether that is the day of the control.
    bool Shows(QDate day) const;
    void Changed();
    /// The person chose the date that shows now, be it the same as before.
    void Chosen();
    /// The person goes on to another field.
    void Left();
    void WatchCalendar();

    const EditTask& form_;
    DateControl& control_;
    std::function<void()> changed_;
    QCheckBox* has_date_;
    QDateEdit* date_;
    QLineEdit* line_;                      ///< in which the date is typed
    QCalendarWidget* calendar_ = nullptr;  ///< once it was opened
    std::optional<QString> format_;        ///< the host's, in use
    bool typed_ = false;                   ///< a whole date, since the focus came
};

}  // namespace mrlxmlclass::qt
