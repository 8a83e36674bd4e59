#include <utility>

#include "mrlxmlclass/dom/Document_internal.h"
#include "mrlxmlclass/dom/Encoding.h"
#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass::dom {
namespace {

class TextWriter : public pugi::xml_writer {
public:
    explicit TextWriter(String& text) : text_(text) {}
    void write(const void* data, std::size_t size) override { text_.append(static_cast<const char*>(data), size); }

private:
    String& text_;
};

/// Appends the nodes from `node` to the last of its siblings.
void Print(String& text, pugi::xml_node node) {
    TextWriter writer(text);
    for (; node && !IsGraveyard(node); node = node.next_sibling()) {
        node.print(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    }
}

/// Puts the end of a file back when what should have followed could not be written.
class EndOfFile {
public:
    EndOfFile(OutputFile& file, std::uint64_t at, const String& bytes) : file_(file), at_(at), bytes_(bytes) {}
    ~EndOfFile() {
        if (!replaced_) kQuiet.Run("Save", [this] { PutBack(); });
    }
    EndOfFile(const EndOfFile&) = delete;
    EndOfFile& operator=(const EndOfFile&) = delete;

    void Replaced() { replaced_ = true; }

private:
    void PutBack() {
        file_.WriteAt(at_, bytes_);
        file_.Cut(at_ + bytes_.size());
    }

    OutputFile& file_;
    std::uint64_t at_;
    const String& bytes_;
    bool replaced_ = false;
};

}  // namespace

/// Whether a node lies in a child of the root that the file does not hold yet.
bool Document::LastSave::IsNew(pugi::xml_node node) {
    pugi::xml_node top = node;
    while (top && top != known_new && top.parent() != root) top = top.parent();
    if (!top) return false;
    if (top != known_new) {
        // Newcomers stand behind the last one written, and the change is mostly in the very last.
        pugi::xml_node child = root.last_child();
        while (child != top && child != last) child = child.previous_sibling();
        if (child == last) return false;
    }
    known_new = node;
    return true;
}

/// To be told before a node is changed itself.
void Document::Changing(Node node) {
    if (last_save_ && !last_save_->IsNew(Tree::Of(node))) last_save_.reset();
}

/// To be told before a child is appended to a node. Behind the written children of the root there is room.
void Document::Growing(Node parent) {
    if (last_save_ && Tree::Of(parent) != last_save_->root) Changing(parent);
}

String Document::xml() const {
    String text = tree_->declaration;
    pugi::xml_node first = tree_->doc.first_child();
    if (first.type() == pugi::node_declaration) first = first.next_sibling();
    Print(text, first);
    return text;
}

void Document::Save(const String& file_name) {
    // Taken out here and put back by whatever succeeds: a save that fails leaves nothing to rely on.
    auto last = std::move(last_save_);
    if (last && last->path == file_name && Platform().files.Facts(file_name) == last->facts) {
        SaveGrowth(std::move(last));
    } else {
        SaveWhole(file_name);
    }
}

void Document::SaveWhole(const String& file_name) {
    String text = xml();
    const Encoding encoding = DeclaredEncoding(text);
    auto saved = std::make_unique<LastSave>();
    saved->path = file_name;
    saved->root = tree_->root();
    saved->last = saved->root.last_child();
    if (saved->last) {
        saved->tail = "</" + String(saved->root.name()) + ">";
        Print(saved->tail, saved->root.next_sibling());
        saved->body = text.size() - saved->tail.size();
    }
    const String bytes = Encode(std::move(text), encoding);

    const auto file = Platform().files.Create(file_name);
    file->WriteAt(0, bytes);
    saved->facts = file->Facts();
    file->Close();
    if (encoding == Encoding::Utf8 && saved->last) last_save_ = std::move(saved);
}

void Document::SaveGrowth(std::unique_ptr<LastSave> last) {
    String bytes;
    Print(bytes, last->last.next_sibling());
    const auto file = Platform().files.Open(last->path);
    if (!bytes.empty()) {
        const std::uint64_t body = last->body + bytes.size();
        EndOfFile end(*file, last->body, last->tail);
        file->WriteAt(last->body, bytes.append(last->tail));
        last->facts = file->Facts();
        end.Replaced();
        last->body = body;
        last->last = last->root.last_child();
        last->known_new = {};
    }
    file->Close();
    last_save_ = std::move(last);
}

}  // namespace mrlxmlclass::dom
