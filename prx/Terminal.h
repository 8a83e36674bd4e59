#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace prx {

/// Whether somebody watches the error output.
bool ErrorsGoToTerminal();

/// The columns of the terminal that the output goes to, 80 at least; 80 where it goes elsewhere.
std::size_t OutputWidth();

/// The columns that a text takes on a terminal.
std::size_t Width(std::string_view text);
/// The text padded with blanks to `width` columns.
std::string PadRight(std::string_view text, std::size_t width);
std::string PadLeft(std::string_view text, std::size_t width);
/// As much of the text as fits into `width` columns, with "..." for what does not.
std::string CutTo(std::string_view text, std::size_t width);
/// The text in one line, without characters that would steer the terminal.
std::string Plain(std::string_view text);

}  // namespace prx
