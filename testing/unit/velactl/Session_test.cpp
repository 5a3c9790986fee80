// The commands that open a touchpad.
#include <regex>

#include "testing/kit/LogFolder.h"
#include "testing/unit/velactl/VelactlTest.h"

namespace velactl_test {
namespace {

using kit::AllDark;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::uint8_t kNormal = 0x40;
constexpr std::uint8_t kTabletMode = 0x80;

class StatusTest : public VelactlTest {
 protected:
    // Runs a command that requests the firmware's state, and sends this one.
    Finished RunWithFirmwareState(const std::wstring& command, std::uint8_t state) {
        const Velactl program(command);
        const auto request =
            Touchpad().Device().WaitForOutput(virtual_touchpad::IsStateRequest, kPatience);
        EXPECT_TRUE(request.has_value());
        Touchpad().SendFirmwareState(state);
        return Finished(program);
    }
};

TEST_F(StatusTest, WithoutDevices) {
    const Finished run(L"status");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_EQ(run.output, "touchpad        absent\nhapticTouchpad  absent\n");
}

TEST_F(StatusTest, OfATouchpadWhoseFirmwareAnswers) {
    Plug();
    const Finished run = RunWithFirmwareState(L"status --json", kTabletMode);
    EXPECT_EQ(run.exitCode, 0U);
    ASSERT_EQ(run.results.size(), 1U);
    EXPECT_EQ(run.results[0], Json({{"touchpad", "free"},
                                    {"detachable", false},
                                    {"biDirectionSwipe", true},
                                    {"clickMode", false},
                                    {"state", "disabled"},
                                    {"firmware", "answers"},
                                    {"hapticTouchpad", "absent"}}));
    EXPECT_TRUE(Touchpad().Device().WaitForState(
        [](const VirtualHidState& state) { return state.readWriteOpens == 0; }, kPatience));
}

// The heartbeat's thread stays in the library, yet velactl exits with its own code.
TEST_F(StatusTest, OfADetachableTouchpadWithoutAStateRequest) {
    TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    layout.hasRequest = false;
    Plug(layout);
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(HapticLayout{}), L"haptic");
    virtual_touchpad::VirtualDevice(L"haptic").SetFeature(
        virtual_touchpad::HapticsReport({0, 55, 0, 0}));
    const Finished run(L"status --json");
    EXPECT_EQ(run.exitCode, 0U);
    ASSERT_EQ(run.results.size(), 1U);
    EXPECT_EQ(run.results[0]["detachable"], true);
    EXPECT_EQ(run.results[0]["firmware"], "cannot be asked");
    EXPECT_EQ(run.results[0]["state"], "normal");
    EXPECT_EQ(run.results[0]["hapticLevel"], 55);
}

// --- watch ---------------------------------------------------------------------------------------

class WatchTest : public VelactlTest {};

TEST_F(WatchTest, PrintsPressesAndStatusChangesUntilInterrupted) {
    Plug();
    const Velactl program(L"watch");
    ASSERT_TRUE(WaitForLights(kit::AllFourLit));
    Touchpad().Press(kCameraButton);
    ASSERT_TRUE(program.WaitForOutput("camera"));
    Touchpad().SendEvent(kDisabled);
    ASSERT_TRUE(program.WaitForOutput("disabled"));
    Touchpad().SendEvent(kEnabled);
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    EXPECT_EQ(program.Errors(), "");
    const std::regex time(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3})");
    EXPECT_THAT(std::regex_replace(program.Output(), time, "TIME"),
                StartsWith("TIME  status  normal\n"
                           "TIME  press   camera, light to be on\n"
                           "TIME  status  disabled\n"));
    EXPECT_TRUE(WaitForLights(AllDark));
}

TEST_F(WatchTest, PrintsJson) {
    Plug();
    const Velactl program(L"watch --json --host-sets-lights");
    ASSERT_TRUE(WaitForLights(kit::AllFourLit));
    Touchpad().Press(kMicrophoneButton);
    ASSERT_TRUE(program.WaitForOutput("press"));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    const std::vector<Json> events = program.Results();
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0]["event"], "status");
    EXPECT_EQ(events[0]["number"], 1);
    EXPECT_EQ(events[1]["event"], "press");
    EXPECT_EQ(events[1]["button"], "microphone");
    EXPECT_EQ(events[1]["newLight"], "on");
}

