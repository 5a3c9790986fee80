// Notifications for VelaAgentWatch.hpp: touchpads that arrive and leave, and the machine's resume
// from sleep. Hosts use vela_agent::Watch instead.
#ifndef VELA_AGENT_DEVICES_HPP
#define VELA_AGENT_DEVICES_HPP

#include "VelaAgent.hpp"

#pragma push_macro("min")
#pragma push_macro("max")
#undef min
#undef max

#include <setupapi.h>

#include <cfgmgr32.h>
#include <dbt.h>

// Not every toolchain's hidpi.h declares its functions for C++.
extern "C" {
#include <hidsdi.h>

#include <hidpi.h>
}

#include <future>
#include <thread>
#include <vector>

#pragma pop_macro("max")
#pragma pop_macro("min")

namespace vela_agent {
namespace detail {

// The class of all HID interfaces, as documented for HidD_GetHidGuid.
inline constexpr GUID kHidInterfaces = {
    0x4D1E55B2, 0xF16F, 0x11CF, {0x88, 0xCB, 0x00, 0x11, 0x11, 0x00, 0x00, 0x30}};

// Finds a function that older systems do not have; null when there is none. Its library stays
// loaded.
template <typename Function>
Function FindSystemFunction(const wchar_t* library, const char* name) {
    const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC address = module == nullptr ? nullptr : GetProcAddress(module, name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

// What the sources below report. The handlers run on a thread of the source's own, and return soon:
// the system waits for them.
struct DeviceEvents {
    std::function<void(const std::wstring& path)> onArrival;  // of a HID interface
    std::function<void(const std::wstring& path)> onRemoval;
    std::function<void()> onResume;
};

// Notifications through a window that is never shown, on a thread of its own.
class WindowNotifications {
 public:
    explicit WindowNotifications(const DeviceEvents& events) : events_(events) {
        thread_ = std::thread([this] { Run(); });
        window_ = created_.get_future().get();
    }
    ~WindowNotifications() {
        if (window_ != nullptr) PostMessageW(window_, WM_CLOSE, 0, 0);
        thread_.join();
    }
    WindowNotifications(const WindowNotifications&) = delete;
    WindowNotifications& operator=(const WindowNotifications&) = delete;

    // Returns false where the system has no window, as there is no window station, or does not
    // notify it.
    bool AreOn() const { return window_ != nullptr; }

 private:
    static constexpr const wchar_t* kClass = L"VelaAgentWatch";

    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM what, LPARAM data) {
        const auto self =
            reinterpret_cast<WindowNotifications*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_DEVICECHANGE && self != nullptr) self->OnDeviceChange(what, data);
        if (message == WM_POWERBROADCAST && what == PBT_APMRESUMEAUTOMATIC && self != nullptr) {
            self->events_.onResume();
        }
        if (message == WM_CLOSE) {
            DestroyWindow(window);
            PostQuitMessage(0);
            return 0;
        }
        return DefWindowProcW(window, message, what, data);
    }

    void OnDeviceChange(WPARAM what, LPARAM data) const {
        if (what != DBT_DEVICEARRIVAL && what != DBT_DEVICEREMOVECOMPLETE) return;
        const auto header = reinterpret_cast<const DEV_BROADCAST_HDR*>(data);
        if (header->dbch_devicetype != DBT_DEVTYP_DEVICEINTERFACE) return;
        const std::wstring path =
            reinterpret_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(data)->dbcc_name;
        (what == DBT_DEVICEARRIVAL ? events_.onArrival : events_.onRemoval)(path);
    }

    HWND CreateNotified() {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = OnMessage;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = kClass;
        RegisterClassExW(&windowClass);  // fails when an earlier object registered it
        const HWND window = CreateWindowExW(0, kClass, kClass, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                            windowClass.hInstance, nullptr);
        if (window == nullptr) return nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        DEV_BROADCAST_DEVICEINTERFACE_W filter{};
        filter.dbcc_size = sizeof(filter);
        filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
        filter.dbcc_classguid = kHidInterfaces;
        if (RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_WINDOW_HANDLE) == nullptr) {
            DestroyWindow(window);
            return nullptr;
        }
        // Broadcasts do not reach such a window. Without this function, which is newer than Windows
        // 7, the host calls Refresh after a resume.
        using Register = HANDLE(WINAPI*)(HANDLE, DWORD);
        const auto notifyOfResume =
            FindSystemFunction<Register>(L"user32.dll", "RegisterSuspendResumeNotification");
        if (notifyOfResume != nullptr) notifyOfResume(window, DEVICE_NOTIFY_WINDOW_HANDLE);
        return window;
    }

    // Destroying the window ends both registrations.
    void Run() {
        const HWND window = CreateNotified();
        created_.set_value(window);
        if (window == nullptr) return;
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    }

