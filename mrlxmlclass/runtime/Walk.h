#pragma once

#include <coroutine>
#include <utility>

#include "mrlxmlclass/runtime/FrameStack.h"
#include "mrlxmlclass/runtime/Tail.h"

namespace mrlxmlclass {

/// The tail of a call that failed before it opened its own.
inline constexpr FailureTail kUnopenedTail{"Walk"};

/// What a suspended call of a walk keeps; the callers form the chain that a stack would.
struct PendingCall {
    std::coroutine_handle<> caller;
    std::coroutine_handle<>* running = nullptr;  ///< the driver's variable: the call to resume next
    FailureTail::Opening opening = kUnopenedTail.Begin("Begin");

    std::suspend_always initial_suspend() noexcept { return {}; }
    void return_void() noexcept {}

    /// A member of an object that has `frames` keeps its calls there.
    template <class Owner, class... Arguments>
    requires requires(Owner& owner) { owner.frames.Take(1); }
    static void* operator new(std::size_t size, Owner& owner, Arguments&&...) { return owner.frames.Take(size); }
    static void* operator new(std::size_t size) { return FrameStack::TakeAlone(size); }
    static void operator delete(void* frame) { FrameStack::GiveBack(frame); }

    struct Return {
        bool await_ready() noexcept { return false; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> done) noexcept {
            *done.promise().running = done.promise().caller;
        }
        void await_resume() noexcept {}
    };
    Return final_suspend() noexcept { return {}; }
};

/// A call that may nest to any depth without using the stack: `co_await` is the call, and each call has its own failure
/// tail. The first statement is `auto& result = co_await kTail.Begin("Label");`, an early exit is `co_return;`.
/// The outermost call is driven by `Run`; a listener may drive another walk inside. A call that is over without waiting
/// for another needs no frame: it may be an ordinary function that gives its result.
///
/// `co_await` stands as a statement, as a whole initialiser or as a right side, never inside `?:`.
template <class Result>
class [[nodiscard]] Walk {
public:
    struct promise_type : PendingCall {
        Result result{};

        Walk get_return_object() { return Walk(std::coroutine_handle<promise_type>::from_promise(*this)); }
        void unhandled_exception() noexcept {
            opening.tail->Report(opening.member_label, opening.member);
            if (opening.tail->gives_empty()) result = Result{};
        }

        struct Opened {
            Result& result;
            bool await_ready() noexcept { return true; }
            void await_suspend(std::coroutine_handle<>) noexcept {}
            Result& await_resume() noexcept { return result; }
        };
        Opened await_transform(FailureTail::Opening opened) noexcept {
            opening = opened;
            return {result};
        }
        template <class Inner>
        Walk<Inner>&& await_transform(Walk<Inner>&& inner) noexcept {
            return std::move(inner);
        }
    };

    /// A call that is over.
    Walk(Result result) : result_(std::move(result)) {}
    Walk(Walk&& other) noexcept : call_(std::exchange(other.call_, nullptr)), result_(std::move(other.result_)) {}
    Walk& operator=(Walk&&) = delete;
    ~Walk() {
        if (call_) call_.destroy();
    }

    bool await_ready() const noexcept { return !call_; }
    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> caller) noexcept {
        PendingCall& callee = call_.promise();
        callee.caller = caller;
        callee.running = caller.promise().running;
        *callee.running = call_;
    }
    Result await_resume() { return call_ ? std::move(call_.promise().result) : std::move(result_); }

    /// Drives the walk to its end.
    Result Run() && {
        if (!call_) return std::move(result_);
        std::coroutine_handle<> running = call_;
        call_.promise().running = &running;
        while (running) running.resume();
        return std::move(call_.promise().result);
    }

private:
    explicit Walk(std::coroutine_handle<promise_type> call) : call_(call) {}

    std::coroutine_handle<promise_type> call_;  ///< none when the call is over
    Result result_{};
};

}  // namespace mrlxmlclass
