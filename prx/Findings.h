#pragma once

#include <fmt/core.h>

#include <string>
#include <utility>
#include <vector>

namespace prx {

/// What a look for faults finds, a line each, and what is done about it.
class Findings {
public:
    enum class Purpose { kTell, kTellWhatLeadsNowhere, kMend };
    explicit Findings(Purpose purpose) : purpose_(purpose) {}

    bool mends() const { return purpose_ == Purpose::kMend; }
    /// `nowhere`: it is about something that leads to what is not there, and would lead to a new one with that key.
    void Tell(const std::string& fault, const char* mended, bool nowhere = false) {
        if (purpose_ == Purpose::kTellWhatLeadsNowhere && !nowhere) return;
        lines_.push_back(mends() ? fmt::format("{}: {}", fault, mended) : fault);
    }

    std::size_t count() const { return lines_.size(); }
    std::vector<std::string> Take() { return std::move(lines_); }

private:
    Purpose purpose_;
    std::vector<std::string> lines_;
};

}  // namespace prx
