#include "mrlxmlclass/dom/Node.h"

#include <iterator>

#include "mrlxmlclass/dom/Document_internal.h"

namespace mrlxmlclass::dom {
namespace {

pugi::xml_node Of(void* impl) {
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(impl));
}

void* Shown(pugi::xml_node node) {
    return IsGraveyard(node) ? nullptr : node.internal_object();
}

bool HoldsText(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

bool HasChildren(pugi::xml_node node) {
    return node.type() == pugi::node_element || node.type() == pugi::node_document;
}

/// The next node in document order below `top`.
pugi::xml_node NextInside(pugi::xml_node node, pugi::xml_node top) {
    if (node.first_child()) return node.first_child();
    while (node != top && !node.next_sibling()) node = node.parent();
    return node == top ? pugi::xml_node() : node.next_sibling();
}

pugi::xml_attribute AttributeOf(void* impl, std::string_view name) {
    return Of(impl).find_attribute([name](pugi::xml_attribute attribute) { return attribute.name() == name; });
}

}  // namespace

int Node::nodeType() const {
    switch (Of(impl_).type()) {
        case pugi::node_element:
            return kElement;
        case pugi::node_pcdata:
            return 3;
        case pugi::node_cdata:
            return 4;
        case pugi::node_pi:
        case pugi::node_declaration:
            return 7;
        case pugi::node_comment:
            return 8;
        case pugi::node_document:
            return 9;
        case pugi::node_doctype:
            return 10;
        case pugi::node_null:
            break;
    }
    return 0;
}

std::string_view Node::baseName() const {
    const std::string_view name = Of(impl_).name();
    return name.substr(name.find(':') + 1);  // npos + 1 is 0
}

String Node::Text() const {
    const pugi::xml_node top = Of(impl_);
    if (!HasChildren(top)) return top.value();
    const pugi::xml_node first = top.first_child();
    if (HoldsText(first) && !first.next_sibling()) return first.value();
    String text;
    for (pugi::xml_node node = first; node && !IsGraveyard(node); node = NextInside(node, top)) {
        if (HoldsText(node)) text += node.value();
    }
    return text;
}

Node Node::firstChild() const {
    return Node(Shown(Of(impl_).first_child()));
}

Node Node::nextSibling() const {
    return Node(Shown(Of(impl_).next_sibling()));
}

Node Node::parentNode() const {
    return Node(Shown(Of(impl_).parent()));
}

Node Node::childNodes(int place) const {
    if (place < 0) return {};
    Node child = firstChild();
    for (; child && place > 0; --place) child = child.nextSibling();
    return child;
}

int Node::childCount() const {
    int count = 0;
    for (Node child = firstChild(); child; child = child.nextSibling()) ++count;
    return count;
}

Node Node::selectSingleNode(std::string_view name) const {
    for (Node child = firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == kElement && child.baseName() == name) return child;
    }
    return {};
}

bool Node::HasAttribute(std::string_view name) const {
    return static_cast<bool>(AttributeOf(impl_, name));
}

String Node::Attribute(std::string_view name) const {
    return AttributeOf(impl_, name).value();
}

int Node::attributeCount() const {
    const auto attributes = Of(impl_).attributes();
    return static_cast<int>(std::distance(attributes.begin(), attributes.end()));
}

}  // namespace mrlxmlclass::dom
