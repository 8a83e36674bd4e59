#include "mrlxmlclass/xml/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass {
namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Reads a number from the front of a text, piece by piece.
class NumberScanner {
public:
    NumberScanner(std::string_view text, const LocaleSettings& locale) : rest_(text), locale_(locale) {}

    std::optional<String> Scan() {
        if (Takes("-")) {
            plain_ += '-';
        } else {
            Takes("+");
        }
        int digits = Digits(true);
        if (Takes(locale_.decimal)) {
            if (digits == 0) plain_ += '0';
            plain_ += '.';
            const int decimals = Digits(false);
            if (decimals == 0) plain_.pop_back();
            digits += decimals;
        }
        if (digits == 0 || !Exponent() || !rest_.empty()) return std::nullopt;
        return plain_;
    }

private:
    bool Takes(std::string_view piece) {
        if (piece.empty() || !rest_.starts_with(piece)) return false;
        rest_.remove_prefix(piece.size());
        return true;
    }

    int Digits(bool grouped) {
        int count = 0;
        while (true) {
            if (!rest_.empty() && IsDigit(rest_[0])) {
                plain_ += rest_[0];
                rest_.remove_prefix(1);
                ++count;
            } else if (!(grouped && count > 0 && SkipsGroup())) {
                return count;
            }
        }
    }

    /// A group separator counts only between digits; nobody checks its place.
    bool SkipsGroup() {
        const std::string_view group = locale_.group;
        if (group.empty() || !rest_.starts_with(group)) return false;
        if (rest_.size() == group.size() || !IsDigit(rest_[group.size()])) return false;
        rest_.remove_prefix(group.size());
        return true;
    }

    bool Exponent() {
        if (!Takes("e") && !Takes("E")) return true;
        plain_ += 'e';
        if (Takes("-")) {
            plain_ += '-';
        } else {
            Takes("+");
        }
        return Digits(false) > 0;
    }

    std::string_view rest_;
    const LocaleSettings& locale_;
    String plain_;
};

}  // namespace

std::optional<String> PlainNumber(std::string_view text, const LocaleSettings& locale) {
    return NumberScanner(Trim(text), locale).Scan();
}

Double PlainToDouble(std::string_view plain) {
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too small to hold is 0; too large fails.
        const std::size_t exponent = plain.find('e');
        if (exponent != std::string_view::npos && plain.substr(exponent + 1).starts_with('-')) return 0;
        Raise(failure::kOverflow);
    }
    if (error != std::errc{}) Raise(failure::kTypeMismatch);
    return value;
}

Currency PlainToCurrency(std::string_view plain) {
    const std::size_t point = plain.find('.');
    const std::string_view whole = plain.substr(0, point);
    const std::string_view decimals = point == std::string_view::npos ? std::string_view() : plain.substr(point + 1);
    if (plain.find('e') != std::string_view::npos || decimals.size() > 4 || whole.size() > 15) {
        return Currency(PlainToDouble(plain));
    }
    // Exact: a double does not hold every amount.
    const String padded = String(whole) + String(decimals) + String(4 - decimals.size(), '0');
    std::int64_t count = 0;
    std::from_chars(padded.data(), padded.data() + padded.size(), count);
    return Currency::OfTenThousandths(count);
}

String DoubleText(Double value, std::string_view decimal) {
    if (!std::isfinite(value)) Raise(failure::kOverflow);
    std::array<char, 40> buffer;
    constexpr int kDigits = 15;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, kDigits);
    String text(buffer.data(), end);
    if (text == "-0") text = "0";
    if (const std::size_t e = text.find('e'); e != String::npos) text[e] = 'E';
    if (const std::size_t point = text.find('.'); point != String::npos) text.replace(point, 1, decimal);
    return text;
}

String CurrencyText(Currency value, std::string_view decimal) {
    const std::int64_t count = value.ten_thousandths();
    const bool negative = count < 0;
    const std::uint64_t size = negative ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
    String text = (negative ? "-" : "") + std::to_string(size / Currency::kScale);
    String decimals = std::to_string(size % Currency::kScale);
    decimals.insert(0, 4 - decimals.size(), '0');
    decimals.erase(decimals.find_last_not_of('0') + 1);
    if (!decimals.empty()) text.append(decimal).append(decimals);
    return text;
}

}  // namespace mrlxmlclass
