// What the watch is notified of, by window or without one, and what that costs.
#include "testing/kit/native/Layouts.h"
#include "testing/unit/watch/WatchTest.h"

namespace watch_tests {

using kit::AllLit;

class NotificationsTest : public WatchTest {
 protected:
    // Returns another HID device: a mouse with one button.
    static simulator::DeviceDescription Mouse() {
        simulator::DeviceDescription mouse;
        mouse.reportDescriptor = {0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x05, 0x09, 0x09, 0x01, 0x15,
                                  0x00, 0x25, 0x01, 0x75, 0x01, 0x95, 0x08, 0x81, 0x02, 0xC0};
        return mouse;
    }
    void RecoverOnce() {
        const auto device = Plug();
        Start().Change(LightAll);
        ASSERT_TRUE(WaitForLights(*device, AllLit()));
        device->Unplug();
        ASSERT_TRUE(kit::WaitUntil([&] { return Events().back() == "lost"; }));
        device->ForgetOutputs();
        device->PlugIn();
        ASSERT_TRUE(WaitForLights(*device, AllLit()));
        device->ForgetOutputs();
        machine_.Resume();
        EXPECT_TRUE(WaitForLights(*device, AllLit()));
    }
};

TEST_F(NotificationsTest, ComeThroughAWindow) {
    RecoverOnce();
    EXPECT_EQ(machine_.CountCalls("CM_Register_Notification"), 0U);
}

TEST_F(NotificationsTest, ComeWithoutAWindowWhereThereIsNone) {
    machine_.FailAlways("CreateWindowExW", Fault::Error(ERROR_ACCESS_DENIED));
    RecoverOnce();
    EXPECT_EQ(machine_.CountCalls("CM_Register_Notification"), 1U);
}

TEST_F(NotificationsTest, ComeWithoutAWindowThatTheSystemDoesNotNotify) {
    machine_.FailAlways("RegisterDeviceNotificationW", Fault::Error(ERROR_ACCESS_DENIED));
    RecoverOnce();
}

TEST_F(NotificationsTest, AreEndedWithTheWatch) {
    machine_.FailAlways("CreateWindowExW", Fault::Error(ERROR_ACCESS_DENIED));
    Start();
    Stop();
    EXPECT_EQ(machine_.CountCalls("CM_Unregister_Notification"), 1U);
    EXPECT_EQ(machine_.CountCalls("PowerUnregisterSuspendResumeNotification"), 1U);
    Plug();  // notifies nobody
}

TEST_F(NotificationsTest, DestroyTheirWindow) {
    Start();
    Stop();
    EXPECT_EQ(machine_.CountCalls("DestroyWindow"), 1U);
}

TEST_F(NotificationsTest, OfOtherDevicesCostNoScan) {
    const auto device = Plug();
    Start().Change(LightAll);
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    std::vector<std::shared_ptr<simulator::Device>> mice;
    machine_.ForgetCalls();
    for (int i = 0; i < 50; ++i) mice.push_back(machine_.Plug(Mouse()));
    // What leaves before it was looked at may have been a touchpad.
    ASSERT_TRUE(machine_.WaitForCalls("HidP_GetCaps", 50));
    for (const auto& mouse : mice) mouse->Unplug();
    // What comes next is handled after all of these.
    device->Unplug();
    ASSERT_TRUE(kit::WaitUntil([&] { return Events().back() == "lost"; }));
    EXPECT_EQ(Scans(), 0U);
}

TEST_F(NotificationsTest, OfOtherDevicesCostNoScanWhileThereIsNoTouchpad) {
    Start().Change(LightAll);
    for (int i = 0; i < 50; ++i) machine_.Plug(Mouse());
    const auto device = Plug();
    ASSERT_TRUE(WaitForLights(*device, AllLit()));
    EXPECT_EQ(Scans(), 2U);  // the first list, and the touchpad's
}

// Every one of them may be the touchpad: each arrival waits for the next.
TEST_F(NotificationsTest, OfManyTouchpadsAtOnceCostOneScan) {
    Start().Change(LightAll);
    const std::size_t before = Scans();
    std::vector<std::shared_ptr<simulator::Device>> devices;
    for (int i = 0; i < 20; ++i) devices.push_back(Plug());
    ASSERT_TRUE(WaitForLights(*devices.front(), AllLit()));
    EXPECT_EQ(Scans() - before, 1U);
}

}  // namespace watch_tests
