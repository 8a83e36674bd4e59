#pragma once

#include <QLabel>
#include <QList>
#include <QRegularExpression>

#include "qt/Bindings.h"

namespace mrlxmlclass::qt {

/// A caption without the "&" that marks its key: what a screen reader says.
inline QString Spoken(const Control& control) {
    static const QRegularExpression mark("&(.)");
    return ToQt(control.Caption()).replace(mark, "\\1");
}

/// The label of a field: its caption is plain text, in which "&" marks the key that leads to the field. The field and
/// its parts are called by it.
inline QLabel* NewLabel(const Control& control, Bindings& bindings, QWidget* field, const QList<QWidget*>& parts = {}) {
    auto* label = new QLabel(field->parentWidget());
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(field);
    bindings.AddCaption(control, *label, [&control, named = QList<QWidget*>(parts) << field] {
        for (QWidget* widget : named) widget->setAccessibleName(Spoken(control));
    });
    return label;
}

}  // namespace mrlxmlclass::qt
