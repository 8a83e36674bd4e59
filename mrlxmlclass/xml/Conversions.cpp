#include "mrlxmlclass/xml/Conversions.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Text.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/DateText.h"
#include "mrlxmlclass/xml/NumberText.h"

namespace mrlxmlclass::Conversions {
namespace {

String NumberIn(std::string_view text) {
    std::optional<String> plain = PlainNumber(text, Platform().locale.Settings());
    if (!plain) Raise(failure::kTypeMismatch);
    return *std::move(plain);
}

String Joined(const Ref<Collection>& col) {
    String text;
    bool first = true;
    for (const auto& entry : col->Snapshot()) {
        if (!first) text += ';';
        first = false;
        text += entry.item.Text();  // taken as a key it would be interned for good
    }
    return text;
}

void FillKeys(std::string_view text, const Ref<Collection>& col) {
    for (const String& key : Split(text, ";")) col->Add(key, KeyText(key));
}

}  // namespace

Boolean StringToBoolean(std::string_view text) {
    if (EqualsIgnoringCase(text, "true")) return True;
    if (EqualsIgnoringCase(text, "false")) return False;
    Raise(failure::kDeliberate,
          "A Boolean Value read from an XML document was invalid [" + String(text) + "] valid values are true & false");
}

String BooleanToString(Boolean value) {
    // Kept: any other True than the full one is written as "false".
    return value.full() ? "true" : "false";
}

Integer StringToInteger(std::string_view text) {
    return Integer(PlainToDouble(NumberIn(text)));
}
Long StringToLong(std::string_view text) {
    return Long(PlainToDouble(NumberIn(text)));
}
Double StringToDouble(std::string_view text) {
    return PlainToDouble(NumberIn(text));
}
Currency StringToCurrency(std::string_view text) {
    return PlainToCurrency(NumberIn(text));
}

String IntegerToString(Integer value) {
    return std::to_string(value.value());
}
String LongToString(Long value) {
    return std::to_string(value.value());
}
String DoubleToString(Double value) {
    return DoubleText(value, Platform().locale.Settings().decimal);
}
String CurrencyToString(Currency value) {
    return CurrencyText(value, Platform().locale.Settings().decimal);
}

String DateToString(Date value) {
    return FormatDate(value, SystemDatePattern());
}

Date StringToDate(std::string_view text) {
    const ModuleState& module = Module();
    const String& pattern = Platform().locale.Settings().short_date;
    if (module.g_FileDateSeparator.empty()) return ParseDate(text, pattern);
    return ParseDate(Replace(text, module.g_FileDateSeparator, module.g_SystemDateSeparator), pattern);
}

dom::Node FindFirstSliblingElement(dom::Node node) {
    while (node && node.nodeType() != dom::Node::kElement) node = node.nextSibling();
    return node;
}

dom::Node MoveNextSiblingElement(dom::Node node) {
    return FindFirstSliblingElement(node.nextSibling());
}

dom::Node CreateParentNode(const Ref<dom::Document>& xmlDoc, std::string_view name) {
    const dom::Node root = xmlDoc->documentElement();
    if (!root || name == "Project") return root;
    return xmlDoc->AppendElement(root, name);  // Kept: a second one when there is one already
}

String CreateSucessorString(const Ref<Collection>& col) {
    return Joined(col);
}
String CreatePredecessorString(const Ref<Collection>& col) {
    return Joined(col);
}
String CreateLeadTimeAsString(const Ref<Collection>& col) {
    return col ? Joined(col) : String();
}

void FillPredecessor(std::string_view text, const Ref<Collection>& col) {
    FillKeys(text, col);
}
void FillSuccessor(std::string_view text, const Ref<Collection>& col) {
    FillKeys(text, col);
}

void FillLeadTime(std::string_view text, const Ref<Collection>& col) {
    for (const String& entry : Split(text, ";")) col->Add(entry, KeyText(entry.substr(0, entry.find('|'))));
}

Boolean isCurrency(std::string_view text) {
    if (text.empty() || text.back() == '.' || text.back() == ',') return False;
    return text.find_first_not_of("0123456789.,") == std::string_view::npos;
}

}  // namespace mrlxmlclass::Conversions

namespace mrlxmlclass {

String TextInLocale(Double value) {
    return Conversions::DoubleToString(value);
}
String TextInLocale(Currency value) {
    return Conversions::CurrencyToString(value);
}
String TextInLocale(Date value) {
    return Conversions::DateToString(value);
}

}  // namespace mrlxmlclass
