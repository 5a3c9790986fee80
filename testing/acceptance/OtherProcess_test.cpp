// The touchpad and its mutex while other processes use them. The others are child processes.
#include "testing/acceptance/FurtherDevice.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/ChildProcess.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/WaitingCreateFile.h"

namespace acceptance {
namespace {

using testing::Contains;
using testing::Not;
using testing::StartsWith;
using virtual_touchpad::MakeCreateFileWait;

constexpr wchar_t kMutex[] = L"Global\\VelaDeviceMutex";
constexpr wchar_t kReleaseSignal[] = L"VelaAcceptanceTestsRelease";
constexpr char kRefusedLine[] =
    "{ERROR @ Initialize} Initialize failed, CreateFile failed GetLastError(32).";

// --- the other processes -------------------------------------------------------------------------

void WaitForRelease() {
    WaitForSingleObject(OpenEventW(SYNCHRONIZE, FALSE, kReleaseSignal), INFINITE);
}

// Another program has the only touchpad open.
template <DWORD access, DWORD share>
int HoldsTheTouchpad(const std::filesystem::path&) {
    const std::wstring path = virtual_touchpad::PluggedDevices().front().hidPath;
    CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    WaitForRelease();
    return 0;
}

// Another host.
int HoldsASession(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    agent.EnableFeature(1);
    agent.Activate(VELA_ACTIVE);
    for (std::uint32_t button = 0; button < 4; ++button) {
        agent.EnableSingleButton(button, 1);
        agent.SetButtonVisible(button, 1);
    }
    WaitForRelease();
    if (agent.UnInit() != 1) return 1;
    agent.UnInitLogger();
    return 0;
}

// Another host finds the touchpad held by this process.
int FindsItHeld(const std::filesystem::path& folder) {
    AgentDll agent;
    MakeCreateFileWait(GetModuleHandleW(L"VelaAgent.dll"));
    agent.InitLogger(folder.c_str());
    const bool isHeld = agent.IsVelaPresent() == 1 && agent.Init() == VELA_INIT_HELD_BY_OTHER &&
                        agent.UnInit() == 0;
    agent.UnInitLogger();
    return isHeld ? 0 : 1;
}

// Stands for another user's host: an empty access list denies everybody the mutex.
int KeepsTheMutexToItself(const std::filesystem::path&) {
    ACL nobody{};
    SECURITY_DESCRIPTOR descriptor{};
    SECURITY_ATTRIBUTES security{sizeof(security), &descriptor, FALSE};
    if (!InitializeAcl(&nobody, sizeof(nobody), ACL_REVISION) ||
        !InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) ||
        !SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE) ||
        CreateMutexW(&security, FALSE, kMutex) == nullptr) {
        return 1;
    }
    WaitForRelease();
    return 0;
}

constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

const RegisteredRole kRoles[] = {
    {"HoldsItForItself", HoldsTheTouchpad<kReadWrite, 0>},
    {"HoldsItShared", HoldsTheTouchpad<kReadWrite, kShareAll>},
    {"ReadsItShared", HoldsTheTouchpad<GENERIC_READ, kShareAll>},
    {"WritesItShared", HoldsTheTouchpad<GENERIC_WRITE, kShareAll>},
    {"HoldsASession", HoldsASession},
    {"FindsItHeld", FindsItHeld},
    {"KeepsTheMutexToItself", KeepsTheMutexToItself},
};

class OtherProcessTest : public TouchpadAcceptanceTest {
 protected:
    OtherProcessTest() { MakeCreateFileWait(GetModuleHandleW(L"VelaAgent.dll")); }
    ~OtherProcessTest() override { CloseHandle(release_); }

    // Returns ERROR_SUCCESS while a process has the mutex open and others may open it too.
    static DWORD MutexError() {
        const HANDLE mutex = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kMutex);
        if (mutex == nullptr) return GetLastError();
        CloseHandle(mutex);
        return ERROR_SUCCESS;
    }
    static bool WaitForMutexError(DWORD error) {
        return WaitUntil([error] { return MutexError() == error; });
    }
    static bool WaitForOpens(const virtual_touchpad::VirtualDevice& device, std::uint32_t count) {
        return device.WaitForState(
            [count](const VirtualHidState& state) { return state.readWriteOpens == count; },
            kPatience);
    }
    bool WaitForOpens(std::uint32_t count) { return WaitForOpens(Touchpad().Device(), count); }

    const HANDLE release_ = CreateEventW(nullptr, TRUE, FALSE, kReleaseSignal);
    const LogFolder othersLog_;
};

// --- the touchpad --------------------------------------------------------------------------------

class HeldTouchpadTest : public OtherProcessTest,
                         public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(, HeldTouchpadTest,
                         testing::Values("HoldsItForItself", "HoldsItShared", "ReadsItShared",
                                         "WritesItShared", "HoldsASession"),
                         [](const auto& test) { return test.param; });

// The agent opens the touchpad exclusively, so another program's share mode does not matter.
TEST_P(HeldTouchpadTest, IsPresentButNotOpenedUntilItIsReleased) {
    Plug();
    ChildProcess other(GetParam(), othersLog_.Path());
    ASSERT_TRUE(WaitForOpens(1));
    EXPECT_EQ(agent_.Init(), VELA_INIT_HELD_BY_OTHER);
    EXPECT_TRUE(log_.WaitForLine(kRefusedLine));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.UnInit(), 0);

    // Init does not try another touchpad.
    FurtherDevice unused(L"unused");
    EXPECT_EQ(agent_.Init(), VELA_INIT_HELD_BY_OTHER);
    EXPECT_TRUE(unused.IsUntouched());
    EXPECT_TRUE(WaitForOpens(1));

    SetEvent(release_);
    EXPECT_EQ(other.Wait(), 0U);
    ASSERT_TRUE(WaitForOpens(0));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
}