    const DeviceEvents& events_;
    std::promise<HWND> created_;  // by the thread, which still uses it when it has the value
    HWND window_ = nullptr;
    std::thread thread_;
};

// Notifications of the configuration manager, for processes without windows: services. They need
// Windows 8, and come on threads of the system.
class ManagerNotifications {
 public:
    explicit ManagerNotifications(const DeviceEvents& events) : events_(events) {
        using Register =
            DWORD(WINAPI*)(PCM_NOTIFY_FILTER, void*, PCM_NOTIFY_CALLBACK, PHCMNOTIFICATION);
        const auto notify = FindSystemFunction<Register>(kManager, "CM_Register_Notification");
        CM_NOTIFY_FILTER filter{};
        filter.cbSize = sizeof(filter);
        filter.FilterType = CM_NOTIFY_FILTER_TYPE_DEVICEINTERFACE;
        filter.u.DeviceInterface.ClassGuid = kHidInterfaces;
        if (notify == nullptr || notify(&filter, this, OnDevice, &devices_) != CR_SUCCESS) {
            devices_ = nullptr;
            return;
        }
        using RegisterPower = DWORD(WINAPI*)(DWORD, void*, void**);
        const auto notifyOfResume =
            FindSystemFunction<RegisterPower>(kPower, "PowerRegisterSuspendResumeNotification");
        if (notifyOfResume == nullptr ||
            notifyOfResume(kByCallback, &subscription_, &power_) != 0) {
            power_ = nullptr;
        }
    }
    // Waits for a notification that is under way.
    ~ManagerNotifications() {
        using Unregister = DWORD(WINAPI*)(void*);
        if (power_ != nullptr) {
            FindSystemFunction<Unregister>(kPower,
                                           "PowerUnregisterSuspendResumeNotification")(power_);
        }
        if (devices_ != nullptr) {
            FindSystemFunction<Unregister>(kManager, "CM_Unregister_Notification")(devices_);
        }
    }
    ManagerNotifications(const ManagerNotifications&) = delete;
    ManagerNotifications& operator=(const ManagerNotifications&) = delete;

    // Returns false where the system has no such notifications.
    bool AreOn() const { return devices_ != nullptr; }

 private:
    static constexpr const wchar_t* kManager = L"cfgmgr32.dll";
    static constexpr const wchar_t* kPower = L"powrprof.dll";
    static constexpr DWORD kByCallback = 2;  // DEVICE_NOTIFY_CALLBACK

    struct Subscription {  // DEVICE_NOTIFY_SUBSCRIBE_PARAMETERS
        ULONG(CALLBACK* onPower)(void* context, ULONG what, void* setting);
        void* context;
    };

    static DWORD CALLBACK OnDevice(HCMNOTIFICATION, void* context, CM_NOTIFY_ACTION action,
                                   PCM_NOTIFY_EVENT_DATA data, DWORD) {
        const DeviceEvents& events = static_cast<ManagerNotifications*>(context)->events_;
        const std::wstring path = data->u.DeviceInterface.SymbolicLink;
        if (action == CM_NOTIFY_ACTION_DEVICEINTERFACEARRIVAL) events.onArrival(path);
        if (action == CM_NOTIFY_ACTION_DEVICEINTERFACEREMOVAL) events.onRemoval(path);
        return ERROR_SUCCESS;
    }

    static ULONG CALLBACK OnPower(void* context, ULONG what, void*) {
        if (what == PBT_APMRESUMEAUTOMATIC) {
            static_cast<ManagerNotifications*>(context)->events_.onResume();
        }
        return ERROR_SUCCESS;
    }

    const DeviceEvents& events_;
    Subscription subscription_{OnPower, this};
    HCMNOTIFICATION devices_ = nullptr;
    void* power_ = nullptr;
};

// Returns whether the HID interface of this path is a touchpad's, of whatever vendor, by what the
// system keeps of its report descriptor: nothing is requested of the device. An interface that is
// gone already, or that cannot be opened, may be one.
inline bool MayBeTouchpad(const std::wstring& path) {
    constexpr USAGE kUsagePage = 0xFF80;
    constexpr USAGE kUsage = 0x80;  // the meeting buttons
    const HANDLE device = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    if (device == INVALID_HANDLE_VALUE) return true;
    PHIDP_PREPARSED_DATA preparsedData = nullptr;
    HIDP_CAPS caps{};
    const bool isRead = HidD_GetPreparsedData(device, &preparsedData) != FALSE &&
                        HidP_GetCaps(preparsedData, &caps) >= 0;
    if (preparsedData != nullptr) HidD_FreePreparsedData(preparsedData);
    CloseHandle(device);
    return !isRead || (caps.UsagePage == kUsagePage && caps.Usage == kUsage);
}

// Returns the paths of all HID interfaces that are present.
inline std::vector<std::wstring> HidInterfacePaths() {
    std::vector<std::wstring> paths;
    const HDEVINFO devices = SetupDiGetClassDevsW(&kHidInterfaces, nullptr, nullptr,
                                                  DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    if (devices == INVALID_HANDLE_VALUE) return paths;
    SP_DEVICE_INTERFACE_DATA found{};
    found.cbSize = sizeof(found);
    for (DWORD index = 0;
         SetupDiEnumDeviceInterfaces(devices, nullptr, &kHidInterfaces, index, &found); ++index) {
        DWORD size = 0;
        SetupDiGetDeviceInterfaceDetailW(devices, &found, nullptr, 0, &size, nullptr);
        std::vector<DWORD> record(size / sizeof(DWORD) + 1);
        const auto detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(record.data());
        detail->cbSize = sizeof(*detail);
        if (SetupDiGetDeviceInterfaceDetailW(devices, &found, detail, size, nullptr, nullptr)) {
            paths.emplace_back(detail->DevicePath);
        }
    }
    SetupDiDestroyDeviceInfoList(devices);
    return paths;
}

}  // namespace detail
}  // namespace vela_agent

#endif
