#include "qt/DateField.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <utility>

#include "mrlxmlclass/runtime/Date.h"
#include "qt/CheckBox.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

QDate ToQt(Date date) {
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

}  // namespace

DateField::DateField(DateControl& control, std::function<void()> changed)
    : control_(control), changed_(std::move(changed)), has_date_(new CheckBox(this)), date_(new QDateEdit(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(has_date_);
    row->addWidget(date_, 1);
    date_->setCalendarPopup(true);
    date_->setKeyboardTracking(false);  // a date that is half typed is none
    date_->setFocusPolicy(Qt::StrongFocus);
    date_->installEventFilter(this);
    setFocusPolicy(Qt::ClickFocus);  // Tab stops at the box and at the date

    QObject::connect(has_date_, &QCheckBox::clicked, this, [this] { Changed(); });
    QObject::connect(date_, &QDateEdit::dateChanged, this, [this] { Changed(); });
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
    if (const QString format = qt::ToQt(control_.CustomFormat()); format_ != format)
        UseFormat(*date_, *(format_ = format));
    if (date != nullptr) date_->setDate(ToQt(*date));
}

void DateField::focusInEvent(QFocusEvent* event) {
    (date_->isEnabled() ? static_cast<QWidget*>(date_) : has_date_)->setFocus(event->reason());
}

bool DateField::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && !date_->hasFocus()) {
        event->ignore();  // whoever scrolls past changes nothing
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace mrlxmlclass::qt
