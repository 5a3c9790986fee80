// What threads and callbacks find of a session while it closes, and the order of its last lines.
#include <algorithm>
#include <atomic>
#include <optional>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr char kWaitsForReader[] = "wait for read input report thread finish.";
constexpr char kWaitsForWriter[] = "wait for write output report thread finish.";

class ClosingStepsTest : public TouchpadTest {
 protected:
    // Disables the touchpad, so that closing, which ends a temporary disable, notifies the host.
    void DisableTemporarily() {
        device_->SendInput(InputReport({kGesture}));
        ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    }
    // Returns the place of the first line that contains the text.
    std::ptrdiff_t PlaceOf(const std::string& text) {
        const std::vector<std::string> lines = log_.Texts();
        const auto contains = [&](const std::string& line) {
            return line.find(text) != std::string::npos;
        };
        return std::find_if(lines.begin(), lines.end(), contains) - lines.begin();
    }
};

TEST_F(ClosingStepsTest, ItsCallbackFindsNoButtonAnyMore) {
    OpenAndLight();
    DisableTemporarily();
    std::optional<bool> before;
    std::optional<bool> after;
    HostCallbacks::DuringStatusChange([&] {
        before = session_.IsButtonEnabled(vela::BUTTON_ID_CAMERA);
        session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
        after = session_.IsButtonEnabled(vela::BUTTON_ID_CAMERA);
    });
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(before, false);
    EXPECT_EQ(after, false);
}

TEST_F(ClosingStepsTest, NoCallIsAcceptedWhileTheDeviceIsClosed) {
    OpenAndLight();
    std::optional<bool> open;
    machine_.SetFaultPolicy([&](const simulator::Call& call) {
        if (call.function == "CloseHandle" && call.arguments.rfind("file", 0) == 0) {
            open = session_.IsInitialized();
        }
        return std::optional<Fault>();
    });
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(open, false);
}

// The query logs whether the touchpad's name can be read.
TEST_F(ClosingStepsTest, TheNameIsQueriedOnceMoreBehindTheStop) {
    Plug();
    machine_.FailAlways("HidD_GetProductString", Fault::Error(31));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    // Without reports of the writer, the closing's own is not repeated.
    machine_.SetFaultPolicy([host = std::this_thread::get_id()](const simulator::Call& call) {
        const bool fails = call.function == "WriteFile" && call.thread != host;
        return fails ? std::optional<Fault>(Fault::Error(31)) : std::nullopt;
    });
    machine_.ForgetCalls();
    EXPECT_TRUE(session_.Uninitialize());
    std::vector<std::string> ending;
    for (const simulator::Call& call : machine_.Calls()) {
        const bool isStep = call.function == "SetEvent" || call.function == "CloseHandle" ||
                            call.function == "HidD_GetProductString";
        if (isStep && call.thread == std::this_thread::get_id()) ending.push_back(call.Text());
    }
    ASSERT_THAT(ending, testing::SizeIs(testing::Ge(5U)));
    ending.erase(ending.begin(), ending.end() - 5);
    EXPECT_THAT(ending,
                ElementsAre(StartsWith("SetEvent"), StartsWith("SetEvent"),
                            StartsWith("HidD_GetProductString"), StartsWith("CloseHandle(file"),
                            StartsWith("CloseHandle(mutex")));
}

TEST_F(ClosingStepsTest, TheLogSaysForWhichThreadItWaitsWhileItDoes) {
    OpenAndLight();
    std::atomic<bool> pressed{false};
    HostCallbacks::DuringButtonPress([&] {
        if (pressed.exchange(true)) return;
        EXPECT_TRUE(log_.WaitForLine(kWaitsForReader));
    });
    device_->SendInput(InputReport({kShareScreenButton, kChatButton}));
    while (!pressed) std::this_thread::yield();
    EXPECT_TRUE(session_.Uninitialize());
    const std::ptrdiff_t handled = PlaceOf("Handle HID output report for chat button");
    EXPECT_LT(PlaceOf(kWaitsForReader), handled);
    EXPECT_LT(handled, PlaceOf(kWaitsForWriter));
}

TEST_F(ClosingStepsTest, TheLogSaysThatItWaitsForTheWriterWhileItDoes) {
    Open(DetachableLayout());
    machine_.ForgetCalls();
    machine_.SetFaultPolicy([&, host = std::this_thread::get_id()](const simulator::Call& call) {
        if (call.function == "WriteFile" && call.thread != host) {
            EXPECT_TRUE(log_.WaitForLine(kWaitsForWriter));
        }
        return std::optional<Fault>();
    });
    ASSERT_TRUE(session_.UpdateVelaState());
    ASSERT_TRUE(machine_.WaitForCalls("WriteFile", 1));
    // Closing has nothing to write to a touchpad that is gone, so it waits for nothing before.
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(1167));
    EXPECT_TRUE(session_.Uninitialize());
}

TEST_F(ClosingStepsTest, AMutexThatItDidNotMakeIsLeftAlone) {
    Open();
    EXPECT_TRUE(session_.Uninitialize());
    machine_.HoldMutexElsewhere(L"Global\\VelaDeviceMutex", false);
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace kit
