// Writing reports to a touchpad that is slow, does not react, or refuses them.
#include <atomic>
#include <thread>

#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::StartsWith;

constexpr char kTimeoutLine[] = "{ERROR @ WriteOutputReportInternal} WaitForSingleObject timeout";

class WritesTest : public TouchpadAcceptanceTest {
 protected:
    bool WaitForHeldWrites(std::uint32_t count) {
        return Touchpad().Device().WaitForState(
            [count](const VirtualHidState& state) { return state.heldWrites == count; }, kPatience);
    }
    // Sends the camera's light in a report that the touchpad then holds.
    void HoldAWrite() {
        Touchpad().Device().HoldWrites(true);
        EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
        ASSERT_TRUE(WaitForHeldWrites(1));
    }
};

bool CameraOn(const Lights& lights) { return lights.Brightness(0x20) == 3; }
bool MicrophoneOn(const Lights& lights) { return lights.Brightness(0x26) == 3; }

struct QueueingCall {
    std::function<void(AgentDll&)> call;
    const char* lineBeforeItWaits;  // null: nothing is logged before
};

TEST_F(WritesTest, CallsThatQueueAReportWaitForTheOneInFlight) {
    const QueueingCall calls[] = {
        {[](AgentDll& a) { a.EnableFeature(1); }, "{INFO @ Enable} Enable HID (1)"},
        {[](AgentDll& a) { a.EnableSingleButton(VELA_BUTTON_MICROPHONE, 1); },
         "{INFO @ EnableButton} EnableButton button(1), enable(1)"},
        {[](AgentDll& a) { a.EnableChatBreathing(1); },
         "{INFO @ EnableButtonBreathing} EnableButtonBreathing button(2), enable(1)"},
        {[](AgentDll& a) { a.SetButtonVisible(VELA_BUTTON_MICROPHONE, 1); },
         "{INFO @ SetButtonVisible} SetButtonVisible for BUTTON_ID 1 (1)"},
        {[](AgentDll& a) { a.SetButtonLight(VELA_BUTTON_MICROPHONE, 1); },
         "{INFO @ SetButtonLight} SetButtonLight for BUTTON_ID 1 (1)"},
        {[](AgentDll& a) { a.SetButtonBreathing(VELA_BUTTON_CHAT, 0); },
         "{INFO @ SetButtonBreathing} SetButtonBreathing for BUTTON_ID 2 (0)"},
        {[](AgentDll& a) { a.SetVelaBrightness(3); }, "{INFO @ SetBrightness} SetBrightness (3)"},
        {[](AgentDll& a) { a.UpdateVelaState(); }, "{INFO @ UpdateVelaState} UpdateVelaState."},
        {[](AgentDll& a) { a.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS); }, nullptr},
    };
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    ASSERT_NO_FATAL_FAILURE(HoldAWrite());
    std::atomic<int> returned{0};
    std::vector<std::thread> hosts;
    for (const QueueingCall& queueing : calls) {
        const std::size_t before =
            queueing.lineBeforeItWaits == nullptr ? 0 : log_.CountLines(queueing.lineBeforeItWaits);
        hosts.emplace_back([&] {
            queueing.call(agent_);
            ++returned;
        });
        if (queueing.lineBeforeItWaits != nullptr) {
            EXPECT_TRUE(log_.WaitForLine(queueing.lineBeforeItWaits, before + 1));
        }
    }
    // Calls that queue no report do not wait.
    EXPECT_EQ(agent_.SetClickMode(1, 300), 1);
    EXPECT_EQ(agent_.GetClickMode(), 1U);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.IsSingleButtonEnabled(VELA_BUTTON_CAMERA), 1);
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(returned, 0);
    EXPECT_EQ(Touchpad().Device().State().heldWrites, 1U);

    Touchpad().Device().HoldWrites(false);
    for (std::thread& host : hosts) host.join();
    EXPECT_TRUE(WaitForLights(
        [](const Lights& lights) { return CameraOn(lights) && MicrophoneOn(lights); }));
}

