#include "mrlxmlclass/runtime/Currency.h"

namespace mrlxmlclass {

Currency::Currency(double units, SourceLine where) {
    const double rounded = RoundHalfToEven(units * static_cast<double>(kScale));
    if (!(rounded >= -9223372036854775808.0 && rounded < 9223372036854775808.0)) Raise(failure::kOverflow, where);
    ten_thousandths_ = static_cast<std::int64_t>(rounded);
}

Currency Currency::Sum(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) Raise(failure::kOverflow, SourceLine{});
    return OfTenThousandths(sum);
}

Currency Currency::Difference(std::int64_t a, std::int64_t b) {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a, b, &difference)) Raise(failure::kOverflow, SourceLine{});
    return OfTenThousandths(difference);
}

}  // namespace mrlxmlclass
