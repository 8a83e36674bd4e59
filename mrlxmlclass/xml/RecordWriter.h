#pragma once

#include "mrlxmlclass/runtime/Flagged.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

/// Writes a record's fields, one element a field, under the record's element.
class RecordWriter {
public:
    RecordWriter(const Ref<dom::Document>& document, dom::Node element) : document_(document), element_(element) {}

    template <class T>
    void Write(std::string_view name, const T& value) {
        // Kept: of a value that has no text an empty element stays behind.
        const dom::Node field = document_->AppendElement(element_, name);
        document_->SetText(field, Conversions::ToText(value));
    }
    /// Only when the flag is up.
    template <class T>
    void Write(std::string_view name, const Flagged<T>& field) {
        if (field.valid) Write(name, field.value);
    }
    /// An empty element, for what is nested.
    dom::Node Wrapper(std::string_view name) { return document_->AppendElement(element_, name); }

    const Ref<dom::Document>& document() const { return document_; }

private:
    Ref<dom::Document> document_;
    dom::Node element_;
};

}  // namespace mrlxmlclass
