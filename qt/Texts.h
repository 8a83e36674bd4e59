#pragma once

#include <QString>

#include "mrlxmlclass/runtime/Text.h"

/// Texts across the border: UTF-8 in the library, QString on the screen.
namespace mrlxmlclass::qt {

inline QString ToQt(const String& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline String FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace mrlxmlclass::qt
