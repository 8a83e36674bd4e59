#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QWidget>
#include <functional>

#include "mrlxmlclass/dialog/Controls.h"

namespace mrlxmlclass::qt {

/// A date with a check box before it: cleared, there is none.
class DateField : public QWidget {
public:
    /// `changed()` is called when the person has put another date into the control, or none.
    DateField(DateControl& control, std::function<void()> changed);

    void Show();

private:
    void Changed();

    DateControl& control_;
    std::function<void()> changed_;
    QCheckBox* has_date_;
    QDateEdit* date_;
};

}  // namespace mrlxmlclass::qt
