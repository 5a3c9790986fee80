// Closing leaves the touchpad dark, whatever the writer and the heartbeat still had to write.
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

// The writer and the last words, without a session around them.
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

    // Calls on this thread, and on the session's own threads.
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

    // The device has a report a moment before the writer is done with it.
    void EnqueueAndAwait(const Bytes& report) {
        Enqueue(report);
        while (writer_.LastReport() != report) std::this_thread::yield();
    }

    // The last words, the end of the writer, and what the touchpad got since `between`.
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

// A heartbeat is not waited for: it may be at its write when the writer is joined.
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
    // Goes on when a closing that does not wait has come to its end.
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

// Lit by a forced report, the touchpad still has a dark one as the last that was not forced.
TEST_F(LastWordsTest, AreNotTakenForTheLastReportWhenAForcedOneLitTheTouchpad) {
    Enqueue(kDark);
    Enqueue(kLit, true);
    ASSERT_TRUE(device_->WaitForOutputs(2));
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

// Otherwise closing would take another 30 seconds.
TEST_F(LastWordsTest, AreNotWrittenAgainToATouchpadThatTakesNoWrite) {
    machine_.ExpireTimedWaits(true);
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    Close([this] {
        Enqueue(kLit);
        ASSERT_TRUE(device_->WaitForHeldWrites(2));
    });
    EXPECT_EQ(device_->HeldWrites(), 2U);
}

// A session closed on a host's own orders: the writer has not woken yet, or has.
class ClosingTest : public TouchpadTest {};

// What another thread of the host requests meanwhile is not in the last words, and not behind them:
// here it switches everything on again when closing has just switched it off.
TEST_F(ClosingTest, LeavesTheTouchpadDarkWhateverOtherThreadsRequestMeanwhile) {
    OpenAndLight();
    std::atomic<bool> go{false};
    std::atomic<bool> done{false};
    std::thread other([&] {
        while (!go) std::this_thread::yield();
        session_.EnableButton(0, true);
        session_.SetButtonVisible(0, true);
        session_.Enable(true);
        done = true;
    });
    machine_.SetFaultPolicy(
        [&, host = std::this_thread::get_id(), unset = 0](const simulator::Call& call) mutable {
            // Each report of closing unsets the four active usages: the second is the dark one.
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
        session_.SetButtonLight(0, true);
        ASSERT_TRUE(session_.Uninitialize());
        ASSERT_EQ(device_->Outputs().back(), kDark);
        device_->Unplug();
    }
}

}  // namespace
}  // namespace kit