TEST_F(OtherProcessTest, AnotherHostsSessionIsNotDisturbed) {
    Plug();
    ChildProcess other("HoldsASession", othersLog_.Path());
    ASSERT_TRUE(WaitForLights(AllFourLit));
    EXPECT_EQ(agent_.Init(), VELA_INIT_HELD_BY_OTHER);
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.EnableFeature(1), 0);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_MICROPHONE, 1), 0);
    EXPECT_EQ(agent_.UnInit(), 0);
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) {
        return lights.Brightness(0x20) == 3 && lights.Brightness(0x26) == 0;
    }));
    SetEvent(release_);
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
    EXPECT_THAT(othersLog_.Lines(), Not(Contains(StartsWith("{ERROR"))));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
}

TEST_F(OtherProcessTest, AnotherHostFindsThisOnesTouchpadHeld) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    ChildProcess other("FindsItHeld", othersLog_.Path());
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_EQ(othersLog_.CountLines(kRefusedLine), 1U);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
}

// The second touchpad is plugged in later, under a name that is enumerated first.
TEST_F(OtherProcessTest, TwoHostsMayHaveATouchpadEach) {
    Plug();
    ChildProcess other("HoldsASession", othersLog_.Path());
    ASSERT_TRUE(WaitForLights(AllFourLit));
    FurtherDevice own(L"own");
    virtual_touchpad::TouchpadControl ownControl(L"own");
    const auto ownLights = [&](const auto& wanted) {
        return own.Device().WaitForState(
            [&](const VirtualHidState&) { return wanted(ownControl.CurrentLights()); }, kPatience);
    };
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(ownLights(AllFourLit));

    Touchpad().Press(kMicrophoneButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x26) == 3; }));
    EXPECT_TRUE(AllFourLit(ownControl.CurrentLights()));
    ownControl.Press(kCameraButton);
    EXPECT_TRUE(ownLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    EXPECT_EQ(Touchpad().CurrentLights().Brightness(0x20), 0);
    EXPECT_THAT(HostCallbacks::Calls(), testing::ElementsAre("status 0", "press 0 1"));

    SetEvent(release_);
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(ownLights(AllDark));
}

// --- the mutex -----------------------------------------------------------------------------------

TEST_F(OtherProcessTest, TheMutexExistsFromInitToUnInit) {
    Plug();
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(MutexError(), DWORD{ERROR_FILE_NOT_FOUND});
        ASSERT_NO_FATAL_FAILURE(Open());
        EXPECT_EQ(MutexError(), DWORD{ERROR_SUCCESS});
        EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
        EXPECT_EQ(MutexError(), DWORD{ERROR_SUCCESS});
        EXPECT_EQ(agent_.UnInit(), 1);
    }
    EXPECT_EQ(MutexError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(OtherProcessTest, ARefusedInitMakesNoMutex) {
    Plug();
    ChildProcess other("HoldsItForItself", othersLog_.Path());
    ASSERT_TRUE(WaitForOpens(1));
    EXPECT_EQ(agent_.Init(), VELA_INIT_HELD_BY_OTHER);
    EXPECT_EQ(MutexError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(OtherProcessTest, TheMutexEndsWithAnotherHostsSession) {
    Plug();
    ChildProcess other("HoldsASession", othersLog_.Path());
    EXPECT_TRUE(WaitForMutexError(ERROR_SUCCESS));
    SetEvent(release_);
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_TRUE(WaitForMutexError(ERROR_FILE_NOT_FOUND));
}

TEST_F(OtherProcessTest, AKilledHostKeepsNeitherTheMutexNorTheTouchpad) {
    Plug();
    ChildProcess other("HoldsASession", othersLog_.Path());
    ASSERT_TRUE(WaitForMutexError(ERROR_SUCCESS));
    other.Terminate(7);
    EXPECT_TRUE(WaitForMutexError(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(WaitForOpens(0));
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
}

// A mutex that can be opened means nothing for presence, and IsVelaPresent keeps it open.
TEST_F(OtherProcessTest, WhoeverFoundTheMutexKeepsItForThisProcess) {
    Plug();
    ChildProcess other("HoldsASession", othersLog_.Path());
    ASSERT_TRUE(WaitForMutexError(ERROR_SUCCESS));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    SetEvent(release_);
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_EQ(MutexError(), DWORD{ERROR_SUCCESS});
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 0);

    // A session that finds the mutex creates none.
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(MutexError(), DWORD{ERROR_SUCCESS});
}

TEST_F(OtherProcessTest, ADeniedMutexIsATouchpadInUse) {
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    ChildProcess other("KeepsTheMutexToItself", othersLog_.Path());
    ASSERT_TRUE(WaitForMutexError(ERROR_ACCESS_DENIED));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    // Only IsVelaPresent depends on the mutex; Init finds no touchpad.
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);

    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 1);

    SetEvent(release_);
    EXPECT_EQ(other.Wait(), 0U);
    EXPECT_TRUE(WaitForMutexError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
}

}  // namespace
}  // namespace acceptance
