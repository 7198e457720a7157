// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_SMALLSTACK_HPP
#define QXQRSCRIPT_TESTS_SMALLSTACK_HPP

#include <pthread.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <stdexcept>

// Runs work on a stack of a fixed, small size, as a host's worker thread
// would: whatever recursed deeper than that stack allows would crash there.
namespace SmallStack {

// AddressSanitizer surrounds every local variable with guard zones, which
// makes frames several times larger, the more so without optimisation; its
// builds give the same work a proportionally larger stack, so that they
// check the same depths as the other builds do on the real one.
#if defined(__SANITIZE_ADDRESS__)
#define QXQR_SMALL_STACK_FACTOR 4
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QXQR_SMALL_STACK_FACTOR 4
#endif
#endif
#ifndef QXQR_SMALL_STACK_FACTOR
#define QXQR_SMALL_STACK_FACTOR 1
#endif

// The stack of the worker threads the library is meant to work in.
const std::size_t workerBytes = std::size_t(QXQR_SMALL_STACK_FACTOR) * 256 * 1024;

namespace detail {

struct Job {
    const std::function<void()>* work;
    std::exception_ptr failure;
};

inline void* runJob(void* argument) {
    Job& job = *static_cast<Job*>(argument);
    try {
        (*job.work)();
    } catch (...) {
        job.failure = std::current_exception();
    }
    return nullptr;
}

} // namespace detail

// Runs `work` to its end in a new thread with a stack of `bytes`, and waits
// for it. An exception that leaves `work` is thrown again here.
inline void run(const std::function<void()>& work, std::size_t bytes = workerBytes) {
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0)
        throw std::runtime_error("cannot set up a thread");
    detail::Job job{&work, nullptr};
    pthread_t thread;
    const bool started = pthread_attr_setstacksize(&attributes, bytes) == 0 &&
                         pthread_create(&thread, &attributes, detail::runJob, &job) == 0;
    pthread_attr_destroy(&attributes);
    if (!started)
        throw std::runtime_error("cannot start a thread with that stack");
    pthread_join(thread, nullptr);
    if (job.failure)
        std::rethrow_exception(job.failure);
}

} // namespace SmallStack

#endif
