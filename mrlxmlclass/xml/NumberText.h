#pragma once

#include <optional>
#include <string_view>

#include "mrlxmlclass/platform/Locale.h"
#include "mrlxmlclass/runtime/Currency.h"

namespace mrlxmlclass {

/// A number as a person writes it under a locale, brought to the plain form "-1234.5e6"; nothing when it is none.
std::optional<String> PlainNumber(std::string_view text, const LocaleSettings& locale);

/// The value of a plain form; out of range fails (6).
Double PlainToDouble(std::string_view plain);
Currency PlainToCurrency(std::string_view plain);

/// Up to 15 digits, as short as can be, with the decimal separator given.
String DoubleText(Double value, std::string_view decimal);
String CurrencyText(Currency value, std::string_view decimal);

}  // namespace mrlxmlclass
