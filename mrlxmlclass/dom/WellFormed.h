#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass::dom {

/// What a look over the source of a document tells.
struct SourceCheck {
    const char* flaw = nullptr;  ///< what is wrong, in words; null when the source is well-formed
    std::size_t place = 0;       ///< the offset of what is wrong
    /// Blank text stands beside a comment, an instruction or a CDATA section somewhere, so that only the tree can tell
    /// whether it is data.
    bool blanks_beside_marks = false;
};

/// Checks all that makes a UTF-8 source well-formed, in one pass and at any depth. Of entities only the five predefined
/// ones are known, whatever a document type declares.
SourceCheck CheckWellFormed(const String& source);

/// The place of an offset as a reader of the file counts: "line 3, column 14", both from 1, columns in bytes.
String PlaceInWords(std::string_view source, std::size_t offset);

}  // namespace mrlxmlclass::dom
