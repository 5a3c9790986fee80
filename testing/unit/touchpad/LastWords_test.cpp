// Closing leaves the touchpad dark, whatever the writer and the heartbeat still have to write.
#include "touchpad/LastWords.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using simulator::WriteBehaviour;
using testing::ElementsAre;
using testing::IsEmpty;

const Bytes kLit = LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active");
const Bytes kDark = BlankReport();

// Tests the writer and the last words without a session.
class LastWordsTest : public TouchpadTest {
 protected:
    LastWordsTest() {
        Plug();
        touchpad_.Open(vela::ScanHIDInformation(&session_));
        touchpad_.SetInitialized(true);
        open_ = touchpad_.Current();
        writer_.Prepare();
        writer_.Start(open_);
    }
    ~LastWordsTest() override {
        machine_.SetFaultPolicy(nullptr);
        open_.reset();
        touchpad_.Close();
    }

    // Sets the faults of writes on this thread and on the session's own threads.
    void OnWrite(std::function<std::optional<Fault>()> byHost,
                 std::function<std::optional<Fault>()> byOthers) {
        machine_.SetFaultPolicy(
            [=, host = std::this_thread::get_id()](const simulator::Call& call) {
                if (call.function != "WriteFile") return std::optional<Fault>();
                return call.thread == host ? byHost() : byOthers();
            });
    }
    void HoldOthersUntilTheHostWrites() {
        OnWrite(
            [this] {
                hostIsWriting_ = true;
                return std::nullopt;
            },
            [this] {
                othersAreWriting_ = true;
                while (!hostIsWriting_) std::this_thread::yield();
                return std::nullopt;
            });
    }
    void AwaitOthers() {
        while (!othersAreWriting_) std::this_thread::yield();
    }

    void Enqueue(const Bytes& report, bool force = false) {
        writer_.Enqueue(writer_.Draw(), report, force);
    }

    // Waits for the writer too, which is done with a report a moment after the device has it.
    void EnqueueAndAwait(const Bytes& report) {
        Enqueue(report);
        while (writer_.LastReport() != report) std::this_thread::yield();
    }

    // Writes the last words, calls `between`, stops the writer, and returns all reports.
    std::vector<Bytes> Close(const std::function<void()>& between = [] {}) {
        vela::LastWords lastWords(writer_, *open_, kDark);
        lastWords.Write();
        between();
        writer_.Stop();
        writer_.Join();
        lastWords.RepeatIfOvertaken();
        return device_->Outputs();
    }

    vela::TouchpadDevice touchpad_;
    vela::ReportWriter writer_{touchpad_};
    std::shared_ptr<vela::OpenTouchpad> open_;
    std::atomic<bool> hostIsWriting_{false};
    std::atomic<bool> othersAreWriting_{false};
};

TEST_F(LastWordsTest, AreWrittenOnceWhenNothingComesBehind) {
    EnqueueAndAwait(kLit);
    EXPECT_THAT(Close(), ElementsAre(kLit, kDark));
}

TEST_F(LastWordsTest, AreNotWrittenWhenTheTouchpadIsDark) {
    EnqueueAndAwait(kDark);
    EXPECT_THAT(Close(), ElementsAre(kDark));
}

TEST_F(LastWordsTest, AreWrittenAgainBehindAReportThatTheWriterWritesLate) {
    HoldOthersUntilTheHostWrites();
    Enqueue(kLit);
    AwaitOthers();
    const std::vector<Bytes> outputs = Close();
    EXPECT_THAT(outputs, testing::Contains(kLit));
    EXPECT_EQ(outputs.back(), kDark);
}

TEST_F(LastWordsTest, AreWrittenAgainBehindAReportThatWasQueuedMeanwhile) {
    EXPECT_THAT(Close([this] {
                    Enqueue(kLit);
                    ASSERT_TRUE(device_->WaitForOutputs(2));
                }),
                ElementsAre(kDark, kLit, kDark));
}

TEST_F(LastWordsTest, AreWrittenAgainBehindTheReportOfAHeartbeat) {
    std::thread heartbeat;
    EXPECT_THAT(Close([&] {
                    heartbeat = std::thread(
                        [this] { writer_.WriteOutputReportInternal(*open_, kLit, true); });
                    heartbeat.join();
                }),
                ElementsAre(kDark, kLit, kDark));
}

