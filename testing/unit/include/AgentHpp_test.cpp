// VelaAgent.hpp with the built DLL and a virtual touchpad.
#include "include/VelaAgent.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <optional>
#include <vector>

#include "VelaAgentVersion.h"
#include "testing/kit/Reports.h"
#include "testing/kit/TemporaryFolder.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/ChildProcess.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace virtual_touchpad::events;
using std::chrono_literals::operator""s;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using vela_agent::Library;
using vela_agent::LoadError;
using vela_agent::OpenError;
using vela_agent::Session;
using virtual_touchpad::TouchpadControl;
using virtual_touchpad::TouchpadLayout;

const std::filesystem::path kDll = kit::ProgramFolder() / "VelaAgent.dll";

// --- Library -------------------------------------------------------------------------------------

TEST(LibraryTest, LoadsTheDllByItsFullPath) {
    const Library library(kDll);
    EXPECT_EQ(library.File(), kDll);
    EXPECT_EQ(library.Module(), GetModuleHandleW(kDll.c_str()));
    EXPECT_EQ(library.IsActivated(), 0);
    EXPECT_EQ(library.GetVelaBrightness(), 3U);
}

TEST(LibraryTest, StaysLoadedWhoeverFreesIt) {
    const Library library(kDll);
    for (int i = 0; i < 10; ++i) FreeLibrary(library.Module());
    EXPECT_EQ(GetModuleHandleW(kDll.c_str()), library.Module());
    EXPECT_EQ(library.GetVelaBrightness(), 3U);
}

TEST(LibraryTest, TakesForwardSlashesToo) {
    EXPECT_EQ(Library(kDll.generic_wstring()).Module(), Library(kDll).Module());
}

struct Unloadable {
    const char* name;
    std::filesystem::path file;
    const char* exportName;
    DWORD error;
};

class UnloadableTest : public testing::TestWithParam<Unloadable> {};

std::filesystem::path SystemFile(const wchar_t* name) {
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return std::filesystem::path(folder) / name;
}

INSTANTIATE_TEST_SUITE_P(
    , UnloadableTest,
    testing::Values(
        // Windows would find this one on its search path.
        Unloadable{"ABareName", L"VelaAgent.dll", "", ERROR_BAD_PATHNAME},
        Unloadable{"ARelativePath", L".\\VelaAgent.dll", "", ERROR_BAD_PATHNAME},
        Unloadable{"AMissingFile", kit::ProgramFolder() / "Missing.dll", "", ERROR_MOD_NOT_FOUND},
        Unloadable{"ALibraryWithoutTheExports", SystemFile(L"hid.dll"), "Activate",
                   ERROR_PROC_NOT_FOUND}),
    [](const auto& test) { return test.param.name; });

TEST_P(UnloadableTest, IsReportedWithPathExportAndSystemError) {
    try {
        Library{GetParam().file};
        FAIL() << "loaded";
    } catch (const LoadError& error) {
        EXPECT_EQ(error.File(), GetParam().file);
        EXPECT_EQ(error.ExportName(), GetParam().exportName);
        EXPECT_EQ(error.SystemError(), GetParam().error);
        EXPECT_THAT(error.what(),
                    AllOf(HasSubstr(GetParam().file.string()), HasSubstr(GetParam().exportName),
                          HasSubstr("(error " + std::to_string(GetParam().error))));
    }
}

// --- Logger --------------------------------------------------------------------------------------

TEST(LoggerTest, WritesTheLogWhileItLives) {
    const kit::TemporaryFolder folder;
    const Library library(kDll);
    { const vela_agent::Logger logger(library, folder.Path()); }
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "VelaAgent.log"));
}

TEST(LoggerTest, StaysInTheDirectoryThatARelativePathNamedWhenItBegan) {
    const auto before = std::filesystem::current_path();
    const kit::TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() / "logs");
    std::filesystem::current_path(folder.Path());
    {
        const vela_agent::Logger logger(Library(kDll), "logs");
        std::filesystem::current_path(before);
    }
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "logs" / "VelaAgent.log"));
}

TEST(LoggerTest, RefusesADirectoryThatDoesNotExist) {
    for (const std::filesystem::path directory : {L"C:\\nowhere \u89c6", L"", kDll.c_str()}) {
        try {
            const vela_agent::Logger logger(Library(kDll), directory);
            FAIL() << "logs into " << directory;
        } catch (const vela_agent::LogError& error) {
            EXPECT_EQ(error.Directory(), directory);
            EXPECT_EQ(error.what(), "no log directory " + directory.u8string());
        }
    }
}

// --- Session -------------------------------------------------------------------------------------

// The handlers' calls, noted from any thread.
class Calls {
 public:
    void Note(const std::string& call) {
        const std::lock_guard<std::mutex> lock(mutex_);
        calls_.push_back(call);
        called_.notify_all();
    }
    std::vector<std::string> WaitFor(std::size_t count) {
        std::unique_lock<std::mutex> lock(mutex_);
        called_.wait_for(lock, 10s, [&] { return calls_.size() >= count; });
        return calls_;
    }

