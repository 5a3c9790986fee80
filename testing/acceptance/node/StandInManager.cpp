// A library in place of the configuration manager and of powrprof.dll, for a Wine without their
// notifications: it passes on what a window is notified of. It takes one registration of each kind
// at a time, and refuses a second one for devices.
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

#include "VelaAgentDevices.hpp"

namespace {

using PowerCallback = ULONG(CALLBACK*)(void* context, ULONG what, void* setting);

struct PowerRecipient {  // DEVICE_NOTIFY_SUBSCRIBE_PARAMETERS
    PowerCallback callback;
    void* context;
};

PCM_NOTIFY_CALLBACK deviceCallback = nullptr;
const PowerRecipient* powerRecipient = nullptr;
std::unique_ptr<vela_agent::detail::WindowNotifications> window;

void Notify(CM_NOTIFY_ACTION action, const std::wstring& path) {
    const std::size_t pathSize = (path.size() + 1) * sizeof(wchar_t);
    std::vector<std::uint64_t> record((sizeof(CM_NOTIFY_EVENT_DATA) + pathSize) / 8 + 1);
    const auto data = reinterpret_cast<CM_NOTIFY_EVENT_DATA*>(record.data());
    std::memcpy(data->u.DeviceInterface.SymbolicLink, path.c_str(), pathSize);
    deviceCallback(nullptr, nullptr, action, data, static_cast<DWORD>(record.size() * 8));
}

const vela_agent::detail::DeviceEvents events{
    [](const std::wstring& path) { Notify(CM_NOTIFY_ACTION_DEVICEINTERFACEARRIVAL, path); },
    [](const std::wstring& path) { Notify(CM_NOTIFY_ACTION_DEVICEINTERFACEREMOVAL, path); },
    [] {
        if (powerRecipient == nullptr) return;
        powerRecipient->callback(powerRecipient->context, PBT_APMRESUMEAUTOMATIC, nullptr);
    }};

// Returns whether the filter is one for the interfaces of HID devices.
bool IsForHidInterfaces(const CM_NOTIFY_FILTER& filter) {
    return filter.cbSize == sizeof(filter) && filter.Flags == 0 &&
           filter.FilterType == CM_NOTIFY_FILTER_TYPE_DEVICEINTERFACE &&
           IsEqualGUID(filter.u.DeviceInterface.ClassGuid, vela_agent::detail::kHidInterfaces);
}

}  // namespace

extern "C" {

DWORD StandInRegister(const CM_NOTIFY_FILTER* filter, void*, PCM_NOTIFY_CALLBACK callback,
                      void** handle) {
    if (window != nullptr) return CR_FAILURE;
    if (!IsForHidInterfaces(*filter)) return CR_INVALID_DATA;
    deviceCallback = callback;
    window = std::make_unique<vela_agent::detail::WindowNotifications>(events);
    *handle = &deviceCallback;
    return CR_SUCCESS;
}

// Waits for a notification under way, as the system does.
DWORD StandInUnregister(void* handle) {
    if (handle != &deviceCallback) return CR_INVALID_DATA;
    window.reset();
    return CR_SUCCESS;
}

DWORD StandInRegisterPower(DWORD flags, const PowerRecipient* recipient, void** handle) {
    constexpr DWORD kByCallback = 2;  // DEVICE_NOTIFY_CALLBACK
    if (flags != kByCallback) return ERROR_INVALID_PARAMETER;
    powerRecipient = recipient;
    *handle = &powerRecipient;
    return ERROR_SUCCESS;
}

DWORD StandInUnregisterPower(void* handle) {
    if (handle != &powerRecipient) return ERROR_INVALID_PARAMETER;
    powerRecipient = nullptr;
    return ERROR_SUCCESS;
}

// Does as if the machine resumed from sleep, on a thread as the system's.
void StandInResume() { std::thread(events.onResume).detach(); }

}  // extern "C"
