#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace mrlxmlclass::testing {

/// Ends the test program when what follows takes longer: a hang shows as a failed test, with the name of its case.
class TimeLimit {
public:
    explicit TimeLimit(const char* what, std::chrono::seconds limit = std::chrono::seconds(60))
        : watch_([this, what, limit] {
              std::unique_lock lock(mutex_);
              if (ended_.wait_for(lock, limit, [this] { return over_; })) return;
              std::fprintf(stderr, "still running after its time: %s\n", what);
              std::abort();
          }) {}
    ~TimeLimit() {
        {
            const std::lock_guard lock(mutex_);
            over_ = true;
        }
        ended_.notify_one();
        watch_.join();
    }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

private:
    std::mutex mutex_;
    std::condition_variable ended_;
    bool over_ = false;
    std::thread watch_;  // last: it uses all the others
};

}  // namespace mrlxmlclass::testing
