#include "cli/Interruption.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <csignal>
#include <mutex>

namespace veridane::cli {
namespace {

TEST(Interruption, TheFirstSignalRequestsAStop) {
    std::signal(SIGINT, SIG_DFL); // a background job of a script begins with it ignored
    Interruption interruption;
    std::mutex mutex;
    std::condition_variable stopped;
    bool isStopped = false;
    const std::stop_callback onStop(interruption.token(), [&] {
        const std::lock_guard lock(mutex);
        isStopped = true;
        stopped.notify_one();
    });
    EXPECT_FALSE(interruption.token().stop_requested());
    std::raise(SIGINT);
    std::unique_lock lock(mutex);
    stopped.wait(lock, [&] { return isStopped; });
    EXPECT_TRUE(interruption.token().stop_requested());
}

TEST(Interruption, WithoutASignalItEndsByItself) {
    const Interruption interruption;
    EXPECT_FALSE(interruption.token().stop_requested());
}

} // namespace
} // namespace veridane::cli
