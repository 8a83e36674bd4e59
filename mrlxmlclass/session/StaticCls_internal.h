#pragma once

#include "mrlxmlclass/runtime/In.h"
#include "mrlxmlclass/session/StaticCls.h"

namespace mrlxmlclass {

/// What the library alone does with the counters and pools.
class StaticCls::Internal {
public:
    explicit Internal(StaticCls& self) : self_(self) {}

    static constexpr Kind Task = kTask;
    static constexpr Kind Person = kPerson;
    static constexpr Kind Goal = kGoal;
    static constexpr Kind Calendar = kCalendar;
    static constexpr Kind GoalRelation = kGoalRelation;
    static constexpr Kind AssigmentRelation = kAssigmentRelation;
    static constexpr Kind ObstacleRelation = kObstacleRelation;
    static constexpr Kind Note = kNote;
    static constexpr Kind Obstacle = kObstacle;
    static constexpr Kind NoteRelation = kNoteRelation;

    using KeyKind = Kind;

    Integer Counter(KeyKind kind) const { return self_.counters_[kind]; }
    void Counter(KeyKind kind, Integer value) { self_.counters_[kind] = value; }

    /// The next key of a counter; past 32767 it fails (6).
    Integer NextKey(KeyKind counter);
    /// The first key of a pool, taken out of it as it was freed; the counter's next when the pool has none.
    KeyText NextKey(KeyKind counter, KeyKind pool);
    /// After reading a key from a file: no later key collides with it. A key past 32767 fails (6).
    void RaiseTo(KeyKind counter, Long key);

    /// The pool, made at first use.
    Ref<Collection> Pool(KeyKind kind);
    /// The pool, nothing when it was never used.
    Ref<Collection> PeekPool(KeyKind kind) const { return self_.pools_[kind]; }
    /// Puts a freed key into a pool; one that is there already fails (457).
    void Free(KeyKind pool, const KeyText& key) { Pool(pool)->Add(key.text(), key); }
    bool IsFree(KeyKind pool, const KeyText& key) const { return PeekPool(pool) && PeekPool(pool)->Has(key); }

    /// All counters to 0, no pools: a new project starts at key 1.
    void Reset();

private:
    StaticCls& self_;
};

}  // namespace mrlxmlclass
