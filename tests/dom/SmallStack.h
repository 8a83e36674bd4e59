#pragma once

#include <pthread.h>

#include <cstdlib>
#include <functional>

namespace mrlxmlclass::dom {

/// Runs something on a stack of 1 MiB, or as told, where a recursion as deep as a document would end the program.
inline void OnSmallStack(std::function<void()> body, std::size_t bytes = std::size_t{1} << 20U) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, bytes);
    pthread_t thread{};
    const auto run = [](void* what) -> void* {
        (*static_cast<std::function<void()>*>(what))();
        return nullptr;
    };
    if (pthread_create(&thread, &attributes, run, &body) != 0) std::abort();
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

}  // namespace mrlxmlclass::dom
