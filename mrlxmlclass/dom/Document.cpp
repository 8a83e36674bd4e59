#include "mrlxmlclass/dom/Document.h"

#include <utility>

#include "mrlxmlclass/dom/Characters.h"
#include "mrlxmlclass/dom/Document_internal.h"
#include "mrlxmlclass/dom/Encoding.h"
#include "mrlxmlclass/dom/WellFormed.h"
#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass::dom {
namespace {

constexpr unsigned kParsing = pugi::parse_full;

pugi::xml_node Made(pugi::xml_node node) {
    if (!node) Raise(failure::kOutOfMemory);
    return node;
}

void Done(bool set) {
    if (!set) Raise(failure::kOutOfMemory);
}

bool IsElement(pugi::xml_node node) {
    return node.type() == pugi::node_element;
}

bool IsBlankText(pugi::xml_node node) {
    if (node.type() != pugi::node_pcdata) return false;
    return std::string_view(node.value()).find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// Takes blank text out of an element that holds elements.
void DropBlanksIn(pugi::xml_node parent) {
    if (!parent.find_child(IsElement)) return;
    pugi::xml_node child = parent.first_child();
    while (child) {
        const pugi::xml_node next = child.next_sibling();
        if (IsBlankText(child)) parent.remove_child(child);
        child = next;
    }
}

void DropBlanksBetweenElements(pugi::xml_node top) {
    pugi::xml_node node = top;
    for (;;) {
        DropBlanksIn(node);
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node != top && !node.next_sibling()) node = node.parent();
        if (node == top) return;
        node = node.next_sibling();
    }
}

/// The declaration at the start of a well-formed source.
std::string_view DeclarationOf(std::string_view source) {
    constexpr std::string_view kStart = "<?xml";
    if (!source.starts_with(kStart)) return {};
    if (std::string_view(" \t\r\n").find(source[kStart.size()]) == std::string_view::npos) return {};
    return source.substr(0, source.find("?>") + 2);
}

}  // namespace

pugi::xml_node Document::Tree::Own(Node node) const {
    const pugi::xml_node own = Of(node);
    if (!own) Raise(failure::kNothing);
    if (own.root() != doc) Raise(failure::kUnknownKey, "The node belongs to another document");
    return own;
}

pugi::xml_node Document::Tree::OwnElement(Node node) const {
    const pugi::xml_node own = Own(node);
    if (!IsElement(own)) Raise(failure::kUnknownKey, "The node is no element");
    return own;
}

pugi::xml_node Document::Tree::AddAtTop(pugi::xml_node_type type) {
    return Made(graveyard ? doc.insert_child_before(type, graveyard) : doc.append_child(type));
}

pugi::xml_node Document::Tree::AddElement(pugi::xml_node parent, std::string_view name) {
    if (!IsName(name)) Raise(failure::kUnknownKey, "\"" + String(name) + "\" cannot name an element");
    if (parent == doc && root()) Raise(failure::kUnknownKey, "The document has a root element");
    const pugi::xml_node element =
        parent == doc ? AddAtTop(pugi::node_element) : Made(parent.append_child(pugi::node_element));
    Done(pugi::xml_node(element).set_name(String(name).c_str()));
    return element;
}

void Document::Tree::SetText(pugi::xml_node element, std::string_view text) {
    const String clean = Cleaned(text);
    pugi::xml_node only = element.first_child();
    const bool in_place = only.type() == pugi::node_pcdata && !only.next_sibling() && !clean.empty();
    if (!in_place) {
        while (element.first_child()) Bury(element.first_child());
        if (clean.empty()) return;
        only = Made(element.append_child(pugi::node_pcdata));
    }
    Done(only.set_value(clean.c_str()));
}

void Document::Tree::Bury(pugi::xml_node node) {
    if (!graveyard) graveyard = Made(doc.append_child(pugi::node_element));
    Made(graveyard.append_move(node));
}

Document::Document() : tree_(std::make_shared<Tree>()) {}

Document::~Document() = default;

bool Document::Load(const String& file_name) {
    Files& files = Platform().files;
    FileFacts facts;
    String bytes;
    const auto look = [&](bool& done) {
        facts = files.Facts(file_name);
        if (facts.exists && !facts.folder) bytes = files.Read(file_name);
        done = true;
    };
    if (!kQuiet.Run<bool>("Load", look)) return Fail(failure::kDeviceFailure, "The file could not be read");
    if (!facts.exists) return Fail(failure::kFileNotFound, "The file was not found");
    if (facts.folder) return Fail(failure::kPathAccess, "There is a folder in the place of the file");
    Decoded decoded = Decode(std::move(bytes));
    if (decoded.flaw != nullptr) return Fail(kNotWellFormed, decoded.flaw);
    return Parse(std::move(decoded.text));
}

bool Document::LoadXML(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
    return Parse(String(text));
}

