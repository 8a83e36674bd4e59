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
    return FromQt(text.replace("\n", "\r\n"));
}

/// The text as it is laid out from left to right where texts are not.
inline QString LeftToRight(const QString& text) {
    constexpr QChar kEmbedding(0x202A);
    constexpr QChar kEnd(0x202C);
    return kEmbedding + text + kEnd;
}

/// What a field of one line makes of lines that were pasted: breaks around the text go, those within are blanks.
inline QString OneLine(QString text) {
    text.replace("\r\n", "\n").replace('\r', '\n');
    while (text.startsWith('\n')) text.remove(0, 1);
    while (text.endsWith('\n')) text.chop(1);
    return text.replace('\n', ' ');
}

}  // namespace mrlxmlclass::qt
