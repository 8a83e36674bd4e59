#pragma once

#include <string_view>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Dictionary.h"

/// Text and value conversions under the locale of the platform, and the walkers over sibling elements. A text that
/// cannot be converted fails (13), a number out of range fails (6); nothing here catches it.
namespace mrlxmlclass::Conversions {

/// "true" and "false" in any letter case; anything else fails (1).
Boolean StringToBoolean(std::string_view text);
/// "true" for the full True alone.
String BooleanToString(Boolean value);

/// Numbers in the locale's form: blanks around, a sign, group separators between digits, an exponent. Whole numbers
/// round half to even.
Integer StringToInteger(std::string_view text);
Long StringToLong(std::string_view text);
Double StringToDouble(std::string_view text);
Currency StringToCurrency(std::string_view text);
String IntegerToString(Integer value);
String LongToString(Long value);
/// The shortest text of up to 15 digits, with the locale's decimal separator and no grouping.
String DoubleToString(Double value);
String CurrencyToString(Currency value);

/// The short date, followed by a blank and the time in HH:mm:ss when it is not midnight.
String DateToString(Date value);
/// A date, a date and a time, or a time alone, in the order of the locale's short date; see DateText.h. The separators
/// of the file that is being loaded are replaced by the system's first.
Date StringToDate(std::string_view text);

/// Starting at `node`, the first element; null when there is none.
dom::Node FindFirstSliblingElement(dom::Node node);
/// The next sibling that is an element.
dom::Node MoveNextSiblingElement(dom::Node node);
/// The element that a section is written under: a new child of the root, or for "Project" the root itself; null when
/// the document has no root.
dom::Node CreateParentNode(const Ref<dom::Document>& xmlDoc, std::string_view name);

/// The items joined by ";".
String CreateSucessorString(const Ref<Collection>& col);
String CreatePredecessorString(const Ref<Collection>& col);
/// The same; "" for nothing.
String CreateLeadTimeAsString(const Ref<Collection>& col);
/// Splits at ";" and adds each piece under itself; a piece that is there already fails (457).
void FillPredecessor(std::string_view text, const Ref<Collection>& col);
void FillSuccessor(std::string_view text, const Ref<Collection>& col);
/// Adds each piece under its part before the first "|".
void FillLeadTime(std::string_view text, const Ref<Collection>& col);

/// True when each character is a digit, "." or ",", the last one a digit, and there is one.
Boolean isCurrency(std::string_view text);

// How a record's fields read and write themselves: one name for each direction, so that a record lists its fields only.
inline String ToText(Boolean value) {
    return BooleanToString(value);
}
inline String ToText(Integer value) {
    return IntegerToString(value);
}
inline String ToText(Long value) {
    return LongToString(value);
}
inline String ToText(Double value) {
    return DoubleToString(value);
}
inline String ToText(Currency value) {
    return CurrencyToString(value);
}
inline String ToText(Date value) {
    return DateToString(value);
}
inline const String& ToText(const String& value) {
    return value;
}
inline void FromText(const String& text, Boolean& value) {
    value = StringToBoolean(text);
}
inline void FromText(const String& text, Integer& value) {
    value = StringToInteger(text);
}
inline void FromText(const String& text, Long& value) {
    value = StringToLong(text);
}
inline void FromText(const String& text, Double& value) {
    value = StringToDouble(text);
}
inline void FromText(const String& text, Currency& value) {
    value = StringToCurrency(text);
}
inline void FromText(const String& text, Date& value) {
    value = StringToDate(text);
}
inline void FromText(const String& text, String& value) {
    value = text;
}

}  // namespace mrlxmlclass::Conversions
