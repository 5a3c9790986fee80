// The query of the connection, which precedes every write.

#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace {

using simulator::Call;
using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class ConnectStateTest : public TouchpadTest {
 protected:
    // Returns the connection state of an open session.
    bool IsConnected() {
        bool connected = false;
        EXPECT_TRUE(session_.GetDeviceConnectState(connected));
        return connected;
    }

    std::vector<std::string> ProbeCalls() const {
        return machine_.CallTexts({"HidD_GetPreparsedData", "HidD_FreePreparsedData"});
    }

    // Returns the recorded calls that probe the device.
    std::vector<Call> Probes() const {
        std::vector<Call> probes;
        for (const Call& call : machine_.Calls()) {
            if (call.function == "HidD_GetPreparsedData" ||
                call.function == "HidD_FreePreparsedData") {
                probes.push_back(call);
            }
        }
        return probes;
    }
};

TEST_F(ConnectStateTest, IsDeclinedWithoutASession) {
    for (const bool before : {false, true}) {
        bool connected = before;
        EXPECT_FALSE(session_.GetDeviceConnectState(connected));
        EXPECT_EQ(connected, before);
    }
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    const std::string line =
        "INFO GetDeviceConnectState: GetDeviceConnectState failed because doesn't initialize";
    EXPECT_THAT(log_.Texts(), ElementsAre(line, line));
}

TEST_F(ConnectStateTest, IsDeclinedAgainAfterTheSession) {
    Open(DetachableLayout());
    session_.Uninitialize();
    bool connected = true;
    EXPECT_FALSE(session_.GetDeviceConnectState(connected));
    EXPECT_TRUE(connected);
}

TEST_F(ConnectStateTest, AFixedTouchpadIsAlwaysConnected) {
    Open();
    machine_.ForgetCalls();
    EXPECT_TRUE(IsConnected());
    device_->Unplug();
    EXPECT_TRUE(IsConnected());
    EXPECT_THAT(ProbeCalls(), IsEmpty());
}

TEST_F(ConnectStateTest, ADetachableTouchpadIsProbed) {
    Open(DetachableLayout());
    machine_.ForgetCalls();
    const std::size_t inUse = machine_.PreparsedDataInUse();
    EXPECT_TRUE(IsConnected());
    EXPECT_THAT(ProbeCalls(),
                ElementsAre("HidD_GetPreparsedData(file#3)", "HidD_FreePreparsedData()"));
    EXPECT_EQ(machine_.PreparsedDataInUse(), inUse);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(ConnectStateTest, ADetachableTouchpadThatDoesNotAnswerIsNotConnected) {
    Open(DetachableLayout());
    machine_.ForgetCalls();
    machine_.FailNext("HidD_GetPreparsedData", Fault::Error(5));
    EXPECT_FALSE(IsConnected());
    EXPECT_THAT(ProbeCalls(), ElementsAre("HidD_GetPreparsedData(file#3)"));
    EXPECT_TRUE(IsConnected());
}

TEST_F(ConnectStateTest, ADetachableTouchpadStaysAwayForTheHandleThatSawItGo) {
    Open(DetachableLayout());
    device_->Unplug();
    EXPECT_FALSE(IsConnected());
    device_->PlugIn();
    EXPECT_FALSE(IsConnected());
}

TEST_F(ConnectStateTest, ATouchpadWithoutANameIsProbed) {
    Plug();
    machine_.FailAlways("HidD_GetProductString", Fault::Error(31));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    EXPECT_TRUE(IsConnected());
    device_->Unplug();
    EXPECT_FALSE(IsConnected());
}

TEST_F(ConnectStateTest, ATouchpadThatWentBeforeItsNameWasReadIsNotConnected) {
    Open();
    device_->Unplug();
    EXPECT_FALSE(IsConnected());
}

TEST_F(ConnectStateTest, LightsAreNotUpdatedWhileTheTouchpadIsAway) {
    Open(DetachableLayout());
    session_.Enable(true);
    ASSERT_NO_FATAL_FAILURE(Settle());
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(5));
    EXPECT_TRUE(session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true));
    machine_.StopFailing("HidD_GetPreparsedData");
    // A report of the light would be written before this one.
    ASSERT_TRUE(session_.UpdateVelaState());
    ASSERT_TRUE(device_->WaitForOutputs(1));
    EXPECT_THAT(device_->Outputs(), ElementsAre(RequestReport()));
}

TEST_F(ConnectStateTest, ProbesOfSeveralThreadsFollowOneAnother) {
    Open(DetachableLayout());
    session_.IsDetachable();
    machine_.ForgetCalls();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this] {
            for (int probe = 0; probe < 100; ++probe) EXPECT_TRUE(IsConnected());
        });
    }
    for (std::thread& thread : threads) thread.join();

    const std::vector<Call> probes = Probes();
    ASSERT_EQ(probes.size(), 800U);
    for (std::size_t i = 0; i < probes.size(); i += 2) {
        ASSERT_EQ(probes[i].function, "HidD_GetPreparsedData");
        ASSERT_EQ(probes[i + 1].function, "HidD_FreePreparsedData");
        ASSERT_EQ(probes[i].thread, probes[i + 1].thread);
    }
}

TEST_F(ConnectStateTest, WithoutADeviceNothingIsProbed) {
    vela::TouchpadDevice device;
    device.SetInitialized(true);
    bool connected = true;
    EXPECT_TRUE(device.GetDeviceConnectState(connected));
    EXPECT_FALSE(connected);
    EXPECT_THAT(ProbeCalls(), IsEmpty());
}

}  // namespace
