#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Failure.h"

/// From the bytes of a file to text and back.
namespace mrlxmlclass::dom {

enum class Encoding {
    Utf8,
    Utf16,  ///< written with the lower byte first, behind a byte order mark
    Latin1,
    Windows1252,
    Unknown,
};

/// What the XML declaration at the start of the text names; Utf8 when it names nothing or there is none.
Encoding DeclaredEncoding(std::string_view text);

struct Decoded {
    String text;
    const char* flaw = nullptr;  ///< what is wrong, in words; null when nothing is
};

/// The text of a file. A byte order mark decides before the declaration does and is left out.
/// The bytes of a UTF-8 file are handed on unchecked.
Decoded Decode(String bytes);

/// The bytes of a file. A character that an 8-bit encoding lacks becomes a numeric reference; Unknown fails (5).
String Encode(String text, Encoding encoding);

}  // namespace mrlxmlclass::dom
