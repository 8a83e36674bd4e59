#pragma once

#include <utility>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

/// Hands a failure to the error log of this thread. The session floor defines it; with no log there, the
/// failure is swallowed.
void RecordFailure(const Failure& what, const char* class_label, const char* member_label) noexcept;

/// The frame around every member that does real work: whatever goes wrong inside is recorded once, under the labels of
/// the member, and the caller gets an ordinary value. Nothing is ever rethrown.
class FailureTail {
public:
    /// What a member gives after a failure.
    enum class Gives {
        Empty,  ///< the empty value of its type: False, 0, "", nothing
        SoFar,  ///< its result as it stood when the failure came
    };
    static constexpr int kNone = -2;  ///< no number is silent
    static constexpr int kAll = -1;   ///< every failure is silent

    constexpr explicit FailureTail(const char* class_label, Gives gives = Gives::Empty, int silent = kNone)
        : class_label_(class_label), gives_(gives), silent_(silent) {}

    /// The same tail under another class label.
    constexpr FailureTail As(const char* class_label) const { return FailureTail(class_label, gives_, silent_); }
    /// The same tail, recording nothing.
    constexpr FailureTail Silent() const { return FailureTail(class_label_, gives_, kAll); }

    /// Runs `body(result)` and gives its result. A body leaves early by `return;`.
    template <class Result, class Body>
    Result Run(const char* member_label, Body&& body, SourceLine member = SourceLine::Here()) const {
        Result result{};
        try {
            std::forward<Body>(body)(result);
        } catch (...) {
            Report(member_label, member);
            if (gives_ == Gives::Empty) return Result{};
        }
        return result;
    }

    /// The same for a member without a result.
    template <class Body>
    void Run(const char* member_label, Body&& body, SourceLine member = SourceLine::Here()) const {
        try {
            std::forward<Body>(body)();
        } catch (...) {
            Report(member_label, member);
        }
    }

    /// How a walk opens a call: see runtime/Walk.h. The tail must outlive the walk.
    struct Opening {
        const FailureTail* tail = nullptr;
        const char* member_label = nullptr;
        SourceLine member{};
    };
    Opening Begin(const char* member_label, SourceLine member = SourceLine::Here()) const {
        return {this, member_label, member};
    }
    bool gives_empty() const { return gives_ == Gives::Empty; }

    /// Records the exception that is being handled, unless its number is silent here.
    void Report(const char* member_label, SourceLine member) const noexcept;

private:
    const char* class_label_;
    Gives gives_;
    int silent_;
};

}  // namespace mrlxmlclass
