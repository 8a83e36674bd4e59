#include "prx/Progress.h"

#include <fmt/core.h>

#include <algorithm>

#include "prx/Terminal.h"

namespace prx {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 300ms;  // a shorter load shows no bar
constexpr auto kRedraw = 50ms;
constexpr double kCells = 30;

}  // namespace

void Progress::Begin(std::string what, std::size_t steps) {
    if (!ErrorsGoToTerminal()) return;
    what_ = std::move(what);
    steps_ = std::max<std::size_t>(steps, 1);
    done_ = 0;
    running_ = true;
    next_ = now_() + kPatience;
}

void Progress::Step() {
    if (!running_) return;
    ++done_;
    const auto now = now_();
    if (now < next_) return;
    next_ = now + kRedraw;
    const double share = std::min(1.0, static_cast<double>(done_) / static_cast<double>(steps_));
    fmt::print(stderr, "\r{} {} {:3.0f}%", what_, Bar(share), share * 100);
    std::fflush(stderr);
    drawn_ = true;
}

void Progress::End() {
    Clear();
    running_ = false;
}

void Progress::Clear() {
    if (!drawn_) return;
    fmt::print(stderr, "\r\033[K");
    std::fflush(stderr);
    drawn_ = false;
}

std::string Progress::Bar(double share) {
    const auto full = static_cast<std::size_t>(share * kCells);
    return "[" + std::string(full, '#') + std::string(static_cast<std::size_t>(kCells) - full, '.') + "]";
}

}  // namespace prx
