// Finding, opening and closing a haptic touchpad.
#include "testing/acceptance/HapticTest.h"
#include "testing/virtual-touchpad/control/WaitingCreateFile.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using virtual_touchpad::TouchpadLayout;

constexpr char kOpened[] =
    "{INFO @ Initialize} ================= CHapticTouchpadHID initialize succeeded "
    "=================";
constexpr char kClosed[] = "{INFO @ Uninitialize} CHapticTouchpadHID Uninitialize succeeded.";
constexpr char kNoIntensity[] =
    "{WARNING @ Initialize} GetValueCaps for HidP_Feature, USAGE_INTENSITY failed";

class HapticPresenceTest : public HapticTest {
 protected:
    bool WaitForOpens(std::uint32_t count) {
        return Device().WaitForState(
            [count](const VirtualHidState& state) { return state.otherOpens == count; },
            std::chrono::seconds(10));
    }
};

TEST_F(HapticPresenceTest, ComesAndGoesWithTheDeviceAndOpensNothing) {
    EXPECT_EQ(agent_.IsHapticTPPresent(), 0);
    Plug();
    EXPECT_EQ(agent_.IsHapticTPPresent(), 1);
    EXPECT_TRUE(WaitForOpens(0));
    Unplug();
    EXPECT_EQ(agent_.IsHapticTPPresent(), 0);
}

TEST_F(HapticPresenceTest, AButtonTouchpadIsNone) {
    virtual_touchpad::Plug(TouchpadLayout{});
    EXPECT_EQ(agent_.IsHapticTPPresent(), 0);
    EXPECT_EQ(agent_.InitHapticTP(), 0);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
}

TEST_F(HapticPresenceTest, AHapticTouchpadHasNoButtons) {
    Plug();
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
}

TEST_F(HapticPresenceTest, AnyVendorsIsTaken) {
    HapticLayout layout;
    layout.vendorId = 0x0001;
    Plug({}, layout);
    EXPECT_EQ(agent_.IsHapticTPPresent(), 1);
    EXPECT_EQ(agent_.InitHapticTP(), 1);
}

TEST_F(HapticPresenceTest, EveryCallWithoutASessionFailsAndOnlyTheOpeningLogsIt) {
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 0U);
    EXPECT_EQ(agent_.SetHapticTPIntensityLevel(50), 0);
    EXPECT_EQ(agent_.UnInitHapticTP(), 0);
    EXPECT_EQ(agent_.InitHapticTP(), 0);
    EXPECT_THAT(SessionLines(), ElementsAre(kNoIntensity));
}

TEST_F(HapticPresenceTest, OneWithoutIntensityIsPresentButNotOpened) {
    HapticLayout layout;
    layout.hasIntensity = false;
    Plug({}, layout);
    EXPECT_EQ(agent_.IsHapticTPPresent(), 1);
    EXPECT_EQ(agent_.InitHapticTP(), 0);
    EXPECT_THAT(SessionLines(), ElementsAre(kNoIntensity));
}

TEST_F(HapticPresenceTest, ASecondOpeningOpensNothingAndOneClosingCloses) {
    Plug();
    EXPECT_EQ(agent_.InitHapticTP(), 1);
    EXPECT_EQ(agent_.InitHapticTP(), 1);
    EXPECT_TRUE(WaitForOpens(1));
    EXPECT_EQ(agent_.UnInitHapticTP(), 1);
    EXPECT_TRUE(WaitForOpens(0));
    EXPECT_EQ(agent_.UnInitHapticTP(), 0);
    EXPECT_THAT(SessionLines(), ElementsAre(kOpened,
                                            "{INFO @ Initialize} Re-initialize, return succeeded "
                                            "immediately.",
                                            kClosed));
}

TEST_F(HapticPresenceTest, OpenedAndClosedTwentyTimes) {
    Plug();
    for (int round = 0; round < 20; ++round) {
        ASSERT_EQ(agent_.InitHapticTP(), 1);
        EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 42U);
        EXPECT_EQ(agent_.UnInitHapticTP(), 1);
    }
    EXPECT_TRUE(WaitForOpens(0));
}

// The system opens precision touchpads in this way. The agent requests neither read nor write
// access, and such an open conflicts with nobody.
TEST_F(HapticPresenceTest, SomebodysExclusiveOpenOfItsInputIsNoHindrance) {
    virtual_touchpad::MakeCreateFileWait(GetModuleHandleW(L"VelaAgent.dll"));
    Plug();
    const HANDLE holder = CreateFileW(Path().c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    EXPECT_EQ(agent_.InitHapticTP(), 1);
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 42U);
    CloseHandle(holder);
}

TEST_F(HapticPresenceTest, OneThatIsRefusedToEverybodyIsNotOpened) {
    virtual_touchpad::MakeCreateFileWait(GetModuleHandleW(L"VelaAgent.dll"));
    Plug();
    Device().LimitOpens(1);  // for the scan
    EXPECT_EQ(agent_.InitHapticTP(), 0);
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 0U);
    Device().LimitOpens(0);
    EXPECT_EQ(agent_.IsHapticTPPresent(), 0);
    Device().LimitOpens();
    EXPECT_EQ(agent_.InitHapticTP(), 1);
    EXPECT_THAT(SessionLines(), ElementsAre("{ERROR @ Initialize} Initialize failed, CreateFile "
                                            "failed GetLastError(32).",
                                            kOpened));
}

TEST_F(HapticPresenceTest, TheTouchpadsSessionIsAnother) {
    virtual_touchpad::Plug(TouchpadLayout{});
    Plug();
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(agent_.InitHapticTP(), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 42U);
    EXPECT_EQ(agent_.UnInitHapticTP(), 1);
    EXPECT_EQ(agent_.UnInit(), 0);
}

}  // namespace
}  // namespace acceptance
