// The annotated mutex.
#include <gtest/gtest.h>

#include <mutex>

#include "platform/Mutex.h"
#include "testing/unit/platform/KeepsThreadsApart.h"

namespace {

TEST(MutexTest, LetsOneThreadInAtATime) {
    vela::Mutex mutex;
    EXPECT_TRUE(
        platform_test::KeepsThreadsApart([&] { return std::unique_lock<vela::Mutex>(mutex); }));
}

}  // namespace
