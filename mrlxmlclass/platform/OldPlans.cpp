#include "mrlxmlclass/platform/OldPlans.h"

namespace mrlxmlclass {

OldPlans& NoOldPlans() {
    class None : public OldPlans {
    public:
        Ref<ProgressBar> NewProgressBar() override { Raise(failure::kCannotCreate); }
        Ref<OldProject> NewProject() override { Raise(failure::kCannotCreate); }
    };
    static None none;
    return none;
}

}  // namespace mrlxmlclass
