#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {
namespace {

const char* DescriptionOf(int number) {
    switch (number) {
        case failure::kUnknownKey:
            return "There is no such key, or the argument makes no sense";
        case failure::kOverflow:
            return "The value is out of range";
        case failure::kOutOfMemory:
            return "Out of memory";
        case failure::kIndexOutOfRange:
            return "The index is out of range";
        case failure::kTypeMismatch:
            return "The value is not of the type that is needed";
        case failure::kEndlessWalk:
            return "The walk would not end";
        case failure::kFileNotFound:
            return "The file was not found";
        case failure::kDeviceFailure:
            return "The file could not be read or written";
        case failure::kPermissionDenied:
            return "Permission denied";
        case failure::kPathAccess:
            return "The path cannot be used as a file";
        case failure::kPathNotFound:
            return "The folder was not found";
        case failure::kNothing:
            return "The object is not set";
        case failure::kCannotCreate:
            return "The component cannot be created";
        case failure::kDuplicateKey:
            return "The key is there already";
        default:
            return "Failure";
    }
}

}  // namespace

void Raise(int number, SourceLine where) {
    throw Failure(number, DescriptionOf(number), where);
}

void Raise(int number, String description, SourceLine where) {
    throw Failure(number, std::move(description), where);
}

}  // namespace mrlxmlclass
