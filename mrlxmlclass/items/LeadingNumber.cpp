#include "mrlxmlclass/items/LeadingNumber.h"

#include <charconv>

#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass {
namespace {

/// Reads the number with which a text begins, 0 where there is none; false beyond a Long.
bool ReadLeading(std::string_view text, std::int32_t& number) {
    text = Trim(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec != std::errc::result_out_of_range;
}

}  // namespace

Long LeadingNumber(std::string_view text) {
    std::int32_t number = 0;
    if (!ReadLeading(text, number)) Raise(failure::kOverflow);
    return number;
}

bool LeadsWithNothing(std::string_view text) {
    std::int32_t number = 0;
    return ReadLeading(text, number) && number == 0;
}

}  // namespace mrlxmlclass
