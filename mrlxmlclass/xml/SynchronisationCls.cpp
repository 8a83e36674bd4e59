#include "mrlxmlclass/xml/SynchronisationCls.h"

#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/XmlRecord_members_internal.h"

namespace mrlxmlclass {

template <>
struct LabelOf<SynchronisationCls> {
    static constexpr const char* label = "SynchronisationCls";
};

/// The library's own view of a synchronisation.
class SynchronisationCls::Internal {
public:
    explicit Internal(SynchronisationCls& self) : f_(self.f_) {}

    String elementName() const { return f_.elementName; }
    void Write(RecordWriter& out) const {
        out.Write("SynchronisationID", f_.SynchronisationID);
        out.Write("ProjectID", f_.ProjectID);
        out.Write("SynchronisationApp", f_.SynchronisationApp);
        out.Write("SynchronisationLastDate", f_.SynchronisationLastDate);
        out.Write("SynchronisationFile", f_.SynchronisationFile);
    }
    dom::Node FromXmlInt(dom::Node xmlParent, dom::Node xmlChild, const Reading& /*reading*/) {
        f_ = Fields();
        f_.elementName = xmlParent.baseName();
        RecordReader in(xmlChild);
        in.Read("SynchronisationID", f_.SynchronisationID);
        in.Read("ProjectID", f_.ProjectID);
        in.Read("SynchronisationApp", f_.SynchronisationApp);
        in.Read("SynchronisationLastDate", f_.SynchronisationLastDate);
        in.Read("SynchronisationFile", f_.SynchronisationFile);
        return in.position();
    }

private:
    Fields& f_;
};

SynchronisationCls::SynchronisationCls() {
    EnsureErrorsHandler();
}

Ref<SynchronisationCls> SynchronisationCls::Clone() {
    return kRecordTail<SynchronisationCls>.Run<Ref<SynchronisationCls>>("Clone", [&](Ref<SynchronisationCls>& result) {
        auto copy = Make<SynchronisationCls>();
        copy->f_ = f_;
        result = copy;
    });
}

template class XmlRecord<SynchronisationCls>;

}  // namespace mrlxmlclass
