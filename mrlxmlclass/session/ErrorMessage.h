#pragma once

#include "mrlxmlclass/session/ErrorsHandler.h"

namespace mrlxmlclass {

/// Shows a message when a failure of one class is recorded. The library subscribes none: a host that wants its user to
/// hear of failures at once makes one for each class that matters and adds it to the shared log's `Events`.
class ErrorMessage : public ErrorsHandlerEvents {
public:
    ErrorMessage(Ref<ErrorsHandler> log, String class_label)
        : log_(std::move(log)), class_label_(std::move(class_label)) {}

    void RaiseErrors(const String& ClassSource, const String& FunctionSource) override;

private:
    Ref<ErrorsHandler> log_;
    String class_label_;
};

}  // namespace mrlxmlclass
