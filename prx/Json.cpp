#include "prx/Json.h"

#include <fmt/core.h>

#include <cmath>

#include "mrlxmlclass/dom/Characters.h"

namespace prx::json {
namespace {

std::string Joined(const std::vector<std::string>& values, std::string_view separator) {
    std::string text;
    for (const std::string& value : values) {
        if (!text.empty()) text += separator;
        text += value;
    }
    return text;
}

}  // namespace

std::string Quote(std::string_view text) {
    std::string quoted = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = mrlxmlclass::dom::NextCharacter(text, at);
        if (character == '"' || character == '\\') {
            quoted += '\\';
            quoted += static_cast<char>(character);
        } else if (character < 0x20 || (character >= 0x7F && character < 0xA0)) {
            quoted += fmt::format("\\u{:04x}", static_cast<unsigned>(character));
        } else if (character == mrlxmlclass::dom::kNoCharacter) {
            quoted += "\\ufffd";
        } else {
            quoted += text.substr(start, at - start);
        }
    }
    return quoted + '"';
}

std::string Number(double number) {
    return std::isfinite(number) ? fmt::format("{}", number) : "null";
}

std::string Key(std::string_view key) {
    constexpr std::size_t kMostDigits = 15;
    const bool digits = !key.empty() && key.find_first_not_of("0123456789") == std::string_view::npos;
    const bool plain = digits && key.size() <= kMostDigits && (key.size() == 1 || key.front() != '0');
    return plain ? std::string(key) : Quote(key);
}

Object& Object::Add(std::string_view name, std::string_view value) {
    if (!members_.empty()) members_ += ", ";
    members_ += fmt::format("{}: {}", Quote(name), value);
    return *this;
}

std::string Array(const std::vector<std::string>& values) {
    return "[" + Joined(values, ", ") + "]";
}

std::string Lines(const std::vector<std::string>& values) {
    return values.empty() ? "[]" : "[\n" + Joined(values, ",\n") + "\n]";
}

}  // namespace prx::json