// Closing does not join the heartbeat, which may be writing when the writer is joined.
TEST_F(LastWordsTest, WaitForAHeartbeatThatIsIssuingItsReport) {
    std::atomic<bool> stopped{false};
    OnWrite([] { return std::nullopt; },
            [&] {
                othersAreWriting_ = true;
                while (!stopped) std::this_thread::yield();
                return std::nullopt;
            });
    std::thread heartbeat([this] { writer_.WriteOutputReportInternal(*open_, kLit, true); });
    AwaitOthers();
    // The heartbeat continues only after a closing that does not wait would have ended.
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        stopped = true;
    });
    Close();
    later.join();
    heartbeat.join();
    EXPECT_EQ(device_->Outputs().back(), kDark);
}

TEST_F(LastWordsTest, AreNotFollowedByAnythingThatComesAfterTheStop) {
    Close();
    EXPECT_FALSE(writer_.WriteOutputReportInternal(*open_, kLit, true));
    EXPECT_THAT(device_->Outputs(), ElementsAre(kDark));
}

// A forced report lit the touchpad, but the last unforced report is a dark one.
TEST_F(LastWordsTest, AreNotTakenForTheLastReportWhenAForcedOneLitTheTouchpad) {
    Enqueue(kDark);
    Enqueue(kLit, true);
    ASSERT_TRUE(device_->WaitForOutputs(2));
    // Else closing may see the forced report as one that was issued meanwhile.
    writer_.Monitor().AwaitLeaving();
    EXPECT_THAT(Close(), ElementsAre(kDark, kLit, kDark));
}

TEST_F(LastWordsTest, ThatTheTouchpadRefusesAreNotTriedAgain) {
    machine_.FailAlways("WriteFile", Fault::Error(31));
    EXPECT_THAT(Close(), IsEmpty());
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 1U);
}

TEST_F(LastWordsTest, ThatTheTouchpadRefusesAreTriedAgainBehindAReportThatItTook) {
    machine_.FailNext("WriteFile", Fault::Error(31));
    EXPECT_THAT(Close([this] {
                    Enqueue(kLit);
                    ASSERT_TRUE(device_->WaitForOutputs(1));
                }),
                ElementsAre(kLit, kDark));
}

// Issuing the report resets the write event, for which a heartbeat may still wait.
TEST_F(LastWordsTest, ThatFailTheSecondTimeLeaveTheWriteEventSignalled) {
    int writes = 0;
    OnWrite(
        [&]() -> std::optional<Fault> {
            if (++writes == 1) return std::nullopt;
            return Fault::Error(31);
        },
        [] { return std::nullopt; });
    EXPECT_THAT(Close([this] {
                    Enqueue(kLit);
                    ASSERT_TRUE(device_->WaitForOutputs(2));
                }),
                ElementsAre(kDark, kLit));
    EXPECT_EQ(writes, 2);
    using testing::StartsWith;
    EXPECT_THAT(
        machine_.CallTexts({"WriteFile", "SetEvent"}),
        ElementsAre(StartsWith("WriteFile"), StartsWith("WriteFile"), StartsWith("SetEvent"),
                    StartsWith("WriteFile"), StartsWith("SetEvent")));
}

// Closing would otherwise take another 30 seconds.
TEST_F(LastWordsTest, AreNotWrittenAgainToATouchpadThatTakesNoWrite) {
    machine_.ExpireTimedWaits(true);
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    Close([this] {
        Enqueue(kLit);
        ASSERT_TRUE(device_->WaitForHeldWrites(2));
    });
    EXPECT_EQ(device_->HeldWrites(), 2U);
}

// Closing waits 30 seconds for a touchpad once at most.
TEST_F(LastWordsTest, ThatRanIntoTheirTimeLimitAreNotWrittenAgain) {
    machine_.ExpireTimedWaits(true);
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    EXPECT_THAT(Close([this] {
                    machine_.ExpireTimedWaits(false);
                    device_->SetWriteBehaviour(WriteBehaviour::Pend);
                    Enqueue(kLit);
                    ASSERT_TRUE(device_->WaitForOutputs(1));
                }),
                ElementsAre(kLit));
    EXPECT_EQ(device_->HeldWrites(), 1U);
}

