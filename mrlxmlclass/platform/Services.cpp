#include "mrlxmlclass/platform/Services.h"

#include <pthread.h>

#include <atomic>
#include <memory>
#include <utility>

#include "mrlxmlclass/platform/Posix_internal.h"

namespace mrlxmlclass {
namespace {

struct Kept {
    void* object;
    void (*end)(void*);
    Kept* before;
};

constinit thread_local Kept* kept_objects = nullptr;

// What an end keeps anew calls this again: the key has a value once more.
void EndKept(void*) {
    Kept* last = std::exchange(kept_objects, nullptr);
    while (last != nullptr) {
        const std::unique_ptr<Kept> ending(last);
        last = ending->before;
        ending->end(ending->object);
    }
}

constinit std::atomic<bool> thread_key_gone = false;

// The system calls EndKept for every thread whose key has a value. The key goes when the library is unloaded, so that
// threads that end later call nothing that is no longer there; their objects stay behind.
class ThreadKey {
public:
    ThreadKey() : made_(pthread_key_create(&key_, EndKept) == 0) {}
    ~ThreadKey() {
        thread_key_gone = true;
        if (made_) pthread_key_delete(key_);
    }
    ThreadKey(const ThreadKey&) = delete;
    ThreadKey& operator=(const ThreadKey&) = delete;

    void Arm(const void* value) const {
        if (made_) pthread_setspecific(key_, value);
    }

private:
    pthread_key_t key_{};
    bool made_;
};

}  // namespace

Services& SystemServices() {
    struct System {
        Services services{platform::SystemClock(), platform::SystemLocale(), platform::SystemFiles(),
                          platform::SystemShell(), platform::SystemUi()};
    };
    return platform::Lasting<System>().services;
}

constinit thread_local Services* platform::of_thread = nullptr;

Services& platform::TakeSystemServices() {
    of_thread = &SystemServices();
    return *of_thread;
}

InstalledServices::InstalledServices(Services& services) : before_(std::exchange(platform::of_thread, &services)) {}

InstalledServices::~InstalledServices() {
    platform::of_thread = before_;
}

void KeepForThread(void* object, void (*end)(void*)) {
    kept_objects = new Kept{object, end, kept_objects};
    if (thread_key_gone) return;
    static const ThreadKey key;
    key.Arm(kept_objects);
}

}  // namespace mrlxmlclass
