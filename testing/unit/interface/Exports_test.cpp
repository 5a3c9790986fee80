// Opening and closing the touchpad.
#include <thread>

#include "testing/kit/native/ExportsTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class InitTest : public ExportsTest {
 protected:
    void PlugAt(const std::wstring& path) {
        simulator::DeviceDescription description = Describe({});
        description.path = path;
        device_ = machine_.Plug(description);
    }
};

TEST_F(InitTest, WithoutATouchpadThereIsNothingToOpen) {
    EXPECT_EQ(Init(), 2);
    EXPECT_THAT(machine_.CallTexts({"CreateFileW", "OpenMutexW", "CreateMutexW"}), IsEmpty());
    EXPECT_THAT(LogOf("Initialize"), IsEmpty());
}

TEST_F(InitTest, OpensTheTouchpadAndMarksTheSessionSystemWide) {
    PlugAt(L"\\\\?\\hid#touchpad");
    EXPECT_EQ(Init(), 1);
    EXPECT_THAT(machine_.CallTexts({"CreateFileW", "OpenMutexW", "CreateMutexW"}),
                ElementsAre("CreateFileW(\"\\\\?\\hid#touchpad\", 0x0, 0x3, 3, 0x0)",
                            "CreateFileW(\"\\\\?\\hid#touchpad\", 0xc0000000, 0x0, 3, 0x40000000)",
                            "OpenMutexW(0x1f0001, 0, \"Global\\VelaDeviceMutex\")",
                            "CreateMutexW(0, \"Global\\VelaDeviceMutex\")"));
    EXPECT_TRUE(machine_.MutexExists(L"Global\\VelaDeviceMutex"));
    EXPECT_THAT(
        LogOf("Initialize"),
        ElementsAre(
            "INFO Initialize: ================= CTandrelHID initialize start =================",
            "INFO Initialize: ================= CTandrelHID initialize succeeded "
            "================="));
}

TEST_F(InitTest, LeavesTheLightsAndTheHostAlone) {
    Plug();
    Init();
    ASSERT_TRUE(UpdateVelaState());
    ASSERT_TRUE(device_->WaitForOutputs(1));
    EXPECT_THAT(device_->Outputs(), ElementsAre(kit::RequestReport()));
    EXPECT_THAT(kit::HostCallbacks::Calls(), IsEmpty());
}

TEST_F(InitTest, ATouchpadThatAnotherProcessHoldsHasAResultOfItsOwn) {
    Plug();
    device_->HoldElsewhere();
    EXPECT_EQ(Init(), 3);
    device_->ReleaseElsewhere();
    EXPECT_EQ(Init(), 1);
    EXPECT_THAT(LogOf("Initialize"),
                Contains("ERROR Initialize: Initialize failed, CreateFile failed "
                         "GetLastError(32)."));
}

TEST_F(InitTest, ATouchpadThatCannotBeOpenedCountsAsNotFound) {
    Plug();
    machine_.FailNext("CreateFileW", Fault::Error(5), 1);
    EXPECT_EQ(Init(), 2);
    EXPECT_EQ(IsActivated(), 0);
    EXPECT_EQ(UnInit(), 0);
    EXPECT_THAT(
        LogOf("Initialize"),
        Contains("ERROR Initialize: Initialize failed, CreateFile failed GetLastError(5)."));
}

TEST_F(InitTest, AFailedInitKeepsNothing) {
    Plug();
    device_->HoldElsewhere();
    Init();
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
    EXPECT_EQ(machine_.GlobalMemoryInUse(), 0U);
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(InitTest, ASecondInitFindsTheSessionOpenAndOpensNothing) {
    Plug();
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(device_->OpenHandles(), 1U);
    // Two scans open the device once each, the session once.
    EXPECT_EQ(machine_.CountCalls("CreateFileW"), 3U);
    EXPECT_THAT(
        LogOf("Initialize"),
        Contains("INFO Initialize: Initialize re-initialize, return true immediately.").Times(1));
}

TEST_F(InitTest, TheRecordOfASecondInitIsReleasedBeforeItReturns) {
    Plug();
    Init();
    Init();
    EXPECT_EQ(machine_.PreparsedDataInUse(), 1U);
    UnInit();
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
    EXPECT_THAT(LogOf("~CHIDInformation"), testing::SizeIs(2));
}

TEST_F(InitTest, ASecondInitThatFindsNoTouchpadLeavesTheSessionOpen) {
    Plug();
    Init();
    device_->Unplug();
    EXPECT_EQ(Init(), 2);
    EXPECT_EQ(EnableFeature(1), 1);
    EXPECT_EQ(UnInit(), 1);
}

TEST_F(InitTest, OpensTheFirstOfTwoTouchpads) {
    Plug();
    const auto second = machine_.Plug(Describe({}));
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(device_->OpenHandles(), 1U);
    EXPECT_EQ(second->OpenHandles(), 0U);
}

TEST_F(InitTest, OfSeveralThreadsOpensOneSession) {
    Plug();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            IsActivated();
            IsFeatureEnabled();
            IsVelaPresent();
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(device_->OpenHandles(), 1U);
}

// --- UnInit --------------------------------------------------------------------------------------

using UnInitTest = InitTest;

TEST_F(UnInitTest, WithoutASessionClosesNothing) {
    EXPECT_EQ(UnInit(), 0);
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    EXPECT_THAT(log_.Texts(),
                ElementsAre("INFO Uninitialize: ================= Uninitialize starts. "
                            "================="));
}

TEST_F(UnInitTest, ClosesTheSessionOnce) {
    Plug();
    Init();
    EXPECT_EQ(UnInit(), 1);
    EXPECT_EQ(UnInit(), 0);
    EXPECT_EQ(device_->OpenHandles(), 0U);
    EXPECT_FALSE(machine_.MutexExists(L"Global\\VelaDeviceMutex"));
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
    // The session keeps its events open.
    EXPECT_THAT(machine_.OpenHandles(), testing::Each(StartsWith("event#")));
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(UnInitTest, DarkensTheLights) {
    OpenAndLight();
    UnInit();
    EXPECT_EQ(device_->Outputs().back(), BlankReport());
}

TEST_F(UnInitTest, ResetsTheSwitches) {
    OpenAndLight();
    EXPECT_EQ(UnInit(), 1);
    EXPECT_EQ(IsActivated(), 0);
    EXPECT_EQ(IsFeatureEnabled(), 0);
    EXPECT_EQ(IsSingleButtonEnabled(VELA_BUTTON_CAMERA), 0);
    EXPECT_EQ(IsChatBreathingEnabled(), 0);
}

TEST_F(UnInitTest, MayBeFollowedByANewInit) {
    Plug();
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(Init(), 1);
        EXPECT_EQ(Activate(VELA_ACTIVE), 1);
        EXPECT_EQ(EnableFeature(1), 1);
        EXPECT_EQ(UnInit(), 1);
    }
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
