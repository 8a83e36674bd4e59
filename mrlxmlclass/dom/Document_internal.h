#pragma once

#include <cstdint>
#include <pugixml.hpp>

#include "mrlxmlclass/dom/Document.h"
#include "mrlxmlclass/platform/Files.h"
#include "mrlxmlclass/runtime/Tail.h"

/// The one place that knows which parser stands below the facade.
namespace mrlxmlclass::dom {

/// For what may fail without anybody being told.
inline constexpr FailureTail kQuiet = FailureTail("Document").Silent();

/// Removing a subtree recurses, and its nodes may still be in somebody's hand. So whatever leaves the document is moved
/// under an element without a name, the last one at the top, which no reader and no writer sees.
inline bool IsGraveyard(pugi::xml_node node) {
    return node.type() == pugi::node_element && *node.name() == '\0';
}

struct Document::Tree {
    String source;  ///< the texts of the nodes lie in it
    pugi::xml_document doc;
    String declaration;  ///< as it was written, "<?xml" to "?>"; "" when there is none
    pugi::xml_node graveyard;

    static pugi::xml_node Of(Node node) { return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node.impl_)); }
    static Node Shown(pugi::xml_node node) { return Node(node.internal_object()); }

    pugi::xml_node root() const {
        const pugi::xml_node first = doc.document_element();
        return IsGraveyard(first) ? pugi::xml_node() : first;
    }
    /// The node, after a check that it is one of this document.
    pugi::xml_node Own(Node node) const;
    pugi::xml_node OwnElement(Node node) const;
    /// A new node behind all others at the top.
    pugi::xml_node AddAtTop(pugi::xml_node_type type);
    pugi::xml_node AddElement(pugi::xml_node parent, std::string_view name);
    void SetText(pugi::xml_node element, std::string_view text);
    void Bury(pugi::xml_node node);
};

/// What stands in a file since the last save, so that the next one need write only what came since.
struct Document::LastSave {
    String path;
    FileFacts facts;
    std::uint64_t body = 0;  ///< the length up to the closing tag of the root
    String tail;             ///< that tag and what follows it
    pugi::xml_node root;
    pugi::xml_node last;       ///< the last child of the root that was written
    pugi::xml_node known_new;  ///< some node that came later, to answer the next question at once

    bool IsNew(pugi::xml_node node);
};

}  // namespace mrlxmlclass::dom
