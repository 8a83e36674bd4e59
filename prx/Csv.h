#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace prx {

/// A row of a table of comma-separated values, with the line on which it starts.
struct CsvRow {
    std::size_t line;
    std::vector<std::string> fields;
};

/// Reads such a table (RFC 4180: fields may be quoted, a quote inside is doubled, a quoted field may hold commas and
/// line breaks); empty lines and rows of empty fields are passed by. Refuses, by line, what is none.
std::vector<CsvRow> ReadCsv(std::string_view text);

}  // namespace prx