 private:
    std::mutex mutex_;  // guards: calls_
    std::condition_variable called_;
    std::vector<std::string> calls_;
};

class SessionTest : public testing::Test {
 protected:
    SessionTest() { virtual_touchpad::UnplugAll(); }
    ~SessionTest() override { virtual_touchpad::UnplugAll(); }

    vela_agent::Handlers NotingHandlers() {
        return {[this](VelaButton button, bool newLight) {
                    calls_.Note("press " + std::to_string(button) + (newLight ? " on" : " off"));
                },
                [this](std::uint32_t status) { calls_.Note("status " + std::to_string(status)); }};
    }

    const Library library_{kDll};
    Calls calls_;
};

TEST_F(SessionTest, WithoutATouchpadThrows) {
    try {
        Session{library_};
        FAIL() << "opened";
    } catch (const OpenError& error) {
        EXPECT_EQ(error.Result(), VELA_INIT_NOT_FOUND);
        EXPECT_THAT(error.what(), HasSubstr("no touchpad found"));
    }
}

TEST_F(SessionTest, LightsTheButtonsAndReportsTheirPresses) {
    virtual_touchpad::Plug(TouchpadLayout{});
    TouchpadControl touchpad;
    const auto brightness = [&](std::uint16_t usage, std::uint8_t wanted) {
        return touchpad.Device().WaitForState(
            [&](const VirtualHidState&) {
                return touchpad.CurrentLights().Brightness(usage) == wanted;
            },
            10s);
    };
    {
        Session session(library_, NotingHandlers());
        EXPECT_TRUE(session.Activate(VELA_ACTIVE));
        EXPECT_TRUE(session.EnableFeature(true));
        EXPECT_TRUE(session.EnableButton(VELA_BUTTON_CAMERA, true));
        EXPECT_TRUE(session.SetVisible(VELA_BUTTON_CAMERA, true));
        session.SetBrightness(200);
        EXPECT_EQ(session.Brightness(), 200);
        EXPECT_TRUE(brightness(0x21, 200));
        touchpad.Press(kCameraButton);
        EXPECT_THAT(calls_.WaitFor(2), ElementsAre("status 0", "press 0 on"));
        EXPECT_TRUE(brightness(0x20, 200));
    }
    EXPECT_TRUE(brightness(0x20, 0));
    EXPECT_EQ(library_.UnInit(), 0);
}

TEST_F(SessionTest, IsOneAtATimeAndMayBeOpenedAgain) {
    virtual_touchpad::Plug(TouchpadLayout{});
    std::optional<Session> session(std::in_place, library_);
    EXPECT_THROW(Session{library_}, std::logic_error);
    session.emplace(library_, NotingHandlers());
    EXPECT_TRUE(session->Activate(VELA_ACTIVE_HOST_SETS_LIGHTS));
    EXPECT_THAT(calls_.WaitFor(1), ElementsAre("status 1"));
}

TEST_F(SessionTest, ACallbackThatComesLateFindsNoHandler) {
    virtual_touchpad::Plug(TouchpadLayout{});
    { const Session session(library_, NotingHandlers()); }
    vela_agent::detail::OnPress(0, 1);
    vela_agent::detail::OnStatus(3);
    EXPECT_THAT(calls_.WaitFor(0), ElementsAre());
}

TEST_F(SessionTest, AnEmptyHandlerIsNotCalled) {
    virtual_touchpad::Plug(TouchpadLayout{});
    Session session(library_);
    EXPECT_TRUE(session.Activate(VELA_ACTIVE));
    vela_agent::detail::OnPress(0, 1);
}

// --- Haptics -------------------------------------------------------------------------------------

using HapticsTest = SessionTest;

TEST_F(HapticsTest, ReadsAndSetsTheLevel) {
    EXPECT_THROW(vela_agent::Haptics{library_}, OpenError);
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(virtual_touchpad::HapticLayout{}),
                           L"haptic");
    vela_agent::Haptics haptics(library_);
    EXPECT_TRUE(haptics.SetLevel(42));
    EXPECT_EQ(haptics.Level(), 42U);
}

// --- VelaAgentVersion.h --------------------------------------------------------------------------

TEST(VersionTest, TextAndNumbersAgree) {
    EXPECT_EQ(VELA_AGENT_VERSION, std::to_string(VELA_AGENT_VERSION_MAJOR) + "." +
                                      std::to_string(VELA_AGENT_VERSION_MINOR) + "." +
                                      std::to_string(VELA_AGENT_VERSION_PATCH));
}

}  // namespace

int main(int argc, char** argv) {
    if (kit::IsChildProcess(argc, argv)) return kit::PlayChildRole(argv);
    testing::InitGoogleMock(&argc, argv);
    vela_agent::LeaveProcess(RUN_ALL_TESTS());
}