TEST_F(WritesTest, HeldReportsArriveInTheOrderOfTheCalls) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    ASSERT_NO_FATAL_FAILURE(HoldAWrite());
    std::thread host([this] { agent_.SetButtonLight(VELA_BUTTON_MICROPHONE, 1); });
    EXPECT_TRUE(log_.WaitForLine("{INFO @ SetButtonLight} SetButtonLight for BUTTON_ID 1 (1)"));
    Touchpad().Device().HoldWrites(false);
    host.join();
    const auto outputs = Touchpad().Device().WaitForOutputs(2, kPatience, before);
    ASSERT_EQ(outputs.size(), 2U);
    const Lights first = virtual_touchpad::DecodeLights(outputs[0].bytes, {});
    const Lights second = virtual_touchpad::DecodeLights(outputs[1].bytes, {});
    EXPECT_TRUE(CameraOn(first) && !MicrophoneOn(first));
    EXPECT_TRUE(CameraOn(second) && MicrophoneOn(second));
}

TEST_F(WritesTest, UnInitWaitsForAWriteInFlight) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    ASSERT_NO_FATAL_FAILURE(HoldAWrite());
    std::atomic<VELA_BOOL> result{-1};
    std::thread host([&] { result = agent_.UnInit(); });
    EXPECT_TRUE(
        log_.WaitForLine("{INFO @ SetButtonBreathing} SetButtonBreathing for BUTTON_ID 2 (0)"));
    EXPECT_EQ(agent_.GetClickMode(), 0U);
    EXPECT_EQ(result, -1);
    Touchpad().Device().HoldWrites(false);
    host.join();
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
}

// 1117 is ERROR_IO_DEVICE, 1167 ERROR_DEVICE_NOT_CONNECTED, 1 ERROR_INVALID_FUNCTION.
TEST_F(WritesTest, AFailedWriteIsLoggedAndTheSameReportIsWrittenWhenRequestedAgain) {
    const struct {
        std::uint32_t status;
        int error;
    } failures[] = {{0xC0000185, 1117}, {0xC000009D, 1167}, {0xC0000010, 1}};
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    VELA_BOOL on = 1;
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.error);
        const std::uint64_t before = Touchpad().Device().LastSequence();
        Touchpad().Device().FailNextWrite(static_cast<std::int32_t>(failure.status));
        EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, on), 1);
        EXPECT_TRUE(
            log_.WaitForLine("{ERROR @ WriteOutputReportInternal} Write File failed with "
                             "last error (" +
                             std::to_string(failure.error) + ")"));
        EXPECT_EQ(Touchpad().Device().LastSequence(), before);

        EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, on), 1);
        EXPECT_TRUE(WaitForLights([on](const Lights& lights) { return CameraOn(lights) == on; }));
        EXPECT_EQ(Touchpad().Device().LastSequence(), before + 1);
        on = !on;
    }
}

class SlowWritesTest : public WritesTest {};

TEST_F(SlowWritesTest, AWriteIsGivenUpAfterThirtySecondsAndItsRepetitionIsNotSuppressed) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    ASSERT_NO_FATAL_FAILURE(HoldAWrite());
    // This call waits until the first write is given up; its own report has the same bytes.
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    ASSERT_TRUE(WaitForHeldWrites(2));
    ASSERT_TRUE(log_.WaitForLine(kTimeoutLine));

    Touchpad().Device().HoldWrites(false);
    const auto outputs = Touchpad().Device().WaitForOutputs(2, kPatience, before);
    ASSERT_EQ(outputs.size(), 2U);
    EXPECT_EQ(outputs[0].bytes, outputs[1].bytes);
    EXPECT_TRUE(CameraOn(Touchpad().CurrentLights()));

    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_MICROPHONE, 1), 1);
    EXPECT_TRUE(WaitForLights(MicrophoneOn));
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(WaitForLights(AllDark));
    agent_.UnInitLogger();

    const std::vector<std::string> lines = log_.Lines();
    const auto timeout = std::find(lines.begin(), lines.end(), kTimeoutLine);
    ASSERT_LT(timeout, lines.end() - 1);
    EXPECT_THAT(timeout[1], StartsWith("{ERROR @ WriteOutputReportInternal} Write File failed "
                                       "with last error ("));
}

// UnInit's own reports time out one by one; the touchpad completes them when nobody waits any more.
TEST_F(SlowWritesTest, UnInitLeavesASilentTouchpadBehindAndLateCompletionsDoNoHarm) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Touchpad().Device().HoldWrites(true);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(log_.WaitForLine(kTimeoutLine, 2));
    Touchpad().Device().HoldWrites(false);
    EXPECT_TRUE(Touchpad().Device().WaitForState(
        [](const VirtualHidState& state) { return state.heldWrites == 0; }, kPatience));

    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights(CameraOn));
}

}  // namespace
}  // namespace acceptance
