#include "qt/DateField.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <QValidator>
#include <utility>

#include "mrlxmlclass/runtime/Date.h"
#include "qt/CheckBox.h"
#include "qt/Colours.h"
#include "qt/DropList.h"
#include "qt/FieldFocus.h"
#include "qt/LineField.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

QDate DateToQt(Date date) {
    return {date.year(), date.month(), date.day_of_month()};
}

/// A format that does not show all of a date, or is none, leaves it to the desktop.
void UseFormat(QDateEdit& date, const QString& format) {
    constexpr auto kAll = QDateTimeEdit::DaySection | QDateTimeEdit::MonthSection | QDateTimeEdit::YearSection;
    if (!format.isEmpty()) date.setDisplayFormat(format);
    if (format.isEmpty() || (date.displayedSections() & kAll) != kAll) {
        date.setDisplayFormat(date.locale().dateFormat(QLocale::ShortFormat).replace(QRegularExpression("y+"), "yyyy"));
    }
}

/// Which days those are, and that they are red, is the calendar's own affair.
void MakeWeekendsReadable(QCalendarWidget& calendar) {
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
        QTextCharFormat format = calendar.weekdayTextFormat(static_cast<Qt::DayOfWeek>(day));
        if (format.foreground().style() == Qt::NoBrush) continue;
        format.setForeground(ReadableOnPaper(format.foreground().color()));
        calendar.setWeekdayTextFormat(static_cast<Qt::DayOfWeek>(day), format);
    }
}

/// Nothing but the mouse opens its calendar.
void OpenCalendar(QDateEdit& date) {
    QStyleOptionComboBox box;
    box.initFrom(&date);
    const QRect arrow = date.style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, &date);
    const QPointF place = arrow.center();
    QMouseEvent press(QEvent::MouseButtonPress, place, date.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&date, &press);
}

/// The line as one that the focus is not in. Its validator would mend what is half typed.
void HideCaret(QLineEdit& line, QEvent& focus_out) {
    const QValidator* validator = line.validator();
    line.setValidator(nullptr);
    QCoreApplication::sendEvent(&line, &focus_out);
    line.setValidator(validator);
}

/// From a press that repeats a held key the date would step on by itself until it hears of the release, which may
/// come elsewhere.
void PressAgain(QDateEdit& date, const QKeyEvent& repeated) {
    QKeyEvent press(QEvent::KeyPress, repeated.key(), repeated.modifiers(), repeated.text());
    QCoreApplication::sendEvent(&date, &press);
}

/// Whether the key goes no further.
bool TakeKey(QDateEdit& date, const QKeyEvent& key) {
    if (key.isAutoRepeat()) {
        PressAgain(date, key);
    } else if (DropsDown(key)) {
        OpenCalendar(date);
    } else {
        return false;
    }
    return true;
}

}  // namespace

DateField::DateField(const EditTask& form, DateControl& control, std::function<void()> changed)
    : form_(form),
      control_(control),
      changed_(std::move(changed)),
      has_date_(new CheckBox(this)),
      date_(new QDateEdit(this)),
      line_(date_->findChild<QLineEdit*>()) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(has_date_);
    row->addWidget(date_, 1);
    date_->setLayoutDirection(Qt::LeftToRight);  // as the host's format has the parts
    date_->setCalendarPopup(true);
    date_->setMinimumDate({100, 1, 1});  // the first date that there is
    date_->setKeyboardTracking(false);   // a date that is half typed is none
    date_->setFocusPolicy(Qt::StrongFocus);
    date_->installEventFilter(this);
    setFocusPolicy(Qt::ClickFocus);  // Tab stops at the box and at the date

    QObject::connect(has_date_, &QCheckBox::clicked, this, [this] { Changed(); });
    QObject::connect(date_, &QDateEdit::dateChanged, this, [this] {
        const bool walks = calendar_ != nullptr && calendar_->isVisible();  // and has chosen nothing yet
        if (!walks && !Shows(date_->date())) Changed();                     // Enter alone tells the same date again
    });
    QObject::connect(line_, &QLineEdit::textEdited, this, [this] { typed_ = date_->hasAcceptableInput(); });
}

void DateField::Left() {
    date_->interpretText();
    if (std::exchange(typed_, false)) Chosen();
}

bool DateField::Shows(QDate day) const {
    const Date* shown = control_.Value().If<Date>();
    return shown != nullptr && DateToQt(*shown) == day;
}

void DateField::Chosen() {
    if (form_.StandsIn(control_)) Changed();
}

// Made at the first need, as it takes long.
void DateField::WatchCalendar() {
    if (calendar_ != nullptr) return;
    calendar_ = date_->calendarWidget();
    MakeWeekendsReadable(*calendar_);
    calendar_->setDateEditEnabled(false);  // digits typed into it would count by themselves after a while
    calendar_->installEventFilter(this);
    for (const auto chosen : {&QCalendarWidget::clicked, &QCalendarWidget::activated}) {
        QObject::connect(calendar_, chosen, this, [this](QDate day) {
            if (Shows(day)) return Chosen();
            const QSignalBlocker quiet(date_);
            date_->setDate(day);
            Changed();
        });
    }
}

void DateField::DropEdit() {
    typed_ = false;
    Show();
}

void DateField::Changed() {
    if (has_date_->isChecked()) {
        const QDate date = date_->date();
        control_.Value(Date::Of(date.year(), date.month(), date.day()));
    } else {
        control_.Value(Variant::Null{});
    }
    changed_();
}

void DateField::Show() {
    const QSignalBlocker quiet(date_);
    const Date* date = control_.Value().If<Date>();
    has_date_->setChecked(date != nullptr);
    date_->setEnabled(date != nullptr);
    // Another format leads the caret to the first part of the date, so the same one is not set again.
    if (const QString format = ToQt(control_.CustomFormat()); format_ != format) UseFormat(*date_, *(format_ = format));
    if (date != nullptr) date_->setDate(DateToQt(*date));
}

void DateField::focusInEvent(QFocusEvent* event) {
    (date_->isEnabled() ? static_cast<QWidget*>(date_) : has_date_)->setFocus(event->reason());
}

bool DateField::eventFilter(QObject* watched, QEvent* event) {
    if (watched == calendar_) {
        if (event->type() == QEvent::Hide) Show();  // where it was left without a choice
        return false;
    }
    switch (event->type()) {
        case QEvent::Wheel:
            if (date_->hasFocus()) return false;
            event->ignore();  // whoever scrolls past changes nothing
            return true;
        case QEvent::FocusOut:
            if (LeavesField(*event)) {
                Left();
                return false;
            }
            HideCaret(*line_, *event);
            date_->update();
            return true;  // the date itself would take what is half typed
        case QEvent::MouseButtonPress:
            WatchCalendar();
            date_->interpretText();  // what is typed counts before a calendar opens on it
            return false;
        case QEvent::KeyPress:
            if (LeadsToAnotherPage(static_cast<const QKeyEvent&>(*event))) {
                event->ignore();
                return true;
            }
            return TakeKey(*date_, static_cast<const QKeyEvent&>(*event));
        default:
            return QWidget::eventFilter(watched, event);
    }
}

}  // namespace mrlxmlclass::qt
