#include "mrlxmlclass/session/StaticCls.h"

#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/StaticCls_internal.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"StaticCls", FailureTail::Gives::SoFar};

}  // namespace

Boolean StaticCls::KeyExist(const Ref<Collection>& oCol, const Variant& aKey) {
    return kTail.Run<Boolean>("KeyExist", [&](Boolean& result) {
        if (!oCol) return;
        const KeyText key = aKey.Key();
        for (const auto& entry : oCol->Snapshot()) {
            if (entry.item.Key() == key) {
                result = True;
                return;
            }
        }
    });
}

Integer StaticCls::Internal::NextKey(KeyKind counter) {
    return ++self_.counters_[counter];
}

KeyText StaticCls::Internal::NextKey(KeyKind counter, KeyKind pool) {
    const Ref<Collection> freed = PeekPool(pool);
    if (!freed || freed->Count() == 0) return Long(NextKey(counter));
    const KeyText key = freed->Item(1).Key();
    freed->Remove(1);
    return key;
}

void StaticCls::Internal::RaiseTo(KeyKind counter, Long key) {
    if (key > self_.counters_[counter]) self_.counters_[counter] = Integer(key);
}

Ref<Collection> StaticCls::Internal::Pool(KeyKind kind) {
    Ref<Collection>& pool = self_.pools_[kind];
    if (!pool) pool = Make<Collection>();
    return pool;
}

void StaticCls::Internal::Reset() {
    self_.counters_ = {};
    self_.pools_ = {};
}

}  // namespace mrlxmlclass
