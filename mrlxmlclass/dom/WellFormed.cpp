#include "mrlxmlclass/dom/WellFormed.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include "mrlxmlclass/dom/Characters.h"
#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass::dom {
namespace {

// What a byte can be. Colons and the bytes of longer characters count as letters, and a name with such is looked at
// again.
constexpr std::uint8_t kBlank = 1;
constexpr std::uint8_t kNameStart = 2;
constexpr std::uint8_t kNamePart = 4;
constexpr std::uint8_t kLong = 8;    ///< of a character of several bytes
constexpr std::uint8_t kText = 16;   ///< nothing to look at in text
constexpr std::uint8_t kValue = 32;  ///< nothing to look at in the value of an attribute
constexpr std::uint8_t kColon = 64;

constexpr std::array<std::uint8_t, 256> MakeKinds() {
    std::array<std::uint8_t, 256> kinds{};
    const auto holds = [](std::string_view bytes, char byte) { return bytes.find(byte) != std::string_view::npos; };
    for (std::size_t n = 1; n < kinds.size(); ++n) {  // null is of no kind: it ends every run
        const char byte = static_cast<char>(n);
        const bool letter = holds("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_:", byte) || n >= 0x80;
        if (holds(" \t\r\n", byte)) kinds[n] |= kBlank;
        if (letter) kinds[n] |= kNameStart;
        if (letter || holds("0123456789-.", byte)) kinds[n] |= kNamePart;
        if (n >= 0x80) kinds[n] |= kLong;
        if (byte == ':') kinds[n] |= kColon;
        if (!holds("<&]", byte)) kinds[n] |= kText;
        if (!holds("<&\"'", byte)) kinds[n] |= kValue;
    }
    return kinds;
}
constexpr std::array<std::uint8_t, 256> kKinds = MakeKinds();

constexpr std::uint8_t KindOf(char byte) {
    return kKinds[static_cast<unsigned char>(byte)];
}
constexpr bool Is(char byte, std::uint8_t kind) {
    return (KindOf(byte) & kind) != 0;
}

int DigitOf(char byte, bool hexadecimal) {
    if (byte >= '0' && byte <= '9') return byte - '0';
    if (hexadecimal && byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
    if (hexadecimal && byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
    return -1;
}

/// Reads the source from front to back. Each step gives false once a flaw is noted.
/// The source ends in a null character that stands nowhere else in it, and nothing here passes over that.
class Checker {
public:
    explicit Checker(const String& source) : start_(source.c_str()), end_(start_ + source.size()), at_(start_) {}

    SourceCheck Run() {
        const std::size_t forbidden = FirstForbidden({start_, static_cast<std::size_t>(end_ - start_)});
        if (forbidden != std::string_view::npos) {
            at_ += forbidden;
            Flaw("A character is not valid");
        } else if (Declaration() && Content()) {
            if (!open_.empty()) {
                Flaw("An element is not closed");
            } else if (!root_seen_) {
                Flaw("There is no root element");
            }
        }
        return found_;
    }

private:
    bool Flaw(const char* what) {
        found_.flaw = what;
        found_.place = static_cast<std::size_t>(at_ - start_);
        return false;
    }

    bool AtEnd() const { return at_ == end_; }
    bool Sees(std::string_view text) const { return std::strncmp(at_, text.data(), text.size()) == 0; }
    /// Moves over the bytes of a kind.
    void Skip(std::uint8_t kind) {
        while (Is(*at_, kind)) ++at_;
    }
    bool SkipBlanks() {
        const char* const before = at_;
        Skip(kBlank);
        return at_ != before;
    }
    /// Moves behind the next occurrence of a text; false when there is none.
    bool SkipBehind(std::string_view text) {
        const std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
        const std::size_t found = rest.find(text);
        if (found == std::string_view::npos) return false;
        at_ += found + text.size();
        return true;
    }

    bool Content() {
        while (!AtEnd()) {
            if (*at_ != '<' && !(open_.empty() ? Outside() : PlainText())) return false;
            if (!AtEnd() && !Markup()) return false;
        }
        return true;
    }

    bool Outside() {
        SkipBlanks();
        return AtEnd() || *at_ == '<' || Flaw("There is text outside the root element");
    }

    bool PlainText() {
        const bool blanks = SkipBlanks();
        if (*at_ == '<') {
            if (blanks && (behind_mark_ || at_[1] == '!' || at_[1] == '?')) found_.blanks_beside_marks = true;
            return true;
        }
        for (;;) {
            Skip(kText);
            if (AtEnd() || *at_ == '<') return true;
            if (*at_ == '&') {
                if (!Reference()) return false;
            } else if (Sees("]]>")) {
                return Flaw("\"]]>\" stands in text");
            } else {
                ++at_;
            }
        }
    }

    bool Reference() {
        if (at_[1] == '#') return NumericReference();
        for (const std::string_view known : {"&lt;", "&gt;", "&amp;", "&quot;", "&apos;"}) {
            if (!Sees(known)) continue;
            at_ += known.size();
            return true;
        }
        return Flaw("An entity is not known");
    }

    bool NumericReference() {
        const bool hexadecimal = at_[2] == 'x';
        const char* const first_digit = at_ + (hexadecimal ? 3 : 2);
        const char* digits = first_digit;
        char32_t character = 0;
        for (int digit = DigitOf(*digits, hexadecimal); digit >= 0; digit = DigitOf(*++digits, hexadecimal)) {
            const char32_t longer = character * (hexadecimal ? 16 : 10) + static_cast<char32_t>(digit);
            character = std::min<char32_t>(longer, 0x110000);  // no character, and no overflow either
        }
        if (digits == first_digit || *digits != ';' || !IsAllowed(character)) {
            return Flaw("A reference names no valid character");
        }
        at_ = digits + 1;
        return true;
    }

    bool Markup() {
        behind_mark_ = at_[1] == '?' || at_[1] == '!';
        if (!behind_mark_) return at_[1] == '/' ? EndTag() : StartTag();
        if (at_[1] == '?') return Instruction();
        if (Sees("<!--")) return Comment();
        if (Sees("<![CDATA[")) return CharacterData();
        if (Sees("<!DOCTYPE")) return DocumentType();
        return Flaw("Markup is not known");
    }

    /// The name that starts here, passed over; empty when none does.
    std::string_view Name() {
        if (!Is(*at_, kNameStart)) return {};
        const char* const before = at_;
        std::uint8_t all = 0;
        for (std::uint8_t kind = KindOf(*at_); (kind & kNamePart) != 0; kind = KindOf(*++at_)) all |= kind;
        const std::string_view name(before, static_cast<std::size_t>(at_ - before));
        if ((all & (kLong | kColon)) == 0 || IsName(name)) return name;
        at_ = before;
        return {};
    }

    bool StartTag() {
        if (open_.empty() && root_seen_) return Flaw("There is more than one root element");
        root_seen_ = true;
        ++at_;
        const std::string_view name = Name();
        if (name.empty()) return Flaw("A tag has no valid name");
        if (*at_ == '>') {
            ++at_;
            open_.push_back(name);
            return true;
        }
        attributes_.clear();
        for (;;) {
            const bool apart = SkipBlanks();
            if (*at_ == '>') {
                ++at_;
                open_.push_back(name);
                return AttributesDiffer();
            }
            if (Sees("/>")) {
                at_ += 2;
                return AttributesDiffer();
            }
            if (AtEnd()) return Flaw("A tag is not closed");
            if (!apart) return Flaw("A tag holds what it must not");
            if (!Attribute()) return false;
        }
    }

    bool Attribute() {
        const std::string_view name = Name();
        if (name.empty()) return Flaw("An attribute has no valid name");
        SkipBlanks();
        if (*at_ != '=') return Flaw("An attribute has no value");
        ++at_;
        SkipBlanks();
        const char quote = *at_;
        if (quote != '"' && quote != '\'') return Flaw("The value of an attribute is not quoted");
        ++at_;
        attributes_.push_back(name);
        for (;;) {
            Skip(kValue);
            if (AtEnd()) return Flaw("The value of an attribute does not end");
            if (*at_ == '<') return Flaw("\"<\" stands in the value of an attribute");
            if (*at_ == '&') {
                if (!Reference()) return false;
            } else if (*at_++ == quote) {
                return true;
            }
        }
    }

    bool AttributesDiffer() {
        if (attributes_.size() < 2) return true;
        std::sort(attributes_.begin(), attributes_.end());
        if (std::adjacent_find(attributes_.begin(), attributes_.end()) == attributes_.end()) return true;
        return Flaw("An attribute stands twice in one tag");
    }

    bool EndTag() {
        // The name is known, so it need not be read: it must be followed by what no name holds.
        if (open_.empty()) return Flaw("An end tag does not match its start tag");
        const std::string_view name = open_.back();
        const auto left = static_cast<std::size_t>(end_ - at_);
        if (left < name.size() + 2 || std::memcmp(at_ + 2, name.data(), name.size()) != 0 ||
            Is(at_[2 + name.size()], kNamePart)) {
            return Flaw("An end tag does not match its start tag");
        }
        at_ += 2 + name.size();
        SkipBlanks();
        if (*at_ != '>') return Flaw("An end tag is not closed");
        ++at_;
        open_.pop_back();
        return true;
    }

    bool Comment() {
        at_ += 4;
        if (!SkipBehind("--")) return Flaw("A comment does not end");
        if (*at_ != '>') return Flaw("\"--\" stands in a comment");
        ++at_;
        return true;
    }

    bool CharacterData() {
        if (open_.empty()) return Flaw("There is text outside the root element");
        return SkipBehind("]]>") || Flaw("A CDATA section does not end");
    }

    bool Instruction() {
        at_ += 2;
        const std::string_view target = Name();
        if (target.empty()) return Flaw("An instruction has no valid target");
        if (EqualsIgnoringCase(target, "xml")) return Flaw("A declaration is not valid or not at the start");
        if (!Sees("?>") && !SkipBlanks()) return Flaw("An instruction has no valid target");
        return SkipBehind("?>") || Flaw("An instruction does not end");
    }

    /// The XML declaration: version, encoding and standalone, in this order, the first one always.
    bool Declaration() {
        constexpr std::array<std::string_view, 3> kParts = {"version", "encoding", "standalone"};
        constexpr std::string_view kStart = "<?xml";
        if (!Sees(kStart) || !Is(at_[kStart.size()], kBlank)) return true;
        at_ += kStart.size();
        attributes_.clear();
        while (SkipBlanks() && *at_ != '?') {
            if (!Attribute()) return false;
        }
        if (!Sees("?>")) return Flaw("The declaration does not end");
        std::size_t part = 0;
        for (const std::string_view name : attributes_) {
            while (part < kParts.size() && kParts[part] != name) ++part;
            if (part++ == kParts.size()) return Flaw("The declaration is not valid");
        }
        if (attributes_.empty() || attributes_.front() != kParts.front()) return Flaw("The declaration has no version");
        at_ += 2;
        return true;
    }

    /// A document type is passed over: nothing of it is loaded, and what it declares stays unknown.
    bool DocumentType() {
        if (root_seen_ || type_seen_) return Flaw("A document type stands where none may");
        type_seen_ = true;
        at_ += 2;
        for (std::size_t depth = 0; !AtEnd();) {
            const char byte = *at_;
            if (byte == '"' || byte == '\'') {
                ++at_;
                if (!SkipBehind({&byte, 1})) break;
            } else if (Sees("<!--")) {
                if (!Comment()) return false;
            } else if (Sees("<?")) {
                if (!SkipBehind("?>")) break;
            } else if (Sees("<![") || (byte == '%' && Is(at_[1], kNameStart))) {
                return Flaw("A document type holds what is not taken");
            } else if (Sees("<!")) {
                ++depth;
                at_ += 2;
            } else if (byte == '<') {
                return Flaw("Markup is not known");
            } else {
                ++at_;
                if (byte == '>' && depth-- == 0) return true;
            }
        }
        return Flaw("A document type does not end");
    }

    const char* start_;
    const char* end_;
    const char* at_;
    std::vector<std::string_view> open_;        ///< the names of the elements that are not closed yet
    std::vector<std::string_view> attributes_;  ///< those of the tag at hand
    bool root_seen_ = false;
    bool type_seen_ = false;
    bool behind_mark_ = false;  ///< the last markup was no tag
    SourceCheck found_;
};

}  // namespace

SourceCheck CheckWellFormed(const String& source) {
    return Checker(source).Run();
}

String PlaceInWords(std::string_view source, std::size_t offset) {
    const std::string_view before = source.substr(0, offset);
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const std::size_t last_end = before.rfind('\n');
    const std::size_t column = last_end == std::string_view::npos ? before.size() : before.size() - last_end - 1;
    return "line " + std::to_string(lines + 1) + ", column " + std::to_string(column + 1);
}

}  // namespace mrlxmlclass::dom
