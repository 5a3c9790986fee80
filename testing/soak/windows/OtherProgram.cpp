#include "testing/soak/windows/OtherProgram.h"

#include <atomic>
#include <stdexcept>

#include "include/VelaAgentDevices.hpp"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/control/WaitingCreateFile.h"

namespace soak {
namespace {

constexpr char kRole[] = "TakesTheTouchpad";
constexpr wchar_t kReady[] = L"VelaSoakReady";
constexpr wchar_t kRelease[] = L"VelaSoakRelease";
constexpr DWORD kPatienceMs = 30000;

// Its exit code says whether it has had the touchpad.
int TakeTheTouchpad(const std::filesystem::path&) {
    virtual_touchpad::MakeCreateFileWait(GetModuleHandleW(nullptr));
    std::atomic<bool> isTaken{false};
    const auto take = [&](const std::wstring& path) {
        const HANDLE touchpad = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                            OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
        if (touchpad != INVALID_HANDLE_VALUE) isTaken = true;
    };
    const vela_agent::detail::DeviceEvents events{take, [](const std::wstring&) {}, [] {}};
    const vela_agent::detail::WindowNotifications window(events);
    SetEvent(OpenEventW(EVENT_MODIFY_STATE, FALSE, kReady));
    WaitForSingleObject(OpenEventW(SYNCHRONIZE, FALSE, kRelease), kPatienceMs);
    return isTaken ? 0 : 1;
}

const kit::RegisteredRole kTakesTheTouchpad{kRole, TakeTheTouchpad};

}  // namespace

OtherProgram::OtherProgram()
    : ready_(CreateEventW(nullptr, FALSE, FALSE, kReady)),
      release_(CreateEventW(nullptr, FALSE, FALSE, kRelease)),
      process_(std::make_unique<kit::ChildProcess>(kRole, kit::ProgramFolder())) {
    if (WaitForSingleObject(ready_, kPatienceMs) != WAIT_OBJECT_0) {
        throw std::runtime_error("the other program does not start");
    }
}

OtherProgram::~OtherProgram() {
    process_.reset();
    CloseHandle(release_);
    CloseHandle(ready_);
}

bool OtherProgram::End() {
    SetEvent(release_);
    return process_->Wait() == 0;
}

}  // namespace soak
