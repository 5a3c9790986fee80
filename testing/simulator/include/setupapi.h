// The device installation library's enumeration of device interfaces.
#pragma once

#include <windows.h>

typedef PVOID HDEVINFO;

#define DIGCF_DEFAULT 0x00000001u
#define DIGCF_PRESENT 0x00000002u
#define DIGCF_ALLCLASSES 0x00000004u
#define DIGCF_PROFILE 0x00000008u
#define DIGCF_DEVICEINTERFACE 0x00000010u

#define SPINT_ACTIVE 0x00000001u

typedef struct _SP_DEVINFO_DATA {
    DWORD cbSize;
    GUID ClassGuid;
    DWORD DevInst;
    ULONG_PTR Reserved;
} SP_DEVINFO_DATA, *PSP_DEVINFO_DATA;

typedef struct _SP_DEVICE_INTERFACE_DATA {
    DWORD cbSize;
    GUID InterfaceClassGuid;
    DWORD Flags;
    ULONG_PTR Reserved;
} SP_DEVICE_INTERFACE_DATA, *PSP_DEVICE_INTERFACE_DATA;

// The path extends past the end of the record, which is allocated as large as the path needs.
typedef struct _SP_DEVICE_INTERFACE_DETAIL_DATA_W {
    DWORD cbSize;
    WCHAR DevicePath[1];
} SP_DEVICE_INTERFACE_DETAIL_DATA_W, *PSP_DEVICE_INTERFACE_DETAIL_DATA_W;

// The library identifies the version of the record by these sizes.
static_assert(sizeof(SP_DEVINFO_DATA) == 32);
static_assert(sizeof(SP_DEVICE_INTERFACE_DATA) == 32);
static_assert(sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W) == 8);

extern "C" {

HDEVINFO WINAPI SetupDiGetClassDevsW(const GUID* ClassGuid, PCWSTR Enumerator, HWND hwndParent,
                                     DWORD Flags);
BOOL WINAPI SetupDiEnumDeviceInterfaces(HDEVINFO DeviceInfoSet, PSP_DEVINFO_DATA DeviceInfoData,
                                        const GUID* InterfaceClassGuid, DWORD MemberIndex,
                                        PSP_DEVICE_INTERFACE_DATA DeviceInterfaceData);
BOOL WINAPI SetupDiGetDeviceInterfaceDetailW(
    HDEVINFO DeviceInfoSet, PSP_DEVICE_INTERFACE_DATA DeviceInterfaceData,
    PSP_DEVICE_INTERFACE_DETAIL_DATA_W DeviceInterfaceDetailData,
    DWORD DeviceInterfaceDetailDataSize, PDWORD RequiredSize, PSP_DEVINFO_DATA DeviceInfoData);
BOOL WINAPI SetupDiDestroyDeviceInfoList(HDEVINFO DeviceInfoSet);

}  // extern "C"
