// Opening a session: the order of the platform calls, and the clean-up after a failure.
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using vela::kHidFailed;
using vela::kHidHeldByOther;
using vela::kHidOpen;

constexpr char kStart[] =
    "INFO Initialize: ================= CTandrelHID initialize start =================";
constexpr char kSucceeded[] =
    "INFO Initialize: ================= CTandrelHID initialize succeeded =================";

class InitializeTest : public TouchpadTest {
 protected:
    // Returns the record of the plugged touchpad and forgets the calls.
    std::shared_ptr<vela::CHIDInformation> Scan() {
        auto information = vela::ScanHIDInformation(&session_);
        machine_.ForgetCalls();
        return information;
    }
};

TEST_F(InitializeTest, OpensExclusivelyMakesItsEventsAndTheNamedMutex) {
    Plug();
    EXPECT_EQ(session_.Initialize(Scan()), kHidOpen);
    ASSERT_TRUE(device_->WaitForPendingReads());
    const auto calls =
        machine_.CallTexts({"CreateFileW", "CreateEventW", "OpenMutexW", "CreateMutexW"});
    ASSERT_THAT(calls, SizeIs(5));
    EXPECT_THAT(calls[0], StartsWith("CreateFileW("));
    EXPECT_THAT(calls[0], testing::EndsWith(", 0xc0000000, 0x0, 3, 0x40000000)"));
    EXPECT_THAT(calls[1], StartsWith("CreateEventW(0, 0, "));  // auto-reset, not signalled
    EXPECT_THAT(calls[2], StartsWith("CreateEventW(1, 0, "));  // manual-reset, not signalled
    EXPECT_EQ(calls[3], "OpenMutexW(0x1f0001, 0, \"Global\\VelaDeviceMutex\")");
    EXPECT_EQ(calls[4], "CreateMutexW(0, \"Global\\VelaDeviceMutex\")");
    session_.Uninitialize();
    EXPECT_THAT(LogOf("Initialize"), ElementsAre(kStart, kSucceeded));
}

TEST_F(InitializeTest, RefusesANullRecord) {
    EXPECT_EQ(session_.Initialize(nullptr), kHidFailed);
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    EXPECT_THAT(
        LogOf("Initialize"),
        ElementsAre(kStart, "WARNING Initialize: Initialize failed, HID info is null pointer."));
}

TEST_F(InitializeTest, OfAnOpenSessionOpensNothing) {
    Open();
    const auto information = Scan();
    EXPECT_EQ(session_.Initialize(information), kHidOpen);
    EXPECT_EQ(machine_.CountCalls("CreateFileW"), 0U);
    EXPECT_EQ(information.use_count(), 1);
    session_.Uninitialize();
    EXPECT_THAT(LogOf("Initialize"),
                ElementsAre(kStart, kSucceeded, kStart,
                            "INFO Initialize: Initialize re-initialize, return true immediately."));
}

TEST_F(InitializeTest, OfAnOpenSessionStillRefusesANullRecord) {
    Open();
    EXPECT_EQ(session_.Initialize(nullptr), kHidFailed);
    EXPECT_TRUE(session_.IsInitialized());
}

TEST_F(InitializeTest, SeedsTheFourButtonsAsPresentAndNothingElse) {
    Open();
    for (std::uint32_t button = 0; button < 4; ++button) {
        EXPECT_FALSE(session_.IsButtonEnabled(button));
        session_.EnableButton(button, true);
        EXPECT_TRUE(session_.IsButtonEnabled(button));
    }
    session_.EnableButton(4, true);
    EXPECT_FALSE(session_.IsButtonEnabled(4));  // never present
}

TEST_F(InitializeTest, KeepsNoHandleOfAMutexThatExists) {
    machine_.HoldMutexElsewhere(L"Global\\VelaDeviceMutex", false);
    Open();
    EXPECT_EQ(machine_.CountCalls("CreateMutexW"), 0U);
    const std::size_t before = machine_.OpenHandles().size();
    session_.Uninitialize();
    // Only the device's handle is closed: the mutex handle that the session opened stays open.
    EXPECT_EQ(machine_.OpenHandles().size(), before - 1);
}

TEST_F(InitializeTest, ClearsTheTabletModeOfAnEarlierSession) {
    OpenAndLight();
    device_->SendInput(InputReport({kDisabled}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    session_.Uninitialize();
    device_->ForgetOutputs();
    OpenSession();
    session_.Enable(true);
    EXPECT_TRUE(device_->WaitForOutputs(1));
}

TEST_F(InitializeTest, WritesNothingThatAnEarlierSessionLeftUnsent) {
    OpenAndLight();
    device_->SetWriteBehaviour(simulator::WriteBehaviour::Hold);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);  // in flight
    ASSERT_TRUE(device_->WaitForHeldWrites());
    std::thread queueing([this] { session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true); });
    device_->Unplug();
    queueing.join();
    session_.Uninitialize();
    device_->SetWriteBehaviour(simulator::WriteBehaviour::Pend);
    device_->PlugIn();
    device_->ForgetOutputs();
    ASSERT_EQ(OpenSession(), kHidOpen);
    ASSERT_TRUE(session_.UpdateVelaState());
    EXPECT_EQ(OutputNumber(1), RequestReport());
}

struct OpenFailure {
    std::uint32_t error;
    std::uint32_t result;
};
class InitializeOpenFailureTest : public InitializeTest,
                                  public testing::WithParamInterface<OpenFailure> {};

TEST_P(InitializeOpenFailureTest, IsReturnedAndKeepsNothing) {
    Plug();
    const auto information = Scan();
    machine_.FailNext("CreateFileW", Fault::Error(GetParam().error));
    EXPECT_EQ(session_.Initialize(information), GetParam().result);
    EXPECT_FALSE(session_.IsInitialized());
    EXPECT_EQ(session_.Information(), nullptr);
    EXPECT_EQ(information.use_count(), 1);
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_THAT(
        LogOf("Initialize"),
        ElementsAre(kStart, "ERROR Initialize: Initialize failed, CreateFile failed GetLastError(" +
                                std::to_string(GetParam().error) + ")."));
}

INSTANTIATE_TEST_SUITE_P(Errors, InitializeOpenFailureTest,
                         testing::Values(OpenFailure{32, kHidHeldByOther},
                                         OpenFailure{2, kHidFailed}, OpenFailure{5, kHidFailed}));

class InitializeEventFailureTest : public InitializeTest,
                                   public testing::WithParamInterface<std::size_t> {};

TEST_P(InitializeEventFailureTest, ClosesTheDeviceAgain) {
    Plug();
    const auto information = Scan();
    machine_.FailNext("CreateEventW", Fault::Error(8), GetParam());
    EXPECT_EQ(session_.Initialize(information), kHidFailed);
    EXPECT_EQ(device_->OpenHandles(), 0U);
    EXPECT_EQ(session_.Information(), nullptr);
    EXPECT_EQ(session_.Initialize(information), kHidOpen);
    session_.Uninitialize();
    EXPECT_THAT(
        LogOf("Initialize"),
        ElementsAre(kStart,
                    "ERROR Initialize: Initialize failed, CreateEvent failed GetLastError(8).",
                    kStart, kSucceeded));
}

INSTANTIATE_TEST_SUITE_P(FirstAndSecond, InitializeEventFailureTest, testing::Values(0U, 1U));

TEST_F(InitializeTest, OpensWithoutTheNamedMutexWhereItCannotBeMade) {
    machine_.FailAlways("CreateMutexW", Fault::Error(5));
    Open();
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace kit
