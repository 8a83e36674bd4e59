#include "mrlxmlclass/platform/Locale.h"

#include <atomic>

namespace mrlxmlclass {

std::uint64_t Locale::NewStamp() {
    constinit static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

}  // namespace mrlxmlclass
