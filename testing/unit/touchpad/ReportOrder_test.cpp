// Reports of several threads reach the touchpad in the order in which they were composed, so that
// the last one shows everything set before.
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>
#include <vector>

#include "testing/kit/native/CompositionTest.h"

namespace {

using simulator::WriteBehaviour;
using namespace kit;
using testing::ElementsAre;

const Bytes kCameraOn =
    LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active");
const Bytes kCameraAndMicrophoneOn =
    LightReport("camera on 3, microphone on 3, chat 3, share screen 3; all active");

class ReportOrderTest : public CompositionTest {
 protected:
    // Stops the next composer after its last light until another thread has composed, and could
    // have queued, a newer report.
    void SetTheNextComposerAside() {
        machine_.SetFaultPolicy([this](const simulator::Call& call) {
            if (call.Text() == SetValueCall(0x22, 3) && !setAside_.exchange(true)) {
                while (!goOn_) std::this_thread::yield();
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
            }
            return std::optional<simulator::Fault>();
        });
    }
    void WaitUntilSetAside() {
        while (!setAside_) std::this_thread::yield();
    }

    std::atomic<bool> setAside_{false};
    std::atomic<bool> goOn_{false};
};

TEST_F(ReportOrderTest, AComposerThatIsSetAsideDoesNotQueueAnOldReportLast) {
    OpenAndLight();
    SetTheNextComposerAside();
    std::thread camera([this] { session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true); });
    WaitUntilSetAside();
    std::thread microphone([this] {
        goOn_ = true;
        session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true);
    });
    camera.join();
    microphone.join();
    EXPECT_THAT(WrittenReports(session_, *device_), ElementsAre(kCameraOn, kCameraAndMicrophoneOn));
}

TEST_F(ReportOrderTest, AStateRequestDoesNotOvertakeTheReportBeingComposed) {
    OpenAndLight();
    SetTheNextComposerAside();
    std::thread camera([this] { session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true); });
    WaitUntilSetAside();
    goOn_ = true;
    session_.UpdateVelaState();
    camera.join();
    ASSERT_TRUE(device_->WaitForOutputs(2));
    EXPECT_THAT(device_->Outputs(), ElementsAre(kCameraOn, RequestReport()));
}

TEST_F(ReportOrderTest, NobodyWaitsForAComposerThatIsSetAside) {
    OpenAndLight();
    SetTheNextComposerAside();
    std::thread camera([this] { session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true); });
    WaitUntilSetAside();
    EXPECT_TRUE(session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true));
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(device_->Outputs().back(), kit::BlankReport());
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    device_->ForgetOutputs();
    // The next session's reports do not wait for the stopped composer either.
    EXPECT_TRUE(session_.Enable(true));
    EXPECT_TRUE(device_->WaitForOutputs(1));
    goOn_ = true;
    camera.join();
    EXPECT_THAT(WrittenReports(session_, *device_), testing::Not(testing::Contains(kCameraOn)));
}

// Each thread has composed its report before the next one starts; all wait for a slow touchpad.
TEST_F(ReportOrderTest, CallersThatWaitForAWriteQueueAsTheyComposed) {
    OpenAndLight();
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    session_.SetBrightness(10);
    ASSERT_TRUE(device_->WaitForHeldWrites());
    std::vector<std::thread> callers;
    std::vector<Bytes> expected;
    for (std::uint8_t level = 11; level < 19; ++level) {
        const std::size_t composed = machine_.CountCalls("HidP_SetUsages");
        callers.emplace_back([this, level] { session_.SetBrightness(level); });
        EXPECT_TRUE(machine_.WaitForCalls("HidP_SetUsages", composed + 1));
        expected.push_back(AllLitAt(level));
    }
    device_->SetWriteBehaviour(WriteBehaviour::Pend);
    device_->CompleteHeldWrites();
    for (std::thread& caller : callers) caller.join();
    std::vector<Bytes> written = WrittenReports(session_, *device_);
    ASSERT_FALSE(written.empty());
    written.erase(written.begin());
    EXPECT_EQ(written, expected);
}

TEST_F(ReportOrderTest, ThreadsThatChangeLightsAtOnceLeaveWhatAllOfThemSet) {
    OpenAndLight();
    for (int round = 0; round < 50; ++round) {
        const bool on = round % 2 == 0;
        std::vector<std::thread> hosts;
        for (std::uint32_t button = 0; button < 2; ++button) {
            hosts.emplace_back([this, button, on] { session_.SetButtonLight(button, on); });
        }
        for (std::thread& host : hosts) host.join();
        const std::vector<Bytes> written = WrittenReports(session_, *device_);
        ASSERT_FALSE(written.empty());
        ASSERT_EQ(written.back(), on ? kCameraAndMicrophoneOn : AllLit());
    }
}

}  // namespace
