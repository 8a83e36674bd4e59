#include "mrlxmlclass/scheduling/Units.h"

#include <algorithm>
#include <iterator>

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {

namespace {

const DurationUnit kOtherUnits[] = {
    {"wks", "ww", Interval::Weeks, true},
    {"hrs", "h", Interval::Hours, false},
    {"mins", "n", Interval::Minutes, false},
    {"mons", "m", Interval::Months, true},
};

}  // namespace

const DurationUnit kDays{"days", "d", Interval::Days, false};

const DurationUnit* UnitNamed(std::string_view name) {
    if (IsDays(name)) return &kDays;
    const auto found = std::ranges::find(kOtherUnits, name, &DurationUnit::name);
    return found != std::end(kOtherUnits) ? found : nullptr;
}

namespace Gloabal {
namespace {

constexpr FailureTail kTail{"Gloabal", FailureTail::Gives::SoFar};

/// The unit that a text's first letters name; nothing when they name none.
std::optional<String> UnitByLetters(std::string_view text) {
    if (text.starts_with('h')) return "hrs";
    if (text.starts_with('d')) return "days";
    if (text.starts_with('w')) return "wks";
    if (text.starts_with("mi")) return "mins";
    if (text.starts_with('m')) return "mons";
    return std::nullopt;
}

}  // namespace

String unitvalid(const String& text) {
    return UnitByLetters(text).value_or("days");
}

String SetTaskUnit(ByRef<String> text, ByRef<Double> value) {
    return kTail.Run<String>("SetTaskUnit", [&](String& result) {
        const std::size_t blank = text->find(' ');
        const bool parted = blank != String::npos;
        const std::size_t number_end = parted ? blank : std::min(text->find_first_not_of("0123456789"), text->size());
        if (parted || number_end > 0) *value = Conversions::StringToDouble(text->substr(0, number_end));
        *text = text->substr(parted ? blank + 1 : number_end);
        // Kept: what no letter matches comes back as it stands, but only from behind a blank.
        result = UnitByLetters(*text).value_or(parted ? *text : String());
    });
}

}  // namespace Gloabal
}  // namespace mrlxmlclass