TEST_F(WatchTest, MayEndByItself) {
    Plug();
    EXPECT_EQ(Finished(L"watch --seconds 0.1").exitCode, 0U);
    EXPECT_EQ(Touchpad().Device().Opens(), 0U);
}

// --- the commands that show something ------------------------------------------------------------

struct Shown {
    const char* name;
    const wchar_t* command;
    bool (*isShown)(const Lights&);
    Json result;
};

const Shown kShown[] = {
    {"Light",
     L"light camera on",
     [](const Lights& lights) {
         return lights.Brightness(0x20) == 3 && lights.Brightness(0x21) == 0;
     },
     {{"button", "camera"}, {"light", "on"}, {"done", true}}},
    {"Visible",
     L"visible chat off",
     [](const Lights& lights) {
         return lights.active == std::set<std::uint16_t>{1, 2, 4};
     },
     {{"button", "chat"}, {"visible", "off"}, {"done", true}}},
    {"Enable",
     L"enable share-screen off",
     [](const Lights& lights) {
         return lights.active == std::set<std::uint16_t>{1, 3, 4};
     },
     {{"button", "share-screen"}, {"enabled", "off"}, {"done", true}}},
    {"Breathe",
     L"breathe on",
     [](const Lights& lights) { return lights.breathing == 8; },
     {{"breathing", "on"}, {"done", true}}},
    {"Brightness",
     L"brightness 200",
     [](const Lights& lights) {
         return lights.Brightness(0x21) == 200 && lights.Brightness(0x24) == 200;
     },
     {{"brightness", 200}, {"done", true}}},
};

class ShowingTest : public VelactlTest, public testing::WithParamInterface<Shown> {};

INSTANTIATE_TEST_SUITE_P(, ShowingTest, testing::ValuesIn(kShown),
                         [](const auto& test) { return test.param.name; });

TEST_P(ShowingTest, ShowsItUntilInterruptedAndDarkensTheTouchpad) {
    Plug();
    const Velactl program(GetParam().command + std::wstring(L" --json --hold 60"));
    EXPECT_TRUE(WaitForLights(GetParam().isShown));
    ASSERT_TRUE(program.WaitForOutput("\n"));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 0U);
    ASSERT_EQ(program.Results().size(), 1U);
    EXPECT_EQ(program.Results()[0], GetParam().result);
    EXPECT_TRUE(WaitForLights(AllDark));
}

TEST_F(VelactlTest, AHoldMayBeOver) {
    Plug();
    const Finished run(L"light microphone on --hold 0.1");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_EQ(run.output, "button  microphone\nlight   on\ndone    yes\n");
}

// --- settings ------------------------------------------------------------------------------------

TEST_F(VelactlTest, ReadsAndSetsTheClickMode) {
    Plug();
    EXPECT_EQ(Finished(L"clickmode").output, "clickMode  off\n");
    EXPECT_EQ(Finished(L"clickmode on 300").output, "clickMode  on\n");
    EXPECT_EQ(Finished(L"clickmode off").output, "clickMode  off\n");
}

TEST_F(VelactlTest, AClickModeThatIsNotTakenIsAFailure) {
    TouchpadLayout layout;
    layout.hasFeatureReport = false;
    Plug(layout);
    const kit::LogFolder log;
    const Finished run(L"clickmode off --log \"" + log.Path().wstring() + L"\"");
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.errors, HasSubstr("did not take the click mode"));
    EXPECT_THAT(log.Text(), HasSubstr("CTandrelHID initialize succeeded"));
}

TEST_F(VelactlTest, ReadsAndSetsTheHapticLevel) {
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(HapticLayout{}), L"haptic");
    virtual_touchpad::VirtualDevice device(L"haptic");
    device.SetFeature(virtual_touchpad::HapticsReport({9, 42, 17, 200}));
    EXPECT_EQ(Finished(L"haptic").output, "level  42\n");
    EXPECT_EQ(Finished(L"haptic 80 --json").results, std::vector<Json>({{{"level", 80}}}));
    EXPECT_EQ(device.Feature(virtual_touchpad::kHapticsReportId),
              virtual_touchpad::HapticsReport({9, 80, 17, 200}));
    device.FailNextFeature(static_cast<std::int32_t>(0xC0000185));
    EXPECT_EQ(Finished(L"haptic 90").exitCode, 1U);
}

}  // namespace
}  // namespace velactl_test
