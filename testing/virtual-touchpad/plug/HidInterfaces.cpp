#include "testing/virtual-touchpad/plug/HidInterfaces.h"

#include <windows.h>
#include <setupapi.h>
extern "C" {
#include <hidsdi.h>
}

#include <vector>

namespace virtual_touchpad {
namespace {

std::wstring SerialNumber(const std::wstring& path) {
    // Opening without read and write access succeeds even if a host has the device exclusively.
    const HANDLE file = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    wchar_t text[128] = {};
    const BOOLEAN success = HidD_GetSerialNumberString(file, text, sizeof(text) - sizeof(text[0]));
    CloseHandle(file);
    return success ? text : std::wstring();
}

std::wstring InterfacePath(HDEVINFO set, SP_DEVICE_INTERFACE_DATA& data) {
    DWORD size = 0;
    SetupDiGetDeviceInterfaceDetailW(set, &data, nullptr, 0, &size, nullptr);
    if (size < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W)) return {};
    std::vector<std::uint64_t> buffer(size / sizeof(std::uint64_t) + 1);
    auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer.data());
    detail->cbSize = sizeof(*detail);
    if (!SetupDiGetDeviceInterfaceDetailW(set, &data, detail, size, nullptr, nullptr)) return {};
    return detail->DevicePath;
}

}  // namespace

std::wstring FindHidPath(const std::wstring& controlLink) {
    GUID hid;
    HidD_GetHidGuid(&hid);
    const HDEVINFO set =
        SetupDiGetClassDevsW(&hid, nullptr, nullptr, DIGCF_DEVICEINTERFACE | DIGCF_PRESENT);
    if (set == INVALID_HANDLE_VALUE) return {};
    std::wstring found;
    SP_DEVICE_INTERFACE_DATA data = {};
    data.cbSize = sizeof(data);
    for (DWORD i = 0; found.empty() && SetupDiEnumDeviceInterfaces(set, nullptr, &hid, i, &data);
         ++i) {
        const std::wstring path = InterfacePath(set, data);
        if (SerialNumber(path) == controlLink) found = path;
    }
    SetupDiDestroyDeviceInfoList(set);
    return found;
}

}  // namespace virtual_touchpad
