#pragma once

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

class StaticCls;

/// What small records share: each writes and reads itself under one element.
template <class Self>
class XmlRecord : public Counted {
public:
    /// Saves a document that holds this record alone. `useNamespace` has no effect; `unicode` names utf-16 in the
    /// declaration.
    void ToXmlFile(const String& FileName, Boolean includeDocHeader = True, Boolean useNamespace = False,
                   Boolean unicode = False);
    /// The same document as text. `useNamespace` puts the root of a status into a default namespace, and has no effect
    /// on any other record.
    String ToXml(Boolean includeDocHeader = True, Boolean useNamespace = False, Boolean unicode = False);
    /// Appends the fields under `xmlElm`; does nothing where that is null.
    void ToXmlInt(const Ref<dom::Document>& xmlDoc, dom::Node xmlElm);

protected:
    /// Read the root element of a file or a text into this record, which starts anew. True unless that fails, which is
    /// recorded; the fields that came before the bad one stay.
    Boolean ReadFile(const String& FileName, const Ref<StaticCls>& oPublicStaticCls = {}, Boolean p_for_lib = False);
    Boolean ReadText(const String& xmlIn, const Ref<StaticCls>& oPublicStaticCls = {}, Boolean p_for_lib = False);
};

}  // namespace mrlxmlclass