bool Document::Parse(String source) {
    const SourceCheck check = CheckWellFormed(source);
    if (check.flaw != nullptr) {
        return Fail(kNotWellFormed, String(check.flaw) + " (" + PlaceInWords(source, check.place) + ")");
    }
    auto tree = std::make_shared<Tree>();
    tree->declaration = DeclarationOf(source);
    tree->source = std::move(source);
    const unsigned options =
        check.blanks_beside_marks ? kParsing | pugi::parse_ws_pcdata : kParsing | pugi::parse_ws_pcdata_single;
    const auto parsed =
        tree->doc.load_buffer_inplace(tree->source.data(), tree->source.size(), options, pugi::encoding_utf8);
    if (!parsed) return Fail(kNotWellFormed, parsed.description());
    if (check.blanks_beside_marks) DropBlanksBetweenElements(tree->doc);
    last_save_.reset();
    tree_ = std::move(tree);
    error_code_ = 0;
    error_text_.clear();
    return true;
}

bool Document::Fail(int code, String text) {
    last_save_.reset();
    tree_ = std::make_shared<Tree>();
    error_code_ = code;
    error_text_ = std::move(text);
    return false;
}

Node Document::documentElement() const {
    return Tree::Shown(tree_->root());
}

Node Document::node() const {
    return Tree::Shown(tree_->doc);
}

Node Document::AppendElement(Node parent, std::string_view name) {
    const pugi::xml_node above = tree_->Own(parent);
    if (above != tree_->doc) tree_->OwnElement(parent);
    Growing(parent);
    return Tree::Shown(tree_->AddElement(above, name));
}

Node Document::AppendText(Node parent, std::string_view name, std::string_view text) {
    const Node element = AppendElement(parent, name);
    tree_->SetText(Tree::Of(element), text);
    return element;
}

Node Document::AppendRoot(std::string_view name) {
    return AppendElement(node(), name);
}

void Document::AppendProcessingInstruction(std::string_view target, std::string_view data) {
    const String clean = Cleaned(data);
    const String written = "<?" + String(target) + (clean.empty() ? "" : " ") + clean + "?>";
    if (!IsName(target) || clean.find("?>") != String::npos || CheckWellFormed(written + "<a/>").flaw != nullptr) {
        Raise(failure::kUnknownKey, "\"" + written + "\" is no instruction");
    }
    last_save_.reset();
    if (target != "xml") {
        pugi::xml_node instruction = tree_->AddAtTop(pugi::node_pi);
        Done(instruction.set_name(String(target).c_str()) && instruction.set_value(clean.c_str()));
        return;
    }
    if (!tree_->declaration.empty()) Raise(failure::kUnknownKey, "The document has a declaration");
    Done(Made(tree_->doc.prepend_child(pugi::node_declaration)).set_name("xml"));
    tree_->declaration = written;
}

void Document::SetText(Node element, std::string_view text) {
    const pugi::xml_node own = tree_->OwnElement(element);
    Changing(element);
    tree_->SetText(own, text);
}

void Document::SetAttribute(Node element, std::string_view name, std::string_view value) {
    pugi::xml_node own = tree_->OwnElement(element);
    if (!IsName(name)) Raise(failure::kUnknownKey, "\"" + String(name) + "\" cannot name an attribute");
    Changing(element);
    const String exact(name);
    pugi::xml_attribute attribute = own.attribute(exact.c_str());
    if (!attribute) attribute = own.append_attribute(exact.c_str());
    Done(attribute.set_value(Cleaned(value).c_str()));
}

Node Document::AppendCopy(Node parent, Node node) {
    pugi::xml_node above = tree_->Own(parent);
    const pugi::xml_node source = Tree::Of(node);
    if (!source) Raise(failure::kNothing);
    if (above == tree_->doc && (!IsElement(source) || tree_->root())) {
        Raise(failure::kUnknownKey, "The document has no place for the node");
    }
    Growing(parent);
    const pugi::xml_node copy = above == tree_->doc && tree_->graveyard
                                    ? above.insert_copy_before(source, tree_->graveyard)
                                    : above.append_copy(source);
    if (!copy) Raise(failure::kUnknownKey, "The node cannot stand there");
    return Tree::Shown(copy);
}

Node Document::ReplaceWithCopy(Node parent, Node node, Node old) {
    pugi::xml_node above = tree_->Own(parent);
    const pugi::xml_node replaced = tree_->Own(old);
    const pugi::xml_node source = Tree::Of(node);
    if (!source) Raise(failure::kNothing);
    if (replaced.parent() != above) Raise(failure::kUnknownKey, "The node to replace is no child of the other");
    if (above == tree_->doc && !(IsElement(source) && IsElement(replaced))) {
        Raise(failure::kUnknownKey, "The document has no place for the node");
    }
    Changing(old);
    const pugi::xml_node copy = above.insert_copy_before(source, replaced);
    if (!copy) Raise(failure::kUnknownKey, "The node cannot stand there");
    tree_->Bury(replaced);
    return Tree::Shown(copy);
}

}  // namespace mrlxmlclass::dom
