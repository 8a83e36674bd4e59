#include "mrlxmlclass/runtime/Tail.h"

#include <new>

namespace mrlxmlclass {
namespace {

/// The exception that is being handled, as a failure; one that does not know its line gets the member's.
Failure Handled(SourceLine member) {
    try {
        throw;
    } catch (const Failure& failed) {
        const SourceLine where = failed.where();
        return Failure(failed.number(), failed.description(), where.line != 0 ? where : member);
    } catch (const std::bad_alloc&) {
        return Failure(failure::kOutOfMemory, "Out of memory", member);
    } catch (const std::exception& other) {
        return Failure(failure::kInternal, other.what(), member);
    } catch (...) {
        return Failure(failure::kInternal, "An exception of unknown kind", member);
    }
}

}  // namespace

void FailureTail::Report(const char* member_label, SourceLine member) const noexcept {
    if (silent_ == kAll) return;
    try {
        const Failure what = Handled(member);
        if (what.number() != silent_) RecordFailure(what, class_label_, member_label);
    } catch (...) {
        // Not even the record could be made: it is lost, and the caller still gets an ordinary value.
    }
}

}  // namespace mrlxmlclass
