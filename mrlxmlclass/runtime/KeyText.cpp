#include "mrlxmlclass/runtime/KeyText.h"

#include <charconv>
#include <cmath>
#include <deque>
#include <mutex>
#include <unordered_map>

#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass {
namespace {

/// Without blanks around it and the sign that says nothing.
std::string_view BareNumber(std::string_view text) {
    text = Trim(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    return text;
}

/// The texts behind negative ids. Shared by all threads, so that a key means the same wherever it is read; never
/// emptied, since a key may outlive any session.
class Interned {
public:
    std::int32_t IdOf(std::string_view text) {
        const std::scoped_lock lock(mutex_);
        const auto found = ids_.find(text);
        if (found != ids_.end()) return found->second;
        const String& kept = texts_.emplace_back(text);
        const std::int32_t id = -static_cast<std::int32_t>(texts_.size());
        ids_.emplace(kept, id);
        return id;
    }
    String TextOf(std::int32_t id) {
        const std::scoped_lock lock(mutex_);
        return texts_[static_cast<std::size_t>(-(id + 1))];
    }

private:
    std::mutex mutex_;
    std::deque<String> texts_;
    std::unordered_map<std::string_view, std::int32_t> ids_;
};

Interned& Texts() {
    static Interned& texts = *new Interned;  // outlives every object that may still hold a key
    return texts;
}

/// Any number that a text is; endless beyond a double. Nothing for any other text.
std::optional<double> NumberIn(std::string_view text) {
    text = BareNumber(text);
    if (text.find_first_of("iInN") != std::string_view::npos) return std::nullopt;  // "inf", "nan"
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument || end != text.data() + text.size()) return std::nullopt;
    if (error == std::errc::result_out_of_range) return TooSmall(text) ? 0 : HUGE_VAL;
    return value;
}

}  // namespace

void KeyText::Intern(std::string_view text) {
    id_ = Texts().IdOf(text);
}

void KeyText::InternNegative() {
    id_ = Texts().IdOf(std::to_string(id_));
}

String KeyText::text() const {
    if (none()) return {};
    return is_number() ? std::to_string(id_) : Texts().TextOf(id_);
}

Long KeyText::NumberOfText() const {
    return KeyNumber(text());
}

std::optional<Long> WholeNumberIn(std::string_view text) {
    text = BareNumber(text);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

Long KeyNumber(std::string_view text) {
    return WholeNumberIn(text).value_or(Long(0));
}

double KeyValue(std::string_view text) {
    return NumberIn(text).value_or(0);
}

std::optional<Long> KeyIn(std::string_view text) {
    const std::optional<double> value = NumberIn(text);
    if (!value || *value != std::trunc(*value) || std::abs(*value) > INT32_MAX) return std::nullopt;
    return Long(*value);
}

}  // namespace mrlxmlclass
