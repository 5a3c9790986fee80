// Notifications of the configuration manager.
#pragma once

#include <minwindef.h>

#define CR_SUCCESS 0x00000000u
#define CR_FAILURE 0x00000013u
#define MAX_DEVICE_ID_LEN 200
#define ANYSIZE_ARRAY 1

typedef struct HCMNOTIFICATION__* HCMNOTIFICATION;
typedef HCMNOTIFICATION* PHCMNOTIFICATION;

typedef enum _CM_NOTIFY_FILTER_TYPE {
    CM_NOTIFY_FILTER_TYPE_DEVICEINTERFACE = 0,
    CM_NOTIFY_FILTER_TYPE_DEVICEHANDLE,
    CM_NOTIFY_FILTER_TYPE_DEVICEINSTANCE,
} CM_NOTIFY_FILTER_TYPE;

typedef struct _CM_NOTIFY_FILTER {
    DWORD cbSize;
    DWORD Flags;
    CM_NOTIFY_FILTER_TYPE FilterType;
    DWORD Reserved;
    union {
        struct {
            GUID ClassGuid;
        } DeviceInterface;
        struct {
            HANDLE hTarget;
        } DeviceHandle;
        struct {
            WCHAR InstanceId[MAX_DEVICE_ID_LEN];
        } DeviceInstance;
    } u;
} CM_NOTIFY_FILTER, *PCM_NOTIFY_FILTER;

typedef enum _CM_NOTIFY_ACTION {
    CM_NOTIFY_ACTION_DEVICEINTERFACEARRIVAL = 0,
    CM_NOTIFY_ACTION_DEVICEINTERFACEREMOVAL,
} CM_NOTIFY_ACTION;

typedef struct _CM_NOTIFY_EVENT_DATA {
    CM_NOTIFY_FILTER_TYPE FilterType;
    DWORD Reserved;
    union {
        struct {
            GUID ClassGuid;
            WCHAR SymbolicLink[ANYSIZE_ARRAY];
        } DeviceInterface;
    } u;
} CM_NOTIFY_EVENT_DATA, *PCM_NOTIFY_EVENT_DATA;

typedef DWORD(CALLBACK* PCM_NOTIFY_CALLBACK)(HCMNOTIFICATION hNotify, PVOID Context,
                                             CM_NOTIFY_ACTION Action,
                                             PCM_NOTIFY_EVENT_DATA EventData, DWORD EventDataSize);

extern "C" {

DWORD WINAPI CM_Register_Notification(PCM_NOTIFY_FILTER pFilter, PVOID pContext,
                                      PCM_NOTIFY_CALLBACK pCallback,
                                      PHCMNOTIFICATION pNotifyContext);
DWORD WINAPI CM_Unregister_Notification(HCMNOTIFICATION NotifyContext);

}  // extern "C"
