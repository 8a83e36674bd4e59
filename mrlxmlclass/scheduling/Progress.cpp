#include "mrlxmlclass/scheduling/Progress.h"

#include "mrlxmlclass/runtime/Tail.h"

namespace mrlxmlclass::Gloabal {
namespace {

constexpr FailureTail kTail{"Gloabal"};
constexpr int kDone = 100;

}  // namespace

Integer AdjustComplte(Double value) {
    return kTail.Run<Integer>("AdjustComplte",
                              [&](Integer& result) { result = value <= kDone ? Integer(value) : Integer(kDone); });
}

}  // namespace mrlxmlclass::Gloabal
