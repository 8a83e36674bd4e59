#pragma once

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/session/ErrorsHandler.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass::testing {

/// Whether some session lives whose end would have taken the log along.
inline bool SessionLives() {
    return bool(Module().g_ErrorsHandler);
}

/// Lets go of a session at the first failure that it hears of.
class LettingGo : public ErrorsHandlerEvents {
public:
    explicit LettingGo(Ref<Application>& session) : session_(session) { log_->Events.Add(*this); }
    ~LettingGo() override { log_->Events.Remove(*this); }
    LettingGo(const LettingGo&) = delete;
    LettingGo& operator=(const LettingGo&) = delete;

    void RaiseErrors(const String& /*ClassSource*/, const String& /*FunctionSource*/) override {
        if (!session_) return;
        session_ = {};
        alive_when_told = SessionLives();
    }

    bool alive_when_told = false;  ///< whether it outlived the host's reference to it

private:
    Ref<Application>& session_;
    Ref<ErrorsHandler> log_ = Module().g_ErrorsHandler;
};

}  // namespace mrlxmlclass::testing
