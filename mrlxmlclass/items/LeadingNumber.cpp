#include "mrlxmlclass/items/LeadingNumber.h"

#include <charconv>

#include "mrlxmlclass/runtime/Text.h"

namespace mrlxmlclass {

Long LeadingNumber(std::string_view text) {
    text = Trim(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::int32_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc::result_out_of_range) {
        Raise(failure::kOverflow);
    }
    return number;
}

}  // namespace mrlxmlclass
