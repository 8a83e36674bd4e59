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

/// The same for texts whose lines the system breaks by CR LF, and Qt by LF.
inline QString LinesToQt(const String& text) {
    return ToQt(text).replace("\r\n", "\n");
}
inline String LinesFromQt(QString text) {
    return FromQt(text.replace("\r\n", "\n").replace("\n", "\r\n"));
}

/// What a field of one line makes of lines that were pasted: breaks behind the text go, those within are blanks.
inline QString OneLine(QString text) {
    while (text.endsWith('\n') || text.endsWith('\r')) text.chop(1);
    return text.replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ');
}

}  // namespace mrlxmlclass::qt
