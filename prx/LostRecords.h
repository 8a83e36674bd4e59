#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mrlxmlclass/dom/Node.h"

namespace prx {

class Project;

/// What the project's file holds and the opened project does not, as the two stand: sections that are missing or stand
/// twice, records that were passed over, and elements at which the reading of a record ended, without a failure,
/// because they are unknown, stand twice or out of their place.
std::vector<std::string> LostRecords(const Project& project);

/// What a file may hold that belongs to no record, such as "2 comments", so that no save keeps it; "" for none.
std::string PassedBy(const Project& project);

/// Calls `visit(element)` for each child element.
template <class Visit>
void ForEachElement(mrlxmlclass::dom::Node parent, Visit&& visit) {
    for (mrlxmlclass::dom::Node node = parent.firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() == mrlxmlclass::dom::Node::kElement) visit(node);
    }
}
/// The same for those of that name.
template <class Visit>
void ForEachElement(mrlxmlclass::dom::Node parent, std::string_view name, Visit&& visit) {
    ForEachElement(parent, [&](mrlxmlclass::dom::Node node) {
        if (node.baseName() == name) visit(node);
    });
}

}  // namespace prx
