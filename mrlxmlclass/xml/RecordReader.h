#pragma once

#include "mrlxmlclass/runtime/Flagged.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

/// Reads a record's fields in their order. A field is taken only when the element at hand bears its name, to the
/// letter; otherwise the field keeps its value and the element waits for a later field. So fields may be absent, and an
/// unknown element stops all behind it, without an error.
// Kept: nobody hears of what was not read, and the next save leaves it out.
class RecordReader {
public:
    explicit RecordReader(dom::Node first) : at_(first), name_(first.baseName()) {}

    bool At(std::string_view name) const { return name_ == name; }

    template <class T>
    bool Read(std::string_view name, T& value) {
        if (!At(name)) return false;
        Conversions::FromText(at_.Text(), value);
        Step();
        return true;
    }
    /// An element that stands raises the flag.
    template <class T>
    bool Read(std::string_view name, Flagged<T>& field) {
        if (!Read(name, field.value)) return false;
        field.valid = True;
        return true;
    }
    /// Steps over an element without reading it.
    void Skip(std::string_view name) {
        if (At(name)) Step();
    }
    /// The text at hand; the reader moves on.
    String Take() {
        String text = at_.Text();
        Step();
        return text;
    }
    void Step() {
        at_ = Conversions::MoveNextSiblingElement(at_);
        name_ = at_.baseName();
    }

    /// Where the reader stands: the element that it did not take, or null at the end.
    dom::Node position() const { return at_; }

private:
    dom::Node at_;
    std::string_view name_;  // of at_, which most look-ups only compare
};

}  // namespace mrlxmlclass
