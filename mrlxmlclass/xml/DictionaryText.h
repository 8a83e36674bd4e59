#pragma once

#include "mrlxmlclass/xml/DateText.h"

namespace mrlxmlclass::Conversions {

/// Key, ":" and item for each entry, joined by ";"; "" for an empty dictionary. A moment is written as its day.
String CreateSucessorString(const Ref<Dictionary>& dictionary);

/// The dictionary that such a text describes. An entry without ":" fails (9), a key that comes twice fails (457).
Ref<Dictionary> DictionaryToString(const String& text);
/// The same for days: both sides are brought from the file's format to the system's, and to the form in which a day is
/// looked up.
Ref<Dictionary> DictionaryToString(const String& text, const DateAdjustment& dates);

}  // namespace mrlxmlclass::Conversions
