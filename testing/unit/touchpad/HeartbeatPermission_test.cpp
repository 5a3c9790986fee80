// The heartbeat's thread without a session: when it may be started, and what its end requires.
#include "touchpad/Heartbeat.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "testing/kit/native/AgentLog.h"

namespace kit {
namespace {

using testing::SizeIs;

class HeartbeatPermissionTest : public testing::Test {
 protected:
    AgentLog log_;
};

// Destroyed with a thread that was started, the heartbeat would end the process.
TEST_F(HeartbeatPermissionTest, NoneIsStartedBeforeTheFirstSession) {
    vela::Heartbeat heartbeat;
    heartbeat.Start([] {});
}

TEST_F(HeartbeatPermissionTest, NoneIsStartedOnceTheSessionIsClosed) {
    vela::Heartbeat heartbeat;
    heartbeat.Permit();
    heartbeat.Forbid();
    heartbeat.Start([] {});
}

TEST_F(HeartbeatPermissionTest, OneIsStartedInTheNextSession) {
    // Never destroyed, as its thread stays joinable.
    static auto& heartbeat = *new vela::Heartbeat;
    heartbeat.Permit();
    heartbeat.Start([] {});
    heartbeat.Forbid();
    heartbeat.Start([] {});
    heartbeat.Permit();
    heartbeat.Start([] {});
    heartbeat.Stop();
    ASSERT_TRUE(log_.WaitForLine("HeartbeatThread leaved.", 2));
    EXPECT_THAT(log_.TextsOf("HeartbeatThread"), SizeIs(4));
}

// The condition variable, whose destructor may wait for the thread, is not destroyed before that.
TEST_F(HeartbeatPermissionTest, DestroyedWhileItWaitsItEndsTheProcessAtOnce) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            const AgentLog log;
            vela::Heartbeat heartbeat;
            heartbeat.Permit();
            heartbeat.Start([] {});
            log.WaitForLine("HeartbeatThread created.");
            // Gives the thread the time to begin waiting.
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        },
        "");
}

}  // namespace
}  // namespace kit
