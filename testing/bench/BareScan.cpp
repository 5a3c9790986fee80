#include "testing/bench/BareScan.h"

#include <windows.h>

#include <setupapi.h>

#include <string>
#include <vector>

#include "hid/HidHeaders.h"
#include "touchpad/TouchpadUsages.h"

namespace bench {
namespace {

std::vector<std::wstring> Paths() {
    std::vector<std::wstring> paths;
    GUID hid{};
    HidD_GetHidGuid(&hid);
    const HDEVINFO set =
        SetupDiGetClassDevsW(&hid, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    SP_DEVICE_INTERFACE_DATA data{};
    data.cbSize = sizeof(data);
    for (DWORD i = 0; SetupDiEnumDeviceInterfaces(set, nullptr, &hid, i, &data); ++i) {
        DWORD size = 0;
        SetupDiGetDeviceInterfaceDetailW(set, &data, nullptr, 0, &size, nullptr);
        auto* const detail =
            static_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(GlobalAlloc(GMEM_ZEROINIT, size));
        detail->cbSize = sizeof(*detail);
        SetupDiGetDeviceInterfaceDetailW(set, &data, detail, size, nullptr, nullptr);
        paths.emplace_back(detail->DevicePath);
        GlobalFree(detail);
    }
    SetupDiDestroyDeviceInfoList(set);
    return paths;
}

template <typename Caps, typename List>
void ListAll(HIDP_REPORT_TYPE type, USHORT count, PHIDP_PREPARSED_DATA preparsed, List list) {
    if (count == 0) return;
    std::vector<Caps> caps(count);
    list(type, caps.data(), &count, preparsed);
}

void Catalogue(const HIDP_CAPS& caps, PHIDP_PREPARSED_DATA preparsed) {
    const auto values = [&](HIDP_REPORT_TYPE type, USHORT count) {
        ListAll<HIDP_VALUE_CAPS>(type, count, preparsed, HidP_GetValueCaps);
    };
    const auto buttons = [&](HIDP_REPORT_TYPE type, USHORT count) {
        ListAll<HIDP_BUTTON_CAPS>(type, count, preparsed, HidP_GetButtonCaps);
    };
    values(HidP_Input, caps.NumberInputValueCaps);
    values(HidP_Output, caps.NumberOutputValueCaps);
    values(HidP_Feature, caps.NumberFeatureValueCaps);
    buttons(HidP_Input, caps.NumberInputButtonCaps);
    buttons(HidP_Output, caps.NumberOutputButtonCaps);
}

// Gets the capabilities of the interface, and returns the preparsed data when it is the touchpad's.
// The preparsed data of a rejected interface is not freed, as in the agent's scan.
PHIDP_PREPARSED_DATA Examine(HANDLE file, HIDP_CAPS& caps) {
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    if (!HidD_GetPreparsedData(file, &preparsed)) return nullptr;
    HIDD_ATTRIBUTES attributes{};
    attributes.Size = sizeof(attributes);
    if (!HidD_GetAttributes(file, &attributes)) return nullptr;
    if (HidP_GetCaps(preparsed, &caps) < 0) return nullptr;
    const bool isTouchpad =
        caps.UsagePage == vela::kTouchpadUsagePage && caps.Usage == vela::kMeetingButtonsUsage;
    return isTouchpad ? preparsed : nullptr;
}

bool IsTouchpad(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    HIDP_CAPS caps{};
    const PHIDP_PREPARSED_DATA preparsed = Examine(file, caps);
    if (preparsed != nullptr) Catalogue(caps, preparsed);
    CloseHandle(file);
    if (preparsed != nullptr) HidD_FreePreparsedData(preparsed);
    return preparsed != nullptr;
}

}  // namespace

std::wstring BareScan() {
    for (const std::wstring& path : Paths()) {
        if (IsTouchpad(path)) return path;
    }
    return {};
}

}  // namespace bench
