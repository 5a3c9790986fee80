// Static objects of VelaAgent.hpp, in a program and in a plug-in DLL that its host frees, or leaves
// to the end of the process. The hosts are child processes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "include/VelaAgent.hpp"
#include "testing/kit/LogFolder.h"
#include "testing/kit/windows/ChildProcess.h"
#include "testing/unit/include/PlugIn.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using kit::ChildProcess;
using kit::LogFolder;
using testing::Contains;

// No other way out gives this.
constexpr int kLeftInPeace = 42;
// What the C++ runtime's terminate makes of a process.
constexpr DWORD kEndedByTerminate = 3;

std::filesystem::path InProgramFolder(const wchar_t* file) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path() / file;
}
const std::filesystem::path& Dll() {
    static const auto dll = InProgramFolder(L"VelaAgent.dll");
    return dll;
}

class PlugIn {
 public:
    template <typename Function>
    Function* Find(const char* name) const {
        const FARPROC function = GetProcAddress(module_, name);
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(function));
    }
    void Free() const { FreeLibrary(module_); }
    bool IsLoaded() const { return GetModuleHandleW(kFile) != nullptr; }

 private:
    static constexpr wchar_t kFile[] = L"header_plug_in.dll";
    const HMODULE module_ = LoadLibraryW(InProgramFolder(kFile).c_str());
};
#define FUNCTION(plugIn, name) plugIn.Find<decltype(name)>(#name)

// --- what the hosts do ---------------------------------------------------------------------------

int FreesOneThatLogs(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    plugIn.Free();
    if (!plugIn.IsLoaded()) return 1;
    FUNCTION(plugIn, CloseAll)();
    return kLeftInPeace;
}

int FreesOneWithASession(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    FUNCTION(plugIn, OpenTouchpad)(Dll().c_str());
    plugIn.Free();
    if (!plugIn.IsLoaded()) return 1;
    FUNCTION(plugIn, CloseAll)();
    return kLeftInPeace;
}

int FreesOneWithAHapticSession(const std::filesystem::path&) {
    const PlugIn plugIn;
    FUNCTION(plugIn, OpenHaptics)(Dll().c_str());
    plugIn.Free();
    return plugIn.IsLoaded() ? kLeftInPeace : 1;
}

int FreesOneThatUsedNothing(const std::filesystem::path&) {
    const PlugIn plugIn;
    plugIn.Free();
    return plugIn.IsLoaded() ? 1 : kLeftInPeace;
}

int LeavesWithOneThatLogs(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    return kLeftInPeace;
}

int LeavesWithOneThatHasASession(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    FUNCTION(plugIn, OpenTouchpad)(Dll().c_str());
    return kLeftInPeace;
}

int LeavesWithItsOwn(const std::filesystem::path& folder) {
    static std::optional<vela_agent::Logger> logger;
    static std::optional<vela_agent::Session> session;
    const vela_agent::Library library(Dll());
    logger.emplace(library, folder);
    session.emplace(library);
    session->Activate(VELA_ACTIVE);
    return kLeftInPeace;
}

const kit::RegisteredRole kRoles[] = {
    {"FreesOneThatLogs", FreesOneThatLogs},
    {"FreesOneWithASession", FreesOneWithASession},
    {"FreesOneWithAHapticSession", FreesOneWithAHapticSession},
    {"FreesOneThatUsedNothing", FreesOneThatUsedNothing},
    {"LeavesWithOneThatLogs", LeavesWithOneThatLogs},
    {"LeavesWithOneThatHasASession", LeavesWithOneThatHasASession},
    {"LeavesWithItsOwn", LeavesWithItsOwn},
};

// --- tests ---------------------------------------------------------------------------------------

struct Host {
    const char* role;
    DWORD exitCode;
    bool isClosed;  // what was open was closed, line by line in the log
};

class StaticObjectsTest : public testing::TestWithParam<Host> {
 protected:
    StaticObjectsTest() {
        virtual_touchpad::UnplugAll();
        virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
        virtual_touchpad::Plug(virtual_touchpad::SettingsOf(virtual_touchpad::HapticLayout{}),
                               L"haptic");
    }
    ~StaticObjectsTest() override { virtual_touchpad::UnplugAll(); }

    const LogFolder log_;
};

// A session that nobody closed in time ends the process through the C++ runtime (convention 7 of
// VelaAgent.h), but it ends.
INSTANTIATE_TEST_SUITE_P(, StaticObjectsTest,
                         testing::Values(Host{"FreesOneThatLogs", kLeftInPeace, true},
                                         Host{"FreesOneWithASession", kLeftInPeace, true},
                                         Host{"FreesOneWithAHapticSession", kLeftInPeace, false},
                                         Host{"FreesOneThatUsedNothing", kLeftInPeace, false},
                                         Host{"LeavesWithOneThatLogs", kLeftInPeace, false},
                                         Host{"LeavesWithOneThatHasASession", kEndedByTerminate,
                                              false},
                                         Host{"LeavesWithItsOwn", kLeftInPeace, true}),
                         [](const auto& test) { return test.param.role; });

TEST_P(StaticObjectsTest, NeverHangTheirHost) {
    ChildProcess host(GetParam().role, log_.Path());
    EXPECT_EQ(host.Wait(), GetParam().exitCode);
    if (GetParam().isClosed) {
        EXPECT_THAT(log_.Lines(), Contains("{INFO @ UnInitialize} Logger::UnInitialize"));
    }
}

}  // namespace
