#include "mrlxmlclass/xml/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass {
namespace {

constexpr std::size_t kDecimals = 4;  // of a Currency

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

    /// A group separator counts only between digits.
    // Kept: nobody checks its place, so a number written under another locale may be read as another number.
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

/// Whether the decimals that are cut off round the last one that stays, halves to the even one.
bool RoundsAway(std::string_view rest, bool odd) {
    if (rest.empty() || rest[0] < '5') return false;
    return rest[0] > '5' || odd || rest.find_first_not_of('0', 1) != std::string_view::npos;
}

}  // namespace

std::optional<String> PlainNumber(std::string_view text, const LocaleSettings& locale) {
    return NumberScanner(Trim(text), locale).Scan();
}

Double PlainToDouble(std::string_view plain) {
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range || !std::isfinite(value)) {
        if (TooSmall(plain)) return 0;
        Raise(failure::kOverflow);
    }
    if (error != std::errc{} || end != plain.data() + plain.size()) Raise(failure::kTypeMismatch);
    return value;
}

Currency PlainToCurrency(std::string_view plain) {
    if (plain.find('e') != std::string_view::npos) return Currency(PlainToDouble(plain));
    // Digit by digit, since a double does not hold every amount.
    const std::size_t point = std::min(plain.find('.'), plain.size());
    String decimals(plain.substr(std::min(point + 1, plain.size())));
    if (decimals.size() < kDecimals) decimals.append(kDecimals - decimals.size(), '0');
    const String digits = String(plain.substr(0, point)) + decimals.substr(0, kDecimals);
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (error == std::errc::result_out_of_range) Raise(failure::kOverflow);
    if (error != std::errc{} || end != digits.data() + digits.size()) Raise(failure::kTypeMismatch);
    if (RoundsAway(decimals.substr(kDecimals), count % 2 != 0)) {
        if (__builtin_add_overflow(count, plain.starts_with('-') ? -1 : 1, &count)) Raise(failure::kOverflow);
    }
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
