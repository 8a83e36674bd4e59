#include "mrlxmlclass/session/ErrorsHandler.h"

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Tail.h"
#include "mrlxmlclass/session/ErrorsCls.h"
#include "mrlxmlclass/session/ModuleState.h"
#include "mrlxmlclass/xml/Conversions.h"

namespace mrlxmlclass {
namespace {

constexpr FailureTail kTail{"ErrorsHandler", FailureTail::Gives::SoFar};
constexpr const char* kGenre = "Run Time Error in version 4.0.9, date:05-23-08";

String Now() {
    return Conversions::DateToString(Platform().clock.Now());
}

void Tell(int number, const String& description) {
    Platform().ui.Message("Error " + std::to_string(number) + " (" + description + " at time " + Now() +
                          ") in procedure GetErrors of Class Module ErrorsHandler");
}

}  // namespace

ErrorsHandler::ErrorsHandler()
    : log_(Make<ErrorsCls>()), ErrFileName_(Platform().files.ProgramFolder() + "/SendToSupport.xml") {}

ErrorsHandler::~ErrorsHandler() {
    // Kept: written even without an entry, so that every run leaves its file.
    kTail.Silent().Run("Terminate", [&] { log_->ToXmlFile(ErrFileName_); });
}

Boolean ErrorsHandler::GetErrors(const String& ErrDescription, const String& ErrNumber, const String& ClassSource,
                                 const String& FunctionSource) {
    const Ref<ErrorsHandler> self(this);  // a listener may let go of it
    return kTail.Silent().Run<Boolean>("GetErrors", [&](Boolean& result) {
        // This tail cannot record in the log that just failed, so it speaks to the user instead.
        try {
            Record(ErrDescription, ErrNumber, ClassSource, FunctionSource);
            result = True;
        } catch (const Failure& failed) {
            Tell(failed.number(), failed.description());
        } catch (const std::exception& other) {
            Tell(failure::kInternal, other.what());
        } catch (...) {
            Tell(failure::kInternal, "An exception of unknown kind");
        }
    });
}

void ErrorsHandler::Record(const String& ErrDescription, const String& ErrNumber, const String& ClassSource,
                           const String& FunctionSource) {
    RaisedBy_ = ClassSource;
    ErrorEntry entry = log_->Error_Col()->Add();
    entry.ClassSource(ClassSource);
    entry.ErrDescription(ErrDescription + " at time " + Now());
    entry.FunctionSource(FunctionSource);
    entry.genre(kGenre);
    entry.ID(ErrNumber);
    log_->ToXmlFile(ErrFileName_);
    Events.Raise(&ErrorsHandlerEvents::RaiseErrors, ClassSource, FunctionSource);
}

void RecordFailure(const Failure& what, const char* class_label, const char* member_label) noexcept {
    kTail.Silent().Run("RecordFailure", [&] {
        const Ref<ErrorsHandler> handler = Module().g_ErrorsHandler;
        if (!handler) return;
        handler->GetErrors(what.description() + ",Line: " + std::to_string(what.where().line),
                           std::to_string(what.number()), class_label, member_label);
    });
}

}  // namespace mrlxmlclass
