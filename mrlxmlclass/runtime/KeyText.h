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
    KeyText(std::string_view text) : id_(CanonicalNumber(text)) {
        if (id_ < 0) Intern(text);
    }
    KeyText(const String& text) : KeyText(std::string_view(text)) {}
    KeyText(const char* text) : KeyText(std::string_view(text)) {}
    KeyText(std::nullptr_t) = delete;
    /// The decimal text of a number.
    KeyText(Long number) : id_(number.value()) {
        if (id_ < 0) InternNegative();
    }
    KeyText(Whole auto number, SourceLine where = SourceLine::Here()) : KeyText(Long(number, where)) {}

    constexpr bool none() const { return id_ == kNoKey; }
    /// True for a canonical decimal; `number` is its value then.
    constexpr bool is_number() const { return id_ >= 0; }
    constexpr std::int32_t number() const { return id_; }
    /// The value of a canonical decimal, or -1; keeps no text.
    static constexpr std::int32_t CanonicalNumber(std::string_view text) {
        if (text.empty() || text.size() > kSurelyInRange || (text[0] == '0' && text.size() > 1)) {
            return text.size() == kSurelyInRange + 1 ? LongNumber(text) : -1;
        }
        std::int32_t number = 0;
        for (const char digit : text) {
            if (digit < '0' || digit > '9') return -1;
            number = number * 10 + (digit - '0');
        }
        return number;
    }

    String text() const;
    /// The number that the text stands for; 0 for a text that is no number.
    Long Number() const { return is_number() ? Long(number()) : NumberOfText(); }

    friend constexpr bool operator==(KeyText, KeyText) = default;

private:
    friend struct std::hash<KeyText>;
    static constexpr std::int32_t kNoKey = INT32_MIN;
    static constexpr std::size_t kSurelyInRange = 9;  ///< digits
    /// The same where the value may not fit.
    static constexpr std::int32_t LongNumber(std::string_view text) {
        const std::int32_t front = CanonicalNumber(text.substr(0, kSurelyInRange));
        const std::int32_t last = CanonicalNumber(text.substr(kSurelyInRange));
        const std::int64_t number = std::int64_t{front} * 10 + last;
        return front > 0 && last >= 0 && number <= INT32_MAX ? static_cast<std::int32_t>(number) : -1;
    }
    void Intern(std::string_view text);
    void InternNegative();
    Long NumberOfText() const;

    std::int32_t id_ = kNoKey;
};

/// The whole number that a text is, blanks around it and a sign allowed; nothing for any other text and for a number
/// beyond a Long.
std::optional<Long> WholeNumberIn(std::string_view text);
/// The number that a key's text stands for; a text that is no number, and the empty text, count as 0.
Long KeyNumber(std::string_view text);
/// The same of any number, to compare by: "7.0" is 7, and "99999999999" is no Long but not 0 either. See also
/// Variant::KeyValue.
double KeyValue(std::string_view text);
/// The key that a number equals, "7.0" and "7" alike; nothing for a text that is no number, and for one that no key can
/// equal.
std::optional<Long> KeyIn(std::string_view text);

}  // namespace mrlxmlclass

template <>
struct std::hash<mrlxmlclass::KeyText> {
    std::size_t operator()(mrlxmlclass::KeyText key) const noexcept { return static_cast<std::uint32_t>(key.id_); }
};
