#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Failure.h"

/// The characters of XML 1.0 in UTF-8.
namespace mrlxmlclass::dom {

/// What NextCharacter gives for bytes that are no character.
inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// The character at `at`, which moves behind it. Bytes that are no UTF-8 give kNoCharacter and are passed one by one.
char32_t NextCharacter(std::string_view text, std::size_t& at);
void AppendCharacter(String& text, char32_t character);

/// Whether a document may hold the character at all.
bool IsAllowed(char32_t character);
/// The offset of the first thing that a document may not hold: an invalid byte, a control character, a surrogate;
/// npos when the text is clean.
std::size_t FirstForbidden(std::string_view text);
/// The text as a document holds it: line ends are line feeds, and whatever it may not hold is left out.
String Cleaned(std::string_view text);

/// Whether the text can name an element or an attribute. A colon stands between a prefix and what can be a name without
/// it, since such a name is what a document is read and written by.
bool IsName(std::string_view text);

}  // namespace mrlxmlclass::dom
