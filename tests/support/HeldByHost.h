#pragma once

#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "tests/support/TestPlatform.h"

namespace mrlxmlclass::testing {

/// An object that a host alone holds, and lets go of at the first yield, failure or message that it hears of:
///
///     HeldByHost<TasksCol> tasks(platform);
///     tasks->FromXml(text, {});
///     EXPECT_TRUE(tasks.outlived());
template <class T>
class HeldByHost : public ErrorsHandlerEvents {
public:
    explicit HeldByHost(TestPlatform& platform) : platform_(platform) {
        platform_.ui.on_yield = [this] { LetGo(); };
        log_->Events.Add(*this);
    }
    ~HeldByHost() override {
        platform_.ui.on_yield = nullptr;
        log_->Events.Remove(*this);
    }
    HeldByHost(const HeldByHost&) = delete;
    HeldByHost& operator=(const HeldByHost&) = delete;

    /// Not by way of a reference: that would hold it, too.
    T* operator->() const { return object_.get(); }
    T& operator*() const { return *object_; }
    void LetGo() {
        if (!object_) return;
        object_ = {};
        outlived_ = alive_;
    }
    void RaiseErrors(const String& /*ClassSource*/, const String& /*FunctionSource*/) override { LetGo(); }

    /// Whether it was let go of, went on to live, and is gone now.
    bool outlived() const { return outlived_ && !alive_; }

private:
    struct Watched : T {
        explicit Watched(bool& alive) : alive_(alive) {}
        ~Watched() override { alive_ = false; }
        bool& alive_;
    };

    TestPlatform& platform_;
    Ref<ErrorsHandler> log_ = Module().g_ErrorsHandler;
    bool alive_ = true;
    bool outlived_ = false;
    Ref<T> object_{new Watched(alive_)};
};

}  // namespace mrlxmlclass::testing
