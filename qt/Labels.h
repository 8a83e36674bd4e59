#pragma once

#include <QLabel>

#include "qt/Bindings.h"

namespace mrlxmlclass::qt {

/// The label of a field: its caption is plain text, in which "&" marks the key that leads to the field.
inline QLabel* NewLabel(const Control& control, Bindings& bindings, QWidget* field) {
    auto* label = new QLabel(field->parentWidget());
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(field);
    bindings.AddCaption(control, *label);
    return label;
}

}  // namespace mrlxmlclass::qt
