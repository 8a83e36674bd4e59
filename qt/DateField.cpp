#include "qt/DateField.h"

#include <QHBoxLayout>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <utility>

#include "mrlxmlclass/runtime/Date.h"
#include "qt/Texts.h"

namespace mrlxmlclass::qt {
namespace {

QDate ToQt(Date date) {
    return {date.year(), date.month(), date.day_of_month()};
}

/// A format that shows no date, or is none, leaves it to the desktop.
void UseFormat(QDateEdit& date, const QString& format) {
    if (!format.isEmpty()) date.setDisplayFormat(format);
    if (format.isEmpty() || !(date.displayedSections() & QDateTimeEdit::DateSections_Mask)) {
        date.setDisplayFormat(date.locale().dateFormat(QLocale::ShortFormat).replace(QRegularExpression("y+"), "yyyy"));
    }
}

}  // namespace

DateField::DateField(DateControl& control, std::function<void()> changed)
    : control_(control), changed_(std::move(changed)), has_date_(new QCheckBox(this)), date_(new QDateEdit(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(has_date_);
    row->addWidget(date_, 1);
    date_->setCalendarPopup(true);
    date_->setKeyboardTracking(false);  // a date that is half typed is none
    setFocusProxy(date_);

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
    UseFormat(*date_, qt::ToQt(control_.CustomFormat()));
    if (date != nullptr) date_->setDate(ToQt(*date));
}

}  // namespace mrlxmlclass::qt
