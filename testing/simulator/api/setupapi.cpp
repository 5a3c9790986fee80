// Enumeration of device interfaces.
#include <setupapi.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/DevicePaths.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"

using namespace simulator;

namespace {

// A device information list shows the machine as it was when the list was made.
class DeviceList : public KernelObject {
 public:
    explicit DeviceList(std::vector<std::wstring> devicePaths) : paths(std::move(devicePaths)) {}

    const std::vector<std::wstring> paths;
};

bool IsHidClass(const GUID* guid) {
    return guid != nullptr && std::memcmp(guid, &kHidInterfaceClass, sizeof(GUID)) == 0;
}

std::string GuidArgument(const GUID* guid) { return guid != nullptr ? GuidText(*guid) : "null"; }

std::vector<std::wstring> ListPaths(const GUID* guid, DWORD flags) {
    std::vector<std::wstring> paths;
    const bool hidInterfaces = (flags & DIGCF_DEVICEINTERFACE) != 0 &&
                               (IsHidClass(guid) || (flags & DIGCF_ALLCLASSES) != 0);
    if (!hidInterfaces) return paths;
    for (const auto& device : State().devices) {
        if (device->IsPresent() || (flags & DIGCF_PRESENT) == 0)
            paths.push_back(device->Description().path);
    }
    return paths;
}

// The Reserved member of the record holds the index in the list, counted from 1.
const std::wstring* FindPath(const DeviceList& list, const SP_DEVICE_INTERFACE_DATA* data) {
    if (data == nullptr || data->cbSize != sizeof(*data)) return nullptr;
    if (data->Reserved == 0 || data->Reserved > list.paths.size()) return nullptr;
    return &list.paths[data->Reserved - 1];
}

DWORD EnumInterface(HDEVINFO handle, const SP_DEVINFO_DATA* device, const GUID* guid, DWORD index,
                    SP_DEVICE_INTERFACE_DATA* data) {
    const MachineLock lock;
    const auto list = State().handles.Find<DeviceList>(handle);
    if (list == nullptr) return ERROR_INVALID_HANDLE;
    if (data == nullptr) return ERROR_INVALID_PARAMETER;
    if (data->cbSize != sizeof(*data)) return ERROR_INVALID_USER_BUFFER;
    // Restricting the enumeration to one device is not modelled.
    if (device != nullptr) return ERROR_INVALID_PARAMETER;
    if (!IsHidClass(guid) || index >= list->paths.size()) return ERROR_NO_MORE_ITEMS;
    data->InterfaceClassGuid = kHidInterfaceClass;
    data->Flags = SPINT_ACTIVE;
    data->Reserved = index + 1;
    return ERROR_SUCCESS;
}

DWORD InterfaceDetail(HDEVINFO handle, const SP_DEVICE_INTERFACE_DATA* data,
                      SP_DEVICE_INTERFACE_DETAIL_DATA_W* detail, DWORD size, DWORD* required,
                      SP_DEVINFO_DATA* device) {
    const MachineLock lock;
    const auto list = State().handles.Find<DeviceList>(handle);
    if (list == nullptr) return ERROR_INVALID_HANDLE;
    const std::wstring* const path = FindPath(*list, data);
    if (path == nullptr) return ERROR_INVALID_PARAMETER;
    if (detail == nullptr ? size != 0 : detail->cbSize != sizeof(*detail)) {
        return ERROR_INVALID_USER_BUFFER;
    }
    if (device != nullptr && device->cbSize != sizeof(*device)) return ERROR_INVALID_USER_BUFFER;

    const std::size_t pathSize = (path->size() + 1) * sizeof(WCHAR);
    const std::size_t needed = offsetof(SP_DEVICE_INTERFACE_DETAIL_DATA_W, DevicePath) + pathSize;
    if (required != nullptr) *required = static_cast<DWORD>(needed);
    if (detail == nullptr || size < needed) return ERROR_INSUFFICIENT_BUFFER;
    std::memcpy(detail->DevicePath, path->c_str(), pathSize);
    if (device != nullptr) {
        device->ClassGuid = kHidInterfaceClass;
        device->DevInst = static_cast<DWORD>(data->Reserved);
        device->Reserved = data->Reserved;
    }
    return ERROR_SUCCESS;
}

}  // namespace

extern "C" {

HDEVINFO WINAPI SetupDiGetClassDevsW(const GUID* ClassGuid, PCWSTR Enumerator, HWND hwndParent,
                                     DWORD Flags) {
    if (const auto fault =
            Enter("SetupDiGetClassDevsW", Arguments(GuidArgument(ClassGuid), Quoted(Enumerator),
                                                    HandleName(hwndParent), Hex(Flags)))) {
        return fault->Failed<HDEVINFO>(INVALID_HANDLE_VALUE);
    }
    const MachineLock lock;
    return State().handles.Add(HandleKind::Devices,
                               std::make_shared<DeviceList>(ListPaths(ClassGuid, Flags)));
}

BOOL WINAPI SetupDiEnumDeviceInterfaces(HDEVINFO DeviceInfoSet, PSP_DEVINFO_DATA DeviceInfoData,
                                        const GUID* InterfaceClassGuid, DWORD MemberIndex,
                                        PSP_DEVICE_INTERFACE_DATA DeviceInterfaceData) {
    if (const auto fault = Enter(
            "SetupDiEnumDeviceInterfaces",
            Arguments(HandleName(DeviceInfoSet), DeviceInfoData != nullptr ? "device" : "null",
                      GuidArgument(InterfaceClassGuid), Count(MemberIndex)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return ReportError(EnumInterface(DeviceInfoSet, DeviceInfoData, InterfaceClassGuid, MemberIndex,
                                     DeviceInterfaceData));
}

BOOL WINAPI SetupDiGetDeviceInterfaceDetailW(
    HDEVINFO DeviceInfoSet, PSP_DEVICE_INTERFACE_DATA DeviceInterfaceData,
    PSP_DEVICE_INTERFACE_DETAIL_DATA_W DeviceInterfaceDetailData,
    DWORD DeviceInterfaceDetailDataSize, PDWORD RequiredSize, PSP_DEVINFO_DATA DeviceInfoData) {
    if (const auto fault =
            Enter("SetupDiGetDeviceInterfaceDetailW",
                  Arguments(HandleName(DeviceInfoSet), Count(DeviceInterfaceDetailDataSize)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return ReportError(InterfaceDetail(DeviceInfoSet, DeviceInterfaceData,
                                       DeviceInterfaceDetailData, DeviceInterfaceDetailDataSize,
                                       RequiredSize, DeviceInfoData));
}

BOOL WINAPI SetupDiDestroyDeviceInfoList(HDEVINFO DeviceInfoSet) {
    const std::string arguments = Arguments(HandleName(DeviceInfoSet));
    if (const auto fault = Enter("SetupDiDestroyDeviceInfoList", arguments)) {
        return fault->Failed<BOOL>(FALSE);
    }
    {
        const MachineLock lock;
        const auto list = State().handles.Find<DeviceList>(DeviceInfoSet);
        if (list != nullptr && State().handles.Close(DeviceInfoSet)) return TRUE;
    }
    if (DeviceInfoSet != INVALID_HANDLE_VALUE) {
        NoteMisuse("SetupDiDestroyDeviceInfoList(" + arguments + "): not an open list");
    }
    return ReportError(ERROR_INVALID_HANDLE);
}

}  // extern "C"
