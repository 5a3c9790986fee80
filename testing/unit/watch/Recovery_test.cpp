// The touchpad goes and comes back, and the watch with it.
#include "testing/unit/watch/WatchTest.h"

namespace watch_tests {

using kit::AllLit;
using kit::BlankReport;
using kit::LightReport;

class RecoveryTest : public WatchTest {
 protected:
    bool IsNotified(const std::string& event) {
        return kit::WaitUntil([&] { return !Events().empty() && Events().back() == event; });
    }
};

TEST_F(RecoveryTest, LightsATouchpadThatIsThereAtFirst) {
    const auto device = Plug();
    Start().Change(LightAll);
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
}

TEST_F(RecoveryTest, LightsATouchpadThatArrives) {
    Watch& watch = Start();
    watch.Change(LightAll);
    EXPECT_FALSE(watch.IsOpen());
    const auto device = Plug();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
    EXPECT_TRUE(IsNotified("found"));
    EXPECT_TRUE(watch.IsOpen());
}

TEST_F(RecoveryTest, LightsATouchpadThatComesBack) {
    const auto device = Plug();
    Watch& watch = Start();
    watch.Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->Unplug();
    ASSERT_TRUE(IsNotified("lost"));
    EXPECT_FALSE(watch.IsOpen());
    device->ForgetOutputs();
    device->PlugIn();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
    EXPECT_TRUE(IsNotified("found"));
}

TEST_F(RecoveryTest, ShowsWhatPressesToggledBefore) {
    const auto device = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->SendInput(kit::InputReport({0x41}));
    const Bytes cameraOn =
        LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active");
    ASSERT_TRUE(WaitForLights(*device, cameraOn));
    device->Unplug();
    ASSERT_TRUE(IsNotified("lost"));
    const auto other = Plug();
    EXPECT_TRUE(WaitForLights(*other, cameraOn));
}

TEST_F(RecoveryTest, ShowsWhatTheHostSetWhileItWasAway) {
    const auto device = Plug();
    Watch& watch = Start();
    watch.Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->Unplug();
    ASSERT_TRUE(IsNotified("lost"));
    watch.Change([](Settings& settings) { settings.brightness = 200; });
    device->PlugIn();
    EXPECT_TRUE(WaitForLights(*device, kit::AllLitAt(200)));
}

TEST_F(RecoveryTest, OpensAgainAfterAResume) {
    const auto device = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->ForgetOutputs();
    machine_.Resume();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
    EXPECT_THAT(Events(), testing::Not(testing::Contains("lost")));
}

// Nobody has touched the handle yet when the same touchpad is there again.
TEST_F(RecoveryTest, NoticesATouchpadThatLeftOnlyForAMoment) {
    const auto device = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->Unplug();
    device->ForgetOutputs();
    device->PlugIn();
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
}

TEST_F(RecoveryTest, ChangesToTheOtherTouchpadWhenItsOwnLeaves) {
    const auto device = Plug();
    const auto other = Plug();
    Watch& watch = Start();
    watch.Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->Unplug();
    EXPECT_TRUE(WaitForLights(*other, AllLit()));
    EXPECT_TRUE(kit::WaitUntil([&] { return watch.IsOpen(); }));
}

TEST_F(RecoveryTest, KeepsItsTouchpadWhenTheOtherLeaves) {
    const auto device = Plug();
    const auto other = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    const std::vector<std::string> before = machine_.OpenHandles();
    other->Unplug();
    ASSERT_TRUE(kit::WaitUntil([&] { return machine_.OpenHandles() != before; }));
    EXPECT_TRUE(WaitForLights(*device, AllLit()));
}

TEST_F(RecoveryTest, LightsATouchpadOfAnotherLayout) {
    const auto device = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    device->Unplug();
    ASSERT_TRUE(IsNotified("lost"));
    kit::TouchpadLayout layout;
    layout.missingLightUsages = {0x24};
    const auto other = Plug(layout);
    EXPECT_TRUE(WaitForLights(
        *other, LightReport("camera off 3, microphone off 3, share screen 3; all active")));
}

TEST_F(RecoveryTest, LeavesNoLightAndNoHandle) {
    const auto device = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    Stop();
    EXPECT_EQ(LastLights(*device), BlankReport());
    EXPECT_EQ(device->OpenHandles(), 0U);
    EXPECT_THAT(machine_.Misuse(), testing::IsEmpty());
}

}  // namespace watch_tests
