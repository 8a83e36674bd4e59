#pragma once

#include <string>
#include <string_view>
#include <vector>

/// JSON for programs: text is escaped, and nothing that JSON cannot hold gets in.
namespace prx::json {

/// A text with its quotes.
std::string Quote(std::string_view text);
/// null for what is no finite number.
std::string Number(double number);
/// A key: a number where it is one as JSON writes it, else a text.
std::string Key(std::string_view key);
inline std::string Flag(bool value) {
    return value ? "true" : "false";
}
/// Members in the order in which they come; values are JSON already.
class Object {
public:
    Object& Add(std::string_view name, std::string_view value);
    /// In one line.
    std::string Text() const { return "{" + members_ + "}"; }

private:
    std::string members_;
};
/// Values that are JSON already, in one line.
std::string Array(const std::vector<std::string>& values);
/// The same, a line each.
std::string Lines(const std::vector<std::string>& values);

}  // namespace prx::json
