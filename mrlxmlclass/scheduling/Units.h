#pragma once

#include <optional>
#include <string_view>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Date.h"

namespace mrlxmlclass {

/// What nearly every task is measured in.
inline bool IsDays(std::string_view unit) {
    return unit.size() == 4 && unit[0] == 'd' && unit[1] == 'a' && unit[2] == 'y' && unit[3] == 's';
}
/// How far one step of a duration unit goes; nothing for a text that is no unit.
std::optional<Interval> IntervalOf(const String& unit);
/// The letter of the unit's date step: "d", "ww", "h", "n" or "m"; "" for a text that is no unit.
String StepLetterOf(const String& unit);
/// Weeks and months step through the plain calendar: no day is skipped.
bool StepsPlainly(std::string_view unit);

namespace Gloabal {

/// The unit that a loose text means, by its first letters: "days", "wks", "hrs", "mins" or "mons". Case counts.
String unitvalid(const String& text);

/// Splits a typed entry into number and unit, at its first blank or behind its leading digits, and gives the unit's
/// name. A unit text that no letter matches comes back as it stands, or "" where there was no blank.
String SetTaskUnit(ByRef<String> text, ByRef<Double> value);

}  // namespace Gloabal
}  // namespace mrlxmlclass
