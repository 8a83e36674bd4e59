#pragma once

#include "mrlxmlclass/runtime/Date.h"

namespace mrlxmlclass::testing {

/// A week to write tests with; the clock of the tests stands on its Monday, 2 March 2026.
inline const Date Monday = Date::Of(2026, 3, 2);
inline const Date Tuesday = Monday + 1;
inline const Date Wednesday = Monday + 2;
inline const Date Thursday = Monday + 3;
inline const Date Friday = Monday + 4;
inline const Date Saturday = Monday + 5;
inline const Date Sunday = Monday + 6;
inline const Date NextMonday = Monday + 7;

/// Ten in the morning, as a part of a day.
inline constexpr double kTenOClock = 10.0 / 24;

/// yyyy-mm-dd; "-" for no date.
String DayName(Date day);

}  // namespace mrlxmlclass::testing
