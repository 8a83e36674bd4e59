#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "mrlxmlclass/dom/Node.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass::dom {

/// An XML document in memory. Nodes are read through `Node` and changed through the document that owns them.
///
/// Text is UTF-8. Line ends in it become line feeds when they are set, and characters that XML 1.0 cannot hold are
/// dropped, so that every reader takes the file back.
class Document : public Counted {
public:
    Document();
    ~Document() override;

    /// Reads a file: UTF-8, UTF-16 of both orders by its byte order mark, ISO-8859-1 or windows-1252 by declaration.
    /// False, with `parse_error` telling why, for a missing, unreadable or not well-formed one; the document is empty
    /// then. No external entity is ever loaded and none but the five predefined ones is expanded.
    bool Load(const String& file_name);
    /// Reads a text, which is UTF-8 whatever its declaration says.
    bool LoadXML(std::string_view text);
    /// 0 when the last load was well-formed or nothing was loaded.
    int error_code() const { return error_code_; }
    /// What was wrong with the last load, in words and with its place; "" when nothing was.
    const String& error_text() const { return error_text_; }

    /// Writes the document straight over the file, in the encoding of its declaration. Fails when the system does.
    /// Repeated saves to the same untouched file write only what is new under the root; the file is the same either way.
    void Save(const String& file_name);
    /// The document as text.
    String xml() const;

    /// The root element, or a null node.
    Node documentElement() const;
    /// The document as a node, to walk its children: the declaration or other instructions, comments, the root.
    Node node() const;

    /// A new element under `parent`, last of all. A name that XML does not allow fails (5).
    Node AppendElement(Node parent, std::string_view name);
    /// The same with a text in it.
    Node AppendText(Node parent, std::string_view name, std::string_view text);
    /// A new root element; only where there is none.
    Node AppendRoot(std::string_view name);
    void AppendProcessingInstruction(std::string_view target, std::string_view data);
    /// Sets the text of an element, in place of all that it held.
    void SetText(Node element, std::string_view text);
    void SetAttribute(Node element, std::string_view name, std::string_view value);
    /// A copy of `node`, which may stand in another document, last under `parent`.
    Node AppendCopy(Node parent, Node node);
    /// A copy of `node` in the place of `old`, a child of `parent`.
    Node ReplaceWithCopy(Node parent, Node node, Node old);

private:
    struct Tree;
    struct LastSave;

    void Changing(Node node);
    bool Fail(int code, String text);

    std::unique_ptr<Tree> tree_;
    std::unique_ptr<LastSave> last_save_;
    int error_code_ = 0;
    String error_text_;
};

}  // namespace mrlxmlclass::dom
