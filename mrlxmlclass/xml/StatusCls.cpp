#include "mrlxmlclass/xml/StatusCls.h"

#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/XmlRecord_members_internal.h"

namespace mrlxmlclass {

template <>
struct LabelOf<StatusCls> {
    static constexpr const char* label = "StatusCls";
};
template <>
constexpr std::string_view kNamespaceOf<StatusCls> = "urn:mrlxmlclass:status";

/// The library's own view of a status.
class StatusCls::Internal {
public:
    explicit Internal(StatusCls& self) : f_(self.f_) {}

    String elementName() const { return f_.elementName; }
    void Write(RecordWriter& out) const {
        out.Write("StatusDone", f_.StatusDone);
        out.Write("StatusInProgress", f_.StatusInProgress);
    }
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& /*reading*/) {
        f_ = Fields();
        f_.elementName = xmlParent.baseName();
        RecordReader in(xmlChild);
        in.Read("StatusDone", f_.StatusDone);
        in.Read("StatusInProgress", f_.StatusInProgress);
        return in.position();
    }

private:
    Fields& f_;
};

StatusCls::StatusCls() {
    EnsureErrorsHandler();
}

Ref<StatusCls> StatusCls::Clone() {
    return kRecordTail<StatusCls>.Run<Ref<StatusCls>>("Clone", [&](Ref<StatusCls>& result) {
        auto copy = Make<StatusCls>();
        copy->f_ = f_;
        result = copy;
    });
}

template class XmlRecord<StatusCls>;

}  // namespace mrlxmlclass
