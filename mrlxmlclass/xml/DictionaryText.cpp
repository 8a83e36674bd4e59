#include "mrlxmlclass/xml/DictionaryText.h"

#include <functional>

#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass::Conversions {
namespace {

/// A host may have filed numbers, or days; the colons of a time of day would not be read back.
String SideText(const Variant& side) {
    const Date* date = side.If<Date>();
    return date != nullptr ? DateToString(date->day()) : side.Text();
}

Ref<Dictionary> Filled(const String& text, const std::function<String(const String&)>& convert) {
    auto dictionary = Make<Dictionary>();
    for (const String& entry : Split(text, ";")) {
        const std::vector<String> sides = Split(entry, ":");
        if (sides.size() < 2) Raise(failure::kIndexOutOfRange);
        dictionary->Add(convert(sides[0]), convert(sides[1]));
    }
    return dictionary;
}

}  // namespace

String CreateSucessorString(const Ref<Dictionary>& dictionary) {
    String text;
    for (const auto& entry : dictionary->Snapshot()) {
        if (!text.empty()) text += ';';
        text += SideText(entry.key.value()) + ":" + SideText(entry.item);
    }
    return text;
}

Ref<Dictionary> DictionaryToString(const String& text) {
    return Filled(text, [](const String& side) { return side; });
}

Ref<Dictionary> DictionaryToString(const String& text, const DateAdjustment& dates) {
    return Filled(text, [&](const String& side) { return DateToString(StringToDate(dates.Adjusted(side))); });
}

}  // namespace mrlxmlclass::Conversions
