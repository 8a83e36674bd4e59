#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

/// A text that serves as a key, held in four bytes; equal keys are equal texts, to the letter ("05" is not "5").
/// A canonical decimal (no sign, no leading zero, within a Long) is its number; any other text is interned for the life
/// of the process.
class KeyText {
public:
    /// No key at all, which is not the same as the key "".
    constexpr KeyText() = default;
    KeyText(std::string_view text);
    KeyText(const String& text) : KeyText(std::string_view(text)) {}
    KeyText(const char* text) : KeyText(std::string_view(text)) {}
    KeyText(std::nullptr_t) = delete;
    /// The decimal text of a number.
    KeyText(Long number);
    KeyText(Whole auto number, SourceLine where = SourceLine::Here()) : KeyText(Long(number, where)) {}

    constexpr bool none() const { return id_ == kNoKey; }
    /// True for a canonical decimal; `number` is its value then.
    constexpr bool is_number() const { return id_ >= 0; }
    constexpr std::int32_t number() const { return id_; }
    String text() const;
    /// The number that the text stands for; 0 for a text that is no number.
    Long Number() const;

    friend constexpr bool operator==(KeyText, KeyText) = default;

private:
    friend struct std::hash<KeyText>;
    static constexpr std::int32_t kNoKey = INT32_MIN;
    std::int32_t id_ = kNoKey;
};

/// The whole number that a text is, blanks around it and a sign allowed; nothing for any other text and for a number
/// beyond a Long.
std::optional<Long> WholeNumberIn(std::string_view text);
/// The number that a key's text stands for; a text that is no number, and the empty text, count as 0.
Long KeyNumber(std::string_view text);

}  // namespace mrlxmlclass

template <>
struct std::hash<mrlxmlclass::KeyText> {
    std::size_t operator()(mrlxmlclass::KeyText key) const noexcept { return static_cast<std::uint32_t>(key.id_); }
};
