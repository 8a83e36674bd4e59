#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

/// The declaration that a new document starts with.
enum class Declaration {
    Encoded,  ///< naming utf-16 or utf-8, as the caller's `unicode` says
    Plain,    ///< naming no encoding
    None,
};

/// Writes the fields or items of one object under an element.
using BodyWriter = std::function<void(const Ref<dom::Document>&, dom::Node)>;

/// What `object` itself writes.
template <class Object>
BodyWriter BodyOf(Object& object) {
    return [&object](const Ref<dom::Document>& document, dom::Node element) { object.ToXmlInt(document, element); };
}

/// A section of the project file: how it is called, and what its document is seeded with when it has one of its own.
struct SectionShape {
    std::string_view name;  ///< the element under the root; "Project" means the root itself
    String seed;            ///< name of the root that a document of its own gets
    Declaration declaration = Declaration::Encoded;
};

/// What a caller of a section's `ToXmlFile` asks for.
struct SectionOrder {
    const String& file_name;
    Ref<dom::Document> document;  ///< nothing: a new one
    Boolean header;
    Boolean unicode;
    Boolean file_exists;
    Boolean save;
};

/// Adds a section to a document and saves it if asked. Gives the document, or nothing when it has no root to add to.
Ref<dom::Document> WriteSection(const SectionShape& shape, const SectionOrder& order, const BodyWriter& write_body);

/// Whether a file is an autosave: "AutoSave001.prx" stands somewhere in its path, and the host is not silenced.
bool IsAutosave(std::string_view file_name);

/// Saves over the file. An autosave loses its attributes first and becomes hidden and system afterwards, if it was
/// there before.
void SaveByRule(const Ref<dom::Document>& document, const String& file_name);

/// A document of its own for one object: its root, named `root_name`, holds the body. Empty where no element can have
/// that name.
Ref<dom::Document> NewDocument(std::string_view root_name, Boolean header, Boolean unicode,
                               const BodyWriter& write_body);

/// The document that a reader works on: the caller's, or, not `loaded`, a new one read from the file and handed back.
Ref<dom::Document> DocumentToRead(const String& FileName, Boolean loaded, ByRef<Ref<dom::Document>>& xmlDoc);
Ref<dom::Document> DocumentOfFile(const String& file_name);
Ref<dom::Document> DocumentOfText(std::string_view text);

/// The root of a document; no document, or one without a root, fails (91).
dom::Node RootOf(const Ref<dom::Document>& document);
/// The first element under a node.
dom::Node FirstElementIn(dom::Node node);
/// Calls `read(root, first)` with the root of a document and the first element under it; fails as RootOf does.
template <class Read>
void ReadRoot(const Ref<dom::Document>& document, Read&& read) {
    const dom::Node root = RootOf(document);
    std::forward<Read>(read)(root, FirstElementIn(root));
}

/// Walks the elements of a collection from `child` on while they bear `item_name`, yielding to the host at each; gives
/// the node at which it stopped. `read(item)` reads one and files it.
dom::Node ReadItems(dom::Node child, std::string_view item_name, const std::function<void(dom::Node)>& read);

}  // namespace mrlxmlclass
