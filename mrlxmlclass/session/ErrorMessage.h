#pragma once

#include "mrlxmlclass/session/ErrorsHandler.h"

namespace mrlxmlclass {

/// Shows a message whenever a log records a failure of one class, as long as this object lives. The library makes none:
/// a host that wants its user to hear of failures at once makes one for each class that matters.
class ErrorMessage : public ErrorsHandlerEvents {
public:
    /// Nothing as a log: never shows anything.
    ErrorMessage(Ref<ErrorsHandler> log, String class_label);
    ~ErrorMessage() override;
    ErrorMessage(const ErrorMessage&) = delete;  // the log knows it by its address
    ErrorMessage& operator=(const ErrorMessage&) = delete;

    void RaiseErrors(const String& ClassSource, const String& FunctionSource) override;

private:
    Ref<ErrorsHandler> log_;
    String class_label_;
};

}  // namespace mrlxmlclass
