#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass::dom {

/// One node of a document, to read: a pointer that may be null and that lives until its document goes or loads anew.
/// A null node answers every question with null, "" or 0.
class Node {
public:
    static constexpr int kElement = 1;

    constexpr Node() = default;
    explicit operator bool() const { return impl_ != nullptr; }
    friend bool operator==(Node, Node) = default;

    /// 1 element, 3 text, 4 CDATA, 7 processing instruction, 8 comment, 9 document, 10 document type; 0 for null.
    int nodeType() const;
    /// The name without its prefix.
    std::string_view baseName() const;
    /// The texts of all descendants, CDATA among them, one behind the other.
    String Text() const;
    Node firstChild() const;
    Node nextSibling() const;
    Node parentNode() const;
    /// The child at a 0-based place; null behind the last.
    Node childNodes(int place) const;
    int childCount() const;
    /// The first child element of that base name.
    Node selectSingleNode(std::string_view name) const;
    bool HasAttribute(std::string_view name) const;
    String Attribute(std::string_view name) const;
    int attributeCount() const;

private:
    friend class Document;
    explicit constexpr Node(void* impl) : impl_(impl) {}

    void* impl_ = nullptr;
};

}  // namespace mrlxmlclass::dom
