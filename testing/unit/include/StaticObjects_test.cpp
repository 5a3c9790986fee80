// Static objects of VelaAgent.hpp, in a program and in a plug-in DLL that its host frees or keeps
// until the process ends. The hosts are child processes.
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

using kit::ExitCodeOf;
using kit::LogFolder;
using testing::Contains;

// The exit code of a host that ends normally.
constexpr int kExitedNormally = 42;
// The exit code that std::terminate leads to.
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

// --- the hosts -----------------------------------------------------------------------------------

int FreesOneThatLogs(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    plugIn.Free();
    if (!plugIn.IsLoaded()) return 1;
    FUNCTION(plugIn, CloseAll)();
    return kExitedNormally;
}

int FreesOneWithASession(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    FUNCTION(plugIn, OpenTouchpad)(Dll().c_str());
    plugIn.Free();
    if (!plugIn.IsLoaded()) return 1;
    FUNCTION(plugIn, CloseAll)();
    return kExitedNormally;
}

int FreesOneWithAHapticSession(const std::filesystem::path&) {
    const PlugIn plugIn;
    FUNCTION(plugIn, OpenHaptics)(Dll().c_str());
    plugIn.Free();
    return plugIn.IsLoaded() ? kExitedNormally : 1;
}

int FreesOneThatUsedNothing(const std::filesystem::path&) {
    const PlugIn plugIn;
    plugIn.Free();
    return plugIn.IsLoaded() ? 1 : kExitedNormally;
}

int LeavesWithOneThatLogs(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    return kExitedNormally;
}

int LeavesWithOneThatHasASession(const std::filesystem::path& folder) {
    const PlugIn plugIn;
    FUNCTION(plugIn, StartLog)(Dll().c_str(), folder.c_str());
    FUNCTION(plugIn, OpenTouchpad)(Dll().c_str());
    return kExitedNormally;
}

int LeavesWithItsOwn(const std::filesystem::path& folder) {
    static std::optional<vela_agent::Logger> logger;
    static std::optional<vela_agent::Session> session;
    const vela_agent::Library library(Dll());
    logger.emplace(library, folder);
    session.emplace(library);
    session->Activate(VELA_ACTIVE);
    return kExitedNormally;
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
    bool isClosed;  // the log has the closing lines of everything opened
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

// A session that was not closed in time ends the process through std::terminate (convention 7 of
// VelaAgent.h), but never hangs it.
INSTANTIATE_TEST_SUITE_P(, StaticObjectsTest,
                         testing::Values(Host{"FreesOneThatLogs", kExitedNormally, true},
                                         Host{"FreesOneWithASession", kExitedNormally, true},
                                         Host{"FreesOneWithAHapticSession", kExitedNormally, false},
                                         Host{"FreesOneThatUsedNothing", kExitedNormally, false},
                                         Host{"LeavesWithOneThatLogs", kExitedNormally, false},
                                         Host{"LeavesWithOneThatHasASession", kEndedByTerminate,
                                              false},
                                         Host{"LeavesWithItsOwn", kExitedNormally, true}),
                         [](const auto& test) { return test.param.role; });

TEST_P(StaticObjectsTest, NeverHangTheirHost) {
    EXPECT_EQ(ExitCodeOf(GetParam().role, log_.Path()), GetParam().exitCode);
    if (GetParam().isClosed) {
        EXPECT_THAT(log_.Lines(), Contains("{INFO @ UnInitialize} Logger::UnInitialize"));
    }
}

}  // namespace
