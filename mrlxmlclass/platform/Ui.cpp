#include "mrlxmlclass/platform/Ui.h"

#include "mrlxmlclass/runtime/Tail.h"

namespace mrlxmlclass {

void Ui::YieldToHost() noexcept {
    FailureTail("Ui").Silent().Run("YieldToHost", [&] { DoEvents(); });
}

}  // namespace mrlxmlclass
