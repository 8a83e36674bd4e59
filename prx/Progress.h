#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace prx {

/// A bar on the error output while a long load runs. It shows itself only on a terminal, and only when a load takes
/// long enough to wonder.
class Progress {
public:
    using Clock = std::chrono::steady_clock;
    /// `now()` tells the time.
    explicit Progress(std::function<Clock::time_point()> now = Clock::now) : now_(std::move(now)) {}

    /// A load starts that will yield about so many times.
    void Begin(std::string what, std::size_t steps);
    void Step();
    void End();
    /// Takes the bar off the line, to print something else there; the next step draws it again.
    void Clear();

    /// The bar at a share from 0 to 1.
    static std::string Bar(double share);

private:
    std::function<Clock::time_point()> now_;
    std::string what_;
    std::size_t steps_ = 0;
    std::size_t done_ = 0;
    bool running_ = false;
    bool drawn_ = false;
    Clock::time_point next_;
};

/// Ends the bar with the load, however it ends.
class ProgressDuring {
public:
    ProgressDuring(Progress& progress, std::string what, std::size_t steps) : progress_(progress) {
        progress_.Begin(std::move(what), steps);
    }
    ~ProgressDuring() { progress_.End(); }
    ProgressDuring(const ProgressDuring&) = delete;
    ProgressDuring& operator=(const ProgressDuring&) = delete;

private:
    Progress& progress_;
};

}  // namespace prx
