#include "mrlxmlclass/session/ErrorMessage.h"

#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass {

void ErrorMessage::RaiseErrors(const String& ClassSource, const String& FunctionSource) {
    if (log_->RaisedBy() != class_label_) return;
    Platform().ui.Message("Error in: " + FunctionSource + " of Class: " + ClassSource + " see: " + log_->ErrFileName() +
                          " for detail");
}

}  // namespace mrlxmlclass
