#pragma once

#include "mrlxmlclass/runtime/OrderedStore.h"
#include "mrlxmlclass/scheduling/CalendarCls.h"

namespace mrlxmlclass {

class StaticCls;

/// Calendars under their keys, for the library's own use: a project works with one calendar, and no host is handed a
/// list of them.
class CalendarCol : public Counted {
public:
    using Store = OrderedStore<KeyText, Ref<CalendarCls>>;

    /// Key counters of the session, for calendars that come without a key.
    Ref<StaticCls> oPublicStaticCls;

    /// Stores and gives a clone, which has none of the calendar's days; a calendar without a key gets one. A key that
    /// is taken is recorded and gives nothing.
    Ref<CalendarCls> AddItem(const Ref<CalendarCls>& item);
    /// A new calendar. Kept: no key is issued, it stands under "0", so that a second one fails.
    Ref<CalendarCls> Add();
    /// By 1-based place. Outside the list it fails (1), and that reaches the caller.
    void Remove(Long index);
    /// The calendar at a 1-based place (a number) or under a key (a text); an unknown one is recorded and gives
    /// nothing.
    Ref<CalendarCls> Item(const Variant& index) const;
    Long Count() const { return calendars_.size(); }
    /// The calendars as they stand now, in their order.
    Store NewEnum() const { return calendars_; }
    /// A collection of clones, each under the key under which it stands here.
    Ref<CalendarCol> Clone();

    /// One element for each calendar under `xmlElm`.
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);
    /// Reads the elements from `xmlChild` on while they bear the collection's element name, without keys to find them
    /// by; gives the node at which it stopped.
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild);

    /// The element of one calendar.
    String elementName() const { return element_name_; }
    void elementName(const String& name) { element_name_ = name; }

private:
    void File(const KeyText& key, const Ref<CalendarCls>& calendar);

    Store calendars_;
    String element_name_ = "Calendar";
};

}  // namespace mrlxmlclass
