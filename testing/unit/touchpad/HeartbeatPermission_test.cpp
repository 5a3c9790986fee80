// The heartbeat's thread without a session: when it may be started, and what its end requires.
#include "touchpad/Heartbeat.h"

#include <chrono>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class HeartbeatPermissionTest : public TouchpadTest {
 protected:
    // Heartbeats are never destroyed: a thread that was started stays joinable.
    vela::Heartbeat& heartbeat_ = *new vela::Heartbeat;
};

TEST_F(HeartbeatPermissionTest, NoneIsStartedBeforeTheFirstSession) {
    heartbeat_.Start([] {});
    EXPECT_THAT(LogOf("HeartbeatThread"), IsEmpty());
}

TEST_F(HeartbeatPermissionTest, NoneIsStartedOnceTheSessionIsClosed) {
    heartbeat_.Permit();
    heartbeat_.Forbid();
    heartbeat_.Start([] {});
    EXPECT_THAT(LogOf("HeartbeatThread"), IsEmpty());
}

TEST_F(HeartbeatPermissionTest, OneIsStartedInTheNextSession) {
    heartbeat_.Permit();
    heartbeat_.Start([] {});
    heartbeat_.Forbid();
    heartbeat_.Start([] {});
    heartbeat_.Permit();
    heartbeat_.Start([] {});
    heartbeat_.Stop();
    ASSERT_TRUE(log_.WaitForLine("HeartbeatThread leaved.", 2));
    EXPECT_THAT(LogOf("HeartbeatThread"), SizeIs(4));
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