TEST_F(LastWordsTest, AreNotWrittenAgainBehindAReportThatTheTouchpadRefused) {
    OnWrite([] { return std::nullopt; }, [] { return std::optional<Fault>(Fault::Error(31)); });
    EXPECT_THAT(Close([this] {
                    Enqueue(kLit);
                    ASSERT_TRUE(machine_.WaitForCalls("WriteFile", 2));
                }),
                ElementsAre(kDark));
}

TEST_F(LastWordsTest, AreWrittenAgainBehindAReportThatIsWrittenWithinTheCall) {
    EXPECT_THAT(Close([this] {
                    device_->SetWriteBehaviour(WriteBehaviour::Immediate);
                    Enqueue(kLit);
                    ASSERT_TRUE(device_->WaitForOutputs(2));
                }),
                ElementsAre(kDark, kLit, kDark));
}

// Tests closing a whole session, before or after its writer has woken.
class ClosingTest : public TouchpadTest {};

// Requests that another thread makes while the session closes are in no report: here it switches
// everything on just after closing has switched it off.
TEST_F(ClosingTest, LeavesTheTouchpadDarkWhateverOtherThreadsRequestMeanwhile) {
    OpenAndLight();
    std::atomic<bool> go{false};
    std::atomic<bool> done{false};
    std::thread other([&] {
        while (!go) std::this_thread::yield();
        session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
        session_.Enable(true);
        done = true;
    });
    machine_.SetFaultPolicy(
        [&, host = std::this_thread::get_id(), unset = 0](const simulator::Call& call) mutable {
            // Each closing report unsets four active usages: the fifth call is in the dark one.
            if (call.thread == host && call.function == "HidP_UnsetUsages" && ++unset == 5) {
                go = true;
                while (!done) std::this_thread::yield();
            }
            return std::optional<Fault>();
        });
    EXPECT_TRUE(session_.Uninitialize());
    other.join();
    EXPECT_TRUE(done);
    EXPECT_EQ(device_->Outputs().back(), kDark);
}

TEST_F(ClosingTest, LeavesNoLightOnBehindARequestThatTheWriterHasNotWokenFor) {
    for (int round = 0; round < 200; ++round) {
        OpenAndLight(round % 2 == 0 ? TouchpadLayout{} : DetachableLayout());
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
        ASSERT_TRUE(session_.Uninitialize());
        ASSERT_EQ(device_->Outputs().back(), kDark);
        device_->Unplug();
    }
}

// The report that lights the touchpad is held until closing has written its own.
TEST_F(ClosingTest, LeavesTheTouchpadDarkBehindAReportThatTheWriterWritesLater) {
    OpenAndLight();
    const auto host = std::this_thread::get_id();
    // "camera off 3", which no report of the closing contains.
    constexpr char kLights[] = "02 00 03";
    std::atomic<bool> go{false};
    std::atomic<bool> done{false};
    std::atomic<bool> darkened{false};
    std::thread other([&] {
        while (!go) std::this_thread::yield();
        session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
        session_.Enable(true);
        done = true;
    });
    // Each closing report unsets four active usages: the ninth call is in the one that closing
    // writes itself, behind the two that it has queued.
    machine_.SetFaultPolicy([&, unset = 0](const simulator::Call& call) mutable {
        if (call.thread == host && call.function == "HidP_UnsetUsages" && ++unset == 9) {
            go = true;
            while (!done) std::this_thread::yield();
        }
        if (call.thread == host && call.function == "SetEvent") darkened = true;
        if (call.function == "WriteFile" && call.arguments.find(kLights) != std::string::npos) {
            while (!darkened) std::this_thread::yield();
        }
        return std::optional<Fault>();
    });
    EXPECT_TRUE(session_.Uninitialize());
    other.join();
    EXPECT_EQ(device_->Outputs().back(), kDark);
}

}  // namespace
}  // namespace kit
