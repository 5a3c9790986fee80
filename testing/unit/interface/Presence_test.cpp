// IsVelaPresent: with an open session, with another process's mutex, and by a scan.
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/LibraryFolder.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

const std::wstring kMutex = L"Global\\VelaDeviceMutex";
const std::string kMutexQuery = "OpenMutexW(0x1f0001, 0, \"Global\\VelaDeviceMutex\")";

class PresenceTest : public ExportsTest {
 protected:
    std::vector<std::string> MutexCalls() const {
        return machine_.CallTexts({"OpenMutexW", "CreateMutexW"});
    }
    std::size_t Scans() const { return machine_.CountCalls("SetupDiGetClassDevsW"); }
};

// --- no session ----------------------------------------------------------------------------------

TEST_F(PresenceTest, WithoutATouchpadTheMutexIsCheckedFirstAndThenTheDevices) {
    EXPECT_EQ(IsVelaPresent(), 0);
    const std::vector<std::string> calls = machine_.CallTexts();
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[0], kMutexQuery);
    EXPECT_EQ(calls[1], "HidD_GetHidGuid()");
    EXPECT_EQ(Scans(), 1U);
    const std::vector<std::string> texts = log_.Texts();
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(
        texts[0],
        "INFO GetDeviceConnectState: GetDeviceConnectState failed because doesn't initialize");
}

TEST_F(PresenceTest, AnAttachedTouchpadIsFoundWithoutOpeningItForData) {
    simulator::DeviceDescription description = Describe({});
    description.path = L"\\\\?\\hid#touchpad";
    device_ = machine_.Plug(description);
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_THAT(machine_.CallTexts({"CreateFileW"}),
                ElementsAre("CreateFileW(\"\\\\?\\hid#touchpad\", 0x0, 0x3, 3, 0x0)"));
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(PresenceTest, ATouchpadThatAnotherProcessHoldsForItselfIsFoundByTheScan) {
    Plug();
    device_->HoldElsewhere();
    EXPECT_EQ(IsVelaPresent(), 1);
}

TEST_F(PresenceTest, FollowsPluggingAndUnplugging) {
    Plug();
    EXPECT_EQ(IsVelaPresent(), 1);
    device_->Unplug();
    EXPECT_EQ(IsVelaPresent(), 0);
    device_->PlugIn();
    EXPECT_EQ(IsVelaPresent(), 1);
}

TEST_F(PresenceTest, ATouchpadOfAVendorThatIsNotListedIsNotFound) {
    const LibraryFolder folder;
    folder.PutVelaIni("[1A2B]\n");
    Plug();
    EXPECT_EQ(IsVelaPresent(), 0);
    TouchpadLayout listed;
    listed.vendorId = 0x1A2B;
    Plug(listed);
    EXPECT_EQ(IsVelaPresent(), 1);
}

// --- the mutex of another process ----------------------------------------------------------------

TEST_F(PresenceTest, ADeniedMutexIsATouchpadInUseElsewhere) {
    machine_.HoldMutexElsewhere(kMutex, true);
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_THAT(machine_.CallTexts(), ElementsAre(kMutexQuery));
}

TEST_F(PresenceTest, AnyOtherFailureOfTheMutexLeavesTheDecisionToTheScan) {
    for (const std::uint32_t error : {2U, 6U, 1450U}) {
        machine_.FailNext("OpenMutexW", Fault::Error(error));
        EXPECT_EQ(IsVelaPresent(), 0) << error;
    }
    Plug();
    machine_.FailNext("OpenMutexW", Fault::Error(6));
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_EQ(Scans(), 4U);
}

TEST_F(PresenceTest, AGrantedMutexLeavesTheDecisionToTheScanAndStaysOpen) {
    machine_.HoldMutexElsewhere(kMutex, false);
    // A last error of an earlier call must not count.
    SetLastError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(IsVelaPresent(), 0);
    EXPECT_THAT(machine_.OpenHandles(), ElementsAre("mutex#1"));
    Plug();
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_EQ(Scans(), 2U);
    EXPECT_EQ(machine_.OpenHandles().size(), 2U);
    EXPECT_EQ(machine_.CountCalls("CreateMutexW"), 0U);
}

// --- an open session -----------------------------------------------------------------------------

TEST_F(PresenceTest, AnOpenSessionDecidesWithoutMutexOrScan) {
    Plug();
    ASSERT_EQ(Init(), 1);
    machine_.ForgetCalls();
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_THAT(MutexCalls(), IsEmpty());
    EXPECT_THAT(machine_.CallTexts({"HidD_GetHidGuid", "SetupDiGetClassDevsW", "CreateFileW",
                                    "HidD_GetPreparsedData"}),
                IsEmpty());
}

TEST_F(PresenceTest, AnOpenSessionOnAFixedTouchpadIsAlwaysPresent) {
    Open();
    EXPECT_EQ(IsVelaPresent(), 1);
    device_->Unplug();
    EXPECT_EQ(IsVelaPresent(), 1);
}

TEST_F(PresenceTest, AnOpenSessionOnADetachableTouchpadIsPresentWhileTheTouchpadAnswers) {
    Open(DetachableLayout());
    machine_.ForgetCalls();
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_THAT(machine_.CallTexts({"HidD_GetPreparsedData", "HidD_FreePreparsedData"}),
                ElementsAre("HidD_GetPreparsedData(file#3)", "HidD_FreePreparsedData()"));
    device_->Unplug();
    EXPECT_EQ(IsVelaPresent(), 0);
    // Only the session's own touchpad counts, not the one plugged in again.
    device_->PlugIn();
    EXPECT_EQ(IsVelaPresent(), 0);
    EXPECT_THAT(MutexCalls(), IsEmpty());
    EXPECT_EQ(Scans(), 0U);
}

TEST_F(PresenceTest, AfterTheSessionTheMutexAndTheScanDecideAgain) {
    Open();
    UnInit();
    machine_.ForgetCalls();
    EXPECT_EQ(IsVelaPresent(), 1);
    EXPECT_THAT(MutexCalls(), ElementsAre(kMutexQuery));
    EXPECT_EQ(Scans(), 1U);
    device_->Unplug();
    EXPECT_EQ(IsVelaPresent(), 0);
}

}  // namespace
