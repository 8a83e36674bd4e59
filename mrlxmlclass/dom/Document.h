#pragma once

#include <memory>
#include <string_view>

#include "mrlxmlclass/dom/Node.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass::dom {

/// An XML document in memory. Nodes are read through `Node` and changed through the document that owns them.
///
/// Text is UTF-8. Line ends in it become line feeds when they are set, and characters that XML 1.0 cannot hold are
/// dropped, so that every reader takes the file back. Blank text inside an element that holds no other is kept; between
/// elements it is nothing. What is replaced stays readable through nodes taken earlier, as long as the document lives
/// and loads nothing else; `Contents` outlasts that, too.
///
/// A change fails with 91 when a node is null, and with 5 when it is a node of another document or of a kind that
/// cannot be changed so.
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
    /// What `error_code` gives for a document that is not well-formed or that is in no known encoding.
    static constexpr int kNotWellFormed = 1;
    /// 0 when the last load was well-formed or nothing was loaded; else kNotWellFormed, or for a file 53 (not there),
    /// 75 (a folder) or 57 (not readable).
    int error_code() const { return error_code_; }
    /// What was wrong with the last load, in words and with its place; "" when nothing was.
    const String& error_text() const { return error_text_; }

    /// Writes the document straight over the file, without indentation, in the encoding of its declaration: UTF-8
    /// without a byte order mark when it names none, and behind a mark for UTF-16. The declaration stands as it was
    /// loaded, to the letter. Fails when the system does, and with 5 for an encoding that is not known.
    /// Repeated saves to the same untouched file write only what is new under the root; the file is the same either
    /// way, and one to which nothing could be added is as it was before.
    void Save(const String& file_name);
    /// The document as text, in UTF-8 whatever its declaration says.
    String xml() const;

    /// The root element, or a null node.
    Node documentElement() const;
    /// What the document holds now: whoever keeps it may read on in its nodes after another load.
    std::shared_ptr<const void> Contents() const { return tree_; }
    /// The document as a node, to walk its children: the declaration or other instructions, comments, the root.
    Node node() const;

    /// A new element under `parent`, last of all. A name that XML does not allow fails (5).
    Node AppendElement(Node parent, std::string_view name);
    /// The same with a text in it.
    Node AppendText(Node parent, std::string_view name, std::string_view text);
    /// A new root element; fails (5) where there is one.
    Node AppendRoot(std::string_view name);
    /// An instruction behind all that the document holds; `xml` makes the declaration, which comes first. Fails (5)
    /// when the document would not be well-formed with it.
    void AppendProcessingInstruction(std::string_view target, std::string_view data);
    /// Sets the text of an element, in place of all that it held.
    void SetText(Node element, std::string_view text);
    /// Sets or adds an attribute. A name that XML does not allow fails (5).
    void SetAttribute(Node element, std::string_view name, std::string_view value);
    /// A copy of `node`, which may stand in another document, last under `parent`.
    Node AppendCopy(Node parent, Node node);
    /// A copy of `node` in the place of `old`, a child of `parent`.
    Node ReplaceWithCopy(Node parent, Node node, Node old);

private:
    struct Tree;
    struct LastSave;

    bool Parse(String source);
    bool Fail(int code, String text);
    void Changing(Node node);
    void Growing(Node parent);
    void SaveWhole(const String& file_name);
    void SaveGrowth(std::unique_ptr<LastSave> last);

    std::shared_ptr<Tree> tree_;
    std::unique_ptr<LastSave> last_save_;
    int error_code_ = 0;
    String error_text_;
};

}  // namespace mrlxmlclass::dom
