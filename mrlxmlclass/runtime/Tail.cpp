#include "mrlxmlclass/runtime/Tail.h"

#include <new>

namespace mrlxmlclass {

void FailureTail::Report(const char* member_label, SourceLine member) const noexcept {
    const auto record = [&](int number, const String& description, SourceLine where) {
        if (silent_ == kAll || number == silent_) return;
        RecordFailure(Failure(number, description, where.line != 0 ? where : member), class_label_, member_label);
    };
    try {
        throw;
    } catch (const Failure& failed) {
        record(failed.number(), failed.description(), failed.where());
    } catch (const std::bad_alloc&) {
        record(failure::kOutOfMemory, "Out of memory", {});
    } catch (const std::exception& other) {
        record(failure::kInternal, other.what(), {});
    } catch (...) {
        record(failure::kInternal, "An exception of unknown kind", {});
    }
}

}  // namespace mrlxmlclass
