#include "hid/HIDDevicePaths.h"

#include <windows.h>

#include <setupapi.h>

#include <memory>

#include "hid/HidHeaders.h"
#include "log/ILog.h"

namespace vela {
namespace {

constexpr const char* kFunction = "GetHidDevicePathList";

struct GlobalMemoryDeleter {
    void operator()(void* memory) const { GlobalFree(memory); }
};
using InterfaceDetail = std::unique_ptr<SP_DEVICE_INTERFACE_DETAIL_DATA_W, GlobalMemoryDeleter>;

// Destroys the list in every case: the platform refuses the invalid value of a failed call without
// harm.
struct DeviceInfoList {
    HDEVINFO handle;
    explicit DeviceInfoList(HDEVINFO list) : handle(list) {}
    ~DeviceInfoList() { SetupDiDestroyDeviceInfoList(handle); }
    DeviceInfoList(const DeviceInfoList&) = delete;
    DeviceInfoList& operator=(const DeviceInfoList&) = delete;
};

void AppendPath(HDEVINFO devices, SP_DEVICE_INTERFACE_DATA& interfaceData,
                std::vector<std::wstring>& paths) {
    DWORD size = 0;
    SetupDiGetDeviceInterfaceDetailW(devices, &interfaceData, nullptr, 0, &size, nullptr);
    if (size == 0) return;

    const InterfaceDetail detail(
        static_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(GlobalAlloc(GMEM_ZEROINIT, size)));
    if (detail == nullptr) return;

    // The size of the record's fixed part, not of the buffer.
    detail->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W);
    if (SetupDiGetDeviceInterfaceDetailW(devices, &interfaceData, detail.get(), size, nullptr,
                                         nullptr) == TRUE) {
        paths.emplace_back(detail->DevicePath);
    }
}

}  // namespace

std::vector<std::wstring> GetHidDevicePathList() {
    std::vector<std::wstring> paths;
    GUID hidGuid{};
    HidD_GetHidGuid(&hidGuid);

    const DeviceInfoList devices(
        SetupDiGetClassDevsW(&hidGuid, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE));
    if (devices.handle == INVALID_HANDLE_VALUE) {
        const auto error = static_cast<int>(GetLastError());
        GetLogger()->Log(kLogError, kFunction, "SetupDiGetClassDevs faild, last error (%d).",
                         error);
        return paths;
    }

    SP_DEVICE_INTERFACE_DATA interfaceData{};
    interfaceData.cbSize = sizeof(interfaceData);
    for (DWORD index = 0;; ++index) {
        if (!SetupDiEnumDeviceInterfaces(devices.handle, nullptr, &hidGuid, index,
                                         &interfaceData)) {
            const DWORD error = GetLastError();
            if (error != ERROR_NO_MORE_ITEMS) {
                GetLogger()->Log(kLogError, kFunction,
                                 "SetupDiEnumDeviceInterfaces faild, last error (%d).",
                                 static_cast<int>(error));
            }
            break;
        }
        AppendPath(devices.handle, interfaceData, paths);
    }
    return paths;
}

}  // namespace vela
