#include "mrlxmlclass/scheduling/CalendarCol_internal.h"

#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/scheduling/CalendarCls_internal.h"
#include "mrlxmlclass/session/StaticCls_internal.h"
#include "mrlxmlclass/xml/Section.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"CalendarCol", FailureTail::Gives::SoFar};
constexpr FailureTail kXmlTail{"CalendarCol"};

}  // namespace

void CalendarCol::File(const KeyText& key, const Ref<CalendarCls>& calendar) {
    if (!calendars_.Append(key, calendar)) Raise(failure::kDuplicateKey);
}

Ref<CalendarCls> CalendarCol::AddItem(const Ref<CalendarCls>& item) {
    return kTail.Run<Ref<CalendarCls>>("AddItem", [&](Ref<CalendarCls>& result) {
        const Ref<CalendarCls> clone = item->Clone();
        clone->elementName(element_name_);
        if (clone->CalendarKey() == 0) clone->CalendarKey(In(oPublicStaticCls).NextKey(StaticCls::Internal::Calendar));
        File(KeyText(clone->CalendarKey()), clone);
        result = clone;
    });
}

Ref<CalendarCls> CalendarCol::Add() {
    return kTail.Run<Ref<CalendarCls>>("Add", [&](Ref<CalendarCls>& result) {
        const auto calendar = Make<CalendarCls>();
        calendar->elementName(element_name_);
        File(KeyText(calendar->CalendarKey()), calendar);
        result = calendar;
    });
}

void CalendarCol::Remove(Long index) {
    if (index < 1 || index > Count()) {
        Raise(failure::kDeliberate,
              "index " + std::to_string(index.value()) + "is out of range, use 1 - " + std::to_string(Count().value()));
    }
    calendars_.RemoveAt(static_cast<std::size_t>(index.value() - 1));
}

Ref<CalendarCls> CalendarCol::Item(const Variant& index) const {
    return kTail.Run<Ref<CalendarCls>>(
        "Item", [&](Ref<CalendarCls>& result) { result = calendars_[PlaceIn(calendars_, index)].item; });
}

Ref<CalendarCol> CalendarCol::Clone() {
    return kTail.Run<Ref<CalendarCol>>("Clone", [&](Ref<CalendarCol>& result) {
        const auto clone = Make<CalendarCol>();
        clone->element_name_ = element_name_;
        for (const auto& entry : NewEnum()) clone->File(entry.key, entry.item->Clone());
        result = clone;
    });
}

void CalendarCol::ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm) {
    kXmlTail.Run("ToXmlInt", [&] {
        if (!xmlElm) return;
        for (const auto& entry : NewEnum()) {
            entry.item->ToXmlInt(xmlDoc, xmlDoc->AppendElement(xmlElm, element_name_));
        }
    });
}

dom::Node CalendarCol::FromXmlInt(dom::Node /*xmlParent*/, dom::Node xmlChild) {
    return kXmlTail.Run<dom::Node>("FromXmlInt", [&](dom::Node& result) {
        result = ReadItems(xmlChild, element_name_, [&](dom::Node element) {
            const auto calendar = Make<CalendarCls>();
            In(calendar).FromXmlInt(element, FirstElementIn(element));
            File(KeyText(), calendar);
        });
    });
}

}  // namespace mrlxmlclass
