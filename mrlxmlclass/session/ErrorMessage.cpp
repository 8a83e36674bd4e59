#include "mrlxmlclass/session/ErrorMessage.h"

#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass {

ErrorMessage::ErrorMessage(Ref<ErrorsHandler> log, String class_label)
    : log_(std::move(log)), class_label_(std::move(class_label)) {
    if (log_) log_->Events.Add(*this);
}

ErrorMessage::~ErrorMessage() {
    if (log_) log_->Events.Remove(*this);
}

void ErrorMessage::RaiseErrors(const String& ClassSource, const String& FunctionSource) {
    if (log_->RaisedBy() != class_label_) return;
    Platform().ui.Message("Error in: " + FunctionSource + " of Class: " + ClassSource + " see: " + log_->ErrFileName() +
                          " for detail");
}

}  // namespace mrlxmlclass
