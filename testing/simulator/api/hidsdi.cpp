// The HID class driver library's calls on an open device. None needs an access right.
#include <hidsdi.h>

#include <cstring>
#include <memory>
#include <string>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/DevicePaths.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"

using namespace simulator;

namespace {

// Runs `work` on the device; its result is the last error.
template <typename Work>
BOOLEAN OnDevice(const char* function, HANDLE handle, Work work) {
    const MachineLock lock;
    const auto file = FindFile(handle, function);
    DWORD error = ERROR_SUCCESS;
    if (file == nullptr) {
        error = ERROR_INVALID_HANDLE;
    } else if (!file->IsConnected()) {
        error = ERROR_DEVICE_NOT_CONNECTED;
    } else {
        error = work(file->Device());
    }
    return static_cast<BOOLEAN>(ReportError(error));
}

}  // namespace

extern "C" {

void WINAPI HidD_GetHidGuid(LPGUID HidGuid) {
    if (Enter("HidD_GetHidGuid", "")) return;
    *HidGuid = kHidInterfaceClass;
}

BOOLEAN WINAPI HidD_GetAttributes(HANDLE HidDeviceObject, PHIDD_ATTRIBUTES Attributes) {
    if (const auto fault = Enter("HidD_GetAttributes", HandleName(HidDeviceObject))) {
        return fault->Failed<BOOLEAN>(FALSE);
    }
    return OnDevice("HidD_GetAttributes", HidDeviceObject,
                    [&](const DeviceObject& device) -> DWORD {
                        if (Attributes->Size != sizeof(*Attributes)) return ERROR_INVALID_PARAMETER;
                        Attributes->VendorID = device.Description().vendorId;
                        Attributes->ProductID = device.Description().productId;
                        Attributes->VersionNumber = device.Description().versionNumber;
                        return ERROR_SUCCESS;
                    });
}

BOOLEAN WINAPI HidD_GetPreparsedData(HANDLE HidDeviceObject, PHIDP_PREPARSED_DATA* PreparsedData) {
    if (const auto fault = Enter("HidD_GetPreparsedData", HandleName(HidDeviceObject))) {
        return fault->Failed<BOOLEAN>(FALSE);
    }
    return OnDevice("HidD_GetPreparsedData", HidDeviceObject,
                    [&](const DeviceObject& device) -> DWORD {
                        *PreparsedData = hid::AllocatePreparsedData(device.ParsedCollection());
                        return ERROR_SUCCESS;
                    });
}

BOOLEAN WINAPI HidD_FreePreparsedData(PHIDP_PREPARSED_DATA PreparsedData) {
    if (const auto fault = Enter("HidD_FreePreparsedData", "")) {
        return fault->Failed<BOOLEAN>(FALSE);
    }
    if (PreparsedData != nullptr && hid::FreePreparsedData(PreparsedData)) return TRUE;
    if (PreparsedData != nullptr) NoteMisuse("HidD_FreePreparsedData: not in use");
    return static_cast<BOOLEAN>(ReportError(ERROR_INVALID_PARAMETER));
}

BOOLEAN WINAPI HidD_GetProductString(HANDLE HidDeviceObject, PVOID Buffer, ULONG BufferLength) {
    if (const auto fault = Enter("HidD_GetProductString",
                                 Arguments(HandleName(HidDeviceObject), Count(BufferLength)))) {
        return fault->Failed<BOOLEAN>(FALSE);
    }
    return OnDevice("HidD_GetProductString", HidDeviceObject,
                    [&](const DeviceObject& device) -> DWORD {
                        const std::wstring& text = device.Description().productString;
                        // Some systems return success and write nothing when the device has no
                        // product string.
                        if (text.empty()) return ERROR_SUCCESS;
                        const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
                        if (BufferLength < size) return ERROR_INVALID_USER_BUFFER;
                        std::memcpy(Buffer, text.c_str(), size);
                        return ERROR_SUCCESS;
                    });
}

BOOLEAN WINAPI HidD_GetFeature(HANDLE HidDeviceObject, PVOID ReportBuffer,
                               ULONG ReportBufferLength) {
    if (const auto fault = Enter(
            "HidD_GetFeature", Arguments(HandleName(HidDeviceObject), Count(ReportBufferLength)))) {
        return fault->Failed<BOOLEAN>(FALSE);
    }
    return OnDevice("HidD_GetFeature", HidDeviceObject, [&](const DeviceObject& device) {
        return device.ReadFeature(ReportBuffer, ReportBufferLength);
    });
}

BOOLEAN WINAPI HidD_SetFeature(HANDLE HidDeviceObject, PVOID ReportBuffer,
                               ULONG ReportBufferLength) {
    if (const auto fault = Enter(
            "HidD_SetFeature",
            Arguments(HandleName(HidDeviceObject), HexBytes(ReportBuffer, ReportBufferLength)))) {
        return fault->Failed<BOOLEAN>(FALSE);
    }
    return OnDevice("HidD_SetFeature", HidDeviceObject, [&](DeviceObject& device) {
        return device.WriteFeature(ReportBuffer, ReportBufferLength);
    });
}

}  // extern "C"
