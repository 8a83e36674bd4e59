#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace mrlxmlclass {

/// Tells listeners what happens, in the order in which they came. A listener may come or go while an event is being
/// raised: one that left hears nothing more, one that came hears from the next event on.
template <class Listener>
class EventSource {
public:
    EventSource() = default;
    EventSource(const EventSource&) = delete;  // listeners belong to one object
    EventSource& operator=(const EventSource&) = delete;

    void Add(Listener& listener) { listeners_.push_back(&listener); }

    void Remove(Listener& listener) {
        const auto found = std::find(listeners_.begin(), listeners_.end(), &listener);
        if (found == listeners_.end()) return;
        if (raising_ == 0) {
            listeners_.erase(found);
        } else {
            *found = nullptr;  // compacted when the outermost raise ends
            ++left_;
        }
    }

    template <class... Parameters, class... Arguments>
    void Raise(void (Listener::*event)(Parameters...), const Arguments&... arguments) {
        const Raising raising(*this);
        const std::size_t count = listeners_.size();
        for (std::size_t i = 0; i < count; ++i) {
            if (Listener* listener = listeners_[i]) (listener->*event)(arguments...);
        }
    }

private:
    struct Raising {
        explicit Raising(EventSource& source) : source_(source) { ++source_.raising_; }
        ~Raising() {
            if (--source_.raising_ == 0 && source_.left_ > 0) source_.Compact();
        }
        Raising(const Raising&) = delete;
        Raising& operator=(const Raising&) = delete;
        EventSource& source_;
    };

    void Compact() {
        std::erase(listeners_, nullptr);
        left_ = 0;
    }

    std::vector<Listener*> listeners_;
    int raising_ = 0;
    int left_ = 0;  ///< of the listeners, while an event is being raised
};

}  // namespace mrlxmlclass
