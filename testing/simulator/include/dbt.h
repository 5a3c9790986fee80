// Records of device notifications to a window.
#pragma once

#include <minwindef.h>

#define DBT_DEVICEARRIVAL 0x8000u
#define DBT_DEVICEREMOVECOMPLETE 0x8004u
#define DBT_DEVTYP_DEVICEINTERFACE 0x00000005u

typedef struct _DEV_BROADCAST_HDR {
    DWORD dbch_size;
    DWORD dbch_devicetype;
    DWORD dbch_reserved;
} DEV_BROADCAST_HDR;

typedef struct _DEV_BROADCAST_DEVICEINTERFACE_W {
    DWORD dbcc_size;
    DWORD dbcc_devicetype;
    DWORD dbcc_reserved;
    GUID dbcc_classguid;
    WCHAR dbcc_name[1];
} DEV_BROADCAST_DEVICEINTERFACE_W;
