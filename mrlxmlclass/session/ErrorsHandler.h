#pragma once

#include "mrlxmlclass/runtime/EventSource.h"
#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

class ErrorsCls;

/// What `ErrorsHandler` tells its listeners.
class ErrorsHandlerEvents {
public:
    virtual ~ErrorsHandlerEvents() = default;
    /// A failure was recorded and stands in the error file already.
    virtual void RaiseErrors(const String& /*ClassSource*/, const String& /*FunctionSource*/) {}
};

/// The one recorder of failures, shared by all sessions of a thread. Its file is what a user sends to support; it is
/// brought up to date at every failure and once more at the end.
class ErrorsHandler : public Counted {
public:
    ErrorsHandler();
    ~ErrorsHandler() override;

    /// Path of the error file; at first SendToSupport.xml in the program's folder.
    String ErrFileName() const { return ErrFileName_; }
    void ErrFileName(const String& path) { ErrFileName_ = path; }
    /// Class label of the latest failure.
    String RaisedBy() const { return RaisedBy_; }
    void RaisedBy(const String& class_label) { RaisedBy_ = class_label; }

    /// Records one failure: adds the entry, writes the file, then raises `RaiseErrors`. When the file cannot be written
    /// a message says so, the event is not raised and the result is False.
    Boolean GetErrors(const String& ErrDescription, const String& ErrNumber, const String& ClassSource,
                      const String& FunctionSource);

    /// The log itself, to read what was recorded.
    Ref<ErrorsCls> Log() const { return log_; }

    EventSource<ErrorsHandlerEvents> Events;

private:
    void Record(const String& ErrDescription, const String& ErrNumber, const String& ClassSource,
                const String& FunctionSource);

    Ref<ErrorsCls> log_;
    String ErrFileName_;
    String RaisedBy_;
};

}  // namespace mrlxmlclass
