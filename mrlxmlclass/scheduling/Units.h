#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Date.h"

namespace mrlxmlclass {

/// What durations are measured in.
struct DurationUnit {
    String name;
    String letter;      ///< of its date step: "d", "ww", "h", "n" or "m"
    Interval interval;  ///< how far one step goes
    bool plain;         ///< steps through the plain calendar: no day is skipped
};

/// A task without children lasts so many units at most.
inline constexpr int kMostUnits = 999;

/// What nearly every task is measured in.
extern const DurationUnit kDays;
inline bool IsDays(std::string_view unit) {
    return unit == "days";
}
/// The unit of that name, which stands as long as the program; nothing for a text that is no unit.
const DurationUnit* UnitNamed(std::string_view name);

namespace Gloabal {

/// The unit that a loose text means, by its first letters: "days", "wks", "hrs", "mins" or "mons". Case counts.
String unitvalid(const String& text);

/// Splits a typed entry into number and unit, at its first blank or behind its leading digits, and gives the unit's
/// name. A unit text that no letter matches comes back as it stands, or "" where there was no blank.
String SetTaskUnit(ByRef<String> text, ByRef<Double> value);

}  // namespace Gloabal
}  // namespace mrlxmlclass
