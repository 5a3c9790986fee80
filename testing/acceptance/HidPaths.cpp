#include "testing/acceptance/HidPaths.h"

#include <windows.h>
#include <setupapi.h>
extern "C" {
#include <hidsdi.h>
}

namespace acceptance {

std::vector<std::wstring> HidPaths() {
    GUID hid;
    HidD_GetHidGuid(&hid);
    const HDEVINFO set =
        SetupDiGetClassDevsW(&hid, nullptr, nullptr, DIGCF_DEVICEINTERFACE | DIGCF_PRESENT);
    std::vector<std::wstring> paths;
    SP_DEVICE_INTERFACE_DATA data{};
    data.cbSize = sizeof(data);
    for (DWORD i = 0; SetupDiEnumDeviceInterfaces(set, nullptr, &hid, i, &data); ++i) {
        alignas(SP_DEVICE_INTERFACE_DETAIL_DATA_W) char buffer[1024] = {};
        auto* const detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer);
        detail->cbSize = sizeof(*detail);
        if (SetupDiGetDeviceInterfaceDetailW(set, &data, detail, sizeof(buffer), nullptr,
                                             nullptr)) {
            paths.push_back(detail->DevicePath);
        }
    }
    SetupDiDestroyDeviceInfoList(set);
    return paths;
}

}  // namespace acceptance
