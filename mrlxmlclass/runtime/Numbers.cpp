#include "mrlxmlclass/runtime/Numbers.h"

namespace mrlxmlclass {

double RoundHalfToEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

}  // namespace mrlxmlclass
